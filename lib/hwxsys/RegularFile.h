// Reading files that may be anything. Thread-safety: functions without state.

#ifndef HWXSYS_REGULARFILE_H
#define HWXSYS_REGULARFILE_H

#include <cstddef>
#include <string>

namespace hwxsys {

/// Reads a regular file into `bytes`. Returns 0, or the operating system's error: that of a call,
/// else EISDIR for a directory, EINVAL for anything else that is no regular file, and EFBIG for
/// more than `limit` bytes. `bytes` holds then what was read before, at most `limit` bytes.
///
/// Never waits: a pipe that stands in the file's place isn't read.
int ReadRegularFile(const std::string& path, std::size_t limit, std::string& bytes);

}  // namespace hwxsys

#endif  // HWXSYS_REGULARFILE_H
