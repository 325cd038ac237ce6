#include "providers/container/Reader.h"

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "hwxcore/schema/ICIMProperty.h"
#include "hwxkit/CIMName.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "providers/container/Piece.h"
#include "providers/container/ScalarText.h"
#include "providers/container/Scanner.h"
#include "providers/container/SchemaReader.h"
#include "providers/container/ValueReader.h"
#include "providers/container/ValueWriter.h"
#include "providers/container/Weight.h"

namespace container {

namespace {

using namespace NQORHWX20;
typedef boost::shared_ptr<TMemoryNamespace> TNamespace;
typedef boost::shared_ptr<TMemoryClass> TClass;

// Reads one instance.
class TInstanceReader {
 public:
  TInstanceReader(const TPiece& piece, const TNamespace& ns)
      : fPiece(piece), fNamespace(ns), fValues(piece, ns) {}

  // `name`, the INSTANCENAME, may be missing: the keys then have to be among the properties.
  void Read(const pugi::xml_node& name, const pugi::xml_node& element, TWeight& weight,
            std::uint64_t bytes) {
    fPiece.CheckAttributes(element, {"CLASSNAME"});
    fPiece.Name(element, "CLASSNAME");  // throws if there is none
    fClass = fValues.FindClass(element, "CLASSNAME");
    if (!weight.AddInstanceOf(*fClass, bytes))
      fPiece.Fail(element, "all default values together are too large");
    fInstance = fPiece.Guard(element, [&] { return fClass->NewInstance(); });
    fPiece.ForEachElement(element, [&](const pugi::xml_node& child) { ReadProperty(child); });
    if (name) ReadName(name);
    fPiece.Guard(element, [&] { Add(element); });
  }

 private:
  typedef std::unordered_set<const TMemoryPropertyDecl*> TDecls;

  void ReadProperty(const pugi::xml_node& element) {
    if (!Is(element, "PROPERTY") && !Is(element, "PROPERTY.ARRAY") &&
        !Is(element, "PROPERTY.REFERENCE"))
      fPiece.FailUnexpected(element);
    fPiece.CheckAttributes(element, {"NAME", "TYPE", "CLASSORIGIN", "PROPAGATED", "ARRAYSIZE",
                                     "REFERENCECLASS", "EmbeddedObject", "EMBEDDEDOBJECT"});
    const std::string name = fPiece.Name(element, "NAME");
    const boost::shared_ptr<TMemoryPropertyDecl> decl = fClass->FindPropertyDecl(name);
    if (!decl) fPiece.Fail(element, "the class has no such property");
    const TType type = decl->GetType(TCIMContext());
    if (fValues.PropertyType(element) != type) {
      fPiece.Fail(element, "the class declares the property as " + type.ToString() +
                               (IsArrayType(type) ? " array" : ""));
    }
    if (!fSet.insert(decl.get()).second) fPiece.Fail(element, "the property stands twice");
    Set(element, name, fValues.Value(element, type));
  }

  void Set(const pugi::xml_node& element, const std::string& name, const TCIMValue& value) {
    fPiece.Guard(element, [&] { fInstance->SetPropertyValue(name, value, TCIMContext()); });
  }

  // The keys in the name have to be those of the instance.
  void ReadName(const pugi::xml_node& element) {
    fPiece.CheckAttributes(element, {"CLASSNAME"});
    if (!IsSameCIMName(fPiece.Name(element, "CLASSNAME"), fClass->GetName(TCIMContext())))
      fPiece.Fail(element, "names another class than the instance");
    TDecls keys;
    fValues.Keys(element, fClass,
                 [&](const pugi::xml_node& key, const std::string& name, const TCIMValue& value) {
                   const auto decl = fClass->FindPropertyDecl(name);
                   if (!decl->IsKey()) fPiece.Fail(key, "the property is no key");
                   if (!keys.insert(decl.get()).second) fPiece.Fail(key, "the key stands twice");
                   ReadKey(key, name, value, fSet.count(decl.get()) != 0);
                 });
    std::size_t count = 0;
    fInstance->EnumerateKeyProperties(
        [&count](const boost::shared_ptr<ICIMProperty>&) { return ++count != 0; }, TCIMContext());
    if (keys.size() != count) {
      fPiece.Fail(element, "has " + std::to_string(keys.size()) + " keys, where the class has " +
                               std::to_string(count));
    }
  }

  void ReadKey(const pugi::xml_node& element, const std::string& name, const TCIMValue& value,
               bool isProperty) {
    if (!isProperty) return Set(element, name, value);
    const auto property = fInstance->GetProperty(name, TCIMContext());
    if (Text(value) != Text(property->GetValue(TCIMContext())))
      fPiece.Fail(element, "the key has another value than the property");
  }

  // Equal for values that are the same in type and content.
  std::string Text(const TCIMValue& value) const {
    TValueWriter writer(*fNamespace, true);
    writer.Extent(value);
    writer.Value(value);
    return writer.XML();
  }

  void Add(const pugi::xml_node& element) {
    try {
      fClass->AddInstance(fInstance);
    } catch (const THWXException& failure) {
      if (failure.GetStatus() == kHWXStatusAlreadyExists)
        fPiece.Fail(element, "another instance has the same keys");
      if (failure.GetStatus() == kHWXStatusInvalidInstance)
        fPiece.Fail(element, "a key is missing, null or an array");
      throw;
    }
  }

  const TPiece& fPiece;
  const TNamespace fNamespace;
  const TValueReader fValues;
  TClass fClass;
  boost::shared_ptr<TMemoryInstance> fInstance;
  TDecls fSet;  // the properties that the element has
};

// Goes through the document, which is a frame around pieces.
class TReader {
 public:
  TReader(TByteSource& source, const std::string& name, const TLimits& limits)
      : fScanner(source, name, limits), fWeight(limits) {}

  TNamespace Read() {
    Open("CIM");
    const TPiece cim(fScanner);
    cim.CheckAttributes(cim.Root(), {"CIMVERSION", "DTDVERSION"});
    CheckVersion(cim, "CIMVERSION");
    CheckVersion(cim, "DTDVERSION");
    Open("DECLARATION");
    CheckTag();
    for (auto token = fScanner.Next(); token != TScanner::kEndTag; token = fScanner.Next())
      ReadGroup(token);
    if (fScanner.Next() != TScanner::kEndTag) FailUnexpected();
    fScanner.Next();  // throws unless it is the end
    return fNamespace ? fNamespace : TMemoryNamespace::Create(std::string());
  }

 private:
  [[noreturn]] void FailUnexpected() const {
    fScanner.Fail(fScanner.Line(), fScanner.Element() + " doesn't belong here");
  }

  // Goes on to an element of the frame.
  void Open(const char* element) {
    if (fScanner.Next() != TScanner::kStartTag || fScanner.Element() != element)
      fScanner.Fail(fScanner.Line(), std::string("no container: a ") + element + " is missing");
  }

  void CheckTag() const {
    const TPiece tag(fScanner);
    tag.CheckAttributes(tag.Root(), {});
  }

  void CheckVersion(const TPiece& cim, const char* attribute) const {
    const std::string version = cim.Name(cim.Root(), attribute);
    if (version.compare(0, 2, "2.") == 0) return;
    throw TContainerException(kHWXStatusVersionMismatch,
                              fScanner.FileName() + ":" + std::to_string(fScanner.Line()) +
                                  ": CIM: " + attribute + " is " + Quoted(version) + ", and not 2");
  }

  void ReadGroup(TScanner::EToken token) {
    if (fScanner.Element() != "DECLGROUP" && fScanner.Element() != "DECLGROUP.WITHNAME")
      FailUnexpected();
    CheckTag();
    if (token == TScanner::kEmptyTag) return;
    for (token = fScanner.Next(); token != TScanner::kEndTag; token = fScanner.Next()) {
      if (token == TScanner::kStartTag) fScanner.ReadElement();
      ReadPiece(TPiece(fScanner));
    }
  }

  void ReadPiece(const TPiece& piece) {
    const pugi::xml_node element = piece.Root();
    if (Is(element, "LOCALNAMESPACEPATH")) return ReadNamespaceName(piece, element);
    if (!fNamespace) fNamespace = TMemoryNamespace::Create(std::string());
    if (Is(element, "QUALIFIER.DECLARATION"))
      TSchemaReader(piece, fNamespace).ReadQualifierDecl(element);
    else if (Is(element, "STATIC"))
      TSchemaReader(piece, fNamespace).ReadStaticValues(element);
    else if (Is(element, "CLASS") || Is(element, "INSTANCE"))
      ReadObject(piece, {element});
    else if (Is(element, "VALUE.OBJECT") || Is(element, "VALUE.NAMEDOBJECT") ||
             Is(element, "VALUE.NAMEDINSTANCE"))
      ReadWrapped(piece, element);
    else
      FailUnexpected();
  }

  void ReadNamespaceName(const TPiece& piece, const pugi::xml_node& element) {
    const std::string name = NamespaceName(piece, element);
    if (!fNamespace) fNamespace = TMemoryNamespace::Create(name);
    if (fNamespace->GetName(TCIMContext()) != name)
      piece.Fail(element, "the container has two namespaces");
  }

  void ReadWrapped(const TPiece& piece, const pugi::xml_node& element) {
    piece.CheckAttributes(element, {});
    if (!ReadObject(piece, piece.Elements(element)))
      piece.Fail(element,
                 "holds neither a CLASS, nor an INSTANCE with or without its INSTANCENAME");
  }

  bool ReadObject(const TPiece& piece, const std::vector<pugi::xml_node>& objects) {
    const bool hasName = objects.size() == 2 && Is(objects[0], "INSTANCENAME");
    if (objects.size() != 1 && !hasName) return false;
    if (Is(objects.back(), "INSTANCE")) {
      TInstanceReader(piece, fNamespace)
          .Read(hasName ? objects[0] : pugi::xml_node(), objects.back(), fWeight,
                fScanner.BytesRead());
      return true;
    }
    if (hasName || !Is(objects[0], "CLASS")) return false;
    const TClass added = TSchemaReader(piece, fNamespace).ReadClass(objects[0]);
    if (!fWeight.AddClass(*added, fScanner.BytesRead()))
      piece.Fail(objects[0], "all classes together inherit too much");
    return true;
  }

  TScanner fScanner;
  TWeight fWeight;
  TNamespace fNamespace;
};

}  // namespace

TNamespace ReadContainer(TByteSource& source, const std::string& name, const TLimits& limits) {
  return TReader(source, name, limits).Read();
}

}  // namespace container
