#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/inventory/ClassReport.h"
#include "hwx/inventory/Containers.h"
#include "hwx/inventory/Machine.h"
#include "hwx/text/FittedTable.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

class TClassesCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand(
        "classes", "List the classes, how many instances each has, and what it is for");
    AddText(*app, "file", fPath, "Those of a file that \"hwx collect\" wrote", "FILE");
    AddFormat(*app, fFormat, {"table", "json"});
    AddFileReading(*app, fReading);
    return app;
  }

  int Run(const TGlobalOptions& options) override {
    const NamespacePtr ns = fPath ? LoadContainer(*fPath, fReading) : OpenMachine(options);
    const TReading reading = ReadInstances(AllClasses(*ns));
    WriteOutput(fFormat == "json" ? ClassesJson(reading) : ClassesText(reading, OutputWidth()));
    return reading.fIsComplete ? kExitOK : kExitFailed;
  }

 private:
  std::optional<std::string> fPath;
  std::string fFormat;
  TFileReading fReading;
};

}  // namespace

CommandPtr MakeClassesCommand() {
  return std::make_unique<TClassesCommand>();
}

}  // namespace hwx
