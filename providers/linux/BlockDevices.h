// Disks and their partitions, as the kernel's block layer shows them.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_BLOCKDEVICES_H
#define PROVIDERS_LINUX_BLOCKDEVICES_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linux_machine {

/// A disk that the machine has, also one that a hypervisor makes. Numbers that stand for a kind are
/// those of CIM's value maps.
struct TDisk {
  std::string fDeviceID;               ///< "/dev/sda"
  std::optional<std::string> fNumber;  ///< "8:0", the device's major and minor number.
  std::optional<std::string> fManufacturer;
  std::optional<std::string> fModel;
  std::optional<std::string> fSerialNumber;
  std::optional<std::string> fRevision;
  std::optional<std::uint64_t> fSize;       ///< Bytes; 0 for a drive without a medium.
  std::optional<std::uint64_t> fBlockSize;  ///< Bytes.
  std::optional<std::uint16_t> fDiskType;
  std::vector<std::uint16_t> fCapabilities;
};

struct TPartition {
  std::string fDeviceID;                 ///< "/dev/sda1"
  std::string fDisk;                     ///< The `fDeviceID` of the disk that it is a part of.
  std::optional<std::string> fNumber;    ///< As `TDisk` has it.
  std::optional<std::string> fLabel;     ///< Its name in the partition table.
  std::optional<std::uint64_t> fBlocks;  ///< Of `kSectorSize` bytes.
  std::optional<std::uint64_t> fStart;   ///< Bytes from the disk's beginning.
  std::optional<std::uint16_t> fAccess;
};

/// Numbers of CIM for what a drive can do.
enum EDiskCapability : std::uint16_t { kRandomAccess = 3, kWriting = 4, kRemovableMedia = 7 };

bool HasCapability(const TDisk& disk, EDiskCapability capability);

/// The unit in which the kernel counts what a block device holds, whatever the device's own is.
constexpr std::uint64_t kSectorSize = 512;

/// The path in /dev of a block device by its name in /sys, where "!" stands for "/".
std::string DevicePath(std::string_view name);

/// The serial number in the bytes of a SCSI device's page 0x80; none when they aren't one.
std::optional<std::string> ParseUnitSerialNumber(std::string_view page);

/// The value of a variable in the text of a file named uevent, which holds NAME=VALUE lines.
std::optional<std::string> EventVariable(std::string_view text, std::string_view name);

/// The disks of the machine whose /sys lies below `root`, by name. Drives for CDs and floppy disks
/// aren't among them, nor what is made of files, of memory or of other disks.
std::vector<TDisk> ReadDisks(const std::string& root);

/// The partitions of all block devices of that machine, by name.
std::vector<TPartition> ReadPartitions(const std::string& root);

/// Those disks that have a medium: all but drives for removable ones that are empty.
std::vector<TDisk> ReadMedia(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_BLOCKDEVICES_H
