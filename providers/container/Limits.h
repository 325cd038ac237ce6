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
  /// The weight, as in Weight.h, that a document of any length may have. Longer ones may have more.
  std::uint64_t fWeight = 4000000;

  /// The weight that a document may have after so many bytes.
  std::uint64_t WeightBehind(std::uint64_t bytes) const { return fWeight + bytes / 8; }
};

/// How deeply elements may nest. Enough for references that nest to `kMaxReferenceDepth`, each of
/// which takes up to four elements.
constexpr unsigned int kMaxElementDepth = 1000;

/// How deeply references may nest, each in a key of another. Each level takes stack wherever a
/// value is copied.
constexpr unsigned int kMaxReferenceDepth = 200;

}  // namespace container

#endif  // CONTAINER_LIMITS_H
