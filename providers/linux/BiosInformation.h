// The firmware itself, as its own tables tell.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_BIOSINFORMATION_H
#define PROVIDERS_LINUX_BIOSINFORMATION_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "providers/linux/Date.h"
#include "smbios/TableWalker.h"

namespace linux_machine {

/// What the standard has for the state and the target of firmware.
constexpr std::uint16_t kRunning = 3;
constexpr std::uint16_t kAnyOperatingSystem = 66;

/// Texts are as the firmware has them.
struct TBios {
  std::string fName = "BIOS";
  std::optional<std::string> fManufacturer;
  std::optional<std::string> fVersion;
  std::optional<TDate> fReleaseDate;
  std::optional<std::uint64_t> fStartingAddress;
  std::optional<std::uint64_t> fEndingAddress;  ///< The last byte's.
  std::optional<std::vector<std::string>> fLanguages;
  std::optional<std::string> fCurrentLanguage;
};

/// What a structure of type 0, of whatever length, tells: all but the languages.
TBios ParseBios(const smbios::TStructure& structure);

/// Adds what a structure of type 13 tells.
void ParseBiosLanguages(const smbios::TStructure& structure, TBios& bios);

/// One, from the firmware's tables, else from what the kernel kept of them; none where nothing is
/// known.
std::vector<TBios> ReadBios(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_BIOSINFORMATION_H
