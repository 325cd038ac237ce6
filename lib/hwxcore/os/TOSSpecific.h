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
/// - Plug-in discovery and loading                         TOSSpecificLinuxPlugins.cpp
/// - Machine identity from firmware                        TOSSpecificLinuxFirmware.cpp
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

  // Machine identity from firmware. Each call opens the firmware's tables and reads them anew; what
  // it does is logged at debug level. None of them throws `THWXException`: where the firmware can't
  // be read, a default stands in.

  /// The four characters of the machine type in the product name, behind its first "-" and the
  /// bracket there, or in front of the model where the name is the two alone. Fewer if the name
  /// ends there. "0000" if there is none or the tables can't be read.
  ///
  /// Throws `std::out_of_range` if the name ends in its first "-". The handle and the buffer of the
  /// read then stay unreleased.
  static std::string GetMachineType();

  /// The machine type that a table gives for the BIOS's build, so that it doesn't hang on the
  /// product name; that of `GetMachineType`, with its exceptions, if the table has none or the BIOS
  /// version can't be read.
  static std::string GetMachineTypeFromID();

  /// The first two characters of the BIOS's build, as the firmware writes them; "00" if the BIOS
  /// version can't be read or is shorter. Throws `std::out_of_range` if the version is longer and
  /// the build in it is shorter than that.
  static std::string GetBiosID();

  /// What the firmware says of the machine: `field` is "type", "name" (the product name up to its
  /// first "-"), "model" (three characters) or "SN" (the serial number as it stands there, fillers
  /// too). Any other gives "error param of GetMachineInfo".
  ///
  /// The type is "0000" and the others "Unknown" where there is none; all are "0000" if the tables
  /// can't be opened. Without a product name, there is none of them. Throws `std::out_of_range` if
  /// the product name ends less than six characters behind the start of its first "-", or if the
  /// firmware has no serial number of the number that it tells, and leaves then what
  /// `GetMachineType` leaves.
  static std::string GetMachineInfo(std::string field);
  static std::string GetMachineSN();     ///< `GetMachineInfo("SN")`.
  static std::string GetMachineModel();  ///< `GetMachineInfo("model")`.
  static std::string GetMachineName();   ///< `GetMachineInfo("name")`.

  /// `GetMachineName()`: the firmware's product name, not the name of an operating system.
  static std::string GetOperatingSystemName();

  /// Copies the string numbered `index`, from 1, of the `size` bytes from `src` to `dst` and
  /// returns 1; 0, and `dst` untouched, if there is none that a NUL ends within them. The first
  /// string is copied without its NUL, the others with it, so `dst` must hold `size` bytes, of
  /// zeros if a text is to be read from it.
  static int getBIDString(char* src, char* dst, int size, int index);

  /// The strings in the `size` bytes from `text`: the first up to `separator`, the others up to a
  /// NUL. One whose end lies in the last two bytes, or behind them, is left out.
  static std::vector<std::string> multiStringTok(char* text, unsigned long size, char separator);

  /// Deletes brackets and what lies outside them: everything up to the first "[", then everything
  /// from the first "]" on. Nothing else is removed. Returns 1.
  static int removeNonAlpaNumeric(std::string& text);

  /// Takes a version apart. `build` is a copy of `text`; it keeps what lies in front of the second
  /// "-", or the first if there is one only, and `text` what lies behind it. Without any, both stay
  /// as they are. Returns 1.
  static int breakApartVersion(std::string& text, std::string& build);
};

}  // namespace NQORHWX20

#endif  // HWXCORE_OS_TOSSPECIFIC_H
