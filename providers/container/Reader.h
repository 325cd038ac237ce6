#ifndef CONTAINER_READER_H
#define CONTAINER_READER_H

#include <boost/shared_ptr.hpp>
#include <functional>
#include <string>

#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/Bytes.h"
#include "providers/container/Limits.h"

namespace container {

/// How a document is to be read.
struct TReading {
  TLimits fLimits;
  /// Which of several namespaces, with or without its host; empty for the only one.
  std::string fNamespace;
  /// Takes each warning, a line without its end; may be empty.
  std::function<void(const std::string&)> fWarn;
};

/// Reads an XML document into a new namespace: declarations, or a message of a CIM operation that
/// holds some. `name` is that of the file in messages. Its elements may come in any order.
///
/// Nothing is taken on trust: what is malformed, unknown, of a wrong type, out of range or there
/// twice throws `TContainerException` with `kHWXStatusCorruptedContainer` and a text that names the
/// line, and a document of another major version one with `kHWXStatusVersionMismatch`; one of
/// several namespaces, or without the one that is asked for, `kHWXStatusNotFound`. What the source
/// throws passes through. Classes and qualifiers that the document leaves to others are a warning.
///
/// Beside the namespace it takes memory for the tag or text that is being read, and for what names
/// something that comes later.
///
/// Thread-safety: free of state.
boost::shared_ptr<NQORHWX20::TMemoryNamespace> ReadContainer(TByteSource& source,
                                                             const std::string& name,
                                                             const TReading& reading = TReading());

}  // namespace container

#endif  // CONTAINER_READER_H
