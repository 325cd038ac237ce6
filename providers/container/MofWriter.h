#ifndef CONTAINER_MOFWRITER_H
#define CONTAINER_MOFWRITER_H

#include <string>

#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/Bytes.h"

namespace container {

/// Writes a namespace in the Managed Object Format, as CIM tools compile it: qualifier
/// declarations, classes, instances. What the format has no words for stands in a comment, with the
/// nearest that it has, so that nothing is passed over in silence. Classes that are outside the
/// namespace aren't written, static values neither.
///
/// Throws as `WriteContainer` does. Thread-safety: that of the namespace.
void WriteMof(NQORHWX20::TMemoryNamespace& ns, TByteSink& sink, const std::string& name);

}  // namespace container

#endif  // CONTAINER_MOFWRITER_H
