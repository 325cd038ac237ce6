#include "hwxcore/schema/TCIMCopy.h"

#include <boost/thread/lock_guard.hpp>
#include <boost/thread/recursive_mutex.hpp>
#include <vector>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/schema/ClassNames.h"
#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMNamespace.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxcore/schema/TAddToVectorCallback.h"
#include "hwxcore/schema/detail/Existing.h"
#include "hwxcore/value/THWXException.h"

// The calls of the schema come in a fixed order, each with an empty context.
// Contract: copy-in-order, copy-without-context.

using namespace NQORHWX20;
using detail::Existing;
using detail::Locked;

// Contract: instances-locked-alone.
boost::recursive_mutex copyInstMutex;

namespace {

const char kPluginNameQualifier[] = "PLUGINNAME";
const char kOverrideQualifier[] = "OVERRIDE";

// Makes and commits a declaration like `source`. Its fields are read in this order. The target gets
// the default value of `source` itself, or a copy of it, as the type `Held` says.
// Contract: default-value-not-rewritten, default-value-itself.
template <typename Held>
boost::shared_ptr<ICIMQualifierDecl> CopyQualifierDecl(ICIMQualifierDecl& source,
                                                       ICIMNamespace& target) {
  const unsigned int flavor = source.GetFlavor(TCIMContext());
  const unsigned int scope = source.GetScope(TCIMContext());
  Held defaultValue = source.GetDefaultValue(TCIMContext());
  const std::string& name = source.GetName(TCIMContext());
  const auto decl = target.CreateQualifierDecl(name, defaultValue, scope, flavor, TCIMContext());
  Existing(decl)->Commit(TCIMContext());
  return decl;
}

// The target's class of the same name as a class of the source. May be empty, as the target says.
boost::shared_ptr<ICIMClass> CounterpartOf(const boost::shared_ptr<ICIMClass>& sourceClass,
                                           const boost::shared_ptr<ICIMNamespace>& target) {
  const std::string& name = Existing(sourceClass)->GetName(TCIMContext());
  return Existing(target)->GetClass(name, TCIMContext());
}

// A reference, or a null of its type, built anew against the target.
TCIMValue CopyReference(const TCIMValue& value, const boost::shared_ptr<ICIMNamespace>& target) {
  TCIMValue result(TCIMValue::TCIMType(TCIMValue::TCIMType::kCIMTypeReference), 0);
  const boost::shared_ptr<ICIMClass> sourceClass = value.GetReferencedClass();
  if (!sourceClass) throw THWXException(kHWXStatusInvalidReference);
  result.SetReferencedClass(CounterpartOf(sourceClass, target));  // Contract: null-reference-bound.
  if (value.IsNull()) return result;
  TCIMReference newReference(target, TCIMContext());
  const TCIMReference source = value;
  newReference.SetClassName(source.GetClassName());
  source.EnumerateKeyBindings(TCopyReferenceKeys(target, &newReference));
  result.Set(newReference);
  return result;
}

// Whether the class being built already has the property, inherited from its superclass.
bool HasPropertyDecl(ICIMClass& newClass, const std::string& name) {
  try {
    newClass.GetPropertyDecl(name, TCIMContext());
    return true;
  } catch (const THWXException& failure) {
    if (failure.GetStatus() == kHWXStatusNotFound) return false;
    throw THWXException(failure.GetStatus());
  }
}

// Any failure means no, and any answer means yes, an empty pointer too.
// Contract: override-by-any-answer.
bool Overrides(ICIMPropertyDecl& source) {
  try {
    source.GetQualifier(kOverrideQualifier, TCIMContext());
    return true;
  } catch (const THWXException&) {
    return false;
  }
}

// The value of a property or qualifier, valid in the target.
template <typename Holder>
TCIMValue CopiedValue(Holder& holder, const boost::weak_ptr<ICIMNamespace>& target) {
  return TCIMCopy::CopyValue(holder.GetValue(TCIMContext()), Locked(target));
}

}  // namespace

TCIMValue TCIMCopy::CopyValue(const TCIMValue& value, boost::shared_ptr<ICIMNamespace> target) {
  // Contract: reference-array-not-rewritten.
  return value.IsReference() ? CopyReference(value, target) : value;
}

boost::shared_ptr<ICIMInstance> TCIMCopy::CopyInstance(boost::shared_ptr<ICIMInstance> source,
                                                       boost::shared_ptr<ICIMNamespace> target) {
  const boost::lock_guard<boost::recursive_mutex> lock(copyInstMutex);
  // Contract: instance-by-class-name.
  const boost::shared_ptr<ICIMClass> newClass =
      CounterpartOf(Existing(source)->GetClass(TCIMContext()), target);
  const boost::shared_ptr<ICIMInstance> instance =
      Existing(newClass)->CreateInstance(TCIMContext());
  source->EnumerateProperties(TCopyInstanceProperty(target, Existing(instance)), TCIMContext());
  newClass->AddInstance(instance);
  return instance;
}

void TCIMCopy::CopyClass(boost::shared_ptr<ICIMClass> source,
                         boost::shared_ptr<ICIMNamespace> target) {
  boost::shared_ptr<ICIMClass> superclass;
  if (!Existing(source)->IsRootClass(TCIMContext())) {
    superclass = CounterpartOf(source->GetSuperClass(TCIMContext()), target);
  }
  const boost::shared_ptr<ICIMClass> newClass =
      Existing(target)->CreateClass(source->GetName(TCIMContext()), superclass, TCIMContext());
  const boost::shared_ptr<ICIMQualifiedElement> sourceElement = source;
  sourceElement->EnumerateQualifiers(TCopyQualifier(Existing(newClass), target), TCIMContext());
  source->EnumeratePropertyDecls(TCopyPropertyDecl(newClass, target), TCIMContext());
  source->EnumerateStaticProperties(TCopyStaticProperty(newClass, target), TCIMContext());
  source->EnumerateMethodDecls(TCopyMethodDecl(newClass, target), TCIMContext());
  newClass->Commit(TCIMContext());
}

void TCIMCopy::CopyClasses(boost::shared_ptr<ICIMNamespace> source,
                           boost::shared_ptr<ICIMNamespace> target, bool skipProductInstances) {
  Existing(source)->EnumerateQualifierDecls(TCopyQualifierDecls(target), TCIMContext());
  // Associations refer to the classes that they join, so they come last. What has been copied
  // before a failure stays. Contract: associations-last, copy-not-rolled-back.
  for (const bool associationPass : {false, true}) {
    source->EnumerateClasses(TCopyClassTree(target, associationPass, skipProductInstances),
                             TCIMContext());
  }
}

TCopyReferenceKeys::TCopyReferenceKeys(const boost::weak_ptr<ICIMNamespace>& target,
                                       TCIMReference* reference)
    : fNamespace(target), fReference(reference) {}

bool TCopyReferenceKeys::operator()(std::pair<std::string, TCIMValue> key) const {
  fReference->AddKeyValue(key.first, TCIMCopy::CopyValue(key.second, Locked(fNamespace)));
  return true;
}

TCopyInstanceProperty::TCopyInstanceProperty(const boost::weak_ptr<ICIMNamespace>& target,
                                             const boost::shared_ptr<ICIMInstance>& instance)
    : fNamespace(target), fInstance(instance) {}

bool TCopyInstanceProperty::operator()(boost::shared_ptr<ICIMProperty> property) const {
  // A null static property is set. Contract: null-property-not-set.
  if (Existing(property)->GetValue(TCIMContext()).IsNull()) return true;
  const TCIMValue value = CopiedValue(*property, fNamespace);
  const boost::shared_ptr<ICIMPropertyDecl> decl = property->GetPropertyDecl(TCIMContext());
  fInstance->SetPropertyValue(Existing(decl)->GetName(TCIMContext()), value, TCIMContext());
  return true;
}

TCopyStaticProperty::TCopyStaticProperty(const boost::shared_ptr<ICIMClass>& newClass,
                                         const boost::weak_ptr<ICIMNamespace>& target)
    : fClass(newClass), fNamespace(target) {}

bool TCopyStaticProperty::operator()(boost::shared_ptr<ICIMProperty> property) const {
  const TCIMValue value = CopiedValue(*Existing(property), fNamespace);
  const boost::shared_ptr<ICIMPropertyDecl> decl = property->GetPropertyDecl(TCIMContext());
  fClass->SetStaticPropertyValue(Existing(decl)->GetName(TCIMContext()), value, TCIMContext());
  return true;
}

TCopyQualifier::TCopyQualifier(const boost::weak_ptr<ICIMQualifiedElement>& element,
                               const boost::weak_ptr<ICIMNamespace>& target)
    : fElement(element), fNamespace(target) {}

bool TCopyQualifier::operator()(boost::shared_ptr<ICIMQualifier> qualifier) const {
  const boost::shared_ptr<ICIMQualifierDecl> sourceDecl =
      Existing(Existing(qualifier)->GetQualifierDecl(TCIMContext()));
  const std::string& name = sourceDecl->GetName(TCIMContext());
  boost::shared_ptr<ICIMQualifierDecl> decl =
      Locked(fNamespace)->GetQualifierDecl(name, TCIMContext());
  // Contract: own-declaration-stays.
  if (!decl) decl = CopyQualifierDecl<const TCIMValue>(*sourceDecl, *Locked(fNamespace));
  const boost::shared_ptr<ICIMQualifiedElement> element = Locked(fElement);
  const TCIMValue value = CopiedValue(*qualifier, fNamespace);
  Existing(element->CreateQualifier(decl, value, TCIMContext()))->Commit(TCIMContext());
  return true;
}

TCopyQualifierDecls::TCopyQualifierDecls(const boost::weak_ptr<ICIMNamespace>& target)
    : fNamespace(target) {}

bool TCopyQualifierDecls::operator()(boost::shared_ptr<ICIMQualifierDecl> decl) const {
  // A qualifier looks for the declaration first. Contract: declaration-without-look-up.
  CopyQualifierDecl<const TCIMValue&>(*Existing(decl), *Locked(fNamespace));
  return true;
}

TCopyClass::TCopyClass(const boost::weak_ptr<ICIMNamespace>& target, bool associationPass,
                       bool skipProductInstances)
    : fNamespace(target),
      fAssociationPass(associationPass),
      fSkipProductInstances(skipProductInstances) {}

bool TCopyClass::operator()(boost::shared_ptr<ICIMClass> source) const {
  if (Existing(source)->IsAssociation(TCIMContext()) != fAssociationPass) return true;
  TCIMCopy::CopyClass(source, Locked(fNamespace));
  const boost::shared_ptr<ICIMQualifiedElement> element = source;
  // Contract: plugin-class-without-instances, product-instances-alone.
  const bool isPlugin = element->GetQualifier(kPluginNameQualifier, TCIMContext()) != nullptr;
  if (source->IsAbstract(TCIMContext()) || isPlugin) return true;
  if (source->GetName(TCIMContext()) == kProductClassName) CopyProductInstances(*source);
  return true;
}

void TCopyClass::CopyProductInstances(ICIMClass& product) const {
  std::vector<boost::shared_ptr<ICIMInstance> > instances;
  product.EnumerateInstances(TAddToVectorCallback<ICIMInstance>(&instances), false, TCIMContext());
  for (const boost::shared_ptr<ICIMInstance>& instance : instances) {
    // Contract: product-class-asked.
    const boost::shared_ptr<ICIMClass> itsClass = Existing(instance)->GetClass(TCIMContext());
    const bool isProduct = Existing(itsClass)->GetName(TCIMContext()) == kProductClassName;
    if (isProduct && !fSkipProductInstances) TCIMCopy::CopyInstance(instance, Locked(fNamespace));
  }
}

TCopyClassTree::TCopyClassTree(const boost::weak_ptr<ICIMNamespace>& target, bool associationPass,
                               bool skipProductInstances)
    : fNamespace(target),
      fAssociationPass(associationPass),
      fSkipProductInstances(skipProductInstances) {}

bool TCopyClassTree::operator()(boost::shared_ptr<ICIMClass> root) const {
  const TCopyClass copyClass(fNamespace, fAssociationPass, fSkipProductInstances);
  copyClass(root);
  root->EnumerateSubClasses(copyClass, true, TCIMContext());
  return true;
}

TCopyPropertyDecl::TCopyPropertyDecl(const boost::shared_ptr<ICIMClass>& newClass,
                                     const boost::weak_ptr<ICIMNamespace>& target)
    : fClass(newClass), fNamespace(target) {}

bool TCopyPropertyDecl::operator()(boost::shared_ptr<ICIMPropertyDecl> source) const {
  const std::string& name = Existing(source)->GetName(TCIMContext());
  if (HasPropertyDecl(*fClass, name) && !Overrides(*source)) return true;
  try {
    const TCIMValue defaultValue =
        TCIMCopy::CopyValue(source->GetDefaultValue(TCIMContext()), Locked(fNamespace));
    const boost::shared_ptr<ICIMPropertyDecl> decl =
        Existing(fClass->CreatePropertyDecl(name, defaultValue, TCIMContext()));
    source->EnumerateQualifiers(TCopyQualifier(decl, fNamespace), TCIMContext());
    decl->Commit(TCIMContext());
  } catch (const THWXException&) {
    // The class goes on without this property. Contract: lost-property.
    detail::LogDebug("TCopyPropertyDecl::operator() - Get an Exception");
  }
  return true;
}

TCopyMethodDecl::TCopyMethodDecl(const boost::shared_ptr<ICIMClass>& newClass,
                                 const boost::weak_ptr<ICIMNamespace>& target)
    : fClass(newClass), fNamespace(target) {}

bool TCopyMethodDecl::operator()(boost::shared_ptr<ICIMMethodDecl> source) const {
  const TCIMValue::TCIMType returnType = Existing(source)->GetReturnType(TCIMContext());
  const std::string& name = source->GetName(TCIMContext());
  const boost::shared_ptr<ICIMMethodDecl> method =
      fClass->CreateMethodDecl(name, returnType, TCIMContext());
  source->EnumerateParameterDecls(TCopyParameterDecl(method, fNamespace), TCIMContext());
  source->EnumerateQualifiers(TCopyQualifier(method, fNamespace), TCIMContext());
  return true;  // Contract: method-without-commit.
}

TCopyParameterDecl::TCopyParameterDecl(const boost::weak_ptr<ICIMMethodDecl>& method,
                                       const boost::weak_ptr<ICIMNamespace>& target)
    : fMethodDecl(method), fNamespace(target) {}

bool TCopyParameterDecl::operator()(boost::shared_ptr<ICIMParameterDecl> source) const {
  const boost::shared_ptr<ICIMMethodDecl> method = Locked(fMethodDecl);
  const TCIMValue::TCIMType type = Existing(source)->GetType(TCIMContext());
  const std::string& name = source->GetName(TCIMContext());
  const boost::shared_ptr<ICIMParameterDecl> parameter =
      Existing(method->CreateParameterDecl(name, type, TCIMContext()));
  source->EnumerateQualifiers(TCopyQualifier(parameter, fNamespace), TCIMContext());
  parameter->Commit(TCIMContext());
  return true;
}
