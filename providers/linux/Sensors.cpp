#include "providers/linux/Sensors.h"

#include <limits>
#include <string_view>
#include <utility>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr const char* kChips = "/sys/class/hwmon/";
constexpr const char* kSupplies = "/sys/class/power_supply/";
constexpr std::string_view kReadingFile = "_input";

// The kernel's names of sensors begin with what they measure; their numbers are in thousandths of a
// unit, in millionths, or whole.
struct TQuantity {
  std::string_view fPrefix;
  std::uint16_t fType;
  std::uint16_t fUnits;
  std::int32_t fModifier;
};
constexpr TQuantity kQuantities[] = {
    {"temp", 2, 2, -3},    // degrees Celsius
    {"in", 3, 5, -3},      // volts
    {"curr", 4, 6, -3},    // amperes
    {"power", 13, 7, -6},  // watts
    {"fan", 5, 19, 0},     // turns in a minute
};

struct TWord {
  std::string_view fWord;
  std::uint16_t fNumber;
};
constexpr TWord kStatuses[] = {{"Full", 3}, {"Charging", 6}, {"Discharging", 11}};
constexpr TWord kChargingStatuses[] = {
    {"Charging", 2}, {"Discharging", 3}, {"Not charging", 4}, {"Full", 4}};
constexpr TWord kChemistries[] = {{"Li-ion", 6}, {"Li-poly", 8}, {"NiCd", 4},
                                  {"NiMH", 5},   {"LiMn", 6},    {"LiFe", 6}};

template <std::size_t kSize>
std::optional<std::uint16_t> NumberOf(const TWord (&words)[kSize],
                                      const std::optional<std::string>& text) {
  for (const TWord& word : words) {
    if (text == std::string(word.fWord)) {
      return word.fNumber;
    }
  }
  return std::nullopt;
}

std::optional<std::int32_t> ReadSigned(const std::string& path) {
  const std::string text = ReadTrimmed(path).value_or(std::string());
  std::string_view digits = text;
  const bool isNegative = TakePrefix(digits, "-");
  const auto number = ParseNumber(digits);
  if (!number || *number > std::uint64_t{std::numeric_limits<std::int32_t>::max()}) {
    return std::nullopt;
  }
  const auto value = static_cast<std::int32_t>(*number);
  return isNegative ? -value : value;
}

// "temp1" where a file is "temp1_input" and the name begins as those of a quantity do.
const TQuantity* QuantityOf(const std::string& file, std::string& sensor) {
  const std::size_t end = file.size() - kReadingFile.size();
  if (file.size() <= kReadingFile.size() || file.substr(end) != kReadingFile) {
    return nullptr;
  }
  sensor = file.substr(0, end);
  for (const TQuantity& quantity : kQuantities) {
    std::string_view rest = sensor;
    if (TakePrefix(rest, quantity.fPrefix) && ParseNumber(rest)) {
      return &quantity;
    }
  }
  return nullptr;
}

TSensor ReadSensor(const std::string& directory, const std::string& chip, const std::string& sensor,
                   const TQuantity& quantity) {
  const std::string path = directory + "/" + sensor;
  TSensor read;
  read.fDeviceID = chip + "/" + sensor;
  read.fChip = ReadTrimmed(directory + "/name").value_or(chip);
  read.fLabel = ReadTrimmed(path + "_label").value_or(read.fChip + " " + sensor);
  read.fType = quantity.fType;
  read.fUnits = quantity.fUnits;
  read.fModifier = quantity.fModifier;
  read.fReading = ReadSigned(path + "_input");
  read.fLow = ReadSigned(path + "_min");
  read.fHigh = ReadSigned(path + "_max");
  read.fCriticallyLow = ReadSigned(path + "_lcrit");
  read.fCriticallyHigh = ReadSigned(path + "_crit");
  return read;
}

// Presents the directory of each chip, its name there, and each of its sensors.
template <typename Visitor>
void ForEachSensor(const std::string& root, const Visitor& visit) {
  for (const std::string& chip : ListDirectory(root + kChips)) {
    const std::string directory = root + kChips + chip;
    for (const std::string& file : ListDirectory(directory)) {
      std::string sensor;
      if (const TQuantity* quantity = QuantityOf(file, sensor)) {
        visit(directory, chip, sensor, *quantity);
      }
    }
  }
}

// Millionths as thousandths.
std::optional<std::uint64_t> ReadMillis(const std::string& path) {
  const auto micros = ReadNumber(path);
  return micros ? std::optional(*micros / 1000) : std::nullopt;
}

// Milliwatt hours; of batteries that tell ampere hours by the voltage that they are made for.
std::optional<std::uint32_t> ReadEnergy(const std::string& directory, const std::string& file,
                                        std::optional<std::uint64_t> millivolts) {
  if (const auto energy = ReadMillis(directory + "/energy_" + file)) {
    return Narrow<std::uint32_t>(energy);
  }
  const auto product = Multiply(ReadMillis(directory + "/charge_" + file), millivolts);
  return product ? Narrow<std::uint32_t>(*product / 1000) : std::nullopt;
}

TBattery ReadBattery(const std::string& directory, const std::string& name) {
  TBattery battery;
  battery.fDeviceID = name;
  battery.fManufacturer = ReadTrimmed(directory + "/manufacturer");
  battery.fModel = ReadTrimmed(directory + "/model_name");
  battery.fSerialNumber = ReadTrimmed(directory + "/serial_number");
  const auto status = ReadTrimmed(directory + "/status");
  battery.fStatus = NumberOf(kStatuses, status);
  battery.fChargingStatus = NumberOf(kChargingStatuses, status);
  battery.fChemistry = NumberOf(kChemistries, ReadTrimmed(directory + "/technology"));
  battery.fPercent = Narrow<std::uint16_t>(ReadNumber(directory + "/capacity"));
  battery.fDesignVoltage = ReadMillis(directory + "/voltage_min_design");
  battery.fDesignCapacity = ReadEnergy(directory, "full_design", battery.fDesignVoltage);
  battery.fFullCapacity = ReadEnergy(directory, "full", battery.fDesignVoltage);
  battery.fRemainingCapacity = ReadEnergy(directory, "now", battery.fDesignVoltage);
  battery.fCycles = Narrow<std::uint32_t>(ReadNumber(directory + "/cycle_count"));
  return battery;
}

}  // namespace

std::vector<TSensor> ReadSensors(const std::string& root) {
  std::vector<TSensor> sensors;
  ForEachSensor(root, [&sensors](const std::string& directory, const std::string& chip,
                                 const std::string& sensor, const TQuantity& quantity) {
    sensors.push_back(ReadSensor(directory, chip, sensor, quantity));
  });
  return sensors;
}

std::vector<TFan> ReadFans(const std::string& root) {
  std::vector<TFan> fans;
  ForEachSensor(root, [&fans](const std::string& directory, const std::string& chip,
                              const std::string& sensor, const TQuantity& quantity) {
    if (quantity.fPrefix != "fan") {
      return;
    }
    const std::string path = directory + "/" + sensor;
    fans.push_back({chip + "/" + sensor, ReadTrimmed(path + "_label"),
                    Exists(directory + "/pwm" + sensor.substr(3)), ReadNumber(path + "_target")});
  });
  return fans;
}

std::vector<TBattery> ReadBatteries(const std::string& root) {
  std::vector<TBattery> batteries;
  for (const std::string& name : ListDirectory(root + kSupplies)) {
    const std::string directory = root + kSupplies + name;
    const bool isOfDevice = ReadTrimmed(directory + "/scope") == "Device";
    const bool isPresent = ReadNumber(directory + "/present") != 0;
    if (ReadTrimmed(directory + "/type") == "Battery" && !isOfDevice && isPresent) {
      batteries.push_back(ReadBattery(directory, name));
    }
  }
  return batteries;
}

}  // namespace linux_machine
