#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwx/text/Printable.h"
#include "hwxcore/os/TOSSpecific.h"

namespace hwx {

namespace {

class TCheckNetworkCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("check-network", "Check whether a host's name resolves");
    AddText(*app, "host", fHost, "The name, or an address", "HOST")->required();
    return app;
  }

  int Run(const TGlobalOptions&) override {
    if (NQORHWX20::TOSSpecific::DetectHostnameAvailable(*fHost, "") != 0) {
      throw TFailure("the name " + *fHost + " doesn't resolve");
    }
    WriteOutput("The name " + Printable(*fHost) + " resolves.\n");
    return kExitOK;
  }

 private:
  std::optional<std::string> fHost;
};

}  // namespace

CommandPtr MakeCheckNetworkCommand() {
  return std::make_unique<TCheckNetworkCommand>();
}

}  // namespace hwx
