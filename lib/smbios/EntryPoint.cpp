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
  entryPoint.fSize = k32BitEntryPointSize;
  entryPoint.fMajor = bytes[6];
  entryPoint.fMinor = bytes[7];
  entryPoint.f64Bit = false;
  entryPoint.fTableSize = static_cast<std::uint32_t>(Number(bytes + 0x16, 2));
  entryPoint.fTableAddress = Number(bytes + 0x18, 4);
  entryPoint.fStructureCount = static_cast<std::size_t>(Number(bytes + 0x1C, 2));
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
  entryPoint.fSize = length;
  entryPoint.fMajor = bytes[7];
  entryPoint.fMinor = bytes[8];
  entryPoint.f64Bit = true;
  entryPoint.fTableSize = static_cast<std::uint32_t>(Number(bytes + 0x0C, 4));
  entryPoint.fTableAddress = Number(bytes + 0x10, 8);
  entryPoint.fStructureCount = 0;
  return std::string();
}

}  // namespace

std::string ParseEntryPoint(const std::uint8_t* bytes, std::size_t size, TEntryPoint& entryPoint) {
  if (HasAnchor(bytes, size, "_SM3_")) {
    return Parse64Bit(bytes, size, entryPoint);
  }
  if (HasAnchor(bytes, size, "_SM_")) {
    return Parse32Bit(bytes, size, entryPoint);
  }
  return size == 0 ? "the entry point is empty" : "no entry point is known by its first bytes";
}

}  // namespace smbios
