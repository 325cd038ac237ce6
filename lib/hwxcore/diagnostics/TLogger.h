#ifndef HWXCORE_DIAGNOSTICS_TLOGGER_H
#define HWXCORE_DIAGNOSTICS_TLOGGER_H

#include <boost/thread/recursive_mutex.hpp>
#include <cstdio>
#include <list>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/diagnostics/ILogger.h"
#include "hwxcore/value/THWXStatusCode.h"

namespace NQORHWX20 {

/// The logger of a thread. A thread that never calls `Initialize` logs all the same: its entries
/// reach the list, and nothing reaches a file.
///
/// The file, its path and its state belong to the thread; the list, the threshold and the directory
/// to the process. The file is flushed after each line, so that a line survives a crash.
///
/// Thread-safety: only the list is guarded. Set the threshold and the directory before other
/// threads log. Two threads that share a file name overwrite each other.
class HWX_EXPORT TLogger : public ILogger {
 public:
  /// The calling thread's logger, made at its first call; never null. It is deleted, and its file
  /// closed, when the thread ends.
  static TLogger* GetInstance();

  ~TLogger() override;

  void OutputLogEntry(EHWXLogSeverity severity, const std::string& message) override;
  void SysLogEntry(EHWXLogSeverity severity, const std::string& message) override;
  std::list<TLogEntry>& GetLog() override;
  void ClearLog() override;
  EHWXLogSeverity GetLogThreshold() override;
  void SetLogFilename(std::string path) override;

  /// Opens the thread's log file, `name` + ".log" in the log directory, and makes the directory
  /// where it is missing. Returns `kHWXStatusOK`; once it has succeeded, further calls do nothing.
  /// Throws `kHWXStatusAccessDenied`, `kHWXStatusDirectoryAlreadyExists` or
  /// `kHWXStatusFileSystemError`; it may then be called again.
  THWXStatusCode Initialize(std::string name);

  static void SetLogThreshold(EHWXLogSeverity threshold);

  /// The directory of log files, "/var/log/Varnok_Support/HwxDebugLog/" at first.
  static std::string GetLogFileDir();

  /// Takes effect at the next `Initialize` of any thread. `directory` must end in "/".
  static void SetLogFileDir(std::string directory);

  /// Appends a copy of `entry` to the list.
  static void PushBackLog(TLogEntry& entry);

  static EHWXLogSeverity fThreshold;
  static std::string m_logFileDir;
  static std::list<TLogEntry> fLogEntries;
  /// Guards `fLogEntries`.
  static boost::recursive_mutex fLogEntriesMutex;

 private:
  TLogger() = default;
  TLogger(const TLogger&) = delete;
  TLogger& operator=(const TLogger&) = delete;

  std::string fLogFilename;
  std::FILE* fLogFile = nullptr;
  bool fInitialized = false;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_DIAGNOSTICS_TLOGGER_H
