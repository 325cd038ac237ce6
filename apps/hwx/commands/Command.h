// What a command of the program is. Each stands in a file of its own, <Name>Command.cpp, and in the
// list of Commands.h. Thread-safety: for the main thread.

#ifndef HWX_COMMANDS_COMMAND_H
#define HWX_COMMANDS_COMMAND_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hwxkit/TChildLimits.h"

namespace CLI {
class App;
}

namespace hwx {

/// The exit statuses of the program.
enum EExitStatus : int {
  kExitOK = 0,      ///< The command did its work.
  kExitFailed = 1,  ///< It couldn't; why stands on the standard error stream.
  kExitUsage = 2    ///< The command line is wrong.
};

/// The options that every command has.
struct TGlobalOptions {
  bool fVerbose = false;
  bool fQuiet = false;
  std::optional<std::string> fFirmware;
  std::optional<std::string> fLogDirectory;
  NQORHWX20::TChildLimits fLimits;  ///< For the reading of providers.
};

/// One command, which keeps what the command line says to it.
class ICommand {
 public:
  virtual ~ICommand() = default;

  /// Adds the command with its options to the program, and returns what it added. What the user
  /// gives is stored in this object.
  virtual CLI::App* AddTo(CLI::App& program) = 0;

  /// Takes the arguments that stand behind "--", to the letter. Called once, before `Run`. Returns
  /// what is wrong with them; nothing if they are good.
  virtual std::optional<std::string> TakeArguments(const std::vector<std::string>& arguments) {
    if (arguments.empty()) return std::nullopt;
    return "unexpected argument \"" + arguments.front() + "\"";
  }

  /// Does what was asked for and returns the exit status. Throws `TFailure`, or an exception of the
  /// library, if it can't.
  virtual int Run(const TGlobalOptions& options) = 0;

  /// The exit status when `Run` throws.
  virtual int FailureStatus() const { return kExitFailed; }
};

using CommandPtr = std::unique_ptr<ICommand>;

}  // namespace hwx

#endif  // HWX_COMMANDS_COMMAND_H
