#ifndef CONTAINER_LIMITS_H
#define CONTAINER_LIMITS_H

#include <cstdint>

namespace container {

/// How much a container may hold. Saving keeps the same limits, so that what was saved loads.
struct TLimits {
  /// Bytes of the whole document, uncompressed: a small file can expand without end.
  std::uint64_t fDocument = std::uint64_t{1} << 30;
  /// Bytes of one declaration, class or instance, which is taken into memory whole.
  std::uint64_t fPiece = std::uint64_t{64} << 20;
  /// Weight, as in Weight.h, of what classes and instances may come to have by inheritance and by
  /// default values. A document of some length may have more.
  std::uint64_t fWeight = 4000000;

  /// The weight that is allowed behind so many bytes of a document.
  std::uint64_t WeightBehind(std::uint64_t bytes) const { return fWeight + bytes / 8; }
};

/// Elements within elements. References nest to `kMaxReferenceDepth`, with at most four elements
/// each.
constexpr unsigned int kMaxElementDepth = 1000;

/// References within the keys of references. Each level takes stack wherever a value is copied.
constexpr unsigned int kMaxReferenceDepth = 200;

}  // namespace container

#endif  // CONTAINER_LIMITS_H
