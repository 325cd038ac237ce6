#include "providers/linux/Slots.h"

#include <cstdio>

#include "providers/linux/FirmwareTables.h"

namespace linux_machine {

namespace {

constexpr std::uint32_t kMilliwattsPerWatt = 1000;
constexpr std::uint16_t kUnknownPower = 0x8000;
constexpr std::uint16_t kSwitching = 4;

enum EVoltage : std::uint16_t { kVolts3 = 2, kVolts5 = 3 };

// The format's codes for the width of a slot: buses of bits, then links of lanes.
std::optional<std::uint16_t> DataWidth(std::uint8_t code) {
  const bool isBus = code >= 3 && code <= 7;
  return isBus ? std::optional(static_cast<std::uint16_t>(8 << (code - 3))) : std::nullopt;
}

std::optional<std::uint16_t> LinkWidth(std::uint8_t code) {
  const bool isLink = code >= 0x08 && code <= 0x0E;
  return isLink ? std::optional(static_cast<std::uint16_t>(code - 6)) : std::nullopt;
}

std::optional<std::vector<std::uint16_t>> Voltages(std::uint8_t characteristics) {
  std::vector<std::uint16_t> voltages;
  if ((characteristics & 0x02) != 0) {
    voltages.push_back(kVolts5);
  }
  if ((characteristics & 0x04) != 0) {
    voltages.push_back(kVolts3);
  }
  return voltages.empty() ? std::nullopt : std::optional(voltages);
}

std::optional<std::string> BusAddress(const smbios::TStructure& structure) {
  const std::uint16_t segment = structure.Word(0x0D);
  const std::uint8_t bus = structure.Byte(0x0F);
  const std::uint8_t place = structure.Byte(0x10);
  const bool isKnown =
      structure.HasField(0x0D, 4) && segment != 0xFFFF && !(bus == 0xFF && place == 0xFF);
  if (!isKnown) {
    return std::nullopt;
  }
  char text[16];
  std::snprintf(text, sizeof text, "%04x:%02x:%02x.%x", segment, bus, place >> 3, place & 7);
  return text;
}

}  // namespace

std::optional<TSlot> ParseSlot(const smbios::TStructure& structure, std::size_t number) {
  TSlot slot;
  slot.fTag = "Slot " + std::to_string(number);
  slot.fName = FirmwareText(structure, 0x04);
  if (structure.HasField(0x09, 2)) {
    slot.fNumber = structure.Word(0x09);
  }
  slot.fDataWidth = DataWidth(structure.Byte(0x06));
  slot.fLinkWidth = LinkWidth(structure.Byte(0x06));
  slot.fVoltages = Voltages(structure.Byte(0x0B));
  if (structure.HasField(0x0C, 1)) {
    slot.fHotPlug = (structure.Byte(0x0C) & 0x02) != 0;
  }
  slot.fUsage = KnownNumber<std::uint16_t>(structure.Byte(0x07), {0, 2});
  slot.fBusAddress = BusAddress(structure);
  return slot;
}

std::optional<TPowerSupply> ParsePowerSupply(const smbios::TStructure& structure,
                                             std::size_t number) {
  const std::uint16_t characteristics = structure.Word(0x0E);
  if (structure.HasField(0x0E, 2) && (characteristics & 0x02) == 0) {
    return std::nullopt;
  }
  TPowerSupply supply;
  supply.fDeviceID = "Power Supply " + std::to_string(number);
  supply.fLocation = FirmwareText(structure, 0x05);
  supply.fName = FirmwareText(structure, 0x06);
  supply.fManufacturer = FirmwareText(structure, 0x07);
  supply.fSerialNumber = FirmwareText(structure, 0x08);
  supply.fModel = supply.fName;
  supply.fPartNumber = FirmwareText(structure, 0x0A);
  const auto watts = KnownNumber<std::uint16_t>(structure.Word(0x0C), {0, kUnknownPower});
  supply.fMilliwatts = watts ? std::optional(*watts * kMilliwattsPerWatt) : std::nullopt;
  const auto type = KnownNumber<std::uint16_t>((characteristics >> 10) & 0x0F, {0, 1, 2});
  supply.fIsSwitching = type ? std::optional(*type == kSwitching) : std::nullopt;
  supply.fRangeSwitching = KnownNumber<std::uint16_t>((characteristics >> 3) & 0x0F, {0, 2});
  if (supply.fRangeSwitching > 6) {
    supply.fRangeSwitching = std::nullopt;
  }
  return supply;
}

std::vector<TSlot> ReadSlots(const std::string& root) {
  return ParseStructures(ReadFirmwareTables(root), kTypeSlot, &ParseSlot);
}

std::vector<TPowerSupply> ReadPowerSupplies(const std::string& root) {
  return ParseStructures(ReadFirmwareTables(root), kTypePowerSupply, &ParsePowerSupply);
}

}  // namespace linux_machine
