#include "smbios/BareTable.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "smbios/TableWalker.h"

namespace smbios {

namespace {

// How the anchors of the entry points begin.
constexpr std::string_view kAnchors[] = {"_SM3", "_SM_", "_DMI"};

// The types that the format keeps for its future versions.
constexpr int kFirstReserved = 47;
constexpr int kLastReserved = 125;

// The size of a structure of type 0: the fields of the oldest version, up to those of the latest
// with some of the maker's own.
constexpr std::size_t kLeastBiosSize = 0x12;
constexpr std::size_t kMostBiosSize = 0x30;

// A structure of this type and at least this length is of at least this version.
struct TLength {
  int fType;
  std::size_t fSize;
  int fMajor;
  int fMinor;
};

constexpr TLength kLengths[] = {
    {kTypeSystemInformation, 0x08, 2, 0}, {kTypeSystemInformation, 0x19, 2, 1},
    {kTypeSystemInformation, 0x1B, 2, 4}, {kTypeProcessor, 0x20, 2, 1},
    {kTypeProcessor, 0x23, 2, 3},         {kTypeProcessor, 0x28, 2, 5},
    {kTypeProcessor, 0x2A, 2, 6},         {kTypeProcessor, 0x30, 3, 0},
    {kTypeMemoryDevice, 0x15, 2, 1},      {kTypeMemoryDevice, 0x1B, 2, 3},
    {kTypeMemoryDevice, 0x1C, 2, 6},      {kTypeMemoryDevice, 0x22, 2, 7},
    {kTypeMemoryDevice, 0x28, 2, 8},      {kTypeMemoryDevice, 0x54, 3, 2},
    {kTypeMemoryDevice, 0x5C, 3, 3},
};

// Whether the bytes begin with so much of an anchor that it isn't chance.
bool BeginsLikeAnEntryPoint(const std::uint8_t* bytes, std::size_t size) {
  constexpr std::size_t kSize = 4;
  return size >= kSize && std::any_of(std::begin(kAnchors), std::end(kAnchors), [&](auto anchor) {
           std::size_t same = 0;
           for (std::size_t i = 0; i < kSize; ++i) {
             same += bytes[i] == static_cast<std::uint8_t>(anchor[i]) ? 1 : 0;
           }
           return same >= kSize / 2;
         });
}

bool IsPlausible(const TStructure& structure) {
  const int type = structure.Type();
  if (type == kTypeBiosInformation) {
    return structure.FormattedSize() >= kLeastBiosSize &&
           structure.FormattedSize() <= kMostBiosSize;
  }
  return type < kFirstReserved || type > kLastReserved;
}

}  // namespace

bool IsBareTable(const std::uint8_t* table, std::size_t size) {
  bool tellsOfMachine = false;
  const TWalk walk = WalkTable(table, size, 0, [&](const TStructure& structure) {
    const int type = structure.Type();
    tellsOfMachine =
        tellsOfMachine || type == kTypeBiosInformation || type == kTypeSystemInformation;
    return IsPlausible(structure);
  });
  return walk.fDamage.empty() && !walk.fStopped && tellsOfMachine &&
         !BeginsLikeAnEntryPoint(table, size);
}

TEntryPoint EntryPointOfBareTable(const std::uint8_t* table, std::size_t size) {
  std::pair<int, int> version{2, 0};
  WalkTable(table, size, 0, [&](const TStructure& structure) {
    for (const TLength& length : kLengths) {
      if (structure.Type() == length.fType && structure.FormattedSize() >= length.fSize) {
        version = std::max(version, std::pair(length.fMajor, length.fMinor));
      }
    }
    return true;
  });
  TEntryPoint entryPoint;
  entryPoint.fMajor = version.first;
  entryPoint.fMinor = version.second;
  entryPoint.fTableSize = static_cast<std::uint32_t>(size);
  return entryPoint;
}

}  // namespace smbios
