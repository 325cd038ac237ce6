// The mounted file systems. Asking a file system how full it is can block for ever when it lies on
// a server that is gone: only those are asked that are surely on this machine, and only where the
// way to them leads through such ones alone.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_FILESYSTEMS_H
#define PROVIDERS_LINUX_FILESYSTEMS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "hwxsys/MountInfo.h"

namespace linux_machine {

using hwxsys::TMount;

struct TFileSystem {
  std::string fName;  ///< The mount point.
  std::string fRoot;
  std::string fSource;
  std::string fDevice;  ///< As `TMount` has it.
  std::string fType;
  bool fIsLocal = false;  ///< Whether its files lie on this machine.
  bool fReadOnly = false;
  std::optional<std::uint16_t> fPersistence;  ///< In the value map of CIM_FileSystem.
  std::optional<std::uint64_t> fBlockSize;    ///< Bytes, as the two below.
  std::optional<std::uint64_t> fSize;
  std::optional<std::uint64_t> fAvailable;  ///< To users without special rights.
  std::optional<std::uint64_t> fFiles;
  std::optional<std::uint32_t> fMaxNameLength;
};

/// Those mounts that hold files for people: the kernel's own interfaces, such as /proc, are left
/// out, and of several at one place all but the last, which hides the others.
std::vector<TMount> SelectFileSystems(const std::vector<TMount>& mounts);

/// Whether a mount can be asked without the danger of waiting for a server, or for a program that
/// provides the file system.
bool IsSafeToAsk(const TMount& mount, const std::vector<TMount>& mounts);

/// The file systems of the machine whose /proc lies below `root`, in the order of mounting. Sizes
/// are known of this machine's only, and not of one that lies hidden below a later mount.
std::vector<TFileSystem> ReadFileSystems(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_FILESYSTEMS_H
