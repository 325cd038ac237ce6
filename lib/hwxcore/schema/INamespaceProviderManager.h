#ifndef HWXCORE_SCHEMA_INAMESPACEPROVIDERMANAGER_H
#define HWXCORE_SCHEMA_INAMESPACEPROVIDERMANAGER_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

class INamespaceProvider;

/// The registry of the process's namespace providers, by name. `TRootObject` gives access to it.
///
/// Thread-safety: none. Providers are registered from one thread at start-up, before concurrent
/// use; reading from several threads is safe after that.
class HWX_EXPORT INamespaceProviderManager {
 public:
  // Contract: slot-order.
  virtual ~INamespaceProviderManager();

  /// Enters a provider under its `GetName`. First come stays: a provider whose name is taken is
  /// dropped without a word. What `GetName` throws passes through. Throws `kHWXStatusNotFound` if
  /// `provider` is empty.
  virtual void RegisterNamespaceProvider(boost::shared_ptr<INamespaceProvider> provider) = 0;

  /// The provider of exactly that name. Throws `kHWXStatusNotFound`, after a log entry, if there is
  /// none.
  virtual boost::shared_ptr<INamespaceProvider> GetNamespaceProvider(
      const std::string& name) const = 0;

  /// Presents the providers in the byte order of their names until `callback` returns false. What
  /// `callback` throws passes through; an empty `callback` throws `boost::bad_function_call` if
  /// there is a provider to present.
  virtual void EnumerateNamespaceProviders(
      boost::function<bool(boost::shared_ptr<INamespaceProvider>)>& callback) const = 0;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_INAMESPACEPROVIDERMANAGER_H
