#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/identity/ExplanationReport.h"
#include "hwx/identity/Identity.h"
#include "hwx/identity/IdentityReport.h"
#include "hwx/inventory/Machine.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

class TIdentityCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand("identity", "Show who this machine is");
    AddJson(*app, fJson);
    app->add_flag("--explain", fExplains,
                  "Show besides what each source of the firmware's\n"
                  "data says, and which of them is taken");
    return app;
  }

  int Run(const TGlobalOptions& options) override {
    const NamespacePtr machine = OpenMachine(options);
    const TIdentity identity = AskIdentity(machine);
    WriteOutput(fExplains ? Explained(identity, Explain(machine, identity)) : Plain(identity));
    return kExitOK;
  }

 private:
  std::string Plain(const TIdentity& identity) const {
    return fJson ? IdentityJson(identity) : IdentityText(identity);
  }

  std::string Explained(const TIdentity& identity,
                        const std::vector<TExplanation>& explanations) const {
    if (!fJson) return IdentityText(identity) + ExplanationText(explanations);
    TJson json = IdentityObject(identity);
    json["explanations"] = ExplanationObject(explanations);
    return JsonText(json);
  }

  bool fJson = false;
  bool fExplains = false;
};

}  // namespace

CommandPtr MakeIdentityCommand() {
  return std::make_unique<TIdentityCommand>();
}

}  // namespace hwx
