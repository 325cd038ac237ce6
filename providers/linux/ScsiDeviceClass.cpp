#include "hwxcore/schema/ClassNames.h"
#include "providers/linux/LiveClass.h"
#include "providers/linux/ScsiDevices.h"

namespace linux_machine {

void DefineScsiDevice(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TScsiDevice;
  TLiveClass<Row>(ns, NQORHWX20::kSCSIDeviceClassName, &ReadScsiDevices)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("DeviceType", &Row::fDeviceType)
      .Set("ProductID", &Row::fProductID)
      .Set("VendorID", &Row::fVendorID)
      .Set("Revision", &Row::fRevision)
      .Set("HostNumber", [](const Row& row) { return row.fAddress.fHost; })
      .Set("Channel", [](const Row& row) { return row.fAddress.fChannel; })
      .Set("TargetID", [](const Row& row) { return row.fAddress.fTarget; })
      .Set("LUN", [](const Row& row) { return row.fAddress.fLUN; })
      .Commit();
}

}  // namespace linux_machine
