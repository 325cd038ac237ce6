#include "smbios/Dump.h"

#include <numeric>

namespace smbios {

namespace {

using TBytes = std::vector<std::uint8_t>;

constexpr std::size_t kTableOffset = 32;

void PutNumber(TBytes& bytes, std::size_t offset, std::size_t width, std::uint64_t value) {
  for (std::size_t i = 0; i < width; ++i)
    bytes[offset + i] = static_cast<std::uint8_t>(value >> 8 * i);
}

// Sets the byte at `checksum` so that the bytes from `start` to the end add up to 0.
void FixChecksum(TBytes& bytes, std::size_t start, std::size_t checksum) {
  bytes[checksum] = 0;
  const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(start);
  const unsigned sum = std::accumulate(first, bytes.end(), 0u);
  bytes[checksum] = static_cast<std::uint8_t>(0x100 - sum % 0x100);
}

// The form "_DMI_", alone or within the 32-bit one.
void PlaceLegacy(TBytes& entryPoint, std::size_t start, std::size_t tableSize) {
  PutNumber(entryPoint, start + 0x06, 2, tableSize);
  PutNumber(entryPoint, start + 0x08, 4, kTableOffset);
  FixChecksum(entryPoint, start, start + 0x05);
}

// The length is written anew. Some makers give one byte too few, and others may give more than the
// entry point has here.
void Place32Bit(TBytes& entryPoint, std::size_t tableSize) {
  PutNumber(entryPoint, 0x05, 1, entryPoint.size());
  PlaceLegacy(entryPoint, 0x10, tableSize);  // first, since the outer sum takes it in
  FixChecksum(entryPoint, 0, 0x04);
}

void Place64Bit(TBytes& entryPoint, std::size_t tableSize) {
  PutNumber(entryPoint, 0x06, 1, entryPoint.size());
  PutNumber(entryPoint, 0x0C, 4, tableSize);
  PutNumber(entryPoint, 0x10, 8, kTableOffset);
  FixChecksum(entryPoint, 0, 0x05);
}

void Place(TBytes& entryPoint, EEntryPointForm form, std::size_t tableSize) {
  switch (form) {
    case EEntryPointForm::k64Bit:
      return Place64Bit(entryPoint, tableSize);
    case EEntryPointForm::k32Bit:
      return Place32Bit(entryPoint, tableSize);
    case EEntryPointForm::kLegacy:
      return PlaceLegacy(entryPoint, 0, tableSize);
    case EEntryPointForm::kNone:
      break;
  }
}

}  // namespace

TBytes MakeDump(const TTables& tables) {
  const EEntryPointForm form = tables.EntryPoint().fForm;
  const TBytes& table = tables.TableBytes();
  if (form == EEntryPointForm::kNone) {
    return table;
  }
  TBytes dump = tables.EntryPointBytes();
  Place(dump, form, table.size());
  dump.resize(kTableOffset);
  dump.insert(dump.end(), table.begin(), table.end());
  return dump;
}

}  // namespace smbios
