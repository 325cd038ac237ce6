#ifndef HWXCORE_OS_DETAIL_BIOSBUILDS_H
#define HWXCORE_OS_DETAIL_BIOSBUILDS_H

#include <optional>
#include <string>

namespace NQORHWX20::detail {

/// The machine type whose BIOS builds begin with `code`, two characters in lower case. Nothing for
/// other codes.
std::optional<std::string> MachineTypeOfBuild(const std::string& code);

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_OS_DETAIL_BIOSBUILDS_H
