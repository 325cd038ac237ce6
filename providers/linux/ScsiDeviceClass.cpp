#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TInstanceList.h"
#include "providers/linux/Classes.h"
#include "providers/linux/ScsiDevices.h"

namespace linux_machine {

namespace {

void ListDevices(NQORHWX20::TInstanceList& instances) {
  for (const TScsiDevice& read : ReadScsiDevices(SystemRoot())) {
    NQORHWX20::TMemoryInstance& device = instances.Add();
    device.Set("DeviceID", read.fDeviceID);
    SetKnown(device, "DeviceType", read.fDeviceType);
    SetKnown(device, "ProductID", read.fProductID);
    SetKnown(device, "VendorID", read.fVendorID);
    SetKnown(device, "Revision", read.fRevision);
    device.Set("HostNumber", read.fAddress.fHost);
    device.Set("Channel", read.fAddress.fChannel);
    device.Set("TargetID", read.fAddress.fTarget);
    device.Set("LUN", read.fAddress.fLUN);
  }
}

}  // namespace

void DefineScsiDevice(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  NQORHWX20::TClassBuilder(ns, "QORSG_SCSIDevice")
      .Description("A device that the kernel reaches by SCSI commands, also over SATA and USB.")
      .Key("DeviceID", "string",
           "Path of the block device, else of the generic device, else the address.")
      .Property("DeviceType", "string", "The kind of device, such as \"Direct Access Device\".")
      .Property("ProductID", "string", "What its maker calls the device.")
      .Property("VendorID", "string", "The maker, in the letters that the device reports.")
      .Property("Revision", "string", "Revision of the product or of its firmware.")
      .Property("HostNumber", "uint32",
                "First part of the address: the kernel's number of the host.")
      .Property("Channel", "uint32", "Second part of the address: the bus on that host.")
      .Property("TargetID", "uint32", "Third part of the address: the device on that bus.")
      .Property("LUN", "uint64", "Last part of the address: the logical unit of that device.")
      .Source(&ListDevices)
      .Commit();
}

}  // namespace linux_machine
