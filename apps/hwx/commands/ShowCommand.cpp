#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/inventory/Collection.h"
#include "hwx/inventory/Containers.h"
#include "hwx/inventory/Machine.h"
#include "hwx/inventory/ShowReport.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

class TShowCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("show", "Show what a file holds, or this machine without one");
    AddText(*app, "file", fPath, "A file that \"hwx collect\" wrote", "FILE");
    AddText(*app, "--class", fClass, "Show instances of NAME and its subclasses only", "NAME");
    app->add_option("--format", fFormat, "table, json, xml or mof; a table by default")
        ->check(CLI::IsMember({"table", "json", "xml", "mof"}))
        ->type_name("FORMAT");
    AddFileReading(*app, fReading);
    return app;
  }

  int Run(const TGlobalOptions& options) override {
    const NamespacePtr ns = fPath ? LoadContainer(*fPath, fReading) : OpenMachine(options);
    if (fFormat == "xml" || fFormat == "mof") return PrintWhole(ns);
    const TShownClasses shown = Shown(ns);
    WriteOutput(shown.fText);
    return shown.fIsComplete ? kExitOK : kExitFailed;
  }

 private:
  // A file is printed as it stands; a machine, or a part of a file, is collected first.
  int PrintWhole(const NamespacePtr& ns) const {
    const auto language = fFormat == "mof" ? EContainerText::kMOF : EContainerText::kXML;
    if (fPath && !fClass) {
      PrintContainer(ns, language);
      return kExitOK;
    }
    const TCollection collection = Collect(ns, fClass);
    PrintContainer(collection.fContainer, language);
    return collection.fIsComplete ? kExitOK : kExitFailed;
  }

  TShownClasses Shown(const NamespacePtr& ns) const {
    const TClasses classes = ClassesUnder(*ns, fClass);
    return fFormat == "json" ? ShowJson(classes) : ShowTable(classes);
  }

  std::optional<std::string> fPath;
  std::optional<std::string> fClass;
  TFileReading fReading;
  std::string fFormat = "table";
};

}  // namespace

CommandPtr MakeShowCommand() {
  return std::make_unique<TShowCommand>();
}

}  // namespace hwx
