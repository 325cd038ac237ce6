#include "hwxsys/RegularFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "hwxsys/Descriptor.h"

namespace hwxsys {

int ReadRegularFile(const std::string& path, std::size_t limit, std::string& bytes) {
  bytes.clear();
  const TDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0) return errno;
  if (!S_ISREG(status.st_mode)) return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
  char block[16 * 1024];  // files of /proc and /sys don't tell their size beforehand
  for (;;) {
    const ssize_t count = ::read(file.Get(), block, sizeof block);
    if (count < 0) return errno;
    if (count == 0) return 0;
    const auto size = static_cast<std::size_t>(count);
    const std::size_t room = limit - bytes.size();
    bytes.append(block, std::min(size, room));
    if (size > room) return EFBIG;
  }
}

}  // namespace hwxsys
