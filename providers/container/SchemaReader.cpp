#include "providers/container/SchemaReader.h"

#include <unordered_set>

#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxkit/CIMName.h"
#include "hwxkit/TMemoryMethodDecl.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "providers/container/ScalarText.h"
#include "providers/container/Vocabulary.h"

namespace container {

namespace {

using namespace NQORHWX20;

bool IsProperty(const pugi::xml_node& element) {
  return Is(element, "PROPERTY") || Is(element, "PROPERTY.ARRAY") ||
         Is(element, "PROPERTY.REFERENCE");
}

bool HasStaticValues(TMemoryClass& owner) {
  bool any = false;
  owner.EnumerateStaticProperties(
      [&any](const boost::shared_ptr<ICIMProperty>&) { return !(any = true); }, TCIMContext());
  return any;
}

}  // namespace

// Qualifiers.

unsigned int TSchemaReader::Scope(const pugi::xml_node& decl) const {
  const pugi::xml_node element = decl.child("SCOPE");
  unsigned int scope = fPiece.Number(decl, "SCOPEBITS");
  if (!element) return scope | kScopeAny;
  fPiece.CheckAttributes(element, {"CLASS", "ASSOCIATION", "REFERENCE", "PROPERTY", "METHOD",
                                   "PARAMETER", "INDICATION"});
  if (!fPiece.Text(element).empty()) fPiece.Fail(element, "isn't empty");
  if (element.next_sibling("SCOPE")) fPiece.FailUnexpected(element.next_sibling("SCOPE"));
  for (const TFlagName& flag : kScopeNames) {
    if (fPiece.Flag(element, flag.fName)) scope |= flag.fBit;
  }
  return scope;
}

unsigned int TSchemaReader::Flavor(const pugi::xml_node& element) const {
  unsigned int flavor = fPiece.Number(element, "FLAVORBITS");
  for (const TFlagName& flag : kFlavorNames) {
    if (fPiece.Flag(element, flag.fName, (flag.fBit & kFlavorDefault) != 0)) flavor |= flag.fBit;
  }
  return flavor;
}

void TSchemaReader::ReadQualifierDecl(const pugi::xml_node& element) const {
  fPiece.CheckAttributes(element,
                         {"NAME", "TYPE", "ISARRAY", "ARRAYSIZE", "REFERENCECLASS", "OVERRIDABLE",
                          "TOSUBCLASS", "TOINSTANCE", "TRANSLATABLE", "SCOPEBITS", "FLAVORBITS"});
  const std::string name = fPiece.Name(element, "NAME");
  if (fNamespace->GetQualifierDecl(name, TCIMContext())) fPiece.Fail(element, "stands twice");
  const TType type = AsArray(fPiece.Type(element), fPiece.Flag(element, "ISARRAY"));
  const TCIMValue value = fValues.Value(element, type, "SCOPE");
  fPiece.Guard(element, [&] {
    fNamespace->CreateQualifierDecl(name, value, Scope(element), Flavor(element), TCIMContext())
        ->Commit(TCIMContext());
  });
}

// In the kit only declarations have a flavor. One that a qualifier repeats must be the same.
void TSchemaReader::CheckFlavor(const pugi::xml_node& element, unsigned int declared) const {
  for (const TFlagName& flag : kFlavorNames) {
    const bool isSet = (declared & flag.fBit) != 0;
    if (fPiece.Flag(element, flag.fName, isSet) != isSet)
      fPiece.Fail(element, std::string(flag.fName) + " differs from the qualifier's declaration");
  }
}

void TSchemaReader::ReadQualifier(const pugi::xml_node& element,
                                  ICIMQualifiedElement& bearer) const {
  fPiece.CheckAttributes(element, {"NAME", "TYPE", "ARRAYSIZE", "REFERENCECLASS", "PROPAGATED",
                                   "OVERRIDABLE", "TOSUBCLASS", "TOINSTANCE", "TRANSLATABLE"});
  const std::string name = fPiece.Name(element, "NAME");
  const auto decl = fNamespace->GetQualifierDecl(name, TCIMContext());
  if (!decl) fPiece.Fail(element, "there is no declaration of this qualifier in front of it");
  const TType type = decl->GetType(TCIMContext());
  if (fPiece.Type(element) != AsElement(type))
    fPiece.Fail(element, "the qualifier is declared as " + type.ToString());
  CheckFlavor(element, decl->GetFlavor(TCIMContext()));
  const TCIMValue value = fValues.Value(element, type);
  if (IsPropagated(element, bearer.HasQualifier(name, TCIMContext()))) return;
  fPiece.Guard(element,
               [&] { bearer.CreateQualifier(decl, value, TCIMContext())->Commit(TCIMContext()); });
}

void TSchemaReader::ReadQualifiers(const pugi::xml_node& element,
                                   ICIMQualifiedElement& bearer) const {
  for (const pugi::xml_node qualifier : element.children("QUALIFIER"))
    ReadQualifier(qualifier, bearer);
}

// Whether an element only repeats what a class has from its superclass.
bool TSchemaReader::IsPropagated(const pugi::xml_node& element, bool isInherited) const {
  const bool isPropagated = fPiece.Flag(element, "PROPAGATED");
  if (isPropagated && !isInherited) fPiece.Fail(element, "PROPAGATED, but from nowhere");
  return isPropagated;
}

// Classes.

TSchemaReader::TClass TSchemaReader::ReadClass(const pugi::xml_node& element) const {
  fPiece.CheckAttributes(element, {"NAME", "SUPERCLASS"});
  const std::string name = fPiece.Name(element, "NAME");
  if (fNamespace->FindClass(name)) fPiece.Fail(element, "the class stands twice");
  const TClass superclass = fValues.FindClass(element, "SUPERCLASS");
  const auto newClass = boost::static_pointer_cast<TMemoryClass>(fPiece.Guard(
      element, [&] { return fNamespace->CreateClass(name, superclass, TCIMContext()); }));
  ReadQualifiers(element, *newClass);
  fPiece.ForEachElement(element, [&](const pugi::xml_node& child) {
    if (IsProperty(child))
      ReadProperty(child, newClass);
    else if (Is(child, "METHOD"))
      ReadMethod(child, newClass);
    else if (!Is(child, "QUALIFIER"))
      fPiece.FailUnexpected(child);
  });
  fPiece.Guard(element, [&] { newClass->Commit(TCIMContext()); });
  return newClass;
}

void TSchemaReader::CheckOrigin(const pugi::xml_node& element, TMemoryClass& newClass) const {
  if (!element.attribute("CLASSORIGIN")) return;
  const std::string origin = fPiece.Name(element, "CLASSORIGIN");
  if (!IsSameCIMName(origin, newClass.GetName(TCIMContext())) &&
      !newClass.IsSubClassOf(origin, TCIMContext()))
    fPiece.Fail(element, "CLASSORIGIN is neither the class nor a superclass: " + Quoted(origin));
}

void TSchemaReader::ReadProperty(const pugi::xml_node& element, const TClass& newClass) const {
  fPiece.CheckAttributes(element, {"NAME", "TYPE", "CLASSORIGIN", "PROPAGATED", "ARRAYSIZE",
                                   "REFERENCECLASS", "EmbeddedObject", "EMBEDDEDOBJECT"});
  const std::string name = fPiece.Name(element, "NAME");
  const TType type = fValues.PropertyType(element);
  CheckOrigin(element, *newClass);
  const auto there = newClass->FindPropertyDecl(name);
  const bool isInherited = there && there->IsInherited();
  if (there && !isInherited) fPiece.Fail(element, "the property stands twice");
  if (there && there->GetType(TCIMContext()) != type)
    fPiece.Fail(element, "the superclass declares the property with another type");
  const TCIMValue value = fValues.Value(element, type, "QUALIFIER");
  if (IsPropagated(element, isInherited)) return;
  const auto decl = fPiece.Guard(
      element, [&] { return newClass->CreatePropertyDecl(name, value, TCIMContext()); });
  ReadQualifiers(element, *decl);
  fPiece.Guard(element, [&] { decl->Commit(TCIMContext()); });
}

void TSchemaReader::ReadMethod(const pugi::xml_node& element, const TClass& newClass) const {
  fPiece.CheckAttributes(element, {"NAME", "TYPE", "ISARRAY", "CLASSORIGIN", "PROPAGATED"});
  const std::string name = fPiece.Name(element, "NAME");
  TType type = TType::kCIMTypeNone;
  if (element.attribute("TYPE")) type = fPiece.Type(element);
  CheckOrigin(element, *newClass);
  const auto there = newClass->FindMethodDecl(name);
  if (there && !there->IsInherited()) fPiece.Fail(element, "the method stands twice");
  if (IsPropagated(element, there != nullptr)) return;
  const auto method = fPiece.Guard(element, [&] {
    const TType result = AsArray(type, fPiece.Flag(element, "ISARRAY"));
    return newClass->CreateMethodDecl(name, result, TCIMContext());
  });
  ReadQualifiers(element, *method);
  fPiece.ForEachElement(element, [&](const pugi::xml_node& child) {
    if (!Is(child, "QUALIFIER")) ReadParameter(child, *method);
  });
}

// The class of a reference and the size of an array are read and dropped: a parameter of the kit
// has no place for them.
void TSchemaReader::ReadParameter(const pugi::xml_node& element, ICIMMethodDecl& method) const {
  const bool isReference = Is(element, "PARAMETER.REFERENCE") || Is(element, "PARAMETER.REFARRAY");
  const bool isArray = Is(element, "PARAMETER.ARRAY") || Is(element, "PARAMETER.REFARRAY");
  if (!isReference && !isArray && !Is(element, "PARAMETER")) fPiece.FailUnexpected(element);
  fPiece.CheckAttributes(
      element, {"NAME", "TYPE", "ARRAYSIZE", "REFERENCECLASS", "EmbeddedObject", "EMBEDDEDOBJECT"});
  TType type = TType::kCIMTypeReference;
  if (!isReference) type = fPiece.Type(element);
  const auto parameter = fPiece.Guard(element, [&] {
    return method.CreateParameterDecl(fPiece.Name(element, "NAME"), AsArray(type, isArray),
                                      TCIMContext());
  });
  fPiece.ForEachElement(element, [&](const pugi::xml_node& child) {
    if (!Is(child, "QUALIFIER")) fPiece.FailUnexpected(child);
    ReadQualifier(child, *parameter);
  });
  fPiece.Guard(element, [&] { parameter->Commit(TCIMContext()); });
}

void TSchemaReader::ReadStaticValues(const pugi::xml_node& element) const {
  fPiece.CheckAttributes(element, {"CLASSNAME"});
  fPiece.Name(element, "CLASSNAME");  // throws if there is none
  const TClass owner = fValues.FindClass(element, "CLASSNAME");
  if (HasStaticValues(*owner)) fPiece.Fail(element, "the static values stand twice");
  std::unordered_set<std::string, TCIMNameHash, TCIMNameEqual> names;
  fPiece.ForEachElement(element, [&](const pugi::xml_node& child) {
    if (!IsProperty(child)) fPiece.FailUnexpected(child);
    fPiece.CheckAttributes(child, {"NAME", "TYPE", "ARRAYSIZE", "REFERENCECLASS"});
    const std::string name = fPiece.Name(child, "NAME");
    if (!names.insert(name).second) fPiece.Fail(child, "the property stands twice");
    const TCIMValue value = fValues.Value(child, fValues.PropertyType(child));
    fPiece.Guard(child, [&] { owner->SetStaticPropertyValue(name, value, TCIMContext()); });
  });
}

}  // namespace container
