// Files that are there whole or not at all. Thread-safety: a function without state.

#ifndef HWX_SYSTEM_WHOLEFILE_H
#define HWX_SYSTEM_WHOLEFILE_H

#include <string>

namespace hwx {

/// Writes a file that only its owner may read. Its bytes are on the disk before it gets its name,
/// so that nobody ever sees a part of it. If `path` is there already it is left as it was and
/// `TFailure` thrown, unless `replaces` is set and it is a regular file. Throws `TFailure` on any
/// other failure too; `path` is then as it was.
void WriteWholeFile(const std::string& path, const std::string& bytes, bool replaces);

}  // namespace hwx

#endif  // HWX_SYSTEM_WHOLEFILE_H
