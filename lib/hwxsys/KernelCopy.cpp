#include "hwxsys/KernelCopy.h"

#include <algorithm>
#include <cstdlib>

#include "hwxsys/RegularFile.h"
#include "hwxsys/SystemRoot.h"

namespace hwxsys {

bool IsOtherFirmware() {
  return std::getenv("HWX_SMBIOS_TABLES") != nullptr;
}

TKernelCopy ReadKernelCopy(const std::string& root, const std::string& name) {
  constexpr std::size_t kPage = 4096;
  TKernelCopy copy{root + "/sys/class/dmi/id/" + name, 0, {}};
  copy.fError = ReadRegularFile(FollowedInRoot(copy.fPath), kPage, copy.fText);
  if (copy.fError != 0) copy.fText.clear();
  copy.fText.resize(std::min(copy.fText.find('\0'), copy.fText.size()));
  if (!copy.fText.empty() && copy.fText.back() == '\n') copy.fText.pop_back();
  return copy;
}

}  // namespace hwxsys
