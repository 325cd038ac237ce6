// Containers: collected data in files. Thread-safety: for the main thread.

#ifndef HWX_INVENTORY_CONTAINERS_H
#define HWX_INVENTORY_CONTAINERS_H

#include <string>

#include "hwx/inventory/Namespace.h"

namespace hwx {

// Each throws `TFailure`: if there is no provider of containers, or with what it says of the file
// and the place in it.

/// An empty container; `name` is that of its namespace.
NamespacePtr NewContainer(const std::string& name);

/// What a file holds.
NamespacePtr LoadContainer(const std::string& path);

/// Writes a container to a file, whole or not at all.
void SaveContainer(const NamespacePtr& container, const std::string& path);

/// The text of the file that `SaveContainer` would write.
std::string ContainerText(const NamespacePtr& container);

}  // namespace hwx

#endif  // HWX_INVENTORY_CONTAINERS_H
