#include "hwxcore/value/TCIMNumericValueImpl.h"

#include <functional>

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

bool IsNumeric(TCIMValue::TCIMType type) {
  return type >= TCIMValue::TCIMType::kCIMTypeBoolean &&
         type <= TCIMValue::TCIMType::kCIMTypeReal64;
}

// A type that has no numeric body.
[[noreturn]] void RefuseType(TCIMValue::TCIMType type) {
  throw THWXException(type == TCIMValue::TCIMType::kCIMTypeChar16 ? kHWXStatusNotImplemented
                                                                  : kHWXStatusTypeMismatch);
}

template <typename Unsigned>
std::string UnsignedText(Unsigned value, unsigned base) {
  // Contract: hexadecimal-padded.
  return detail::IntegerText(value, base, base == 16 ? 2 * sizeof value : 0);
}

template <typename Signed>
std::string SignedText(Signed value, unsigned base) {
  RequireDecimal(base);
  return detail::IntegerText(value, base, 0);
}

std::string RealText(double value, unsigned base) {
  RequireDecimal(base);
  return detail::RealText(value);  // Contract: six-digits.
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
  switch (fType) {
    case TCIMValue::TCIMType::kCIMTypeBoolean:
      return fValue.fBoolean ? "true" : "false";
    case TCIMValue::TCIMType::kCIMTypeUInt8:
      return UnsignedText(fValue.fUInt8, base);
    case TCIMValue::TCIMType::kCIMTypeSInt8:
      return SignedText(fValue.fSInt8, base);
    case TCIMValue::TCIMType::kCIMTypeUInt16:
      return UnsignedText(fValue.fUInt16, base);
    case TCIMValue::TCIMType::kCIMTypeSInt16:
      return SignedText(fValue.fSInt16, base);
    case TCIMValue::TCIMType::kCIMTypeUInt32:
      return UnsignedText(fValue.fUInt32, base);
    case TCIMValue::TCIMType::kCIMTypeSInt32:
      return SignedText(fValue.fSInt32, base);
    case TCIMValue::TCIMType::kCIMTypeUInt64:
      return UnsignedText(fValue.fUInt64, base);
    case TCIMValue::TCIMType::kCIMTypeSInt64:
      return SignedText(fValue.fSInt64, base);
    case TCIMValue::TCIMType::kCIMTypeReal32:
      return RealText(static_cast<double>(fValue.fReal32), base);
    case TCIMValue::TCIMType::kCIMTypeReal64:
      return RealText(fValue.fReal64, base);
    default:
      RefuseType(fType);
  }
}

template <typename Compare>
bool TCIMNumericValueImpl::CompareWith(const TCIMValue& other, Compare compare) const {
  if (other.GetType() != fType) return false;
  if (!IsNumeric(fType)) RefuseType(fType);  // before the cast: the other body is of another class
  if (other.IsNull()) return false;
  const auto& body = static_cast<const TCIMNumericValueImpl&>(*BodyOf(other));
  switch (fType) {
    case TCIMValue::TCIMType::kCIMTypeBoolean:
      return compare(fValue.fBoolean, body.fValue.fBoolean);
    case TCIMValue::TCIMType::kCIMTypeUInt8:
      return compare(fValue.fUInt8, body.fValue.fUInt8);
    case TCIMValue::TCIMType::kCIMTypeSInt8:
      return compare(fValue.fSInt8, body.fValue.fSInt8);
    case TCIMValue::TCIMType::kCIMTypeUInt16:
      return compare(fValue.fUInt16, body.fValue.fUInt16);
    case TCIMValue::TCIMType::kCIMTypeSInt16:
      return compare(fValue.fSInt16, body.fValue.fSInt16);
    case TCIMValue::TCIMType::kCIMTypeUInt32:
      return compare(fValue.fUInt32, body.fValue.fUInt32);
    case TCIMValue::TCIMType::kCIMTypeSInt32:
      return compare(fValue.fSInt32, body.fValue.fSInt32);
    case TCIMValue::TCIMType::kCIMTypeUInt64:
      return compare(fValue.fUInt64, body.fValue.fUInt64);
    case TCIMValue::TCIMType::kCIMTypeSInt64:
      return compare(fValue.fSInt64, body.fValue.fSInt64);
    case TCIMValue::TCIMType::kCIMTypeReal32:
      return compare(fValue.fReal32, body.fValue.fReal32);
    default:  // kCIMTypeReal64
      return compare(fValue.fReal64, body.fValue.fReal64);
  }
}

bool TCIMNumericValueImpl::operator==(const TCIMValue& other) const {
  return CompareWith(other, std::equal_to<>());
}

bool TCIMNumericValueImpl::operator<(const TCIMValue& other) const {
  return CompareWith(other, std::less<>());
}

}  // namespace NQORHWX20
