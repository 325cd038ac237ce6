#include "providers/container/PartReader.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "hwxcore/value/THWXException.h"
#include "providers/container/XMLText.h"

namespace container {

namespace {

using namespace NQORHWX20;

// About what a value, and the other things that are kept, take.
constexpr std::uint64_t kValueMemory = 96;
constexpr std::uint64_t kKeyMemory = 200;

bool IsWordOf(const std::string& text, std::string_view lowerCase) {
  return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                    [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a + 32 : a) == b; });
}

// A date-time may leave places open at its end; they are read as the first moment that fits.
std::string WithoutWildcards(const std::string& text) {
  std::string digits = text;
  std::replace(digits.begin(), digits.end(), '*', '0');
  const std::size_t sign = digits.find_first_of("+-:");
  if (digits.size() == 25 && sign != std::string::npos && digits[sign] != ':') {
    for (const std::size_t at : {std::size_t{4}, std::size_t{6}}) {  // there is no month or day 0
      if (digits.compare(at, 2, "00") == 0 && text[at] == '*') digits[at + 1] = '1';
    }
  }
  return digits;
}

}  // namespace

// Attributes.

std::string TPartReader::OptionalName(const char* attribute) const {
  const std::string* const name = fScanner.Attribute(attribute);
  if (name == nullptr) return std::string();
  if (name->find('\\') == std::string::npos) return *name;
  // Others don't know of escapes.
  return Unescaped(*name).value_or(*name);
}

std::string TPartReader::Name(const char* attribute) const {
  if (fScanner.Attribute(attribute) == nullptr)
    fScanner.FailHere(std::string("lacks the attribute ") + attribute);
  return OptionalName(attribute);
}

bool TPartReader::Flag(const char* attribute, bool absent) const {
  const std::string* const flag = fScanner.Attribute(attribute);
  if (flag == nullptr) return absent;
  if (IsWordOf(*flag, "true")) return true;
  if (IsWordOf(*flag, "false")) return false;
  fScanner.FailHere(std::string(attribute) + " is neither true nor false, but " + Quoted(*flag));
}

unsigned int TPartReader::Number(const char* attribute) const {
  const std::string* const digits = fScanner.Attribute(attribute);
  if (digits == nullptr) return 0;
  unsigned int number = 0;
  const char* const end = digits->data() + digits->size();
  const auto result = std::from_chars(digits->data(), end, number);
  if (result.ec != std::errc() || result.ptr != end)
    fScanner.FailHere(std::string(attribute) + " is no number: " + Quoted(*digits));
  return number;
}

TType TPartReader::Type() const {
  const std::string name = Name("TYPE");
  const TType type(name);
  if (type == TType::kCIMTypeNone) fScanner.FailHere(Quoted(name) + " is no type");
  return type;
}

EEmbeddedObject TPartReader::Embedded() const {
  const std::string* kind = fScanner.Attribute("EmbeddedObject");
  if (kind == nullptr) kind = fScanner.Attribute("EMBEDDEDOBJECT");
  if (kind == nullptr || kind->empty()) return kEmbeddedNothing;
  if (IsWordOf(*kind, "object")) return kEmbeddedObject;
  if (IsWordOf(*kind, "instance")) return kEmbeddedInstance;
  fScanner.FailHere("EmbeddedObject is neither object nor instance, but " + Quoted(*kind));
}

TElementNotes TPartReader::Notes() const {
  TElementNotes notes;
  notes.fLanguage = OptionalName("xml:lang");
  notes.fOrigin = OptionalName("CLASSORIGIN");
  notes.fIsPropagated = Flag("PROPAGATED");
  notes.fEmbedded = Embedded();
  return notes;
}

unsigned int TPartReader::Flavor(unsigned int& said) const {
  unsigned int flavor = 0;
  for (const TFlagName& flag : kFlavorNames) {
    if (fScanner.Attribute(flag.fName) != nullptr) said |= flag.fBit;
    if (Flag(flag.fName, (flag.fBit & kFlavorDefault) != 0)) flavor |= flag.fBit;
  }
  return flavor;
}

// Values.

TPartReader::TForm TPartReader::ReadForm() const {
  TForm form;
  std::string name;
  if (const std::string* const attribute = fScanner.Attribute("FORM")) name = *attribute;
  if (!fScanner.Notes().empty()) {
    const std::string& note = fScanner.Notes().back().fText;
    const std::size_t blank = note.find(' ');
    name = note.substr(0, blank);
    form.fHasText = blank != std::string::npos;
    if (form.fHasText) form.fText = note.substr(blank + 1);
  }
  if (name.empty()) return form;
  for (const EForm known : {EForm::kEscaped, EForm::kFields, EForm::kBits, EForm::kCleared}) {
    if (name != FormName(known)) continue;
    form.fForm = known;
    return form;
  }
  fScanner.FailHere("FORM has no value " + Quoted(name));
}

// Whether the note in front of what was read last says so.
bool TPartReader::IsCleared() const {
  return !fScanner.Notes().empty() && fScanner.Notes().back().fText == FormName(EForm::kCleared);
}

TCIMValue ScalarOf(TType type, EForm form, const std::string& text, TWarnings& warnings) {
  const bool isOpen = type == TType::kCIMTypeDateTime && form == EForm::kPlain &&
                      text.find('*') != std::string::npos;
  if (isOpen) warnings.Add("date-times whose asterisks are read as their first moment", text);
  return ScalarValue(type, form, isOpen ? WithoutWildcards(text) : text);
}

TCIMValue TPartReader::Scalar(TType type) {
  fScanner.CheckAttributes({"FORM"});
  const TForm form = ReadForm();
  const TLine line = fScanner.Line();
  const std::string& text = fScanner.Text();
  fScanner.Keep(kValueMemory + (text.size() > 15 ? text.size() : 0));
  try {
    return ScalarOf(type, form.fForm, form.fHasText ? form.fText : text, fWarnings);
  } catch (const TMalformedText& malformed) {
    fScanner.Fail(line, std::string("VALUE: ") + malformed.what());
  }
}

TCIMValue TPartReader::Array(TType type, unsigned int maxArraySize) {
  const TType elementType = AsElement(type);
  TCIMValue array(type, maxArraySize, std::vector<TCIMValue>());
  std::vector<TCIMValue>& elements = array;
  fScanner.CheckAttributes({});
  while (fScanner.Next()) {
    if (fScanner.Element() == EElement::kValue) {
      elements.push_back(Scalar(elementType));
    } else if (fScanner.Element() == EElement::kValueNull) {
      const bool isCleared = IsCleared();
      fScanner.Close();
      fScanner.Keep(kValueMemory);
      if (isCleared)
        elements.push_back(ScalarValue(elementType, EForm::kCleared, std::string()));
      else
        elements.emplace_back(elementType, 0);
    } else {
      fScanner.FailUnexpected("VALUE or VALUE.NULL");
    }
  }
  return array;
}

void TPartReader::References(TValuePart& value, TType type) {
  value.fIsReference = true;
  if (!IsArrayType(type)) {
    value.fReferences.push_back(Reference(0));
    return;
  }
  fScanner.CheckAttributes({});
  while (fScanner.Next()) {
    if (fScanner.Element() == EElement::kValueReference) {
      value.fReferences.push_back(Reference(0));
    } else if (fScanner.Element() == EElement::kValueNull) {
      TReferencePart& null = value.fReferences.emplace_back();
      null.fLine = fScanner.Line();
      null.fIsNull = true;
      null.fClass = OptionalName("REFERENCECLASS");
      fScanner.Keep(kKeyMemory);
      fScanner.Close();
    } else {
      fScanner.FailUnexpected("VALUE.REFERENCE or VALUE.NULL");
    }
  }
}

// What the element of a property or the like says of its value.
void TPartReader::ReadExtent(TValuePart& value, TType type) const {
  value.fMaxArraySize = Number("ARRAYSIZE");
  if (value.fMaxArraySize != 0 && !IsArrayType(type))
    fScanner.FailHere("ARRAYSIZE without an array");
  value.fReferencedClass = OptionalName("REFERENCECLASS");
}

// The open element is to be a value of the type.
void TPartReader::Value(TValuePart& value, TType type) {
  const char* const expected = ValueElement(type, false);
  if (fScanner.Element() != ElementOf(expected)) {
    fScanner.FailHere("a " + type.ToString() + (IsArrayType(type) ? " array" : "") +
                      " stands in a " + expected);
  }
  if (value.fValue || value.fIsReference) fScanner.FailUnexpected("one value");
  if (IsReferenceType(type))
    References(value, type);
  else if (IsArrayType(type))
    value.fValue.emplace(Array(type, value.fMaxArraySize));
  else
    value.fValue.emplace(Scalar(type));
}

// References.

std::string TPartReader::NamespaceName() {
  std::string name;
  fScanner.CheckAttributes({});
  if (fScanner.Element() == EElement::kNamespacePath) {
    if (!fScanner.Next() || fScanner.Element() != EElement::kHost) fScanner.FailUnexpected("HOST");
    name = "//" + fScanner.Text() + "/";
    if (!fScanner.Next() || fScanner.Element() != EElement::kLocalNamespacePath)
      fScanner.FailUnexpected("LOCALNAMESPACEPATH");
    name += NamespaceName();
    if (fScanner.Next()) fScanner.FailUnexpected("nothing more");
    return name;
  }
  const char* separator = "";
  while (fScanner.Next()) {
    if (fScanner.Element() != EElement::kNamespace) fScanner.FailUnexpected("NAMESPACE");
    fScanner.CheckAttributes({"NAME"});
    name.append(separator).append(Name("NAME"));
    fScanner.Close();
    separator = "/";
  }
  return name;
}

// The VALUE.REFERENCE that is open.
TReferencePart TPartReader::Reference(unsigned int depth) {
  const TLine line = fScanner.Line();
  if (depth == kMaxReferenceDepth) fScanner.FailHere("references are nested too deeply");
  fScanner.CheckAttributes({});
  if (!fScanner.Next()) fScanner.Fail(line, "VALUE.REFERENCE: doesn't hold one object");
  TReferencePart reference = Object(depth);
  if (fScanner.Next()) fScanner.Fail(line, "VALUE.REFERENCE: doesn't hold one object");
  return reference;
}

TReferencePart TPartReader::Object(unsigned int depth) {
  TReferencePart object;
  object.fLine = fScanner.Line();
  switch (fScanner.Element()) {
    case EElement::kClassPath:
    case EElement::kLocalClassPath:
    case EElement::kInstancePath:
    case EElement::kLocalInstancePath:
      fScanner.CheckAttributes({});
      if (!fScanner.Next() || (fScanner.Element() != EElement::kNamespacePath &&
                               fScanner.Element() != EElement::kLocalNamespacePath))
        fScanner.FailUnexpected("NAMESPACEPATH or LOCALNAMESPACEPATH");
      object.fNamespace = NamespaceName();
      if (!fScanner.Next()) fScanner.Fail(object.fLine, "a path without CLASSNAME or INSTANCENAME");
      NamedObject(object, depth);
      if (fScanner.Next()) fScanner.FailUnexpected("nothing more");
      return object;
    default:
      NamedObject(object, depth);
      return object;
  }
}

void TPartReader::NamedObject(TReferencePart& object, unsigned int depth) {
  fScanner.Keep(kKeyMemory);
  if (fScanner.Element() == EElement::kInstanceName) {
    TInstanceName name = InstanceName(depth + 1);
    object.fClass = std::move(name.fClass);
    object.fKeys = std::move(name.fKeys);
    return;
  }
  if (fScanner.Element() != EElement::kClassName)
    fScanner.FailUnexpected("CLASSNAME, INSTANCENAME or one of their paths");
  fScanner.CheckAttributes({"NAME"});
  object.fClass = Name("NAME");
  fScanner.Close();
}

TInstanceName TPartReader::InstanceName(unsigned int depth) {
  TInstanceName name;
  name.fLine = fScanner.Line();
  fScanner.CheckAttributes({"CLASSNAME"});
  name.fClass = Name("CLASSNAME");
  while (fScanner.Next()) {
    if (!name.fKeys.empty() && name.fKeys.back().fName.empty())
      fScanner.FailUnexpected("nothing behind a key without a name");
    if (fScanner.Element() == EElement::kKeyBinding) {
      name.fKeys.push_back(KeyBinding(depth));
    } else if (name.fKeys.empty() && (fScanner.Element() == EElement::kKeyValue ||
                                      fScanner.Element() == EElement::kValueReference)) {
      TKeyPart key;
      key.fLine = fScanner.Line();
      KeyContent(key, depth);
      name.fKeys.push_back(std::move(key));
    } else {
      fScanner.FailUnexpected("KEYBINDING");
    }
    fScanner.Keep(kKeyMemory);
  }
  return name;
}

TKeyPart TPartReader::KeyBinding(unsigned int depth) {
  TKeyPart key;
  key.fLine = fScanner.Line();
  fScanner.CheckAttributes({"NAME", "ARRAYSIZE", "REFERENCECLASS"});
  key.fName = Name("NAME");
  if (key.fName.empty()) fScanner.FailHere("the NAME is empty");
  key.fMaxArraySize = Number("ARRAYSIZE");
  key.fReferencedClass = OptionalName("REFERENCECLASS");
  while (fScanner.Next()) {
    if (key.fShape != TKeyPart::kNothing) fScanner.FailUnexpected("one value");
    KeyContent(key, depth);
  }
  return key;
}

void TPartReader::KeyContent(TKeyPart& key, unsigned int depth) {
  switch (fScanner.Element()) {
    case EElement::kKeyValue:
      key.fShape = TKeyPart::kText;
      return KeyValue(key);
    case EElement::kValueReference:
      key.fShape = TKeyPart::kReference;
      key.fReferences.push_back(Reference(depth));
      return;
    case EElement::kValueArray:
    case EElement::kValueRefArray:
      return KeyElements(key, depth);
    default:
      fScanner.FailUnexpected("KEYVALUE or VALUE.REFERENCE");
  }
}

void TPartReader::KeyValue(TKeyPart& key) {
  fScanner.CheckAttributes({"VALUETYPE", "TYPE", "FORM"});
  if (fScanner.Attribute("TYPE") != nullptr) key.fType = Type();
  key.fKind = OptionalName("VALUETYPE");
  if (!key.fKind.empty() && key.fKind != "string" && key.fKind != "boolean" &&
      key.fKind != "numeric")
    fScanner.FailHere("VALUETYPE is neither string, boolean nor numeric, but " + Quoted(key.fKind));
  const TForm form = ReadForm();
  TKeyElement& element = key.fTexts.emplace_back();
  element.fLine = fScanner.Line();
  element.fForm = form.fForm;
  element.fText = fScanner.Text();
  if (form.fHasText) element.fText = form.fText;
  fScanner.Keep(element.fText.size());
}

// Arrays are no keys in CIM, but in references they may be.
void TPartReader::KeyElements(TKeyPart& key, unsigned int depth) {
  key.fShape =
      fScanner.Element() == EElement::kValueArray ? TKeyPart::kTexts : TKeyPart::kReferences;
  fScanner.CheckAttributes({});
  while (fScanner.Next()) {
    fScanner.Keep(kKeyMemory);
    const bool isNull = fScanner.Element() == EElement::kValueNull;
    if (key.fShape == TKeyPart::kReferences) {
      if (fScanner.Element() != EElement::kValueReference && !isNull)
        fScanner.FailUnexpected("VALUE.REFERENCE or VALUE.NULL");
      if (!isNull) {
        key.fReferences.push_back(Reference(depth));
        continue;
      }
      TReferencePart& null = key.fReferences.emplace_back();
      null.fIsNull = true;
      null.fClass = OptionalName("REFERENCECLASS");
      fScanner.Close();
      continue;
    }
    if (fScanner.Element() != EElement::kValue && !isNull)
      fScanner.FailUnexpected("VALUE or VALUE.NULL");
    const TForm form = ReadForm();
    TKeyElement& element = key.fTexts.emplace_back();
    element.fLine = fScanner.Line();
    element.fIsNull = isNull && form.fForm != EForm::kCleared;
    element.fForm = form.fForm;
    element.fText = fScanner.Text();
    if (form.fHasText) element.fText = form.fText;
  }
}

// Qualifiers.

unsigned int TPartReader::Scope() {
  fScanner.CheckAttributes({"CLASS", "ASSOCIATION", "REFERENCE", "PROPERTY", "METHOD", "PARAMETER",
                            "INDICATION", "ANY"});
  unsigned int scope = Flag("ANY") ? kScopeAny : kScopeNone;
  for (const TFlagName& flag : kScopeNames) {
    if (Flag(flag.fName)) scope |= flag.fBit;
  }
  fScanner.Close();
  return scope;
}

TQualifierDeclPart TPartReader::QualifierDecl() {
  TQualifierDeclPart decl;
  decl.fLine = fScanner.Line();
  fScanner.CheckAttributes({"NAME", "TYPE", "ISARRAY", "ARRAYSIZE", "REFERENCECLASS", "OVERRIDABLE",
                            "TOSUBCLASS", "TOINSTANCE", "TRANSLATABLE", "SCOPEBITS", "FLAVORBITS"});
  decl.fName = Name("NAME");
  decl.fType = AsArray(Type(), Flag("ISARRAY"));
  const bool mayBeArray = fScanner.Attribute("ISARRAY") == nullptr;
  ReadExtent(decl.fValue, decl.fType);
  unsigned int said = 0;
  decl.fFlavor = Flavor(said) | Number("FLAVORBITS");
  const unsigned int scopeBits = Number("SCOPEBITS");
  bool hasScope = false;
  while (fScanner.Next()) {
    if (fScanner.Element() == EElement::kScope && !hasScope) {
      hasScope = true;
      decl.fScope = Scope();
      continue;
    }
    if (fScanner.Element() == EElement::kScope) fScanner.FailUnexpected("one SCOPE");
    if (mayBeArray && fScanner.Element() == EElement::kValueArray) decl.fType = AsArray(decl.fType);
    Value(decl.fValue, decl.fType);
  }
  if (IsCleared() && !IsArrayType(decl.fType))
    decl.fValue.fValue.emplace(ScalarValue(decl.fType, EForm::kCleared, std::string()));
  if (!hasScope) decl.fScope = kScopeAny;
  decl.fScope |= scopeBits;
  fScanner.Keep(2 * kKeyMemory);
  return decl;
}

TQualifierPart TPartReader::Qualifier() {
  TQualifierPart qualifier;
  qualifier.fLine = fScanner.Line();
  fScanner.CheckAttributes({"NAME", "TYPE", "ARRAYSIZE", "REFERENCECLASS", "PROPAGATED",
                            "OVERRIDABLE", "TOSUBCLASS", "TOINSTANCE", "TRANSLATABLE"});
  qualifier.fName = Name("NAME");
  qualifier.fType = Type();
  ReadExtent(qualifier.fValue, AsArray(qualifier.fType));
  qualifier.fFlavor = Flavor(qualifier.fSaidFlavor);
  qualifier.fNotes.fLanguage = OptionalName("xml:lang");
  qualifier.fNotes.fIsPropagated = Flag("PROPAGATED");
  while (fScanner.Next()) {
    const bool isArray = fScanner.Element() == EElement::kValueArray ||
                         fScanner.Element() == EElement::kValueRefArray;
    qualifier.fType = AsArray(qualifier.fType, isArray);
    Value(qualifier.fValue, qualifier.fType);
  }
  if (IsCleared())
    qualifier.fValue.fValue.emplace(ScalarValue(qualifier.fType, EForm::kCleared, std::string()));
  fScanner.Keep(kKeyMemory);
  return qualifier;
}

// Classes.

bool TPartReader::IsProperty() const {
  return fScanner.Element() == EElement::kProperty ||
         fScanner.Element() == EElement::kPropertyArray ||
         fScanner.Element() == EElement::kPropertyReference;
}

void TPartReader::Property(TPropertyPart& property, bool isOfInstance) {
  property.fLine = fScanner.Line();
  fScanner.CheckAttributes({"NAME", "TYPE", "CLASSORIGIN", "PROPAGATED", "ARRAYSIZE",
                            "REFERENCECLASS", "EmbeddedObject", "EMBEDDEDOBJECT"});
  property.fName = Name("NAME");
  if (fScanner.Element() == EElement::kPropertyReference) {
    property.fElement = "PROPERTY.REFERENCE";
    property.fType = TType::kCIMTypeReference;
  } else {
    const bool isArray = fScanner.Element() == EElement::kPropertyArray;
    property.fElement = isArray ? "PROPERTY.ARRAY" : "PROPERTY";
    property.fType = AsArray(Type(), isArray);
  }
  ReadExtent(property.fValue, property.fType);
  property.fNotes = Notes();
  while (fScanner.Next()) {
    if (fScanner.Element() != EElement::kQualifier) {
      Value(property.fValue, property.fType);
    } else if (isOfInstance) {
      fWarnings.Add("qualifiers of instances, which aren't kept", Name("NAME"));
      fScanner.Skip();
    } else {
      property.fQualifiers.push_back(Qualifier());
    }
  }
  if (IsCleared() && !property.fValue.fValue)
    property.fValue.fValue.emplace(ScalarValue(property.fType, EForm::kCleared, std::string()));
}

TParameterPart TPartReader::Parameter() {
  TParameterPart parameter;
  parameter.fLine = fScanner.Line();
  const EElement element = fScanner.Element();
  const bool isReference =
      element == EElement::kParameterReference || element == EElement::kParameterRefArray;
  const bool isArray =
      element == EElement::kParameterArray || element == EElement::kParameterRefArray;
  if (!isReference && !isArray && element != EElement::kParameter)
    fScanner.FailUnexpected("QUALIFIER or PARAMETER");
  parameter.fElement = isReference ? (isArray ? "PARAMETER.REFARRAY" : "PARAMETER.REFERENCE")
                                   : (isArray ? "PARAMETER.ARRAY" : "PARAMETER");
  fScanner.CheckAttributes(
      {"NAME", "TYPE", "ARRAYSIZE", "REFERENCECLASS", "EmbeddedObject", "EMBEDDEDOBJECT"});
  parameter.fName = Name("NAME");
  parameter.fType = AsArray(isReference ? TType(TType::kCIMTypeReference) : Type(), isArray);
  parameter.fNotes.fEmbedded = Embedded();
  parameter.fNotes.fMaxArraySize = Number("ARRAYSIZE");
  if (parameter.fNotes.fMaxArraySize != 0 && !isArray)
    fScanner.FailHere("ARRAYSIZE without an array");
  parameter.fNotes.fReferencedClass = OptionalName("REFERENCECLASS");
  while (fScanner.Next()) {
    if (fScanner.Element() != EElement::kQualifier) fScanner.FailUnexpected("QUALIFIER");
    parameter.fQualifiers.push_back(Qualifier());
  }
  fScanner.Keep(2 * kKeyMemory);
  return parameter;
}

TMethodPart TPartReader::Method() {
  TMethodPart method;
  method.fLine = fScanner.Line();
  fScanner.CheckAttributes(
      {"NAME", "TYPE", "ISARRAY", "CLASSORIGIN", "PROPAGATED", "EmbeddedObject", "EMBEDDEDOBJECT"});
  method.fName = Name("NAME");
  if (fScanner.Attribute("TYPE") != nullptr) method.fType = AsArray(Type(), Flag("ISARRAY"));
  method.fNotes = Notes();
  while (fScanner.Next()) {
    if (fScanner.Element() == EElement::kQualifier)
      method.fQualifiers.push_back(Qualifier());
    else
      method.fParameters.push_back(Parameter());
  }
  fScanner.Keep(2 * kKeyMemory);
  return method;
}

TClassPart TPartReader::Class() {
  TClassPart made;
  made.fLine = fScanner.Line();
  fScanner.CheckAttributes({"NAME", "SUPERCLASS"});
  made.fName = Name("NAME");
  made.fSuperClass = OptionalName("SUPERCLASS");
  while (fScanner.Next()) {
    if (IsProperty()) {
      Property(made.fProperties.emplace_back(), false);
      fScanner.Keep(2 * kKeyMemory);
    } else if (fScanner.Element() == EElement::kMethod) {
      made.fMethods.push_back(Method());
    } else if (fScanner.Element() == EElement::kQualifier) {
      made.fQualifiers.push_back(Qualifier());
    } else {
      fScanner.FailUnexpected("QUALIFIER, PROPERTY or METHOD");
    }
  }
  return made;
}

TStaticPart TPartReader::Static() {
  TStaticPart made;
  made.fLine = fScanner.Line();
  fScanner.CheckAttributes({"CLASSNAME"});
  made.fClass = Name("CLASSNAME");
  while (fScanner.Next()) {
    if (!IsProperty()) fScanner.FailUnexpected("PROPERTY");
    Property(made.fProperties.emplace_back(), true);
    fScanner.Keep(2 * kKeyMemory);
  }
  return made;
}

void TPartReader::Instance(TInstancePart& instance) {
  instance.fLine = fScanner.Line();
  instance.fProperties.clear();
  fScanner.CheckAttributes({"CLASSNAME"});
  instance.fClass = Name("CLASSNAME");
  instance.fLanguage = OptionalName("xml:lang");
  while (fScanner.Next()) {
    if (IsProperty()) {
      Property(instance.fProperties.emplace_back(), true);
    } else if (fScanner.Element() == EElement::kQualifier) {
      fWarnings.Add("qualifiers of instances, which aren't kept", Name("NAME"));
      fScanner.Skip();
    } else {
      fScanner.FailUnexpected("PROPERTY");
    }
  }
}

}  // namespace container
