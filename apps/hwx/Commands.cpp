#include "hwx/Commands.h"

namespace hwx {

std::vector<CommandPtr> AllCommands() {
  std::vector<CommandPtr> commands;
  commands.push_back(MakeIdentityCommand());
  commands.push_back(MakeProvidersCommand());
  return commands;
}

}  // namespace hwx
