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
    app->add_option("--format", fFormat, "table, json or xml; a table by default")
        ->check(CLI::IsMember({"table", "json", "xml"}))
        ->type_name("FORMAT");
    return app;
  }

  int Run(const TGlobalOptions& options) override {
    const auto shown = Shown(fPath ? LoadContainer(*fPath) : OpenMachine(options));
    WriteOutput(shown.fText);
    return shown.fIsComplete ? kExitOK : kExitFailed;
  }

 private:
  TShownClasses Shown(const NamespacePtr& ns) const {
    if (fFormat == "xml") {
      const TCollection collection = Collect(ns, fClass);
      return {ContainerText(collection.fContainer), collection.fIsComplete};
    }
    const TClasses classes = ClassesUnder(*ns, fClass);
    return fFormat == "json" ? ShowJson(classes) : ShowTable(classes);
  }

  std::optional<std::string> fPath;
  std::optional<std::string> fClass;
  std::string fFormat = "table";
};

}  // namespace

CommandPtr MakeShowCommand() {
  return std::make_unique<TShowCommand>();
}

}  // namespace hwx
