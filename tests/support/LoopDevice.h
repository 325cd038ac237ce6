#ifndef HWXTESTS_SUPPORT_LOOPDEVICE_H
#define HWXTESTS_SUPPORT_LOOPDEVICE_H

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace hwxtest {

/// Runs a command of the administrator's, quietly. Returns whether it succeeded.
inline bool RunsAsAdministrator(const std::string& command) {
  return std::system(
             ("PATH=$PATH:/usr/sbin:/sbin; { " + command + "; } >/dev/null 2>&1").c_str()) == 0;
}

/// Makes a file of zeros, as large as a stick for dwarfs.
inline void MakeImage(const std::string& path, std::size_t size = 2 << 20) {
  std::ofstream(path, std::ios::binary).close();
  std::filesystem::resize_file(path, size);
}

/// Shows an image as a block device, from `offset` on, as root. It is given back at the end, or,
/// where it is mounted, with the unmount.
class LoopDevice {
 public:
  explicit LoopDevice(const std::string& image, std::size_t offset = 0) {
    const std::string command = "PATH=$PATH:/usr/sbin:/sbin losetup -f --show -o " +
                                std::to_string(offset) + " " + image + " 2>/dev/null";
    std::array<char, 64> line{};
    std::FILE* const output = ::popen(command.c_str(), "r");
    if (!output) return;
    if (std::fgets(line.data(), line.size(), output)) fPath = line.data();
    ::pclose(output);
    fPath.erase(fPath.find_last_not_of('\n') + 1);
  }
  ~LoopDevice() {
    if (IsThere()) RunsAsAdministrator("losetup -d " + fPath);
  }

  LoopDevice(const LoopDevice&) = delete;
  LoopDevice& operator=(const LoopDevice&) = delete;

  /// False where the machine refuses it.
  bool IsThere() const { return !fPath.empty(); }

  const std::string& Path() const { return fPath; }

 private:
  std::string fPath;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_LOOPDEVICE_H
