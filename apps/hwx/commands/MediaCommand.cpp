#include <vector>

#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/inventory/Machine.h"
#include "hwx/media/MediaReport.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

// Lists, or runs the one of its own commands that the command line names.
class TMediaCommand : public ICommand {
 public:
  TMediaCommand() {
    fCommands.push_back(MakeMediaMountCommand());
    fCommands.push_back(MakeMediaUnmountCommand());
  }

  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("media", "Show removable drives, or mount and unmount them");
    app->require_subcommand(0, 1);
    AddJson(*app, fJson);
    for (const CommandPtr& command : fCommands)
      command->AddTo(*app)->callback([this, chosen = command.get()] { fChosen = chosen; });
    return app;
  }

  // The option of the list reaches this place also from behind one of the commands.
  std::optional<std::string> TakeArguments(const std::vector<std::string>& arguments) override {
    if (fChosen && fJson) return "unknown option \"--json\"";
    return fChosen ? fChosen->TakeArguments(arguments) : ICommand::TakeArguments(arguments);
  }

  int Run(const TGlobalOptions& options) override {
    if (fChosen) return fChosen->Run(options);
    const auto media = ListMedia(OpenMachine(options));
    WriteOutput(fJson ? MediaJson(media) : MediaText(media));
    return kExitOK;
  }

 private:
  bool fJson = false;
  std::vector<CommandPtr> fCommands;
  ICommand* fChosen = nullptr;  // null for the list; kept here, as CLI11's parser is gone by `Run`
};

}  // namespace

CommandPtr MakeMediaCommand() {
  return std::make_unique<TMediaCommand>();
}

}  // namespace hwx
