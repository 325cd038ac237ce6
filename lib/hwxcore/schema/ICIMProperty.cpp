#include "hwxcore/schema/ICIMProperty.h"

#include "hwxcore/schema/detail/NotImplemented.h"

namespace NQORHWX20 {

ICIMProperty::~ICIMProperty() = default;

const std::string& ICIMProperty::GetName(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

TCIMValue::TCIMType ICIMProperty::GetType(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMProperty::IsNull(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

void ICIMProperty::SetValue(const TCIMValue& /*value*/, TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

boost::shared_ptr<ICIMInstance> ICIMProperty::GetInstance(TCIMContext /*context*/) {
  detail::ThrowNotImplemented();
}

bool ICIMProperty::GetBooleanValue() {
  detail::ThrowNotImplemented();
}

unsigned short ICIMProperty::GetUInt16Value() {
  detail::ThrowNotImplemented();
}

unsigned int ICIMProperty::GetUInt32Value() {
  detail::ThrowNotImplemented();
}

unsigned long ICIMProperty::GetUInt64Value() {
  detail::ThrowNotImplemented();
}

int ICIMProperty::GetSInt32Value() {
  detail::ThrowNotImplemented();
}

long ICIMProperty::GetSInt64Value() {
  detail::ThrowNotImplemented();
}

double ICIMProperty::GetReal64Value() {
  detail::ThrowNotImplemented();
}

TCIMDateTime ICIMProperty::GetDateTimeValue() {
  detail::ThrowNotImplemented();
}

}  // namespace NQORHWX20
