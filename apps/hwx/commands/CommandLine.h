// What the user asks for on the command line. Thread-safety: a function without state.

#ifndef HWX_COMMANDS_COMMANDLINE_H
#define HWX_COMMANDS_COMMANDLINE_H

#include <string>
#include <variant>
#include <vector>

#include "hwx/commands/Command.h"

namespace hwx {

/// A command to run.
struct TRequest {
  TGlobalOptions fOptions;
  CommandPtr fCommand;
};

/// Text to print in place of running a command: help and version on the standard output, with the
/// status `kExitOK`, what is wrong on the standard error stream.
struct TNotice {
  EExitStatus fStatus;
  std::string fText;  ///< Whole lines.
};

/// Reads the command line, which is for one of `commands`. Throws nothing of its own.
std::variant<TRequest, TNotice> ParseCommandLine(int argc, const char* const* argv,
                                                 std::vector<CommandPtr> commands);

}  // namespace hwx

#endif  // HWX_COMMANDS_COMMANDLINE_H
