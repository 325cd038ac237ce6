#include "hwxkit/TMemoryPropertyDecl.h"

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/detail/ReferencedClass.h"

namespace NQORHWX20 {

TMemoryPropertyDecl::TMemoryPropertyDecl(const boost::weak_ptr<TMemoryClass>& declaringClass,
                                         const std::string& name, const TCIMValue& defaultValue,
                                         const boost::shared_ptr<TQualifierTable>& qualifiers,
                                         bool inheritedKey, bool inherited)
    : TMemoryQualifiedElement<ICIMPropertyDecl>(qualifiers),
      fClass(declaringClass),
      fName(name),
      fDefaultValue(defaultValue),
      fInheritedKey(inheritedKey),
      fInherited(inherited),
      fCommitted(inherited) {}

TMemoryPropertyDecl::~TMemoryPropertyDecl() = default;

boost::shared_ptr<TMemoryPropertyDecl> TMemoryPropertyDecl::InheritedForm() {
  if (fInherited) return shared_from_this();
  if (!fInheritedForm) {
    fInheritedForm.reset(new TMemoryPropertyDecl(fClass, fName, fDefaultValue,
                                                 fQualifiers->InheritedForm(), IsKey(), true));
    fInheritedForm->SetNotes(GetNotes());
  }
  return fInheritedForm;
}

void TMemoryPropertyDecl::Commit(TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryClass> declaringClass = fClass.lock();
  if (fCommitted || !declaringClass) throw THWXException(kHWXStatusInvalidOpSequence);
  declaringClass->CommitProperty(shared_from_this());
  fCommitted = true;
  fQualifiers->Close();
}

const std::string& TMemoryPropertyDecl::GetName(TCIMContext /*context*/) {
  return fName;
}

boost::shared_ptr<ICIMClass> TMemoryPropertyDecl::GetClass(TCIMContext /*context*/) {
  return fClass.lock();
}

TCIMValue::TCIMType TMemoryPropertyDecl::GetType(TCIMContext /*context*/) {
  return fDefaultValue.GetType();
}

const TCIMValue& TMemoryPropertyDecl::GetDefaultValue(TCIMContext /*context*/) {
  return fDefaultValue;
}

boost::shared_ptr<ICIMQualifier> TMemoryPropertyDecl::GetQualifier(const std::string& name,
                                                                   TCIMContext /*context*/) {
  const boost::shared_ptr<ICIMQualifier> qualifier = fQualifiers->Find(name);
  if (!qualifier) throw THWXException(kHWXStatusNotFound);
  return qualifier;
}

void TMemoryPropertyDecl::CheckFits(const TCIMValue& value) const {
  if (value.GetType() != fDefaultValue.GetType()) throw THWXException(kHWXStatusTypeMismatch);
  detail::CheckRefersTo(fDefaultValue.GetReferencedClass(), value);
}

bool TMemoryPropertyDecl::IsKey() const {
  return fInheritedKey || fQualifiers->IsTrue("Key");
}

}  // namespace NQORHWX20
