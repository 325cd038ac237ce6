#include "hwxcore/schema/ClassNames.h"
#include "providers/linux/LiveClass.h"
#include "providers/linux/ScsiDevices.h"

namespace linux_machine {

void DefineScsiDevice(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TScsiDevice;
  TLiveClass<Row>(ns, NQORHWX20::kSCSIDeviceClassName,
                  "A device that the kernel reaches by SCSI commands, also over SATA and USB.",
                  &ReadScsiDevices)
      .Key("DeviceID", &Row::fDeviceID,
           "Path of the block device, else of the generic device, else the address.")
      .Property("DeviceType", &Row::fDeviceType,
                "The kind of device, such as \"Direct Access Device\".")
      .Property("ProductID", &Row::fProductID, "What its maker calls the device.")
      .Property("VendorID", &Row::fVendorID, "The maker, in the letters that the device reports.")
      .Property("Revision", &Row::fRevision, "Revision of the product or of its firmware.")
      .Property(
          "HostNumber", [](const Row& row) { return row.fAddress.fHost; },
          "First part of the address: the kernel's number of the host.")
      .Property(
          "Channel", [](const Row& row) { return row.fAddress.fChannel; },
          "Second part of the address: the bus on that host.")
      .Property(
          "TargetID", [](const Row& row) { return row.fAddress.fTarget; },
          "Third part of the address: the device on that bus.")
      .Property(
          "LUN", [](const Row& row) { return row.fAddress.fLUN; },
          "Last part of the address: the logical unit of that device.")
      .Commit();
}

}  // namespace linux_machine
