#include "hwx/text/StatusWords.h"

#include <cerrno>
#include <cstring>

#include "hwxcore/value/TDetailedException.h"

namespace hwx {

using namespace NQORHWX20;

std::string InWords(const THWXStatusCode& status) {
  switch (status) {
    case kHWXStatusNotFound:
      return "not found";
    case kHWXStatusFileSystemError:
      return "file system error";
    case kHWXStatusFileNotFound:
      return "file not found";
    case kHWXStatusAccessDenied:
      return "access denied";
    case kHWXStatusOutOfMemory:
      return "out of memory";
    default:
      return status.TranslateStatusCode();
  }
}

std::string InWords(const THWXException& failure) {
  const auto* const detailed = dynamic_cast<const TDetailedException*>(&failure);
  const bool tells = detailed && !detailed->GetDetail().empty();
  return tells ? detailed->GetDetail() : InWords(failure.GetStatus());
}

std::string LastError() {
  return std::strerror(errno);
}

}  // namespace hwx
