#include "hwxcore/schema/ICIMQualifiedElement.h"

#include "hwxcore/schema/detail/NotImplemented.h"

namespace NQORHWX20 {

ICIMQualifiedElement::~ICIMQualifiedElement() = default;

unsigned int ICIMQualifiedElement::GetQualifierCount(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMQualifiedElement::DeleteQualifier(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMQualifiedElement::HasQualifier(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMQualifiedElement::SetQualifierValue(const std::string& /*name*/,
                                             const TCIMValue& /*value*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

}  // namespace NQORHWX20
