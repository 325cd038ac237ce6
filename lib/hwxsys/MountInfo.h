// What is mounted where, as the kernel tells it. Thread-safety: functions without state.

#ifndef HWXSYS_MOUNTINFO_H
#define HWXSYS_MOUNTINFO_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hwxsys {

/// A line of /proc/self/mountinfo.
struct TMount {
  std::uint64_t fNumber = 0;  ///< The kernel's number of the mount.
  std::string fDevice;        ///< "8:1", the device's major and minor number.
  std::string fRoot;          ///< What of the file system is mounted: "/" for all.
  std::string fMountPoint;
  std::string fOptions;  ///< "rw,relatime"
  std::string fType;     ///< "ext4"
  std::string fSource;   ///< A device's path as "/dev/sda1", or any other text.
};

/// Reads the text of /proc/self/mountinfo, in its order; a later mount covers an earlier one at the
/// same place. Lines of another form are passed over.
std::vector<TMount> ParseMountInfo(std::string_view text);

/// The mounts that this process sees; none if they can't be read.
std::vector<TMount> ReadMountInfo();

}  // namespace hwxsys

#endif  // HWXSYS_MOUNTINFO_H
