#include "hwxkit/TMemoryInstance.h"

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryProperty.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/detail/Enumerate.h"
#include "hwxkit/detail/ValueText.h"

namespace NQORHWX20 {

TMemoryInstance::TMemoryInstance(const boost::shared_ptr<TMemoryClass>& instanceClass)
    : fClass(instanceClass), fHeld(false) {}

TMemoryInstance::~TMemoryInstance() = default;

void TMemoryInstance::CreateProperties() {
  fProperties.reserve(fClass->fProperties.Items().size());
  for (const auto& decl : fClass->fProperties.Items()) {
    fProperties.push_back(boost::shared_ptr<TMemoryProperty>(
        new TMemoryProperty(decl, weak_from_this(), decl->GetDefaultValue(TCIMContext()))));
  }
}

void TMemoryInstance::Delete(TCIMContext /*context*/) {
  if (!fHeld) throw THWXException(kHWXStatusInvalidOpSequence);
  fClass->RemoveInstance(shared_from_this());
}

boost::shared_ptr<ICIMInstance> TMemoryInstance::Clone(TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryInstance> clone = fClass->NewInstance();
  for (std::size_t i = 0; i < fProperties.size(); ++i)
    clone->fProperties[i]->Replace(*fProperties[i]->fValue);
  return clone;
}

bool TMemoryInstance::IsInstanceOf(const std::string& className, TCIMContext /*context*/) {
  return IsSameCIMName(className, fClass->fName) || fClass->IsSubClassOf(className, TCIMContext());
}

const std::string& TMemoryInstance::GetClassName(TCIMContext /*context*/) {
  return fClass->fName;
}

boost::shared_ptr<ICIMNamespace> TMemoryInstance::GetNamespace(TCIMContext /*context*/) {
  return fClass->GetNamespace(TCIMContext());
}

boost::shared_ptr<ICIMClass> TMemoryInstance::GetClass(TCIMContext /*context*/) {
  return fClass;
}

unsigned int TMemoryInstance::GetPropertyCount(TCIMContext /*context*/) {
  return static_cast<unsigned int>(fProperties.size());
}

bool TMemoryInstance::HasProperty(const std::string& name, TCIMContext /*context*/) {
  return fClass->fProperties.Find(name) != nullptr;
}

void TMemoryInstance::EnumerateKeyProperties(
    const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
    TCIMContext /*context*/) {
  std::vector<boost::shared_ptr<TMemoryProperty> > keys;
  for (const std::size_t key : fClass->fKeys)
    keys.push_back(fProperties[key]);
  detail::Enumerate(keys, callback);
}

boost::shared_ptr<TMemoryProperty> TMemoryInstance::FindProperty(const std::string& name) const {
  const std::size_t index = fClass->fProperties.IndexOf(name);
  if (index >= fProperties.size()) throw THWXException(kHWXStatusNotFound);
  return fProperties[index];
}

boost::shared_ptr<ICIMProperty> TMemoryInstance::GetProperty(const std::string& name,
                                                             TCIMContext /*context*/) {
  return FindProperty(name);
}

void TMemoryInstance::SetPropertyValue(const std::string& name, const TCIMValue& value,
                                       TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryProperty> property = FindProperty(name);
  property->CheckType(value);
  // The class finds the instance by its keys.
  if (fHeld && property->fDecl->IsKey()) throw THWXException(kHWXStatusInvalidOpSequence);
  property->Replace(value);
}

void TMemoryInstance::EnumerateProperties(
    const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
    TCIMContext /*context*/) {
  detail::Enumerate(fProperties, callback);
}

TMemoryInstance& TMemoryInstance::Set(const std::string& name, const TCIMValue& value) {
  SetPropertyValue(name, value, TCIMContext());
  return *this;
}

TMemoryInstance& TMemoryInstance::SetNull(const std::string& name) {
  const TCIMValue& defaultValue = FindProperty(name)->fDecl->GetDefaultValue(TCIMContext());
  TCIMValue null(defaultValue.GetType(), defaultValue.GetMaxArraySize());
  null.SetReferencedClass(defaultValue.GetReferencedClass());  // a null reference has one too
  return Set(name, null);
}

std::string TMemoryInstance::KeyText() const {
  std::string text;
  for (const std::size_t key : fClass->fKeys) {
    if (!detail::AppendKeyText(*fProperties[key]->fValue, text))
      throw THWXException(kHWXStatusInvalidInstance);
  }
  return text;
}

}  // namespace NQORHWX20
