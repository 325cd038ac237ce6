#include "hwx/text/StatusWords.h"

#include <cerrno>
#include <cstring>

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

std::string LastError() {
  return std::strerror(errno);
}

}  // namespace hwx
