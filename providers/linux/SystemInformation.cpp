#include "providers/linux/SystemInformation.h"

#include <algorithm>
#include <array>

#include "providers/linux/FirmwareTables.h"
#include "smbios/TableReader.h"

namespace linux_machine {

namespace {

// Where the fields stand in the structure.
constexpr std::size_t kManufacturer = 0x04;
constexpr std::size_t kProductName = 0x05;
constexpr std::size_t kVersion = 0x06;
constexpr std::size_t kSerialNumber = 0x07;
constexpr std::size_t kUUID = 0x08;
constexpr std::size_t kUUIDSize = 16;
constexpr std::size_t kSKUNumber = 0x19;
constexpr std::size_t kFamily = 0x1A;

// From version 2.6 on the format has the first three groups of the UUID lowest byte first.
bool HasSwappedUUID(int major, int minor) {
  return major > 2 || (major == 2 && minor >= 6);
}

std::string FormatUUID(const std::array<std::uint8_t, kUUIDSize>& bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) {
      text += '-';
    }
    text += kDigits[bytes[i] / 16];
    text += kDigits[bytes[i] % 16];
  }
  return text;
}

std::optional<std::string> ParseUUID(const smbios::TStructure& structure, bool swapped) {
  if (!structure.HasField(kUUID, kUUIDSize + 1)) {  // with what woke the machine
    return std::nullopt;
  }
  std::array<std::uint8_t, kUUIDSize> bytes;
  std::copy_n(structure.Bytes() + kUUID, kUUIDSize, bytes.begin());
  const auto count = [&bytes](int value) { return std::count(bytes.begin(), bytes.end(), value); };
  if (count(0x00) == kUUIDSize || count(0xFF) == kUUIDSize) {
    return std::nullopt;  // the format's ways to say that there is none
  }
  if (swapped) {
    std::reverse(bytes.begin(), bytes.begin() + 4);
    std::reverse(bytes.begin() + 4, bytes.begin() + 6);
    std::reverse(bytes.begin() + 6, bytes.begin() + 8);
  }
  return FormatUUID(bytes);
}

// The kernel keeps these even where it doesn't hand out the tables. The serial number and the UUID
// it shows to root alone.
TSystemInformation ReadKernelCopies(const std::string& root) {
  TSystemInformation information;
  information.fManufacturer = KernelCopy(root, "sys_vendor");
  information.fProductName = KernelCopy(root, "product_name");
  information.fVersion = KernelCopy(root, "product_version");
  information.fSerialNumber = KernelCopy(root, "product_serial");
  information.fUUID = KernelCopy(root, "product_uuid");
  information.fSKUNumber = KernelCopy(root, "product_sku");
  information.fFamily = KernelCopy(root, "product_family");
  return information;
}

}  // namespace

TSystemInformation ParseSystemInformation(const smbios::TStructure& structure, int major,
                                          int minor) {
  TSystemInformation information;
  information.fManufacturer = FirmwareText(structure, kManufacturer);
  information.fProductName = FirmwareText(structure, kProductName);
  information.fVersion = FirmwareText(structure, kVersion);
  information.fSerialNumber = FirmwareText(structure, kSerialNumber);
  information.fUUID = ParseUUID(structure, HasSwappedUUID(major, minor));
  if (structure.HasField(kSKUNumber, 2)) {
    information.fSKUNumber = FirmwareText(structure, kSKUNumber);
    information.fFamily = FirmwareText(structure, kFamily);
  }
  return information;
}

TSystemInformation ReadSystemInformation(const std::string& root) {
  const std::string location = smbios::TablesLocation(root);
  const smbios::TTables tables = smbios::ReadTables(location);
  const auto structure = tables.FindFirst(smbios::kTypeSystemInformation);
  TSystemInformation information;
  if (structure) {
    const smbios::TEntryPoint& entryPoint = tables.EntryPoint();
    information = ParseSystemInformation(*structure, entryPoint.fMajor, entryPoint.fMinor);
  } else {
    information = ReadKernelCopies(root);
  }
  const std::string fault = smbios::WhyUnsound(tables, location);
  if (!fault.empty()) {
    information.fFirmwareStatus = fault;
  } else if (!structure) {
    information.fFirmwareStatus =
        "no system information: " + location + " has no structure of type 1";
  }
  return information;
}

}  // namespace linux_machine
