#include "hwxkit/TMemoryMethodDecl.h"

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/detail/Enumerate.h"

namespace NQORHWX20 {

TMemoryMethodDecl::TMemoryMethodDecl(const boost::weak_ptr<TMemoryClass>& declaringClass,
                                     const std::string& name, TCIMValue::TCIMType returnType,
                                     const boost::shared_ptr<TQualifierTable>& qualifiers,
                                     const boost::shared_ptr<TMemoryMethodDecl>& overridden,
                                     bool inherited)
    : TMemoryQualifiedElement<ICIMMethodDecl>(qualifiers),
      fClass(declaringClass),
      fName(name),
      fReturnType(returnType),
      fOverridden(overridden),
      fInherited(inherited) {}

TMemoryMethodDecl::~TMemoryMethodDecl() = default;

boost::shared_ptr<TMemoryMethodDecl> TMemoryMethodDecl::InheritedForm() {
  if (fInherited) return shared_from_this();
  if (fInheritedForm) return fInheritedForm;
  const boost::shared_ptr<TMemoryMethodDecl> form(
      new TMemoryMethodDecl(fClass, fName, fReturnType, fQualifiers->InheritedForm(),
                            boost::shared_ptr<TMemoryMethodDecl>(), true));
  form->SetNotes(GetNotes());
  for (const auto& parameter : fParameters.Items()) {
    const boost::shared_ptr<TMemoryParameterDecl> parameterForm(new TMemoryParameterDecl(
        form, parameter->fName, parameter->fType, parameter->fQualifiers->InheritedForm()));
    parameterForm->fCommitted = true;
    parameterForm->SetNotes(parameter->GetNotes());
    form->fParameters.Put(parameter->fName, parameterForm);
  }
  fInheritedForm = form;
  return form;
}

const std::string& TMemoryMethodDecl::GetName(TCIMContext /*context*/) {
  return fName;
}

boost::shared_ptr<ICIMClass> TMemoryMethodDecl::GetClass(TCIMContext /*context*/) {
  return fClass.lock();
}

TCIMValue::TCIMType TMemoryMethodDecl::GetReturnType(TCIMContext /*context*/) {
  return fReturnType;
}

void TMemoryMethodDecl::CheckOpen() const {
  const boost::shared_ptr<TMemoryClass> declaringClass = fClass.lock();
  if (fInherited || !declaringClass) throw THWXException(kHWXStatusInvalidOpSequence);
  declaringClass->CheckOpen();
}

boost::shared_ptr<ICIMParameterDecl> TMemoryMethodDecl::CreateParameterDecl(
    const std::string& name, TCIMValue::TCIMType type, TCIMContext /*context*/) {
  CheckOpen();
  CheckCIMName(name);
  type.ToString();  // throws for a type without a name
  if (fParameters.Find(name)) throw THWXException(kHWXStatusAlreadyExists);
  boost::shared_ptr<TMemoryParameterDecl> overridden;
  if (fOverridden) overridden = fOverridden->fParameters.Find(name);
  const auto qualifiers = TQualifierTable::Create(
      fClass.lock()->fNamespace, overridden ? overridden->fQualifiers.get() : nullptr);
  return boost::shared_ptr<TMemoryParameterDecl>(
      new TMemoryParameterDecl(weak_from_this(), name, type, qualifiers));
}

void TMemoryMethodDecl::CommitParameter(const boost::shared_ptr<TMemoryParameterDecl>& parameter) {
  CheckOpen();
  if (fParameters.Find(parameter->fName)) throw THWXException(kHWXStatusAlreadyExists);
  fParameters.Put(parameter->fName, parameter);
}

boost::shared_ptr<ICIMParameterDecl> TMemoryMethodDecl::GetParameterDecl(const std::string& name,
                                                                         TCIMContext /*context*/) {
  const boost::shared_ptr<TMemoryParameterDecl> parameter = fParameters.Find(name);
  if (!parameter) throw THWXException(kHWXStatusNotFound);
  return parameter;
}

void TMemoryMethodDecl::EnumerateParameterDecls(
    const boost::function<bool(boost::shared_ptr<ICIMParameterDecl>)>& callback,
    TCIMContext /*context*/) {
  detail::Enumerate(fParameters.Items(), callback);
}

}  // namespace NQORHWX20
