// What the user asks for on the command line. Thread-safety: a function without state.

#ifndef HWX_COMMANDLINE_H
#define HWX_COMMANDLINE_H

#include <optional>
#include <string>
#include <variant>

namespace hwx {

/// The exit statuses of the program.
enum EExitStatus : int {
  kExitOK = 0,      ///< The command did its work.
  kExitFailed = 1,  ///< It couldn't; why stands on the standard error stream.
  kExitUsage = 2    ///< The command line is wrong.
};

enum class ECommand { kIdentity, kProviders };

struct TOptions {
  ECommand fCommand = ECommand::kIdentity;
  bool fJson = false;
  bool fVerbose = false;
  std::optional<std::string> fFirmware;
  std::optional<std::string> fLogDirectory;
  std::optional<std::string> fPluginDirectory;
};

/// Text to print in place of running a command: help and version on the standard output, with the
/// status `kExitOK`, what is wrong on the standard error stream.
struct TNotice {
  EExitStatus fStatus;
  std::string fText;  ///< Whole lines.
};

/// Reads the command line. Throws nothing of its own.
std::variant<TOptions, TNotice> ParseCommandLine(int argc, const char* const* argv);

}  // namespace hwx

#endif  // HWX_COMMANDLINE_H
