// The commands of the program.

#ifndef HWX_COMMANDS_COMMANDS_H
#define HWX_COMMANDS_COMMANDS_H

#include <vector>

#include "hwx/commands/Command.h"

namespace hwx {

CommandPtr MakeCheckNetworkCommand();
CommandPtr MakeCheckProxyCommand();
CommandPtr MakeClassesCommand();
CommandPtr MakeCollectCommand();
CommandPtr MakeConfigCommand();
CommandPtr MakeDescribeCommand();
CommandPtr MakeDiffCommand();
CommandPtr MakeFetchCommand();
CommandPtr MakeFirmwareCommand();
CommandPtr MakeIdentityCommand();
CommandPtr MakeMediaCommand();
CommandPtr MakeProvidersCommand();
CommandPtr MakeRunCommand();
CommandPtr MakeSendCommand();
CommandPtr MakeShowCommand();
CommandPtr MakeSummaryCommand();
CommandPtr MakeVirtualDevicesCommand();

/// The commands of the command "firmware".
CommandPtr MakeFirmwareDumpCommand();
CommandPtr MakeFirmwareShowCommand();

/// The commands of the command "media", which itself lists.
CommandPtr MakeMediaMountCommand();
CommandPtr MakeMediaUnmountCommand();

/// All of them, in the order in which the help lists them.
std::vector<CommandPtr> AllCommands();

}  // namespace hwx

#endif  // HWX_COMMANDS_COMMANDS_H
