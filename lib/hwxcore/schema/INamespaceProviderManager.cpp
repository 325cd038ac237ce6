#include "hwxcore/schema/INamespaceProviderManager.h"

namespace NQORHWX20 {

INamespaceProviderManager::~INamespaceProviderManager() = default;

}  // namespace NQORHWX20
