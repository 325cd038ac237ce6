#include "hwx/system/MemoryLimit.h"

#include <sys/resource.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define HWX_IS_SANITIZED
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define HWX_IS_SANITIZED
#endif

namespace hwx {

void LimitMemory(std::uint64_t bytes) {
#if defined(HWX_IS_SANITIZED)
  (void)bytes;  // a sanitizer keeps account of memory in far more memory
#else
  rlimit limit;
  if (::getrlimit(RLIMIT_DATA, &limit) != 0 || limit.rlim_cur <= bytes) return;
  limit.rlim_cur = bytes;
  ::setrlimit(RLIMIT_DATA, &limit);
#endif
}

}  // namespace hwx
