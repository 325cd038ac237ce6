#include "hwxkit/TProviderRegistration.h"

#include <boost/make_shared.hpp>

#include "hwxcore/schema/INamespaceProviderManager.h"
#include "hwxcore/schema/TRootObject.h"

namespace NQORHWX20 {

TProviderRegistration::TProviderRegistration(const std::string& name,
                                             const TNamespaceFactory& factory) {
  TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(
      boost::make_shared<TMemoryProvider>(name, factory));
}

}  // namespace NQORHWX20
