#include <cstdlib>
#include <string_view>

#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/identity/Identity.h"
#include "hwx/inventory/Machine.h"
#include "hwx/summary/SummaryReport.h"
#include "hwx/text/FittedTable.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

// A terminal that knows colours, and a user who wants them.
bool TakesColour() {
  const char* const terminal = std::getenv("TERM");
  const char* const none = std::getenv("NO_COLOR");
  return OutputWidth() && terminal && std::string_view(terminal) != "dumb" && (!none || !*none);
}

class TSummaryCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand("summary", "Show this machine on one screen");
    AddFormat(*app, fFormat, {"table", "json"});
    app->add_option("--color", fColour, "auto, always or never; auto by default")
        ->check(CLI::IsMember({"auto", "always", "never"}).description(""))
        ->type_name("WHEN");
    return app;
  }

  int Run(const TGlobalOptions& options) override {
    const NamespacePtr machine = OpenMachine(options);
    const TReading reading = ReadInstances(AllClasses(*machine));
    const auto sections = Summarize(AskIdentity(machine), reading);
    const bool hasColour = fColour == "always" || (fColour == "auto" && TakesColour());
    WriteOutput(fFormat == "json" ? SummaryJson(sections)
                                  : SummaryText(sections, OutputWidth(), hasColour));
    return reading.fIsComplete ? kExitOK : kExitFailed;
  }

 private:
  std::string fFormat;
  std::string fColour = "auto";
};

}  // namespace

CommandPtr MakeSummaryCommand() {
  return std::make_unique<TSummaryCommand>();
}

}  // namespace hwx
