#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/firmware/FirmwareTables.h"
#include "hwx/system/WholeFile.h"
#include "hwx/text/Output.h"
#include "smbios/Dump.h"

namespace hwx {

namespace {

class TFirmwareDumpCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("dump", "Write the tables to a file, for --firmware");
    AddText(*app, "file", fFile, "Write this file; \"-\" is the output", "FILE");
    app->add_flag("--force", fForces, "Replace FILE if it is there");
    return app;
  }

  // The file may stand behind dashes, in case it looks like an option.
  std::optional<std::string> TakeArguments(const std::vector<std::string>& arguments) override {
    if (!fFile && arguments.empty()) return "file is required";
    if (fFile || arguments.size() != 1) return ICommand::TakeArguments(arguments);
    fFile = arguments.front();
    return std::nullopt;
  }

  int Run(const TGlobalOptions& options) override {
    const smbios::TTables tables = RequireFirmware(options);
    WarnOfFirmware(tables, options);
    const auto dump = smbios::MakeDump(tables);
    const std::string bytes(dump.begin(), dump.end());
    if (*fFile == "-") {
      WriteOutput(bytes);
    } else {
      WriteWholeFile(*fFile, bytes, fForces);
    }
    return kExitOK;
  }

 private:
  std::optional<std::string> fFile;
  bool fForces = false;
};

}  // namespace

CommandPtr MakeFirmwareDumpCommand() {
  return std::make_unique<TFirmwareDumpCommand>();
}

}  // namespace hwx
