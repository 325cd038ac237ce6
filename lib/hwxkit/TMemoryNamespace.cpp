#include "hwxkit/TMemoryNamespace.h"

#include <utility>

#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/detail/ClassContents.h"
#include "hwxkit/detail/ContextProvider.h"
#include "hwxkit/detail/Enumerate.h"
#include "hwxkit/detail/ReferencedClass.h"

namespace NQORHWX20 {

TMemoryNamespace::TMemoryNamespace(const std::string& name, const std::string& providerName)
    : fName(name), fProviderName(providerName), fCommitments(0) {}

TMemoryNamespace::~TMemoryNamespace() = default;

boost::shared_ptr<TMemoryNamespace> TMemoryNamespace::Create(const std::string& name,
                                                             const std::string& providerName) {
  return boost::shared_ptr<TMemoryNamespace>(new TMemoryNamespace(name, providerName));
}

bool TMemoryNamespace::Answers(const TCIMContext& context) const {
  return fProviderName.empty() || detail::IsForProvider(context, fProviderName);
}

const std::string& TMemoryNamespace::GetName(TCIMContext /*context*/) {
  return fName;
}

unsigned int TMemoryNamespace::GetClassCount(TCIMContext /*context*/) {
  return static_cast<unsigned int>(fClasses.Items().size());
}

// Classes.

boost::shared_ptr<ICIMClass> TMemoryNamespace::CreateClass(const std::string& name,
                                                           boost::shared_ptr<ICIMClass> superclass,
                                                           TCIMContext /*context*/) {
  CheckCIMName(name);
  if (fClasses.Find(name)) throw THWXException(kHWXStatusAlreadyExists);
  const auto parent = boost::dynamic_pointer_cast<TMemoryClass>(superclass);
  if (superclass && (!parent || parent->fNamespace.lock().get() != this))
    throw THWXException(kHWXStatusInvalidClass);
  if (parent && !parent->fCommitted) throw THWXException(kHWXStatusInvalidOpSequence);
  if (parent && !Knows(parent)) throw THWXException(kHWXStatusInvalidClass);  // deleted
  if (parent && parent->fDepth >= kMaxClassDepth) throw THWXException(kHWXStatusNotSupported);
  return boost::shared_ptr<TMemoryClass>(new TMemoryClass(shared_from_this(), name, parent));
}

void TMemoryNamespace::CommitClass(const boost::shared_ptr<TMemoryClass>& newClass) {
  if (fClasses.Find(newClass->fName)) throw THWXException(kHWXStatusAlreadyExists);
  const boost::shared_ptr<TMemoryClass>& superclass = newClass->fSuperClass;
  if (superclass && !Knows(superclass)) throw THWXException(kHWXStatusInvalidClass);
  fContents[newClass.get()] = newClass->fOpenContents;
  fClasses.Put(newClass->fName, newClass);
  if (superclass) superclass->fSubClasses.push_back(newClass);
  newClass->Finish(++fCommitments);
}

std::vector<boost::shared_ptr<TMemoryClass> > TMemoryNamespace::GetClasses() const {
  return fClasses.Items();
}

boost::shared_ptr<TMemoryClass> TMemoryNamespace::FindClass(const std::string& name) const {
  return fClasses.Find(name);
}

boost::shared_ptr<TMemoryClass> TMemoryNamespace::OutsideClass(const std::string& name) {
  CheckCIMName(name);
  if (const boost::shared_ptr<TMemoryClass> found = fOutside.Find(name)) return found;
  const boost::shared_ptr<TMemoryClass> made(
      new TMemoryClass(shared_from_this(), name, boost::shared_ptr<TMemoryClass>()));
  made->fOpenContents.reset();
  made->fIsOutside = true;
  made->fCommitted = true;
  fOutside.Put(name, made);
  return made;
}

// Whether a class may be the superclass of another.
bool TMemoryNamespace::Knows(const boost::shared_ptr<TMemoryClass>& parent) const {
  return fClasses.Find(parent->fName) == parent || fOutside.Find(parent->fName) == parent;
}

boost::shared_ptr<ICIMClass> TMemoryNamespace::GetClass(const std::string& name,
                                                        TCIMContext context) {
  const boost::shared_ptr<TMemoryClass> found = fClasses.Find(name);
  if (!found || !Answers(context)) throw THWXException(kHWXStatusNotFound);
  return found;
}

void TMemoryNamespace::EnumerateClasses(
    const boost::function<bool(boost::shared_ptr<ICIMClass>)>& callback, TCIMContext context) {
  if (!Answers(context)) return;
  std::vector<boost::shared_ptr<TMemoryClass> > roots;
  for (const auto& c : fClasses.Items()) {
    if (!c->fSuperClass || fClasses.Find(c->fSuperClass->fName) != c->fSuperClass)
      roots.push_back(c);
  }
  detail::Enumerate(roots, callback);
}

void TMemoryNamespace::DeleteClass(const std::string& name, TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryClass> found = fClasses.Find(name);
  if (!found) throw THWXException(kHWXStatusNotFound);
  if (found->HasSubClasses(TCIMContext())) throw THWXException(kHWXStatusInvalidOpSequence);
  found->DeleteInstances(TCIMContext());
  if (found->fSuperClass) found->fSuperClass->RemoveSubClass(*found);
  fContents.erase(found.get());
  fClasses.Remove(name);
}

// Qualifier declarations.

boost::shared_ptr<ICIMQualifierDecl> TMemoryNamespace::CreateQualifierDecl(
    const std::string& name, const TCIMValue& defaultValue, unsigned int scope, unsigned int flavor,
    TCIMContext /*context*/) {
  CheckCIMName(name);
  defaultValue.GetType().ToString();  // throws for a type without a name
  detail::CheckReferencedClass(defaultValue);
  if (fQualifierDecls.Find(name)) throw THWXException(kHWXStatusAlreadyExists);
  return boost::shared_ptr<TMemoryQualifierDecl>(
      new TMemoryQualifierDecl(shared_from_this(), name, defaultValue, scope, flavor));
}

void TMemoryNamespace::CommitQualifierDecl(const boost::shared_ptr<TMemoryQualifierDecl>& decl) {
  if (fQualifierDecls.Find(decl->fName)) throw THWXException(kHWXStatusAlreadyExists);
  fQualifierDecls.Put(decl->fName, decl);
}

boost::shared_ptr<ICIMQualifierDecl> TMemoryNamespace::GetQualifierDecl(const std::string& name,
                                                                        TCIMContext /*context*/) {
  return fQualifierDecls.Find(name);
}

void TMemoryNamespace::EnumerateQualifierDecls(
    const boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>& callback,
    TCIMContext /*context*/) {
  detail::Enumerate(fQualifierDecls.Items(), callback);
}

void TMemoryNamespace::OrderQualifierDecls(const std::vector<std::string>& names) {
  TNameTable<TMemoryQualifierDecl> ordered;
  for (const std::string& name : names) {
    if (const boost::shared_ptr<TMemoryQualifierDecl> decl = fQualifierDecls.Find(name))
      ordered.Put(decl->fName, decl);
  }
  for (const auto& decl : fQualifierDecls.Items())
    ordered.Put(decl->fName, decl);
  fQualifierDecls = ordered;
}

// Instances.

boost::shared_ptr<ICIMInstance> TMemoryNamespace::GetInstance(const TCIMReference& reference,
                                                              TCIMContext /*context*/) {
  std::map<std::string, TCIMValue> keys;
  reference.EnumerateKeyBindings([&keys](std::pair<std::string, TCIMValue> key) {
    keys.insert(key);
    return true;
  });
  return FindInstance(reference.GetClassName(), keys);
}

boost::shared_ptr<ICIMInstance> TMemoryNamespace::FindInstance(
    const std::string& className, const std::map<std::string, TCIMValue>& keys) const {
  const boost::shared_ptr<TMemoryClass> found = fClasses.Find(className);
  std::string keyText;
  if (!found || !found->ComposeKeyText(keys, keyText)) return boost::shared_ptr<ICIMInstance>();
  if (const boost::shared_ptr<TMemoryInstance> instance = found->FindAdded(keyText))
    return instance;
  return found->FindLive(keyText);
}

}  // namespace NQORHWX20
