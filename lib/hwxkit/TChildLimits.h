#ifndef HWXKIT_TCHILDLIMITS_H
#define HWXKIT_TCHILDLIMITS_H

#include <chrono>
#include <cstdint>

namespace NQORHWX20 {

/// What a provider may take that is read in a child.
///
/// Thread-safety: a plain value.
struct TChildLimits {
  /// For each class, and for loading and opening.
  std::chrono::milliseconds fClassTime{30000};
  /// When everything has to be done.
  std::chrono::steady_clock::time_point fDeadline = std::chrono::steady_clock::time_point::max();
  /// Bytes of data that the child may have; 0 for no limit.
  std::uint64_t fMemory = 0;
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TCHILDLIMITS_H
