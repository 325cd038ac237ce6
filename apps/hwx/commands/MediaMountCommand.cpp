#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/media/Media.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

class TMediaMountCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand(
        "mount", "Mount a drive, or else its first partition, and print where");
    AddText(*app, "device", fDevice, "Mount this device", "DEVICE")->required();
    return app;
  }

  int Run(const TGlobalOptions&) override {
    WriteOutput(MountMedium(*fDevice) + "\n");
    return kExitOK;
  }

 private:
  std::optional<std::string> fDevice;
};

}  // namespace

CommandPtr MakeMediaMountCommand() {
  return std::make_unique<TMediaMountCommand>();
}

}  // namespace hwx
