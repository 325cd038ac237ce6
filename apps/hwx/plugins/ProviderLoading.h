// The road to a provider: find its plug-in, load it, take it from the registry.
// Thread-safety: for the main thread, before there are others.

#ifndef HWX_PLUGINS_PROVIDERLOADING_H
#define HWX_PLUGINS_PROVIDERLOADING_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxkit/INamespaceSource.h"

namespace hwx {

/// The provider of that name. Throws `TFailure`, which says at which step the road ended.
boost::shared_ptr<NQORHWX20::INamespaceSource> LoadProvider(const std::string& name);

}  // namespace hwx

#endif  // HWX_PLUGINS_PROVIDERLOADING_H
