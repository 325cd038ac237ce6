#include "providers/linux/BlockDevices.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

namespace {

constexpr std::uint16_t kReadableMedium = 1;
constexpr std::uint16_t kWritableMedium = 3;

std::optional<std::uint64_t> NumberOfSectors(const TDisk& disk) {
  return disk.fSize ? std::optional(*disk.fSize / kSectorSize) : std::nullopt;
}

std::uint16_t MediumAccess(const TDisk& disk) {
  return HasCapability(disk, kWriting) ? kWritableMedium : kReadableMedium;
}

}  // namespace

void DefineMediumExtent(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TDisk;
  TLiveClass<Row>(ns, "CIM_StorageExtent", &ReadMedia)
      .Key("DeviceID", &Row::fDeviceID)
      .SetAll("BlockSize", kSectorSize)
      .Set("NumberOfBlocks", &NumberOfSectors)
      .Set("Access", &MediumAccess)
      .SetAll("Primordial", true)
      .Commit();
}

}  // namespace linux_machine
