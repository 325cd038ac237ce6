// What the BIOS of a machine is called. Thread-safety: functions without state.

#ifndef HWXIDENTITY_BIOSBUILDS_H
#define HWXIDENTITY_BIOSBUILDS_H

#include <optional>
#include <string>

namespace hwxidentity {

/// The machine type whose BIOS builds begin with `code`, two characters in lower case. Nothing for
/// other codes.
std::optional<std::string> MachineTypeOfBuild(const std::string& code);

}  // namespace hwxidentity

#endif  // HWXIDENTITY_BIOSBUILDS_H
