#include "hwxcore/schema/ICIMQualifier.h"

#include "hwxcore/schema/detail/NotImplemented.h"

namespace NQORHWX20 {

ICIMQualifier::~ICIMQualifier() = default;

void ICIMQualifier::Delete(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

const std::string& ICIMQualifier::GetName(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

TCIMValue::TCIMType ICIMQualifier::GetType(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMQualifier::IsInherited(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

boost::shared_ptr<ICIMQualifiedElement> ICIMQualifier::GetElement(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMQualifier::SetValue(const TCIMValue& /*value*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

}  // namespace NQORHWX20
