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

bool EndsWith(const std::string& text, std::string_view end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// The host in a name of the form "//host/name"; empty for any other name.
std::string HostOf(const std::string& name) {
  if (name.compare(0, 2, "//") != 0) return std::string();
  const std::size_t end = name.find('/', 2);
  if (end == std::string::npos) return std::string();
  const std::string host = name.substr(2, end - 2);
  return IsXMLText(host) ? host : std::string();
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
    Attribute("REFERENCECLASS", referenced->GetName(TCIMContext()));
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

void TValueWriter::Note(EForm form, const std::string& text) {
  fXML.append("<!--hwx ").append(FormName(form));
  if (!text.empty()) fXML.append(" ").append(text);
  fXML += "-->";
}

void TValueWriter::Scalar(const TCIMValue& value, bool isKey) {
  const TScalarText text = ScalarText(value);
  // A string keeps its escapes in the open: whoever doesn't know the note has a text all the same.
  const bool isString = value.GetType() == TType::kCIMTypeString;
  if (text.fForm != EForm::kPlain) Note(text.fForm, isString ? std::string() : text.fText);
  if (text.fForm == EForm::kCleared && !isKey) return;
  const char* const element = ValueElement(value.GetType(), isKey);
  fXML.append("<").append(element);
  if (isKey) {
    Attribute("VALUETYPE", KindOfKey(value.GetType()));
    Attribute("TYPE", value.GetType().ToString());
  }
  fXML += '>';
  AppendContent(fXML, text.fForm == EForm::kPlain ? text.fText : StandInText(value, text));
  End(element);
}

void TValueWriter::Array(const TCIMValue& value, unsigned int depth) {
  const char* const name = ValueElement(value.GetType(), false);
  const std::vector<TCIMValue>& elements = value;
  fXML.append("<").append(name).append(">");
  for (const TCIMValue& element : elements) {
    // Whoever changes an array in place may put anything into it.
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
      if (EndsWith(fXML, "-->")) fXML += "<VALUE.NULL/>";  // a cleared one
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
  // No value keeps a reference without a class.
  fXML += "<VALUE.REFERENCE>";
  Target(value, depth);
  fXML += "</VALUE.REFERENCE>";
}

void TValueWriter::Target(const TCIMReference& reference, unsigned int depth) {
  const bool hasKeys = HasKeys(reference);
  const std::string label = reference.GetNameSpaceName();
  std::string path = HostOf(label).empty() ? "LOCAL" : "";
  path += hasKeys ? "INSTANCEPATH" : "CLASSPATH";
  if (!label.empty()) {
    fXML.append("<").append(path).append(">");
    NamespacePath(label);
  }
  const std::string& named = reference.GetClassName();
  fXML += hasKeys ? "<INSTANCENAME" : "<CLASSNAME";
  Attribute(hasKeys ? "CLASSNAME" : "NAME", named);
  fXML += hasKeys ? ">" : "/>";
  reference.EnumerateKeyBindings([&](const std::pair<std::string, TCIMValue>& key) {
    CheckKey(named, key.first, key.second);
    Key(key.first, key.second, depth + 1);
    return true;
  });
  if (hasKeys) fXML += "</INSTANCENAME>";
  if (!label.empty()) End(path.c_str());
}

// A class of another namespace isn't there to tell the type of a key that doesn't tell it itself.
void TValueWriter::CheckKey(const std::string& className, const std::string& name,
                            const TCIMValue& value) const {
  const boost::shared_ptr<TMemoryClass> keyClass = fNamespace.FindClass(className);
  if (!keyClass && !value.IsNull() && !value.IsArray()) return;
  const auto decl = keyClass ? keyClass->FindPropertyDecl(name) : nullptr;
  if (decl && decl->GetType(TCIMContext()) == value.GetType()) return;
  throw TUnsavable(kHWXStatusInvalidClass, "a reference with the key " + Quoted(name) +
                                               ", which its class doesn't declare so");
}

void TValueWriter::Key(const std::string& name, const TCIMValue& value, unsigned int depth) {
  fXML += "<KEYBINDING";
  Attribute("NAME", name);
  if (value.IsNull() || !value.IsReference()) Extent(value);  // else the class stands in the value
  fXML += '>';
  Value(value, true, depth);
  fXML += "</KEYBINDING>";
}

void TValueWriter::NamespacePath(const std::string& name) {
  const std::string host = HostOf(name);
  if (!host.empty()) {
    fXML += "<NAMESPACEPATH><HOST>";
    AppendContent(fXML, host);
    fXML += "</HOST>";
  }
  fXML += "<LOCALNAMESPACEPATH>";
  for (std::size_t start = host.empty() ? 0 : host.size() + 3; start <= name.size();) {
    const std::size_t end = std::min(name.find('/', start), name.size());
    fXML += "<NAMESPACE";
    Attribute("NAME", std::string_view(name).substr(start, end - start));
    fXML += "/>";
    start = end + 1;
  }
  fXML += host.empty() ? "</LOCALNAMESPACEPATH>" : "</LOCALNAMESPACEPATH></NAMESPACEPATH>";
}

}  // namespace container
