#ifndef CONTAINER_STORE_H
#define CONTAINER_STORE_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/Reader.h"

namespace container {

/// The namespace in a file, which is compressed if its name ends in ".gz". See
/// `IContainerSource::LoadContainer` for failures.
boost::shared_ptr<NQORHWX20::TMemoryNamespace> LoadFile(const std::string& path,
                                                        const TReading& reading = TReading());

/// Writes a namespace to a file, or changes nothing. See `IContainerSource::SaveContainer` for
/// failures.
void SaveFile(NQORHWX20::TMemoryNamespace& ns, const std::string& path);

/// What `SaveFile` writes to a file that isn't compressed. `name` stands for the file's in
/// messages.
std::string Text(NQORHWX20::TMemoryNamespace& ns, const std::string& name);

}  // namespace container

#endif  // CONTAINER_STORE_H
