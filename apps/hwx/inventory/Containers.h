// Containers: collected data in files. Thread-safety: for the main thread.

#ifndef HWX_INVENTORY_CONTAINERS_H
#define HWX_INVENTORY_CONTAINERS_H

#include <cstdint>
#include <string>

#include "hwx/inventory/Namespace.h"

namespace hwx {

// Each throws `TFailure`: if there is no provider of containers, or with what it says of the file
// and the place in it.

/// An empty container; `name` is that of its namespace.
NamespacePtr NewContainer(const std::string& name);

/// How a file is read.
struct TFileReading {
  std::string fNamespace;                             ///< Which of several; empty for the only one.
  std::uint64_t fMaxMemory = std::uint64_t{1} << 30;  ///< In bytes.
};

/// What a file holds; "-" is the standard input. What it leaves to others is told on the standard
/// error stream. From the first file on the program's data may take no more memory than that.
NamespacePtr LoadContainer(const std::string& path, const TFileReading& reading = TFileReading());

/// Writes a container to a file, whole or not at all.
void SaveContainer(const NamespacePtr& container, const std::string& path);

/// Writes a container to the standard output: CIM-XML as in files, or the Managed Object Format.
enum class EContainerText { kXML, kMOF };
void PrintContainer(const NamespacePtr& container, EContainerText language);

}  // namespace hwx

#endif  // HWX_INVENTORY_CONTAINERS_H
