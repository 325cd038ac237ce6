#include "providers/linux/Enclosures.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

void DefineChassis(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TChassis;
  TLiveClass<Row>(ns, "CIM_Chassis", &ReadChassis)
      .Key("Tag", &Row::fTag)
      .Set("Manufacturer", &Row::fManufacturer)
      .Set("Version", &Row::fVersion)
      .Set("SerialNumber", &Row::fSerialNumber)
      .Set("SKU", &Row::fSKU)
      .Set("OtherIdentifyingInfo", &Row::fAssetTag)
      .Set("ChassisPackageType", &Row::fPackageType)
      .Set("ChassisTypeDescription", &Row::fTypeDescription)
      .Set("RackMountable", &Row::fRackMountable)
      .Set("MultipleSystemSupport", &Row::fMultipleSystems)
      .Set("LockPresent", &Row::fLockPresent)
      .Set("SecurityBreach", &Row::fSecurityBreach)
      .Set("Height", &Row::fHeight)
      .Set("NumberOfPowerCords", &Row::fPowerCords)
      .Commit();
}

}  // namespace linux_machine
