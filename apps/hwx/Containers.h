// Containers: collected data in files. Thread-safety: for the main thread.

#ifndef HWX_CONTAINERS_H
#define HWX_CONTAINERS_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxcore/schema/ICIMNamespace.h"

namespace hwx {

// Each throws `TFailure`: if there is no provider of containers, or with what it says of the file
// and the place in it.

/// An empty container; `name` is that of its namespace.
boost::shared_ptr<NQORHWX20::ICIMNamespace> NewContainer(const std::string& name);

/// What a file holds.
boost::shared_ptr<NQORHWX20::ICIMNamespace> LoadContainer(const std::string& path);

/// Writes a container to a file, whole or not at all.
void SaveContainer(const boost::shared_ptr<NQORHWX20::ICIMNamespace>& container,
                   const std::string& path);

/// The text of the file that `SaveContainer` would write.
std::string ContainerText(const boost::shared_ptr<NQORHWX20::ICIMNamespace>& container);

}  // namespace hwx

#endif  // HWX_CONTAINERS_H
