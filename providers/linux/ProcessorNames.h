// Names of processors that tell their maker and part by numbers alone, or their maker not at all.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_PROCESSORNAMES_H
#define PROVIDERS_LINUX_PROCESSORNAMES_H

#include <cstdint>
#include <string_view>

namespace linux_machine {

/// Who bears a number in the main ID register of ARM processors, "CPU implementer" in
/// /proc/cpuinfo; null for a number that isn't known.
const char* ArmMaker(std::uint64_t maker);

/// What that maker calls a part, "CPU part"; null for one that isn't known.
const char* ArmPartName(std::uint64_t maker, std::uint64_t part);

/// The maker of processors whose names begin like this one, where there is but one; else null.
const char* MakerByName(std::string_view name);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_PROCESSORNAMES_H
