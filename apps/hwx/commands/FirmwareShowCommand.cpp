#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/firmware/FirmwareReport.h"
#include "hwx/firmware/FirmwareTables.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

class TFirmwareShowCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("show", "Show the structures of the tables, with their strings");
    AddJson(*app, fJson);
    return app;
  }

  int Run(const TGlobalOptions& options) override {
    const smbios::TTables tables = RequireFirmware(options);
    WarnOfFirmware(tables, options);
    WriteOutput(fJson ? FirmwareJson(FirmwareLocation(), tables)
                      : FirmwareText(FirmwareLocation(), tables));
    return kExitOK;
  }

 private:
  bool fJson = false;
};

}  // namespace

CommandPtr MakeFirmwareShowCommand() {
  return std::make_unique<TFirmwareShowCommand>();
}

}  // namespace hwx
