#ifndef HWXTESTS_SUPPORT_DMIDECODE_H
#define HWXTESTS_SUPPORT_DMIDECODE_H

#include <string>

namespace hwxtest {

/// Whether this machine has dmidecode. Tests that compare with it and don't find it are skipped.
bool HasDmidecode();

/// What dmidecode prints on its standard output. `arguments` are for a shell.
std::string Dmidecode(const std::string& arguments);

/// Expects that dmidecode reads the same strings as libsmbios in the first structures of type 0 and
/// type 1 of the dump at `path`. Nothing is expected where it isn't installed, and of a dump that
/// libsmbios refuses.
void ExpectDmidecodeAgrees(const std::string& path);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_DMIDECODE_H
