#include "hwxkit/TMemoryClass.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TInstanceList.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryMethodDecl.h"
#include "hwxkit/TMemoryNamespace.h"
#include "hwxkit/TMemoryProperty.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/detail/ClassContents.h"
#include "hwxkit/detail/Enumerate.h"
#include "hwxkit/detail/ReferencedClass.h"
#include "hwxkit/detail/ValueText.h"

namespace NQORHWX20 {

TMemoryClass::TMemoryClass(const boost::shared_ptr<TMemoryNamespace>& ns, const std::string& name,
                           const boost::shared_ptr<TMemoryClass>& superclass)
    : TMemoryQualifiedElement<ICIMClass>(
          TQualifierTable::Create(ns, superclass ? superclass->fQualifiers.get() : nullptr)),
      fNamespace(ns),
      fName(name),
      fSuperClass(superclass),
      fDepth(superclass ? superclass->fDepth + 1 : 1),
      fIsOutside(false),
      fCommitted(false),
      fCommitOrder(0),
      fOpenContents(new detail::TClassContents),
      fContents(fOpenContents) {
  if (!superclass) return;
  for (const auto& decl : superclass->fProperties.Items())
    fProperties.Put(decl->GetName(TCIMContext()), decl->InheritedForm());
  for (const auto& decl : superclass->fMethods.Items())
    fMethods.Put(decl->GetName(TCIMContext()), decl->InheritedForm());
}

TMemoryClass::~TMemoryClass() = default;

// The definition.

void TMemoryClass::CheckOpen() const {
  if (fCommitted) throw THWXException(kHWXStatusInvalidOpSequence);
}

boost::shared_ptr<detail::TClassContents> TMemoryClass::Contents() const {
  boost::shared_ptr<detail::TClassContents> contents = fContents.lock();
  if (!contents) throw THWXException(kHWXStatusInvalidOpSequence);
  return contents;
}

void TMemoryClass::Commit(TCIMContext /*context*/) {
  CheckOpen();
  const boost::shared_ptr<TMemoryNamespace> ns = fNamespace.lock();
  if (!ns) throw THWXException(kHWXStatusInvalidOpSequence);
  ns->CommitClass(shared_from_this());
}

void TMemoryClass::Finish(unsigned long commitOrder) {
  for (std::size_t i = 0; i < fProperties.Items().size(); ++i) {
    if (fProperties.Items()[i]->IsKey()) fKeys.push_back(i);
  }
  for (const auto& method : fMethods.Items())
    method->fQualifiers->Close();
  fQualifiers->Close();
  fOpenContents.reset();  // the namespace holds them now
  fCommitOrder = commitOrder;
  fCommitted = true;
}

bool TMemoryClass::IsCommitted(TCIMContext /*context*/) {
  return fCommitted;
}

void TMemoryClass::Delete(TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryNamespace> ns = fNamespace.lock();
  if (!ns || ns->FindClass(fName).get() != this) throw THWXException(kHWXStatusInvalidOpSequence);
  ns->DeleteClass(fName, TCIMContext());
}

const std::string& TMemoryClass::GetName(TCIMContext /*context*/) {
  return fName;
}

boost::shared_ptr<ICIMNamespace> TMemoryClass::GetNamespace(TCIMContext /*context*/) {
  return fNamespace.lock();
}

bool TMemoryClass::IsAssociation(TCIMContext /*context*/) {
  return fQualifiers->IsTrue("Association");
}

bool TMemoryClass::IsAbstract(TCIMContext /*context*/) {
  return fQualifiers->IsTrue("Abstract");
}

// The class tree.

bool TMemoryClass::IsRootClass(TCIMContext /*context*/) {
  return !fSuperClass;
}

boost::shared_ptr<ICIMClass> TMemoryClass::GetSuperClass(TCIMContext /*context*/) {
  if (!fSuperClass) throw THWXException(kHWXStatusNotFound);
  return fSuperClass;
}

void TMemoryClass::CollectSubClasses(bool deep, TClasses& classes) const {
  for (const auto& subclass : fSubClasses) {
    if (const boost::shared_ptr<TMemoryClass> living = subclass.lock()) {
      classes.push_back(living);
      if (deep) living->CollectSubClasses(deep, classes);
    }
  }
}

TMemoryClass::TClasses TMemoryClass::SubClasses(bool deep) const {
  TClasses classes;
  CollectSubClasses(deep, classes);
  std::sort(classes.begin(), classes.end(), [](const auto& left, const auto& right) {
    return left->fCommitOrder < right->fCommitOrder;
  });
  return classes;
}

void TMemoryClass::RemoveSubClass(const TMemoryClass& subclass) {
  const auto isIt = [&subclass](const boost::weak_ptr<TMemoryClass>& candidate) {
    return candidate.lock().get() == &subclass;
  };
  fSubClasses.erase(std::remove_if(fSubClasses.begin(), fSubClasses.end(), isIt),
                    fSubClasses.end());
}

void TMemoryClass::EnumerateSubClasses(
    const boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback, bool deep,
    TCIMContext /*context*/) {
  detail::Enumerate(SubClasses(deep), callback);
}

unsigned int TMemoryClass::GetSubClassCount(bool deep, TCIMContext /*context*/) {
  return static_cast<unsigned int>(SubClasses(deep).size());
}

bool TMemoryClass::HasSubClasses(TCIMContext /*context*/) {
  return !SubClasses(false).empty();
}

bool TMemoryClass::IsSubClassOf(const std::string& name, TCIMContext /*context*/) {
  for (const TMemoryClass* c = fSuperClass.get(); c; c = c->fSuperClass.get()) {
    if (IsSameCIMName(c->fName, name)) return true;
  }
  return false;
}

bool TMemoryClass::IsSuperClassOf(const std::string& name, TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryNamespace> ns = fNamespace.lock();
  const boost::shared_ptr<TMemoryClass> other = ns ? ns->FindClass(name) : nullptr;
  return other && other.get() != this && other->DescendsFrom(*this);
}

bool TMemoryClass::DescendsFrom(const TMemoryClass& ancestor) const {
  const TMemoryClass* c = this;
  while (c && c != &ancestor)
    c = c->fSuperClass.get();
  return c != nullptr;
}

// Property declarations and static values.

boost::shared_ptr<ICIMPropertyDecl> TMemoryClass::CreatePropertyDecl(const std::string& name,
                                                                     const TCIMValue& defaultValue,
                                                                     TCIMContext /*context*/) {
  CheckOpen();
  CheckCIMName(name);
  defaultValue.GetType().ToString();  // throws for a type without a name
  detail::CheckReferencedClass(defaultValue);
  const boost::shared_ptr<TMemoryPropertyDecl> there = fProperties.Find(name);
  if (there && !there->IsInherited()) throw THWXException(kHWXStatusAlreadyExists);
  if (there && there->GetType(TCIMContext()) != defaultValue.GetType())
    throw THWXException(kHWXStatusNotOverridable);
  const auto qualifiers =
      TQualifierTable::Create(fNamespace, there ? there->fQualifiers.get() : nullptr);
  return boost::shared_ptr<TMemoryPropertyDecl>(new TMemoryPropertyDecl(
      weak_from_this(), name, defaultValue, qualifiers, there && there->IsKey(), false));
}

void TMemoryClass::CommitProperty(const boost::shared_ptr<TMemoryPropertyDecl>& decl) {
  CheckOpen();
  const boost::shared_ptr<TMemoryPropertyDecl> there = fProperties.Find(decl->fName);
  if (there && !there->IsInherited()) throw THWXException(kHWXStatusAlreadyExists);
  fProperties.Put(decl->fName, decl);
}

boost::shared_ptr<TMemoryPropertyDecl> TMemoryClass::FindPropertyDecl(
    const std::string& name) const {
  return fProperties.Find(name);
}

std::size_t TMemoryClass::PropertyIndex(const std::string& name) const {
  return std::min(fProperties.IndexOf(name), fProperties.Items().size());
}

boost::shared_ptr<ICIMPropertyDecl> TMemoryClass::GetPropertyDecl(const std::string& name,
                                                                  TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryPropertyDecl> decl = fProperties.Find(name);
  if (!decl) throw THWXException(kHWXStatusNotFound);
  return decl;
}

void TMemoryClass::EnumeratePropertyDecls(
    const boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback,
    TCIMContext /*context*/) {
  detail::Enumerate(fProperties.Items(), callback);
}

unsigned int TMemoryClass::GetPropertyDeclCount(TCIMContext /*context*/) {
  return static_cast<unsigned int>(fProperties.Items().size());
}

void TMemoryClass::EnumerateKeyPropertyDecls(
    const boost::function<bool(boost::shared_ptr<ICIMPropertyDecl>)>& callback,
    TCIMContext /*context*/) {
  std::vector<boost::shared_ptr<TMemoryPropertyDecl> > keys;
  for (const auto& decl : fProperties.Items()) {
    if (decl->IsKey()) keys.push_back(decl);
  }
  detail::Enumerate(keys, callback);
}

void TMemoryClass::SetStaticPropertyValue(const std::string& name, const TCIMValue& value,
                                          TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryPropertyDecl> decl = fProperties.Find(name);
  if (!decl) throw THWXException(kHWXStatusNotFound);
  detail::CheckReferencedClass(value);
  decl->CheckFits(value);
  const boost::shared_ptr<TMemoryProperty> property(new TMemoryProperty(decl, value));
  TNameTable<TMemoryProperty>& statics = Contents()->fStatics;
  if (const boost::shared_ptr<TMemoryProperty> there = statics.Find(name))
    there->Replace(value);
  else
    statics.Put(name, property);
}

void TMemoryClass::EnumerateStaticProperties(
    const boost::function<bool(boost::shared_ptr<ICIMProperty>)>& callback,
    TCIMContext /*context*/) {
  if (const boost::shared_ptr<detail::TClassContents> contents = fContents.lock())
    detail::Enumerate(contents->fStatics.Items(), callback);
}

boost::shared_ptr<ICIMProperty> TMemoryClass::GetStaticProperty(const std::string& name,
                                                                TCIMContext /*context*/) {
  for (const TMemoryClass* c = this; c; c = c->fSuperClass.get()) {
    const boost::shared_ptr<detail::TClassContents> contents = c->fContents.lock();
    if (!contents) continue;
    if (const boost::shared_ptr<TMemoryProperty> found = contents->fStatics.Find(name))
      return found;
  }
  throw THWXException(kHWXStatusNotFound);
}

void TMemoryClass::DeleteStaticProperty(const std::string& name, TCIMContext /*context*/) {
  const boost::shared_ptr<detail::TClassContents> contents = fContents.lock();
  if (!contents || !contents->fStatics.Find(name)) throw THWXException(kHWXStatusNotFound);
  contents->fStatics.Remove(name);
}

// Method declarations.

boost::shared_ptr<ICIMMethodDecl> TMemoryClass::CreateMethodDecl(const std::string& name,
                                                                 TCIMValue::TCIMType returnType,
                                                                 TCIMContext /*context*/) {
  CheckOpen();
  CheckCIMName(name);
  if (returnType != TCIMValue::TCIMType::kCIMTypeNone) returnType.ToString();  // may throw
  const boost::shared_ptr<TMemoryMethodDecl> there = fMethods.Find(name);
  if (there && !there->IsInherited()) throw THWXException(kHWXStatusAlreadyExists);
  if (there && there->fReturnType != returnType) throw THWXException(kHWXStatusNotOverridable);
  const auto qualifiers =
      TQualifierTable::Create(fNamespace, there ? there->fQualifiers.get() : nullptr);
  const boost::shared_ptr<TMemoryMethodDecl> method(
      new TMemoryMethodDecl(weak_from_this(), name, returnType, qualifiers, there, false));
  fMethods.Put(name, method);
  return method;
}

boost::shared_ptr<TMemoryMethodDecl> TMemoryClass::FindMethodDecl(const std::string& name) const {
  return fMethods.Find(name);
}

boost::shared_ptr<ICIMMethodDecl> TMemoryClass::GetMethodDecl(const std::string& name,
                                                              TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryMethodDecl> method = fMethods.Find(name);
  if (!method) throw THWXException(kHWXStatusNotFound);
  return method;
}

void TMemoryClass::EnumerateMethodDecls(
    const boost::function<bool(boost::shared_ptr<ICIMMethodDecl>)>& callback,
    TCIMContext /*context*/) {
  detail::Enumerate(fMethods.Items(), callback);
}

unsigned int TMemoryClass::GetMethodDeclCount(TCIMContext /*context*/) {
  return static_cast<unsigned int>(fMethods.Items().size());
}

// Classes outside the namespace.

bool TMemoryClass::HasOutsideAncestor() const {
  const TMemoryClass* c = fSuperClass.get();
  while (c && !c->fIsOutside)
    c = c->fSuperClass.get();
  return c != nullptr;
}

void TMemoryClass::DeclareOutsideKey(const std::string& name, TCIMValue::TCIMType type) {
  if (!fIsOutside || fProperties.Find(name)) throw THWXException(kHWXStatusInvalidOpSequence);
  CheckCIMName(name);
  const auto qualifiers = TQualifierTable::Create(fNamespace, nullptr);
  qualifiers->Close();
  fProperties.Put(name, boost::shared_ptr<TMemoryPropertyDecl>(new TMemoryPropertyDecl(
                            weak_from_this(), name, TCIMValue(type, 0), qualifiers, true, true)));
}

// Instances.

void TMemoryClass::SetInstanceSource(const TInstanceSource& source) {
  fSource = source;
}

boost::shared_ptr<TMemoryInstance> TMemoryClass::NewInstance() {
  if (!fCommitted) throw THWXException(kHWXStatusInvalidOpSequence);
  if (IsAbstract(TCIMContext())) throw THWXException(kHWXStatusInvalidClass);
  const boost::shared_ptr<TMemoryInstance> instance(new TMemoryInstance(shared_from_this()));
  return instance;
}

boost::shared_ptr<ICIMInstance> TMemoryClass::CreateInstance(TCIMContext /*context*/) {
  return NewInstance();
}

// The uppermost class with the same keys: a subclass has all keys of its superclass.
const TMemoryClass& TMemoryClass::KeyRoot() const {
  const TMemoryClass* root = this;
  while (root->fSuperClass && root->fSuperClass->fKeys.size() == fKeys.size())
    root = root->fSuperClass.get();
  return *root;
}

void TMemoryClass::AddInstance(boost::shared_ptr<ICIMInstance> newInstance) {
  if (!fCommitted) throw THWXException(kHWXStatusInvalidOpSequence);
  const auto instance = boost::dynamic_pointer_cast<TMemoryInstance>(newInstance);
  if (!instance || instance->fClass.get() != this) throw THWXException(kHWXStatusInvalidInstance);
  if (instance->fHeld) throw THWXException(kHWXStatusInvalidOpSequence);
  const boost::shared_ptr<detail::TClassContents> contents = Contents();
  const std::string keyText = instance->KeyText();
  auto& instances = contents->fInstances;
  if (instances.size() == instances.capacity()) instances.reserve(2 * instances.size() + 1);
  if (!fKeys.empty() && !KeyRoot().Contents()->fInstancesByKey.emplace(keyText, instance).second)
    throw THWXException(kHWXStatusAlreadyExists);
  instances.push_back(instance);
  instance->fHeld = true;
}

void TMemoryClass::RemoveInstance(const boost::shared_ptr<TMemoryInstance>& instance) {
  auto& instances = Contents()->fInstances;
  if (!fKeys.empty()) KeyRoot().Contents()->fInstancesByKey.erase(instance->KeyText());
  instances.erase(std::remove(instances.begin(), instances.end(), instance), instances.end());
  instance->fHeld = false;
}

void TMemoryClass::DeleteInstances(TCIMContext /*context*/) {
  const boost::shared_ptr<detail::TClassContents> contents = fContents.lock();
  if (!contents) return;
  const TInstances instances = std::exchange(contents->fInstances, TInstances());
  for (const auto& instance : instances) {
    if (!fKeys.empty()) KeyRoot().Contents()->fInstancesByKey.erase(instance->KeyText());
    instance->fHeld = false;
  }
}

TMemoryClass::TInstances TMemoryClass::AddedInstances() const {
  const boost::shared_ptr<detail::TClassContents> contents = fContents.lock();
  return contents ? contents->fInstances : TInstances();
}

// What the source makes and the class can take; `failure` is the first thing that went wrong.
TMemoryClass::TInstances TMemoryClass::LiveInstances(std::exception_ptr& failure) {
  const TInstanceSource source = fSource;  // which may replace itself
  if (!source || !fCommitted) return TInstances();
  TInstanceList list(shared_from_this());
  try {
    source(list);
  } catch (...) {
    failure = std::current_exception();
  }
  if (fKeys.empty()) return list.GetInstances();
  TInstances sound;
  std::unordered_set<std::string> keyTexts;
  for (const auto& instance : list.GetInstances()) {
    try {
      const std::string keyText = instance->KeyText();
      if (KeyRoot().FindAdded(keyText) || !keyTexts.insert(keyText).second)
        throw THWXException(kHWXStatusAlreadyExists);
      sound.push_back(instance);
    } catch (const THWXException&) {  // costs itself alone
      if (!failure) failure = std::current_exception();
    }
  }
  return sound;
}

void TMemoryClass::EnumerateInstances(
    const boost::function<bool(boost::shared_ptr<ICIMInstance>)>& callback, bool deep,
    TCIMContext /*context*/) {
  TClasses classes(1, shared_from_this());
  if (deep) {
    const TClasses subclasses = SubClasses(true);
    classes.insert(classes.end(), subclasses.begin(), subclasses.end());
  }
  std::vector<TInstances> added;
  for (const auto& c : classes)
    added.push_back(c->AddedInstances());
  for (std::size_t i = 0; i < classes.size(); ++i) {
    if (!detail::Enumerate(added[i], callback)) return;
    std::exception_ptr failure;
    if (!detail::Enumerate(classes[i]->LiveInstances(failure), callback)) return;
    if (failure) std::rethrow_exception(failure);
  }
}

unsigned int TMemoryClass::GetInstanceCount(bool deep, TCIMContext /*context*/) {
  unsigned int count = 0;
  EnumerateInstances([&count](boost::shared_ptr<ICIMInstance>) { return ++count, true; }, deep,
                     TCIMContext());
  return count;
}

// Instances by their keys.

bool TMemoryClass::ComposeKeyText(const std::map<std::string, TCIMValue>& keys,
                                  std::string& text) const {
  std::unordered_map<std::string, const TCIMValue*, TCIMNameHash, TCIMNameEqual> values;
  for (const auto& key : keys)
    values.emplace(key.first, &key.second);
  if (fKeys.empty() || keys.size() != fKeys.size()) return false;
  for (const std::size_t index : fKeys) {
    TMemoryPropertyDecl& decl = *fProperties.Items()[index];
    const auto value = values.find(decl.fName);
    if (value == values.end() || value->second->GetType() != decl.GetType(TCIMContext()) ||
        !detail::AppendKeyText(*value->second, text))
      return false;
  }
  return true;
}

boost::shared_ptr<TMemoryInstance> TMemoryClass::FindAdded(const std::string& keyText) const {
  const boost::shared_ptr<detail::TClassContents> contents = KeyRoot().fContents.lock();
  if (!contents) return boost::shared_ptr<TMemoryInstance>();
  const auto found = contents->fInstancesByKey.find(keyText);
  if (found == contents->fInstancesByKey.end() || !found->second->fClass->DescendsFrom(*this))
    return boost::shared_ptr<TMemoryInstance>();
  return found->second;
}

boost::shared_ptr<TMemoryInstance> TMemoryClass::FindLive(const std::string& keyText) {
  TClasses classes = SubClasses(true);
  classes.insert(classes.begin(), shared_from_this());
  for (const auto& c : classes) {
    if (c->fKeys.size() != fKeys.size()) continue;
    std::exception_ptr failure;
    for (const auto& instance : c->LiveInstances(failure)) {
      if (instance->KeyText() == keyText) return instance;
    }
    if (failure) std::rethrow_exception(failure);
  }
  return boost::shared_ptr<TMemoryInstance>();
}

}  // namespace NQORHWX20
