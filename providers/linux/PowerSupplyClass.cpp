#include "providers/linux/LiveClass.h"
#include "providers/linux/Slots.h"

namespace linux_machine {

void DefinePowerSupply(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TPowerSupply;
  TLiveClass<Row>(ns, "QORSG_PowerSupply", &ReadPowerSupplies)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("ElementName", &Row::fName)
      .Set("Location", &Row::fLocation)
      .Set("Manufacturer", &Row::fManufacturer)
      .Set("Model", &Row::fModel)
      .Set("SerialNumber", &Row::fSerialNumber)
      .Set("PartNumber", &Row::fPartNumber)
      .Set("TotalOutputPower", &Row::fMilliwatts)
      .Set("IsSwitchingSupply", &Row::fIsSwitching)
      .Set("TypeOfRangeSwitching", &Row::fRangeSwitching)
      .Commit();
}

}  // namespace linux_machine
