// Limits the memory that a small document can take. One line of a file makes a subclass with all
// properties of its superclass, or an instance with all default values of its class. Each class and
// each instance has a weight: about the number of its properties. The weights of a document are
// added up, and their sum may not exceed a limit. Thread-safety: that of the classes.

#ifndef CONTAINER_WEIGHT_H
#define CONTAINER_WEIGHT_H

#include <cstdint>
#include <unordered_map>

#include "hwxkit/TMemoryClass.h"
#include "providers/container/Limits.h"

namespace container {

/// The sum of the weights of what has been loaded or saved so far.
class TWeight {
 public:
  explicit TWeight(const TLimits& limits) : fLimits(limits), fTotal(0) {}

  /// Adds a class that is complete, or an instance of it. `bytes` is how much of the document has
  /// been read or written. False if the sum is more than that many bytes allow.
  bool AddClass(NQORHWX20::TMemoryClass& added, std::uint64_t bytes);
  bool AddInstanceOf(NQORHWX20::TMemoryClass& instanceClass, std::uint64_t bytes);

 private:
  bool Add(std::uint64_t weight, std::uint64_t bytes);

  const TLimits fLimits;
  std::uint64_t fTotal;
  std::unordered_map<const NQORHWX20::TMemoryClass*, std::uint64_t> fOfInstances;
};

}  // namespace container

#endif  // CONTAINER_WEIGHT_H
