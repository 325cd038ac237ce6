#include "hwxcore/schema/TRootObject.h"

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/schema/TNamespaceProviderManager.h"

namespace NQORHWX20 {

ILogger* TRootObject::GetCoreLogger() {
  return detail::CoreLogger();
}

boost::shared_ptr<INamespaceProviderManager> TRootObject::GetNamespaceProviderManager() {
  return TNamespaceProviderManager::GetInstance();
}

}  // namespace NQORHWX20
