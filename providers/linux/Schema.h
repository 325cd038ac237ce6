// The schema that the provider publishes, from its tables in schema/: the part of the standard's
// that it needs, and what it adds.
// Thread-safety: none, as the kit has none.

#ifndef PROVIDERS_LINUX_SCHEMA_H
#define PROVIDERS_LINUX_SCHEMA_H

#include <boost/shared_ptr.hpp>

#include "hwxkit/TMemoryNamespace.h"

namespace linux_machine {

/// Defines all classes in a namespace; none has instances yet.
void PublishSchema(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_SCHEMA_H
