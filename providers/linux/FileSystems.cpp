#include "providers/linux/FileSystems.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <map>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

// Types that hold the kernel's own objects, not people's files.
constexpr std::string_view kInterfaces[] = {
    "autofs",  "binfmt_misc", "bpf",        "cgroup",    "cgroup2", "configfs",
    "debugfs", "devpts",      "devtmpfs",   "efivarfs",  "fusectl", "hugetlbfs",
    "mqueue",  "nfsd",        "nsfs",       "proc",      "pstore",  "resctrl",
    "rootfs",  "rpc_pipefs",  "securityfs", "selinuxfs", "sysfs",   "tracefs",
};
constexpr std::string_view kAutomounter = "autofs";  // waits for a mount, when it is touched

// Types whose files lie on this machine, and whose code lies in the kernel.
constexpr std::string_view kLocalTypes[] = {
    "bcachefs", "btrfs",    "erofs", "exfat", "ext2",  "ext3",   "ext4",  "f2fs",    "hfs",
    "hfsplus",  "iso9660",  "jfs",   "minix", "msdos", "nilfs2", "ntfs3", "overlay", "ramfs",
    "reiserfs", "squashfs", "tmpfs", "udf",   "vfat",  "xfs",    "zfs",
};
constexpr std::string_view kMemoryFileSystems[] = {"ramfs", "tmpfs"};

enum EPersistence : std::uint16_t { kPersistent = 2, kTemporary = 3 };

template <std::size_t kSize>
bool IsOneOf(const std::string_view (&types)[kSize], std::string_view type) {
  return std::find(std::begin(types), std::end(types), type) != std::end(types);
}

bool MayBlock(const TMount& mount) {
  const bool isInterface = IsOneOf(kInterfaces, mount.fType) && mount.fType != kAutomounter;
  return !isInterface && !IsOneOf(kLocalTypes, mount.fType);
}

// Whether `directory` is `path` or a directory above it.
bool IsOnTheWay(std::string_view directory, std::string_view path) {
  if (directory == "/") {
    return true;
  }
  return path.substr(0, directory.size()) == directory &&
         (path.size() == directory.size() || path[directory.size()] == '/');
}

bool IsReadOnly(const TMount& mount) {
  return ("," + mount.fOptions + ",").find(",ro,") != std::string::npos;
}

// Whether an open directory lies on a mount. What is opened at the path of a mount may be another
// one: a later mount may cover a directory above it. Older kernels don't number mounts; then the
// device numbers are compared. They say nothing about btrfs, one volume of which has many.
bool IsOnMount(int directory, const TMount& mount) {
  struct statx status {};
  if (::statx(directory, "", AT_EMPTY_PATH, STATX_BASIC_STATS | STATX_MNT_ID, &status) != 0) {
    return false;
  }
  if ((status.stx_mask & STATX_MNT_ID) != 0) {
    return status.stx_mnt_id == mount.fNumber;
  }
  return mount.fType == "btrfs" || mount.fDevice == std::to_string(status.stx_dev_major) + ":" +
                                                        std::to_string(status.stx_dev_minor);
}

std::optional<struct statvfs> AskMount(const TMount& mount) {
  const int directory = ::open(mount.fMountPoint.c_str(), O_PATH | O_CLOEXEC);
  if (directory < 0) {
    return std::nullopt;
  }
  struct statvfs status {};
  const bool isKnown = IsOnMount(directory, mount) && ::fstatvfs(directory, &status) == 0;
  ::close(directory);
  return isKnown ? std::optional(status) : std::nullopt;
}

void AddSizes(const struct statvfs& status, TFileSystem& system) {
  system.fBlockSize = status.f_frsize;
  system.fSize = Multiply(status.f_frsize, status.f_blocks);
  system.fAvailable = Multiply(status.f_frsize, status.f_bavail);
  if (status.f_files >= status.f_ffree && status.f_files != 0) {  // 0: it doesn't count files
    system.fFiles = status.f_files - status.f_ffree;
  }
  system.fMaxNameLength = Narrow<std::uint32_t>(status.f_namemax);
}

}  // namespace

std::vector<TMount> SelectFileSystems(const std::vector<TMount>& mounts) {
  std::map<std::string_view, const TMount*> last;
  for (const TMount& mount : mounts) {
    last[mount.fMountPoint] = &mount;
  }
  std::vector<TMount> selected;
  std::copy_if(mounts.begin(), mounts.end(), std::back_inserter(selected),
               [&last](const TMount& mount) {
                 return !IsOneOf(kInterfaces, mount.fType) && last[mount.fMountPoint] == &mount;
               });
  return selected;
}

bool IsSafeToAsk(const TMount& mount, const std::vector<TMount>& mounts) {
  return std::none_of(mounts.begin(), mounts.end(), [&mount](const TMount& other) {
    return MayBlock(other) && IsOnTheWay(other.fMountPoint, mount.fMountPoint);
  });
}

std::vector<TFileSystem> ReadFileSystems(const std::string& root) {
  const std::vector<TMount> mounts =
      hwxsys::ParseMountInfo(ReadList(root + "/proc/self/mountinfo"));
  std::vector<TMount> blocking;
  std::copy_if(mounts.begin(), mounts.end(), std::back_inserter(blocking), &MayBlock);
  std::vector<TFileSystem> systems;
  for (const TMount& mount : SelectFileSystems(mounts)) {
    TFileSystem system;
    system.fName = mount.fMountPoint;
    system.fRoot = mount.fRoot;
    system.fSource = mount.fSource;
    system.fDevice = mount.fDevice;
    system.fType = mount.fType;
    system.fReadOnly = IsReadOnly(mount);
    system.fIsLocal = IsOneOf(kLocalTypes, mount.fType);
    if (system.fIsLocal) {
      system.fPersistence = IsOneOf(kMemoryFileSystems, mount.fType) ? kTemporary : kPersistent;
    }
    if (root.empty() && IsSafeToAsk(mount, blocking)) {
      if (const auto status = AskMount(mount)) {
        AddSizes(*status, system);
      }
    }
    systems.push_back(std::move(system));
  }
  return systems;
}

}  // namespace linux_machine
