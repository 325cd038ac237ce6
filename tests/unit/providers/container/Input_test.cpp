// The forms of CIM-XML that others write.

#include <string>
#include <vector>

#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace container;
using namespace NQORHWX20;
using std::string_literals::operator""s;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

const std::string kDiskClass =
    "<CLASS NAME='Disk'><PROPERTY NAME='ID' TYPE='string'><QUALIFIER NAME='Key' TYPE='boolean'>"
    "<VALUE>true</VALUE></QUALIFIER></PROPERTY><PROPERTY NAME='Size' TYPE='uint16'/></CLASS>";
const std::string kKeyDeclaration =
    "<QUALIFIER.DECLARATION NAME='Key' TYPE='boolean' OVERRIDABLE='false'/>";
const std::string kDiskName =
    "<INSTANCENAME CLASSNAME='Disk'><KEYBINDING NAME='ID'><KEYVALUE>a</KEYVALUE></KEYBINDING>"
    "</INSTANCENAME>";
const std::string kDiskInstance =
    "<INSTANCE CLASSNAME='Disk'><PROPERTY NAME='Size' TYPE='uint16'><VALUE>5</VALUE></PROPERTY>"
    "</INSTANCE>";

std::string LocalPath(const std::string& name) {
  return "<LOCALNAMESPACEPATH><NAMESPACE NAME='" + name + "'/></LOCALNAMESPACEPATH>";
}

std::string Declaration(const std::string& groups) {
  return "<CIM CIMVERSION='2.0' DTDVERSION='2.0'><DECLARATION>" + groups + "</DECLARATION></CIM>";
}

struct Outcome {
  Namespace ns;
  std::vector<std::string> warnings;
};

Outcome ReadWith(const std::string& document, const std::string& chosen = "") {
  Outcome loaded;
  TReading reading;
  reading.fNamespace = chosen;
  reading.fWarn = [&loaded](const std::string& line) { loaded.warnings.push_back(line); };
  TMemorySource source(document);
  loaded.ns = ReadContainer(source, "file.xml", reading);
  return loaded;
}

void ExpectDisk(const Outcome& loaded) {
  const auto disk = OnlyInstance(loaded.ns, "Disk");
  EXPECT_EQ(ValueOf(disk, "ID").operator std::string(), "a");
  EXPECT_EQ(ValueOf(disk, "Size").operator unsigned short(), 5);
}

std::string SizeOfDisk(const Outcome& loaded) {
  return ValueOf(OnlyInstance(loaded.ns, "Disk"), "Size").ToString(10);
}

TEST(Input, ComesInAnyOrder) {
  const std::string sub = "<CLASS NAME='Sub' SUPERCLASS='Disk'/>";
  const std::string link =
      "<CLASS NAME='Link'><PROPERTY.REFERENCE NAME='To' REFERENCECLASS='Disk'/></CLASS>";
  const std::string instance =
      "<VALUE.NAMEDOBJECT>" + kDiskName + kDiskInstance + "</VALUE.NAMEDOBJECT>";
  for (const std::string& all : {kKeyDeclaration + kDiskClass + sub + link + instance,
                                 instance + link + sub + kDiskClass + kKeyDeclaration,
                                 link + instance + kDiskClass + kKeyDeclaration + sub}) {
    const Outcome loaded = ReadWith(Document(all));
    ExpectDisk(loaded);
    EXPECT_EQ(loaded.ns->GetClass("Sub", {})->GetSuperClass({}), loaded.ns->GetClass("Disk", {}));
    EXPECT_EQ(loaded.ns->GetClassCount({}), 3u);
    EXPECT_THAT(loaded.warnings, ElementsAre());
    const std::string saved = Save(*loaded.ns);
    EXPECT_EQ(Save(*Load(saved)), saved);
  }
}

TEST(Input, MayReferInCircles) {
  const Outcome loaded =
      ReadWith(Document("<CLASS NAME='A'><PROPERTY.REFERENCE NAME='B' REFERENCECLASS='B'/></CLASS>"
                        "<CLASS NAME='B'><PROPERTY.REFERENCE NAME='A' REFERENCECLASS='A'/>"
                        "<PROPERTY.REFERENCE NAME='B' REFERENCECLASS='B'/></CLASS>"));
  EXPECT_THAT(loaded.warnings, ElementsAre());
  const std::string saved = Save(*loaded.ns);
  EXPECT_THAT(saved, HasSubstr("NAME=\"B\" REFERENCECLASS=\"B\""));
  EXPECT_EQ(Save(*Load(saved)), saved);
}

TEST(Input, HasNoClassThatDescendsFromItself) {
  EXPECT_EQ(WhyRefused(Document("<CLASS NAME='A' SUPERCLASS='B'/>\n"
                                "<CLASS NAME='B' SUPERCLASS='A'/>")),
            "file.xml:3: CLASS \"B\": descends from itself");
}

TEST(Input, MayLeaveSuperclassesAndQualifiersToOthers) {
  const Outcome loaded = ReadWith(Document(
      "<CLASS NAME='A' SUPERCLASS='Base'><QUALIFIER NAME='Abstract' TYPE='boolean'><VALUE>true"
      "</VALUE></QUALIFIER><PROPERTY NAME='P' TYPE='uint8' CLASSORIGIN='Base' PROPAGATED='true'/>"
      "<PROPERTY.REFERENCE NAME='R' REFERENCECLASS='Far'/></CLASS>"));
  EXPECT_THAT(loaded.warnings,
              ElementsAre("file.xml: classes that the file names and doesn't hold: Base, Far",
                          "file.xml: qualifiers that the file uses and doesn't declare: Abstract"));
  const auto found = loaded.ns->GetClass("A", {});
  EXPECT_TRUE(found->IsSubClassOf("base", {}));
  EXPECT_TRUE(found->IsAbstract({}));
  EXPECT_EQ(loaded.ns->GetClassCount({}), 1u);
  const std::string saved = Save(*loaded.ns);
  EXPECT_THAT(saved, HasSubstr("<CLASS NAME=\"A\" SUPERCLASS=\"Base\">"));
  EXPECT_THAT(saved, HasSubstr("CLASSORIGIN=\"Base\" PROPAGATED=\"true\""));
  EXPECT_EQ(Save(*Load(saved)), saved);
}

TEST(Input, KeepsFlavorsLanguagesAndWhatElseIsSaidOfElements) {
  const std::string document =
      "<QUALIFIER.DECLARATION NAME='Q' TYPE='string' TOINSTANCE='true'/>"
      "<CLASS NAME='A'><QUALIFIER NAME='Q' TYPE='string' OVERRIDABLE='false' TOINSTANCE='false' "
      "xml:lang='de'><VALUE>x</VALUE></QUALIFIER>"
      "<PROPERTY NAME='P' TYPE='string' EmbeddedObject='instance'/>"
      "<METHOD NAME='M' TYPE='uint8'><PARAMETER.REFARRAY NAME='R' REFERENCECLASS='A' "
      "ARRAYSIZE='4'/><PARAMETER.ARRAY NAME='S' TYPE='string' ARRAYSIZE='7'/></METHOD></CLASS>"
      "<INSTANCE CLASSNAME='A' xml:lang='fr'><PROPERTY NAME='P' TYPE='string' xml:lang='en' "
      "EmbeddedObject='object'><VALUE>x</VALUE></PROPERTY></INSTANCE>";
  const std::string saved = Save(*Load(Document(document)));
  for (const char* part :
       {"TYPE=\"string\" ISARRAY=\"false\" TOINSTANCE=\"true\"",
        "<QUALIFIER NAME=\"Q\" TYPE=\"string\" OVERRIDABLE=\"false\" TOINSTANCE=\"false\" "
        "xml:lang=\"de\">",
        "<PROPERTY NAME=\"P\" TYPE=\"string\" CLASSORIGIN=\"A\" EmbeddedObject=\"instance\">",
        "<PARAMETER.REFARRAY NAME=\"R\" REFERENCECLASS=\"A\" ARRAYSIZE=\"4\">",
        "<PARAMETER.ARRAY NAME=\"S\" TYPE=\"string\" ARRAYSIZE=\"7\">",
        "<INSTANCE CLASSNAME=\"A\" xml:lang=\"fr\">",
        "<PROPERTY NAME=\"P\" TYPE=\"string\" EmbeddedObject=\"object\" xml:lang=\"en\">"})
    EXPECT_THAT(saved, HasSubstr(part));
  EXPECT_EQ(Save(*Load(saved)), saved);
}

TEST(Input, HoldsObjectsWithPaths) {
  const std::string host = "<NAMESPACEPATH><HOST>h</HOST>" + LocalPath("root") + "</NAMESPACEPATH>";
  const std::string group =
      "<DECLGROUP>" + kKeyDeclaration + kDiskClass + "</DECLGROUP><DECLGROUP.WITHPATH>";
  const std::string end = "</DECLGROUP.WITHPATH>";
  for (const std::string& object :
       {"<VALUE.OBJECTWITHPATH><INSTANCEPATH>" + host + kDiskName + "</INSTANCEPATH>" +
            kDiskInstance + "</VALUE.OBJECTWITHPATH>",
        "<VALUE.OBJECTWITHLOCALPATH><LOCALINSTANCEPATH>" + LocalPath("root") + kDiskName +
            "</LOCALINSTANCEPATH>" + kDiskInstance + "</VALUE.OBJECTWITHLOCALPATH>"}) {
    const Outcome loaded = ReadWith(Declaration(group + object + end));
    ExpectDisk(loaded);
    EXPECT_THAT(loaded.ns->GetName({}), ::testing::AnyOf("root", "//h/root"));
    EXPECT_EQ(Load(Save(*loaded.ns))->GetName({}), loaded.ns->GetName({}));
  }
  const Outcome declared = ReadWith(Declaration(
      "<DECLGROUP.WITHPATH><VALUE.OBJECTWITHPATH><CLASSPATH>" + host +
      "<CLASSNAME NAME='A'/></CLASSPATH><CLASS NAME='A'/></VALUE.OBJECTWITHPATH>" + end));
  EXPECT_TRUE(declared.ns->FindClass("A"));
}

TEST(Input, HoldsOneNamespaceWithItsHostAndWithout) {
  const std::string host = "<NAMESPACEPATH><HOST>h</HOST>" + LocalPath("root") + "</NAMESPACEPATH>";
  const auto group = [](const std::string& path, const std::string& name) {
    return "<DECLGROUP>" + path + "<CLASS NAME='" + name + "'/></DECLGROUP>";
  };
  const std::string document = Declaration(group(host, "A") + group(LocalPath("root"), "B"));
  EXPECT_EQ(Load(document)->GetClassCount({}), 2u);
  EXPECT_EQ(Load(document)->GetName({}), "//h/root");
  EXPECT_EQ(ReadWith(document, "root").ns->GetClassCount({}), 2u);
}

TEST(Input, HoldsSeveralNamespacesOfWhichOneIsChosen) {
  const auto group = [](const std::string& name, const std::string& className) {
    return "<DECLGROUP.WITHNAME>" + LocalPath(name) + "<VALUE.OBJECT><CLASS NAME='" + className +
           "'/></VALUE.OBJECT></DECLGROUP.WITHNAME>";
  };
  const std::string document = Declaration(group("one", "A") + group("two", "B"));
  const Failure failure = FailureOf([&] { Load(document); });
  EXPECT_EQ(failure.status, kHWXStatusNotFound);
  EXPECT_EQ(failure.text,
            "file.xml: holds the namespaces \"one\", \"two\", one of which has to be chosen");
  const Outcome two = ReadWith(document, "TWO");
  EXPECT_EQ(two.ns->GetName({}), "two");
  EXPECT_EQ(two.ns->GetClassCount({}), 1u);
  EXPECT_TRUE(two.ns->FindClass("B"));
  EXPECT_EQ(FailureOf([&] { ReadWith(document, "three"); }).text,
            "file.xml: there is no namespace \"three\" among \"one\", \"two\"");
}

TEST(Input, RefersToOtherHostsAndNamespaces) {
  const std::string link = "<CLASS NAME='Link'><PROPERTY.REFERENCE NAME='To'/></CLASS>";
  const auto instance = [](const std::string& target) {
    return "<INSTANCE CLASSNAME='Link'><PROPERTY.REFERENCE NAME='To'><VALUE.REFERENCE>" + target +
           "</VALUE.REFERENCE></PROPERTY.REFERENCE></INSTANCE>";
  };
  const std::string host =
      "<NAMESPACEPATH><HOST>h:5988</HOST>" + LocalPath("x") + "</NAMESPACEPATH>";
  const Namespace near =
      Load(Document(kKeyDeclaration + kDiskClass + link +
                    instance("<INSTANCEPATH>" + host + kDiskName + "</INSTANCEPATH>")));
  const TCIMReference there = ValueOf(OnlyInstance(near, "Link"), "To");
  EXPECT_EQ(there.GetNameSpaceName(), "//h:5988/x");
  EXPECT_EQ(there.GetPath(), "Disk.ID=\"a\"");
  EXPECT_THAT(Save(*near), HasSubstr("<INSTANCEPATH><NAMESPACEPATH><HOST>h:5988</HOST>"));
  const Outcome far = ReadWith(
      Document(link + instance("<INSTANCENAME CLASSNAME='Far'><KEYBINDING NAME='K'><KEYVALUE "
                               "VALUETYPE='numeric'>5</KEYVALUE></KEYBINDING></INSTANCENAME>")));
  const TCIMReference unknown = ValueOf(OnlyInstance(far.ns, "Link"), "To");
  EXPECT_EQ(unknown.GetPath(), "Far.K=\"5\"");
  const std::string saved = Save(*far.ns);
  EXPECT_EQ(Save(*Load(saved)), saved);
}

TEST(Input, NamesInstancesByASingleKeyWithoutItsName) {
  ExpectDisk(ReadWith(Document(kKeyDeclaration + kDiskClass +
                               "<VALUE.NAMEDOBJECT><INSTANCENAME CLASSNAME='Disk'><KEYVALUE>a"
                               "</KEYVALUE></INSTANCENAME>" +
                               kDiskInstance + "</VALUE.NAMEDOBJECT>")));
  const Namespace ns = Load(Document(
      kKeyDeclaration + kDiskClass +
      "<CLASS NAME='Link'><PROPERTY.REFERENCE NAME='To'><QUALIFIER NAME='Key' TYPE='boolean'>"
      "<VALUE>true</VALUE></QUALIFIER></PROPERTY.REFERENCE></CLASS><VALUE.NAMEDOBJECT>"
      "<INSTANCENAME CLASSNAME='Link'><VALUE.REFERENCE>" +
      kDiskName +
      "</VALUE.REFERENCE></INSTANCENAME><INSTANCE CLASSNAME='Link'/></VALUE.NAMEDOBJECT>"));
  EXPECT_EQ(ValueOf(OnlyInstance(ns, "Link"), "To").operator TCIMReference().GetPath(),
            "Disk.ID=\"a\"");
}

TEST(Input, TakesQualifiersOfInstancesAndOpenDateTimesWithAWarning) {
  const Outcome loaded = ReadWith(Document(
      "<CLASS NAME='A'><PROPERTY NAME='T' TYPE='datetime'/><PROPERTY NAME='I' TYPE='datetime'/>"
      "</CLASS><INSTANCE CLASSNAME='A'><QUALIFIER NAME='Q' TYPE='string'><VALUE>x</VALUE>"
      "</QUALIFIER><PROPERTY NAME='T' TYPE='datetime'><VALUE>2007****000000.******+060</VALUE>"
      "</PROPERTY><PROPERTY NAME='I' TYPE='datetime'><VALUE>000000010203**.******:000</VALUE>"
      "</PROPERTY></INSTANCE>"));
  EXPECT_EQ(loaded.warnings.size(), 2u);
  const auto instance = OnlyInstance(loaded.ns, "A");
  EXPECT_EQ(ValueOf(instance, "T").ToString(10), "20070101000000.000000+060");
  EXPECT_EQ(ValueOf(instance, "I").ToString(10), "00000001020300.000000:000");
}

TEST(Input, DeclaresQualifiersForAnything) {
  const Namespace ns = Load(Document(
      "<QUALIFIER.DECLARATION NAME='Q' TYPE='string'><SCOPE ANY='true'/>"
      "</QUALIFIER.DECLARATION><VALUE.OBJECT><QUALIFIER.DECLARATION NAME='R' TYPE='string'/>"
      "</VALUE.OBJECT>"));
  EXPECT_EQ(ns->GetQualifierDecl("Q", {})->GetScope({}), unsigned{kScopeAny});
  EXPECT_TRUE(ns->GetQualifierDecl("R", {}));
}

TEST(Input, ComesInOtherEncodings) {
  const std::string text = "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
  const std::string body =
      "<CIM CIMVERSION='2.0' DTDVERSION='2.0'><DECLARATION><DECLGROUP>"
      "<QUALIFIER.DECLARATION NAME='Q' TYPE='string'><VALUE>";
  const std::string end = "</VALUE></QUALIFIER.DECLARATION></DECLGROUP></DECLARATION></CIM>";
  const auto value = [](const std::string& document) {
    return Load(document)->GetQualifierDecl("Q", {})->GetDefaultValue({}).operator std::string();
  };
  const auto wide = [](const std::string& ascii, bool isBig) {
    std::string units;
    for (const char c : ascii)
      units += isBig ? std::string{'\0', c} : std::string{c, '\0'};
    return units;
  };
  const std::string little = "\xE4\x00\xAC\x20\x3D\xD8\x00\xDE"s;
  const std::string big = "\x00\xE4\x20\xAC\xD8\x3D\xDE\x00"s;
  const std::string head = "<?xml version='1.0' encoding='UTF-16'?>";
  EXPECT_EQ(value("\xFF\xFE" + wide(head + body, false) + little + wide(end, false)), text);
  EXPECT_EQ(value("\xFE\xFF" + wide(body, true) + big + wide(end, true)), text);
  EXPECT_EQ(value(wide(body, false) + little + wide(end, false)), text);
  EXPECT_EQ(value("<?xml version='1.0' encoding='ISO-8859-1'?>" + body + "\xE4" + end), "\xC3\xA4");
  EXPECT_EQ(WhyRefused("<?xml version='1.0' encoding='windows-1252'?>" + body + end),
            "file.xml:1: the encoding is \"windows-1252\", where UTF-8, UTF-16 or ISO-8859-1 is "
            "expected");
  EXPECT_EQ(WhyRefused(head + body + end),
            "file.xml:1: the encoding is said to be UTF-16, and isn't");
  EXPECT_EQ(WhyRefused("\xFE\xFF" + wide(body, true) + "\xD8\x3D" + wide(end, true)),
            "file.xml:1: half a character of UTF-16");
}

std::string Message(const std::string& content) {
  return "<CIM CIMVERSION='2.0' DTDVERSION='2.0'>\n<MESSAGE ID='1' PROTOCOLVERSION='1.0'>" +
         content + "</MESSAGE></CIM>";
}

std::string Answer(const std::string& operation, const std::string& content) {
  return Message("<SIMPLERSP><IMETHODRESPONSE NAME='" + operation + "'>" + content +
                 "</IMETHODRESPONSE></SIMPLERSP>");
}

TEST(Input, MayBeAnAnswerWithInstancesAlone) {
  const Outcome loaded = ReadWith(
      Answer("EnumerateInstances", "<IRETURNVALUE><VALUE.NAMEDINSTANCE>" + kDiskName +
                                       kDiskInstance + "</VALUE.NAMEDINSTANCE></IRETURNVALUE>"));
  ExpectDisk(loaded);
  EXPECT_TRUE(loaded.ns->FindClass("Disk")->FindPropertyDecl("ID")->IsKey());
  EXPECT_THAT(loaded.warnings,
              ElementsAre("file.xml: classes that are known from their instances alone: Disk",
                          "file.xml: qualifiers that the file uses and doesn't declare: Key"));
  const std::string saved = Save(*loaded.ns);
  EXPECT_EQ(saved.find("<CLASS "), std::string::npos);
  EXPECT_EQ(Save(*Load(saved)), saved);
  EXPECT_EQ(SizeOfDisk(ReadWith(saved)), "5");
}

TEST(Input, MayBeAnAnswerWithClassesOrARequestWithThem) {
  const std::string made = "<CLASS NAME='A' SUPERCLASS='B'/>";
  for (const std::string& document :
       {Answer("GetClass", "<IRETURNVALUE>" + made + "</IRETURNVALUE>"),
        Message("<SIMPLEREQ><IMETHODCALL NAME='CreateClass'>" + LocalPath("root") +
                "<IPARAMVALUE NAME='NewClass'>" + made +
                "</IPARAMVALUE></IMETHODCALL></SIMPLEREQ>")})
    EXPECT_TRUE(ReadWith(document).ns->FindClass("A")) << document;
  EXPECT_EQ(ReadWith(Answer("EnumerateClasses", "<IRETURNVALUE/>")).ns->GetClassCount({}), 0u);
}

TEST(Input, TellsWhyAMessageHoldsNothing) {
  const std::string expected = ", where classes, instances or qualifier declarations are expected";
  EXPECT_EQ(WhyRefused(Answer("GetClass", "<ERROR CODE='6' DESCRIPTION='none'/>")),
            "file.xml:2: MESSAGE: the answer to \"GetClass\" is the error 6 \"none\"" + expected);
  EXPECT_EQ(
      WhyRefused(
          Answer("EnumerateClassNames", "<IRETURNVALUE><CLASSNAME NAME='A'/></IRETURNVALUE>")),
      "file.xml:2: MESSAGE: the answer to \"EnumerateClassNames\" holds CLASSNAME" + expected);
  EXPECT_EQ(WhyRefused(Message("")), "file.xml:2: MESSAGE: the message is empty" + expected);
}

}  // namespace

}  // namespace hwxtest
