#ifndef HWXCORE_OS_DETAIL_DIRECTORY_H
#define HWXCORE_OS_DETAIL_DIRECTORY_H

#include <dirent.h>

#include <memory>
#include <string>

namespace NQORHWX20::detail {

struct TDirectoryCloser {
  void operator()(DIR* directory) const { ::closedir(directory); }
};

/// An open directory, closed with the handle. Thread-safety: belongs to one thread.
using DirectoryPtr = std::unique_ptr<DIR, TDirectoryCloser>;

/// Null if the directory can't be opened, with `errno` set.
inline DirectoryPtr OpenDirectory(const std::string& path) {
  return DirectoryPtr(::opendir(path.c_str()));
}

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_OS_DETAIL_DIRECTORY_H
