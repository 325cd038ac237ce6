#ifndef HWXCORE_OS_DETAIL_SCSIBLOCKDEVICE_H
#define HWXCORE_OS_DETAIL_SCSIBLOCKDEVICE_H

#include <cstdint>
#include <optional>
#include <string>

namespace NQORHWX20::detail {

/// The address of a SCSI device, as its generic device tells it.
struct TGenericAddress {
  int fHost;
  int fChannel;
  int fTarget;
  int fUnit;
};

/// The address of a SCSI device, as its block device tells it.
struct TBlockAddress {
  int fBus;                   ///< The host.
  std::uint32_t fIdentifier;  ///< A byte each, from the lowest: target, unit, channel, host.
};

/// Whether both are the address of one device. A part that needs more than a byte never matches.
bool IsSameDevice(const TGenericAddress& generic, const TBlockAddress& block);

/// How many block devices are looked at.
constexpr int kBlockDeviceCount = 128;

/// Path of the block device numbered `index`, below `kBlockDeviceCount`: "/dev/sda" to "/dev/sddx".
std::string BlockDeviceName(int index);

/// The system calls under the search; virtual, since few machines have the devices for a test.
///
/// Thread-safety: none of its own.
class IScsiSystem {
 public:
  virtual ~IScsiSystem() = default;

  /// Opens a device without waiting for a medium. Returns a descriptor, -1 if that fails.
  virtual int Open(const std::string& path) = 0;

  /// What the kernel answers for an open device; nothing if it isn't of that kind.
  virtual std::optional<TGenericAddress> GenericAddress(int descriptor) = 0;
  virtual std::optional<TBlockAddress> BlockAddress(int descriptor) = 0;
};

/// That of this machine.
class TScsiSystem : public IScsiSystem {
 public:
  int Open(const std::string& path) override;
  std::optional<TGenericAddress> GenericAddress(int descriptor) override;
  std::optional<TBlockAddress> BlockAddress(int descriptor) override;
};

/// Path of the block device that has the address of `genericDevice`. All that is opened on the way
/// stays open. Throws `kHWXStatusFileSystemError`, after a log entry, if the generic device can't
/// be opened or tells no address, or if no block device has it.
std::string BlockDeviceOf(const std::string& genericDevice, IScsiSystem& system);

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_OS_DETAIL_SCSIBLOCKDEVICE_H
