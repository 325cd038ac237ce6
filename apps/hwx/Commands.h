// The commands of the program.

#ifndef HWX_COMMANDS_H
#define HWX_COMMANDS_H

#include <vector>

#include "hwx/Command.h"

namespace hwx {

CommandPtr MakeIdentityCommand();
CommandPtr MakeProvidersCommand();
CommandPtr MakeSendCommand();
CommandPtr MakeFetchCommand();
CommandPtr MakeCheckNetworkCommand();
CommandPtr MakeCheckProxyCommand();

/// All of them, in the order in which the help lists them.
std::vector<CommandPtr> AllCommands();

}  // namespace hwx

#endif  // HWX_COMMANDS_H
