#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/media/Media.h"

namespace hwx {

namespace {

class TMediaUnmountCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand("unmount", "Unmount what is mounted there");
    AddText(*app, "mountpoint", fMountPoint, "Such as /mnt/key or /mnt/floppy", "MOUNTPOINT")
        ->required();
    return app;
  }

  int Run(const TGlobalOptions&) override {
    UnmountMedium(*fMountPoint);
    return kExitOK;
  }

 private:
  std::optional<std::string> fMountPoint;
};

}  // namespace

CommandPtr MakeMediaUnmountCommand() {
  return std::make_unique<TMediaUnmountCommand>();
}

}  // namespace hwx
