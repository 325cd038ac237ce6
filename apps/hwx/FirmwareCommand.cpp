#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>
#include <vector>

#include "hwx/Commands.h"

namespace hwx {

namespace {

// Runs the one of its own commands that the command line names.
class TFirmwareCommand : public ICommand {
 public:
  TFirmwareCommand() {
    fCommands.emplace_back(MakeFirmwareShowCommand(), nullptr);
    fCommands.emplace_back(MakeFirmwareDumpCommand(), nullptr);
  }

  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("firmware", "Show the firmware's tables, or keep them in a file");
    app->require_subcommand(0, 1);
    // Looked at last, so that a wrong name is told as such.
    app->callback([app] {
      if (app->get_subcommands().empty()) throw CLI::RequiredError::Subcommand(1);
    });
    for (auto& [command, added] : fCommands)
      added = command->AddTo(*app);
    return app;
  }

  std::optional<std::string> TakeArguments(const std::vector<std::string>& arguments) override {
    return Chosen().TakeArguments(arguments);
  }

  int Run(const TGlobalOptions& options) override { return Chosen().Run(options); }

 private:
  // There is one: the command line was refused otherwise.
  ICommand& Chosen() const {
    const auto isChosen = [](const auto& entry) { return entry.second->parsed(); };
    return *std::find_if(fCommands.begin(), fCommands.end(), isChosen)->first;
  }

  std::vector<std::pair<CommandPtr, CLI::App*>> fCommands;
};

}  // namespace

CommandPtr MakeFirmwareCommand() {
  return std::make_unique<TFirmwareCommand>();
}

}  // namespace hwx
