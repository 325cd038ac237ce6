// The text of /proc/cpuinfo, in which each architecture has words of its own.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_CPUINFO_H
#define PROVIDERS_LINUX_CPUINFO_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linux_machine {

/// What the kernel schedules on: a core, or one of the threads that a core runs at once.
struct TLogicalProcessor {
  std::uint64_t fNumber = 0;
  std::string fPackage;  ///< Equal for those of one package.
  std::string fCore;     ///< Equal for those of one core, within the package.
  std::optional<std::string> fModelName;
  std::optional<std::string> fVendor;
  std::optional<std::string> fStepping;
  std::optional<std::uint32_t> fMegaHertz;     ///< Now.
  std::optional<std::uint32_t> fMaxMegaHertz;  ///< What it can be clocked with.
  std::optional<std::uint16_t> fAddressWidth;  ///< Bits of a physical address.
  bool fIs64Bit = false;
};

struct TCpuInfo {
  /// One for each processor that has a number, also where one paragraph has several. If the text
  /// names no packages, all belong to one; if it names no cores, each is one.
  std::vector<TLogicalProcessor> fProcessors;
  /// What the text says of all processors, also where it numbers none.
  TLogicalProcessor fShared;
};

/// A paragraph that has no processor's number tells of all processors: the last one on older ARM
/// machines, and the only one on some SPARC machines.
TCpuInfo ParseCpuInfo(std::string_view text);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_CPUINFO_H
