#include <limits>

#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/system/ProgramRun.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

class TRunCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand(
        "run", "Run a program as a collector does: hwx run -- COMMAND [ARGUMENT...]");
    AddJson(*app, fJson);
    app->add_option("--timeout", fProgram.fTimeout,
                    "Give up when it prints nothing for so long; -1: never")
        ->check(CLI::Range(-1, std::numeric_limits<int>::max()).description(""))
        ->type_name("SECONDS")
        ->capture_default_str();
    return app;
  }

  std::optional<std::string> TakeArguments(const std::vector<std::string>& arguments) override {
    if (arguments.empty()) return "no command behind \"--\"";
    fProgram.fCommand = arguments.front();
    fProgram.fArguments.assign(arguments.begin() + 1, arguments.end());
    return std::nullopt;
  }

  // The output is written as it is, for comparison with what the program prints elsewhere.
  int Run(const TGlobalOptions&) override {
    const TProgramRun run = RunProgram(fProgram);
    WriteOutput(fJson ? ProgramRunJson(fProgram, run) : run.fOutput);
    if (run.fResult == 0) return kExitOK;
    ReportError(fProgram.fCommand + ": " + run.fWhatFailed);
    return kExitFailed;
  }

 private:
  bool fJson = false;
  TProgram fProgram;
};

}  // namespace

CommandPtr MakeRunCommand() {
  return std::make_unique<TRunCommand>();
}

}  // namespace hwx
