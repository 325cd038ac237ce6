#include "hwxcore/value/TCIMNumericValueImpl.h"

#include <functional>
#include <type_traits>

#include "hwxcore/value/NumericType.h"
#include "hwxcore/value/THWXException.h"
#include "hwxcore/value/detail/NumberText.h"

namespace NQORHWX20 {

namespace {

void Require(TCIMValue::TCIMType actual, TCIMValue::TCIMType::ECIMType required) {
  if (actual != required) throw THWXException(kHWXStatusTypeMismatch);
}

// Contract: signed-in-base-10-alone.
void RequireDecimal(unsigned base) {
  if (base != 10) throw THWXException(kHWXStatusNotSupported);
}

// A type that has no numeric body.
[[noreturn]] void RefuseType(TCIMValue::TCIMType type) {
  throw THWXException(type == TCIMValue::TCIMType::kCIMTypeChar16 ? kHWXStatusNotImplemented
                                                                  : kHWXStatusTypeMismatch);
}

template <typename Number>
std::string Text(Number value, unsigned base) {
  if constexpr (std::is_same_v<Number, bool>) {
    return value ? "true" : "false";
  } else if constexpr (std::is_floating_point_v<Number>) {
    RequireDecimal(base);
    return detail::RealText(static_cast<double>(value));  // Contract: six-digits.
  } else if constexpr (std::is_signed_v<Number>) {
    RequireDecimal(base);
    return detail::IntegerText(value, base, 0);
  } else {
    // Contract: hexadecimal-padded.
    return detail::IntegerText(value, base, base == 16 ? 2 * sizeof value : 0);
  }
}

// The member of a body's union that holds a `Number`.
template <typename Number, typename Union>
const Number& Held(const Union& value) {
  return *static_cast<const Number*>(static_cast<const void*>(&value));
}

}  // namespace

TCIMNumericValueImpl::TCIMNumericValueImpl(bool value)
    : fType(TCIMValue::TCIMType::kCIMTypeBoolean) {
  fValue.fBoolean = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned char value)
    : fType(TCIMValue::TCIMType::kCIMTypeUInt8) {
  fValue.fUInt8 = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(signed char value)
    : fType(TCIMValue::TCIMType::kCIMTypeSInt8) {
  fValue.fSInt8 = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned short value)
    : fType(TCIMValue::TCIMType::kCIMTypeUInt16) {
  fValue.fUInt16 = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(short value)
    : fType(TCIMValue::TCIMType::kCIMTypeSInt16) {
  fValue.fSInt16 = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned int value)
    : fType(TCIMValue::TCIMType::kCIMTypeUInt32) {
  fValue.fUInt32 = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(int value) : fType(TCIMValue::TCIMType::kCIMTypeSInt32) {
  fValue.fSInt32 = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned long value)
    : fType(TCIMValue::TCIMType::kCIMTypeUInt64) {
  fValue.fUInt64 = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(long value)
    : fType(TCIMValue::TCIMType::kCIMTypeSInt64) {
  fValue.fSInt64 = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(float value)
    : fType(TCIMValue::TCIMType::kCIMTypeReal32) {
  fValue.fReal32 = value;
}

TCIMNumericValueImpl::TCIMNumericValueImpl(double value)
    : fType(TCIMValue::TCIMType::kCIMTypeReal64) {
  fValue.fReal64 = value;
}

TCIMNumericValueImpl::~TCIMNumericValueImpl() = default;

TCIMNumericValueImpl::operator bool() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeBoolean);
  return fValue.fBoolean;
}

TCIMNumericValueImpl::operator unsigned char() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeUInt8);
  return fValue.fUInt8;
}

TCIMNumericValueImpl::operator signed char() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeSInt8);
  return fValue.fSInt8;
}

TCIMNumericValueImpl::operator unsigned short() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeUInt16);
  return fValue.fUInt16;
}

TCIMNumericValueImpl::operator short() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeSInt16);
  return fValue.fSInt16;
}

TCIMNumericValueImpl::operator unsigned int() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeUInt32);
  return fValue.fUInt32;
}

TCIMNumericValueImpl::operator int() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeSInt32);
  return fValue.fSInt32;
}

TCIMNumericValueImpl::operator unsigned long() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeUInt64);
  return fValue.fUInt64;
}

TCIMNumericValueImpl::operator long() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeSInt64);
  return fValue.fSInt64;
}

TCIMNumericValueImpl::operator float() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeReal32);
  return fValue.fReal32;
}

TCIMNumericValueImpl::operator double() const {
  Require(fType, TCIMValue::TCIMType::kCIMTypeReal64);
  return fValue.fReal64;
}

std::string TCIMNumericValueImpl::ToString(unsigned char base) const {
  // Contract: base-checked-first.
  if (base != 8 && base != 10 && base != 16) throw THWXException(kHWXStatusNotSupported);
  const auto text = [&](auto numeric) {
    return Text(Held<typename decltype(numeric)::Type>(fValue), base);
  };
  return OfNumericType(fType, text, [&]() -> std::string { RefuseType(fType); });
}

template <typename Compare>
bool TCIMNumericValueImpl::CompareWith(const TCIMValue& other, Compare compare) const {
  if (other.GetType() != fType) return false;
  const auto compareBodies = [&](auto numeric) {
    using Number = typename decltype(numeric)::Type;
    if (other.IsNull()) return false;
    const auto& body = static_cast<const TCIMNumericValueImpl&>(*BodyOf(other));
    return compare(Held<Number>(fValue), Held<Number>(body.fValue));
  };
  return OfNumericType(fType, compareBodies, [&]() -> bool { RefuseType(fType); });
}

bool TCIMNumericValueImpl::operator==(const TCIMValue& other) const {
  return CompareWith(other, std::equal_to<>());
}

bool TCIMNumericValueImpl::operator<(const TCIMValue& other) const {
  return CompareWith(other, std::less<>());
}

}  // namespace NQORHWX20
