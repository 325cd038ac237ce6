#include "smbios/TableWalker.h"

#include <algorithm>

namespace smbios {

namespace {

constexpr std::size_t kHeaderSize = 4;  // type, length, handle

constexpr std::size_t kManagementDeviceSize = 0x0B;
constexpr std::size_t kManagementDeviceToldSize = 0x10;  // what some makers told instead

// Bytes of the structure whose formatted area of `formattedSize` bytes lies within `size` bytes,
// its two closing NUL bytes included. 0 when nothing closes it.
std::size_t StructureSize(const std::uint8_t* bytes, std::size_t formattedSize, std::size_t size) {
  static constexpr std::uint8_t kClosing[] = {0, 0};
  const std::uint8_t* end = bytes + size;
  const std::uint8_t* closing =
      std::search(bytes + formattedSize, end, std::begin(kClosing), std::end(kClosing));
  return closing == end ? 0 : static_cast<std::size_t>(closing - bytes) + sizeof kClosing;
}

// The bytes of the structure that begins at `bytes`, `left` of which there are. Returns what is
// wrong with it, null when nothing is.
const char* MeasureStructure(const std::uint8_t* bytes, std::size_t left, std::size_t& size) {
  if (left < kHeaderSize) {
    return "ends within its header";
  }
  const std::size_t formattedSize = bytes[1];
  if (formattedSize < kHeaderSize) {
    return "is shorter than its header";
  }
  if (formattedSize > left) {
    return "runs past the end of the table";
  }
  size = StructureSize(bytes, formattedSize, left);
  return size == 0 ? "has strings without an end" : nullptr;
}

bool IsText(const std::uint8_t* first, const std::uint8_t* last) {
  return std::all_of(first, last, [](std::uint8_t byte) { return byte >= 0x20 && byte < 0x7F; });
}

// What the structure says itself, but for a length that lies.
std::size_t FormattedSize(const std::uint8_t* bytes) {
  const std::size_t told = bytes[1];
  const bool lies = bytes[0] == kTypeManagementDevice && told == kManagementDeviceToldSize &&
                    IsText(bytes + kManagementDeviceSize, bytes + told);
  return lies ? kManagementDeviceSize : told;
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
  bool isBehindMarker = false;
  while (!walk.fEnded && !walk.fStopped && walk.fOffset < size) {
    const std::uint8_t* bytes = table + walk.fOffset;
    std::size_t structureSize = 0;
    if (const char* damage = MeasureStructure(bytes, size - walk.fOffset, structureSize)) {
      walk.fEnded = isBehindMarker;
      walk.fDamage = isBehindMarker ? std::string() : Damage(walk.fCount, walk.fOffset, damage);
      return walk;
    }
    walk.fStopped = !visit(TStructure(bytes, FormattedSize(bytes), structureSize));
    ++walk.fCount;
    walk.fOffset += structureSize;
    isBehindMarker = isBehindMarker || bytes[0] == kTypeEndOfTable;
    walk.fEnded = countLimit == 0 ? isBehindMarker : walk.fCount == countLimit;
  }
  walk.fEnded = walk.fEnded || (isBehindMarker && !walk.fStopped);
  return walk;
}

}  // namespace smbios
