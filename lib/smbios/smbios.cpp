#include "smbios/smbios.h"

#include <cstring>
#include <exception>
#include <memory>
#include <optional>
#include <utility>

#include "smbios/TTables.h"
#include "smbios/TableReader.h"

namespace {

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
    if (tables->IsSound()) {
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
  const std::optional<smbios::TStructure> structure =
      static_cast<const smbios::TTables*>(handle)->FindFirst(type);
  if (!structure) {
    return {kSmBiosNoStructure};
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
