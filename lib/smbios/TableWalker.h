// The walk over an SMBIOS structure table: a plain function over bytes, which may be anything.
// Thread-safety: no state is kept; the same bytes may be walked from several threads.

#ifndef SMBIOS_TABLEWALKER_H
#define SMBIOS_TABLEWALKER_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "hwxbase/Export.h"

namespace smbios {

/// Structure types of which this project reads fields. A table holds many more.
constexpr int kTypeBiosInformation = 0;
constexpr int kTypeSystemInformation = 1;
constexpr int kTypeBaseboard = 2;
constexpr int kTypeChassis = 3;
constexpr int kTypeProcessor = 4;
constexpr int kTypeBiosLanguage = 13;
constexpr int kTypeMemoryArray = 16;
constexpr int kTypeMemoryDevice = 17;
constexpr int kTypeManagementDevice = 34;
constexpr int kTypeEndOfTable = 127;

/// One structure of a table: a view of bytes that somebody else owns and that must outlive it. Only
/// the walk makes one, after it has checked that the structure is whole.
///
/// No operation fails: a field or string that the structure doesn't have reads as 0 or as empty
/// text, since every version of the format appended fields to the structures of the one before.
///
/// Thread-safety: a plain value over bytes that nobody changes.
class HWX_EXPORT TStructure {
 public:
  /// `size` bytes from `bytes`: a formatted area of `formattedSize` bytes, at least 4, then the
  /// strings and the two NUL bytes that close the structure. `formattedSize` need not be what the
  /// structure itself says: see `WalkTable`.
  TStructure(const std::uint8_t* bytes, std::size_t formattedSize, std::size_t size)
      : fBytes(bytes), fFormattedSize(formattedSize), fSize(size) {}

  std::uint8_t Type() const { return fBytes[0]; }
  std::uint16_t Handle() const { return Word(2); }

  /// The whole structure, from its type byte to the second of the closing NUL bytes.
  const std::uint8_t* Bytes() const { return fBytes; }
  std::size_t Size() const { return fSize; }

  /// Bytes in the formatted area, the header of four bytes included.
  std::size_t FormattedSize() const { return fFormattedSize; }

  /// The field at a byte offset from the structure's start, in the format's byte order (lowest
  /// first). 0 when the field doesn't lie wholly in the formatted area.
  std::uint8_t Byte(std::size_t offset) const {
    return static_cast<std::uint8_t>(Field(offset, 1));
  }
  std::uint16_t Word(std::size_t offset) const {
    return static_cast<std::uint16_t>(Field(offset, 2));
  }
  std::uint32_t DWord(std::size_t offset) const {
    return static_cast<std::uint32_t>(Field(offset, 4));
  }
  std::uint64_t QWord(std::size_t offset) const { return Field(offset, 8); }

  /// Whether a field of `width` bytes lies wholly in the formatted area.
  bool HasField(std::size_t offset, std::size_t width) const {
    return offset <= fFormattedSize && width <= fFormattedSize - offset;
  }

  bool HasStrings() const { return fSize > fFormattedSize + 2; }

  /// The string numbered from 1, byte for byte as the firmware has it: neither trimmed nor in any
  /// certain encoding. Empty for number 0, which says "none", and for a number past the last.
  std::string_view String(std::size_t number) const;

  /// The string whose number stands in the byte at `offset`.
  std::string_view StringAt(std::size_t offset) const { return String(Byte(offset)); }

  /// All strings, in order.
  std::vector<std::string_view> Strings() const;

 private:
  std::uint64_t Field(std::size_t offset, std::size_t width) const;

  const std::uint8_t* fBytes;
  std::size_t fFormattedSize;
  std::size_t fSize;
};

/// How a walk ended.
struct TWalk {
  std::size_t fCount = 0;   ///< Structures that were visited.
  std::size_t fOffset = 0;  ///< Byte behind the last of them; where the damage begins, if there is.
  bool fEnded = false;      ///< The end marker or the last structure of the count was reached.
  bool fStopped = false;    ///< The visitor asked to stop.
  std::string fDamage;  ///< Why no further structure could be read. Empty when nothing is wrong.
};

/// Called with each structure; false ends the walk.
using TVisitor = std::function<bool(const TStructure&)>;

/// Visits the structures in the `size` bytes from `table` in order, the end marker (type 127)
/// included, until the marker, the end of the bytes, damage, or the visitor ends it. Never reads
/// outside the bytes. An exception of the visitor passes through.
///
/// `countLimit`: how many structures there are, 0 when nobody tells. Where somebody tells, the walk
/// ends with the last of them, and not with the marker: some makers put structures behind it and
/// count them.
///
/// Damage is a header or formatted area that runs past the end, a formatted area shorter than its
/// own header, and strings that two NUL bytes don't close. The structures in front of it are
/// visited. Behind the marker nothing is damage: it ends the walk.
///
/// Structures of type 34 are known to tell the length of a later version than they are of, and so
/// take in the beginning of their strings. Where text stands in the place of the later fields, the
/// structure is taken to end in front of it.
HWX_EXPORT TWalk WalkTable(const std::uint8_t* table, std::size_t size, std::size_t countLimit,
                           const TVisitor& visit);

}  // namespace smbios

#endif  // SMBIOS_TABLEWALKER_H
