#ifndef HWXTESTS_SUPPORT_TEMPORARYDIRECTORY_H
#define HWXTESTS_SUPPORT_TEMPORARYDIRECTORY_H

#include <ftw.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace hwxtest {

/// An empty directory of the test's own, removed at the end with all that is in it. A file system
/// that a test left mounted in it keeps its files, and the directory then stays.
class TemporaryDirectory {
 public:
  TemporaryDirectory()
      : fPath((std::filesystem::temp_directory_path() / "hwx-test-XXXXXX").string()) {
    if (!::mkdtemp(fPath.data())) throw std::runtime_error("no scratch directory at " + fPath);
  }

  ~TemporaryDirectory() {
    constexpr int kDescriptors = 16;
    ::nftw(fPath.c_str(), &Remove, kDescriptors, FTW_DEPTH | FTW_MOUNT | FTW_PHYS);
  }

  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  /// Without a separator at its end.
  const std::string& Path() const { return fPath; }

  /// Path of `name` in the directory.
  std::string operator/(const std::string& name) const { return fPath + "/" + name; }

 private:
  static int Remove(const char* path, const struct stat* /*status*/, int /*kind*/,
                    struct FTW* /*level*/) {
    std::remove(path);
    return 0;  // whatever became of it: goes on
  }

  std::string fPath;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_TEMPORARYDIRECTORY_H
