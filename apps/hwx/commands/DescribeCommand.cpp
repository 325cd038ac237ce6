#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/inventory/ClassReport.h"
#include "hwx/inventory/Containers.h"
#include "hwx/inventory/Machine.h"
#include "hwx/text/FittedTable.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

class TDescribeCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand(
        "describe", "Tell what a class means: its properties, types, units and values");
    AddText(*app, "class", fClass, "The class", "CLASS")->required();
    AddText(*app, "file", fPath, "As a file has it that \"hwx collect\" wrote", "FILE");
    AddFormat(*app, fFormat, {"table", "json"});
    AddFileReading(*app, fReading);
    return app;
  }

  int Run(const TGlobalOptions& options) override {
    const NamespacePtr ns = fPath ? LoadContainer(*fPath, fReading) : OpenMachine(options);
    const ClassPtr cimClass = ClassNamed(*ns, *fClass);
    WriteOutput(fFormat == "json" ? DescribedJson(*cimClass)
                                  : DescribedText(*cimClass, OutputWidth()));
    return kExitOK;
  }

 private:
  std::optional<std::string> fClass;
  std::optional<std::string> fPath;
  std::string fFormat;
  TFileReading fReading;
};

}  // namespace

CommandPtr MakeDescribeCommand() {
  return std::make_unique<TDescribeCommand>();
}

}  // namespace hwx
