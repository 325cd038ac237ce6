#include "hwxkit/TMemoryProperty.h"

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/detail/ReferencedClass.h"

namespace NQORHWX20 {

namespace {

typedef TCIMValue::TCIMType TCIMType;

}  // namespace

TMemoryProperty::TMemoryProperty(const boost::shared_ptr<TMemoryPropertyDecl>& decl,
                                 const boost::weak_ptr<TMemoryInstance>& instance,
                                 const TCIMValue& value)
    : fDecl(decl), fInstance(instance), fValue(new TCIMValue(value)) {}

TMemoryProperty::~TMemoryProperty() = default;

void TMemoryProperty::CheckType(const TCIMValue& value) const {
  if (value.GetType() != fDecl->GetType(TCIMContext())) throw THWXException(kHWXStatusTypeMismatch);
  detail::CheckRefersTo(fDecl->GetDefaultValue(TCIMContext()).GetReferencedClass(), value);
}

void TMemoryProperty::Replace(const TCIMValue& value) {
  fValue.reset(new TCIMValue(value));  // copied first: `value` may lie in the old one
}

const std::string& TMemoryProperty::GetName(TCIMContext /*context*/) {
  return fDecl->GetName(TCIMContext());
}

TCIMType TMemoryProperty::GetType(TCIMContext /*context*/) {
  return fValue->GetType();
}

bool TMemoryProperty::IsNull(TCIMContext /*context*/) {
  return fValue->IsNull();
}

const TCIMValue& TMemoryProperty::GetValue(TCIMContext /*context*/) {
  return *fValue;
}

void TMemoryProperty::SetValue(const TCIMValue& value, TCIMContext context) {
  if (const boost::shared_ptr<TMemoryInstance> instance = fInstance.lock()) {
    instance->SetPropertyValue(fDecl->GetName(TCIMContext()), value, context);
    return;
  }
  CheckType(value);
  detail::CheckReferencedClass(value);
  Replace(value);
}

boost::shared_ptr<ICIMInstance> TMemoryProperty::GetInstance(TCIMContext /*context*/) {
  return fInstance.lock();
}

boost::shared_ptr<ICIMPropertyDecl> TMemoryProperty::GetPropertyDecl(TCIMContext /*context*/) {
  return fDecl;
}

bool TMemoryProperty::GetBooleanValue() {
  return fValue->operator bool();
}

unsigned short TMemoryProperty::GetUInt16Value() {
  return fValue->operator unsigned short();
}

unsigned int TMemoryProperty::GetUInt32Value() {
  return fValue->operator unsigned int();
}

unsigned long TMemoryProperty::GetUInt64Value() {
  return fValue->operator unsigned long();
}

int TMemoryProperty::GetSInt32Value() {
  return fValue->operator int();
}

long TMemoryProperty::GetSInt64Value() {
  return fValue->operator long();
}

double TMemoryProperty::GetReal64Value() {
  return fValue->operator double();
}

std::string TMemoryProperty::GetStringValue() {
  return fValue->operator std::string();
}

TCIMDateTime TMemoryProperty::GetDateTimeValue() {
  return fValue->operator TCIMDateTime();
}

std::vector<std::string> TMemoryProperty::GetStringArrayValue() {
  if (fValue->IsNull()) throw THWXException(kHWXStatusValueIsNULL);
  if (fValue->GetType() != (TCIMType::kCIMTypeString | TCIMType::kCIMTypeArrayFlag))
    throw THWXException(kHWXStatusTypeMismatch);
  const std::vector<TCIMValue>& elements = *fValue;
  std::vector<std::string> texts;
  texts.reserve(elements.size());
  for (const TCIMValue& element : elements)
    texts.push_back(element.operator std::string());
  return texts;
}

}  // namespace NQORHWX20
