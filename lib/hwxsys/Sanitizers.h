// Whether a sanitizer watches the memory. Each compiler tells it in its own way.

#ifndef HWXSYS_SANITIZERS_H
#define HWXSYS_SANITIZERS_H

namespace hwxsys {

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif

}  // namespace hwxsys

#endif  // HWXSYS_SANITIZERS_H
