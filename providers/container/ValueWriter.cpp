#include "providers/container/ValueWriter.h"

#include <utility>
#include <vector>

#include "hwxcore/value/THWXException.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "providers/container/Limits.h"
#include "providers/container/ScalarText.h"
#include "providers/container/Vocabulary.h"
#include "providers/container/XMLText.h"

namespace container {

namespace {

using namespace NQORHWX20;

bool HasKeys(const TCIMReference& reference) {
  bool any = false;
  reference.EnumerateKeyBindings(
      [&any](const std::pair<std::string, TCIMValue>&) { return !(any = true); });
  return any;
}

}  // namespace

void TValueWriter::Attribute(const char* name, std::string_view text) {
  fXML.append(" ").append(name).append("=\"");
  AppendAttributeValue(fXML, Escaped(text));
  fXML += '"';
}

void TValueWriter::End(const char* element) {
  fXML.append("</").append(element).append(">");
}

const char* TValueWriter::BeginProperty(const std::string& name, const TCIMValue& value) {
  const char* element = value.IsReference() ? "PROPERTY.REFERENCE" : "PROPERTY";
  if (value.IsArray()) element = "PROPERTY.ARRAY";
  fXML.append("<").append(element);
  Attribute("NAME", name);
  if (!value.IsReference()) Attribute("TYPE", value.GetType().ToString());
  Extent(value);
  return element;
}

void TValueWriter::Extent(const TCIMValue& value) {
  if (value.IsArray() && value.GetMaxArraySize() != 0)
    Attribute("ARRAYSIZE", std::to_string(value.GetMaxArraySize()));
  if (!value.IsReference()) return;
  if (const boost::shared_ptr<ICIMClass> referenced = value.GetReferencedClass())
    Attribute("REFERENCECLASS", ClassOf(referenced)->GetName(TCIMContext()));
}

// Goes by the name of the class, since elements of a copied array still refer to the classes of the
// namespace that it was copied from.
boost::shared_ptr<TMemoryClass> TValueWriter::ClassOf(
    const boost::shared_ptr<ICIMClass>& referenced) const {
  const std::string& name = referenced->GetName(TCIMContext());
  const boost::shared_ptr<TMemoryClass> found = fNamespace.FindClass(name);
  if (!found || !HasClass(name)) {
    throw TUnsavable(kHWXStatusInvalidClass,
                     "a reference to the class " + Quoted(name) +
                         (found ? ", which comes later" : ", which isn't in the namespace"));
  }
  return found;
}

void TValueWriter::Value(const TCIMValue& value, bool isKey, unsigned int depth) {
  if (value.IsNull()) return;
  if (value.IsArray())
    Array(value, depth);
  else if (value.IsReference())
    Reference(value, depth);
  else
    Scalar(value, isKey);
}

void TValueWriter::Scalar(const TCIMValue& value, bool isKey) {
  const TScalarText text = ScalarText(value);
  const char* const element = ValueElement(value.GetType(), isKey);
  fXML.append("<").append(element);
  if (isKey) {
    Attribute("VALUETYPE", KindOfKey(value.GetType()));
    Attribute("TYPE", value.GetType().ToString());
  }
  if (text.fForm != EForm::kPlain) Attribute("FORM", FormName(text.fForm));
  fXML += '>';
  AppendContent(fXML, text.fText);
  End(element);
}

void TValueWriter::Array(const TCIMValue& value, unsigned int depth) {
  const char* const name = ValueElement(value.GetType(), false);
  const std::vector<TCIMValue>& elements = value;
  fXML.append("<").append(name).append(">");
  for (const TCIMValue& element : elements) {
    // An array that was changed in place may hold elements of any type.
    if (element.GetType() != AsElement(value.GetType()))
      throw TUnsavable(kHWXStatusInvalidProperty, "an array with an element of another type");
    if (element.IsNull()) {
      fXML += "<VALUE.NULL";
      Extent(element);
      fXML += "/>";
    } else if (element.IsReference()) {
      Reference(element, depth);
    } else {
      Scalar(element, false);
    }
  }
  End(name);
}

// References.

void TValueWriter::Reference(const TCIMValue& value, unsigned int depth) {
  if (depth == kMaxReferenceDepth) {
    throw TUnsavable(kHWXStatusNotSupported, "references that are nested deeper than " +
                                                 std::to_string(kMaxReferenceDepth));
  }
  // In the kit every reference that is kept has a class.
  fXML += "<VALUE.REFERENCE>";
  Target(value, depth);
  fXML += "</VALUE.REFERENCE>";
}

void TValueWriter::Target(const TCIMReference& reference, unsigned int depth) {
  const bool hasKeys = HasKeys(reference);
  const std::string label = reference.GetNameSpaceName();
  const char* const path = hasKeys ? "LOCALINSTANCEPATH" : "LOCALCLASSPATH";
  if (!label.empty()) {
    fXML.append("<").append(path).append(">");
    NamespacePath(label);
  }
  const boost::shared_ptr<TMemoryClass> named = ClassOf(reference.GetClass());
  fXML += hasKeys ? "<INSTANCENAME" : "<CLASSNAME";
  Attribute(hasKeys ? "CLASSNAME" : "NAME", named->GetName(TCIMContext()));
  fXML += hasKeys ? ">" : "/>";
  reference.EnumerateKeyBindings([&](const std::pair<std::string, TCIMValue>& key) {
    CheckKey(*named, key.first, key.second);
    Key(key.first, key.second, depth + 1);
    return true;
  });
  if (hasKeys) fXML += "</INSTANCENAME>";
  if (!label.empty()) End(path);
}

void TValueWriter::CheckKey(const TMemoryClass& keyClass, const std::string& name,
                            const TCIMValue& value) const {
  const auto decl = keyClass.FindPropertyDecl(name);
  if (decl && decl->GetType(TCIMContext()) == value.GetType()) return;
  throw TUnsavable(kHWXStatusInvalidClass, "a reference with the key " + Quoted(name) +
                                               ", which its class doesn't declare so");
}

void TValueWriter::Key(const std::string& name, const TCIMValue& value, unsigned int depth) {
  fXML += "<KEYBINDING";
  Attribute("NAME", name);
  if (value.IsNull() || !value.IsReference()) Extent(value);  // else the value names its class
  fXML += '>';
  Value(value, true, depth);
  fXML += "</KEYBINDING>";
}

void TValueWriter::NamespacePath(const std::string& name) {
  fXML += "<LOCALNAMESPACEPATH>";
  for (std::size_t start = 0; start <= name.size();) {
    const std::size_t end = std::min(name.find('/', start), name.size());
    fXML += "<NAMESPACE";
    Attribute("NAME", std::string_view(name).substr(start, end - start));
    fXML += "/>";
    start = end + 1;
  }
  fXML += "</LOCALNAMESPACEPATH>";
}

}  // namespace container
