#include "hwx/firmware/KernelCopy.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "hwx/firmware/FirmwareTables.h"

namespace hwx {

namespace {

constexpr std::size_t kSizeLimit = 4096;  // a page, as the kernel gives

TAnswer<std::string> Unreadable(const std::string& path, int error) {
  if (error == ENOENT || error == ENOTDIR) return Missing<std::string>(path + " is absent");
  if (error == EACCES || error == EPERM)
    return Missing<std::string>("needs root: " + path + " can't be read");
  return Missing<std::string>(path + ": " + std::strerror(error));
}

// Without the newline that the kernel puts behind it.
std::string ValueIn(std::string text) {
  text.resize(std::strlen(text.c_str()));
  if (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

}  // namespace

TAnswer<std::string> ReadKernelCopy(const std::string& name) {
  if (IsOtherFirmware()) return Missing<std::string>("the tables are another machine's");
  const std::string path = SystemRoot() + "/sys/class/dmi/id/" + name;
  const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "re"), &std::fclose);
  if (!file) return Unreadable(path, errno);
  char text[kSizeLimit];
  errno = 0;
  const std::size_t size = std::fread(text, 1, sizeof text, file.get());
  if (std::ferror(file.get()) != 0) return Unreadable(path, errno);
  const std::string value = ValueIn(std::string(text, size));
  if (value.find_first_not_of(' ') == std::string::npos)
    return Missing<std::string>(path + " is blank");
  return {value, {}};
}

}  // namespace hwx
