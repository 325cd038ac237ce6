#ifndef HWXTESTS_SUPPORT_FILEMODE_H
#define HWXTESTS_SUPPORT_FILEMODE_H

#include <sys/stat.h>

#include <string>

namespace hwxtest {

/// The permission bits of a file or directory.
inline mode_t ModeOf(const std::string& path) {
  struct stat status {};
  ::stat(path.c_str(), &status);
  return status.st_mode & 07777U;
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FILEMODE_H
