#include "hwxcore/schema/TNamespaceProviderManager.h"

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/schema/INamespaceProvider.h"
#include "hwxcore/schema/detail/Existing.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

// Initialised by a constant, so it can be used before the static initialisers have run.
boost::shared_ptr<TNamespaceProviderManager> TNamespaceProviderManager::fgInstance;

__attribute__((constructor)) void ManagerInit() {
  TNamespaceProviderManager::GetInstance();
}

TNamespaceProviderManager::TNamespaceProviderManager() = default;

TNamespaceProviderManager::~TNamespaceProviderManager() = default;

boost::shared_ptr<TNamespaceProviderManager> TNamespaceProviderManager::GetInstance() {
  if (!fgInstance) fgInstance.reset(new TNamespaceProviderManager);
  return fgInstance;
}

void TNamespaceProviderManager::RegisterNamespaceProvider(
    boost::shared_ptr<INamespaceProvider> provider) {
  const std::string name = detail::Existing(provider)->GetName(TCIMContext());
  fProviders.emplace(name, provider);  // Contract: first-provider-stays.
}

boost::shared_ptr<INamespaceProvider> TNamespaceProviderManager::GetNamespaceProvider(
    const std::string& name) const {
  const auto found = fProviders.find(name);
  if (found == fProviders.end()) {
    detail::LogError("Failed to find nsp named " + name);
    throw THWXException(kHWXStatusNotFound);
  }
  return found->second;
}

void TNamespaceProviderManager::EnumerateNamespaceProviders(
    boost::function<bool(boost::shared_ptr<INamespaceProvider>)>& callback) const {
  // Contract: empty-callback-uncalled.
  for (const auto& entry : fProviders) {
    if (!callback(entry.second)) return;
  }
}

}  // namespace NQORHWX20
