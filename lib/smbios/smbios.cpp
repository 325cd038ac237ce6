#include "smbios/smbios.h"

#include <cstring>
#include <exception>
#include <memory>
#include <optional>
#include <utility>

#include "smbios/TTables.h"
#include "smbios/TableReader.h"

namespace {

// Whether a handle is given for the tables. Damage behind the structures that say who the machine
// is, and whose firmware it has, costs only what lies behind it.
bool CanBeAsked(const smbios::TTables& tables) {
  return tables.IsSound() || (tables.FindFirst(smbios::kTypeBiosInformation) &&
                              tables.FindFirst(smbios::kTypeSystemInformation));
}

// Bytes of the structure as it is copied out.
std::size_t CopiedSize(const smbios::TStructure& structure) {
  return structure.Size() + (structure.HasStrings() ? 1 : 0);
}

}  // namespace

TSmBiosStatus smBiosLoad(TPluginManagerProvider*, void** handle) {
  if (handle == nullptr) {
    return {kSmBiosInvalidArgument};
  }
  *handle = nullptr;
  try {
    auto tables = std::make_unique<smbios::TTables>(smbios::ReadTables(smbios::TablesLocation()));
    if (CanBeAsked(*tables)) {
      *handle = tables.release();
      return {kSmBiosOK};
    }
    return {tables->Status()};
  } catch (const std::exception&) {  // out of memory
    return {kSmBiosReadFailed};
  }
}

TSmBiosStatus smBiosGetFirst(void* handle, int type, void* buffer, int* length) {
  if (length == nullptr) {
    return {kSmBiosInvalidArgument};
  }
  const int capacity = std::exchange(*length, 0);
  if (handle == nullptr || buffer == nullptr) {
    return {kSmBiosInvalidArgument};
  }
  const auto& tables = *static_cast<const smbios::TTables*>(handle);
  const std::optional<smbios::TStructure> structure = tables.FindFirst(type);
  if (!structure) {
    return {tables.IsSound() ? kSmBiosNoStructure : kSmBiosMalformed};
  }
  const std::size_t size = CopiedSize(*structure);
  if (capacity < 0 || static_cast<std::size_t>(capacity) < size) {
    return {kSmBiosBufferTooSmall};
  }
  std::memset(buffer, 0, size);
  std::memcpy(buffer, structure->Bytes(), structure->Size());
  *length = static_cast<int>(size);
  return {kSmBiosOK};
}

TSmBiosStatus smBiosClose(void** handle) {
  if (handle == nullptr) {
    return {kSmBiosInvalidArgument};
  }
  delete static_cast<smbios::TTables*>(*handle);
  *handle = nullptr;
  return {kSmBiosOK};
}
