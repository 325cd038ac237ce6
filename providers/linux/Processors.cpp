#include "providers/linux/Processors.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <map>
#include <set>
#include <utility>

#include "hwxsys/KernelCopy.h"
#include "providers/linux/FirmwareTables.h"
#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr std::uint8_t kCentralProcessor = 3;
constexpr std::uint16_t kStatusEnabled = 1;

// Bits of the firmware's characteristics, and the numbers of CIM.
constexpr std::pair<int, std::uint16_t> kCharacteristics[] = {
    {2, 2}, {4, 5}, {5, 6}, {6, 4}, {7, 7}};

constexpr const char* kProcessors = "/sys/devices/system/cpu";

std::string DirectoryOf(const std::string& root, const TLogicalProcessor& logical) {
  return root + kProcessors + "/cpu" + std::to_string(logical.fNumber);
}

// Names package and core by the sets of processors in them, which /sys has for all architectures. A
// package's number wouldn't do: it may be -1 on all of them.
void AddTopology(const std::string& directory, TLogicalProcessor& logical) {
  const auto setIn = [&](std::initializer_list<const char*> files) -> std::optional<std::string> {
    for (const char* file : files) {
      if (auto set = ReadTrimmed(directory + "/topology/" + file)) {
        return set;
      }
    }
    return std::nullopt;
  };
  if (const auto package =
          setIn({"package_cpus_list", "core_siblings_list", "physical_package_id"})) {
    logical.fPackage = *package;
  }
  if (const auto siblings = setIn({"core_cpus_list", "thread_siblings_list"})) {
    logical.fCore = *siblings;
  }
}

std::optional<std::uint32_t> ReadMegaHertz(const std::string& path) {
  const auto kiloHertz = ReadNumber(path);
  return kiloHertz ? Narrow<std::uint32_t>(*kiloHertz / 1000) : std::nullopt;
}

// The current speed is read of one processor in each package, since the kernel may have to measure
// it, which takes time.
void AddSpeeds(const std::string& directory, bool isFirst, TLogicalProcessor& logical) {
  if (const auto highest = ReadMegaHertz(directory + "/cpufreq/cpuinfo_max_freq")) {
    logical.fMaxMegaHertz = highest;
  }
  if (!isFirst) {
    return;
  }
  if (const auto current = ReadMegaHertz(directory + "/cpufreq/scaling_cur_freq")) {
    logical.fMegaHertz = current;
  }
}

// Those that /sys lists and that aren't switched off, each with what /proc/cpuinfo says of all.
std::vector<TLogicalProcessor> ListProcessors(const std::string& root,
                                              const TLogicalProcessor& shared) {
  std::vector<TLogicalProcessor> found;
  for (const std::string& entry : ListDirectory(root + kProcessors)) {
    std::string_view name = entry;
    const auto number = TakePrefix(name, "cpu") ? ParseNumber(name) : std::nullopt;
    if (!number || ReadNumber(root + kProcessors + "/" + entry + "/online") == 0) {
      continue;
    }
    found.push_back(shared);
    found.back().fNumber = *number;
    found.back().fCore = "processor " + std::to_string(*number);
  }
  return found;
}

std::vector<TProcessor> ReadSockets(const std::string& root) {
  return ParseStructures(ReadFirmwareTables(root), smbios::kTypeProcessor, &ParseProcessor);
}

// The processors that the tables of another machine list, if such tables are named.
std::vector<TProcessor> OtherMachinesSockets(const std::string& root) {
  return !hwxsys::IsOtherFirmware() ? std::vector<TProcessor>() : ReadSockets(root);
}

bool ComesBefore(const TLogicalProcessor& left, const TLogicalProcessor& right) {
  return left.fNumber < right.fNumber;
}

std::optional<std::uint16_t> Family(const smbios::TStructure& structure) {
  const std::uint8_t family = structure.Byte(0x06);
  const std::uint16_t wide = structure.Word(0x28);  // 0 in older tables, which is no family
  return KnownNumber<std::uint16_t>(family == 0xFE ? wide : family, {0, 2});
}

std::optional<std::uint16_t> CoreCount(const smbios::TStructure& structure, std::size_t offset,
                                       std::size_t wideOffset) {
  const std::uint8_t count = structure.Byte(offset);
  const bool isWide = count == 0xFF && structure.HasField(wideOffset, 2);
  return KnownNumber<std::uint16_t>(isWide ? structure.Word(wideOffset) : count, {0});
}

std::optional<std::uint32_t> MegaHertz(const smbios::TStructure& structure, std::size_t offset) {
  return KnownNumber<std::uint32_t>(structure.Word(offset), {0});
}

void SetCharacteristics(const smbios::TStructure& structure, TProcessor& processor) {
  processor.fCharacteristics.emplace();
  for (const auto& [bit, number] : kCharacteristics) {
    if ((structure.Word(0x26) >> bit) % 2 == 1) {
      processor.fCharacteristics->push_back(number);
    }
  }
}

// What one version of the format appended.
void SetCores(const smbios::TStructure& structure, TProcessor& processor) {
  if (!structure.HasField(0x23, 5)) {
    return;
  }
  processor.fEnabledCores = CoreCount(structure, 0x24, 0x2C);
  if (const auto threads = CoreCount(structure, 0x25, 0x2E)) {
    processor.fThreads = *threads;
  }
  SetCharacteristics(structure, processor);
}

template <typename Value>
void TakeMissing(std::optional<Value>& value, const std::optional<Value>& other) {
  if (!value) {
    value = other;
  }
}

}  // namespace

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
    TProcessor& package = packages[place->second];
    ++*package.fThreads;
    // A speed that is missing is less than any.
    package.fMaxClockSpeed = std::max(package.fMaxClockSpeed, one.fMaxMegaHertz);
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
  SetCores(structure, processor);
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

std::vector<TLogicalProcessor> ReadLogicalProcessors(const std::string& root) {
  if (!OtherMachinesSockets(root).empty()) {
    return {};
  }
  TCpuInfo info = ParseCpuInfo(ReadList(root + "/proc/cpuinfo"));
  std::vector<TLogicalProcessor> logical = std::move(info.fProcessors);
  if (logical.empty()) {
    logical = ListProcessors(root, info.fShared);
  }
  std::stable_sort(logical.begin(), logical.end(), &ComesBefore);
  std::set<std::string> packages;
  for (TLogicalProcessor& one : logical) {
    const std::string directory = DirectoryOf(root, one);
    AddTopology(directory, one);
    AddSpeeds(directory, packages.insert(one.fPackage).second, one);
  }
  return logical;
}

std::vector<TProcessor> ReadProcessors(const std::string& root) {
  const std::vector<TProcessor> others = OtherMachinesSockets(root);
  if (!others.empty()) {
    return others;
  }
  return MergeProcessors(GroupProcessors(ReadLogicalProcessors(root)), ReadSockets(root));
}

}  // namespace linux_machine
