#ifndef HWXCORE_DIAGNOSTICS_ILOGGER_H
#define HWXCORE_DIAGNOSTICS_ILOGGER_H

#include <list>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMDateTime.h"

namespace NQORHWX20 {

/// The reporting channel that collectors, plug-ins and front ends hold. `TLogger` is the one
/// implementation; `TRootObject::GetCoreLogger()` gives the calling thread's.
///
/// Thread-safety: a logger belongs to its thread; the list of entries is shared, see `GetLog`.
class HWX_EXPORT ILogger {
 public:
  /// Lower numbers are more severe.
  enum EHWXLogSeverity : int {
    kHWXLogError = 0,       ///< To the list and the file.
    kHWXLogWarning = 1,     ///< To the list and the file.
    kHWXLogStatus = 2,      ///< To the list and the file. The default threshold.
    kHWXLogDebug = 3,       ///< To the file alone.
    kHWXLogVerbose = 4,     ///< To the file alone.
    kHWXLogListOnly = 100,  ///< To the list alone, whatever the threshold.
    kHWXLogListOnly2 = 101  ///< The same, told apart by its number.
  };

  /// One entry of the list.
  class TLogEntry {
   public:
    /// An empty message at a null time, with the severity `kHWXLogError`.
    TLogEntry();
    TLogEntry(EHWXLogSeverity severity, const std::string& message, const TCIMDateTime& time);
    TLogEntry(const TLogEntry& other);
    TLogEntry& operator=(const TLogEntry& other) = default;
    ~TLogEntry();

    EHWXLogSeverity fSeverity;
    std::string fMessage;  ///< As the caller gave it, without label or time stamp.
    TCIMDateTime fTime;    ///< Local time at which the entry was made.
  };

  // Contract: slot-order.
  virtual ~ILogger();

  /// Reports `message`: to the list if it is of status or more severe, to the thread's file if
  /// there is one, to neither if it is above the threshold. Throws `kHWXStatusFail` for a severity
  /// outside the enumeration that would have reached the file.
  virtual void OutputLogEntry(EHWXLogSeverity severity, const std::string& message) = 0;

  /// Writes the line to the system log, whatever the threshold. Throws `kHWXStatusFail` for a
  /// severity outside 0 to 4.
  virtual void SysLogEntry(EHWXLogSeverity severity, const std::string& message) = 0;

  /// The entries of all threads, oldest first, without a lock: where other threads may log, hold
  /// `TLogger::fLogEntriesMutex` for as long as you walk the list.
  virtual std::list<TLogEntry>& GetLog() = 0;

  /// Empties the list.
  virtual void ClearLog() = 0;

  /// The process's threshold: less severe messages are dropped.
  virtual EHWXLogSeverity GetLogThreshold() = 0;

  /// Opens the thread's log file at `path`, emptying it unless the environment variable
  /// `QOR_QXPKI_GUI_T` is set. A file that was open stays open until the process ends, and is
  /// written to no more. Throws `kHWXStatusAccessDenied` if access is refused,
  /// `kHWXStatusFileSystemError` for any other failure; the thread then has no file.
  virtual void SetLogFilename(std::string path) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_DIAGNOSTICS_ILOGGER_H
