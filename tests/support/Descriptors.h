#ifndef HWXTESTS_SUPPORT_DESCRIPTORS_H
#define HWXTESTS_SUPPORT_DESCRIPTORS_H

#include <sys/resource.h>

#include <cstddef>
#include <filesystem>
#include <iterator>

namespace hwxtest {

/// How many descriptors this process has open, the one that it looks with among them.
inline std::size_t OpenDescriptors() {
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(descriptors), end(descriptors)));
}

/// Lets this process have up to `count` descriptors open. False if it may not. UBSan opens a pipe
/// the first time it meets an object of a type: where nothing is left to open, what is tested has
/// to have met the same types before.
inline bool LimitDescriptors(rlim_t count) {
  rlimit limit{};
  ::getrlimit(RLIMIT_NOFILE, &limit);
  limit.rlim_cur = count;
  return ::setrlimit(RLIMIT_NOFILE, &limit) == 0;
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_DESCRIPTORS_H
