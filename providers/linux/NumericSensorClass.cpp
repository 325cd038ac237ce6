#include "providers/linux/LiveClass.h"
#include "providers/linux/Sensors.h"

namespace linux_machine {

namespace {

constexpr std::uint16_t kNoRate = 0;

}  // namespace

void DefineNumericSensor(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TSensor;
  TLiveClass<Row>(ns, "CIM_NumericSensor", &ReadSensors)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("ElementName", &Row::fLabel)
      .Set("SensorContext", &Row::fChip)
      .Set("SensorType", &Row::fType)
      .Set("BaseUnits", &Row::fUnits)
      .Set("UnitModifier", &Row::fModifier)
      .SetAll("RateUnits", kNoRate)
      .Set("CurrentReading", &Row::fReading)
      .Set("LowerThresholdNonCritical", &Row::fLow)
      .Set("UpperThresholdNonCritical", &Row::fHigh)
      .Set("LowerThresholdCritical", &Row::fCriticallyLow)
      .Set("UpperThresholdCritical", &Row::fCriticallyHigh)
      .Commit();
}

}  // namespace linux_machine
