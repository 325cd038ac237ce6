// Where the machine's files are looked for: below "/", or below the directory that `HWX_SYSROOT`
// names, which holds a copy of another machine's.
// Thread-safety: no state is kept. The environment is read, which no thread may change meanwhile.

#ifndef HWXSYS_SYSTEMROOT_H
#define HWXSYS_SYSTEMROOT_H

#include <string>

namespace hwxsys {

/// What stands before /sys, /proc, /etc, /usr and /run: the environment variable `HWX_SYSROOT`
/// without the "/" at its end, and so nothing for this machine. Throws `std::runtime_error`, which
/// says why, where the variable names no directory: an empty machine would be a lie.
std::string SystemRoot();

/// Where `path` leads, its links followed as if the directory that `HWX_SYSROOT` names were "/":
/// neither an absolute link nor ".." leads out of it. A path that isn't below that directory is
/// returned as it is, and the empty text for links that lead in circles.
std::string FollowedInRoot(const std::string& path);

}  // namespace hwxsys

#endif  // HWXSYS_SYSTEMROOT_H
