#include "hwxkit/TMemoryInstance.h"

#include <boost/make_shared.hpp>
#include <utility>

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryProperty.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/detail/Enumerate.h"
#include "hwxkit/detail/InstanceValues.h"
#include "hwxkit/detail/ValueText.h"

namespace NQORHWX20 {

TMemoryInstance::TMemoryInstance(const boost::shared_ptr<TMemoryClass>& instanceClass)
    : fClass(instanceClass),
      fValues(boost::make_shared<detail::TInstanceValues>(instanceClass->PropertyDecls().size())),
      fHeld(false) {}

TMemoryInstance::~TMemoryInstance() = default;

void TMemoryInstance::Delete(TCIMContext /*context*/) {
  if (!fHeld) throw THWXException(kHWXStatusInvalidOpSequence);
  fClass->RemoveInstance(shared_from_this());
}

boost::shared_ptr<ICIMInstance> TMemoryInstance::Clone(TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryInstance> clone = fClass->NewInstance();
  for (std::size_t i = 0; i < fValues->fValues.size(); ++i) {
    const auto& value = fValues->fValues[i];
    if (value) clone->fValues->fValues[i].reset(new TCIMValue(*value));
  }
  if (fValues->fNotes)
    clone->fValues->fNotes.reset(new std::map<std::size_t, TElementNotes>(*fValues->fNotes));
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
  return static_cast<unsigned int>(fValues->fValues.size());
}

bool TMemoryInstance::HasProperty(const std::string& name, TCIMContext /*context*/) {
  return fClass->fProperties.Find(name) != nullptr;
}

void TMemoryInstance::EnumerateKeyProperties(
    const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
    TCIMContext /*context*/) {
  std::vector<boost::shared_ptr<TMemoryProperty> > keys;
  for (const std::size_t key : fClass->fKeys)
    keys.push_back(PropertyAt(key));
  detail::Enumerate(keys, callback);
}

std::size_t TMemoryInstance::IndexOf(const std::string& name) const {
  const std::size_t index = fClass->fProperties.IndexOf(name);
  if (index >= fValues->fValues.size()) throw THWXException(kHWXStatusNotFound);
  return index;
}

boost::shared_ptr<TMemoryProperty> TMemoryInstance::PropertyAt(std::size_t index) {
  return boost::shared_ptr<TMemoryProperty>(
      new TMemoryProperty(fClass->fProperties.Items()[index], weak_from_this(), fValues, index));
}

boost::shared_ptr<ICIMProperty> TMemoryInstance::GetProperty(const std::string& name,
                                                             TCIMContext /*context*/) {
  return PropertyAt(IndexOf(name));
}

void TMemoryInstance::CheckSettable(const TMemoryPropertyDecl& decl, const TCIMValue& value) const {
  decl.CheckFits(value);
  // The class finds the instance by its keys.
  if (fHeld && decl.IsKey()) throw THWXException(kHWXStatusInvalidOpSequence);
}

void TMemoryInstance::SetPropertyValue(const std::string& name, const TCIMValue& value,
                                       TCIMContext /*context*/) {
  const std::size_t index = IndexOf(name);
  CheckSettable(*fClass->fProperties.Items()[index], value);
  fValues->fValues[index].reset(new TCIMValue(value));  // copied first: it may lie in the old one
}

const TCIMValue& TMemoryInstance::ValueAt(std::size_t index) const {
  const auto& value = fValues->fValues[index];
  return value ? *value : fClass->fProperties.Items()[index]->GetDefaultValue(TCIMContext());
}

void TMemoryInstance::SetValueAt(std::size_t index, TCIMValue&& value) {
  CheckSettable(*fClass->fProperties.Items()[index], value);
  fValues->fValues[index].reset(new TCIMValue(std::move(value)));
}

const TElementNotes& TMemoryInstance::NotesAt(std::size_t index) const {
  static const TElementNotes none;
  if (!fValues->fNotes) return none;
  const auto found = fValues->fNotes->find(index);
  return found == fValues->fNotes->end() ? none : found->second;
}

void TMemoryInstance::SetNotesAt(std::size_t index, const TElementNotes& notes) {
  if (!fValues->fNotes) fValues->fNotes.reset(new std::map<std::size_t, TElementNotes>);
  (*fValues->fNotes)[index] = notes;
}

void TMemoryInstance::EnumerateProperties(
    const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
    TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryInstance> self = shared_from_this();  // the callback may delete it
  for (std::size_t i = 0; i < fValues->fValues.size(); ++i) {
    if (!callback(PropertyAt(i))) return;
  }
}

TMemoryInstance& TMemoryInstance::Set(const std::string& name, const TCIMValue& value) {
  SetPropertyValue(name, value, TCIMContext());
  return *this;
}

TMemoryInstance& TMemoryInstance::SetNull(const std::string& name) {
  const TCIMValue& defaultValue =
      fClass->fProperties.Items()[IndexOf(name)]->GetDefaultValue(TCIMContext());
  TCIMValue null(defaultValue.GetType(), defaultValue.GetMaxArraySize());
  null.SetReferencedClass(defaultValue.GetReferencedClass());  // a null reference has one too
  return Set(name, null);
}

std::string TMemoryInstance::KeyText() const {
  std::string text;
  for (const std::size_t key : fClass->fKeys) {
    if (!detail::AppendKeyText(ValueAt(key), text)) throw THWXException(kHWXStatusInvalidInstance);
  }
  return text;
}

}  // namespace NQORHWX20
