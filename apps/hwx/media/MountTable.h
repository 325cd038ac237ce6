// Questions to the table of mounts. Thread-safety: functions without state.

#ifndef HWX_MEDIA_MOUNTTABLE_H
#define HWX_MEDIA_MOUNTTABLE_H

#include <string>
#include <vector>

#include "hwxsys/MountInfo.h"

namespace hwx {

using hwxsys::TMount;

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
