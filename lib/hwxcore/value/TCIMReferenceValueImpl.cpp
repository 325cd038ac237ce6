#include "hwxcore/value/TCIMReferenceValueImpl.h"

namespace NQORHWX20 {

namespace {

bool IsNonNullReference(const TCIMValue& value) {
  return value.IsReference() && !value.IsNull();
}

}  // namespace

TCIMReferenceValueImpl::TCIMReferenceValueImpl(const TCIMReference& value) : fValue(value) {}

TCIMReferenceValueImpl::~TCIMReferenceValueImpl() = default;

TCIMReferenceValueImpl::operator TCIMReference() const {
  return fValue;
}

std::string TCIMReferenceValueImpl::ToString(unsigned char /*base*/) const {
  return fValue.GetPath();
}

bool TCIMReferenceValueImpl::operator==(const TCIMValue& other) const {
  return IsNonNullReference(other) &&
         fValue == static_cast<const TCIMReferenceValueImpl&>(*BodyOf(other)).fValue;
}

bool TCIMReferenceValueImpl::operator<(const TCIMValue& other) const {
  return IsNonNullReference(other) &&
         fValue < static_cast<const TCIMReferenceValueImpl&>(*BodyOf(other)).fValue;
}

}  // namespace NQORHWX20
