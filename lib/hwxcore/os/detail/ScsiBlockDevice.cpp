#include "hwxcore/os/detail/ScsiBlockDevice.h"

#include <fcntl.h>
#include <scsi/scsi.h>
#include <scsi/sg.h>
#include <sys/ioctl.h>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20::detail {

namespace {

constexpr int kLetters = 26;

char Letter(int position) {
  return static_cast<char>('a' + position);
}

// The byte of the identifier that begins at bit `shift`.
int Part(std::uint32_t identifier, unsigned shift) {
  return static_cast<int>((identifier >> shift) & 0xFF);
}

[[noreturn]] void LogAndThrow(const std::string& message) {
  detail::LogError(message);
  throw THWXException(kHWXStatusFileSystemError);
}

TGenericAddress AddressOf(const std::string& genericDevice, IScsiSystem& system) {
  const int descriptor = system.Open(genericDevice);
  if (descriptor == -1) LogAndThrow("Failed opening" + genericDevice);  // Contract: failed-opening.
  const auto address = system.GenericAddress(descriptor);
  if (!address) LogAndThrow("Failed ioctl on " + genericDevice);
  return *address;
}

bool HasAddress(const std::string& blockDevice, const TGenericAddress& address,
                IScsiSystem& system) {
  const int descriptor = system.Open(blockDevice);
  if (descriptor == -1) return false;
  const auto found = system.BlockAddress(descriptor);
  return found && IsSameDevice(address, *found);
}

}  // namespace

bool IsSameDevice(const TGenericAddress& generic, const TBlockAddress& block) {
  return block.fBus == generic.fHost && Part(block.fIdentifier, 0) == generic.fTarget &&
         Part(block.fIdentifier, 8) == generic.fUnit &&
         Part(block.fIdentifier, 16) == generic.fChannel;
}

std::string BlockDeviceName(int index) {
  std::string name = "/dev/sd";
  if (index >= kLetters) name += Letter(index / kLetters - 1);
  return name += Letter(index % kLetters);
}

int TScsiSystem::Open(const std::string& path) {
  return ::open(path.c_str(), O_RDONLY | O_NONBLOCK);
}

std::optional<TGenericAddress> TScsiSystem::GenericAddress(int descriptor) {
  sg_scsi_id address{};
  if (::ioctl(descriptor, SG_GET_SCSI_ID, &address) == -1) return std::nullopt;
  return TGenericAddress{address.host_no, address.channel, address.scsi_id, address.lun};
}

std::optional<TBlockAddress> TScsiSystem::BlockAddress(int descriptor) {
  std::uint32_t identity[2] = {};  // the identifier, and a number of the host's own
  int bus = 0;
  if (::ioctl(descriptor, SCSI_IOCTL_GET_IDLUN, identity) == -1) return std::nullopt;
  if (::ioctl(descriptor, SCSI_IOCTL_GET_BUS_NUMBER, &bus) == -1) return std::nullopt;
  return TBlockAddress{bus, identity[0]};
}

// No descriptor is closed. Contract: probe-left-open.
std::string BlockDeviceOf(const std::string& genericDevice, IScsiSystem& system) {
  const TGenericAddress address = AddressOf(genericDevice, system);
  for (int index = 0; index < kBlockDeviceCount; ++index) {
    const std::string name = BlockDeviceName(index);
    if (HasAddress(name, address, system)) return name;
  }
  LogAndThrow("No mapping found for " + genericDevice);
}

}  // namespace NQORHWX20::detail
