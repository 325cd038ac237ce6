#ifndef FUZZ_REQUIRE_H
#define FUZZ_REQUIRE_H

#include <cstdlib>

namespace fuzz {

/// Ends the process, which a fuzzer takes for a crash, unless the condition holds.
inline void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace fuzz

#endif  // FUZZ_REQUIRE_H
