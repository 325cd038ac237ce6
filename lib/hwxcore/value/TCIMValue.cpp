#include "hwxcore/value/TCIMValue.h"

#include <cctype>
#include <ostream>
#include <type_traits>
#include <utility>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/value/NumericType.h"
#include "hwxcore/value/TCIMArrayValueImpl.h"
#include "hwxcore/value/TCIMChar16.h"
#include "hwxcore/value/TCIMChar16ValueImpl.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/TCIMDateTimeValueImpl.h"
#include "hwxcore/value/TCIMNumericValueImpl.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/TCIMReferenceValueImpl.h"
#include "hwxcore/value/TCIMStringValueImpl.h"
#include "hwxcore/value/THWXException.h"
#include "hwxcore/value/detail/NumberText.h"

namespace NQORHWX20 {

namespace {

using TCIMType = TCIMValue::TCIMType;

const struct {
  const char* fName;
  TCIMType::ECIMType fType;
} kTypeNames[] = {
    {"uint8", TCIMType::kCIMTypeUInt8},         {"sint8", TCIMType::kCIMTypeSInt8},
    {"uint16", TCIMType::kCIMTypeUInt16},       {"sint16", TCIMType::kCIMTypeSInt16},
    {"uint32", TCIMType::kCIMTypeUInt32},       {"sint32", TCIMType::kCIMTypeSInt32},
    {"uint64", TCIMType::kCIMTypeUInt64},       {"sint64", TCIMType::kCIMTypeSInt64},
    {"real32", TCIMType::kCIMTypeReal32},       {"real64", TCIMType::kCIMTypeReal64},
    {"char16", TCIMType::kCIMTypeChar16},       {"string", TCIMType::kCIMTypeString},
    {"boolean", TCIMType::kCIMTypeBoolean},     {"datetime", TCIMType::kCIMTypeDateTime},
    {"reference", TCIMType::kCIMTypeReference},
};

TCIMType WithArrayFlag(TCIMType type) {
  return static_cast<TCIMType::ECIMType>(type | TCIMType::kCIMTypeArrayFlag);
}

TCIMType WithoutArrayFlag(TCIMType type) {
  return static_cast<TCIMType::ECIMType>(type & ~TCIMType::kCIMTypeArrayFlag);
}

// As what a `Number` is read from text: one of 8 bits as a wider one, of which the low bits count.
// Contract: narrow-numbers-wrap.
template <typename Number>
using TReadNumber =
    std::conditional_t<sizeof(Number) != 1 || std::is_same_v<Number, bool>, Number,
                       std::conditional_t<std::is_signed_v<Number>, int, unsigned int> >;

[[noreturn]] void ThrowTypeMismatch() {
  throw THWXException(kHWXStatusTypeMismatch);
}

// Contract: wrong-element-status, untyped-element-unlogged.
void CheckElementTypes(TCIMType type, const std::vector<TCIMValue>& elements) {
  const TCIMType elementType = WithoutArrayFlag(type);
  for (const TCIMValue& element : elements) {
    if (element.GetType() == elementType) continue;
    detail::LogError("Core: ERROR: Attempting to create array of type " + type.ToString() +
                     ", but element is of type " + element.GetType().ToString() + ".");
    throw THWXException(kHWXStatusInvalidProperty);
  }
}

}  // namespace

// Contract: unknown-type-name.
TCIMValue::TCIMType::TCIMType(std::string name) : fType(kCIMTypeNone) {
  for (char& c : name)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  for (const auto& entry : kTypeNames) {
    if (name == entry.fName) {
      fType = entry.fType;
      return;
    }
  }
}

std::string TCIMValue::TCIMType::ToString() const {
  const ECIMType scalar = WithoutArrayFlag(fType);  // Contract: array-type-name.
  for (const auto& entry : kTypeNames) {
    if (scalar == entry.fType) return entry.fName;
  }
  ThrowTypeMismatch();
}

std::ostream& operator<<(std::ostream& stream, const TCIMValue::TCIMType& type) {
  return stream << type.ToString();
}

TCIMValue::TCIMValue() : fType(TCIMType::kCIMTypeNone), fMaxArraySize(0) {}

TCIMValue::TCIMValue(TCIMType type, unsigned int maxArraySize)
    : fType(maxArraySize == 0 ? type : WithArrayFlag(type)), fMaxArraySize(maxArraySize) {}

// Contract: text-never-fails, base-from-text.
TCIMValue::TCIMValue(TCIMType type, std::string& text, boost::shared_ptr<ICIMNamespace> ns)
    : TCIMValue() {
  const auto setNumber = [&](auto numeric) {
    using Number = typename decltype(numeric)::Type;
    Set(static_cast<Number>(detail::ReadNumber<TReadNumber<Number> >(text)));
  };
  const auto setOther = [&] {
    switch (type) {
      case TCIMType::kCIMTypeChar16:  // Contract: char16-text-is-string.
      case TCIMType::kCIMTypeString:
        return Set(static_cast<const std::string&>(text));
      case TCIMType::kCIMTypeDateTime:
        return Set(TCIMDateTime(text));
      case TCIMType::kCIMTypeReference: {
        TCIMReference reference(ns, text, TCIMContext());
        return Set(reference);
      }
      default:
        ThrowTypeMismatch();
    }
  };
  OfNumericType(type, setNumber, setOther);
}

TCIMValue::TCIMValue(bool value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(unsigned char value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(signed char value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(unsigned short value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(short value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(unsigned int value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(int value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(unsigned long value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(long value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(float value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(double value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(const char* value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(const std::string& value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(const TCIMChar16& value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(const TCIMDateTime& value) : TCIMValue() {
  Set(value);
}
TCIMValue::TCIMValue(TCIMReference& value) : TCIMValue() {
  Set(value);
}

TCIMValue::TCIMValue(TCIMType type, unsigned int maxArraySize,
                     const std::vector<TCIMValue>& elements)
    : TCIMValue() {
  Set(type, maxArraySize, elements);
}

TCIMValue::TCIMValue(const TCIMValue& other) : TCIMValue() {
  Set(other);
}

// Like a copy it takes along only what belongs to the type.
TCIMValue::TCIMValue(TCIMValue&& other) noexcept
    : fType(other.fType), fBody(std::move(other.fBody)), fMaxArraySize(0) {
  if (IsArray()) {
    fMaxArraySize = other.fMaxArraySize;
  } else if (fType == TCIMType::kCIMTypeReference) {
    fReferencedClass = other.fReferencedClass;
  }
}

TCIMValue::~TCIMValue() = default;

TCIMValue& TCIMValue::operator=(
    const TCIMValue& other) {  // NOLINT(bugprone-unhandled-self-assignment)
  Set(other);
  return *this;
}

// The old body leaves the value first: if the new one can't be made, the value is null. It is kept
// alive to the end, since an argument may lie inside it. Contract: scalar-keeps-the-rest.
template <typename Body, typename... Arguments>
void TCIMValue::SetBody(TCIMType type, const Arguments&... arguments) {
  fType = type;
  const std::unique_ptr<TCIMValueImpl> old = std::move(fBody);
  fBody = std::make_unique<Body>(arguments...);
}

// As `Set(TCIMReference&)`, without a copy of the reference.
void TCIMValue::SetBody(std::unique_ptr<TCIMReferenceValueImpl> body) {
  const TCIMReference& reference = body->GetReference();
  fType = TCIMType::kCIMTypeReference;
  fBody = std::move(body);
  fReferencedClass = reference.GetClass();
}

void TCIMValue::Set(bool value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeBoolean, value);
}

void TCIMValue::Set(unsigned char value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeUInt8, value);
}

void TCIMValue::Set(signed char value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeSInt8, value);
}

void TCIMValue::Set(unsigned short value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeUInt16, value);
}

void TCIMValue::Set(short value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeSInt16, value);
}

void TCIMValue::Set(unsigned int value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeUInt32, value);
}

void TCIMValue::Set(int value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeSInt32, value);
}

void TCIMValue::Set(unsigned long value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeUInt64, value);
}

void TCIMValue::Set(long value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeSInt64, value);
}

void TCIMValue::Set(float value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeReal32, value);
}

void TCIMValue::Set(double value) {
  SetBody<TCIMNumericValueImpl>(TCIMType::kCIMTypeReal64, value);
}

void TCIMValue::Set(const char* value) {
  SetBody<TCIMStringValueImpl>(TCIMType::kCIMTypeString, value);
}

void TCIMValue::Set(const std::string& value) {
  SetBody<TCIMStringValueImpl>(TCIMType::kCIMTypeString, value);
}

void TCIMValue::Set(const TCIMChar16& value) {
  SetBody<TCIMChar16ValueImpl>(TCIMType::kCIMTypeChar16, value);
}

void TCIMValue::Set(const TCIMDateTime& value) {
  SetBody<TCIMDateTimeValueImpl>(TCIMType::kCIMTypeDateTime, value);
}

void TCIMValue::Set(TCIMReference& value) {
  SetBody<TCIMReferenceValueImpl>(TCIMType::kCIMTypeReference, value);
  // Throws for a reference without a class. Contract: reference-stored-first.
  fReferencedClass = value.GetClass();
}

void TCIMValue::Set(TCIMType type, unsigned int maxArraySize,
                    const std::vector<TCIMValue>& elements) {
  fMaxArraySize = maxArraySize;
  SetBody<TCIMArrayValueImpl>(WithArrayFlag(type), elements);
  // Contract: elements-stored-first. The copies are checked: `elements` may have been part of the
  // old body, which is gone.
  CheckElementTypes(type, BodyOfType(fType));
}

// The other's body, if it has one, is copied as the concrete class that its tag tells.
template <typename Body>
void TCIMValue::CopyBody(const TCIMValue& other) {
  if (!other.IsNull()) fBody = std::make_unique<Body>(static_cast<const Body&>(*other.fBody));
}

void TCIMValue::Set(const TCIMValue& other) {
  if (*this == other) return;  // Contract: assignment-compares-first.
  // The old body leaves the value first, and is kept alive to the end: `other` may lie inside it.
  const std::unique_ptr<TCIMValueImpl> old = std::move(fBody);
  fType = other.fType;
  if (IsArray()) {  // Contract: array-leaves-class.
    fMaxArraySize = other.fMaxArraySize;
    return CopyBody<TCIMArrayValueImpl>(other);
  }
  if (IsNumericType(fType)) return CopyBody<TCIMNumericValueImpl>(other);
  switch (fType) {
    case TCIMType::kCIMTypeChar16:
      return CopyBody<TCIMChar16ValueImpl>(other);
    case TCIMType::kCIMTypeString:
      return CopyBody<TCIMStringValueImpl>(other);
    case TCIMType::kCIMTypeDateTime:
      return CopyBody<TCIMDateTimeValueImpl>(other);
    case TCIMType::kCIMTypeReference:  // Contract: null-reference-has-class.
      fReferencedClass = other.fReferencedClass;
      return CopyBody<TCIMReferenceValueImpl>(other);
    default:
      ThrowTypeMismatch();  // Contract: untyped-assignment-destroys.
  }
}

void TCIMValue::SetNullValue(TCIMType::ECIMType type, unsigned int maxArraySize) {
  fType = type;
  if (IsArray()) fMaxArraySize = maxArraySize;  // Contract: null-keeps-the-rest.
  fBody.reset();
}

bool TCIMValue::IsNull() const {
  return !fBody;
}

bool TCIMValue::IsArray() const {
  return (fType & TCIMType::kCIMTypeArrayFlag) != 0;
}

bool TCIMValue::IsReference() const {
  return fType == TCIMType::kCIMTypeReference;  // Contract: reference-array-is-none.
}

TCIMValue::TCIMType TCIMValue::GetType() const {
  return fType;
}

unsigned int TCIMValue::GetMaxArraySize() const {
  return fMaxArraySize;
}

boost::shared_ptr<ICIMClass> TCIMValue::GetReferencedClass() const {
  return fReferencedClass;
}

void TCIMValue::SetReferencedClass(boost::shared_ptr<ICIMClass> referencedClass) {
  // Contract: class-of-null-alone.
  if (!IsNull()) throw THWXException(kHWXStatusInvalidOpSequence);
  fReferencedClass.swap(referencedClass);
}

std::string TCIMValue::ToString(unsigned char base) const {
  if (IsNull()) throw THWXException(kHWXStatusValueIsNULL);  // Contract: null-does-not-print.
  return fBody->ToString(base);
}

// Contract: no-conversion.
const TCIMValueImpl& TCIMValue::BodyOfType(TCIMType::ECIMType type) const {
  if (IsNull()) throw THWXException(kHWXStatusValueIsNULL);
  if (fType != type) ThrowTypeMismatch();
  return *fBody;
}

TCIMValue::operator bool() const {
  return BodyOfType(TCIMType::kCIMTypeBoolean);
}
TCIMValue::operator unsigned char() const {
  return BodyOfType(TCIMType::kCIMTypeUInt8);
}
TCIMValue::operator signed char() const {
  return BodyOfType(TCIMType::kCIMTypeSInt8);
}
TCIMValue::operator unsigned short() const {
  return BodyOfType(TCIMType::kCIMTypeUInt16);
}
TCIMValue::operator short() const {
  return BodyOfType(TCIMType::kCIMTypeSInt16);
}
TCIMValue::operator unsigned int() const {
  return BodyOfType(TCIMType::kCIMTypeUInt32);
}
TCIMValue::operator int() const {
  return BodyOfType(TCIMType::kCIMTypeSInt32);
}
TCIMValue::operator unsigned long() const {
  return BodyOfType(TCIMType::kCIMTypeUInt64);
}
TCIMValue::operator long() const {
  return BodyOfType(TCIMType::kCIMTypeSInt64);
}
TCIMValue::operator float() const {
  return BodyOfType(TCIMType::kCIMTypeReal32);
}
TCIMValue::operator double() const {
  return BodyOfType(TCIMType::kCIMTypeReal64);
}
TCIMValue::operator std::string() const {
  return BodyOfType(TCIMType::kCIMTypeString);
}
TCIMValue::operator TCIMDateTime() const {
  return BodyOfType(TCIMType::kCIMTypeDateTime);
}
TCIMValue::operator TCIMReference() const {
  return BodyOfType(TCIMType::kCIMTypeReference);
}

TCIMValue::operator std::vector<TCIMValue>&() const {
  if (IsNull()) throw THWXException(kHWXStatusValueIsNULL);
  if (!IsArray()) ThrowTypeMismatch();
  return *fBody;
}

bool TCIMValue::operator<(const TCIMValue& other) const {
  if (IsNull()) return !other.IsNull();
  if (other.IsNull()) return false;
  if (fType == other.fType) return *fBody < other;
  // Contract: types-sort-by-number.
  return static_cast<int>(fType) < static_cast<int>(other.fType);
}

bool TCIMValue::operator==(const TCIMValue& other) const {
  if (IsNull() != other.IsNull()) return false;
  if (fType != other.fType) return false;  // Contract: nulls-of-two-types.
  if (!IsNull()) return *fBody == other;
  if (IsReference()) return fReferencedClass == other.fReferencedClass;
  if (IsArray()) return fMaxArraySize == other.fMaxArraySize;  // Contract: maximum-not-enforced.
  return true;
}

bool TCIMValue::operator!=(const TCIMValue& other) const {
  return !(*this == other);
}

bool TCIMValue::operator>=(const TCIMValue& other) const {
  return !(*this < other);
}

// Contract: equality-asked-first.
bool TCIMValue::operator<=(const TCIMValue& other) const {
  return *this == other || *this < other;
}

bool TCIMValue::operator>(const TCIMValue& other) const {
  return !(*this == other) && !(*this < other);
}

}  // namespace NQORHWX20
