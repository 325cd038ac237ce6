// Which sanitizer the tests are built with: g++ tells it by a macro, clang when asked.

#ifndef HWXTESTS_SUPPORT_SANITIZERS_H
#define HWXTESTS_SUPPORT_SANITIZERS_H

#if defined(__SANITIZE_ADDRESS__)
#define HWXTESTS_ADDRESS_SANITIZER
#elif defined(__SANITIZE_THREAD__)
#define HWXTESTS_THREAD_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HWXTESTS_ADDRESS_SANITIZER
#elif __has_feature(thread_sanitizer)
#define HWXTESTS_THREAD_SANITIZER
#endif
#endif

#endif  // HWXTESTS_SUPPORT_SANITIZERS_H
