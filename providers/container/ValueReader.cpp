#include "providers/container/ValueReader.h"

#include <set>
#include <vector>

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "providers/container/Limits.h"
#include "providers/container/ScalarText.h"

namespace container {

namespace {

using NQORHWX20::TCIMContext;
using NQORHWX20::TCIMReference;
using NQORHWX20::TCIMValue;
using NQORHWX20::THWXException;

bool IsValue(const pugi::xml_node& element) {
  for (const char* name :
       {"VALUE", "KEYVALUE", "VALUE.ARRAY", "VALUE.REFERENCE", "VALUE.REFARRAY"}) {
    if (Is(element, name)) return true;
  }
  return false;
}

EForm FormOf(const TPiece& piece, const pugi::xml_node& element) {
  const pugi::xml_attribute form = element.attribute("FORM");
  if (!form) return EForm::kPlain;
  const std::string name = form.value();
  for (const EForm known : {EForm::kEscaped, EForm::kFields, EForm::kBits, EForm::kCleared}) {
    if (name == FormName(known)) return known;
  }
  piece.Fail(element, "FORM has no value " + Quoted(name));
}

}  // namespace

std::string NamespaceName(const TPiece& piece, const pugi::xml_node& localNamespacePath) {
  std::string name;
  const char* separator = "";
  piece.CheckAttributes(localNamespacePath, {});
  piece.ForEachElement(localNamespacePath, [&](const pugi::xml_node& part) {
    if (!Is(part, "NAMESPACE")) piece.FailUnexpected(part);
    piece.CheckAttributes(part, {"NAME"});
    name.append(separator).append(piece.Name(part, "NAME"));
    separator = "/";
  });
  return name;
}

TValueReader::TClass TValueReader::FindClass(const pugi::xml_node& element,
                                             const char* attribute) const {
  if (!element.attribute(attribute)) return TClass();
  const std::string name = fPiece.Name(element, attribute);
  const TClass found = fNamespace->FindClass(name);
  if (!found) {
    fPiece.Fail(element, std::string(attribute) + ": there is no class " + Quoted(name) +
                             " in front of this");
  }
  return found;
}

TType TValueReader::PropertyType(const pugi::xml_node& element) const {
  if (Is(element, "PROPERTY.REFERENCE")) return TType::kCIMTypeReference;
  const TType type = fPiece.Type(element);
  return AsArray(type, Is(element, "PROPERTY.ARRAY"));
}

TCIMValue TValueReader::Value(const pugi::xml_node& element, TType type,
                              const char* companion) const {
  return Value(element, type, companion, 0);
}

pugi::xml_node TValueReader::FindValue(const pugi::xml_node& element, const char* companion) const {
  pugi::xml_node found;
  fPiece.ForEachElement(element, [&](const pugi::xml_node& child) {
    if (companion != nullptr && Is(child, companion)) return;
    if (found || !IsValue(child)) fPiece.FailUnexpected(child);
    found = child;
  });
  return found;
}

// A null of the type, which bears what the attributes of the element say.
TCIMValue TValueReader::Null(const pugi::xml_node& element, TType type) const {
  const unsigned int maxArraySize = fPiece.Number(element, "ARRAYSIZE");
  if (maxArraySize != 0 && !IsArrayType(type)) fPiece.Fail(element, "ARRAYSIZE without an array");
  TCIMValue null(type, maxArraySize);
  null.SetReferencedClass(FindClass(element, "REFERENCECLASS"));
  return null;
}

TCIMValue TValueReader::Value(const pugi::xml_node& element, TType type, const char* companion,
                              unsigned int depth) const {
  const TCIMValue null = Null(element, type);
  const pugi::xml_node value = FindValue(element, companion);
  if (!value) return null;
  const char* const expected = ValueElement(type, Is(element, "KEYBINDING"));
  if (!Is(value, expected)) {
    fPiece.Fail(value, "a " + type.ToString() + (IsArrayType(type) ? " array" : "") +
                           " stands in a " + expected);
  }
  if (IsArrayType(type)) return Array(value, type, null.GetMaxArraySize(), depth);
  return Single(value, type, depth);
}

TCIMValue TValueReader::Single(const pugi::xml_node& element, TType type,
                               unsigned int depth) const {
  if (type == TType::kCIMTypeReference) return Reference(element, depth);
  return Scalar(element, type);
}

TCIMValue TValueReader::Scalar(const pugi::xml_node& element, TType type) const {
  if (Is(element, "KEYVALUE")) {
    fPiece.CheckAttributes(element, {"VALUETYPE", "TYPE", "FORM"});
    if (element.attribute("TYPE") && fPiece.Type(element) != type)
      fPiece.Fail(element, "the class declares the key as " + type.ToString());
    const std::string kind = element.attribute("VALUETYPE").as_string("string");
    if (kind != KindOfKey(type))
      fPiece.Fail(element, std::string("a ") + type.ToString() + " key has the VALUETYPE " +
                               KindOfKey(type));
  } else {
    fPiece.CheckAttributes(element, {"FORM"});
  }
  try {
    return ScalarValue(type, FormOf(fPiece, element), fPiece.Text(element));
  } catch (const TMalformedText& text) {
    fPiece.Fail(element, text.what());
  }
}

TCIMValue TValueReader::Array(const pugi::xml_node& element, TType type, unsigned int maxArraySize,
                              unsigned int depth) const {
  const TType elementType = AsElement(type);
  const char* const expected = ValueElement(elementType, false);
  std::vector<TCIMValue> values;
  fPiece.CheckAttributes(element, {});
  fPiece.ForEachElement(element, [&](const pugi::xml_node& child) {
    if (Is(child, "VALUE.NULL")) {
      fPiece.CheckAttributes(child, {"REFERENCECLASS"});
      if (!fPiece.Text(child).empty()) fPiece.Fail(child, "isn't empty");
      values.push_back(Null(child, elementType));
    } else if (Is(child, expected)) {
      values.push_back(Single(child, elementType, depth));
    } else {
      fPiece.FailUnexpected(child);
    }
  });
  return TCIMValue(type, maxArraySize, values);
}

// References.

TCIMValue TValueReader::Reference(const pugi::xml_node& element, unsigned int depth) const {
  if (depth == kMaxReferenceDepth) fPiece.Fail(element, "references are nested too deeply");
  fPiece.CheckAttributes(element, {});
  TCIMReference reference(fNamespace, TCIMContext());
  const std::vector<pugi::xml_node> targets = fPiece.Elements(element);
  if (targets.size() != 1) fPiece.Fail(element, "doesn't hold one object");
  Target(targets[0], reference, depth);
  return TCIMValue(reference);
}

// What a VALUE.REFERENCE holds.
void TValueReader::Target(const pugi::xml_node& element, TCIMReference& reference,
                          unsigned int depth) const {
  const bool isInstance = Is(element, "LOCALINSTANCEPATH");
  if (!isInstance && !Is(element, "LOCALCLASSPATH")) return Object(element, reference, depth);
  const char* const object = isInstance ? "INSTANCENAME" : "CLASSNAME";
  fPiece.CheckAttributes(element, {});
  const std::vector<pugi::xml_node> parts = fPiece.Elements(element);
  if (parts.size() != 2 || !Is(parts[0], "LOCALNAMESPACEPATH") || !Is(parts[1], object))
    fPiece.Fail(element, std::string("doesn't hold a LOCALNAMESPACEPATH and a ") + object);
  reference.SetNameSpaceName(NamespaceName(fPiece, parts[0]));
  Object(parts[1], reference, depth);
}

void TValueReader::Object(const pugi::xml_node& element, TCIMReference& reference,
                          unsigned int depth) const {
  const bool isInstance = Is(element, "INSTANCENAME");
  if (!isInstance && !Is(element, "CLASSNAME")) fPiece.FailUnexpected(element);
  const char* const attribute = isInstance ? "CLASSNAME" : "NAME";
  fPiece.CheckAttributes(element, {attribute});
  fPiece.Name(element, attribute);  // throws if there is none
  const TClass keyClass = FindClass(element, attribute);
  reference.SetClass(keyClass);
  if (!isInstance) {
    if (!fPiece.Text(element).empty()) fPiece.Fail(element, "isn't empty");
    return;
  }
  std::set<std::string> names;
  const auto add = [&](const pugi::xml_node& key, const std::string& name, const TCIMValue& value) {
    if (!names.insert(name).second) fPiece.Fail(key, "the key stands twice");
    fPiece.Guard(key, [&] { reference.AddKeyValue(name, value); });
  };
  Keys(element, keyClass, add, depth + 1);
}

void TValueReader::Keys(const pugi::xml_node& instanceName, const TClass& keyClass,
                        const TKeyVisitor& visit, unsigned int depth) const {
  fPiece.ForEachElement(instanceName, [&](const pugi::xml_node& key) {
    if (!Is(key, "KEYBINDING")) fPiece.FailUnexpected(key);
    fPiece.CheckAttributes(key, {"NAME", "ARRAYSIZE", "REFERENCECLASS"});
    const std::string name = fPiece.Name(key, "NAME");
    const auto decl = keyClass->FindPropertyDecl(name);
    if (!decl) {
      fPiece.Fail(
          key, "the class " + Quoted(keyClass->GetName(TCIMContext())) + " has no such property");
    }
    visit(key, name, Value(key, decl->GetType(TCIMContext()), nullptr, depth));
  });
}

}  // namespace container
