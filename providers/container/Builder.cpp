#include "providers/container/Builder.h"

#include <utility>

#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/CIMName.h"
#include "hwxkit/StandardQualifiers.h"
#include "hwxkit/TContainerException.h"
#include "hwxkit/TMemoryMethodDecl.h"
#include "hwxkit/TMemoryParameterDecl.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/TMemoryQualifier.h"
#include "hwxkit/TMemoryQualifierDecl.h"
#include "providers/container/PartReader.h"
#include "providers/container/ValueWriter.h"

namespace container {

namespace {

using namespace NQORHWX20;
using TNamespacePtr = boost::shared_ptr<TMemoryNamespace>;

// About what the things take that no byte of the document stands for.
constexpr std::uint64_t kInstanceMemory = 320;
constexpr std::uint64_t kPropertyMemory = 8;
constexpr std::uint64_t kClassMemory = 1000;
constexpr std::uint64_t kInheritedMemory = 110;
constexpr std::uint64_t kDeclarationMemory = 500;

std::string TypeText(const TType& type) {
  return type.ToString() + (IsArrayType(type) ? " array" : "");
}

TNamespacePtr StandardNamespace() {
  const TNamespacePtr ns = TMemoryNamespace::Create(std::string());
  DeclareStandardQualifiers(*ns);
  return ns;
}

// What others say of a key without its class.
TType GuessedType(const TKeyPart& key) {
  if (key.fType != TType::kCIMTypeNone) return key.fType;
  if (key.fShape == TKeyPart::kReference) return TType::kCIMTypeReference;
  if (key.fShape == TKeyPart::kReferences) return AsArray(TType::kCIMTypeReference);
  if (key.fShape == TKeyPart::kTexts) return AsArray(TType::kCIMTypeString);
  if (key.fKind == "boolean") return TType::kCIMTypeBoolean;
  if (key.fKind != "numeric") return TType::kCIMTypeString;
  const std::string& text = key.fTexts[0].fText;
  if (text.find_first_of(".eEnN") != std::string::npos) return TType::kCIMTypeReal64;
  return text.find('-') == std::string::npos ? TType::kCIMTypeUInt64 : TType::kCIMTypeSInt64;
}

}  // namespace

TBuilder::TBuilder(TScanner& scanner, const TNamespacePtr& ns, TWarnings& warnings)
    : fScanner(scanner),
      fNamespace(ns),
      fStandard(StandardNamespace()),
      fWarnings(warnings),
      fLastFacts(nullptr) {}

void TBuilder::Fail(TLine line, const std::string& element, const std::string& name,
                    const std::string& why) const {
  fScanner.Fail(line, element + (name.empty() ? "" : " " + Quoted(name)) + ": " + why);
}

// Calls something of the kit, whose failures are those of the element.
template <typename Call>
auto TBuilder::Guard(TLine line, const char* element, const std::string& name, Call call) const {
  try {
    return call();
  } catch (const TContainerException&) {
    throw;
  } catch (const THWXException& failure) {
    Fail(line, element, name, std::string("refused with ") + failure.what());
  }
}

// What is there.

bool TBuilder::HasClass(const std::string& name) const {
  return fNamespace->FindClass(name) != nullptr;
}

bool TBuilder::IsReady(const TReferencePart& reference) const {
  if (!reference.fClass.empty() && !HasClass(reference.fClass)) return false;
  for (const TKeyPart& key : reference.fKeys) {
    if (!key.fReferencedClass.empty() && !HasClass(key.fReferencedClass)) return false;
    for (const TReferencePart& inner : key.fReferences) {
      if (!IsReady(inner)) return false;
    }
  }
  return true;
}

bool TBuilder::IsReady(const TValuePart& value) const {
  if (!value.fReferencedClass.empty() && !HasClass(value.fReferencedClass)) return false;
  for (const TReferencePart& reference : value.fReferences) {
    if (!IsReady(reference)) return false;
  }
  return true;
}

bool TBuilder::IsReady(const TQualifierParts& qualifiers) const {
  for (const TQualifierPart& qualifier : qualifiers) {
    if (!fNamespace->GetQualifierDecl(qualifier.fName, TCIMContext()) || !IsReady(qualifier.fValue))
      return false;
  }
  return true;
}

bool TBuilder::IsReady(const TQualifierDeclPart& decl) const {
  return IsReady(decl.fValue);
}

bool TBuilder::HasQualifiers(const TClassPart& made) const {
  if (!IsReady(made.fQualifiers)) return false;
  for (const TPropertyPart& property : made.fProperties) {
    if (!IsReady(property.fQualifiers)) return false;
  }
  for (const TMethodPart& method : made.fMethods) {
    if (!IsReady(method.fQualifiers)) return false;
    for (const TParameterPart& parameter : method.fParameters) {
      if (!IsReady(parameter.fQualifiers)) return false;
    }
  }
  return true;
}

bool TBuilder::IsReady(const TClassPart& made) const {
  if (!made.fSuperClass.empty() && !HasClass(made.fSuperClass)) return false;
  for (const TPropertyPart& property : made.fProperties) {
    if (!IsReady(property.fValue) && !IsSameCIMName(property.fValue.fReferencedClass, made.fName))
      return false;
  }
  return HasQualifiers(made);
}

bool TBuilder::IsReady(const TStaticPart& values) const {
  if (!HasClass(values.fClass)) return false;
  for (const TPropertyPart& property : values.fProperties) {
    if (!IsReady(property.fValue)) return false;
  }
  return true;
}

bool TBuilder::IsReady(const TInstancePart& instance) const {
  const bool isLast = fLastClass && fLastClass->GetName(TCIMContext()) == instance.fClass;
  if (!isLast && !HasClass(instance.fClass)) return false;
  for (const TPropertyPart& property : instance.fProperties) {
    if ((property.fValue.fIsReference || !property.fValue.fReferencedClass.empty()) &&
        !IsReady(property.fValue))
      return false;
  }
  if (!instance.fInstanceName) return true;
  for (const TKeyPart& key : instance.fInstanceName->fKeys) {
    for (const TReferencePart& reference : key.fReferences) {
      if (!IsReady(reference)) return false;
    }
  }
  return true;
}

// The class of that name, be it one of which no more is known.
TBuilder::TClass TBuilder::ClassNamed(TLine line, const std::string& name) {
  if (const TClass found = fNamespace->FindClass(name)) return found;
  fNamedClasses.insert(name);
  return Guard(line, "a class", name, [&] { return fNamespace->OutsideClass(name); });
}

void TBuilder::Finish() {
  for (const std::string& name : fNamedClasses) {
    if (!HasClass(name)) fWarnings.Add("classes that the file names and doesn't hold", name);
  }
}

// Values.

TCIMValue TBuilder::Null(TLine line, TType type, unsigned int maxArraySize,
                         const std::string& referencedClass) {
  TCIMValue null(type, maxArraySize);
  if (!referencedClass.empty()) null.SetReferencedClass(ClassNamed(line, referencedClass));
  return null;
}

TCIMValue TBuilder::Value(TLine line, TType type, TValuePart& value) {
  if (value.fIsReference && !IsArrayType(type)) return Reference(value.fReferences[0]);
  if (value.fIsReference) return References(type, value.fMaxArraySize, value.fReferences);
  if (value.fValue) return std::move(*value.fValue);
  return Null(line, type, value.fMaxArraySize, value.fReferencedClass);
}

TCIMValue TBuilder::References(TType type, unsigned int maxArraySize,
                               std::vector<TReferencePart>& parts) {
  TCIMValue array(type, maxArraySize, std::vector<TCIMValue>());
  std::vector<TCIMValue>& elements = array;
  for (TReferencePart& part : parts) {
    elements.push_back(part.fIsNull ? Null(part.fLine, AsElement(type), 0, part.fClass)
                                    : Reference(part));
  }
  return array;
}

TCIMValue TBuilder::Reference(TReferencePart& part) {
  const TClass named = ClassNamed(part.fLine, part.fClass);
  TCIMReference reference(fNamespace, TCIMContext());
  reference.SetClass(named);
  reference.SetNameSpaceName(part.fNamespace);
  std::set<std::string> names;
  for (TKeyPart& key : part.fKeys) {
    const std::string name = KeyName(key, named);
    const TType type = KeyType(key, name, named);
    if (!names.insert(FoldedCIMName(name)).second)
      Fail(key.fLine, "KEYBINDING", name, "the key stands twice");
    const TCIMValue value = KeyValue(key, type);
    Guard(key.fLine, "KEYBINDING", name, [&] { reference.AddKeyValue(name, value); });
  }
  return TCIMValue(reference);
}

// A key without a name is the only one of its class.
std::string TBuilder::KeyName(const TKeyPart& key, const TClass& keyClass) const {
  if (!key.fName.empty()) return key.fName;
  std::string name;
  std::size_t count = 0;
  for (const auto& decl : keyClass->PropertyDecls()) {
    if (!decl->IsKey()) continue;
    name = decl->GetName(TCIMContext());
    ++count;
  }
  if (count == 1) return name;
  Fail(key.fLine, "KEYVALUE", "",
       "a key without a name, where the class " + Quoted(keyClass->GetName(TCIMContext())) +
           " has " + std::to_string(count) + " keys");
}

TType TBuilder::KeyType(const TKeyPart& key, const std::string& name, const TClass& keyClass) {
  if (const auto decl = keyClass->FindPropertyDecl(name)) return decl->GetType(TCIMContext());
  if (!keyClass->IsOutside()) {
    Fail(key.fLine, "KEYBINDING", name,
         "the class " + Quoted(keyClass->GetName(TCIMContext())) + " has no such property");
  }
  const TType type = GuessedType(key);
  Guard(key.fLine, "KEYBINDING", name, [&] { keyClass->DeclareOutsideKey(name, type); });
  return type;
}

void TBuilder::CheckKeyType(const TKeyPart& key, TType type) const {
  TType needed = type;
  switch (key.fShape) {
    case TKeyPart::kNothing:
      return;
    case TKeyPart::kText:
      if (!IsArrayType(type) && !IsReferenceType(type)) {
        if (key.fType != TType::kCIMTypeNone && key.fType != type)
          Fail(key.fLine, "KEYVALUE", "", "the class declares the key as " + type.ToString());
        if (!key.fKind.empty() && key.fKind != KindOfKey(type))
          Fail(key.fLine, "KEYVALUE", "",
               "a " + type.ToString() + " key has the VALUETYPE " + KindOfKey(type));
        return;
      }
      break;
    case TKeyPart::kTexts:
      if (IsArrayType(type) && !IsReferenceType(type)) return;
      break;
    case TKeyPart::kReference:
      if (type == TType::kCIMTypeReference) return;
      break;
    case TKeyPart::kReferences:
      if (IsArrayType(type) && IsReferenceType(type)) return;
      break;
  }
  Fail(key.fLine, "KEYBINDING", key.fName,
       "a " + TypeText(needed) + " stands in a " + ValueElement(type, true));
}

TCIMValue TBuilder::KeyText(const TKeyPart& key, const TKeyElement& element, TType type) {
  if (element.fIsNull) return TCIMValue(type, 0);
  try {
    return ScalarOf(type, element.fForm, element.fText, fWarnings);
  } catch (const TMalformedText& malformed) {
    Fail(element.fLine, key.fShape == TKeyPart::kText ? "KEYVALUE" : "VALUE", "", malformed.what());
  }
}

TCIMValue TBuilder::KeyValue(TKeyPart& key, TType type) {
  CheckKeyType(key, type);
  switch (key.fShape) {
    case TKeyPart::kText:
      return KeyText(key, key.fTexts[0], type);
    case TKeyPart::kReference:
      return Reference(key.fReferences[0]);
    case TKeyPart::kReferences:
      return References(type, key.fMaxArraySize, key.fReferences);
    case TKeyPart::kTexts: {
      TCIMValue array(type, key.fMaxArraySize, std::vector<TCIMValue>());
      std::vector<TCIMValue>& elements = array;
      for (const TKeyElement& element : key.fTexts)
        elements.push_back(KeyText(key, element, AsElement(type)));
      return array;
    }
    default:
      return Null(key.fLine, type, key.fMaxArraySize, key.fReferencedClass);
  }
}

// Qualifiers.

void TBuilder::Add(TQualifierDeclPart& part) {
  if (fNamespace->GetQualifierDecl(part.fName, TCIMContext()))
    Fail(part.fLine, "QUALIFIER.DECLARATION", part.fName, "stands twice");
  Guard(part.fLine, "QUALIFIER.DECLARATION", part.fName, [&] {
    const TCIMValue value = Value(part.fLine, part.fType, part.fValue);
    fNamespace->CreateQualifierDecl(part.fName, value, part.fScope, part.fFlavor, TCIMContext())
        ->Commit(TCIMContext());
  });
}

// The declaration of that name. One that the file leaves to others is what the standard says, or
// what its use needs.
boost::shared_ptr<ICIMQualifierDecl> TBuilder::QualifierDecl(const std::string& name, TType type) {
  if (const auto found = fNamespace->GetQualifierDecl(name, TCIMContext())) return found;
  fWarnings.Add("qualifiers that the file uses and doesn't declare", name);
  const auto standard = fStandard->GetQualifierDecl(name, TCIMContext());
  const bool isStandard = standard && standard->GetType(TCIMContext()) == type;
  const auto made =
      boost::static_pointer_cast<TMemoryQualifierDecl>(fNamespace->CreateQualifierDecl(
          name, TCIMValue(type, 0), isStandard ? standard->GetScope(TCIMContext()) : kScopeAny,
          isStandard ? standard->GetFlavor(TCIMContext()) : kFlavorDefault, TCIMContext()));
  made->Commit(TCIMContext());
  made->SetOutside();
  return made;
}

void TBuilder::AddQualifiers(TQualifierParts& parts, ICIMQualifiedElement& bearer,
                             const TClass& made) {
  for (TQualifierPart& part : parts) {
    Guard(part.fLine, "QUALIFIER", part.fName, [&] { AddQualifier(part, bearer, made); });
  }
}

void TBuilder::AddQualifier(TQualifierPart& part, ICIMQualifiedElement& bearer,
                            const TClass& made) {
  const auto decl = QualifierDecl(part.fName, part.fType);
  const TType type = decl->GetType(TCIMContext());
  const bool hasValue = part.fValue.fValue || part.fValue.fIsReference;
  if (AsElement(part.fType) != AsElement(type) || (hasValue && part.fType != type))
    Fail(part.fLine, "QUALIFIER", part.fName, "the qualifier is declared as " + TypeText(type));
  if (part.fValue.fMaxArraySize != 0 && !IsArrayType(type))
    Fail(part.fLine, "QUALIFIER", part.fName, "ARRAYSIZE without an array");
  const TCIMValue value = Value(part.fLine, type, part.fValue);
  if (part.fNotes.fIsPropagated) {
    if (bearer.HasQualifier(part.fName, TCIMContext())) return;
    if (!made->HasOutsideAncestor())
      Fail(part.fLine, "QUALIFIER", part.fName, "PROPAGATED, but from nowhere");
  }
  const auto qualifier = boost::static_pointer_cast<TMemoryQualifier>(
      bearer.CreateQualifier(decl, value, TCIMContext()));
  qualifier->SetFlavor((decl->GetFlavor(TCIMContext()) & ~part.fSaidFlavor) |
                       (part.fFlavor & part.fSaidFlavor));
  qualifier->SetNotes(part.fNotes);
  qualifier->Commit(TCIMContext());
}

// Classes.

// CLASSORIGIN and PROPAGATED of an element that isn't there yet.
void TBuilder::CheckOrigin(TLine line, const char* element, const std::string& name,
                           TElementNotes& notes, const TClass& made) const {
  const bool isOwn = IsSameCIMName(notes.fOrigin, made->GetName(TCIMContext()));
  if (isOwn) notes.fOrigin.clear();
  if (made->HasOutsideAncestor()) return;
  if (notes.fIsPropagated) Fail(line, element, name, "PROPAGATED, but from nowhere");
  if (!notes.fOrigin.empty() && !made->IsSubClassOf(notes.fOrigin, TCIMContext())) {
    Fail(line, element, name,
         "CLASSORIGIN is neither the class nor a superclass: " + Quoted(notes.fOrigin));
  }
}

void TBuilder::AddProperty(TPropertyPart& part, const TClass& made) {
  const auto there = made->FindPropertyDecl(part.fName);
  if (there && !there->IsInherited())
    Fail(part.fLine, part.fElement, part.fName, "the property stands twice");
  if (there && there->GetType(TCIMContext()) != part.fType) {
    Fail(part.fLine, part.fElement, part.fName,
         "the superclass declares the property with another type");
  }
  if (there && part.fNotes.fIsPropagated) return;  // only repeats the superclass
  CheckOrigin(part.fLine, part.fElement, part.fName, part.fNotes, made);
  Guard(part.fLine, part.fElement, part.fName, [&] {
    const TCIMValue value = Value(part.fLine, part.fType, part.fValue);
    const auto decl = boost::static_pointer_cast<TMemoryPropertyDecl>(
        made->CreatePropertyDecl(part.fName, value, TCIMContext()));
    AddQualifiers(part.fQualifiers, *decl, made);
    decl->SetNotes(part.fNotes);
    decl->Commit(TCIMContext());
  });
}

void TBuilder::AddParameter(TParameterPart& part, ICIMMethodDecl& method, const TClass& made) {
  Guard(part.fLine, part.fElement, part.fName, [&] {
    const auto parameter = boost::static_pointer_cast<TMemoryParameterDecl>(
        method.CreateParameterDecl(part.fName, part.fType, TCIMContext()));
    AddQualifiers(part.fQualifiers, *parameter, made);
    parameter->SetNotes(part.fNotes);
    parameter->Commit(TCIMContext());
  });
}

void TBuilder::AddMethod(TMethodPart& part, const TClass& made) {
  const auto there = made->FindMethodDecl(part.fName);
  if (there && !there->IsInherited())
    Fail(part.fLine, "METHOD", part.fName, "the method stands twice");
  if (there && part.fNotes.fIsPropagated) return;
  CheckOrigin(part.fLine, "METHOD", part.fName, part.fNotes, made);
  const auto method =
      boost::static_pointer_cast<TMemoryMethodDecl>(Guard(part.fLine, "METHOD", part.fName, [&] {
        return made->CreateMethodDecl(part.fName, part.fType, TCIMContext());
      }));
  method->SetNotes(part.fNotes);
  AddQualifiers(part.fQualifiers, *method, made);
  for (TParameterPart& parameter : part.fParameters)
    AddParameter(parameter, *method, made);
}

// A line in a file makes a subclass with all that its superclass has.
void TBuilder::KeepClass(const TMemoryClass& made) {
  std::uint64_t memory = kClassMemory;
  for (const auto& decl : made.PropertyDecls())
    memory += decl->IsInherited() ? kInheritedMemory : kDeclarationMemory;
  fScanner.Keep(memory + const_cast<TMemoryClass&>(made).GetMethodDeclCount(TCIMContext()) *
                             kInheritedMemory);
}

void TBuilder::Add(TClassPart& part) {
  if (HasClass(part.fName)) Fail(part.fLine, "CLASS", part.fName, "the class stands twice");
  TClass superclass;
  if (!part.fSuperClass.empty()) superclass = ClassNamed(part.fLine, part.fSuperClass);
  const TClass made =
      boost::static_pointer_cast<TMemoryClass>(Guard(part.fLine, "CLASS", part.fName, [&] {
        try {
          return fNamespace->CreateClass(part.fName, superclass, TCIMContext());
        } catch (const THWXException& failure) {
          if (failure.GetStatus() != kHWXStatusNotSupported) throw;
          Fail(part.fLine, "CLASS", part.fName,
               "has more than " + std::to_string(TMemoryNamespace::kMaxClassDepth) +
                   " superclasses");
        }
      }));
  AddQualifiers(part.fQualifiers, *made, made);
  for (TPropertyPart& property : part.fProperties)
    AddProperty(property, made);
  for (TMethodPart& method : part.fMethods)
    AddMethod(method, made);
  Guard(part.fLine, "CLASS", part.fName, [&] { made->Commit(TCIMContext()); });
  KeepClass(*made);
}

// Classes that are made of their instances.

void TBuilder::DeclareProperty(TLine line, const std::string& name, const TType& type, bool isKey,
                               EEmbeddedObject embedded, const TClass& made) {
  if (made->FindPropertyDecl(name)) return;
  Guard(line, "PROPERTY", name, [&] {
    const auto decl = boost::static_pointer_cast<TMemoryPropertyDecl>(
        made->CreatePropertyDecl(name, TCIMValue(type, 0), TCIMContext()));
    if (isKey) {
      const auto key = QualifierDecl("Key", TType::kCIMTypeBoolean);
      decl->CreateQualifier(key, true, TCIMContext())->Commit(TCIMContext());
    }
    TElementNotes notes;
    notes.fEmbedded = embedded;
    decl->SetNotes(notes);
    decl->Commit(TCIMContext());
  });
}

// Keys are those in the names of the instances, be they among the properties or not.
void TBuilder::DeclareProperties(const std::vector<TInstancePart*>& instances, const TClass& made) {
  std::vector<const TKeyPart*> keys;
  std::set<std::string> names;
  for (const TInstancePart* const instance : instances) {
    if (!instance->fInstanceName) continue;
    for (const TKeyPart& key : instance->fInstanceName->fKeys) {
      if (!key.fName.empty() && names.insert(FoldedCIMName(key.fName)).second) keys.push_back(&key);
    }
  }
  for (const TInstancePart* const instance : instances) {
    for (const TPropertyPart& property : instance->fProperties) {
      DeclareProperty(property.fLine, property.fName, property.fType,
                      names.count(FoldedCIMName(property.fName)) != 0, property.fNotes.fEmbedded,
                      made);
    }
  }
  for (const TKeyPart* const key : keys)
    DeclareProperty(key->fLine, key->fName, GuessedType(*key), true, kEmbeddedNothing, made);
}

void TBuilder::AddClassOf(const std::vector<TInstancePart*>& instances) {
  const TInstancePart& first = *instances.front();
  fWarnings.Add("classes that are known from their instances alone", first.fClass);
  const auto guarded = [&](auto call) {
    return Guard(first.fLine, "INSTANCE", first.fClass, call);
  };
  const TClass made = boost::static_pointer_cast<TMemoryClass>(
      guarded([&] { return fNamespace->CreateClass(first.fClass, TClass(), TCIMContext()); }));
  DeclareProperties(instances, made);
  guarded([&] { made->Commit(TCIMContext()); });
  made->SetOutside();
  KeepClass(*made);
}

void TBuilder::Add(TStaticPart& part) {
  const TClass owner = ClassNamed(part.fLine, part.fClass);
  if (owner->IsOutside())
    Fail(part.fLine, "STATIC", part.fClass, "there is no class " + Quoted(part.fClass));
  bool hasValues = false;
  owner->EnumerateStaticProperties(
      [&hasValues](const boost::shared_ptr<ICIMProperty>&) { return !(hasValues = true); },
      TCIMContext());
  if (hasValues) Fail(part.fLine, "STATIC", part.fClass, "the static values stand twice");
  std::set<std::string> names;
  for (TPropertyPart& property : part.fProperties) {
    if (!names.insert(FoldedCIMName(property.fName)).second)
      Fail(property.fLine, property.fElement, property.fName, "the property stands twice");
    Guard(property.fLine, property.fElement, property.fName, [&] {
      const TCIMValue value = Value(property.fLine, property.fType, property.fValue);
      owner->SetStaticPropertyValue(property.fName, value, TCIMContext());
    });
  }
}

// Instances.

TBuilder::TClassFacts& TBuilder::FactsOf(const TClass& source) {
  const auto [entry, isNew] = fFacts.try_emplace(source.get());
  if (isNew) {
    for (const auto& decl : source->PropertyDecls())
      entry->second.fKeys += decl->IsKey() ? 1 : 0;
    entry->second.fInstanceMemory =
        kInstanceMemory + kPropertyMemory * source->PropertyDecls().size();
  }
  return entry->second;
}

void TBuilder::AddValue(TPropertyPart& part, const TClass& owner, TMemoryInstance& instance) {
  const std::size_t index = owner->PropertyIndex(part.fName);
  if (index == owner->PropertyDecls().size())
    Fail(part.fLine, part.fElement, part.fName, "the class has no such property");
  TMemoryPropertyDecl& decl = *owner->PropertyDecls()[index];
  const TType type = decl.GetType(TCIMContext());
  if (part.fType != type) {
    Fail(part.fLine, part.fElement, part.fName,
         "the class declares the property as " + TypeText(type));
  }
  if (fIsSet[index] != 0) Fail(part.fLine, part.fElement, part.fName, "the property stands twice");
  fIsSet[index] = 1;
  TElementNotes notes;
  notes.fLanguage = part.fNotes.fLanguage;
  if (part.fNotes.fEmbedded != decl.GetNotes().fEmbedded) notes.fEmbedded = part.fNotes.fEmbedded;
  if (!notes.IsEmpty()) instance.SetNotesAt(index, notes);
  Guard(part.fLine, part.fElement, part.fName,
        [&] { instance.SetValueAt(index, Value(part.fLine, type, part.fValue)); });
}

// Whether two values are the same in type and content.
bool TBuilder::IsSame(const TCIMValue& left, const TCIMValue& right) const {
  if (left.GetType() == TType::kCIMTypeString && right.GetType() == TType::kCIMTypeString)
    return left == right;
  const auto text = [this](const TCIMValue& value) {
    TValueWriter writer(*fNamespace);
    writer.Extent(value);
    writer.Value(value);
    return writer.XML();
  };
  return text(left) == text(right);
}

void TBuilder::AddKey(TKeyPart& key, const TClass& owner, TMemoryInstance& instance) {
  const std::string name = KeyName(key, owner);
  const TType type = KeyType(key, name, owner);
  const std::size_t index = owner->PropertyIndex(name);
  if (!owner->PropertyDecls()[index]->IsKey())
    Fail(key.fLine, "KEYBINDING", name, "the property is no key");
  if (fIsNamed[index] != 0) Fail(key.fLine, "KEYBINDING", name, "the key stands twice");
  fIsNamed[index] = 1;
  TCIMValue value = KeyValue(key, type);
  if (fIsSet[index] == 0) {
    Guard(key.fLine, "KEYBINDING", name, [&] { instance.SetValueAt(index, std::move(value)); });
  } else if (!IsSame(value, instance.ValueAt(index))) {
    Fail(key.fLine, "KEYBINDING", name, "the key has another value than the property");
  }
}

// The keys in the name have to be those of the instance.
void TBuilder::AddName(TInstanceName& name, const TClass& owner, TMemoryInstance& instance) {
  if (!IsSameCIMName(name.fClass, owner->GetName(TCIMContext())))
    Fail(name.fLine, "INSTANCENAME", name.fClass, "names another class than the instance");
  fIsNamed.assign(owner->PropertyDecls().size(), 0);
  for (TKeyPart& key : name.fKeys)
    AddKey(key, owner, instance);
  if (name.fKeys.size() == fLastFacts->fKeys) return;
  Fail(name.fLine, "INSTANCENAME", name.fClass,
       "has " + std::to_string(name.fKeys.size()) + " keys, where the class has " +
           std::to_string(fLastFacts->fKeys));
}

void TBuilder::Hold(const TInstancePart& part, const TClass& owner,
                    const boost::shared_ptr<TMemoryInstance>& instance) const {
  try {
    owner->AddInstance(instance);
  } catch (const THWXException& failure) {
    if (failure.GetStatus() == kHWXStatusAlreadyExists)
      Fail(part.fLine, "INSTANCE", part.fClass, "another instance has the same keys");
    if (failure.GetStatus() == kHWXStatusInvalidInstance)
      Fail(part.fLine, "INSTANCE", part.fClass, "a key is missing, null or an array");
    Fail(part.fLine, "INSTANCE", part.fClass, std::string("refused with ") + failure.what());
  }
}

void TBuilder::Add(TInstancePart& part) {
  if (!fLastClass || fLastClass->GetName(TCIMContext()) != part.fClass) {
    fLastClass = fNamespace->FindClass(part.fClass);
    fLastFacts = &FactsOf(fLastClass);
  }
  const TClass owner = fLastClass;
  fScanner.Keep(fLastFacts->fInstanceMemory);
  const auto instance =
      Guard(part.fLine, "INSTANCE", part.fClass, [&] { return owner->NewInstance(); });
  fIsSet.assign(owner->PropertyDecls().size(), 0);
  for (TPropertyPart& property : part.fProperties)
    AddValue(property, owner, *instance);
  if (part.fInstanceName) AddName(*part.fInstanceName, owner, *instance);
  if (!part.fLanguage.empty()) {
    TElementNotes notes;
    notes.fLanguage = part.fLanguage;
    instance->SetNotesAt(owner->PropertyDecls().size(), notes);
  }
  Hold(part, owner, instance);
}

}  // namespace container
