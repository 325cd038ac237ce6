#include "hwxcore/diagnostics/detail/Log.h"

#include "hwxcore/diagnostics/TLogger.h"

namespace NQORHWX20::detail {

ILogger* CoreLogger() {
  return TLogger::GetInstance();
}

void LogError(const std::string& message) {
  TLogger::GetInstance()->OutputLogEntry(ILogger::kHWXLogError, message);
}

void LogStatus(const std::string& message) {
  TLogger::GetInstance()->OutputLogEntry(ILogger::kHWXLogStatus, message);
}

void LogDebugEntry(const std::string& message) {
  TLogger::GetInstance()->OutputLogEntry(ILogger::kHWXLogDebug, message);
}

bool LogsDebug() {
  return TLogger::GetInstance()->GetLogThreshold() >= ILogger::kHWXLogDebug;
}

}  // namespace NQORHWX20::detail
