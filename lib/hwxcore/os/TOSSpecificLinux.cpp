#include "hwxcore/os/TOSSpecific.h"

#include <sys/stat.h>
#include <syslog.h>

#include <cerrno>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/value/THWXException.h"
#include "hwxcore/value/detail/LocalTime.h"

namespace NQORHWX20 {

// The third is made of the two before it.
const std::string TOSSpecific::kDynamicModuleExtension = ".so";
const std::string TOSSpecific::kHWXPluginExtension = "pi";
const std::string TOSSpecific::kPluginExtension =
    "." + kHWXPluginExtension + kDynamicModuleExtension;
const std::string TOSSpecific::kSpecificationExtension = ".properties.xml";
const std::string TOSSpecific::kRegistrationExtension = ".registration.xml";
const std::string TOSSpecific::kFileSeparator = "/";
const std::string TOSSpecific::libx86IntrAddrFile = "/tmp/intr_address.tmp";

namespace {

// Nothing reads it. It stands here so that all suffixes of the platform are in one place.
[[maybe_unused]] const std::string kNSPExtension = ".nsp.so";

EHWXStatusCode StatusOfCreateDir(int error) {
  switch (error) {
    case EEXIST:
      return kHWXStatusDirectoryAlreadyExists;
    case EROFS:
    case EACCES:
      return kHWXStatusAccessDenied;
    default:
      return kHWXStatusFileSystemError;
  }
}

int PriorityOf(ILogger::EHWXLogSeverity severity) {
  switch (severity) {
    case ILogger::kHWXLogError:
      return LOG_ERR;
    case ILogger::kHWXLogWarning:
      return LOG_WARNING;
    default:
      return LOG_NOTICE;
  }
}

}  // namespace

bool TOSSpecific::DirExists(std::string path) {
  struct stat status;
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

void TOSSpecific::CreateDir(std::string path) {
  constexpr mode_t kAllRights = 0777;
  if (::mkdir(path.c_str(), kAllRights) != 0) throw THWXException(StatusOfCreateDir(errno));
}

TCIMDateTime TOSSpecific::GetLocalTime() {
  const detail::TClockReading now = detail::ReadLocalClock();
  const std::tm& fields = now.fFields;
  return TCIMDateTime(
      static_cast<unsigned short>(fields.tm_year + 1900),
      static_cast<unsigned short>(fields.tm_mon + 1), static_cast<unsigned int>(fields.tm_mday),
      static_cast<unsigned short>(fields.tm_hour), static_cast<unsigned short>(fields.tm_min),
      static_cast<unsigned short>(fields.tm_sec), now.fMilliSeconds * 1000,
      static_cast<short>(fields.tm_gmtoff / 60));
}

void TOSSpecific::OutputLogString(std::string) {}

// Contract: system-log-notice.
void TOSSpecific::LogSELEvent(const char* text, ILogger::EHWXLogSeverity severity, int) {
  ::openlog("QXPK", LOG_NDELAY, LOG_SYSLOG);
  ::syslog(PriorityOf(severity), "%s", text);
  ::closelog();
}

void TOSSpecific::DebugOut(std::string text) {
  detail::LogDebug("TOSSpecific debug output: ", text);
}

}  // namespace NQORHWX20
