#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/plugins/PluginList.h"
#include "hwx/plugins/PluginListReport.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

class TProvidersCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand(
        "providers", "Show which plug-ins there are, and which of them load");
    AddJson(*app, fJson);
    AddText(*app, "--plugin-dir", fPluginDirectory,
            "Look for plain plug-ins in the subdirectories of DIR", "DIR");
    return app;
  }

  int Run(const TGlobalOptions& options) override {
    const TPluginList list = ListPlugins(fPluginDirectory, options.fLimits);
    WriteOutput(fJson ? ProvidersJson(list) : ProvidersText(list));
    return kExitOK;
  }

 private:
  bool fJson = false;
  std::optional<std::string> fPluginDirectory;
};

}  // namespace

CommandPtr MakeProvidersCommand() {
  return std::make_unique<TProvidersCommand>();
}

}  // namespace hwx
