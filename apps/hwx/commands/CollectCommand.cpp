#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/inventory/Collection.h"
#include "hwx/inventory/Containers.h"
#include "hwx/inventory/Machine.h"
#include "hwx/text/Output.h"
#include "hwx/text/Printable.h"

namespace hwx {

namespace {

std::string Counted(std::size_t number, const std::string& one, const std::string& many) {
  return std::to_string(number) + " " + (number == 1 ? one : many);
}

std::string Summary(const TCollection& collection, const std::string& path) {
  return "Collected " + Counted(collection.fInstances, "instance", "instances") + " of " +
         Counted(collection.fClasses, "class", "classes") + " in " + Printable(path) + "\n";
}

TCollection CollectAll(const NamespacePtr& machine) {
  return Collect(machine, AllClasses(*machine));
}

// The output can't be replaced, as files are.
bool IsOutput(const std::string& path) {
  return path == "-" || path == "/dev/stdout";
}

class TCollectCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("collect", "Collect what this machine tells in a file");
    AddText(*app, "-o,--output", fPath,
            "Write the file FILE, compressed if its name ends in\n.gz; one that is there is "
            "replaced; \"-\" is the output",
            "FILE")
        ->required();
    return app;
  }

  int Run(const TGlobalOptions& options) override {
    const TCollection collection = CollectAll(OpenMachine(options));
    if (IsOutput(*fPath)) {
      PrintContainer(collection.fContainer, EContainerText::kXML);
    } else {
      SaveContainer(collection.fContainer, *fPath);
      if (!options.fQuiet) WriteOutput(Summary(collection, *fPath));
    }
    return collection.fIsComplete ? kExitOK : kExitFailed;
  }

 private:
  std::optional<std::string> fPath;
};

}  // namespace

CommandPtr MakeCollectCommand() {
  return std::make_unique<TCollectCommand>();
}

}  // namespace hwx
