// What the kernel and the login programs tell about the running system: the parsers of their files.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_KERNELSTATISTICS_H
#define PROVIDERS_LINUX_KERNELSTATISTICS_H

#include <cstdint>
#include <optional>
#include <string_view>

namespace linux_machine {

/// The figures of /proc/meminfo that are published, in KiB.
struct TMemory {
  std::optional<std::uint64_t> fTotal;
  std::optional<std::uint64_t> fFree;
  std::optional<std::uint64_t> fSwapTotal;
  std::optional<std::uint64_t> fSwapFree;
};

/// Reads the text of /proc/meminfo. A line that isn't a name, a number and "kB" gives nothing.
TMemory ParseMemory(std::string_view text);

/// When the system was started, in seconds since 1970, UTC, from the text of /proc/stat.
std::optional<std::uint64_t> ParseBootTime(std::string_view text);

/// The login sessions among the records of a utmp file. Bytes behind the last whole record are not
/// looked at.
std::uint32_t CountSessions(std::string_view records);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_KERNELSTATISTICS_H
