#include "hwxcore/schema/ICIMQualifierDecl.h"

#include "hwxcore/schema/detail/NotImplemented.h"

namespace NQORHWX20 {

ICIMQualifierDecl::~ICIMQualifierDecl() = default;

void ICIMQualifierDecl::Delete(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

boost::shared_ptr<ICIMNamespace> ICIMQualifierDecl::GetNamespace(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMQualifierDecl::Rename(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

TCIMValue::TCIMType ICIMQualifierDecl::GetType(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMQualifierDecl::SetDefaultValue(const TCIMValue& /*value*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMQualifierDecl::SetScope(unsigned int /*scope*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMQualifierDecl::SetFlavor(unsigned int /*flavor*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMQualifierDecl::IsOverridable(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

}  // namespace NQORHWX20
