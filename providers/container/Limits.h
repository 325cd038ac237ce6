#ifndef CONTAINER_LIMITS_H
#define CONTAINER_LIMITS_H

#include <cstdint>

namespace container {

/// How much a container may hold.
struct TLimits {
  /// Bytes of the whole document, uncompressed: a small file can expand without end.
  std::uint64_t fDocument = std::uint64_t{1} << 30;
  /// Bytes of one text or tag; in saving, of one declaration, class or instance.
  std::uint64_t fPiece = std::uint64_t{64} << 20;
  /// Bytes of memory that what is read of a document may take, by a count of its values, instances
  /// and declarations and of what they inherit.
  std::uint64_t fMemory = std::uint64_t{1} << 30;
  /// How many bytes each byte of a compressed file may stand for, beyond the first `fExpansionFree`
  /// of the document.
  std::uint64_t fExpansion = 200;
  std::uint64_t fExpansionFree = std::uint64_t{8} << 20;
};

/// Elements within elements. References nest to `kMaxReferenceDepth`, with at most four elements
/// each.
constexpr unsigned int kMaxElementDepth = 1000;

/// References within the keys of references. Each level takes stack wherever a value is copied.
constexpr unsigned int kMaxReferenceDepth = 200;

}  // namespace container

#endif  // CONTAINER_LIMITS_H
