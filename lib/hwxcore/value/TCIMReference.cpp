#include "hwxcore/value/TCIMReference.h"

#include "hwxcore/value/TCIMReferenceImpl.h"

namespace NQORHWX20 {

TCIMReference::TCIMReference(boost::shared_ptr<ICIMNamespace> ns, TCIMContext context)
    : fBody(new TCIMReferenceImpl(this, ns, context)) {}

TCIMReference::TCIMReference(boost::shared_ptr<ICIMNamespace> ns, const std::string& path,
                             TCIMContext context)
    : TCIMReference(ns, context) {
  SetPath(path);
}

TCIMReference::TCIMReference(const TCIMReference& other)
    : fBody(new TCIMReferenceImpl(this, *other.fBody)) {}

TCIMReference::~TCIMReference() = default;

// The new body stands before the old one goes: `other` may lie inside the old one.
TCIMReference& TCIMReference::operator=(const TCIMReference& other) {
  if (this != &other) fBody.reset(new TCIMReferenceImpl(this, *other.fBody));
  return *this;
}

TCIMReferenceImpl* TCIMReference::GetBody() const {
  return fBody.get();
}

void TCIMReference::SetPath(const std::string& path) {
  fBody->SetPath(path);
}

std::string TCIMReference::GetPath() const {
  return fBody->GetPath();
}

void TCIMReference::AddKeyValue(const std::string& name, const TCIMValue& value) {
  fBody->AddKeyValue(name, value);
}

void TCIMReference::EnumerateKeyBindings(
    const boost::function<bool(std::pair<std::string, TCIMValue>)>& callback) const {
  fBody->EnumerateKeyBindings(callback);
}

void TCIMReference::SetNamespace(boost::shared_ptr<ICIMNamespace> ns) {
  fBody->SetNamespace(ns);
}

boost::shared_ptr<ICIMNamespace> TCIMReference::GetNamespace() const {
  return fBody->GetNamespace();
}

void TCIMReference::SetContext(TCIMContext context) {
  fBody->SetContext(context);
}

void TCIMReference::SetNameSpaceName(std::string name) {
  fBody->SetNameSpaceName(name);
}

std::string TCIMReference::GetNameSpaceName() const {
  return fBody->GetNameSpaceName();
}

void TCIMReference::SetClass(boost::shared_ptr<ICIMClass> newClass) {
  fBody->SetClass(newClass);
}

void TCIMReference::SetClassName(const std::string& name) {
  fBody->SetClassName(name);
}

boost::shared_ptr<ICIMClass> TCIMReference::GetClass() const {
  return fBody->GetClass();
}

const std::string& TCIMReference::GetClassName() const {
  return fBody->GetClassName();
}

void TCIMReference::Clear() {
  fBody->Clear();
}

boost::shared_ptr<ICIMElement> TCIMReference::GetCIMElement(bool classOnly) const {
  return fBody->GetCIMElement(classOnly);
}

bool TCIMReference::operator==(const TCIMReference& other) const {
  return *fBody == *other.fBody;
}

bool TCIMReference::operator<(const TCIMReference& other) const {
  return *fBody < *other.fBody;
}

}  // namespace NQORHWX20
