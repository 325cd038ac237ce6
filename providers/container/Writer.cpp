#include "providers/container/Writer.h"

#include <string>
#include <vector>

#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMMethodDecl.h"
#include "hwxcore/schema/ICIMParameterDecl.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxkit/TContainerException.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryMethodDecl.h"
#include "hwxkit/TMemoryParameterDecl.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/TMemoryQualifier.h"
#include "providers/container/ScalarText.h"
#include "providers/container/ValueWriter.h"
#include "providers/container/Vocabulary.h"

namespace container {

namespace {

using namespace NQORHWX20;
using TQualifierDecl = boost::shared_ptr<ICIMQualifierDecl>;

const char* Word(bool value) {
  return value ? "true" : "false";
}

// Two hyphens can't stand in a comment.
std::string WithoutHyphens(const std::string& text) {
  std::string safe;
  safe.reserve(text.size());
  for (const char c : text) {
    if (c == '-' && !safe.empty() && safe.back() == '-')
      safe += "&#45;";
    else
      safe += c;
  }
  return safe;
}

// The start tag of a property in instances, which is nearly always the same.
struct TPropertyTag {
  std::string fText;
  const char* fElement = nullptr;  // null if the tag depends on the value
};

class TWriter {
 public:
  TWriter(TMemoryNamespace& ns, TByteSink& sink, const TWriting& writing)
      : fNamespace(ns), fSink(sink), fWriting(writing), fTotal(0), fOut(ns) {}

  void Write();

 private:
  void Finish();
  void Flush();
  void Begin();

  void WriteFlavor(unsigned int flavor, unsigned int declared);
  void WriteEmbedded(EEmbeddedObject embedded);
  void WriteNotes(const TElementNotes& notes, const std::string& owner);
  void WriteQualifierDecl(ICIMQualifierDecl& decl);
  void WriteQualifiers(ICIMQualifiedElement& element);
  void WriteClass(TMemoryClass& source);
  void WriteProperty(TMemoryPropertyDecl& decl, const std::string& owner);
  void WriteMethod(TMemoryMethodDecl& decl, const std::string& owner);
  void WriteParameter(TMemoryParameterDecl& decl);

  void WritePropertyValue(const std::string& name, const TCIMValue& value,
                          const TElementNotes& notes);
  void WriteStaticValues(TMemoryClass& source);
  void WriteInstances(TMemoryClass& source);
  std::vector<TPropertyTag> PropertyTags(const TMemoryClass& source);
  void WriteInstance(const TMemoryClass& source, const std::vector<TPropertyTag>& tags,
                     const TMemoryInstance& instance);

  TMemoryNamespace& fNamespace;
  TByteSink& fSink;
  const TWriting fWriting;
  std::uint64_t fTotal;  // bytes of finished pieces
  TValueWriter fOut;
  std::string fBuffer;
};

// Output.

// Ends a piece, which so far is kept in `fOut`.
void TWriter::Finish() {
  std::string& xml = fOut.XML();
  if (xml.size() > fWriting.fLimits.fPiece) {
    throw TUnsavable(kHWXStatusNotSupported,
                     "larger than " + std::to_string(fWriting.fLimits.fPiece) + " bytes");
  }
  fTotal += xml.size() + 1;
  if (fTotal > fWriting.fLimits.fDocument) {
    throw TUnsavable(
        kHWXStatusNotSupported,
        "the document is larger than " + std::to_string(fWriting.fLimits.fDocument) + " bytes");
  }
  fBuffer.append(xml).append("\n");
  xml.clear();
  if (fBuffer.size() >= kBufferSize) Flush();
}

void TWriter::Flush() {
  fSink.Write(fBuffer);
  fBuffer.clear();
}

void TWriter::Begin() {
  fOut.XML() =
      "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
      "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.4\">\n<DECLARATION>\n<DECLGROUP.WITHNAME>";
  Finish();
  const std::string& name = fNamespace.GetName(TCIMContext());
  if (name.empty()) return;
  fOut.NamespacePath(name);
  Finish();
}

// What stands beside a type and a value.

void TWriter::WriteEmbedded(EEmbeddedObject embedded) {
  if (embedded == kEmbeddedNothing) return;
  fOut.Attribute("EmbeddedObject", embedded == kEmbeddedObject ? "object" : "instance");
}

// Of a property or method that the class `owner` declares.
void TWriter::WriteNotes(const TElementNotes& notes, const std::string& owner) {
  fOut.Attribute("CLASSORIGIN", notes.fOrigin.empty() ? owner : notes.fOrigin);
  if (notes.fIsPropagated) fOut.Attribute("PROPAGATED", "true");
  WriteEmbedded(notes.fEmbedded);
  if (!notes.fLanguage.empty()) fOut.Attribute("xml:lang", notes.fLanguage);
}

// Qualifiers.

// Those bits that aren't what a reader takes for granted, be it by the standard or the declaration.
void TWriter::WriteFlavor(unsigned int flavor, unsigned int declared) {
  for (const TFlagName& flag : kFlavorNames) {
    if ((((flavor ^ kFlavorDefault) | (flavor ^ declared)) & flag.fBit) != 0)
      fOut.Attribute(flag.fName, Word((flavor & flag.fBit) != 0));
  }
}

void TWriter::WriteQualifierDecl(ICIMQualifierDecl& decl) {
  const TCIMValue& value = decl.GetDefaultValue(TCIMContext());
  const unsigned int scope = decl.GetScope(TCIMContext());
  const unsigned int flavor = decl.GetFlavor(TCIMContext());
  unsigned int otherFlavors = flavor;
  for (const TFlagName& flag : kFlavorNames)
    otherFlavors &= ~flag.fBit;
  fOut.XML() += "<QUALIFIER.DECLARATION";
  fOut.Attribute("NAME", decl.GetName(TCIMContext()));
  fOut.Attribute("TYPE", value.GetType().ToString());
  fOut.Attribute("ISARRAY", Word(value.IsArray()));
  fOut.Extent(value);
  WriteFlavor(flavor, kFlavorDefault);
  if ((scope & ~kScopeAny) != 0) fOut.Attribute("SCOPEBITS", std::to_string(scope & ~kScopeAny));
  if (otherFlavors != 0) fOut.Attribute("FLAVORBITS", std::to_string(otherFlavors));
  fOut.EndAttributes();
  fOut.XML() += "<SCOPE";
  for (const TFlagName& flag : kScopeNames) {
    if ((scope & flag.fBit) != 0) fOut.Attribute(flag.fName, "true");
  }
  fOut.XML() += "/>";
  fOut.Value(value);
  fOut.End("QUALIFIER.DECLARATION");
  Finish();
}

void TWriter::WriteQualifiers(ICIMQualifiedElement& element) {
  element.EnumerateQualifiers(
      [this](const boost::shared_ptr<ICIMQualifier>& bearer) {
        if (bearer->IsInherited(TCIMContext())) return true;
        auto& qualifier = static_cast<TMemoryQualifier&>(*bearer);
        const TCIMValue& value = qualifier.GetValue(TCIMContext());
        fOut.XML() += "<QUALIFIER";
        fOut.Attribute("NAME", qualifier.GetName(TCIMContext()));
        fOut.Attribute("TYPE", value.GetType().ToString());
        fOut.Extent(value);
        if (qualifier.GetNotes().fIsPropagated) fOut.Attribute("PROPAGATED", "true");
        WriteFlavor(qualifier.GetFlavor(),
                    qualifier.GetQualifierDecl(TCIMContext())->GetFlavor(TCIMContext()));
        if (!qualifier.GetNotes().fLanguage.empty())
          fOut.Attribute("xml:lang", qualifier.GetNotes().fLanguage);
        fOut.EndAttributes();
        fOut.Value(value);
        fOut.XML() += "</QUALIFIER>\n";
        return true;
      },
      TCIMContext());
}

// Classes.

void TWriter::WriteProperty(TMemoryPropertyDecl& decl, const std::string& owner) {
  const TCIMValue& value = decl.GetDefaultValue(TCIMContext());
  const char* const element = fOut.BeginProperty(decl.GetName(TCIMContext()), value);
  WriteNotes(decl.GetNotes(), owner);
  fOut.XML() += ">\n";
  WriteQualifiers(decl);
  fOut.Value(value);
  fOut.End(element);
  fOut.XML() += '\n';
}

void TWriter::WriteParameter(TMemoryParameterDecl& decl) {
  const TType type = decl.GetType(TCIMContext());
  const TElementNotes& notes = decl.GetNotes();
  std::string element = "PARAMETER";
  if (IsReferenceType(type))
    element += IsArrayType(type) ? ".REFARRAY" : ".REFERENCE";
  else if (IsArrayType(type))
    element += ".ARRAY";
  fOut.XML().append("<").append(element);
  fOut.Attribute("NAME", decl.GetName(TCIMContext()));
  if (!IsReferenceType(type)) fOut.Attribute("TYPE", type.ToString());
  if (!notes.fReferencedClass.empty()) fOut.Attribute("REFERENCECLASS", notes.fReferencedClass);
  if (notes.fMaxArraySize != 0) fOut.Attribute("ARRAYSIZE", std::to_string(notes.fMaxArraySize));
  WriteEmbedded(notes.fEmbedded);
  fOut.XML() += ">\n";
  WriteQualifiers(decl);
  fOut.End(element.c_str());
  fOut.XML() += '\n';
}

void TWriter::WriteMethod(TMemoryMethodDecl& decl, const std::string& owner) {
  const TType type = decl.GetReturnType(TCIMContext());
  fOut.XML() += "<METHOD";
  fOut.Attribute("NAME", decl.GetName(TCIMContext()));
  if (type != TType::kCIMTypeNone) fOut.Attribute("TYPE", type.ToString());
  if (IsArrayType(type)) fOut.Attribute("ISARRAY", "true");
  WriteNotes(decl.GetNotes(), owner);
  fOut.XML() += ">\n";
  WriteQualifiers(decl);
  decl.EnumerateParameterDecls(
      [this](const boost::shared_ptr<ICIMParameterDecl>& parameter) {
        WriteParameter(static_cast<TMemoryParameterDecl&>(*parameter));
        return true;
      },
      TCIMContext());
  fOut.XML() += "</METHOD>\n";
}

// Only what the class declares itself: the rest comes with its superclass.
void TWriter::WriteClass(TMemoryClass& source) {
  const std::string& name = source.GetName(TCIMContext());
  fOut.XML() += "<VALUE.NAMEDOBJECT>\n<CLASS";
  fOut.Attribute("NAME", name);
  if (!source.IsRootClass(TCIMContext()))
    fOut.Attribute("SUPERCLASS", source.GetSuperClass(TCIMContext())->GetName(TCIMContext()));
  fOut.XML() += ">\n";
  WriteQualifiers(source);
  for (const auto& decl : source.PropertyDecls()) {
    if (decl->IsInherited()) continue;
    Within([&] { return "property " + Quoted(decl->GetName(TCIMContext())); },
           [&] { WriteProperty(*decl, name); });
  }
  source.EnumerateMethodDecls(
      [&](const boost::shared_ptr<ICIMMethodDecl>& decl) {
        auto& method = static_cast<TMemoryMethodDecl&>(*decl);
        if (!method.IsInherited()) WriteMethod(method, name);
        return true;
      },
      TCIMContext());
  fOut.XML() += "</CLASS>\n</VALUE.NAMEDOBJECT>";
  Finish();
}

// Values.

void TWriter::WritePropertyValue(const std::string& name, const TCIMValue& value,
                                 const TElementNotes& notes) {
  const auto write = [&] {
    const char* const element = fOut.BeginProperty(name, value);
    WriteEmbedded(notes.fEmbedded);
    if (!notes.fLanguage.empty()) fOut.Attribute("xml:lang", notes.fLanguage);
    fOut.EndAttributes();
    fOut.Value(value);
    fOut.End(element);
    fOut.XML() += '\n';
  };
  Within([&] { return "property " + Quoted(name); }, write);
}

// CIM-XML has no element for them, so they stand in a comment.
void TWriter::WriteStaticValues(TMemoryClass& source) {
  const auto begin = [&] {
    fOut.XML() += "\n<STATIC";
    fOut.Attribute("CLASSNAME", source.GetName(TCIMContext()));
    fOut.XML() += ">\n";
  };
  source.EnumerateStaticProperties(
      [&](const boost::shared_ptr<ICIMProperty>& property) {
        if (fOut.XML().empty()) begin();
        WritePropertyValue(property->GetName(TCIMContext()), property->GetValue(TCIMContext()),
                           TElementNotes());
        return true;
      },
      TCIMContext());
  if (fOut.XML().empty()) return;
  fOut.End("STATIC");
  fOut.XML() = "<!--hwx static" + WithoutHyphens(fOut.XML()) + "\n-->";
  Finish();
}

// The tags of scalars: other types say more, depending on the value.
std::vector<TPropertyTag> TWriter::PropertyTags(const TMemoryClass& source) {
  std::vector<TPropertyTag> tags;
  for (const auto& decl : source.PropertyDecls()) {
    TPropertyTag& tag = tags.emplace_back();
    const TType type = decl->GetType(TCIMContext());
    if (IsArrayType(type) || IsReferenceType(type)) continue;
    tag.fElement = fOut.BeginProperty(decl->GetName(TCIMContext()), TCIMValue(type, 0));
    WriteEmbedded(decl->GetNotes().fEmbedded);
    tag.fText.swap(fOut.XML());
  }
  return tags;
}

void TWriter::WriteInstance(const TMemoryClass& source, const std::vector<TPropertyTag>& tags,
                            const TMemoryInstance& instance) {
  const std::string& className = const_cast<TMemoryClass&>(source).GetName(TCIMContext());
  const auto& decls = source.PropertyDecls();
  fOut.XML() += "<VALUE.NAMEDOBJECT>\n<INSTANCENAME";
  fOut.Attribute("CLASSNAME", className);
  fOut.EndAttributes();
  for (std::size_t i = 0; i < decls.size(); ++i) {
    if (decls[i]->IsKey()) fOut.Key(decls[i]->GetName(TCIMContext()), instance.ValueAt(i));
  }
  fOut.XML() += "</INSTANCENAME>\n<INSTANCE";
  fOut.Attribute("CLASSNAME", className);
  const std::string& language = instance.NotesAt(decls.size()).fLanguage;
  if (!language.empty()) fOut.Attribute("xml:lang", language);
  fOut.XML() += ">\n";
  for (std::size_t i = 0; i < decls.size(); ++i) {
    const TElementNotes& notes = instance.NotesAt(i);
    if (tags[i].fElement == nullptr || notes.fEmbedded != kEmbeddedNothing) {
      TElementNotes all = notes;
      if (all.fEmbedded == kEmbeddedNothing) all.fEmbedded = decls[i]->GetNotes().fEmbedded;
      WritePropertyValue(decls[i]->GetName(TCIMContext()), instance.ValueAt(i), all);
      continue;
    }
    fOut.XML() += tags[i].fText;
    if (!notes.fLanguage.empty()) fOut.Attribute("xml:lang", notes.fLanguage);
    fOut.EndAttributes();
    fOut.Value(instance.ValueAt(i));
    fOut.End(tags[i].fElement);
    fOut.XML() += '\n';
  }
  fOut.XML() += "</INSTANCE>\n</VALUE.NAMEDOBJECT>";
  Finish();
}

void TWriter::WriteInstances(TMemoryClass& source) {
  const std::vector<TPropertyTag> tags = PropertyTags(source);
  std::size_t number = 0;
  source.EnumerateInstances(
      [&](const boost::shared_ptr<ICIMInstance>& instance) {
        ++number;
        Within(
            [&] { return "instance " + std::to_string(number); },
            [&] { WriteInstance(source, tags, static_cast<const TMemoryInstance&>(*instance)); });
        return true;
      },
      false, TCIMContext());
}

void TWriter::Write() {
  Begin();
  fNamespace.EnumerateQualifierDecls(
      [this](const TQualifierDecl& decl) {
        if (static_cast<TMemoryQualifierDecl&>(*decl).IsOutside()) return true;
        Within([&] { return "qualifier " + Quoted(decl->GetName(TCIMContext())); },
               [&] { WriteQualifierDecl(*decl); });
        return true;
      },
      TCIMContext());
  const auto classes = fNamespace.GetClasses();
  const auto forEach = [&](auto write) {
    for (const auto& source : classes) {
      Within([&] { return "class " + Quoted(source->GetName(TCIMContext())); },
             [&] { write(*source); });
    }
  };
  forEach([this](TMemoryClass& source) {
    if (!source.IsOutside()) WriteClass(source);
  });
  // Static values may refer to classes that come later, so they wait for all of them.
  forEach([this](TMemoryClass& source) { WriteStaticValues(source); });
  forEach([this](TMemoryClass& source) { WriteInstances(source); });
  fOut.XML() = "</DECLGROUP.WITHNAME>\n</DECLARATION>\n</CIM>";
  Finish();
  Flush();
}

}  // namespace

void WriteContainer(TMemoryNamespace& ns, TByteSink& sink, const std::string& name,
                    const TWriting& writing) {
  try {
    TWriter(ns, sink, writing).Write();
  } catch (const TUnsavable& failure) {
    throw TContainerException(failure.GetStatus(), name + ": " + failure.what());
  }
}

}  // namespace container
