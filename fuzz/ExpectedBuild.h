// The BIOS's build as it stands in the served table, worked out by the walk.
// Thread-safety: none.

#ifndef FUZZ_EXPECTEDBUILD_H
#define FUZZ_EXPECTEDBUILD_H

#include "FuzzedFirmware.h"

namespace fuzz {

/// The version without its brackets. Missing: there is no structure of type 0. Empty: it has no
/// version, or one that ends behind the first 100 bytes of its strings, or it is too large to read.
inline std::optional<std::string> ExpectedVersion() {
  const auto bios = Served(smbios::kTypeBiosInformation);
  if (!bios) return std::nullopt;
  if (bios->Size() + (bios->HasStrings() ? 1 : 0) > 4096) return std::string();
  std::size_t end = 0;
  const auto strings = bios->Strings();
  const std::size_t number = CopiedByte(*bios, 5);
  for (std::size_t i = 0; i < strings.size() && i < number; ++i)
    end += strings[i].size() + (i == 0 ? 0 : 1);
  std::string version = StringOf(*bios, number).value_or(std::string());
  if (end >= 100) return std::string();
  if (const auto opening = version.find('['); opening != std::string::npos)
    version = version.substr(opening + 1);
  return version.substr(0, version.find(']'));
}

/// What lies in front of the second "-" of a version, or of its only one.
inline std::string ExpectedBuild(const std::string& version) {
  const std::size_t first = version.find('-');
  const std::size_t second = first == std::string::npos ? first : version.find('-', first + 1);
  return version.substr(0, second == std::string::npos ? first : second);
}

}  // namespace fuzz

#endif  // FUZZ_EXPECTEDBUILD_H
