#include "providers/linux/LiveClass.h"
#include "providers/linux/Sensors.h"

namespace linux_machine {

void DefineBattery(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TBattery;
  TLiveClass<Row>(ns, "QORSG_Battery", &ReadBatteries)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("Manufacturer", &Row::fManufacturer)
      .Set("Model", &Row::fModel)
      .Set("SerialNumber", &Row::fSerialNumber)
      .Set("BatteryStatus", &Row::fStatus)
      .Set("ChargingStatus", &Row::fChargingStatus)
      .Set("Chemistry", &Row::fChemistry)
      .Set("EstimatedChargeRemaining", &Row::fPercent)
      .Set("DesignCapacity", &Row::fDesignCapacity)
      .Set("FullChargeCapacity", &Row::fFullCapacity)
      .Set("RemainingCapacity", &Row::fRemainingCapacity)
      .Set("DesignVoltage", &Row::fDesignVoltage)
      .Set("RechargeCount", &Row::fCycles)
      .Commit();
}

}  // namespace linux_machine
