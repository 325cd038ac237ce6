#include "providers/linux/Processors.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <utility>

#include "providers/linux/FirmwareTables.h"
#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr std::uint8_t kCentralProcessor = 3;
constexpr std::uint16_t kStatusEnabled = 1;

// Bits of the firmware's characteristics, and the numbers of CIM.
constexpr std::pair<int, std::uint16_t> kCharacteristics[] = {
    {2, 2}, {4, 5}, {5, 6}, {6, 4}, {7, 7}};

std::string_view WithoutBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  return text.substr(0, text.find_last_not_of(" \t\r") + 1);
}

// The fields of a paragraph by their names; the first of a name counts.
using TFields = std::map<std::string_view, std::string_view>;

TFields TakeParagraph(std::string_view& text) {
  TFields fields;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    const std::size_t colon = line.find(':');
    if (colon != std::string_view::npos) {
      fields.emplace(WithoutBlanks(line.substr(0, colon)), WithoutBlanks(line.substr(colon + 1)));
    } else if (WithoutBlanks(line).empty()) {
      break;
    }
  }
  return fields;
}

// The first of several names that a kernel for this or that architecture uses.
std::optional<std::string> FieldOf(const TFields& fields,
                                   std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const auto field = fields.find(name);
    if (field != fields.end() && !field->second.empty()) {
      return CutAtNul(field->second);
    }
  }
  return std::nullopt;
}

// "2499.998", also with "MHz" behind it; the fraction is dropped.
std::optional<std::uint32_t> ParseMegaHertz(const std::optional<std::string>& text) {
  return text ? Narrow<std::uint32_t>(ParseNumber(text->substr(0, text->find('.')))) : std::nullopt;
}

// The 46 of "46 bits physical, 48 bits virtual".
std::optional<std::uint16_t> ParseAddressWidth(const std::optional<std::string>& text) {
  return text ? Narrow<std::uint16_t>(ParseNumber(text->substr(0, text->find(' ')))) : std::nullopt;
}

// Whether the names of features, between blanks, hold that of the 64-bit mode of x86.
bool HasLongMode(const TFields& fields) {
  const std::string flags = " " + FieldOf(fields, {"flags"}).value_or(std::string()) + " ";
  return flags.find(" lm ") != std::string::npos;
}

std::string DirectoryOf(const std::string& root, const TLogicalProcessor& logical) {
  return root + "/sys/devices/system/cpu/cpu" + std::to_string(logical.fNumber);
}

// What /sys tells, there the same for all architectures.
void AddTopology(const std::string& directory, TLogicalProcessor& logical) {
  if (const auto package = ReadTrimmed(directory + "/topology/physical_package_id")) {
    logical.fPackage = *package;
  }
  if (const auto siblings = ReadTrimmed(directory + "/topology/thread_siblings_list")) {
    logical.fCore = *siblings;
  }
}

// Only of one processor in each package, since the kernel may take its time to measure.
void AddSpeeds(const std::string& directory, TLogicalProcessor& logical) {
  const auto megaHertz = [&directory](const char* file) -> std::optional<std::uint32_t> {
    const auto kiloHertz = ReadNumber(directory + "/cpufreq/" + file);
    return kiloHertz ? Narrow<std::uint32_t>(*kiloHertz / 1000) : std::nullopt;
  };
  logical.fMaxMegaHertz = megaHertz("cpuinfo_max_freq");
  if (const auto current = megaHertz("scaling_cur_freq")) {
    logical.fMegaHertz = current;
  }
}

std::optional<std::uint16_t> Family(const smbios::TStructure& structure) {
  const std::uint8_t family = structure.Byte(0x06);
  const std::uint16_t wide = structure.Word(0x28);
  return KnownNumber<std::uint16_t>(family == 0xFE ? wide : family, {0, 2});
}

std::optional<std::uint16_t> CoreCount(const smbios::TStructure& structure, std::size_t offset,
                                       std::size_t wideOffset) {
  const std::uint8_t count = structure.Byte(offset);
  const std::uint16_t wide = structure.Word(wideOffset);
  return KnownNumber<std::uint16_t>(count == 0xFF && wide != 0 ? wide : count, {0});
}

std::optional<std::uint32_t> MegaHertz(const smbios::TStructure& structure, std::size_t offset) {
  return KnownNumber<std::uint32_t>(structure.Word(offset), {0});
}

void SetCharacteristics(const smbios::TStructure& structure, TProcessor& processor) {
  if (!structure.HasField(0x26, 2)) {
    return;
  }
  processor.fCharacteristics.emplace();
  for (const auto& [bit, number] : kCharacteristics) {
    if ((structure.Word(0x26) >> bit) % 2 == 1) {
      processor.fCharacteristics->push_back(number);
    }
  }
}

template <typename Value>
void TakeMissing(std::optional<Value>& value, const std::optional<Value>& other) {
  if (!value) {
    value = other;
  }
}

}  // namespace

std::vector<TLogicalProcessor> ParseCpuInfo(std::string_view text) {
  std::vector<TLogicalProcessor> found;
  while (!text.empty()) {
    const TFields fields = TakeParagraph(text);
    const auto number = ParseNumber(FieldOf(fields, {"processor"}).value_or(std::string()));
    if (!number) {
      continue;
    }
    TLogicalProcessor logical;
    logical.fNumber = *number;
    logical.fPackage = FieldOf(fields, {"physical id"}).value_or("0");
    logical.fCore = FieldOf(fields, {"core id"}).value_or("processor " + std::to_string(*number));
    logical.fModelName = FieldOf(fields, {"model name", "cpu", "Processor"});
    logical.fVendor = FieldOf(fields, {"vendor_id"});
    logical.fStepping = FieldOf(fields, {"stepping", "CPU revision"});
    logical.fMegaHertz = ParseMegaHertz(FieldOf(fields, {"cpu MHz", "clock"}));
    logical.fAddressWidth = ParseAddressWidth(FieldOf(fields, {"address sizes"}));
    logical.fIs64Bit = HasLongMode(fields);
    found.push_back(std::move(logical));
  }
  return found;
}

std::vector<TProcessor> GroupProcessors(const std::vector<TLogicalProcessor>& logical) {
  std::vector<TProcessor> packages;
  std::map<std::string, std::size_t> places;
  std::vector<std::set<std::string>> cores;
  for (const TLogicalProcessor& one : logical) {
    const auto [place, isNew] = places.emplace(one.fPackage, packages.size());
    if (isNew) {
      TProcessor package;
      package.fDeviceID = "CPU" + std::to_string(packages.size());
      package.fName = one.fModelName;
      package.fManufacturer = one.fVendor;
      package.fStepping = one.fStepping;
      package.fCurrentClockSpeed = one.fMegaHertz;
      package.fMaxClockSpeed = one.fMaxMegaHertz;
      package.fAddressWidth = one.fAddressWidth;
      package.fDataWidth = one.fIs64Bit ? std::optional<std::uint16_t>(64) : std::nullopt;
      package.fStatus = kStatusEnabled;
      package.fThreads = 0;
      packages.push_back(std::move(package));
      cores.emplace_back();
    }
    ++*packages[place->second].fThreads;
    cores[place->second].insert(one.fCore);
  }
  for (std::size_t i = 0; i < packages.size(); ++i) {
    packages[i].fEnabledCores = Narrow<std::uint16_t>(cores[i].size());
  }
  return packages;
}

std::optional<TProcessor> ParseProcessor(const smbios::TStructure& structure, std::size_t number) {
  const bool isPopulated = (structure.Byte(0x18) & 0x40) != 0;
  if (structure.Byte(0x05) != kCentralProcessor || !isPopulated) {
    return std::nullopt;
  }
  TProcessor processor;
  processor.fDeviceID = "CPU" + std::to_string(number);
  processor.fSocket = FirmwareText(structure, 0x04);
  processor.fName = FirmwareText(structure, 0x10);
  processor.fManufacturer = FirmwareText(structure, 0x07);
  processor.fFamily = Family(structure);
  processor.fUpgradeMethod = KnownNumber<std::uint16_t>(structure.Byte(0x19), {0, 2});
  processor.fExternalBusClockSpeed = MegaHertz(structure, 0x12);
  processor.fMaxClockSpeed = MegaHertz(structure, 0x14);
  processor.fCurrentClockSpeed = MegaHertz(structure, 0x16);
  processor.fStatus = structure.Byte(0x18) & 0x07;
  processor.fEnabledCores = CoreCount(structure, 0x24, 0x2C);
  if (const auto threads = CoreCount(structure, 0x25, 0x2E)) {
    processor.fThreads = *threads;
  }
  SetCharacteristics(structure, processor);
  return processor;
}

std::vector<TProcessor> MergeProcessors(std::vector<TProcessor> packages,
                                        const std::vector<TProcessor>& sockets) {
  if (packages.size() != sockets.size()) {
    return packages;
  }
  for (std::size_t i = 0; i < packages.size(); ++i) {
    TProcessor& package = packages[i];
    const TProcessor& socket = sockets[i];
    TakeMissing(package.fSocket, socket.fSocket);
    TakeMissing(package.fName, socket.fName);
    TakeMissing(package.fManufacturer, socket.fManufacturer);
    TakeMissing(package.fFamily, socket.fFamily);
    TakeMissing(package.fUpgradeMethod, socket.fUpgradeMethod);
    TakeMissing(package.fExternalBusClockSpeed, socket.fExternalBusClockSpeed);
    TakeMissing(package.fMaxClockSpeed, socket.fMaxClockSpeed);
    TakeMissing(package.fCurrentClockSpeed, socket.fCurrentClockSpeed);
    TakeMissing(package.fCharacteristics, socket.fCharacteristics);
  }
  return packages;
}

std::vector<TProcessor> ReadProcessors(const std::string& root) {
  const std::vector<TProcessor> sockets =
      ParseStructures(ReadFirmwareTables(root), smbios::kTypeProcessor, &ParseProcessor);
  if (!sockets.empty() && std::getenv("HWX_SMBIOS_TABLES") != nullptr) {
    return sockets;
  }
  std::vector<TLogicalProcessor> logical =
      ParseCpuInfo(ReadFile(root + "/proc/cpuinfo").value_or(std::string()));
  std::set<std::string> packages;
  for (TLogicalProcessor& one : logical) {
    const std::string directory = DirectoryOf(root, one);
    AddTopology(directory, one);
    if (packages.insert(one.fPackage).second) {
      AddSpeeds(directory, one);
    }
  }
  return MergeProcessors(GroupProcessors(logical), sockets);
}

}  // namespace linux_machine
