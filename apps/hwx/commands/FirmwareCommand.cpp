#include <CLI/CLI.hpp>
#include <vector>

#include "hwx/commands/Commands.h"

namespace hwx {

namespace {

// Runs the one of its own commands that the command line names.
class TFirmwareCommand : public ICommand {
 public:
  TFirmwareCommand() {
    fCommands.push_back(MakeFirmwareShowCommand());
    fCommands.push_back(MakeFirmwareDumpCommand());
  }

  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("firmware", "Show the firmware's tables, or keep them in a file");
    app->require_subcommand(0, 1);
    // Checked last, so that CLI11 reports a wrong name first.
    app->callback([app] {
      if (app->get_subcommands().empty()) throw CLI::RequiredError::Subcommand(1);
    });
    for (const CommandPtr& command : fCommands)
      command->AddTo(*app)->callback([this, chosen = command.get()] { fChosen = chosen; });
    return app;
  }

  std::optional<std::string> TakeArguments(const std::vector<std::string>& arguments) override {
    return fChosen->TakeArguments(arguments);
  }

  int Run(const TGlobalOptions& options) override { return fChosen->Run(options); }

 private:
  std::vector<CommandPtr> fCommands;
  ICommand* fChosen = nullptr;  // one of them; kept here, as CLI11's parser is gone by `Run`
};

}  // namespace

CommandPtr MakeFirmwareCommand() {
  return std::make_unique<TFirmwareCommand>();
}

}  // namespace hwx
