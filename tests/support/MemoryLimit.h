#ifndef HWXTESTS_SUPPORT_MEMORYLIMIT_H
#define HWXTESTS_SUPPORT_MEMORYLIMIT_H

#include <sys/resource.h>
#include <unistd.h>

#include <fstream>

namespace hwxtest {

/// Lets this process take no more memory than `more` bytes beyond what it has.
inline void LimitMemoryTo(rlim_t more) {
  rlim_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const rlim_t size = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + more;
  const rlimit limit{size, size};
  ::setrlimit(RLIMIT_AS, &limit);
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_MEMORYLIMIT_H
