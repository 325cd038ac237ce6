#include "hwxkit/TMemoryProperty.h"

#include <boost/make_shared.hpp>

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/detail/InstanceValues.h"
#include "hwxkit/detail/ReferencedClass.h"

namespace NQORHWX20 {

namespace {

using TCIMType = TCIMValue::TCIMType;

}  // namespace

TMemoryProperty::TMemoryProperty(const boost::shared_ptr<TMemoryPropertyDecl>& decl,
                                 const boost::weak_ptr<TMemoryInstance>& instance,
                                 const boost::shared_ptr<detail::TInstanceValues>& values,
                                 std::size_t index)
    : fDecl(decl), fInstance(instance), fValues(values), fIndex(index) {}

TMemoryProperty::TMemoryProperty(const boost::shared_ptr<TMemoryPropertyDecl>& decl,
                                 const TCIMValue& value)
    : fDecl(decl), fValues(boost::make_shared<detail::TInstanceValues>(1)), fIndex(0) {
  Replace(value);
}

TMemoryProperty::~TMemoryProperty() = default;

const TCIMValue& TMemoryProperty::Value() const {
  const auto& value = fValues->fValues[fIndex];
  return value ? *value : fDecl->GetDefaultValue(TCIMContext());
}

void TMemoryProperty::Replace(const TCIMValue& value) {
  fValues->fValues[fIndex].reset(new TCIMValue(value));  // copied first: it may lie in the old one
}

const TElementNotes& TMemoryProperty::GetNotes() const {
  static const TElementNotes none;
  if (!fValues->fNotes) return none;
  const auto found = fValues->fNotes->find(fIndex);
  return found == fValues->fNotes->end() ? none : found->second;
}

const std::string& TMemoryProperty::GetName(TCIMContext /*context*/) {
  return fDecl->GetName(TCIMContext());
}

TCIMType TMemoryProperty::GetType(TCIMContext /*context*/) {
  return Value().GetType();
}

bool TMemoryProperty::IsNull(TCIMContext /*context*/) {
  return Value().IsNull();
}

const TCIMValue& TMemoryProperty::GetValue(TCIMContext /*context*/) {
  return Value();
}

void TMemoryProperty::SetValue(const TCIMValue& value, TCIMContext context) {
  if (const boost::shared_ptr<TMemoryInstance> instance = fInstance.lock()) {
    instance->SetPropertyValue(fDecl->GetName(TCIMContext()), value, context);
    return;
  }
  fDecl->CheckFits(value);
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
  return Value().operator bool();
}

unsigned short TMemoryProperty::GetUInt16Value() {
  return Value().operator unsigned short();
}

unsigned int TMemoryProperty::GetUInt32Value() {
  return Value().operator unsigned int();
}

unsigned long TMemoryProperty::GetUInt64Value() {
  return Value().operator unsigned long();
}

int TMemoryProperty::GetSInt32Value() {
  return Value().operator int();
}

long TMemoryProperty::GetSInt64Value() {
  return Value().operator long();
}

double TMemoryProperty::GetReal64Value() {
  return Value().operator double();
}

std::string TMemoryProperty::GetStringValue() {
  return Value().operator std::string();
}

TCIMDateTime TMemoryProperty::GetDateTimeValue() {
  return Value().operator TCIMDateTime();
}

std::vector<std::string> TMemoryProperty::GetStringArrayValue() {
  if (Value().IsNull()) throw THWXException(kHWXStatusValueIsNULL);
  if (Value().GetType() != (TCIMType::kCIMTypeString | TCIMType::kCIMTypeArrayFlag))
    throw THWXException(kHWXStatusTypeMismatch);
  const std::vector<TCIMValue>& elements = Value();
  std::vector<std::string> texts;
  texts.reserve(elements.size());
  for (const TCIMValue& element : elements)
    texts.push_back(element.operator std::string());
  return texts;
}

}  // namespace NQORHWX20
