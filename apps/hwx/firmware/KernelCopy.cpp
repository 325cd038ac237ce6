#include "hwx/firmware/KernelCopy.h"

#include <cerrno>
#include <cstring>

#include "hwxsys/KernelCopy.h"
#include "hwxsys/SystemRoot.h"
#include "hwxsys/Words.h"

namespace hwx {

namespace {

std::string WhyNoCopy(const std::string& path, int error) {
  if (error == ENOENT || error == ENOTDIR) return path + " is absent";
  if (error == EACCES || error == EPERM) return "needs root: " + path + " can't be read";
  return path + ": " + std::strerror(error);
}

}  // namespace

TAnswer<std::string> KernelCopy(const std::string& name) {
  if (hwxsys::IsOtherFirmware()) return Missing<std::string>("the tables are another machine's");
  const hwxsys::TKernelCopy copy = hwxsys::ReadKernelCopy(hwxsys::SystemRoot(), name);
  if (copy.fError != 0) return Missing<std::string>(WhyNoCopy(copy.fPath, copy.fError));
  if (hwxsys::Trimmed(copy.fText, " ").empty())
    return Missing<std::string>(copy.fPath + " is blank");
  return {copy.fText, {}};
}

}  // namespace hwx
