#include "hwx/CommandOptions.h"
#include "hwx/Commands.h"
#include "hwx/Identity.h"
#include "hwx/IdentityReport.h"
#include "hwx/Machine.h"
#include "hwx/Output.h"

namespace hwx {

namespace {

class TIdentityCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand("identity", "Show who this machine is");
    AddJson(*app, fJson);
    return app;
  }

  int Run(const TGlobalOptions& options) override {
    const TIdentity identity = AskIdentity(OpenMachine(options));
    WriteOutput(fJson ? IdentityJson(identity) : IdentityText(identity));
    return kExitOK;
  }

 private:
  bool fJson = false;
};

}  // namespace

CommandPtr MakeIdentityCommand() {
  return std::make_unique<TIdentityCommand>();
}

}  // namespace hwx
