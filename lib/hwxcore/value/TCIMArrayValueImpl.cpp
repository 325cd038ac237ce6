#include "hwxcore/value/TCIMArrayValueImpl.h"

#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

TCIMArrayValueImpl::~TCIMArrayValueImpl() = default;

// Contract: elements-unguarded.
TCIMArrayValueImpl::operator std::vector<TCIMValue>&() const {
  return fElements;
}

// Contract: array-text-unquoted.
std::string TCIMArrayValueImpl::ToString(unsigned char base) const {
  std::string text = "{ ";
  const char* separator = "";
  for (const TCIMValue& element : fElements) {
    text += separator;
    text += element.ToString(base);
    separator = ", ";
  }
  text += " }";
  return text;
}

bool TCIMArrayValueImpl::operator==(const TCIMValue& other) const {
  if (!other.IsArray() || other.IsNull()) return false;
  return fElements == static_cast<const TCIMArrayValueImpl&>(*BodyOf(other)).fElements;
}

// Contract: arrays-have-no-order.
bool TCIMArrayValueImpl::operator<(const TCIMValue& /*other*/) const {
  throw THWXException(kHWXStatusNotImplemented);
}

}  // namespace NQORHWX20
