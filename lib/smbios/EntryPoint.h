// The SMBIOS entry point: the small record that tells where the structure table lies and how large
// it is. Parsing is a plain function over bytes, which may be anything.
// Thread-safety: no state is kept.

#ifndef SMBIOS_ENTRYPOINT_H
#define SMBIOS_ENTRYPOINT_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "hwxbase/Export.h"

namespace smbios {

/// Bytes of the three forms, as far as the format defines them.
constexpr std::size_t kLegacyEntryPointSize = 0x0F;
constexpr std::size_t k32BitEntryPointSize = 0x1F;
constexpr std::size_t k64BitEntryPointSize = 0x18;

/// The forms of an entry point, by their anchors.
enum class EEntryPointForm {
  kNone,    ///< There is none.
  kLegacy,  ///< "_DMI_" alone, from before version 2.1 of the format.
  k32Bit,   ///< "_SM_", which holds the older one.
  k64Bit    ///< "_SM3_"
};

/// What an entry point says.
struct TEntryPoint {
  EEntryPointForm fForm = EEntryPointForm::kNone;
  std::size_t fSize = 0;  ///< Bytes of the entry point itself.
  int fMajor = 0;         ///< Version of the format, such as 3.2.
  int fMinor = 0;
  std::uint64_t fTableAddress = 0;  ///< In memory; in a dump the offset from the file's start.
  std::uint32_t fTableSize = 0;     ///< Bytes; of the 64-bit form the most that there can be.
  std::size_t fStructureCount = 0;  ///< 0 when not told, as the 64-bit form never does.
};

/// The form whose anchor the `size` bytes from `bytes` begin with; nothing else is checked.
HWX_EXPORT EEntryPointForm EntryPointForm(const std::uint8_t* bytes, std::size_t size);

/// Reads the entry point of any form that begins at `bytes`; what follows it within the `size`
/// bytes isn't looked at. Anchors, lengths and checksums are checked. Never reads outside the
/// bytes.
///
/// Some makers wrote the minor version in decimal digits; `fMinor` is the one that they meant.
///
/// Returns what is wrong, in words, and leaves `entryPoint` alone; empty text means success.
HWX_EXPORT std::string ParseEntryPoint(const std::uint8_t* bytes, std::size_t size,
                                       TEntryPoint& entryPoint);

}  // namespace smbios

#endif  // SMBIOS_ENTRYPOINT_H
