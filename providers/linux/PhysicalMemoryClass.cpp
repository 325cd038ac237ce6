#include "providers/linux/LiveClass.h"
#include "providers/linux/MemoryModules.h"

namespace linux_machine {

void DefinePhysicalMemory(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TMemoryModule;
  TLiveClass<Row>(ns, "QORSG_PhysicalMemory", &ReadMemoryModules)
      .Key("Tag", &Row::fTag)
      .Set("ElementName", &Row::fLocator)
      .Set("BankLabel", &Row::fBank)
      .Set("Capacity", &Row::fCapacity)
      .Set("FormFactor", &Row::fFormFactor)
      .Set("FormFactorDescription", &Row::fFormFactorName)
      .Set("MemoryType", &Row::fMemoryType)
      .Set("MemoryTypeDescription", &Row::fMemoryTypeName)
      .Set("TotalWidth", &Row::fTotalWidth)
      .Set("DataWidth", &Row::fDataWidth)
      .Set("MaxMemorySpeed", &Row::fMaxSpeed)
      .Set("ConfiguredMemoryClockSpeed", &Row::fConfiguredSpeed)
      .Set("IsSpeedInMhz", [](const Row& row) { return row.fMaxSpeed.has_value(); })
      .Set("Manufacturer", &Row::fManufacturer)
      .Set("SerialNumber", &Row::fSerialNumber)
      .Set("PartNumber", &Row::fPartNumber)
      .Set("OtherIdentifyingInfo", &Row::fAssetTag)
      .Commit();
}

}  // namespace linux_machine
