#ifndef HWXCORE_OS_TOSSPECIFIC_H
#define HWXCORE_OS_TOSSPECIFIC_H

#include <string>
#include <vector>

#include "hwxcore/diagnostics/ILogger.h"
#include "hwxcore/value/TCIMDateTime.h"

namespace NQORHWX20 {

class INamespaceConsumer;

/// The one layer through which the library reaches the operating system: static members only.
///
/// Contents, with the file that implements each group:
///
/// - Constants, directory primitives, clock, system log   TOSSpecificLinux.cpp
/// - Files and paths                                       TOSSpecificLinuxFiles.cpp
/// - Child processes                                       TOSSpecificLinuxProcess.cpp
/// - Plug-in discovery and loading                         TOSSpecificLinuxPlugins.cpp
///
/// Paths are byte strings. Failures are thrown as `THWXException` unless a member says otherwise.
///
/// Thread-safety: no state and no locks. A member that is less safe than the system calls under it
/// says so.
class TOSSpecific {
 public:
  // Constants.

  static const std::string kDynamicModuleExtension;  ///< Suffix of a loadable module.
  static const std::string kHWXPluginExtension;      ///< Middle word of a plain plug-in's name.
  static const std::string kPluginExtension;         ///< The two together.
  static const std::string kSpecificationExtension;  ///< Suffix of a plug-in's properties document.
  static const std::string kRegistrationExtension;   ///< Suffix of its registration document.
  static const std::string kFileSeparator;           ///< Path separator.
  static const std::string libx86IntrAddrFile;       ///< A scratch file of outside tools.

  // Directory primitives, clock and system log. None of them writes to the logger, which rests on
  // them.

  /// Whether `path` is a directory, or a link to one.
  static bool DirExists(std::string path);

  /// Makes one level, with mode 0777 less the umask. Throws `kHWXStatusDirectoryAlreadyExists`,
  /// `kHWXStatusAccessDenied` (also on a read-only file system), or `kHWXStatusFileSystemError`.
  static void CreateDir(std::string path);

  /// The local time in whole milliseconds, with the offset that holds now, summer time included. A
  /// change of the environment variable TZ is noticed at once.
  static TCIMDateTime GetLocalTime();

  /// Does nothing on this platform.
  static void OutputLogString(std::string text);

  /// Writes `text` to the system log as "QXPK", as an error, a warning or, for every other
  /// severity, a notice. The last argument is ignored.
  static void LogSELEvent(const char* text, ILogger::EHWXLogSeverity severity, int ignored);

  /// Logs `text` at debug level, behind "TOSSpecific debug output: ".
  static void DebugOut(std::string text);

  // Files and paths.

  /// The directory that holds this library, without a separator at its end. Throws
  /// `kHWXStatusFileSystemError` if the loader can't tell.
  static std::string GetHWXRootPath();

  // Child processes: run a program and gather what it prints, errors and all, in the order of
  // writing. All four forms work alike:
  //
  // - The child inherits every open descriptor, and the standard input with them. Two threads may
  //   spawn at once, but each child then holds the other's pipe open until it ends.
  // - `timeout`, in whole seconds, bounds each wait for output and begins anew with each piece that
  //   comes: a child that prints now and then may run for ever. -1 means no limit, 0 that the
  //   output has to be there at once; other numbers below 0 fail. A signal that the caller handles
  //   while it waits ends the wait as a failure.
  // - A child whose wait ended so is left running: it is neither killed nor waited for, gets
  // SIGPIPE
  //   when it next prints, and stays a zombie until the caller ends.
  // - The end of the output comes when all who hold the pipe are gone, background processes of the
  //   child among them. The wait for the child's own end, after that, has no limit.
  // - The output is taken in chunks of up to 4095 bytes; a NUL byte ends its chunk, and the rest of
  //   that chunk is lost.
  // - Throws `kHWXStatusFail`, after a log entry, if no child can be made. Both ends of the pipe
  //   then stay open.
  //
  // No shell is involved: arguments reach the program as they are.

  /// Runs `command`, searched for along PATH, in the caller's environment, and appends its output
  /// to `output`. Returns 0 if the child ended by itself with status 0, and -1 in every other case,
  /// also if there is no such program (nothing is then printed) or no pipe.
  static int SpawnProcess(std::string command, std::vector<std::string> arguments,
                          std::string& output, int timeout);

  /// The same; returns the output. Whether the program succeeded, or was waited for to its end,
  /// isn't told.
  static std::string SpawnProcess(std::string command, std::vector<std::string> arguments,
                                  int timeout);

  /// The same for a program and its arguments, split at each single blank. There is no quoting: two
  /// blanks in a row give an empty argument, and so does a blank at the end.
  static std::string SpawnProcess(std::string commandLine, int timeout);

  /// Runs the file `path`, not searched for, with `processName` as its first argument and
  /// `environment`, of texts "NAME=value", as all of its environment. Result and output as in the
  /// first form.
  static int SpawnProcess(const std::string& processName, const std::vector<std::string>& arguments,
                          const std::string& path, const std::vector<std::string>& environment,
                          std::string& output, int timeout);

  // Plug-in discovery and loading. Nothing that is loaded is ever closed again. The symbols of each
  // plug-in are visible to everything that is loaded after it.

  /// Paths of the files whose name holds "." + `pluginWord` + ".so", in the subdirectories of
  /// `dir`, one level down, sorted by bytes. Throws `kHWXStatusFileSystemError` if a directory
  /// can't be opened; the handle of `dir` then stays open.
  static std::vector<std::string> FindPlugins(std::string dir, std::string pluginWord);
  /// The same for plain plug-ins.
  static std::vector<std::string> FindPlugins(std::string dir);

  /// Names of the plug-ins of the given word ("nsp", "nsc") beside this library, in no order. The
  /// test is loose: any file whose name holds "." + `word` counts, and its name is cut by position.
  /// Throws `kHWXStatusFileSystemError` if the directory can't be opened.
  static std::vector<std::string> FindNSServices(std::string word);
  /// Names of the namespace consumers beside this library.
  static std::vector<std::string> FindNSCs();
  /// Names of the namespace providers beside this library.
  static std::vector<std::string> FindNSPs();

  /// Opens a plain plug-in by its path and returns the loader's handle. Throws
  /// `kHWXStatusFileSystemError`, after a log entry and a line on the standard output.
  static void* LoadPluginLibrary(std::string path);

  /// Opens the namespace provider `name` beside this library, which runs its load-time code and
  /// nothing else: it enters itself in the registry, or the caller does. Throws
  /// `kHWXStatusFileSystemError`, after a log entry.
  static void LoadNSPLibrary(std::string name);

  /// Opens the namespace consumer `name` beside this library and calls its function `name` +
  /// "_CreateINamespaceConsumer". Returns what that returned, untested; the caller owns it. Throws
  /// `kHWXStatusFileSystemError` if it can't be opened and `kHWXStatusNotFound` if it has no such
  /// function, each after a log entry.
  static INamespaceConsumer* LoadNSCLibrary(std::string name);

  /// Path of the properties document of the plug-in at `path`: beside it, under its name less
  /// "lib". Throws `kHWXStatusFail` if `path` doesn't hold "." + `pluginWord` + ".so", or no "lib",
  /// and `std::out_of_range` if the last "lib" lies behind that.
  static std::string BuildSpecificationPath(std::string path, std::string pluginWord);
  /// The same for a plain plug-in.
  static std::string BuildSpecificationPath(std::string path);
  /// Path of the plug-in's registration document, in the same way.
  static std::string BuildRegistrationPath(std::string path, std::string pluginWord);
};

}  // namespace NQORHWX20

#endif  // HWXCORE_OS_TOSSPECIFIC_H
