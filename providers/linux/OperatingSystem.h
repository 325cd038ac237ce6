// The running operating system: distribution, kernel, memory, users, processes.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_OPERATINGSYSTEM_H
#define PROVIDERS_LINUX_OPERATINGSYSTEM_H

#include <cstdint>
#include <optional>
#include <string>

#include "providers/linux/KernelStatistics.h"

namespace linux_machine {

struct TOperatingSystem {
  std::string fName;  ///< What people call it; "Linux" where no distribution tells.
  std::optional<std::string> fVersion;  ///< The distribution's, else the kernel's release.
  std::optional<std::string> fDescription;
  std::optional<std::string> fKernelRelease;
  std::optional<std::uint64_t> fBootTime;  ///< Seconds since 1970, UTC.
  TMemory fMemory;
  std::optional<std::uint32_t> fUsers;  ///< Login sessions.
  std::optional<std::uint32_t> fProcesses;
  std::optional<std::uint32_t> fMaxProcesses;
};

/// Reads the system whose /proc, /etc, /usr and /run lie below `root`; "" is the one that runs
/// here.
TOperatingSystem ReadOperatingSystem(const std::string& root);

/// The machine's host name: what the kernel says, else /etc/hostname, else "(none)", which is what
/// the kernel calls a machine that nobody gave a name.
std::string ReadHostName(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_OPERATINGSYSTEM_H
