#include "providers/container/Writer.h"

#include <algorithm>
#include <list>
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
#include "hwxkit/TMemoryMethodDecl.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "providers/container/ScalarText.h"
#include "providers/container/ValueWriter.h"
#include "providers/container/Vocabulary.h"
#include "providers/container/Weight.h"

namespace container {

namespace {

using namespace NQORHWX20;
typedef boost::shared_ptr<ICIMQualifierDecl> TQualifierDecl;

const char* Word(bool value) {
  return value ? "true" : "false";
}

class TWriter {
 public:
  TWriter(TMemoryNamespace& ns, TByteSink& sink, const TLimits& limits)
      : fNamespace(ns), fSink(sink), fLimits(limits), fTotal(0), fWeight(limits), fOut(ns) {}

  void Write();

 private:
  void Finish();
  void Flush();
  void Begin();
  void CollectQualifierDecls();

  void WriteFlavor(unsigned int flavor);
  void WriteQualifierDecl(ICIMQualifierDecl& decl);
  void WriteReadyQualifierDecls(bool isLast);
  void CheckDeclared(ICIMQualifier& qualifier) const;
  void WriteQualifiers(ICIMQualifiedElement& element);
  void WriteClass(TMemoryClass& source);
  void WriteProperty(ICIMPropertyDecl& decl, const std::string& origin);
  void WriteMethod(ICIMMethodDecl& decl, const std::string& origin);
  void WriteParameter(ICIMParameterDecl& decl);

  void WritePropertyValue(ICIMProperty& property);
  void WriteStaticValues(TMemoryClass& source);
  void WriteInstances(TMemoryClass& source);
  void WriteInstance(const std::string& className, ICIMInstance& instance);

  TMemoryNamespace& fNamespace;
  TByteSink& fSink;
  const TLimits fLimits;
  std::uint64_t fTotal;  // bytes of finished pieces
  TWeight fWeight;
  TValueWriter fOut;
  std::string fBuffer;
  std::list<TQualifierDecl> fPending;  // qualifier declarations that wait for a class
};

// Output.

// Ends a piece, which so far is kept in `fOut`.
void TWriter::Finish() {
  std::string& xml = fOut.XML();
  if (xml.size() > fLimits.fPiece) {
    throw TUnsavable(kHWXStatusNotSupported,
                     "larger than " + std::to_string(fLimits.fPiece) + " bytes");
  }
  fTotal += xml.size() + 1;
  if (fTotal > fLimits.fDocument) {
    throw TUnsavable(kHWXStatusNotSupported,
                     "the document is larger than " + std::to_string(fLimits.fDocument) + " bytes");
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
      "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n<DECLARATION>\n<DECLGROUP.WITHNAME>";
  Finish();
  const std::string& name = fNamespace.GetName(TCIMContext());
  if (name.empty()) return;
  fOut.NamespacePath(name);
  Finish();
}

// Qualifiers.

void TWriter::WriteFlavor(unsigned int flavor) {
  for (const TFlagName& flag : kFlavorNames) {
    if (((flavor ^ kFlavorDefault) & flag.fBit) != 0)
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
  WriteFlavor(flavor);
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

void TWriter::CollectQualifierDecls() {
  fNamespace.EnumerateQualifierDecls(
      [this](const TQualifierDecl& decl) {
        fPending.push_back(decl);
        return true;
      },
      TCIMContext());
}

// Writes the qualifier declarations that can be read back by now. One whose default value refers to
// a class that hasn't been written yet stays pending. After the last class it can't be saved.
void TWriter::WriteReadyQualifierDecls(bool isLast) {
  const auto write = [&](const TQualifierDecl& decl) {
    try {
      Within([&] { return "qualifier " + Quoted(decl->GetName(TCIMContext())); },
             [&] { WriteQualifierDecl(*decl); });
      return true;
    } catch (const TUnsavable&) {
      if (isLast) throw;
      fOut.XML().clear();
      return false;
    }
  };
  fPending.remove_if(write);
}

// Throws if a qualifier is to be written before its declaration. The class that a default value
// refers to is always written before the first use of the declaration, but the classes in its keys
// or elements may come later.
void TWriter::CheckDeclared(ICIMQualifier& qualifier) const {
  const TQualifierDecl decl = qualifier.GetQualifierDecl(TCIMContext());
  if (std::find(fPending.begin(), fPending.end(), decl) == fPending.end()) return;
  throw TUnsavable(kHWXStatusInvalidClass, "the qualifier " + Quoted(decl->GetName(TCIMContext())) +
                                               ", which refers to a class that comes later");
}

void TWriter::WriteQualifiers(ICIMQualifiedElement& element) {
  element.EnumerateQualifiers(
      [this](const boost::shared_ptr<ICIMQualifier>& qualifier) {
        if (qualifier->IsInherited(TCIMContext())) return true;
        CheckDeclared(*qualifier);
        const TCIMValue& value = qualifier->GetValue(TCIMContext());
        fOut.XML() += "<QUALIFIER";
        fOut.Attribute("NAME", qualifier->GetName(TCIMContext()));
        fOut.Attribute("TYPE", value.GetType().ToString());
        fOut.Extent(value);
        WriteFlavor(qualifier->GetQualifierDecl(TCIMContext())->GetFlavor(TCIMContext()));
        fOut.EndAttributes();
        fOut.Value(value);
        fOut.XML() += "</QUALIFIER>\n";
        return true;
      },
      TCIMContext());
}

// Classes.

void TWriter::WriteProperty(ICIMPropertyDecl& decl, const std::string& origin) {
  const TCIMValue& value = decl.GetDefaultValue(TCIMContext());
  const char* const element = fOut.BeginProperty(decl.GetName(TCIMContext()), value);
  fOut.Attribute("CLASSORIGIN", origin);
  fOut.XML() += ">\n";
  WriteQualifiers(decl);
  fOut.Value(value);
  fOut.End(element);
  fOut.XML() += '\n';
}

void TWriter::WriteParameter(ICIMParameterDecl& decl) {
  const TType type = decl.GetType(TCIMContext());
  std::string element = "PARAMETER";
  if (IsReferenceType(type))
    element += IsArrayType(type) ? ".REFARRAY" : ".REFERENCE";
  else if (IsArrayType(type))
    element += ".ARRAY";
  fOut.XML().append("<").append(element);
  fOut.Attribute("NAME", decl.GetName(TCIMContext()));
  if (!IsReferenceType(type)) fOut.Attribute("TYPE", type.ToString());
  fOut.XML() += ">\n";
  WriteQualifiers(decl);
  fOut.End(element.c_str());
  fOut.XML() += '\n';
}

void TWriter::WriteMethod(ICIMMethodDecl& decl, const std::string& origin) {
  const TType type = decl.GetReturnType(TCIMContext());
  fOut.XML() += "<METHOD";
  fOut.Attribute("NAME", decl.GetName(TCIMContext()));
  if (type != TType::kCIMTypeNone) fOut.Attribute("TYPE", type.ToString());
  if (IsArrayType(type)) fOut.Attribute("ISARRAY", "true");
  fOut.Attribute("CLASSORIGIN", origin);
  fOut.XML() += ">\n";
  WriteQualifiers(decl);
  decl.EnumerateParameterDecls(
      [this](const boost::shared_ptr<ICIMParameterDecl>& parameter) {
        WriteParameter(*parameter);
        return true;
      },
      TCIMContext());
  fOut.XML() += "</METHOD>\n";
}

// Writes what the class declares itself. What it inherits stands in its superclass.
void TWriter::WriteClass(TMemoryClass& source) {
  const std::string& name = source.GetName(TCIMContext());
  fOut.XML() += "<VALUE.NAMEDOBJECT>\n<CLASS";
  fOut.Attribute("NAME", name);
  if (!source.IsRootClass(TCIMContext()))
    fOut.Attribute("SUPERCLASS", source.GetSuperClass(TCIMContext())->GetName(TCIMContext()));
  fOut.XML() += ">\n";
  WriteQualifiers(source);
  source.EnumeratePropertyDecls(
      [&](const boost::shared_ptr<ICIMPropertyDecl>& decl) {
        if (boost::static_pointer_cast<TMemoryPropertyDecl>(decl)->IsInherited()) return true;
        Within([&] { return "property " + Quoted(decl->GetName(TCIMContext())); },
               [&] { WriteProperty(*decl, name); });
        return true;
      },
      TCIMContext());
  source.EnumerateMethodDecls(
      [&](const boost::shared_ptr<ICIMMethodDecl>& decl) {
        if (!boost::static_pointer_cast<TMemoryMethodDecl>(decl)->IsInherited())
          WriteMethod(*decl, name);
        return true;
      },
      TCIMContext());
  fOut.XML() += "</CLASS>\n</VALUE.NAMEDOBJECT>";
  fOut.AddClass(name);
  Finish();
  if (!fWeight.AddClass(source, fTotal))
    throw TUnsavable(kHWXStatusNotSupported, "all classes together inherit too much");
}

// Values.

void TWriter::WritePropertyValue(ICIMProperty& property) {
  const TCIMValue& value = property.GetValue(TCIMContext());
  const std::string& name = property.GetPropertyDecl(TCIMContext())->GetName(TCIMContext());
  const auto write = [&] {
    const char* const element = fOut.BeginProperty(name, value);
    if (value.IsNull()) {
      fOut.XML() += "/>\n";
      return;
    }
    fOut.EndAttributes();
    fOut.Value(value);
    fOut.End(element);
    fOut.XML() += '\n';
  };
  Within([&] { return "property " + Quoted(name); }, write);
}

void TWriter::WriteStaticValues(TMemoryClass& source) {
  const auto begin = [&] {
    fOut.XML() += "<STATIC";
    fOut.Attribute("CLASSNAME", source.GetName(TCIMContext()));
    fOut.XML() += ">\n";
  };
  source.EnumerateStaticProperties(
      [&](const boost::shared_ptr<ICIMProperty>& property) {
        if (fOut.XML().empty()) begin();
        WritePropertyValue(*property);
        return true;
      },
      TCIMContext());
  if (fOut.XML().empty()) return;
  fOut.End("STATIC");
  Finish();
}

void TWriter::WriteInstance(const std::string& className, ICIMInstance& instance) {
  fOut.XML() += "<VALUE.NAMEDOBJECT>\n<INSTANCENAME";
  fOut.Attribute("CLASSNAME", className);
  fOut.EndAttributes();
  instance.EnumerateKeyProperties(
      [this](const boost::shared_ptr<ICIMProperty>& key) {
        fOut.Key(key->GetPropertyDecl(TCIMContext())->GetName(TCIMContext()),
                 key->GetValue(TCIMContext()));
        return true;
      },
      TCIMContext());
  fOut.XML() += "</INSTANCENAME>\n<INSTANCE";
  fOut.Attribute("CLASSNAME", className);
  fOut.XML() += ">\n";
  instance.EnumerateProperties(
      [this](const boost::shared_ptr<ICIMProperty>& property) {
        WritePropertyValue(*property);
        return true;
      },
      TCIMContext());
  fOut.XML() += "</INSTANCE>\n</VALUE.NAMEDOBJECT>";
  Finish();
}

void TWriter::WriteInstances(TMemoryClass& source) {
  const std::string& name = source.GetName(TCIMContext());
  std::size_t number = 0;
  source.EnumerateInstances(
      [&](const boost::shared_ptr<ICIMInstance>& instance) {
        ++number;
        Within([&] { return "instance " + std::to_string(number); },
               [&] { WriteInstance(name, *instance); });
        if (!fWeight.AddInstanceOf(source, fTotal))
          throw TUnsavable(kHWXStatusNotSupported, "all default values together are too large");
        return true;
      },
      false, TCIMContext());
}

void TWriter::Write() {
  Begin();
  CollectQualifierDecls();
  WriteReadyQualifierDecls(false);
  const auto classes = fNamespace.GetClasses();
  const auto forEach = [&](auto write) {
    for (const auto& source : classes) {
      Within([&] { return "class " + Quoted(source->GetName(TCIMContext())); },
             [&] { write(*source); });
    }
  };
  forEach([this](TMemoryClass& source) {
    WriteClass(source);
    WriteReadyQualifierDecls(false);
  });
  WriteReadyQualifierDecls(true);
  // Static values may refer to classes that come later, so they wait for all of them.
  forEach([this](TMemoryClass& source) { WriteStaticValues(source); });
  forEach([this](TMemoryClass& source) { WriteInstances(source); });
  fOut.XML() = "</DECLGROUP.WITHNAME>\n</DECLARATION>\n</CIM>";
  Finish();
  Flush();
}

}  // namespace

void WriteContainer(TMemoryNamespace& ns, TByteSink& sink, const std::string& name,
                    const TLimits& limits) {
  try {
    TWriter(ns, sink, limits).Write();
  } catch (const TUnsavable& failure) {
    throw TContainerException(failure.GetStatus(), name + ": " + failure.what());
  }
}

}  // namespace container
