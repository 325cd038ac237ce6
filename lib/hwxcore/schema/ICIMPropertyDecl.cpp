#include "hwxcore/schema/ICIMPropertyDecl.h"

#include "hwxcore/schema/detail/NotImplemented.h"

namespace NQORHWX20 {

ICIMPropertyDecl::~ICIMPropertyDecl() = default;

void ICIMPropertyDecl::Rename(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

boost::shared_ptr<ICIMClass> ICIMPropertyDecl::GetClass(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMPropertyDecl::SetDefaultValue(const TCIMValue& /*value*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

}  // namespace NQORHWX20
