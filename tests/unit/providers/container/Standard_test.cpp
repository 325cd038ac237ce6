// What is written holds the document type definition of CIM-XML, as libxml2's xmllint checks it.

#include <cstdlib>
#include <string>

#include "support/FileText.h"
#include "support/TemporaryDirectory.h"
#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using ::testing::HasSubstr;

// The elements that declarations consist of, with their content and attributes in version 2.4.
const char kDefinition[] = R"DTD(
<!ELEMENT CIM (DECLARATION)>
<!ATTLIST CIM CIMVERSION CDATA #REQUIRED DTDVERSION CDATA #REQUIRED>
<!ELEMENT DECLARATION (DECLGROUP.WITHNAME+)>
<!ELEMENT DECLGROUP.WITHNAME ((LOCALNAMESPACEPATH | NAMESPACEPATH)?, QUALIFIER.DECLARATION*,
                              VALUE.NAMEDOBJECT*)>
<!ENTITY % Name "NAME CDATA #REQUIRED">
<!ENTITY % Kinds "(boolean|string|char16|uint8|sint8|uint16|sint16|uint32|sint32|uint64|sint64|
                   datetime|real32|real64)">
<!ENTITY % Flavors "OVERRIDABLE (true|false) 'true' TOSUBCLASS (true|false) 'true'
                    TOINSTANCE (true|false) 'false' TRANSLATABLE (true|false) 'false'">
<!ENTITY % Origin "CLASSORIGIN CDATA #IMPLIED PROPAGATED (true|false) 'false'">
<!ENTITY % Embedded "EmbeddedObject (object|instance) #IMPLIED">
<!ENTITY % Language "xml:lang NMTOKEN #IMPLIED">

<!ELEMENT QUALIFIER.DECLARATION (SCOPE?, (VALUE | VALUE.ARRAY)?)>
<!ATTLIST QUALIFIER.DECLARATION %Name; TYPE %Kinds; #REQUIRED ISARRAY (true|false) #IMPLIED
          ARRAYSIZE CDATA #IMPLIED %Flavors;>
<!ELEMENT SCOPE EMPTY>
<!ATTLIST SCOPE CLASS (true|false) 'false' ASSOCIATION (true|false) 'false'
          REFERENCE (true|false) 'false' PROPERTY (true|false) 'false' METHOD (true|false) 'false'
          PARAMETER (true|false) 'false' INDICATION (true|false) 'false'>
<!ELEMENT QUALIFIER (VALUE | VALUE.ARRAY)?>
<!ATTLIST QUALIFIER %Name; TYPE %Kinds; #REQUIRED PROPAGATED (true|false) 'false' %Flavors;
          %Language;>

<!ELEMENT VALUE (#PCDATA)>
<!ELEMENT VALUE.NULL EMPTY>
<!ELEMENT VALUE.ARRAY (VALUE | VALUE.NULL)*>
<!ELEMENT VALUE.REFERENCE (CLASSPATH | LOCALCLASSPATH | CLASSNAME | INSTANCEPATH |
                           LOCALINSTANCEPATH | INSTANCENAME)>
<!ELEMENT VALUE.NAMEDOBJECT (CLASS | (INSTANCENAME, INSTANCE))>

<!ELEMENT NAMESPACEPATH (HOST, LOCALNAMESPACEPATH)>
<!ELEMENT LOCALNAMESPACEPATH (NAMESPACE+)>
<!ELEMENT HOST (#PCDATA)>
<!ELEMENT NAMESPACE EMPTY>
<!ATTLIST NAMESPACE %Name;>
<!ELEMENT CLASSPATH (NAMESPACEPATH, CLASSNAME)>
<!ELEMENT LOCALCLASSPATH (LOCALNAMESPACEPATH, CLASSNAME)>
<!ELEMENT CLASSNAME EMPTY>
<!ATTLIST CLASSNAME %Name;>
<!ELEMENT INSTANCEPATH (NAMESPACEPATH, INSTANCENAME)>
<!ELEMENT LOCALINSTANCEPATH (LOCALNAMESPACEPATH, INSTANCENAME)>
<!ELEMENT INSTANCENAME (KEYBINDING* | KEYVALUE? | VALUE.REFERENCE?)>
<!ATTLIST INSTANCENAME CLASSNAME CDATA #REQUIRED>
<!ELEMENT KEYBINDING (KEYVALUE | VALUE.REFERENCE)>
<!ATTLIST KEYBINDING %Name;>
<!ELEMENT KEYVALUE (#PCDATA)>
<!ATTLIST KEYVALUE VALUETYPE (string|boolean|numeric) 'string' TYPE %Kinds; #IMPLIED>

<!ELEMENT CLASS (QUALIFIER*, (PROPERTY | PROPERTY.ARRAY | PROPERTY.REFERENCE)*, METHOD*)>
<!ATTLIST CLASS %Name; SUPERCLASS CDATA #IMPLIED>
<!ELEMENT INSTANCE (QUALIFIER*, (PROPERTY | PROPERTY.ARRAY | PROPERTY.REFERENCE)*)>
<!ATTLIST INSTANCE CLASSNAME CDATA #REQUIRED %Language;>
<!ELEMENT PROPERTY (QUALIFIER*, VALUE?)>
<!ATTLIST PROPERTY %Name; TYPE %Kinds; #REQUIRED %Origin; %Embedded; %Language;>
<!ELEMENT PROPERTY.ARRAY (QUALIFIER*, VALUE.ARRAY?)>
<!ATTLIST PROPERTY.ARRAY %Name; TYPE %Kinds; #REQUIRED ARRAYSIZE CDATA #IMPLIED %Origin;
          %Embedded; %Language;>
<!ELEMENT PROPERTY.REFERENCE (QUALIFIER*, VALUE.REFERENCE?)>
<!ATTLIST PROPERTY.REFERENCE %Name; REFERENCECLASS CDATA #IMPLIED %Origin;>
<!ELEMENT METHOD (QUALIFIER*, (PARAMETER | PARAMETER.REFERENCE | PARAMETER.ARRAY |
                               PARAMETER.REFARRAY)*)>
<!ATTLIST METHOD %Name; TYPE %Kinds; #IMPLIED %Origin;>
<!ELEMENT PARAMETER (QUALIFIER*)>
<!ATTLIST PARAMETER %Name; TYPE %Kinds; #REQUIRED>
<!ELEMENT PARAMETER.REFERENCE (QUALIFIER*)>
<!ATTLIST PARAMETER.REFERENCE %Name; REFERENCECLASS CDATA #IMPLIED>
<!ELEMENT PARAMETER.ARRAY (QUALIFIER*)>
<!ATTLIST PARAMETER.ARRAY %Name; TYPE %Kinds; #REQUIRED ARRAYSIZE CDATA #IMPLIED>
<!ELEMENT PARAMETER.REFARRAY (QUALIFIER*)>
<!ATTLIST PARAMETER.REFARRAY %Name; REFERENCECLASS CDATA #IMPLIED ARRAYSIZE CDATA #IMPLIED>
)DTD";

// What xmllint says of a document, empty if it is valid.
std::string WhyInvalid(const std::string& document) {
  const TemporaryDirectory directory;
  MakeFile(directory / "cim.dtd", kDefinition);
  MakeFile(directory / "file.xml", document);
  const std::string command = "xmllint --noout --nonet --dtdvalid '" + (directory / "cim.dtd") +
                              "' '" + (directory / "file.xml") + "' >'" + (directory / "said") +
                              "' 2>&1";
  const int status = std::system(command.c_str());
  const std::string said = FileText(directory / "said");
  if (status == 0) return "";
  return said.empty() ? "xmllint failed" : said;
}

// Everything that the standard has words for, and texts and moments that XML or CIM can't carry.
Namespace Everything() {
  const Namespace ns = TMemoryNamespace::Create("//host:5988/root/test");
  DeclareStandardQualifiers(*ns);
  TClassBuilder(ns, "EX_Target").Key("ID", "string").Commit();
  const auto made = ns->CreateClass("EX_All", ns->OutsideClass("EX_Base"), {});
  const auto add = [&](const std::string& name, const TCIMValue& value) {
    const auto decl = made->CreatePropertyDecl(name, value, {});
    const auto text =
        decl->CreateQualifier(ns->GetQualifierDecl("Description", {}), std::string("a\x01z"), {});
    text->Commit({});
    decl->Commit({});
  };
  add("Text", Null(Type::kCIMTypeString));
  add("Number", 5U);
  add("Moment", Null(Type::kCIMTypeDateTime));
  add("Letter", Null(Type::kCIMTypeChar16));
  add("Texts", TCIMValue(ArrayOf(Type::kCIMTypeString), 4));
  add("Moments", Null(ArrayOf(Type::kCIMTypeDateTime)));
  TCIMValue null = Null(Type::kCIMTypeReference);
  null.SetReferencedClass(ns->GetClass("EX_Target", {}));
  add("Target", null);
  const auto method = made->CreateMethodDecl("Do", Type::kCIMTypeUInt32, {});
  const auto parameter = method->CreateParameterDecl("Where", ArrayOf(Type::kCIMTypeReference), {});
  TElementNotes notes;
  notes.fReferencedClass = "EX_Target";
  notes.fMaxArraySize = 7;
  boost::static_pointer_cast<TMemoryParameterDecl>(parameter)->SetNotes(notes);
  parameter->Commit({});
  made->Commit({});
  made->SetStaticPropertyValue("Text", std::string("--static-->--"), {});
  TCIMReference target(ns, {});
  target.SetClassName("EX_Target");
  target.SetNameSpaceName("//other/root");
  target.AddKeyValue("ID", std::string("\xFF"));
  const auto instance = ns->FindClass("EX_All")->NewInstance();
  instance->Set("Text", std::string("\0\x1B\xFF\\", 4));
  instance->Set("Letter", TCIMChar16(static_cast<unsigned short>(1)));
  TCIMDateTime moment(2007, 1, 2, 3, 4, 5, 6, 60);
  moment.SetPrecision(true);
  instance->Set("Moment", moment);
  instance->Set("Moments", TCIMValue(ArrayOf(Type::kCIMTypeDateTime), 0,
                                     {TCIMValue(TCIMDateTime()), TCIMValue(moment)}));
  instance->Set("Target", TCIMValue(target));
  ns->FindClass("EX_All")->AddInstance(instance);
  return ns;
}

TEST(Standard, HoldsForAllThatItCanSay) {
  const std::string document = Save(*Everything());
  EXPECT_EQ(WhyInvalid(document), "");
  EXPECT_THAT(document, HasSubstr("<!--hwx escaped--><VALUE>\\x00\\x1B\\xFF\\\\</VALUE>"));
  EXPECT_EQ(Save(*Load(document)), document);
}

TEST(Standard, HoldsForAnEmptyNamespace) {
  EXPECT_EQ(WhyInvalid(Save(*TMemoryNamespace::Create(""))), "");
  EXPECT_EQ(WhyInvalid(Save(*TMemoryNamespace::Create("root/test"))), "");
}

TEST(Standard, IsCheckedInEarnest) {
  EXPECT_THAT(WhyInvalid(Document("<CLASS NAME='A'/>")), HasSubstr("DECLGROUP.WITHNAME"));
  EXPECT_THAT(WhyInvalid(Document("<VALUE.NAMEDOBJECT><CLASS NAME='A' FORM='x'/>"
                                  "</VALUE.NAMEDOBJECT>")),
              HasSubstr("FORM"));
}

TEST(Standard, KeepsStaticValuesInComments) {
  const Namespace loaded = Load(Save(*Everything()));
  EXPECT_EQ(loaded->GetClass("EX_All", {})
                ->GetStaticProperty("Text", {})
                ->GetValue({})
                .
                operator std::string(),
            "--static-->--");
}

}  // namespace

}  // namespace hwxtest
