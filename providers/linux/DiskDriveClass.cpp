#include "providers/linux/BlockDevices.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

namespace {

// The schema takes a kilobyte for 1000 bytes here.
std::optional<std::uint64_t> MaxMediaSize(const TDisk& disk) {
  return disk.fSize ? std::optional(*disk.fSize / 1000) : std::nullopt;
}

}  // namespace

void DefineDiskDrive(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TDisk;
  TLiveClass<Row>(ns, "QORSG_DiskDrive", &ReadDisks)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("Manufacturer", &Row::fManufacturer)
      .Set("Model", &Row::fModel)
      .Set("SerialNumber", &Row::fSerialNumber)
      .Set("Version", &Row::fRevision)
      .Set("Size", &Row::fSize)
      .Set("MaxMediaSize", &MaxMediaSize)
      .Set("DefaultBlockSize", &Row::fBlockSize)
      .Set("DiskType", &Row::fDiskType)
      .Set("Capabilities", &Row::fCapabilities)
      .Commit();
}

}  // namespace linux_machine
