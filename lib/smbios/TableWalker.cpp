#include "smbios/TableWalker.h"

#include <algorithm>

namespace smbios {

namespace {

constexpr std::size_t kHeaderSize = 4;  // type, length, handle

// Bytes of the structure whose formatted area of `formattedSize` bytes lies within `size` bytes,
// its two closing NUL bytes included. 0 when nothing closes it.
std::size_t StructureSize(const std::uint8_t* bytes, std::size_t formattedSize, std::size_t size) {
  static constexpr std::uint8_t kClosing[] = {0, 0};
  const std::uint8_t* end = bytes + size;
  const std::uint8_t* closing =
      std::search(bytes + formattedSize, end, std::begin(kClosing), std::end(kClosing));
  return closing == end ? 0 : static_cast<std::size_t>(closing - bytes) + sizeof kClosing;
}

std::string Damage(std::size_t index, std::size_t offset, const char* what) {
  return "structure " + std::to_string(index) + " at byte " + std::to_string(offset) + " " + what;
}

}  // namespace

std::uint64_t TStructure::Field(std::size_t offset, std::size_t width) const {
  if (!HasField(offset, width)) {
    return 0;
  }
  std::uint64_t value = 0;
  for (std::size_t i = width; i > 0; --i) {
    value = value << 8 | fBytes[offset + i - 1];
  }
  return value;
}

std::vector<std::string_view> TStructure::Strings() const {
  std::vector<std::string_view> strings;
  if (!HasStrings()) {
    return strings;
  }
  const std::uint8_t* end = fBytes + fSize - 1;  // each string, the last too, has its NUL before it
  for (const std::uint8_t* start = fBytes + fFormattedSize; start != end;) {
    const std::uint8_t* nul = std::find(start, end, std::uint8_t{0});
    strings.emplace_back(reinterpret_cast<const char*>(start),
                         static_cast<std::size_t>(nul - start));
    start = nul + 1;
  }
  return strings;
}

std::string_view TStructure::String(std::size_t number) const {
  const std::vector<std::string_view> strings = Strings();
  return number == 0 || number > strings.size() ? std::string_view() : strings[number - 1];
}

TWalk WalkTable(const std::uint8_t* table, std::size_t size, std::size_t countLimit,
                const TVisitor& visit) {
  TWalk walk;
  while (!walk.fEnded && !walk.fStopped && walk.fOffset < size) {
    const std::uint8_t* bytes = table + walk.fOffset;
    const std::size_t left = size - walk.fOffset;
    if (left < kHeaderSize) {
      walk.fDamage = Damage(walk.fCount, walk.fOffset, "ends within its header");
      return walk;
    }
    const std::size_t formattedSize = bytes[1];
    if (formattedSize < kHeaderSize) {
      walk.fDamage = Damage(walk.fCount, walk.fOffset, "is shorter than its header");
      return walk;
    }
    if (formattedSize > left) {
      walk.fDamage = Damage(walk.fCount, walk.fOffset, "runs past the end of the table");
      return walk;
    }
    const std::size_t structureSize = StructureSize(bytes, formattedSize, left);
    if (structureSize == 0) {
      walk.fDamage = Damage(walk.fCount, walk.fOffset, "has strings without an end");
      return walk;
    }
    const TStructure structure(bytes, formattedSize, structureSize);
    walk.fStopped = !visit(structure);
    ++walk.fCount;
    walk.fOffset += structureSize;
    walk.fEnded = structure.Type() == kTypeEndOfTable || walk.fCount == countLimit;
  }
  return walk;
}

}  // namespace smbios
