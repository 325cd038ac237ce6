#ifndef HWXKIT_TPROVIDERREGISTRATION_H
#define HWXKIT_TPROVIDERREGISTRATION_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"
#include "hwxkit/TMemoryProvider.h"

namespace NQORHWX20 {

/// Enters a provider in the registry by its construction. A static object of a plug-in does so when
/// the plug-in is loaded:
///
///     const TProviderRegistration kRegistration("minimal", &BuildNamespace);
///
/// The registry keeps the provider, so the object need not live on. If the name is taken, the first
/// provider of the name stays and this one is dropped.
///
/// Thread-safety: none, as the registry has none: load plug-ins from one thread at start-up.
class HWX_EXPORT TProviderRegistration {
 public:
  /// Enters a `TMemoryProvider`.
  TProviderRegistration(const std::string& name, const TNamespaceFactory& factory);
  /// Enters a provider of the plug-in's own.
  explicit TProviderRegistration(const boost::shared_ptr<INamespaceProvider>& provider);
};

}  // namespace NQORHWX20

#endif  // HWXKIT_TPROVIDERREGISTRATION_H
