#include "hwxcore/schema/ICIMNamespace.h"

#include "hwxcore/schema/detail/NotImplemented.h"

namespace NQORHWX20 {

ICIMNamespace::~ICIMNamespace() = default;

const std::string& ICIMNamespace::GetName(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMNamespace::Rename(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

unsigned int ICIMNamespace::GetClassCount(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMNamespace::DeleteClass(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMNamespace::DeleteQualifierDecl(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

}  // namespace NQORHWX20
