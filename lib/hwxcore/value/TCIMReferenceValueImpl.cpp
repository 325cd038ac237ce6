#include "hwxcore/value/TCIMReferenceValueImpl.h"

namespace NQORHWX20 {

TCIMReferenceValueImpl::TCIMReferenceValueImpl(const TCIMReference& value) : fValue(value) {}

TCIMReferenceValueImpl::~TCIMReferenceValueImpl() = default;

TCIMReferenceValueImpl::operator TCIMReference() const {
  return fValue;
}

std::string TCIMReferenceValueImpl::ToString(unsigned char /*base*/) const {
  return fValue.GetPath();
}

const TCIMReference* TCIMReferenceValueImpl::In(const TCIMValue& value) {
  if (!value.IsReference() || value.IsNull()) return nullptr;
  return &static_cast<const TCIMReferenceValueImpl&>(*BodyOf(value)).fValue;
}

bool TCIMReferenceValueImpl::operator==(const TCIMValue& other) const {
  const TCIMReference* const reference = In(other);
  return reference != nullptr && fValue == *reference;
}

bool TCIMReferenceValueImpl::operator<(const TCIMValue& other) const {
  const TCIMReference* const reference = In(other);
  return reference != nullptr && fValue < *reference;
}

}  // namespace NQORHWX20
