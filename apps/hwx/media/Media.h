// Removable media: which there are, and their mounts. Thread-safety: for the main thread.

#ifndef HWX_MEDIA_MEDIA_H
#define HWX_MEDIA_MEDIA_H

#include <string>
#include <vector>

#include "hwx/inventory/Namespace.h"
#include "hwx/text/Answer.h"

namespace hwx {

/// A drive that can be written to or read from.
///
/// Thread-safety: a plain value.
struct TMedium {
  std::string fDevice;
  std::string fDescription;
  std::vector<std::string> fMountPoints;  ///< Empty if it isn't mounted.
};

/// The removable drives of this machine, as the library finds them among the SCSI devices of
/// `machine`; it mounts a floppy disk on the way. Without a list of USB devices there is a reason
/// instead. Throws `TFailure` if the drives can't be told for another cause.
TAnswer<std::vector<TMedium>> ListMedia(const NamespacePtr& machine);

/// Mounts a device, or its first partition, and returns the mount point, which is made where it is
/// missing. Throws `TFailure`, also if something else is mounted there.
std::string MountMedium(const std::string& device);

/// Throws `TFailure` if nothing is mounted there, or it can't be unmounted.
void UnmountMedium(const std::string& mountPoint);

}  // namespace hwx

#endif  // HWX_MEDIA_MEDIA_H
