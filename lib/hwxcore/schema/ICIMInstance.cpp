#include "hwxcore/schema/ICIMInstance.h"

#include "hwxcore/schema/detail/NotImplemented.h"

namespace NQORHWX20 {

ICIMInstance::~ICIMInstance() = default;

void ICIMInstance::Delete(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMInstance::Refresh(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

boost::shared_ptr<ICIMInstance> ICIMInstance::Clone(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMInstance::IsInstanceOf(const std::string& /*className*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

const std::string& ICIMInstance::GetClassName(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

boost::shared_ptr<ICIMNamespace> ICIMInstance::GetNamespace(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

unsigned int ICIMInstance::GetPropertyCount(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMInstance::HasProperty(const std::string& /*name*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMInstance::EnumerateKeyProperties(
    const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& /*callback*/,
    TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

}  // namespace NQORHWX20
