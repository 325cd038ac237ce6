#include "hwxcore/diagnostics/ILogger.h"

namespace NQORHWX20 {

ILogger::TLogEntry::TLogEntry() : fSeverity(kHWXLogError) {}

ILogger::TLogEntry::TLogEntry(EHWXLogSeverity severity, const std::string& message,
                              const TCIMDateTime& time)
    : fSeverity(severity), fMessage(message), fTime(time) {}

ILogger::TLogEntry::TLogEntry(const TLogEntry& other) = default;

ILogger::TLogEntry::~TLogEntry() = default;

ILogger::~ILogger() = default;

}  // namespace NQORHWX20
