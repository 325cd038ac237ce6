#include "hwxcore/schema/TRootObject.h"

#include "hwxcore/diagnostics/TLogger.h"
#include "hwxcore/schema/TNamespaceProviderManager.h"

namespace NQORHWX20 {

ILogger* TRootObject::GetCoreLogger() {
  return TLogger::GetInstance();
}

boost::shared_ptr<INamespaceProviderManager> TRootObject::GetNamespaceProviderManager() {
  return TNamespaceProviderManager::GetInstance();
}

}  // namespace NQORHWX20
