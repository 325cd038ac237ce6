// The slots for cards and the power supplies, as the firmware tells.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_SLOTS_H
#define PROVIDERS_LINUX_SLOTS_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "smbios/TableWalker.h"

namespace linux_machine {

constexpr int kTypeSlot = 9;
constexpr int kTypePowerSupply = 39;

/// Numbers that stand for a kind are those of CIM_Slot's value maps, but for the usage.
struct TSlot {
  std::string fTag;  ///< "Slot 0": the slot's number in the tables.
  std::optional<std::string> fName;
  std::optional<std::uint16_t> fNumber;
  std::optional<std::uint16_t> fDataWidth;
  std::optional<std::uint16_t> fLinkWidth;
  std::optional<std::vector<std::uint16_t>> fVoltages;
  std::optional<bool> fHotPlug;
  std::optional<std::uint16_t> fUsage;  ///< The firmware's number.
  std::optional<std::string> fBusAddress;
};

/// Numbers that stand for a kind are those of CIM_PowerSupply's value maps. Texts are as the
/// firmware has them.
struct TPowerSupply {
  std::string fDeviceID;  ///< "Power Supply 0": its number in the tables.
  std::optional<std::string> fName;
  std::optional<std::string> fLocation;
  std::optional<std::string> fManufacturer;
  std::optional<std::string> fModel;
  std::optional<std::string> fSerialNumber;
  std::optional<std::string> fPartNumber;
  std::optional<std::uint32_t> fMilliwatts;  ///< What it can give for long.
  std::optional<bool> fIsSwitching;
  std::optional<std::uint16_t> fRangeSwitching;
};

/// The slot in a structure of type 9, of whatever length.
std::optional<TSlot> ParseSlot(const smbios::TStructure& structure, std::size_t number);

/// The power supply in a structure of type 39, of whatever length; none that isn't plugged in.
std::optional<TPowerSupply> ParsePowerSupply(const smbios::TStructure& structure,
                                             std::size_t number);

std::vector<TSlot> ReadSlots(const std::string& root);
std::vector<TPowerSupply> ReadPowerSupplies(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_SLOTS_H
