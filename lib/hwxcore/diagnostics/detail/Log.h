// How the library's own code writes to the log of its thread. It only declares, and depends on
// nothing: what lies beneath the logger can log too.

#ifndef HWXCORE_DIAGNOSTICS_DETAIL_LOG_H
#define HWXCORE_DIAGNOSTICS_DETAIL_LOG_H

#include <string>

namespace NQORHWX20 {

class ILogger;

namespace detail {

/// The calling thread's logger; never null.
ILogger* CoreLogger();

/// An entry of the severity that the name tells. Thread-safety: each thread has its own log. Throws
/// what `ILogger::OutputLogEntry` throws.
void LogError(const std::string& message);
void LogStatus(const std::string& message);
void LogDebugEntry(const std::string& message);

/// Whether the threshold lets entries of debug level through.
bool LogsDebug();

/// Logs the parts, put together, at debug level. Below the threshold no text is built.
template <typename... Parts>
void LogDebug(const Parts&... parts) {
  if (!LogsDebug()) return;
  std::string text;
  (text.append(parts), ...);
  LogDebugEntry(text);
}

}  // namespace detail

}  // namespace NQORHWX20

#endif  // HWXCORE_DIAGNOSTICS_DETAIL_LOG_H
