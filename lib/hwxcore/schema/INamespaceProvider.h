#ifndef HWXCORE_SCHEMA_INAMESPACEPROVIDER_H
#define HWXCORE_SCHEMA_INAMESPACEPROVIDER_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20 {

/// What a provider plug-in enters in the registry, `INamespaceProviderManager`.
///
/// Thread-safety: the provider's business. The registry holds a provider until the process ends,
/// and lets go of it after the plug-in's own static objects are gone.
class HWX_EXPORT INamespaceProvider {
 public:
  // Contract: slot-order.
  virtual ~INamespaceProvider();

  /// The name under which the provider is registered.
  virtual const std::string& GetName(TCIMContext context) = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_INAMESPACEPROVIDER_H
