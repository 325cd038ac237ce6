// How much memory classes and instances take that no byte of a document stands for: a line in a
// file makes a subclass with all that its superclass has, or an instance with every default value
// of its class. The unit is a property, more or less. Thread-safety: that of the classes.

#ifndef CONTAINER_WEIGHT_H
#define CONTAINER_WEIGHT_H

#include <cstdint>
#include <unordered_map>

#include "hwxkit/TMemoryClass.h"
#include "providers/container/Limits.h"

namespace container {

/// Adds up the weight of what is loaded or saved.
class TWeight {
 public:
  explicit TWeight(const TLimits& limits) : fLimits(limits), fTotal(0) {}

  /// Adds a class that is complete, or an instance of it. False if the total is more than may stand
  /// behind so many bytes of the document.
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
