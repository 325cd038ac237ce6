#include "smbios/EntryPoint.h"

#include <cstring>
#include <numeric>

namespace smbios {

namespace {

// Version 2.1 of the format told one byte too few for the length field, and makers followed it.
constexpr std::size_t k32BitSizeOf21 = 0x1E;
constexpr std::size_t kInnerOffset = 0x10;
constexpr std::size_t kInnerSize = k32BitEntryPointSize - kInnerOffset;

bool HasAnchor(const std::uint8_t* bytes, std::size_t size, const char* anchor) {
  const std::size_t length = std::strlen(anchor);
  return size >= length && std::memcmp(bytes, anchor, length) == 0;
}

// The bytes of a record, its checksum among them, add up to 0.
bool HasValidSum(const std::uint8_t* bytes, std::size_t size) {
  return std::accumulate(bytes, bytes + size, 0u) % 256 == 0;
}

std::uint64_t Number(const std::uint8_t* bytes, std::size_t width) {
  std::uint64_t value = 0;
  for (std::size_t i = width; i > 0; --i) {
    value = value << 8 | bytes[i - 1];
  }
  return value;
}

// Of the forms that tell the table's size in two bytes and its structures: "_DMI_", alone or within
// the 32-bit form.
void ParseTablePlace(const std::uint8_t* bytes, TEntryPoint& entryPoint) {
  entryPoint.fTableSize = static_cast<std::uint32_t>(Number(bytes + 0x06, 2));
  entryPoint.fTableAddress = Number(bytes + 0x08, 4);
  entryPoint.fStructureCount = static_cast<std::size_t>(Number(bytes + 0x0C, 2));
}

// 31 and 33 stand for 2.3, and 51 for 2.6.
int MeantMinor(int major, int minor) {
  if (major != 2) {
    return minor;
  }
  return minor == 31 || minor == 33 ? 3 : minor == 51 ? 6 : minor;
}

std::string ParseLegacy(const std::uint8_t* bytes, std::size_t size, TEntryPoint& entryPoint) {
  if (size < kLegacyEntryPointSize) {
    return "the entry point is truncated";
  }
  if (!HasValidSum(bytes, kLegacyEntryPointSize)) {
    return "the entry point's checksum is wrong";
  }
  entryPoint.fForm = EEntryPointForm::kLegacy;
  entryPoint.fSize = kLegacyEntryPointSize;
  entryPoint.fMajor = bytes[0x0E] >> 4;  // a digit in each half
  entryPoint.fMinor = bytes[0x0E] & 0x0F;
  ParseTablePlace(bytes, entryPoint);
  return std::string();
}

std::string Parse32Bit(const std::uint8_t* bytes, std::size_t size, TEntryPoint& entryPoint) {
  if (size < k32BitEntryPointSize) {
    return "the entry point is truncated";
  }
  const std::size_t length = bytes[5];
  if (length < k32BitSizeOf21 || length > size) {
    return "the entry point's length is wrong";
  }
  if (!HasValidSum(bytes, length)) {
    return "the entry point's checksum is wrong";
  }
  const std::uint8_t* inner = bytes + kInnerOffset;
  if (!HasAnchor(inner, kInnerSize, "_DMI_")) {
    return "the entry point lacks its inner anchor";
  }
  if (!HasValidSum(inner, kInnerSize)) {
    return "the entry point's inner checksum is wrong";
  }
  entryPoint.fForm = EEntryPointForm::k32Bit;
  entryPoint.fSize = k32BitEntryPointSize;
  entryPoint.fMajor = bytes[6];
  entryPoint.fMinor = MeantMinor(bytes[6], bytes[7]);
  ParseTablePlace(inner, entryPoint);
  return std::string();
}

std::string Parse64Bit(const std::uint8_t* bytes, std::size_t size, TEntryPoint& entryPoint) {
  if (size < k64BitEntryPointSize) {
    return "the entry point is truncated";
  }
  const std::size_t length = bytes[6];
  if (length < k64BitEntryPointSize || length > size) {
    return "the entry point's length is wrong";
  }
  if (!HasValidSum(bytes, length)) {
    return "the entry point's checksum is wrong";
  }
  entryPoint.fForm = EEntryPointForm::k64Bit;
  entryPoint.fSize = length;
  entryPoint.fMajor = bytes[7];
  entryPoint.fMinor = bytes[8];
  entryPoint.fTableSize = static_cast<std::uint32_t>(Number(bytes + 0x0C, 4));
  entryPoint.fTableAddress = Number(bytes + 0x10, 8);
  entryPoint.fStructureCount = 0;
  return std::string();
}

}  // namespace

EEntryPointForm EntryPointForm(const std::uint8_t* bytes, std::size_t size) {
  if (HasAnchor(bytes, size, "_SM3_")) {
    return EEntryPointForm::k64Bit;
  }
  if (HasAnchor(bytes, size, "_SM_")) {
    return EEntryPointForm::k32Bit;
  }
  return HasAnchor(bytes, size, "_DMI_") ? EEntryPointForm::kLegacy : EEntryPointForm::kNone;
}

std::string ParseEntryPoint(const std::uint8_t* bytes, std::size_t size, TEntryPoint& entryPoint) {
  switch (EntryPointForm(bytes, size)) {
    case EEntryPointForm::k64Bit:
      return Parse64Bit(bytes, size, entryPoint);
    case EEntryPointForm::k32Bit:
      return Parse32Bit(bytes, size, entryPoint);
    case EEntryPointForm::kLegacy:
      return ParseLegacy(bytes, size, entryPoint);
    case EEntryPointForm::kNone:
      break;
  }
  return size == 0 ? "the entry point is empty" : "no entry point is known by its first bytes";
}

}  // namespace smbios
