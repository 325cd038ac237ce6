// Copying a machine into a container. Thread-safety: for the main thread.

#ifndef HWX_INVENTORY_COLLECTION_H
#define HWX_INVENTORY_COLLECTION_H

#include <cstddef>
#include <string>

#include "hwx/inventory/Inventory.h"

namespace hwx {

/// What was collected.
struct TCollection {
  NamespacePtr fContainer;
  std::size_t fClasses;
  std::size_t fInstances;
  bool fIsComplete;  ///< Whether nothing of the machine had to be left out.
};

/// Copies the schema of `machine` into a new container, then the instances of `classes`. What can't
/// be copied is left out and reported on the standard error stream, where progress shows too if it
/// is a terminal. Throws `TFailure` if the schema can't be copied.
TCollection Collect(const NamespacePtr& machine, const TClasses& classes);

}  // namespace hwx

#endif  // HWX_INVENTORY_COLLECTION_H
