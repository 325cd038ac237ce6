// What is written in the Managed Object Format reads as that format, and says what there is.

#include "providers/container/MofWriter.h"

#include <limits>
#include <string>

#include "support/MofGrammar.h"
#include "support/RandomNamespace.h"
#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using ::testing::HasSubstr;

std::string MofText(TMemoryNamespace& ns) {
  container::TStringSink sink;
  container::WriteMof(ns, sink, "file.mof");
  return sink.Bytes();
}

// A namespace with one class, whose property "Value" has that default value.
Namespace HolderOf(const TCIMValue& value) {
  const Namespace ns = TMemoryNamespace::Create("root/test");
  TClassBuilder(ns, "Holder").PropertyWithDefault("Value", value).Commit();
  return ns;
}

std::string Written(const TCIMValue& value) {
  return ReadMof(MofText(*HolderOf(value))).classes.at("Holder").properties.at("Value").value;
}

TEST(MofWriter, WritesDeclarationsClassesAndInstances) {
  const Namespace ns = Load(Document(
      "<LOCALNAMESPACEPATH><NAMESPACE NAME='root'/><NAMESPACE NAME='x'/></LOCALNAMESPACEPATH>"
      "<QUALIFIER.DECLARATION NAME='Key' TYPE='boolean' OVERRIDABLE='false'><SCOPE PROPERTY='true' "
      "REFERENCE='true'/><VALUE>false</VALUE></QUALIFIER.DECLARATION>"
      "<QUALIFIER.DECLARATION NAME='Values' TYPE='string' ISARRAY='true'/>"
      "<CLASS NAME='Disk' SUPERCLASS='Device'><PROPERTY NAME='ID' TYPE='string'><QUALIFIER "
      "NAME='Key' TYPE='boolean'><VALUE>true</VALUE></QUALIFIER></PROPERTY>"
      "<PROPERTY.ARRAY NAME='Sizes' TYPE='uint16' ARRAYSIZE='4'><QUALIFIER NAME='Values' "
      "TYPE='string' OVERRIDABLE='false'><VALUE.ARRAY><VALUE>a</VALUE><VALUE>b</VALUE>"
      "</VALUE.ARRAY></QUALIFIER><VALUE.ARRAY><VALUE>1</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"
      "<PROPERTY.REFERENCE NAME='Next' REFERENCECLASS='Disk'/>"
      "<METHOD NAME='Wipe' TYPE='uint32'><PARAMETER.REFERENCE NAME='With' REFERENCECLASS='Disk'/>"
      "<PARAMETER.ARRAY NAME='Passes' TYPE='uint8' ARRAYSIZE='3'/></METHOD></CLASS>"
      "<VALUE.NAMEDOBJECT><INSTANCENAME CLASSNAME='Disk'><KEYBINDING NAME='ID'><KEYVALUE>a\"b"
      "</KEYVALUE></KEYBINDING></INSTANCENAME><INSTANCE CLASSNAME='Disk'>"
      "<PROPERTY.ARRAY NAME='Sizes' TYPE='uint16'/><PROPERTY.REFERENCE NAME='Next'>"
      "<VALUE.REFERENCE><LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME='y'/>"
      "</LOCALNAMESPACEPATH><INSTANCENAME CLASSNAME='Disk'><KEYBINDING NAME='ID'><KEYVALUE>a\"b"
      "</KEYVALUE></KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH></VALUE.REFERENCE>"
      "</PROPERTY.REFERENCE></INSTANCE></VALUE.NAMEDOBJECT>"));
  const Mof mof = ReadMof(MofText(*ns));
  EXPECT_EQ(mof.pragmas.at("namespace"), "\"root/x\"");
  const Mof::Element& key = mof.qualifierDecls.at("Key");
  EXPECT_EQ(key.declaration + " = " + key.value, "boolean = false");
  EXPECT_EQ(key.qualifiers.at("scope"), "property , reference");
  EXPECT_EQ(key.qualifiers.at("flavor"), "DisableOverride , ToSubclass");
  EXPECT_EQ(mof.qualifierDecls.at("Values").declaration, "string []");
  const Mof::Class& disk = mof.classes.at("Disk");
  EXPECT_EQ(disk.superclass, "Device");
  EXPECT_EQ(disk.properties.at("ID").qualifiers.at("Key"), "true");
  EXPECT_EQ(disk.properties.at("Sizes").declaration, "uint16 [4]");
  EXPECT_EQ(disk.properties.at("Sizes").value, "{1}");
  EXPECT_EQ(disk.properties.at("Sizes").qualifiers.at("Values"),
            "{\"a\",\"b\"} DisableOverride ToSubclass");
  EXPECT_EQ(disk.properties.at("Next").declaration, "Disk REF");
  EXPECT_EQ(disk.methods.at("Wipe").declaration, "uint32");
  EXPECT_EQ(disk.parameters.at("Wipe").at("With").declaration, "Disk REF");
  EXPECT_EQ(disk.parameters.at("Wipe").at("Passes").declaration, "uint8 [3]");
  ASSERT_EQ(mof.instances.size(), 1u);
  EXPECT_EQ(mof.instances[0].className, "Disk");
  EXPECT_EQ(mof.instances[0].values.at("ID"), "\"a\"b\"");
  EXPECT_EQ(mof.instances[0].values.at("Sizes"), "null");
  EXPECT_EQ(mof.instances[0].values.at("Next"), "\"y:Disk.ID=\"a\\\"b\"\"");
}

TEST(MofWriter, WritesValuesOfEveryType) {
  EXPECT_EQ(Written(true), "true");
  EXPECT_EQ(Written(static_cast<signed char>(-5)), "-5");
  EXPECT_EQ(Written(18446744073709551615UL), "18446744073709551615");
  EXPECT_EQ(Written(1.0), "1.0");
  EXPECT_EQ(Written(1e300), "1.0e+300");
  EXPECT_EQ(Written(TCIMChar16(static_cast<unsigned short>('\''))), "'''");
  EXPECT_EQ(Written(TCIMDateTime(2007, 1, 2, 3, 4, 5, 6, 60)), "\"20070102030405.000006+060\"");
  EXPECT_EQ(Written(std::string("\"\\\n\t\x01'\xC3\xA4")), "\"\"\\\n\t\x01'\xC3\xA4\"");
  EXPECT_EQ(Written(TCIMValue(ArrayOf(Type::kCIMTypeString), 0,
                              {std::string("a"), Null(Type::kCIMTypeString)})),
            "{\"a\",null}");
  EXPECT_EQ(Written(Null(Type::kCIMTypeString)), "");
}

TEST(MofWriter, TellsInACommentWhatItHasNoWordsFor) {
  EXPECT_THAT(MofText(*HolderOf(std::numeric_limits<double>::infinity())),
              HasSubstr("= NULL /* INF */;"));
  EXPECT_THAT(MofText(*HolderOf(std::string("\xFF"))),
              HasSubstr("\"\\x00FF\" /* holds bytes that are no UTF-8"));
  EXPECT_THAT(MofText(*HolderOf(TCIMDateTime())), HasSubstr("= NULL /* cleared */;"));
}

TEST(MofWriter, WritesWhatReadsAsTheFormatWhateverThereIs) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    SCOPED_TRACE(seed);
    const std::string text = MofText(*RandomNamespace(seed));
    EXPECT_NO_THROW(ReadMof(text)) << text;
    if (HasFailure()) break;
  }
}

}  // namespace

}  // namespace hwxtest
