#include "providers/linux/MemoryModules.h"

#include <algorithm>
#include <iterator>

#include "providers/linux/FirmwareTables.h"
#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr std::uint64_t kKibibyte = 1024;
constexpr std::uint64_t kMebibyte = kKibibyte * kKibibyte;

constexpr std::size_t kWideSpeeds = 0x54;  // the module's own, then the one that it runs at

// What a number of the format stands for: the number of CIM, and a name. CIM has no numbers for
// what is newer than it.
struct TMeaning {
  std::uint16_t fNumber;
  const char* fName;
};

constexpr std::uint16_t kOther = 1;
constexpr TMeaning kUnknown = {0, nullptr};

// At the places of the format's numbers.
constexpr TMeaning kFormFactors[] = {
    kUnknown,
    {kOther, "Other"},
    kUnknown,
    {7, "SIMM"},
    {2, "SIP"},
    {kOther, "Chip"},
    {3, "DIP"},
    {4, "ZIP"},
    {6, "Proprietary Card"},
    {8, "DIMM"},
    {9, "TSOP"},
    {kOther, "Row of Chips"},
    {11, "RIMM"},
    {12, "SODIMM"},
    {13, "SRIMM"},
    {kOther, "FB-DIMM"},
    {kOther, "Die"},
};
constexpr TMeaning kMemoryTypes[] = {
    kUnknown,
    {kOther, "Other"},
    kUnknown,
    {2, "DRAM"},
    {6, "EDRAM"},
    {7, "VRAM"},
    {8, "SRAM"},
    {9, "RAM"},
    {10, "ROM"},
    {11, "Flash"},
    {12, "EEPROM"},
    {13, "FEPROM"},
    {14, "EPROM"},
    {15, "CDRAM"},
    {16, "3DRAM"},
    {17, "SDRAM"},
    {18, "SGRAM"},
    {19, "RDRAM"},
    {20, "DDR"},
    {21, "DDR2"},
    {23, "DDR2 FB-DIMM"},
    {kOther, nullptr},
    {kOther, nullptr},
    {kOther, nullptr},
    {24, "DDR3"},
    {25, "FBD2"},
    {26, "DDR4"},
    {27, "LPDDR"},
    {28, "LPDDR2"},
    {29, "LPDDR3"},
    {30, "LPDDR4"},
    {kOther, "Logical non-volatile device"},
    {kOther, "HBM"},
    {kOther, "HBM2"},
    {kOther, "DDR5"},
    {kOther, "LPDDR5"},
    {kOther, "HBM3"},
};

template <std::size_t kSize>
TMeaning MeaningOf(const TMeaning (&meanings)[kSize], std::uint8_t number) {
  return number < kSize ? meanings[number] : TMeaning{kOther, nullptr};
}

void SetMeaning(const TMeaning& meaning, std::optional<std::uint16_t>& number,
                std::optional<std::string>& name) {
  number = KnownNumber<std::uint16_t>(meaning.fNumber, {0});
  name = meaning.fName ? std::optional<std::string>(meaning.fName) : std::nullopt;
}

// The size field has 15 bits of MiB, or of KiB when the highest bit is set; sizes from 32 GiB on
// stand in a wider one.
std::optional<std::uint64_t> ModuleCapacity(const smbios::TStructure& structure) {
  const std::uint16_t size = structure.Word(0x0C);
  if (size == 0xFFFF) {
    return std::nullopt;
  }
  if (size == 0x7FFF && structure.HasField(0x1C, 4)) {
    return (structure.DWord(0x1C) & 0x7FFFFFFF) * kMebibyte;
  }
  return (size & 0x7FFF) * ((size & 0x8000) != 0 ? kKibibyte : kMebibyte);
}

// A speed of 16 bits, or the wider one that newer tables have for those that don't fit.
std::optional<std::uint32_t> ModuleSpeed(const smbios::TStructure& structure, std::size_t offset,
                                         std::size_t wideOffset) {
  const std::uint16_t speed = structure.Word(offset);
  const bool hasWide = structure.HasField(kWideSpeeds, 8);
  const std::uint32_t wide = hasWide ? structure.DWord(wideOffset) & 0x7FFFFFFF : 0;
  return KnownNumber<std::uint32_t>(speed == 0xFFFF ? wide : speed, {0});
}

// KiB, or the bytes that newer tables have for what doesn't fit. 0 stands for itself.
std::optional<std::uint64_t> ArrayCapacity(const smbios::TStructure& structure) {
  const std::uint32_t capacity = structure.DWord(0x07);
  const bool isWide = capacity == 0x80000000;
  if (!structure.HasField(0x07, 4) || (isWide && !structure.HasField(0x0F, 8))) {
    return std::nullopt;
  }
  return isWide ? structure.QWord(0x0F) / kKibibyte : capacity;
}

// The texts that one version of the format appended.
void SetMaker(const smbios::TStructure& structure, TMemoryModule& module) {
  if (!structure.HasField(0x17, 4)) {
    return;
  }
  module.fManufacturer = FirmwareText(structure, 0x17);
  module.fSerialNumber = FirmwareText(structure, 0x18);
  module.fAssetTag = FirmwareText(structure, 0x19);
  module.fPartNumber = FirmwareText(structure, 0x1A);
}

std::optional<std::uint16_t> KnownByte(const smbios::TStructure& structure, std::size_t offset) {
  return KnownNumber<std::uint16_t>(structure.Byte(offset), {0});
}

}  // namespace

std::optional<TMemoryModule> ParseMemoryModule(const smbios::TStructure& structure,
                                               std::size_t number) {
  if (structure.Word(0x0C) == 0) {
    return std::nullopt;
  }
  TMemoryModule module;
  module.fTag = "Physical Memory " + std::to_string(number);
  module.fLocator = FirmwareText(structure, 0x10);
  module.fBank = FirmwareText(structure, 0x11);
  module.fCapacity = ModuleCapacity(structure);
  SetMeaning(MeaningOf(kFormFactors, structure.Byte(0x0E)), module.fFormFactor,
             module.fFormFactorName);
  SetMeaning(MeaningOf(kMemoryTypes, structure.Byte(0x12)), module.fMemoryType,
             module.fMemoryTypeName);
  module.fTotalWidth = KnownNumber<std::uint16_t>(structure.Word(0x08), {0, 0xFFFF});
  module.fDataWidth = KnownNumber<std::uint16_t>(structure.Word(0x0A), {0, 0xFFFF});
  module.fMaxSpeed = ModuleSpeed(structure, 0x15, kWideSpeeds);
  module.fConfiguredSpeed = ModuleSpeed(structure, 0x20, kWideSpeeds + 4);
  SetMaker(structure, module);
  return module;
}

std::optional<TMemoryArray> ParseMemoryArray(const smbios::TStructure& structure,
                                             std::size_t number) {
  TMemoryArray array;
  array.fTag = "Physical Memory Array " + std::to_string(number);
  array.fLocation = KnownByte(structure, 0x04);
  array.fUse = KnownByte(structure, 0x05);
  array.fErrorCorrection = KnownByte(structure, 0x06);
  array.fMaxCapacity = ArrayCapacity(structure);
  if (structure.HasField(0x0D, 2)) {
    array.fSlots = structure.Word(0x0D);
  }
  return array;
}

std::vector<TMemoryModule> ReadMemoryModules(const std::string& root) {
  return ParseStructures(ReadFirmwareTables(root), smbios::kTypeMemoryDevice, &ParseMemoryModule);
}

std::vector<TMemoryArray> ReadMemoryArrays(const std::string& root) {
  return ParseStructures(ReadFirmwareTables(root), smbios::kTypeMemoryArray, &ParseMemoryArray);
}

std::vector<TSystemMemory> ReadSystemMemory(const std::string& root) {
  const std::string directory = root + "/sys/devices/system/memory";
  const auto blockSize = ReadAttribute(directory + "/block_size_bytes");  // without "0x"
  if (!blockSize) {
    return {};
  }
  const std::vector<std::string> names = ListDirectory(directory);
  const auto count = std::count_if(names.begin(), names.end(), [&](const std::string& name) {
    return name.rfind("memory", 0) == 0 && ReadNumber(directory + "/" + name + "/online") == 1;
  });
  return {{"System Memory", ParseHex(*blockSize), static_cast<std::uint64_t>(count)}};
}

}  // namespace linux_machine
