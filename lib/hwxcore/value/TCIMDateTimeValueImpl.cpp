#include "hwxcore/value/TCIMDateTimeValueImpl.h"

namespace NQORHWX20 {

namespace {

bool IsNonNullDateTime(const TCIMValue& value) {
  return value.GetType() == TCIMValue::TCIMType::kCIMTypeDateTime && !value.IsNull();
}

}  // namespace

TCIMDateTimeValueImpl::~TCIMDateTimeValueImpl() = default;

TCIMDateTimeValueImpl::operator TCIMDateTime() const {
  return fValue;
}

std::string TCIMDateTimeValueImpl::ToString(unsigned char /*base*/) const {
  return fValue.ToString();
}

bool TCIMDateTimeValueImpl::operator==(const TCIMValue& other) const {
  return IsNonNullDateTime(other) &&
         fValue == static_cast<const TCIMDateTimeValueImpl&>(*BodyOf(other)).fValue;
}

bool TCIMDateTimeValueImpl::operator<(const TCIMValue& other) const {
  return IsNonNullDateTime(other) &&
         fValue < static_cast<const TCIMDateTimeValueImpl&>(*BodyOf(other)).fValue;
}

}  // namespace NQORHWX20
