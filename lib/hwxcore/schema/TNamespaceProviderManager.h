#ifndef HWXCORE_SCHEMA_TNAMESPACEPROVIDERMANAGER_H
#define HWXCORE_SCHEMA_TNAMESPACEPROVIDERMANAGER_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/schema/INamespaceProviderManager.h"

namespace NQORHWX20 {

/// The one implementation of the registry, a singleton that lives until the process exits and lets
/// go of all its providers then.
///
/// Thread-safety: that of `INamespaceProviderManager`; nor is the first call of `GetInstance` safe
/// against another.
class HWX_EXPORT TNamespaceProviderManager : public INamespaceProviderManager {
 public:
  TNamespaceProviderManager();
  ~TNamespaceProviderManager() override;

  /// The singleton, made where it is missing.
  static boost::shared_ptr<TNamespaceProviderManager> GetInstance();

  void RegisterNamespaceProvider(boost::shared_ptr<INamespaceProvider> provider) override;
  boost::shared_ptr<INamespaceProvider> GetNamespaceProvider(
      const std::string& name) const override;
  void EnumerateNamespaceProviders(
      boost::function<bool(boost::shared_ptr<INamespaceProvider>)>& callback) const override;

 private:
  static boost::shared_ptr<TNamespaceProviderManager> fgInstance;

  std::map<std::string, boost::shared_ptr<INamespaceProvider> > fProviders;
};

/// Runs by itself when the library is loaded, and makes the registry.
HWX_EXPORT void ManagerInit();

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_TNAMESPACEPROVIDERMANAGER_H
