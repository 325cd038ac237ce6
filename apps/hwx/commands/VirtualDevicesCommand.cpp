#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/media/VirtualDevicesReport.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwxcore/os/TOSSpecific.h"

namespace hwx {

using NQORHWX20::TOSSpecific;

namespace {

// In the order of the library's numbers.
const std::vector<std::string> kClasses = {"disk", "cdrom", "keyboard", "mouse"};

// Without hwinfo the library finds no devices, and doesn't say why.
void RequireHwinfo() {
  constexpr int kTimeout = 300;
  std::string ignored;
  if (TOSSpecific::SpawnProcess("hwinfo", {"--version"}, ignored, kTimeout) == 0) return;
  throw TFailure("the program hwinfo, which knows the devices, isn't on the PATH or can't be run");
}

class TVirtualDevicesCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand(
        "virtual-devices", "Show what devices the management controller presents");
    AddJson(*app, fJson);
    AddText(*app, "class", fClass, "Show these alone: disk, cdrom, keyboard or mouse", "CLASS")
        ->check(CLI::IsMember(kClasses).description(""));
    return app;
  }

  int Run(const TGlobalOptions&) override {
    RequireHwinfo();
    std::vector<TVirtualDevices> found;
    for (std::size_t number = 0; number < kClasses.size(); ++number) {
      if (fClass && *fClass != kClasses[number]) continue;
      found.push_back({kClasses[number], {}});
      TOSSpecific::getiQBCVirtualDevices(static_cast<int>(number), found.back().fNames, false);
    }
    WriteOutput(fJson ? VirtualDevicesJson(found) : VirtualDevicesText(found));
    return kExitOK;
  }

 private:
  bool fJson = false;
  std::optional<std::string> fClass;
};

}  // namespace

CommandPtr MakeVirtualDevicesCommand() {
  return std::make_unique<TVirtualDevicesCommand>();
}

}  // namespace hwx
