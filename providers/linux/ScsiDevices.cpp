#include "providers/linux/ScsiDevices.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <set>
#include <tuple>
#include <utility>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

// In the order of the numbers of the SCSI standards.
constexpr std::string_view kDeviceTypes[] = {
    "Direct Access",    "Sequential Access",  "Printer",
    "Processor",        "Write Once",         "CD-ROM",
    "Scanner",          "Optical Memory",     "Medium Changer",
    "Communications",   "Graphic Arts",       "Graphic Arts",
    "Storage Array",    "Enclosure Services", "Simplified Direct Access",
    "Optical Card",     "Bridge Controller",  "Object Storage",
    "Automation Drive", "Security Manager",   "Zoned Block",
};
constexpr std::uint64_t kWellKnownLogicalUnit = 0x1E;

// Takes the number up to the next ":" off the text, and the ":" with it.
std::optional<std::uint64_t> TakePart(std::string_view& text) {
  const std::string_view part = text.substr(0, text.find(':'));
  text.remove_prefix(std::min(part.size() + 1, text.size()));
  return ParseNumber(part);
}

// SCSI pads its texts with blanks to a fixed width.
std::optional<std::string> ReadInquiryText(const std::string& path) {
  const std::optional<std::string> text = ReadAttribute(path);
  return text ? std::optional(WithoutTrailingBlanks(*text)) : std::nullopt;
}

std::string DeviceID(const std::string& directory, const std::string& address) {
  for (const char* driver : {"/block", "/scsi_generic"}) {
    const std::vector<std::string> names = ListDirectory(directory + driver);
    if (!names.empty()) {
      return "/dev/" + names.front();
    }
  }
  return address;
}

TScsiDevice ReadDevice(const std::string& devices, const std::string& name,
                       const TScsiAddress& address) {
  const std::string directory = devices + "/" + name;
  TScsiDevice device;
  device.fAddress = address;
  device.fDeviceID = DeviceID(directory, name);
  if (const std::optional<std::uint64_t> type = ReadNumber(directory + "/type")) {
    device.fDeviceType = ScsiDeviceType(*type);
  }
  device.fVendorID = ReadInquiryText(directory + "/vendor");
  device.fProductID = ReadInquiryText(directory + "/model");
  device.fRevision = ReadInquiryText(directory + "/rev");
  return device;
}

}  // namespace

bool TScsiAddress::operator<(const TScsiAddress& other) const {
  return std::tie(fHost, fChannel, fTarget, fLUN) <
         std::tie(other.fHost, other.fChannel, other.fTarget, other.fLUN);
}

std::optional<TScsiAddress> ParseScsiAddress(std::string_view text) {
  if (std::count(text.begin(), text.end(), ':') != 3) {
    return std::nullopt;
  }
  TScsiAddress address;
  for (std::uint32_t* part : {&address.fHost, &address.fChannel, &address.fTarget}) {
    const std::optional<std::uint64_t> number = TakePart(text);
    if (!number || *number > std::numeric_limits<std::uint32_t>::max()) {
      return std::nullopt;
    }
    *part = static_cast<std::uint32_t>(*number);
  }
  const std::optional<std::uint64_t> lun = TakePart(text);
  if (!lun) {
    return std::nullopt;
  }
  address.fLUN = *lun;
  return address;
}

std::string ScsiDeviceType(std::uint64_t number) {
  std::string_view kind = "Unknown";
  if (number < std::size(kDeviceTypes)) {
    kind = kDeviceTypes[number];
  } else if (number == kWellKnownLogicalUnit) {
    kind = "Well Known Logical Unit";
  }
  return std::string(kind) + " Device";
}

std::vector<TScsiDevice> ReadScsiDevices(const std::string& root) {
  const std::string directory = root + "/sys/bus/scsi/devices";
  std::vector<std::pair<TScsiAddress, std::string>> entries;
  for (const std::string& name : ListDirectory(directory)) {
    if (const std::optional<TScsiAddress> address = ParseScsiAddress(name)) {
      entries.emplace_back(*address, name);
    }
  }
  std::sort(entries.begin(), entries.end());

  std::vector<TScsiDevice> devices;
  std::set<std::string> identifiers;
  for (const auto& [address, name] : entries) {
    TScsiDevice device = ReadDevice(directory, name, address);
    if (!identifiers.insert(device.fDeviceID).second) {
      device.fDeviceID = name;  // only in a copied /sys do two devices have one identifier
      identifiers.insert(name);
    }
    devices.push_back(std::move(device));
  }
  return devices;
}

}  // namespace linux_machine
