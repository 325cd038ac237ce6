// The devices that the kernel's SCSI layer has found: disks on SAS, SATA and USB, optical drives,
// enclosures.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_SCSIDEVICES_H
#define PROVIDERS_LINUX_SCSIDEVICES_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linux_machine {

/// Where a device is attached.
struct TScsiAddress {
  std::uint32_t fHost = 0;
  std::uint32_t fChannel = 0;
  std::uint32_t fTarget = 0;
  std::uint64_t fLUN = 0;

  bool operator<(const TScsiAddress& other) const;
};

struct TScsiDevice {
  TScsiAddress fAddress;
  /// The block device's path such as "/dev/sda", else the generic device's such as "/dev/sg2", else
  /// the address as text. No two devices have the same.
  std::string fDeviceID;
  std::optional<std::string> fDeviceType;  ///< See `ScsiDeviceType`.
  std::optional<std::string> fVendorID;
  std::optional<std::string> fProductID;
  std::optional<std::string> fRevision;
};

/// Reads "host:channel:target:LUN". None for anything else, such as the names of hosts and targets,
/// which stand beside those of devices.
std::optional<TScsiAddress> ParseScsiAddress(std::string_view text);

/// The kind of device in words, such as "Direct Access Device" for 0; "Unknown Device" for a number
/// that stands for none.
std::string ScsiDeviceType(std::uint64_t number);

/// The devices of the machine whose /sys lies below `root`, in the order of their addresses.
std::vector<TScsiDevice> ReadScsiDevices(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_SCSIDEVICES_H
