// What is mounted where, as the kernel tells it. Thread-safety: functions without state.

#ifndef HWX_MEDIA_MOUNTTABLE_H
#define HWX_MEDIA_MOUNTTABLE_H

#include <string>
#include <vector>

namespace hwx {

/// A mounted file system.
struct TMount {
  std::string fSource;  ///< A device's path, or any other text.
  std::string fMountPoint;
};

/// Reads the kernel's table, in its order; a later mount covers an earlier one at the same place. A
/// line of another form is passed over.
std::vector<TMount> ParseMounts(const std::string& text);

/// Those of this process. Throws what `TOSSpecific::CaptureFile` throws.
std::vector<TMount> ReadMounts();

/// Whether `source` is `device` or one of its partitions: "/dev/sdb" and "/dev/sdb1", "/dev/loop0"
/// and "/dev/loop0p1".
bool IsOfDevice(const std::string& source, const std::string& device);

/// Where `device` or its partitions are mounted.
std::vector<std::string> MountPointsOf(const std::string& device,
                                       const std::vector<TMount>& mounts);

/// What one sees at a mount point, the last that was mounted there; an empty text if that is
/// nothing.
std::string SourceAt(const std::string& mountPoint, const std::vector<TMount>& mounts);

}  // namespace hwx

#endif  // HWX_MEDIA_MOUNTTABLE_H
