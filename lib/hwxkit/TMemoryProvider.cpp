#include "hwxkit/TMemoryProvider.h"

#include "hwxcore/schema/ICIMNamespace.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/detail/ContextProvider.h"

namespace NQORHWX20 {

TMemoryProvider::TMemoryProvider(const std::string& name, const TNamespaceFactory& factory)
    : fName(name), fFactory(factory) {}

TMemoryProvider::~TMemoryProvider() = default;

const std::string& TMemoryProvider::GetName(TCIMContext /*context*/) {
  return fName;
}

boost::shared_ptr<ICIMNamespace> TMemoryProvider::OpenNamespace(TCIMContext context) {
  if (!detail::IsForProvider(context, fName)) throw THWXException(kHWXStatusNotFound);
  return fFactory();
}

}  // namespace NQORHWX20
