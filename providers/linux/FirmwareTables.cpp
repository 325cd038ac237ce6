#include "providers/linux/FirmwareTables.h"

#include "hwxsys/KernelCopy.h"
#include "hwxsys/SystemRoot.h"
#include "smbios/TableReader.h"

namespace linux_machine {

std::optional<std::string> FirmwareText(const smbios::TStructure& structure, std::size_t offset) {
  const std::string text(structure.StringAt(offset));
  return text.empty() ? std::nullopt : std::optional(text);
}

std::optional<std::string> KernelCopy(const std::string& root, const char* name) {
  if (hwxsys::IsOtherFirmware()) {
    return std::nullopt;
  }
  const hwxsys::TKernelCopy copy = hwxsys::ReadKernelCopy(root, name);
  return copy.fText.empty() ? std::nullopt : std::optional(copy.fText);
}

smbios::TTables ReadFirmwareTables(const std::string& root) {
  return smbios::ReadTables(hwxsys::FollowedInRoot(smbios::TablesLocation(root)));
}

}  // namespace linux_machine
