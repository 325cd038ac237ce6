#include "providers/linux/BlockDevices.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

namespace {

const TValueMap kDiskTypes = {
    {0, "Unknown"}, {1, "Other"}, {2, "Hard Disk Drive"}, {3, "Solid State Drive"}, {4, "Hybrid"}};

const TValueMap kCapabilities = {
    {0, "Unknown"},
    {1, "Other"},
    {2, "Sequential Access"},
    {3, "Random Access"},
    {4, "Supports Writing"},
    {5, "Encryption"},
    {6, "Compression"},
    {7, "Supports Removeable Media"},
    {8, "Manual Cleaning"},
    {9, "Automatic Cleaning"},
    {10, "SMART Notification"},
    {11, "Supports Dual Sided Media"},
    {12, "Predismount Eject Not Required"},
};

// The schema takes a kilobyte for 1000 bytes here.
std::optional<std::uint64_t> MaxMediaSize(const TDisk& disk) {
  return disk.fSize ? std::optional(*disk.fSize / 1000) : std::nullopt;
}

}  // namespace

void DefineDiskDrive(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TDisk;
  TLiveClass<Row>(ns, "CIM_DiskDrive", "A disk, also one that a hypervisor makes.", &ReadDisks)
      .Key("DeviceID", &Row::fDeviceID, "Path of the block device.")
      .Property("Manufacturer", &Row::fManufacturer, "The maker; \"ATA\" for any SATA disk.")
      .Property("Model", &Row::fModel, "What the maker calls the disk.")
      .Property("SerialNumber", &Row::fSerialNumber, "The maker's number of this disk.")
      .Property("Version", &Row::fRevision, "Revision of the disk's firmware.")
      .Property("Size", &Row::fSize, "What the disk holds; 0 without a medium.")
      .Units("Bytes")
      .Property("MaxMediaSize", &MaxMediaSize, "The same in units of 1000 bytes.")
      .Units("KiloBytes")
      .ProgrammaticUnit("byte * 10^3")
      .Property("DefaultBlockSize", &Row::fBlockSize, "The least that is read or written at once.")
      .Units("Bytes")
      .Property("DiskType", &Row::fDiskType, "Whether something turns in it.")
      .Values(kDiskTypes)
      .Property("Capabilities", &Row::fCapabilities, "What the disk can do.")
      .Values(kCapabilities)
      .Commit();
}

}  // namespace linux_machine
