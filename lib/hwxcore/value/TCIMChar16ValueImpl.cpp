#include "hwxcore/value/TCIMChar16ValueImpl.h"

namespace NQORHWX20 {

namespace {

bool IsNonNullChar16(const TCIMValue& value) {
  return value.GetType() == TCIMValue::TCIMType::kCIMTypeChar16 && !value.IsNull();
}

}  // namespace

TCIMChar16ValueImpl::~TCIMChar16ValueImpl() = default;

TCIMChar16ValueImpl::operator TCIMChar16() const {
  return fValue;
}

std::string TCIMChar16ValueImpl::ToString(unsigned char /*base*/) const {
  return fValue.ToString();
}

bool TCIMChar16ValueImpl::operator==(const TCIMValue& other) const {
  return IsNonNullChar16(other) &&
         fValue == static_cast<const TCIMChar16ValueImpl&>(*BodyOf(other)).fValue;
}

bool TCIMChar16ValueImpl::operator<(const TCIMValue& other) const {
  return IsNonNullChar16(other) &&
         fValue < static_cast<const TCIMChar16ValueImpl&>(*BodyOf(other)).fValue;
}

}  // namespace NQORHWX20
