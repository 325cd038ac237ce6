#include "hwxkit/TProviderRegistration.h"

#include <boost/make_shared.hpp>

#include "hwxcore/schema/INamespaceProviderManager.h"
#include "hwxcore/schema/TRootObject.h"

namespace NQORHWX20 {

TProviderRegistration::TProviderRegistration(const std::string& name,
                                             const TNamespaceFactory& factory)
    : TProviderRegistration(boost::make_shared<TMemoryProvider>(name, factory)) {}

TProviderRegistration::TProviderRegistration(
    const boost::shared_ptr<INamespaceProvider>& provider) {
  TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(provider);
}

}  // namespace NQORHWX20
