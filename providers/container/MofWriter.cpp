#include "providers/container/MofWriter.h"

#include <string_view>
#include <utility>
#include <vector>

#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxkit/TContainerException.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryMethodDecl.h"
#include "hwxkit/TMemoryParameterDecl.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/TMemoryQualifier.h"
#include "hwxkit/TMemoryQualifierDecl.h"
#include "providers/container/ScalarText.h"
#include "providers/container/ValueWriter.h"
#include "providers/container/Vocabulary.h"
#include "providers/container/XMLText.h"

namespace container {

namespace {

using namespace NQORHWX20;

constexpr TFlagName kMofScopes[] = {
    {"class", kScopeClass},           {"association", kScopeAssociation},
    {"indication", kScopeIndication}, {"property", kScopeProperty},
    {"reference", kScopeReference},   {"method", kScopeMethod},
    {"parameter", kScopeParameter}};

// What goes into a comment may not end it.
std::string MofComment(const std::string& text) {
  std::string safe;
  for (const char c : text)
    safe += c == '*' ? '+' : c;
  return " /* " + safe + " */";
}

std::string MofHexadecimal(unsigned int code) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string digits;
  for (int shift = 12; shift >= 0; shift -= 4)
    digits += kDigits[code >> shift & 0xF];
  return "\\x" + digits;
}

// The escape of a character within quotation marks; empty for one that stands as it is.
std::string MofEscape(char c) {
  switch (c) {
    case '"':
      return "\\\"";
    case '\'':
      return "\\'";
    case '\\':
      return "\\\\";
    case '\n':
      return "\\n";
    case '\t':
      return "\\t";
    case '\r':
      return "\\r";
    case '\b':
      return "\\b";
    case '\f':
      return "\\f";
    default:
      return static_cast<unsigned char>(c) < ' ' || c == '\x7F'
                 ? MofHexadecimal(static_cast<unsigned char>(c))
                 : std::string();
  }
}

// A string in quotation marks. A byte that is no character stands as the one of its number, which
// is told.
std::string MofString(std::string_view text) {
  std::string mof = "\"";
  bool hasOtherBytes = false;
  for (std::size_t i = 0; i < text.size();) {
    const std::string escape = text[i] == '\'' ? std::string() : MofEscape(text[i]);
    const std::size_t length = XMLCharacterLength(text.substr(i));
    if (!escape.empty()) {
      mof += escape;
      ++i;
    } else if (length != 0) {
      mof.append(text, i, length);
      i += length;
    } else {
      hasOtherBytes = true;
      mof += MofHexadecimal(static_cast<unsigned char>(text[i++]));
    }
  }
  mof += '"';
  return hasOtherBytes ? mof + MofComment("holds bytes that are no UTF-8, each as its number")
                       : mof;
}

std::string MofCharacter(const TCIMValue& value) {
  const unsigned int code = static_cast<unsigned int>(std::stoul(value.ToString(10)));
  if (code >= 0x20 && code < 0x7F) {
    const char c = static_cast<char>(code);
    const std::string escape = MofEscape(c);
    return "'" + (escape.empty() ? std::string(1, c) : escape) + "'";
  }
  return "'" + MofHexadecimal(code) + "'";
}

std::string ScalarMof(const TCIMValue& value) {
  if (value.GetType() == TType::kCIMTypeString) return MofString(value.operator std::string());
  const TScalarText text = ScalarText(value);
  if (text.fForm == EForm::kCleared) return "NULL" + MofComment("cleared");
  switch (value.GetType()) {
    case TType::kCIMTypeBoolean:
      return text.fText;
    case TType::kCIMTypeChar16:
      return MofCharacter(value);
    case TType::kCIMTypeDateTime:
      if (text.fForm == EForm::kPlain) return "\"" + text.fText + "\"";
      return "\"" + StandInText(value, text) + "\"" + MofComment(text.fText);
    case TType::kCIMTypeReal32:
    case TType::kCIMTypeReal64:
      if (text.fText.find_first_of("IN") == std::string::npos && text.fForm == EForm::kPlain)
        return text.fText;
      return "NULL" + MofComment(text.fForm == EForm::kPlain ? text.fText : "NaN " + text.fText);
    default:
      return text.fText;
  }
}

// Object paths, as they stand in the value of a reference.

std::string PathOf(const TCIMReference& reference);

std::string KeyMof(const TCIMValue& value) {
  if (value.IsNull()) return "NULL";
  if (value.IsArray()) {
    const std::vector<TCIMValue>& elements = value;
    std::string text;
    for (const TCIMValue& element : elements)
      text += (text.empty() ? "" : ",") + KeyMof(element);
    return "{" + text + "}";
  }
  if (value.IsReference()) return MofString(PathOf(value));
  return ScalarMof(value);
}

std::string PathOf(const TCIMReference& reference) {
  std::string path = reference.GetNameSpaceName();
  if (!path.empty()) path += ':';
  path += reference.GetClassName();
  char separator = '.';
  reference.EnumerateKeyBindings([&](const std::pair<std::string, TCIMValue>& key) {
    path.append(1, separator).append(key.first).append("=").append(KeyMof(key.second));
    separator = ',';
    return true;
  });
  return path;
}

class TMofWriter {
 public:
  TMofWriter(TMemoryNamespace& ns, TByteSink& sink) : fNamespace(ns), fSink(sink) {}

  void Write();

 private:
  void Flush(bool isLast);
  void WriteLine(const std::string& line) { fText.append(line).append("\n"); }

  std::string ValueMof(const TCIMValue& value) const;
  std::string Flavor(unsigned int flavor) const;
  void WriteQualifierDecl(TMemoryQualifierDecl& decl);
  std::string Qualifier(TMemoryQualifier& qualifier) const;
  void WriteQualifiers(ICIMQualifiedElement& element, const std::string& indent);
  std::string Declared(const std::string& name, const TType& type, unsigned int maxArraySize,
                       const std::string& referenced) const;
  void WriteProperty(TMemoryPropertyDecl& decl);
  void WriteMethod(TMemoryMethodDecl& decl);
  void WriteClass(TMemoryClass& source);
  void WriteInstances(TMemoryClass& source);
  void WriteInstance(TMemoryClass& source, const TMemoryInstance& instance);

  TMemoryNamespace& fNamespace;
  TByteSink& fSink;
  std::string fText;
};

void TMofWriter::Flush(bool isLast) {
  if (!isLast && fText.size() < kBufferSize) return;
  fSink.Write(fText);
  fText.clear();
}

std::string TMofWriter::ValueMof(const TCIMValue& value) const {
  if (value.IsNull()) return "NULL";
  if (!value.IsArray()) return value.IsReference() ? MofString(PathOf(value)) : ScalarMof(value);
  const std::vector<TCIMValue>& elements = value;
  std::string text = "{";
  const char* separator = " ";
  for (const TCIMValue& element : elements) {
    text.append(separator).append(ValueMof(element));
    separator = ", ";
  }
  return text + " }";
}

// Qualifiers.

// All that is so, whatever a compiler takes for granted.
std::string TMofWriter::Flavor(unsigned int flavor) const {
  std::string text = (flavor & kFlavorEnableOverride) != 0 ? "EnableOverride" : "DisableOverride";
  text += (flavor & kFlavorToSubclass) != 0 ? ", ToSubclass" : ", Restricted";
  if ((flavor & kFlavorTranslatable) != 0) text += ", Translatable";
  return text;
}

void TMofWriter::WriteQualifierDecl(TMemoryQualifierDecl& decl) {
  const TCIMValue& value = decl.GetDefaultValue(TCIMContext());
  const unsigned int scope = decl.GetScope(TCIMContext());
  std::string line =
      "Qualifier " + decl.GetName(TCIMContext()) + " : " + value.GetType().ToString();
  if (value.IsArray()) {
    line +=
        "[" + (value.GetMaxArraySize() == 0 ? "" : std::to_string(value.GetMaxArraySize())) + "]";
  }
  if (!value.IsNull()) line += " = " + ValueMof(value);
  std::string scopes;
  for (const TFlagName& flag : kMofScopes) {
    if ((scope & flag.fBit) != 0) scopes += (scopes.empty() ? "" : ", ") + std::string(flag.fName);
  }
  if ((scope & kScopeAny) == kScopeAny) scopes = "any";
  if (scopes.empty()) {
    scopes = "any";
    line += MofComment("declared for no element");
  }
  WriteLine(line + ", Scope(" + scopes + "), Flavor(" + Flavor(decl.GetFlavor(TCIMContext())) +
            ");");
}

std::string TMofWriter::Qualifier(TMemoryQualifier& qualifier) const {
  const TCIMValue& value = qualifier.GetValue(TCIMContext());
  const unsigned int declared = qualifier.GetQualifierDecl(TCIMContext())->GetFlavor(TCIMContext());
  std::string text = qualifier.GetName(TCIMContext());
  if (value.IsArray() && !value.IsNull())
    text += " " + ValueMof(value);
  else
    text += " ( " + ValueMof(value) + " )";
  if (qualifier.GetFlavor() == declared) return text;
  text += " : ";
  for (const char c : Flavor(qualifier.GetFlavor())) {
    if (c != ',') text += c;
  }
  return text;
}

void TMofWriter::WriteQualifiers(ICIMQualifiedElement& element, const std::string& indent) {
  std::vector<std::string> texts;
  element.EnumerateQualifiers(
      [&](const boost::shared_ptr<ICIMQualifier>& qualifier) {
        if (!qualifier->IsInherited(TCIMContext()))
          texts.push_back(Qualifier(static_cast<TMemoryQualifier&>(*qualifier)));
        return true;
      },
      TCIMContext());
  // A compiler has to know first what kind of class it meets.
  for (std::size_t i = 1; i < texts.size(); ++i) {
    if (texts[i].compare(0, 11, "Association") == 0 || texts[i].compare(0, 10, "Indication") == 0)
      texts[0].swap(texts[i]);
  }
  for (std::size_t i = 0; i < texts.size(); ++i) {
    fText += indent + (i == 0 ? "[" : " ") + texts[i] + (i + 1 == texts.size() ? "]" : ",") + "\n";
  }
}

// Classes.

std::string TMofWriter::Declared(const std::string& name, const TType& type,
                                 unsigned int maxArraySize, const std::string& referenced) const {
  std::string text = AsElement(type).ToString();
  if (IsReferenceType(type)) {
    text = referenced.empty() ? "object" : referenced;
    text += " REF";
  }
  text += " " + name;
  if (!IsArrayType(type)) return text;
  return text + "[" + (maxArraySize == 0 ? "" : std::to_string(maxArraySize)) + "]";
}

void TMofWriter::WriteProperty(TMemoryPropertyDecl& decl) {
  const TCIMValue& value = decl.GetDefaultValue(TCIMContext());
  WriteQualifiers(decl, "    ");
  const auto referenced = value.GetReferencedClass();
  fText += "  " + Declared(decl.GetName(TCIMContext()), value.GetType(), value.GetMaxArraySize(),
                           referenced ? referenced->GetName(TCIMContext()) : std::string());
  if (!value.IsNull()) fText += " = " + ValueMof(value);
  WriteLine(";");
}

void TMofWriter::WriteMethod(TMemoryMethodDecl& decl) {
  const TType type = decl.GetReturnType(TCIMContext());
  WriteQualifiers(decl, "    ");
  fText += "  " + (type == TType::kCIMTypeNone ? "uint32" : AsElement(type).ToString());
  if (IsArrayType(type)) fText += "[]";
  if (type == TType::kCIMTypeNone) fText += MofComment("without a result");
  fText += " " + decl.GetName(TCIMContext()) + "(";
  const char* separator = "\n";
  decl.EnumerateParameterDecls(
      [&](const boost::shared_ptr<ICIMParameterDecl>& found) {
        auto& parameter = static_cast<TMemoryParameterDecl&>(*found);
        fText += separator;
        WriteQualifiers(parameter, "      ");
        fText +=
            "    " + Declared(parameter.GetName(TCIMContext()), parameter.GetType(TCIMContext()),
                              parameter.GetNotes().fMaxArraySize,
                              parameter.GetNotes().fReferencedClass);
        separator = ",\n";
        return true;
      },
      TCIMContext());
  WriteLine(");");
}

void TMofWriter::WriteClass(TMemoryClass& source) {
  WriteLine("");
  WriteQualifiers(source, "");
  std::string head = "class " + source.GetName(TCIMContext());
  if (!source.IsRootClass(TCIMContext()))
    head += " : " + source.GetSuperClass(TCIMContext())->GetName(TCIMContext());
  WriteLine(head + " {");
  for (const auto& decl : source.PropertyDecls()) {
    if (!decl->IsInherited()) WriteProperty(*decl);
  }
  source.EnumerateMethodDecls(
      [&](const boost::shared_ptr<ICIMMethodDecl>& found) {
        auto& decl = static_cast<TMemoryMethodDecl&>(*found);
        if (!decl.IsInherited()) WriteMethod(decl);
        return true;
      },
      TCIMContext());
  WriteLine("};");
  Flush(false);
}

// Instances.

void TMofWriter::WriteInstance(TMemoryClass& source, const TMemoryInstance& instance) {
  const auto& decls = source.PropertyDecls();
  WriteLine("");
  WriteLine("instance of " + source.GetName(TCIMContext()) + " {");
  for (std::size_t i = 0; i < decls.size(); ++i) {
    const TCIMValue& value = instance.ValueAt(i);
    // A null is only told where there could be something else.
    if (value.IsNull() && decls[i]->GetDefaultValue(TCIMContext()).IsNull()) continue;
    WriteLine("  " + decls[i]->GetName(TCIMContext()) + " = " + ValueMof(value) + ";");
  }
  WriteLine("};");
  Flush(false);
}

void TMofWriter::WriteInstances(TMemoryClass& source) {
  source.EnumerateInstances(
      [&](const boost::shared_ptr<ICIMInstance>& instance) {
        WriteInstance(source, static_cast<const TMemoryInstance&>(*instance));
        return true;
      },
      false, TCIMContext());
}

void TMofWriter::Write() {
  const std::string& name = fNamespace.GetName(TCIMContext());
  if (!name.empty()) WriteLine("#pragma namespace (" + MofString(name) + ")\n");
  fNamespace.EnumerateQualifierDecls(
      [this](const boost::shared_ptr<ICIMQualifierDecl>& found) {
        auto& decl = static_cast<TMemoryQualifierDecl&>(*found);
        if (!decl.IsOutside()) WriteQualifierDecl(decl);
        return true;
      },
      TCIMContext());
  const auto classes = fNamespace.GetClasses();
  for (const auto& source : classes) {
    if (!source->IsOutside()) WriteClass(*source);
  }
  for (const auto& source : classes)
    WriteInstances(*source);
  Flush(true);
}

}  // namespace

void WriteMof(TMemoryNamespace& ns, TByteSink& sink, const std::string& name) {
  try {
    TMofWriter(ns, sink).Write();
  } catch (const TUnsavable& failure) {
    throw TContainerException(failure.GetStatus(), name + ": " + failure.what());
  }
}

}  // namespace container
