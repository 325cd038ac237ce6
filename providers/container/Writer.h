#ifndef CONTAINER_WRITER_H
#define CONTAINER_WRITER_H

#include <string>

#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/Bytes.h"
#include "providers/container/Limits.h"

namespace container {

/// How a namespace is to be written.
struct TWriting {
  TLimits fLimits;
};

/// Writes a namespace as an XML document. The same content gives the same bytes. `name` is that of
/// the file in messages. Classes that are outside the namespace aren't written.
///
/// Throws `TContainerException` for what can't be kept: `kHWXStatusInvalidClass` for a reference
/// whose keys its class doesn't declare, `kHWXStatusInvalidProperty` for an array with an element
/// of another type, `kHWXStatusNotSupported` for what is beyond the limits. What the sink and the
/// instance sources throw passes through.
///
/// Thread-safety: that of the namespace.
void WriteContainer(NQORHWX20::TMemoryNamespace& ns, TByteSink& sink, const std::string& name,
                    const TWriting& writing = TWriting());

}  // namespace container

#endif  // CONTAINER_WRITER_H
