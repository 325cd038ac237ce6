#ifndef HWXCORE_DIAGNOSTICS_DETAIL_LOGDEBUG_H
#define HWXCORE_DIAGNOSTICS_DETAIL_LOGDEBUG_H

#include <string>

#include "hwxcore/diagnostics/ILogger.h"
#include "hwxcore/schema/TRootObject.h"

namespace NQORHWX20::detail {

/// Logs the parts, put together, at debug level on the thread's logger. Below the threshold no text
/// is built.
template <typename... Parts>
void LogDebug(const Parts&... parts) {
  ILogger* const logger = TRootObject::GetCoreLogger();
  if (logger->GetLogThreshold() < ILogger::kHWXLogDebug) return;
  std::string text;
  (text.append(parts), ...);
  logger->OutputLogEntry(ILogger::kHWXLogDebug, text);
}

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_DIAGNOSTICS_DETAIL_LOGDEBUG_H
