#include "hwxkit/TClassBuilder.h"

#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/StandardQualifiers.h"
#include "hwxkit/TMemoryMethodDecl.h"
#include "hwxkit/TMemoryNamespace.h"
#include "hwxkit/TMemoryPropertyDecl.h"

namespace NQORHWX20 {

namespace {

using TCIMType = TCIMValue::TCIMType;

const TCIMContext kNoContext;

TCIMType ReadType(std::string name) {
  const bool isArray = name.size() > 2 && name.compare(name.size() - 2, 2, "[]") == 0;
  if (isArray) name.resize(name.size() - 2);
  const TCIMType type(name);
  if (type == TCIMType::kCIMTypeNone) throw THWXException(kHWXStatusTypeMismatch);
  return static_cast<TCIMType::ECIMType>(type | (isArray ? TCIMType::kCIMTypeArrayFlag : 0));
}

}  // namespace

TDeclaredType::TDeclaredType(const char* name) : fType(ReadType(name)) {}

TClassBuilder::TClassBuilder(const boost::shared_ptr<TMemoryNamespace>& ns, const std::string& name,
                             const std::string& superclass)
    : fNamespace(ns) {
  DeclareStandardQualifiers(*ns);
  boost::shared_ptr<ICIMClass> parent;
  if (!superclass.empty()) parent = ns->GetClass(superclass, kNoContext);
  fClass = boost::static_pointer_cast<TMemoryClass>(ns->CreateClass(name, parent, kNoContext));
  fElement = fClass;
}

TClassBuilder::~TClassBuilder() = default;

TClassBuilder& TClassBuilder::Abstract() {
  fClass->CreateQualifier(fNamespace->GetQualifierDecl("Abstract", kNoContext), true, kNoContext)
      ->Commit(kNoContext);
  return *this;
}

TClassBuilder& TClassBuilder::Association() {
  fClass->CreateQualifier(fNamespace->GetQualifierDecl("Association", kNoContext), true, kNoContext)
      ->Commit(kNoContext);
  return *this;
}

TClassBuilder& TClassBuilder::Description(const std::string& text) {
  return Qualifier("Description", text);
}

TClassBuilder& TClassBuilder::Describe(const std::string& text) {
  return text.empty() ? *this : Description(text);
}

TClassBuilder& TClassBuilder::Qualifier(const std::string& name, const TCIMValue& value) {
  fElement->CreateQualifier(fNamespace->GetQualifierDecl(name, kNoContext), value, kNoContext)
      ->Commit(kNoContext);
  return *this;
}

// What was declared last stays open for its qualifiers until the next declaration.
void TClassBuilder::CommitElement() {
  const boost::shared_ptr<ICIMPropertyDecl> property = fProperty;
  const boost::shared_ptr<ICIMParameterDecl> parameter = fParameter;
  fProperty.reset();
  fParameter.reset();
  if (property) property->Commit(kNoContext);
  if (parameter) parameter->Commit(kNoContext);
}

TClassBuilder& TClassBuilder::PropertyWithDefault(const std::string& name,
                                                  const TCIMValue& defaultValue,
                                                  const std::string& description) {
  CommitElement();
  const bool overrides = fClass->FindPropertyDecl(name) != nullptr;
  fProperty = fClass->CreatePropertyDecl(name, defaultValue, kNoContext);
  fElement = fProperty;
  fMethod.reset();
  if (overrides) Qualifier("Override", name);
  return Describe(description);
}

TClassBuilder& TClassBuilder::Property(const std::string& name, TDeclaredType type,
                                       const std::string& description) {
  return PropertyWithDefault(name, TCIMValue(type.Get(), 0), description);
}

TClassBuilder& TClassBuilder::Key(const std::string& name, TDeclaredType type,
                                  const std::string& description) {
  return Property(name, type, description).Qualifier("Key", true);
}

TClassBuilder& TClassBuilder::Reference(const std::string& name, const std::string& className,
                                        const std::string& description) {
  TCIMValue defaultValue(TCIMType(TCIMType::kCIMTypeReference), 0);
  defaultValue.SetReferencedClass(fNamespace->GetClass(className, kNoContext));
  return PropertyWithDefault(name, defaultValue, description);
}

TClassBuilder& TClassBuilder::KeyReference(const std::string& name, const std::string& className,
                                           const std::string& description) {
  return Reference(name, className, description).Qualifier("Key", true);
}

TClassBuilder& TClassBuilder::Method(const std::string& name, TDeclaredType returnType,
                                     const std::string& description) {
  CommitElement();
  const bool overrides = fClass->FindMethodDecl(name) != nullptr;
  fMethod = fClass->CreateMethodDecl(name, returnType.Get(), kNoContext);
  fElement = fMethod;
  if (overrides) Qualifier("Override", name);
  return Describe(description);
}

TClassBuilder& TClassBuilder::Parameter(const std::string& name, TDeclaredType type,
                                        const std::string& description) {
  if (!fMethod) throw THWXException(kHWXStatusInvalidOpSequence);
  CommitElement();
  fParameter = fMethod->CreateParameterDecl(name, type.Get(), kNoContext);
  fElement = fParameter;
  return Describe(description);
}

TClassBuilder& TClassBuilder::StaticValue(const std::string& name, const TCIMValue& value) {
  CommitElement();
  fClass->SetStaticPropertyValue(name, value, kNoContext);
  return *this;
}

TClassBuilder& TClassBuilder::Source(const TInstanceSource& source) {
  fClass->SetInstanceSource(source);
  return *this;
}

boost::shared_ptr<TMemoryClass> TClassBuilder::Commit() {
  CommitElement();
  fClass->Commit(kNoContext);
  return fClass;
}

}  // namespace NQORHWX20
