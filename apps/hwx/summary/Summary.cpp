#include "hwx/summary/Summary.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <optional>
#include <utility>

#include "hwx/inventory/ValueText.h"
#include "hwx/media/MountTable.h"
#include "hwx/text/Units.h"
#include "hwx/text/Words.h"
#include "hwxkit/CIMName.h"

namespace hwx {

namespace {

using TLines = std::vector<TSummaryLine>;

std::vector<const TReadInstance*> InstancesOf(const TReading& reading, const char* className) {
  std::vector<const TReadInstance*> instances;
  for (const TReadClass& read : reading.fClasses) {
    const bool isIt = NQORHWX20::IsSameCIMName(read.fName, className) ||
                      read.fClass->IsSubClassOf(className, NQORHWX20::TCIMContext());
    if (!isIt) continue;
    for (const TReadInstance& instance : read.fInstances)
      instances.push_back(&instance);
  }
  return instances;
}

// A value for people; empty if there is none.
std::string TextOf(const TReadInstance& instance, const char* property) {
  const TReadValue* const value = instance.Find(property);
  if (!value || value->fStored.is_null()) return std::string();
  return std::string(Trimmed(value->Text()));
}

std::optional<std::uint64_t> CountOf(const TReadInstance& instance, const char* property) {
  const TReadValue* const value = instance.Find(property);
  if (!value || !value->fStored.is_number_unsigned()) return std::nullopt;
  return value->fStored.get<std::uint64_t>();
}

// Those that aren't empty.
std::string Listed(const std::vector<std::string>& parts, const char* separator) {
  std::string list;
  for (const std::string& part : parts) {
    if (!part.empty()) list += (list.empty() ? "" : separator) + part;
  }
  return list;
}

std::string Behind(const char* word, const std::string& text) {
  return text.empty() ? std::string() : word + (" " + text);
}

std::string Number(std::uint64_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string BytesText(std::uint64_t bytes) {
  return AmountText(static_cast<long double>(bytes), {"B", 1});
}

std::string Told(const TAnswer<std::string>& answer) {
  if (!answer.fValue) return "(" + answer.fReason + ")";
  return answer.fIsGuess ? *answer.fValue + " (a guess)" : *answer.fValue;
}

std::string ToldIfKnown(const TAnswer<std::string>& answer) {
  return answer.fValue ? Told(answer) : std::string();
}

// What makers leave in the place of names says nothing.
std::string MakerOf(const TReadInstance& instance) {
  const std::string maker = TextOf(instance, "Manufacturer");
  return maker == "Not Specified" || maker == "Unknown" ? std::string() : maker;
}

TLines MachineLines(const TIdentity& identity, const TReading& reading) {
  std::string maker;
  for (const TReadInstance* system : InstancesOf(reading, "QORSG_ComputerSystem"))
    maker = MakerOf(*system);
  TLines lines = {{Listed({maker, Told(identity.fProductName)}, " "), {}}};
  const std::string type = Listed({Behind("type", ToldIfKnown(identity.fMachineType)),
                                   Behind("model", ToldIfKnown(identity.fModel))},
                                  ", ");
  if (!type.empty()) lines.push_back({type, {}});
  // A reason that both have is told once.
  const auto& serial = identity.fSerialNumber;
  if (serial.fValue || serial.fReason != identity.fProductName.fReason)
    lines.push_back({"serial number " + Told(serial), {}});
  return lines;
}

TLines FirmwareLines(const TReading& reading) {
  TLines lines;
  for (const TReadInstance* bios : InstancesOf(reading, "CIM_BIOSElement")) {
    const std::string date = TextOf(*bios, "ReleaseDate").substr(0, 10);
    const std::string text = Listed({MakerOf(*bios), TextOf(*bios, "Version"), date}, ", ");
    if (!text.empty()) lines.push_back({text, {}});
  }
  return lines;
}

std::string StoredText(const TReadInstance& instance, const char* property) {
  const TReadValue* const value = instance.Find(property);
  const bool isText = value && value->fStored.is_string();
  return isText ? value->fStored.get<std::string>() : std::string();
}

TLines SystemLines(const TIdentity& identity, const TReading& reading) {
  TLines lines;
  for (const TReadInstance* system : InstancesOf(reading, "QORSG_OperatingSystem")) {
    const std::string name = Listed({TextOf(*system, "Name"), TextOf(*system, "Version")}, " ");
    lines.push_back({Listed({name, Behind("kernel", TextOf(*system, "KernelRelease"))}, ", "), {}});
    const std::string host = identity.fSystemName.fValue.value_or("");
    const std::string up =
        UpTime(StoredText(*system, "LastBootUpTime"), StoredText(*system, "LocalDateTime"));
    const std::string running = Listed({host, Behind("up", up)}, ", ");
    if (!running.empty()) lines.push_back({running, {}});
  }
  return lines;
}

// Alike ones make one line.
TLines ProcessorLines(const TReading& reading) {
  std::vector<std::pair<std::string, std::uint64_t>> kinds;
  for (const TReadInstance* processor : InstancesOf(reading, "CIM_Processor")) {
    const auto cores = CountOf(*processor, "NumberOfEnabledCores");
    const auto threads = CountOf(*processor, "NumberOfHardwareThreads");
    const std::string name = TextOf(*processor, "Name");
    const std::string kind = Listed(
        {name.empty() ? TextOf(*processor, "ElementName") : name,
         cores ? Number(*cores, "core", "cores") : "",
         threads ? Number(*threads, "thread", "threads") : "", TextOf(*processor, "MaxClockSpeed")},
        ", ");
    const auto same = std::find_if(kinds.begin(), kinds.end(),
                                   [&kind](const auto& other) { return other.first == kind; });
    if (same == kinds.end()) {
      kinds.emplace_back(kind, 1);
    } else {
      ++same->second;
    }
  }
  TLines lines;
  for (const auto& [kind, count] : kinds)
    lines.push_back({(count == 1 ? "" : std::to_string(count) + " x ") + kind, {}});
  return lines;
}

TSummaryLine ModuleLine(const TReadInstance& module) {
  const std::string slot = TextOf(module, "ElementName");
  // The standard has no numbers for what is newer than it, and then there are words.
  const std::string type = TextOf(module, "MemoryTypeDescription");
  const std::string form = TextOf(module, "FormFactorDescription");
  const std::string what =
      Listed({TextOf(module, "Capacity"), type.empty() ? TextOf(module, "MemoryType") : type,
              form.empty() ? TextOf(module, "FormFactor") : form},
             " ");
  const std::string speed = TextOf(module, "ConfiguredMemoryClockSpeed");
  const std::string product = Listed({MakerOf(module), TextOf(module, "PartNumber")}, " ");
  return {
      (slot.empty() ? TextOf(module, "Tag") : slot) + ": " +
          Listed({what, speed.empty() ? TextOf(module, "MaxMemorySpeed") : speed, product}, ", "),
      {}};
}

TLines MemoryLines(const TReading& reading) {
  const auto modules = InstancesOf(reading, "CIM_PhysicalMemory");
  TSummaryLine all;
  std::uint64_t bytes = 0;
  for (const TReadInstance* module : modules) {
    bytes += CountOf(*module, "Capacity").value_or(0);
    all.fParts.push_back(ModuleLine(*module));
  }
  std::uint64_t slots = 0;
  for (const TReadInstance* array : InstancesOf(reading, "QORSG_PhysicalMemoryArray"))
    slots += CountOf(*array, "MemoryDevices").value_or(0);
  const std::string empty = slots < modules.size() || slots == 0 ? std::string()
                            : slots == modules.size()
                                ? "no slot is empty"
                                : std::to_string(slots - modules.size()) + " of " +
                                      Number(slots, "slot is empty", "slots are empty");
  if (!modules.empty()) {
    all.fText = Listed(
        {BytesText(bytes) + " in " + Number(modules.size(), "module", "modules"), empty}, ", ");
    return {all};
  }
  TLines lines;
  for (const TReadInstance* system : InstancesOf(reading, "QORSG_OperatingSystem")) {
    const std::string visible = TextOf(*system, "TotalVisibleMemorySize");
    if (!visible.empty())
      lines.push_back({Listed({visible + " in use by the system", empty}, ", "), {}});
  }
  return lines;
}

std::string FileSystemText(const TReadInstance& system) {
  const std::string size = TextOf(system, "FileSystemSize");
  const std::string free = TextOf(system, "AvailableSpace");
  return Listed({TextOf(system, "Name"), TextOf(system, "FileSystemType"),
                 size.empty() || free.empty() ? size : free + " of " + size + " free"},
                ", ");
}

// What is mounted from a device, each place once.
TLines MountedFrom(const TReading& reading, const std::string& device) {
  TLines lines;
  for (const TReadInstance* system : InstancesOf(reading, "CIM_FileSystem")) {
    if (TextOf(*system, "ElementName") == device) lines.push_back({FileSystemText(*system), {}});
  }
  return lines;
}

TSummaryLine PartitionLine(const TReading& reading, const TReadInstance& partition) {
  const std::string device = TextOf(partition, "DeviceID");
  const auto blocks = CountOf(partition, "NumberOfBlocks");
  const auto size = CountOf(partition, "BlockSize");
  std::uint64_t bytes = 0;
  const bool isKnown = blocks && size && !__builtin_mul_overflow(*blocks, *size, &bytes);
  return {Listed({device, isKnown ? BytesText(bytes) : ""}, "  "), MountedFrom(reading, device)};
}

TSummaryLine DiskLine(const TReading& reading, const TReadInstance& disk) {
  const std::string device = TextOf(disk, "DeviceID");
  const std::string product = Listed({MakerOf(disk), TextOf(disk, "Model")}, " ");
  TSummaryLine line = {Listed({device, TextOf(disk, "Size"), product,
                               Behind("serial number", TextOf(disk, "SerialNumber"))},
                              "  "),
                       MountedFrom(reading, device)};
  for (const TReadInstance* partition : InstancesOf(reading, "CIM_DiskPartition")) {
    const std::string part = TextOf(*partition, "DeviceID");
    if (part != device && IsOfDevice(part, device))
      line.fParts.push_back(PartitionLine(reading, *partition));
  }
  return line;
}

TLines DiskLines(const TReading& reading) {
  TLines lines;
  for (const TReadInstance* disk : InstancesOf(reading, "CIM_DiskDrive"))
    lines.push_back(DiskLine(reading, *disk));
  return lines;
}

TLines NetworkLines(const TReading& reading) {
  TLines lines;
  for (const TReadInstance* port : InstancesOf(reading, "CIM_EthernetPort")) {
    lines.push_back({Listed({TextOf(*port, "DeviceID"), TextOf(*port, "OperationalStatus"),
                             TextOf(*port, "Speed"), TextOf(*port, "PermanentAddress")},
                            "  "),
                     {}});
  }
  return lines;
}

TLines PCILines(const TReading& reading) {
  constexpr std::size_t kMost = 8;
  TLines lines;
  std::size_t count = 0;
  for (const TReadInstance* device : InstancesOf(reading, "CIM_PCIDevice")) {
    const std::string name = Listed({MakerOf(*device), TextOf(*device, "Name")}, " ");
    const std::string kind = TextOf(*device, "Caption");
    // Bridges make up half of a machine, and nobody asks for them.
    if (TextOf(*device, "Name").empty() || kind.find("bridge") != std::string::npos) continue;
    if (++count <= kMost) lines.push_back({kind.empty() ? name : kind + ": " + name, {}});
  }
  if (count > kMost)
    lines.push_back(
        {"and " + std::to_string(count - kMost) + " more: hwx show --class CIM_PCIDevice", {}});
  return lines;
}

std::optional<int> DigitsAt(const std::string& text, std::size_t start, std::size_t size) {
  int number = 0;
  for (std::size_t i = start; i < start + size; ++i) {
    if (i >= text.size() || text[i] < '0' || text[i] > '9') return std::nullopt;
    number = number * 10 + (text[i] - '0');
  }
  return number;
}

// Seconds since 1970, of a point in time.
std::optional<std::int64_t> SecondsAt(const std::string& text) {
  const auto year = DigitsAt(text, 0, 4), month = DigitsAt(text, 4, 2), day = DigitsAt(text, 6, 2);
  const auto hour = DigitsAt(text, 8, 2), minute = DigitsAt(text, 10, 2),
             second = DigitsAt(text, 12, 2);
  const auto offset = DigitsAt(text, 22, 3);
  const bool isPoint = text.size() == 25 && (text[21] == '+' || text[21] == '-');
  if (!isPoint || !year || !month || !day || !hour || !minute || !second || !offset)
    return std::nullopt;
  std::tm time{};
  time.tm_year = *year - 1900;
  time.tm_mon = *month - 1;
  time.tm_mday = *day;
  time.tm_hour = *hour;
  time.tm_min = *minute;
  time.tm_sec = *second;
  return ::timegm(&time) - (text[21] == '+' ? 60 : -60) * std::int64_t{*offset};
}

}  // namespace

std::string UpTime(const std::string& start, const std::string& now) {
  const auto from = SecondsAt(start);
  const auto to = SecondsAt(now);
  if (!from || !to || *to < *from) return std::string();
  const std::int64_t minutes = (*to - *from) / 60;
  const std::int64_t hours = minutes / 60;
  if (hours == 0) return std::to_string(minutes) + " min";
  if (hours < 24) return std::to_string(hours) + " h " + std::to_string(minutes % 60) + " min";
  return Number(static_cast<std::uint64_t>(hours / 24), "day", "days") + " " +
         std::to_string(hours % 24) + " h";
}

std::vector<TSummarySection> Summarize(const TIdentity& identity, const TReading& reading) {
  std::vector<TSummarySection> sections = {{"Machine", MachineLines(identity, reading)},
                                           {"Firmware", FirmwareLines(reading)},
                                           {"System", SystemLines(identity, reading)},
                                           {"Processors", ProcessorLines(reading)},
                                           {"Memory", MemoryLines(reading)},
                                           {"Disks", DiskLines(reading)},
                                           {"Network", NetworkLines(reading)},
                                           {"PCI devices", PCILines(reading)}};
  const auto isEmpty = [](const TSummarySection& section) { return section.fLines.empty(); };
  sections.erase(std::remove_if(sections.begin(), sections.end(), isEmpty), sections.end());
  return sections;
}

}  // namespace hwx
