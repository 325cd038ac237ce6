#ifndef CONTAINER_READER_H
#define CONTAINER_READER_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/Bytes.h"
#include "providers/container/Limits.h"

namespace container {

/// Reads an XML document into a new namespace. `name` is that of the file in messages.
///
/// Nothing is taken on trust: what is malformed, unknown, of a wrong type, out of range or there
/// twice throws `TContainerException` with `kHWXStatusCorruptedContainer` and a text that names the
/// line, and a document of another major version one with `kHWXStatusVersionMismatch`. What the
/// source throws passes through.
///
/// Beside the namespace it takes memory for one declaration, class or instance at a time.
///
/// Thread-safety: free of state.
boost::shared_ptr<NQORHWX20::TMemoryNamespace> ReadContainer(TByteSource& source,
                                                             const std::string& name,
                                                             const TLimits& limits = TLimits());

}  // namespace container

#endif  // CONTAINER_READER_H
