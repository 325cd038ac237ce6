// What the kernel measures: the chips of /sys/class/hwmon with their sensors and fans, and the
// batteries of /sys/class/power_supply.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_SENSORS_H
#define PROVIDERS_LINUX_SENSORS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace linux_machine {

/// Numbers that stand for a kind are those of CIM_Sensor's and CIM_NumericSensor's value maps. The
/// readings are multiples of the unit by a power of ten.
struct TSensor {
  std::string fDeviceID;  ///< "hwmon0/temp1"
  std::optional<std::string> fLabel;
  std::string fChip;  ///< "coretemp"
  std::uint16_t fType = 0;
  std::uint16_t fUnits = 0;
  std::int32_t fModifier = 0;  ///< The power of ten.
  std::optional<std::int32_t> fReading;
  std::optional<std::int32_t> fLow;
  std::optional<std::int32_t> fHigh;
  std::optional<std::int32_t> fCriticallyLow;
  std::optional<std::int32_t> fCriticallyHigh;
};

struct TFan {
  std::string fDeviceID;  ///< "hwmon1/fan2"
  std::optional<std::string> fLabel;
  bool fIsControlled = false;            ///< Whether its speed can be set.
  std::optional<std::uint64_t> fTarget;  ///< Turns in a minute.
};

/// Numbers that stand for a kind are those of CIM_Battery's value maps.
struct TBattery {
  std::string fDeviceID;  ///< "BAT0"
  std::optional<std::string> fManufacturer;
  std::optional<std::string> fModel;
  std::optional<std::string> fSerialNumber;
  std::optional<std::uint16_t> fStatus;
  std::optional<std::uint16_t> fChargingStatus;
  std::optional<std::uint16_t> fChemistry;
  std::optional<std::uint16_t> fPercent;
  std::optional<std::uint32_t> fDesignCapacity;  ///< Milliwatt hours, as the two below.
  std::optional<std::uint32_t> fFullCapacity;
  std::optional<std::uint32_t> fRemainingCapacity;
  std::optional<std::uint64_t> fDesignVoltage;  ///< Millivolts.
  std::optional<std::uint32_t> fCycles;
};

/// Those of the machine whose /sys lies below `root`.
std::vector<TSensor> ReadSensors(const std::string& root);
std::vector<TFan> ReadFans(const std::string& root);
/// Without the batteries of mice and other devices.
std::vector<TBattery> ReadBatteries(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_SENSORS_H
