#include "hwxcore/value/TCIMStringValueImpl.h"

namespace NQORHWX20 {

namespace {

bool IsNonNullString(const TCIMValue& value) {
  return value.GetType() == TCIMValue::TCIMType::kCIMTypeString && !value.IsNull();
}

}  // namespace

TCIMStringValueImpl::~TCIMStringValueImpl() = default;

TCIMStringValueImpl::operator std::string() const {
  return fValue;
}

// Contract: text-in-any-base.
std::string TCIMStringValueImpl::ToString(unsigned char /*base*/) const {
  return fValue;
}

bool TCIMStringValueImpl::operator==(const TCIMValue& other) const {
  return IsNonNullString(other) &&
         fValue == static_cast<const TCIMStringValueImpl&>(*BodyOf(other)).fValue;
}

bool TCIMStringValueImpl::operator<(const TCIMValue& other) const {
  return IsNonNullString(other) &&
         fValue < static_cast<const TCIMStringValueImpl&>(*BodyOf(other)).fValue;
}

}  // namespace NQORHWX20
