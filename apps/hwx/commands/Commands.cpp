#include "hwx/commands/Commands.h"

namespace hwx {

std::vector<CommandPtr> AllCommands() {
  std::vector<CommandPtr> commands;
  commands.push_back(MakeSummaryCommand());
  commands.push_back(MakeIdentityCommand());
  commands.push_back(MakeCollectCommand());
  commands.push_back(MakeShowCommand());
  commands.push_back(MakeClassesCommand());
  commands.push_back(MakeDescribeCommand());
  commands.push_back(MakeDiffCommand());
  commands.push_back(MakeMediaCommand());
  commands.push_back(MakeVirtualDevicesCommand());
  commands.push_back(MakeProvidersCommand());
  commands.push_back(MakeFirmwareCommand());
  commands.push_back(MakeConfigCommand());
  commands.push_back(MakeRunCommand());
  commands.push_back(MakeSendCommand());
  commands.push_back(MakeFetchCommand());
  commands.push_back(MakeCheckNetworkCommand());
  commands.push_back(MakeCheckProxyCommand());
  return commands;
}

}  // namespace hwx
