#ifndef HWXCORE_OS_TOSSPECIFIC_H
#define HWXCORE_OS_TOSSPECIFIC_H

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "hwxbase/Export.h"
#include "hwxcore/diagnostics/ILogger.h"
#include "hwxcore/value/TCIMDateTime.h"

namespace NQORHWX20 {

class ICIMNamespace;
class INamespaceConsumer;

/// The one layer through which the library reaches the operating system: static members only.
///
/// Contents, with the file that implements each group:
///
/// - Constants, directory primitives, clock, system log   TOSSpecificLinux.cpp
/// - Files and paths                                       TOSSpecificLinuxFiles.cpp
/// - Child processes                                       TOSSpecificLinuxProcess.cpp
/// - File capture, hypervisor awareness                    TOSSpecificLinuxCapture.cpp
/// - Environment, console, small services                  TOSSpecificLinuxServices.cpp
/// - Plug-in discovery and loading                         TOSSpecificLinuxPlugins.cpp
/// - Machine identity from firmware                        TOSSpecificLinuxFirmware.cpp
/// - File transfer, and `curl_fwrite`                      TOSSpecificLinuxTransfer.cpp
/// - Proxy and reachability checks                         TOSSpecificLinuxProxy.cpp
/// - Removable media, virtual devices                      TOSSpecificLinuxMedia.cpp
///
/// Paths are byte strings. Failures are thrown as `THWXException` unless a member says otherwise.
///
/// Thread-safety: no state and no locks. A member that is less safe than the system calls under it
/// says so.
class HWX_EXPORT TOSSpecific {
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

  // Files and paths. Nothing is tried twice, and what a failed operation has made stays.

  /// Whether there is something at `path` that isn't a directory. Links are followed.
  static bool FileExists(std::string path);

  /// The size in bytes of a file, or of what a link leads to. Throws `kHWXStatusFileNotFound`, also
  /// for a directory.
  static std::int64_t GetFileSize(std::string path);

  /// Throws `kHWXStatusFail`, also for a path of 1024 bytes or more.
  static std::string GetCurrentDir();

  /// The directory that holds this library, without a separator at its end. Throws
  /// `kHWXStatusFileSystemError` if the loader can't tell.
  static std::string GetHWXRootPath();

  /// Makes a file that holds `content`, or empties the one there is; a new one gets mode 0666 less
  /// the umask. Whether all of `content` could be written isn't told. Returns false, after a debug
  /// line, if the file can't be opened.
  static bool createFile(std::string path, std::string content);

  /// Removes a file. Always returns true, also if there is none or it can't be removed.
  ///
  /// The path is handed to a shell as it is, in the command `rm -f`. The shell splits it at blanks,
  /// expands wildcards and variables, and obeys ";", "|", "$(...)" and the like; a text that begins
  /// with "-" is an option to `rm`. Never pass a path that comes from outside.
  static bool deleteFile(std::string path);

  /// Copies the bytes of a file. A new file gets the source's mode less the umask. A file that is
  /// there isn't emptied: if it is longer, its tail stays behind the copy.
  ///
  /// The bytes go in blocks of 32,768. What a short write leaves of its block is lost, and the next
  /// block follows: where a full disk or the limit of a file's size cuts the last block short, the
  /// copy lacks its end and nothing is thrown. Otherwise throws `kHWXStatusFileSystemError`; what
  /// was copied till then stays.
  static void FileCopy(std::string source, std::string destination);

  /// Copies the files of a directory, as `FileCopy` does, and with `recursive` its subdirectories
  /// with theirs. Links are followed; an entry that can't be looked at, such as a broken link, is
  /// passed over. `destination` is made where it is missing, its parents aren't. An empty text
  /// means the root directory. Throws `kHWXStatusFileSystemError`, or what `CreateDir` and
  /// `FileCopy` throw; the handle of `source` then stays open, except if that is what failed.
  static void DirCopy(std::string source, std::string destination, bool recursive);

  /// Opens `path` for output on `stream`, which is closed first if it is open, and empties the
  /// file. Throws `kHWXStatusAccessDenied` if the user has no right to, otherwise
  /// `kHWXStatusFileSystemError`, each after a log entry and with the stream's fail bit set.
  static void OpenOutputFileStream(std::ofstream& stream, std::string path);

  /// The names in a directory, without "." and "..", in the directory's own order. Throws
  /// `kHWXStatusFileSystemError` if it can't be opened. Each call costs a descriptor for the life
  /// of the process: the directory is never closed.
  static std::vector<std::string> ListDir(std::string path);

  /// The lines that the program `find` prints for `path`: the path and all that lies below it. Its
  /// complaints, about a path that is missing or may not be read, are lines like any other. A text
  /// that begins with "-" is an expression to `find`. What has come after 300 seconds of silence is
  /// taken for all; should that end within a line, the call never returns and takes memory without
  /// end. Throws what `SpawnProcess` throws.
  static std::vector<std::string> FindFile(std::string path);

  /// `path` behind `base`, with one separator between, if `path` is relative and `base` isn't
  /// empty; otherwise `path`. One separator at the end of `path` goes first; a path that is empty
  /// then is relative.
  static std::string RelocateRelativePath(std::string base, std::string path);

  // Child processes: run a program and gather what it prints, errors and all, in the order of
  // writing. All four forms work alike:
  //
  // - The child inherits every open descriptor, and the standard input with them. Two threads may
  //   spawn at once, but each child then holds the other's pipe open until it ends.
  // - `timeout`, in whole seconds, bounds each wait for output and begins anew with each piece that
  //   comes: a child that prints now and then may run for ever. -1 means no limit, 0 that the
  //   output has to be there at once; other numbers below 0 fail. A signal that the caller handles
  //   while it waits ends the wait as a failure.
  // - A child whose wait ended so is left running: it is neither killed nor waited for. It gets
  //   SIGPIPE when it next prints, and stays a zombie until the caller ends.
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

  // File capture: the whole of a file, whose size needn't be known beforehand. NUL bytes are kept.

  /// Reads `descriptor` to its end and leaves it open. `name` is how a failure is logged; with
  /// `logContents` all that was read goes to the log at debug level. Throws
  /// `kHWXStatusFileSystemError`, after a log entry.
  static std::string GetFileContents(int descriptor, std::string name, bool logContents);

  /// Reads a file, and offers its contents to the log at debug level. Throws
  /// `kHWXStatusFileNotFound`, after a log entry, if it can't be opened for whatever reason, and
  /// what `GetFileContents` throws, also for a directory; the file then stays open.
  static std::string CaptureFile(std::string path);

  /// The same for a file that a driver or other software provides. Throws
  /// `kHWXStatusFileSystemError` also if it can't be opened, after lines at debug level that say
  /// so.
  static std::string CaptureFileLoader(std::string path, bool logContents);

  /// Runs a program that is to write the file `path`, waits as `SpawnProcess` does, up to 300
  /// seconds of silence, and puts what the file holds into `contents`. What the program prints and
  /// whether it succeeds is ignored, so a file that was there before will do. If the file can't be
  /// read, `contents` is empty, after a log entry. Throws what `SpawnProcess` throws.
  static void CapFileViaProc(std::string command, std::vector<std::string> arguments,
                             std::string path, std::string& contents);

  /// 0 in the control domain of a Xen hypervisor, 1 in a guest domain, 2 where there is no Xen.
  /// Throws what `CaptureFile` throws.
  static int GetRunningTypeOnXen();

  // Environment, console and small services. The environment and the terminal belong to the whole
  // process: no other thread may change the environment meanwhile, nor use the terminal services.

  /// The variable's value; empty, after a line at debug level, if it isn't set.
  static std::string GetEnvironment(std::string name);

  /// Sets a variable. Returns false, after a line at debug level, if that can't be: the name is
  /// empty or holds a "=".
  static bool PutEnvironment(std::string name, std::string value);

  /// Sets the log threshold to the severity `level`, 0 to 4, and returns true; any other leaves it
  /// alone and returns false. Either way it first makes an empty file as a marker, or empties it,
  /// which no logger then uses: `path`, the machine type, the local time as "yyyymmdd-hhmmss", and
  /// ".log". `path` is the front of the name, not a directory; null stands for "hwx_" in the
  /// directory of support files of the build's flavour.
  ///
  /// If the file can't be made, the process is aborted: make sure that its directory is there and
  /// may be written to. Throws what `GetMachineType` throws.
  static bool SetDebugLevel(int level, char* path);

  /// Whether the process's real user is root. The effective user doesn't count.
  static bool IsAdmin();

  /// Sleeps so many milliseconds, whatever the name says. Beyond 4294967 the time wraps; a signal
  /// that is handled ends it.
  static void USleep(unsigned int milliseconds);

  /// Whether the standard input has something to read: at a terminal a key, not only a line. True
  /// also if that can't be told.
  static bool IsKeyWaiting();

  /// Waits for one character of the standard input stream, at a terminal for a key, which isn't
  /// echoed and isn't a signal either. `EOF` at the end of input.
  static int GetKeyboardChar();

  /// Copies the file `path` into the current directory, or into the root directory if there is
  /// none, and opens the editor on what bears the last 35 characters of `path` in its name there.
  /// It is the copy that is edited, and it stays. Throws `std::out_of_range` if `path` has fewer
  /// characters, after the copying.
  ///
  /// The path and the directory are handed to a shell as they are, in the commands `cp` and `vi`.
  /// The shell splits them at blanks, expands wildcards and variables, and obeys ";", "|", "$(...)"
  /// and the like. Never pass a path that comes from outside.
  static void LaunchTextEditor(std::string path);

  /// Runs a shell on the terminal and waits for its end.
  static void LaunchCommandShell();

  /// Whether this is the flavour for other makers: there is a file
  /// "docs/oem_hwx_preboot_readme.txt" below the current directory.
  static bool isOEMBuild();

  /// Hands the caller's own arguments back: on this platform the shell has expanded them.
  static void ExpandCommandLineWildcards(int argc, char** argv, int* newArgc, char*** newArgv);

  // Two flags for the front ends, which decide what they stand for. False at first; not guarded.

  static bool getLuz();
  static void setLuz(bool value);
  static bool isHWXParser();
  static void setHWXParser(bool value);

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

  /// Opens a plain plug-in by its path and returns the loader's handle. Throws `TLoadException`
  /// with `kHWXStatusFileSystemError`, after a log entry and a line on the standard output.
  static void* LoadPluginLibrary(std::string path);

  /// Opens the namespace provider `name` beside this library, which runs its load-time code and
  /// nothing else: it enters itself in the registry, or the caller does. Throws `TLoadException`
  /// with `kHWXStatusFileSystemError`, after a log entry.
  static void LoadNSPLibrary(std::string name);

  /// Opens the namespace consumer `name` beside this library and calls its function `name` +
  /// "_CreateINamespaceConsumer". Returns what that returned, untested; the caller owns it. Throws
  /// `TLoadException` with `kHWXStatusFileSystemError` if it can't be opened, and
  /// `TDetailedException` with `kHWXStatusNotFound` if it has no such function, each after a log
  /// entry.
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

  /// The machine type in the product name: the four characters that begin two behind its first "-",
  /// which steps over a bracket; fewer if the name ends there. Of a name of seven characters
  /// without a "-", the first four. "0000" if there is none or the tables can't be read.
  ///
  /// Throws `std::out_of_range` if the name ends in its first "-". The handle and the buffer of the
  /// read then stay unreleased.
  static std::string GetMachineType();

  /// The machine type that a table has for the BIOS build. If the table has none, or the BIOS
  /// version can't be read, that of `GetMachineType`. Throws what `GetMachineType` throws. Upper
  /// and lower case are the same, as the process's locale has them: in a Turkish one of 8 bits, "I"
  /// isn't the same as "i".
  static std::string GetMachineTypeFromID();

  /// The first two characters of the BIOS build, as the firmware writes them. "00" if the BIOS
  /// version can't be read or has fewer than two characters. Throws `std::out_of_range` if the
  /// version has enough and the build in it doesn't.
  static std::string GetBiosID();

  /// What the firmware says of the machine: `field` is "type", "name" (the product name up to its
  /// first "-"), "model" (three characters) or "SN" (the serial number as it stands there, fillers
  /// too). Any other gives "error param of GetMachineInfo".
  ///
  /// The type is "0000" and the others "Unknown" where there is none. Without a product name all
  /// four are so, the serial number too. If the tables can't be opened, all four are "0000".
  ///
  /// Throws `std::out_of_range` if the product name ends less than six characters behind its first
  /// "-", or if the structure numbers a string for the serial number that isn't there. The handle
  /// and the buffer of the read then stay unreleased.
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

  // File transfer over FTP and SFTP, by a libcurl that lies beside this library.
  //
  // - libcurl is opened at each transfer and by path only: "libcurl.so", then "libcurl.so.4", in
  //   the directory that `GetHWXRootPath` tells; then "libcurl.so", ".so.4", ".so.3" and ".so.2" in
  //   the directory of this module. The system's search path isn't consulted.
  // - A user and a password may stand in front of the host: "user:password@host:2121". Nothing is
  //   escaped on the way into the URL. A byte that means something there (a blank, "#", "%", "?",
  //   in a user or password also "@", ":" and "/") has to come as "%" and two hexadecimal digits.
  //   No log entry of these operations holds the URL.
  // - FTP goes by passive connections to the port that the server tells (PASV), never through a
  //   proxy. SFTP takes any host key; it logs in with the password of the URL, or with the keys of
  //   the user's agent and of his directory ".ssh", and needs a libcurl with SSH.
  // - An upload makes the directories that are missing on the server. So does a download, as far as
  //   the server lets it, before it fails.
  // - Throws, each time after a log entry: `kHWXStatusLibCurlFailure` if libcurl isn't there, as
  //   `TLoadException`, or refuses an option; `kHWXStatusFileSystemError` if the local file can't
  //   be read; `kHWXStatusConnectionFailed` if the name doesn't resolve or nobody listens; and
  //   `kHWXStatusAccessDenied`, as `TDetailedException` with libcurl's words, for all else that
  //   goes wrong, a refused login, a full disk and a broken connection among it. A libcurl that
  //   lacks a function ends in `std::logic_error`, without a log entry.
  // - After an exception libcurl, its global state and the transfer's handle stay as they are, for
  //   the life of the process, with the descriptors that the handle holds. A later transfer works.
  // - Never on two threads at once: libcurl's global state is set up and given back by each.

  /// Sends the local file to `url`, or, with `download`, fetches what stands at `url`.
  ///
  /// An upload sends the file byte by byte; a directory is sent as an empty file. A download is
  /// appended block by block to the local file, which is made with the first block: of an empty
  /// remote file there is no local one, and what a download that fails has got till then stays. If
  /// the last bytes of a block don't fit on the local disk, that may pass unnoticed.
  ///
  /// A local file that is there, and can be read, starts a dialogue on the standard output and
  /// input, which blocks the caller: "y" or "Y" removes the file and goes on, and "n" or "N" ends
  /// the transfer. Anything else asks again; at the end of the input it asks for ever. If the file
  /// can't be removed, "Permission denied." is printed and the transfer ends. A transfer that ends
  /// so fetches nothing, and returns as one that succeeds.
  static void CurlTransferFile(std::string url, std::string localFile, bool download);

  /// Sends the local file to "ftp://" `host` "/" `remoteFile`. If the environment variable
  /// HWX_ISBOOTABLE is "yes", "ecorvex/toqor/kseries/fdr_upload/" stands in front of `remoteFile`.
  /// Returns 1. A `remoteFile` that begins with "/" counts from the server's root.
  static int FTPFile(std::string host, std::string localFile, std::string remoteFile);
  /// The same over SFTP. Each `remoteFile` counts from the server's root, but one that begins with
  /// "~/" from the user's directory.
  static int sFTPFile(std::string host, std::string localFile, std::string remoteFile);

  /// Sends the local file to "ftp://" `host` "/" `remoteFile` ".xml.gz" and returns 1. The file is
  /// sent as it is, not compressed. First prints "Remote file name = " and the URL, with the
  /// credentials in it.
  static int UserFTPFile(std::string host, std::string localFile, std::string remoteFile);

  /// Fetches "ftp://" `host` "/" `remoteFile`, and returns 1, also if the user declined.
  static int FTPFileFromQOR(std::string host, std::string localFile, std::string remoteFile);
  /// The same over SFTP.
  static int sFTPFileFromQOR(std::string host, std::string localFile, std::string remoteFile);

  // Proxy and reachability checks. Never on two threads at once, nor beside a transfer.

  /// Whether the system's resolver knows a host, with a debug line that says so: 0 if it does, 1 if
  /// it doesn't. The second argument is never read.
  static int DetectHostnameAvailable(std::string hostname, std::string ignored);

  /// Fetches a web page through an HTTP proxy and returns 1. An empty `proxyIp` means no proxy;
  /// with an empty `userId` the proxy gets no credentials, whatever `passwd` holds.
  ///
  /// The page is appended to the file "content.html" of the current directory, and left there.
  /// Success says that a page came, not which: a proxy that refuses the password with a page (407),
  /// or answers for a server that it can't reach, counts as success. Look at the page.
  ///
  /// Throws `kHWXStatusLibCurlFailure` for every failure, after a log entry without details: no
  /// libcurl (found as for a transfer, and a `TLoadException` as there), a proxy that can't be
  /// reached, a current directory that can't be written. A libcurl that lacks a function ends as in
  /// a transfer, and what stays behind after an exception is as there.
  static int CheckProxySetting(std::string userId, std::string passwd, std::string proxyIp,
                               long proxyPort);

  // Removable media, and the virtual devices of a management controller. Mounting needs root. Where
  // a member hands a device or a directory to a shell, it does so as it is: the shell splits it at
  // blanks, expands wildcards and variables, and obeys ";", "|", "$(...)" and the like. Never pass
  // one that comes from outside. Between the look at a mount point and the mount another process
  // may come.

  /// Device path and description of each removable drive, in no sorted order, and of the first
  /// floppy drive that has a medium, as the last: "/dev/sdb" and "MAKER - PRODUCT", "/dev/floppy"
  /// and "Built-in Floppy Drive".
  ///
  /// Of the SCSI devices of `ns`, class `QORSG_SCSIDevice`, those are removable whose kind is
  /// "Direct Access Device" and whose product name, up to its first blank, either stands in the
  /// kernel's list of USB devices or holds "USB". A generic device, such as "/dev/sg1", is listed
  /// as its block device; one that has none is left out, after a log entry. Each descriptor that
  /// this search opens stays open for the life of the process, up to 129 for a generic device.
  ///
  /// The floppy drive is found by mounting it, at "/mnt/floppy", which is made where it is missing;
  /// it stays mounted. What is mounted there already passes for "/dev/floppy".
  ///
  /// Throws `kHWXStatusFileNotFound`, after a log entry, if the kernel's list is absent or belongs
  /// to root alone, and what else `CaptureFile` throws; `kHWXStatusNotFound` if `ns` is empty, or
  /// a class or property isn't there; and what else `ns` throws. No floppy drive is tried then.
  static std::vector<std::pair<std::string, std::string> > EnumerateRemovableMedia(
      boost::shared_ptr<ICIMNamespace> ns);

  /// Mounts `device`, or else its first partition: the device of that name and a "1". Returns the
  /// mount point: "/mnt/floppy" for the devices "/dev/floppy", "/dev/fd0" and "/dev/fd1" and
  /// "/mnt/key" for all others. It isn't made. If anything is mounted there, nothing is done.
  /// Throws `kHWXStatusFileSystemError` if neither can be mounted.
  static std::string MountDevice(std::string device);

  /// Unmounts what is mounted at `mountPoint`; the first argument is ignored. Throws
  /// `kHWXStatusFileSystemError` if that can't be.
  static void UnmountDevice(std::string ignored, std::string mountPoint);

  /// Appends to `devices` the device files of the controller's virtual disks (`deviceClass` 0),
  /// cd-roms (1), keyboards (2) or mice (3), as the program hwinfo tells them, with what follows
  /// them in their line: "/dev/sdb (/dev/sg2)". With `useAlternateName` that is only what begins
  /// with the parenthesis, "(/dev/sg2)", but not for a cd-rom, and where there is one. Any other
  /// `deviceClass` has hwinfo list all hardware, and nearly every device counts.
  ///
  /// Without hwinfo, or when it fails, nothing is appended. Waits for it up to 300 seconds of
  /// silence. Throws what `SpawnProcess` throws.
  static void getiQBCVirtualDevices(int deviceClass, std::vector<std::string>& devices,
                                    bool useAlternateName);
};

/// libcurl's write callback of the downloads: appends `count` items of `size` bytes to the file
/// that `sink` names, and returns how many the stream took, in 32 bits. The file is opened and
/// closed at each call. `sink` points to two pointers: to the path, and a `FILE*` of the function's
/// own.
///
/// Returns 0xFFFFFFFF if there is no `sink`, no path, or the file can't be opened. Thread-safe for
/// different sinks.
HWX_EXPORT std::size_t curl_fwrite(void* data, std::size_t size, std::size_t count, void* sink);

}  // namespace NQORHWX20

#endif  // HWXCORE_OS_TOSSPECIFIC_H
