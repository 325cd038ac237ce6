#include <algorithm>
#include <utility>
#include <vector>

#include "hwx/CommandOptions.h"
#include "hwx/Commands.h"
#include "hwx/Machine.h"
#include "hwx/MediaReport.h"
#include "hwx/Output.h"

namespace hwx {

namespace {

// Lists, or runs the one of its own commands that the command line names.
class TMediaCommand : public ICommand {
 public:
  TMediaCommand() {
    fCommands.emplace_back(MakeMediaMountCommand(), nullptr);
    fCommands.emplace_back(MakeMediaUnmountCommand(), nullptr);
  }

  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("media", "Show removable drives, or mount and unmount them");
    app->require_subcommand(0, 1);
    AddJson(*app, fJson);
    for (auto& [command, added] : fCommands)
      added = command->AddTo(*app);
    return app;
  }

  // The option of the list reaches this place also from behind one of the commands.
  std::optional<std::string> TakeArguments(const std::vector<std::string>& arguments) override {
    ICommand* const chosen = Chosen();
    if (chosen && fJson) return "unknown option \"--json\"";
    return chosen ? chosen->TakeArguments(arguments) : ICommand::TakeArguments(arguments);
  }

  int Run(const TGlobalOptions& options) override {
    if (ICommand* const chosen = Chosen()) return chosen->Run(options);
    const auto media = ListMedia(OpenMachine(options));
    WriteOutput(fJson ? MediaJson(media) : MediaText(media));
    return kExitOK;
  }

 private:
  // Null for the list.
  ICommand* Chosen() const {
    const auto isChosen = [](const auto& entry) { return entry.second->parsed(); };
    const auto found = std::find_if(fCommands.begin(), fCommands.end(), isChosen);
    return found == fCommands.end() ? nullptr : found->first.get();
  }

  bool fJson = false;
  std::vector<std::pair<CommandPtr, CLI::App*>> fCommands;
};

}  // namespace

CommandPtr MakeMediaCommand() {
  return std::make_unique<TMediaCommand>();
}

}  // namespace hwx
