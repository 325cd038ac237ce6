// What a document has to say: each fault is told with its line and its element.

#include "providers/container/Reader.h"

#include <string>

#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace container;
using namespace NQORHWX20;
using std::string_literals::operator""s;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// A class in one line, the second one of a document, for instances from the third on.
const std::string kSchema =
    "<QUALIFIER.DECLARATION NAME='Key' TYPE='boolean' OVERRIDABLE='false'><VALUE>false</VALUE>"
    "</QUALIFIER.DECLARATION><CLASS NAME='Disk'>"
    "<PROPERTY NAME='ID' TYPE='string'><QUALIFIER NAME='Key' TYPE='boolean' OVERRIDABLE='false'>"
    "<VALUE>true</VALUE></QUALIFIER></PROPERTY>"
    "<PROPERTY NAME='Size' TYPE='uint16'><VALUE>7</VALUE></PROPERTY>"
    "<PROPERTY.ARRAY NAME='Names' TYPE='string' ARRAYSIZE='4'/>"
    "<PROPERTY.REFERENCE NAME='Other'/>"
    "</CLASS>\n";

std::string Instance(const std::string& properties) {
  return "<VALUE.NAMEDOBJECT><INSTANCENAME CLASSNAME='Disk'><KEYBINDING NAME='ID'>"
         "<KEYVALUE>a</KEYVALUE></KEYBINDING></INSTANCENAME>\n<INSTANCE CLASSNAME='Disk'>" +
         properties + "</INSTANCE></VALUE.NAMEDOBJECT>\n";
}

// Why a piece behind the schema is refused: what stands behind "file.xml:".
std::string Why(const std::string& pieces) {
  const std::string why = WhyRefused(Document(kSchema + pieces));
  EXPECT_TRUE(why.empty() || why.rfind("file.xml:", 0) == 0) << why;
  return why.empty() ? "" : why.substr(9);
}

std::string WhyProperty(const std::string& property) {
  return Why(Instance(property));
}

TEST(Reader, TakesTheLeastThatIsADocument) {
  const std::string start = "<CIM CIMVERSION='2.0' DTDVERSION='2.3'><DECLARATION>";
  const std::string end = "</DECLARATION></CIM>";
  for (const char* group : {"", "<DECLGROUP/>", "<DECLGROUP></DECLGROUP><DECLGROUP.WITHNAME/>"}) {
    const Namespace ns = Load(start + group + end);
    EXPECT_EQ(ns->GetName({}), "");
    EXPECT_EQ(ns->GetClassCount({}), 0u);
  }
}

TEST(Reader, TakesOtherWaysToSayTheSame) {
  const std::string property =
      "<PROPERTY NAME='Size' TYPE='uint16'><VALUE> 0x10\n</VALUE></PROPERTY>";
  const std::string key = "<PROPERTY NAME='id' TYPE='string'><VALUE>a</VALUE></PROPERTY>";
  for (const std::string& instance :
       {Instance(property), Instance(property + key),
        "<INSTANCE CLASSNAME='DISK'>" + property + key + "</INSTANCE>",
        "<VALUE.OBJECT xml:lang='en' xmlns:x='y'><INSTANCE CLASSNAME='Disk'>" + property + key +
            "</INSTANCE></VALUE.OBJECT>"}) {
    const Namespace ns = Load(Document(kSchema + instance));
    EXPECT_EQ(ValueOf(OnlyInstance(ns, "Disk"), "ID").operator std::string(), "a");
    EXPECT_EQ(ValueOf(OnlyInstance(ns, "Disk"), "Size").operator unsigned short(), 16);
  }
}

TEST(Reader, GivesInstancesTheDefaultValuesOfWhatTheyLeaveOut) {
  const Namespace ns = Load(Document(kSchema + Instance("")));
  EXPECT_EQ(ValueOf(OnlyInstance(ns, "Disk"), "Size").operator unsigned short(), 7);
  const Namespace other =
      Load(Document(kSchema + Instance("<PROPERTY NAME='Size' TYPE='uint16'/>")));
  EXPECT_TRUE(ValueOf(OnlyInstance(other, "Disk"), "Size").IsNull());
}

TEST(Reader, LeavesOutWhatOnlyRepeatsTheSuperclass) {
  const Namespace ns = Load(Document(
      kSchema +
      "<CLASS NAME='Sub' SUPERCLASS='Disk'>"
      "<PROPERTY NAME='Size' TYPE='uint16' CLASSORIGIN='Disk' PROPAGATED='true'><VALUE>9</VALUE>"
      "</PROPERTY></CLASS>"));
  const auto decl = ns->GetClass("Sub", {})->GetPropertyDecl("Size", {});
  EXPECT_EQ(decl->GetDefaultValue({}).operator unsigned short(), 7);
  EXPECT_EQ(decl->GetClass({})->GetName({}), "Disk");
}

TEST(Reader, ChecksTheFrame) {
  EXPECT_EQ(WhyRefused("<html/>"),
            "file.xml:1: no container: begins with html, where CIM is expected");
  EXPECT_EQ(WhyRefused("\n<CIM CIMVERSION='2.0'>x"),
            "file.xml:2: CIM: lacks the attribute DTDVERSION");
  EXPECT_EQ(WhyRefused("<CIM CIMVERSION='2.0' DTDVERSION='2.0'>\n<MESSAGE>"),
            "file.xml:2: the file ends within MESSAGE, begun in line 2");
  EXPECT_EQ(WhyRefused("<CIM CIMVERSION='2.0' DTDVERSION='2.0' a='b'>"),
            "file.xml:1: CIM: has no attribute \"a\"");
  EXPECT_EQ(WhyRefused(Document("x")), "file.xml:2: a text where an element is expected");
  EXPECT_EQ(
      Why("<NONSENSE/>"),
      "3: NONSENSE: doesn't belong into DECLGROUP.WITHNAME, where QUALIFIER.DECLARATION, CLASS, "
      "INSTANCE or a VALUE with one of them is expected");
  EXPECT_EQ(Why("</DECLGROUP.WITHNAME><NONSENSE>"),
            "3: NONSENSE: doesn't belong into DECLARATION, where DECLGROUP, DECLGROUP.WITHNAME or "
            "DECLGROUP.WITHPATH is expected");
  EXPECT_EQ(Why("</DECLGROUP.WITHNAME></DECLARATION><DECLARATION>"),
            "3: DECLARATION: doesn't belong into CIM, where nothing more is expected");
}

TEST(Reader, TellsOtherVersions) {
  for (const char* attributes :
       {"CIMVERSION='3.0' DTDVERSION='2.0'", "CIMVERSION='2.0' DTDVERSION='1.0'",
        "CIMVERSION='2' DTDVERSION='2.0'", "CIMVERSION='20.1' DTDVERSION='2.0'"}) {
    const Failure failure =
        FailureOf([&] { Load("<CIM "s + attributes + "><DECLARATION/></CIM>"); });
    EXPECT_EQ(failure.status, kHWXStatusVersionMismatch) << attributes;
    EXPECT_THAT(failure.text, StartsWith("file.xml:1: CIM: "));
    EXPECT_THAT(failure.text, HasSubstr(", and not 2"));
  }
}

TEST(Reader, ChecksQualifierDeclarations) {
  const auto why = [](const std::string& attributes, const std::string& content = "") {
    return Why("<QUALIFIER.DECLARATION " + attributes + ">\n" + content +
               "</QUALIFIER.DECLARATION>");
  };
  EXPECT_EQ(why("NAME='A' TYPE='string'"), "");
  EXPECT_EQ(why("TYPE='string'"), "3: QUALIFIER.DECLARATION: lacks the attribute NAME");
  EXPECT_EQ(why("NAME='A'"), "3: QUALIFIER.DECLARATION \"A\": lacks the attribute TYPE");
  EXPECT_EQ(why("NAME='A' TYPE='text'"), "3: QUALIFIER.DECLARATION \"A\": \"text\" is no type");
  EXPECT_EQ(why("NAME='KEY' TYPE='string'"), "3: QUALIFIER.DECLARATION \"KEY\": stands twice");
  EXPECT_EQ(why("NAME='9' TYPE='string'"),
            "3: QUALIFIER.DECLARATION \"9\": refused with kHWXStatusInvalidCIMName");
  EXPECT_EQ(why("NAME='A' TYPE='string' ISARRAY='yes'"),
            "3: QUALIFIER.DECLARATION \"A\": ISARRAY is neither true nor false, but \"yes\"");
  EXPECT_EQ(why("NAME='A' TYPE='string' SCOPEBITS='-1'"),
            "3: QUALIFIER.DECLARATION \"A\": SCOPEBITS is no number: \"-1\"");
  EXPECT_EQ(why("NAME='A' TYPE='string' ARRAYSIZE='3'"),
            "3: QUALIFIER.DECLARATION \"A\": ARRAYSIZE without an array");
  EXPECT_EQ(why("NAME='A' TYPE='string'", "<SCOPE PROPERTY='1'/>"),
            "4: SCOPE: PROPERTY is neither true nor false, but \"1\"");
  EXPECT_EQ(why("NAME='A' TYPE='string'", "<SCOPE/><SCOPE/>"),
            "4: SCOPE: doesn't belong into QUALIFIER.DECLARATION, where one SCOPE is expected");
  EXPECT_EQ(why("NAME='A' TYPE='string'", "<VALUE/><VALUE/>"),
            "4: VALUE: doesn't belong into QUALIFIER.DECLARATION, where one value is expected");
  EXPECT_EQ(why("NAME='A' TYPE='uint8'", "<VALUE>x</VALUE>"), "4: VALUE: \"x\" is no uint8");
}

TEST(Reader, ChecksQualifiers) {
  const auto why = [](const std::string& attributes, const std::string& value = "true") {
    return Why("<CLASS NAME='A'>\n<QUALIFIER " + attributes + "><VALUE>" + value +
               "</VALUE></QUALIFIER></CLASS>");
  };
  EXPECT_EQ(why("NAME='key' TYPE='boolean'"), "");
  EXPECT_EQ(why("NAME='Key' TYPE='string'"),
            "4: QUALIFIER \"Key\": the qualifier is declared as boolean");
  EXPECT_EQ(why("NAME='Key' TYPE='boolean'", "1"), "4: VALUE: \"1\" is no boolean");
  EXPECT_EQ(why("NAME='Key' TYPE='boolean' PROPAGATED='true'"),
            "4: QUALIFIER \"Key\": PROPAGATED, but from nowhere");
  EXPECT_EQ(Why("<CLASS NAME='A'><QUALIFIER NAME='Key' TYPE='boolean'/>\n"
                "<QUALIFIER NAME='Key' TYPE='boolean'/></CLASS>"),
            "4: QUALIFIER \"Key\": refused with kHWXStatusAlreadyExists");
}

TEST(Reader, ChecksClasses) {
  EXPECT_EQ(Why("<CLASS NAME='disk'/>"), "3: CLASS \"disk\": the class stands twice");
  EXPECT_EQ(Why("<CLASS/>"), "3: CLASS: lacks the attribute NAME");
  EXPECT_EQ(Why("<CLASS NAME='a b'/>"), "3: CLASS \"a b\": refused with kHWXStatusInvalidCIMName");
  EXPECT_EQ(Why("<CLASS NAME='A'>\n<INSTANCE/></CLASS>"),
            "4: INSTANCE: doesn't belong into CLASS, where QUALIFIER, PROPERTY or METHOD is "
            "expected");
  EXPECT_EQ(Why("<CLASS NAME='A'>\ntext</CLASS>"), "4: a text where an element is expected");
  EXPECT_EQ(Why("<CLASS NAME='a\\x'/>"),
            "3: CLASS \"a\\\\x\": refused with kHWXStatusInvalidCIMName");
}

TEST(Reader, ChecksPropertiesOfClasses) {
  const auto why = [](const std::string& property) {
    return Why("<CLASS NAME='A' SUPERCLASS='Disk'>\n" + property + "</CLASS>");
  };
  EXPECT_EQ(why("<PROPERTY NAME='Size' TYPE='uint16'/>"), "");
  EXPECT_EQ(why("<PROPERTY NAME='Size' TYPE='uint8'/>"),
            "4: PROPERTY \"Size\": the superclass declares the property with another type");
  EXPECT_EQ(why("<PROPERTY NAME='B' TYPE='uint8'/><PROPERTY NAME='b' TYPE='uint8'/>"),
            "4: PROPERTY \"b\": the property stands twice");
  EXPECT_EQ(why("<PROPERTY NAME='B' TYPE='uint8' PROPAGATED='true'/>"),
            "4: PROPERTY \"B\": PROPAGATED, but from nowhere");
  EXPECT_EQ(why("<PROPERTY NAME='B' TYPE='uint8' CLASSORIGIN='C'/>"),
            "4: PROPERTY \"B\": CLASSORIGIN is neither the class nor a superclass: \"C\"");
  EXPECT_EQ(why("<PROPERTY NAME='B' TYPE='uint8' WRONG=''/>"),
            "4: PROPERTY \"B\": has no attribute \"WRONG\"");
}

TEST(Reader, ChecksMethods) {
  const auto why = [](const std::string& content, const std::string& attributes = "NAME='M'") {
    return Why("<CLASS NAME='A'><METHOD " + attributes + ">\n" + content + "</METHOD></CLASS>");
  };
  EXPECT_EQ(why("<PARAMETER NAME='P' TYPE='uint8'/>"), "");
  EXPECT_EQ(why("", "NAME='M' TYPE='void'"), "3: METHOD \"M\": \"void\" is no type");
  EXPECT_EQ(why("</METHOD><METHOD NAME='m'>"), "4: METHOD \"m\": the method stands twice");
  EXPECT_EQ(why("<PARAMETER NAME='P'/>"), "4: PARAMETER \"P\": lacks the attribute TYPE");
  EXPECT_EQ(why("<PARAMETER NAME='P' TYPE='uint8'/><PARAMETER NAME='p' TYPE='uint8'/>"),
            "4: PARAMETER \"p\": refused with kHWXStatusAlreadyExists");
  EXPECT_EQ(why("<VALUE/>"),
            "4: VALUE: doesn't belong into METHOD, where QUALIFIER or PARAMETER is expected");
  EXPECT_EQ(why("<PARAMETER NAME='P' TYPE='uint8'><VALUE/></PARAMETER>"),
            "4: VALUE: doesn't belong into PARAMETER, where QUALIFIER is expected");
}

TEST(Reader, ChecksStaticValues) {
  const auto why = [](const std::string& property) {
    return Why("<STATIC CLASSNAME='Disk'>\n" + property + "</STATIC>");
  };
  const std::string size = "<PROPERTY NAME='Size' TYPE='uint16'/>";
  EXPECT_EQ(why(size), "");
  EXPECT_EQ(why(size + size), "4: PROPERTY \"Size\": the property stands twice");
  EXPECT_EQ(why("<PROPERTY NAME='Size' TYPE='uint8'/>"),
            "4: PROPERTY \"Size\": refused with kHWXStatusTypeMismatch");
  EXPECT_EQ(why("<PROPERTY NAME='B' TYPE='uint8'/>"),
            "4: PROPERTY \"B\": refused with kHWXStatusNotFound");
  EXPECT_EQ(why(size + "</STATIC><STATIC CLASSNAME='Disk'>"),
            "4: STATIC \"Disk\": the static values stand twice");
  EXPECT_EQ(Why("<STATIC CLASSNAME='B'/>"), "3: STATIC \"B\": there is no class \"B\"");
}

TEST(Reader, ChecksInstances) {
  EXPECT_EQ(Why(Instance("")), "");
  EXPECT_EQ(Why("<INSTANCE/>"), "3: INSTANCE: lacks the attribute CLASSNAME");
  EXPECT_EQ(Why("<INSTANCE CLASSNAME='Disk'/>"),
            "3: INSTANCE \"Disk\": a key is missing, null or an array");
  EXPECT_EQ(Why(Instance("") + Instance("")),
            "6: INSTANCE \"Disk\": another instance has the same keys");
  EXPECT_EQ(Why("<VALUE.NAMEDOBJECT/>"),
            "3: VALUE.NAMEDOBJECT: holds neither a CLASS, nor an INSTANCE with or without its "
            "INSTANCENAME");
  EXPECT_THAT(Why("<VALUE.NAMEDOBJECT><INSTANCENAME CLASSNAME='Disk'/></VALUE.NAMEDOBJECT>"),
              StartsWith("3: VALUE.NAMEDOBJECT: holds neither"));
}

TEST(Reader, ChecksPropertiesOfInstances) {
  EXPECT_EQ(WhyProperty("\n<PROPERTY NAME='Size' TYPE='uint16'><VALUE>70000</VALUE></PROPERTY>"),
            "5: VALUE: \"70000\" is out of range for uint16");
  EXPECT_EQ(WhyProperty("<PROPERTY NAME='Size' TYPE='uint8'/>"),
            "4: PROPERTY \"Size\": the class declares the property as uint16");
  EXPECT_EQ(WhyProperty("<PROPERTY NAME='Names' TYPE='string'/>"),
            "4: PROPERTY \"Names\": the class declares the property as string array");
  EXPECT_EQ(WhyProperty("<PROPERTY NAME='B' TYPE='uint8'/>"),
            "4: PROPERTY \"B\": the class has no such property");
  EXPECT_EQ(
      WhyProperty("<PROPERTY NAME='Size' TYPE='uint16'/><PROPERTY NAME='SIZE' TYPE='uint16'/>"),
      "4: PROPERTY \"SIZE\": the property stands twice");
  EXPECT_EQ(WhyProperty("<VALUE/>"),
            "4: VALUE: doesn't belong into INSTANCE, where PROPERTY is expected");
  EXPECT_EQ(WhyProperty("<PROPERTY NAME='Size' TYPE='uint16'><VALUE.ARRAY/></PROPERTY>"),
            "4: VALUE.ARRAY: a uint16 stands in a VALUE");
  EXPECT_EQ(WhyProperty("<PROPERTY.ARRAY NAME='Names' TYPE='string'><VALUE/></PROPERTY.ARRAY>"),
            "4: VALUE: a string array stands in a VALUE.ARRAY");
  EXPECT_EQ(WhyProperty("<PROPERTY NAME='Size' TYPE='uint16'><VALUE><VALUE/></VALUE></PROPERTY>"),
            "4: VALUE: doesn't belong into VALUE, where text alone is expected");
  EXPECT_EQ(WhyProperty("<PROPERTY NAME='ID' TYPE='string'><VALUE FORM='odd'/></PROPERTY>"),
            "4: VALUE: FORM has no value \"odd\"");
  EXPECT_EQ(
      WhyProperty("<PROPERTY NAME='Size' TYPE='uint16'><VALUE FORM='bits'>1</VALUE></PROPERTY>"),
      "4: VALUE: a uint16 has no form \"bits\"");
  EXPECT_EQ(WhyProperty("<PROPERTY.ARRAY NAME='Names' TYPE='string'><VALUE.ARRAY><VALUE.NULL>x"
                        "</VALUE.NULL></VALUE.ARRAY></PROPERTY.ARRAY>"),
            "4: VALUE.NULL: isn't empty");
}

TEST(Reader, ChecksTheNamesOfInstances) {
  const auto why = [](const std::string& keys, const std::string& name = "Disk") {
    return Why("<VALUE.NAMEDOBJECT><INSTANCENAME CLASSNAME='" + name + "'>\n" + keys +
               "</INSTANCENAME><INSTANCE CLASSNAME='Disk'><PROPERTY NAME='ID' TYPE='string'>"
               "<VALUE>a</VALUE></PROPERTY></INSTANCE></VALUE.NAMEDOBJECT>");
  };
  const auto key = [](const std::string& attributes, const std::string& value) {
    return "<KEYBINDING NAME='ID'><KEYVALUE " + attributes + ">" + value +
           "</KEYVALUE></KEYBINDING>";
  };
  EXPECT_EQ(why(key("", "a")), "");
  EXPECT_EQ(why(key("VALUETYPE='string' TYPE='string'", "a")), "");
  EXPECT_EQ(why(key("", "b")), "4: KEYBINDING \"ID\": the key has another value than the property");
  EXPECT_EQ(why(key("VALUETYPE='numeric'", "a")),
            "4: KEYVALUE: a string key has the VALUETYPE string");
  EXPECT_EQ(why(key("TYPE='uint8'", "a")), "4: KEYVALUE: the class declares the key as string");
  EXPECT_EQ(why(""), "3: INSTANCENAME \"Disk\": has 0 keys, where the class has 1");
  EXPECT_EQ(why(key("", "a") + key("", "a")), "4: KEYBINDING \"ID\": the key stands twice");
  EXPECT_EQ(why("<KEYBINDING NAME='Size'><KEYVALUE VALUETYPE='numeric'>1</KEYVALUE></KEYBINDING>"),
            "4: KEYBINDING \"Size\": the property is no key");
  EXPECT_EQ(why("<KEYBINDING NAME='B'/>"),
            "4: KEYBINDING \"B\": the class \"Disk\" has no such property");
  EXPECT_EQ(why(key("", "a"), "Other"),
            "3: INSTANCENAME \"Other\": names another class than the instance");
  EXPECT_EQ(why("<VALUE/>"),
            "4: VALUE: doesn't belong into INSTANCENAME, where KEYBINDING is expected");
}

TEST(Reader, ChecksReferences) {
  const auto why = [](const std::string& target) {
    return WhyProperty("<PROPERTY.REFERENCE NAME='Other'><VALUE.REFERENCE>\n" + target +
                       "</VALUE.REFERENCE></PROPERTY.REFERENCE>");
  };
  EXPECT_EQ(why("<CLASSNAME NAME='disk'/>"), "");
  EXPECT_EQ(why("<INSTANCENAME CLASSNAME='Disk'/>"), "");
  EXPECT_EQ(why("<LOCALCLASSPATH><LOCALNAMESPACEPATH><NAMESPACE NAME='a'/></LOCALNAMESPACEPATH>"
                "<CLASSNAME NAME='Disk'/></LOCALCLASSPATH>"),
            "");
  EXPECT_EQ(why(""), "4: VALUE.REFERENCE: doesn't hold one object");
  EXPECT_EQ(why("<CLASSNAME NAME='Disk'/><CLASSNAME NAME='Disk'/>"),
            "4: VALUE.REFERENCE: doesn't hold one object");
  EXPECT_EQ(
      why("<VALUE/>"),
      "5: VALUE: doesn't belong into VALUE.REFERENCE, where CLASSNAME, INSTANCENAME or one of "
      "their paths is expected");
  EXPECT_EQ(why("<CLASSNAME NAME='Disk'>x</CLASSNAME>"), "5: CLASSNAME: isn't empty");
  EXPECT_EQ(why("<INSTANCENAME CLASSNAME='Disk'><KEYBINDING NAME='Size'><KEYVALUE "
                "VALUETYPE='numeric'>x</KEYVALUE></KEYBINDING></INSTANCENAME>"),
            "5: KEYVALUE: \"x\" is no uint16");
  EXPECT_EQ(why("<LOCALCLASSPATH><CLASSNAME NAME='Disk'/></LOCALCLASSPATH>"),
            "5: CLASSNAME \"Disk\": doesn't belong into LOCALCLASSPATH, where NAMESPACEPATH or "
            "LOCALNAMESPACEPATH is expected");
}

TEST(Reader, RefusesReferencesThatNestDeeply) {
  const auto nested = [](int depth) {
    std::string reference = "<CLASSNAME NAME='Disk'/>";
    for (int i = 0; i < depth; ++i) {
      reference = "<INSTANCENAME CLASSNAME='Disk'><KEYBINDING NAME='Other'><VALUE.REFERENCE>" +
                  reference + "</VALUE.REFERENCE></KEYBINDING></INSTANCENAME>";
    }
    return WhyProperty("<PROPERTY.REFERENCE NAME='Other'><VALUE.REFERENCE>" + reference +
                       "</VALUE.REFERENCE></PROPERTY.REFERENCE>");
  };
  EXPECT_EQ(nested(kMaxReferenceDepth - 1), "");
  EXPECT_EQ(nested(kMaxReferenceDepth), "4: VALUE.REFERENCE: references are nested too deeply");
}

}  // namespace

}  // namespace hwxtest
