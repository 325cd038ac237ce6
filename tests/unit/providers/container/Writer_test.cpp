#include "providers/container/Writer.h"

#include <string>
#include <vector>

#include "providers/container/Limits.h"
#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace container;
using namespace NQORHWX20;
using ::testing::HasSubstr;

Namespace Empty() {
  return TMemoryNamespace::Create("root/test");
}

Failure WhyUnsavable(const Namespace& ns, const TLimits& limits = TLimits()) {
  return FailureOf([&] { Save(*ns, limits); });
}

TCIMReference ReferenceTo(const Namespace& ns, const std::string& className) {
  TCIMReference reference(ns, {});
  reference.SetClassName(className);
  return reference;
}

// The whole of a document, so that whoever changes the format sees it.
TEST(Writer, WritesCIMXML) {
  const Namespace ns = Empty();
  ns->CreateQualifierDecl("Key", false, kScopeProperty | kScopeReference, kFlavorToSubclass, {})
      ->Commit({});
  const auto made = ns->CreateClass("EX_Disk", {}, {});
  const auto key = made->CreatePropertyDecl("ID", Null(Type::kCIMTypeString), {});
  key->CreateQualifier(ns->GetQualifierDecl("Key", {}), true, {})->Commit({});
  key->Commit({});
  made->CreatePropertyDecl("Size", TCIMValue(7U), {})->Commit({});
  made->CreatePropertyDecl("Names", Null(ArrayOf(Type::kCIMTypeString)), {})->Commit({});
  const auto method = made->CreateMethodDecl("Erase", Type::kCIMTypeUInt32, {});
  method->CreateParameterDecl("Passes", Type::kCIMTypeUInt8, {})->Commit({});
  made->Commit({});
  const auto instance = ns->FindClass("EX_Disk")->NewInstance();
  instance->Set("ID", std::string("a<\x01")).SetNull("Size");
  instance->Set("Names", TCIMValue(ArrayOf(Type::kCIMTypeString), 0,
                                   {TCIMValue(std::string("b")), Null(Type::kCIMTypeString)}));
  ns->FindClass("EX_Disk")->AddInstance(instance);
  EXPECT_EQ(Save(*ns), R"(<?xml version="1.0" encoding="utf-8"?>
<CIM CIMVERSION="2.0" DTDVERSION="2.4">
<DECLARATION>
<DECLGROUP.WITHNAME>
<LOCALNAMESPACEPATH><NAMESPACE NAME="root"/><NAMESPACE NAME="test"/></LOCALNAMESPACEPATH>
<QUALIFIER.DECLARATION NAME="Key" TYPE="boolean" ISARRAY="false" OVERRIDABLE="false"><SCOPE REFERENCE="true" PROPERTY="true"/><VALUE>false</VALUE></QUALIFIER.DECLARATION>
<VALUE.NAMEDOBJECT>
<CLASS NAME="EX_Disk">
<PROPERTY NAME="ID" TYPE="string" CLASSORIGIN="EX_Disk">
<QUALIFIER NAME="Key" TYPE="boolean" OVERRIDABLE="false"><VALUE>true</VALUE></QUALIFIER>
</PROPERTY>
<PROPERTY NAME="Size" TYPE="uint32" CLASSORIGIN="EX_Disk">
<VALUE>7</VALUE></PROPERTY>
<PROPERTY.ARRAY NAME="Names" TYPE="string" CLASSORIGIN="EX_Disk">
</PROPERTY.ARRAY>
<METHOD NAME="Erase" TYPE="uint32" CLASSORIGIN="EX_Disk">
<PARAMETER NAME="Passes" TYPE="uint8">
</PARAMETER>
</METHOD>
</CLASS>
</VALUE.NAMEDOBJECT>
<VALUE.NAMEDOBJECT>
<INSTANCENAME CLASSNAME="EX_Disk"><KEYBINDING NAME="ID"><!--hwx escaped--><KEYVALUE VALUETYPE="string" TYPE="string">a&lt;\x01</KEYVALUE></KEYBINDING></INSTANCENAME>
<INSTANCE CLASSNAME="EX_Disk">
<PROPERTY NAME="ID" TYPE="string"><!--hwx escaped--><VALUE>a&lt;\x01</VALUE></PROPERTY>
<PROPERTY NAME="Size" TYPE="uint32"></PROPERTY>
<PROPERTY.ARRAY NAME="Names" TYPE="string"><VALUE.ARRAY><VALUE>b</VALUE><VALUE.NULL/></VALUE.ARRAY></PROPERTY.ARRAY>
</INSTANCE>
</VALUE.NAMEDOBJECT>
</DECLGROUP.WITHNAME>
</DECLARATION>
</CIM>
)");
}

TEST(Writer, PutsADeclarationInFrontOfTheClassesThatItRefersTo) {
  const Namespace ns = Empty();
  TClassBuilder(ns, "Target").Commit();
  TCIMReference target = ReferenceTo(ns, "Target");
  const std::vector<TCIMValue> elements = {TCIMValue(target)};
  ns->CreateQualifierDecl("Waits", TCIMValue(ArrayOf(Type::kCIMTypeReference), 0, elements),
                          kScopeAny, kFlavorDefault, {})
      ->Commit({});
  const std::string document = Save(*ns);
  EXPECT_LT(document.find("NAME=\"Waits\""), document.find("<CLASS NAME=\"Target\""));
  EXPECT_EQ(Save(*Load(document)), document);
}

TEST(Writer, KeepsReferencesToClassesOfAnotherNamespace) {
  const Namespace other = Empty();
  TClassBuilder(other, "Foreign").Commit();
  const Namespace ns = Empty();
  TCIMReference reference = ReferenceTo(other, "Foreign");
  TClassBuilder(ns, "Holder").PropertyWithDefault("Value", TCIMValue(reference)).Commit();
  const std::string document = Save(*ns);
  EXPECT_THAT(document, HasSubstr("<VALUE.REFERENCE><CLASSNAME NAME=\"Foreign\"/>"));
  EXPECT_EQ(Save(*Load(document)), document);
}

TEST(Writer, TakesAClassOfAnotherNamespaceForItsOwnOfThatName) {
  const Namespace other = Empty();
  TClassBuilder(other, "Target").Commit();
  const Namespace ns = Empty();
  TClassBuilder(ns, "Target").Commit();
  TCIMReference reference = ReferenceTo(other, "Target");
  TClassBuilder(ns, "Holder").PropertyWithDefault("Value", TCIMValue(reference)).Commit();
  EXPECT_EQ(WhyUnsavable(ns).text, "");
}

TEST(Writer, RefusesReferencesThatNestDeeply) {
  const auto nested = [](int depth) {
    const Namespace ns = Empty();
    TClassBuilder(ns, "Link").Key("Name", "string").Commit();
    TClassBuilder(ns, "Chain").KeyReference("Next", "Link").Commit();
    TCIMReference reference = ReferenceTo(ns, "Chain");
    for (int i = 0; i < depth; ++i) {
      TCIMReference outer = ReferenceTo(ns, "Chain");
      outer.AddKeyValue("Next", TCIMValue(reference));
      reference = outer;
    }
    TClassBuilder(ns, "Holder").PropertyWithDefault("Value", TCIMValue(reference)).Commit();
    return ns;
  };
  EXPECT_EQ(WhyUnsavable(nested(kMaxReferenceDepth - 1)).text, "");
  const Failure failure = WhyUnsavable(nested(kMaxReferenceDepth));
  EXPECT_EQ(failure.status, kHWXStatusNotSupported);
  EXPECT_THAT(failure.text, HasSubstr("references that are nested deeper than 200"));
}

TEST(Writer, RefusesWhatWouldNotLoadAgain) {
  const Namespace ns = Empty();
  const auto made = TClassBuilder(ns, "Holder").Property("Text", "string").Commit();
  const auto instance = made->NewInstance();
  instance->Set("Text", std::string(2000, 'x'));
  made->AddInstance(instance);
  TLimits limits;
  limits.fPiece = 1000;
  EXPECT_EQ(WhyUnsavable(ns, limits).status, kHWXStatusNotSupported);
  EXPECT_EQ(WhyUnsavable(ns, limits).text,
            "saved.xml: class \"Holder\": instance 1: larger than 1000 bytes");
  limits = TLimits();
  limits.fDocument = 1000;
  EXPECT_THAT(WhyUnsavable(ns, limits).text, HasSubstr(": the document is larger than 1000 bytes"));
}

}  // namespace

}  // namespace hwxtest
