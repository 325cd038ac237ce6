#include "providers/linux/FirmwareTables.h"

#include <cstdlib>

#include "providers/linux/SystemRoot.h"
#include "providers/linux/TextFile.h"
#include "smbios/TableReader.h"

namespace linux_machine {

std::optional<std::string> FirmwareText(const smbios::TStructure& structure, std::size_t offset) {
  const std::string text(structure.StringAt(offset));
  return text.empty() ? std::nullopt : std::optional(text);
}

std::optional<std::string> ReadKernelCopy(const std::string& root, const char* name) {
  if (std::getenv("HWX_SMBIOS_TABLES") != nullptr) {
    return std::nullopt;
  }
  std::optional<std::string> text = ReadAttribute(root + "/sys/class/dmi/id/" + name);
  return text && text->empty() ? std::nullopt : text;
}

smbios::TTables ReadFirmwareTables(const std::string& root) {
  return smbios::ReadTables(FollowedInRoot(smbios::TablesLocation(root)));
}

}  // namespace linux_machine
