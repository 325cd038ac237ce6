#include "hwxcore/os/TOSSpecific.h"

#include <dlfcn.h>

#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

std::string TOSSpecific::GetHWXRootPath() {
  Dl_info info;
  if (::dladdr(reinterpret_cast<void*>(&TOSSpecific::GetHWXRootPath), &info) == 0 ||
      !info.dli_fname) {
    throw THWXException(kHWXStatusFileSystemError);
  }
  const std::string file = info.dli_fname;
  const std::size_t separator = file.rfind(kFileSeparator);
  if (separator == std::string::npos) throw THWXException(kHWXStatusFileSystemError);
  return file.substr(0, separator);
}

}  // namespace NQORHWX20
