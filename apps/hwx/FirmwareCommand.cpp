#include <CLI/CLI.hpp>
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

  int Run(const TGlobalOptions& options) override {
    for (auto& [command, added] : fCommands)
      if (added->parsed()) return command->Run(options);
    return kExitUsage;
  }

 private:
  std::vector<std::pair<CommandPtr, CLI::App*>> fCommands;
};

}  // namespace

CommandPtr MakeFirmwareCommand() {
  return std::make_unique<TFirmwareCommand>();
}

}  // namespace hwx
