#ifndef HWXTESTS_SUPPORT_TEMPORARYDIRECTORY_H
#define HWXTESTS_SUPPORT_TEMPORARYDIRECTORY_H

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace hwxtest {

/// An empty directory of the test's own, removed at the end with all that is in it.
class TemporaryDirectory {
 public:
  TemporaryDirectory()
      : fPath((std::filesystem::temp_directory_path() / "hwx-test-XXXXXX").string()) {
    if (!::mkdtemp(fPath.data())) throw std::runtime_error("no scratch directory at " + fPath);
  }

  ~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(fPath, ignored);
  }

  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  /// Without a separator at its end.
  const std::string& Path() const { return fPath; }

  /// Path of `name` in the directory.
  std::string operator/(const std::string& name) const { return fPath + "/" + name; }

 private:
  std::string fPath;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_TEMPORARYDIRECTORY_H
