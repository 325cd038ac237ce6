// The caches of the machine's processors, as the kernel shows them.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_CACHES_H
#define PROVIDERS_LINUX_CACHES_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "providers/linux/ProcessorParts.h"

namespace linux_machine {

/// Numbers that stand for a kind are those of CIM_AssociatedCacheMemory's value maps.
struct TCache {
  std::string fDeviceID;  ///< "L1 Data Cache 0"
  std::string fName;      ///< "L1 Data Cache"
  std::uint16_t fLevel = 0;
  std::optional<std::string> fLevelName;  ///< For levels that CIM has no number for: "L4".
  std::uint16_t fType = 0;
  std::optional<std::uint16_t> fWritePolicy;
  std::optional<std::uint16_t> fAssociativity;
  std::optional<std::string> fAssociativityName;  ///< For a number of ways that CIM hasn't.
  std::optional<std::uint32_t> fLineSize;         ///< Bytes.
  std::optional<std::uint64_t> fSize;             ///< Bytes.
  std::vector<std::string> fCores;       ///< Those that it serves, by their `fInstanceID`; or else
  std::vector<std::string> fProcessors;  ///< the processors, where it serves whole ones.
};

/// The bytes of "48K", "2M" or "512".
std::optional<std::uint64_t> ParseCacheSize(std::string_view text);

/// The numbers of "0-3,8,10-11"; none of anything else, and of more than a million.
std::vector<std::uint64_t> ParseNumberList(std::string_view text);

/// The caches of the machine whose /proc and /sys lie below `root`.
std::vector<TCache> ReadCaches(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_CACHES_H
