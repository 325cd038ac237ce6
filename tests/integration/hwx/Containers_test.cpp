// Files that others wrote, and what becomes of them: show and diff.

#include <gmock/gmock.h>

#include "integration/hwx/HwxProcess.h"
#include "support/FileText.h"

namespace hwxtest {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;

const std::string kOthersDisk =
    "<CLASS NAME=\"EX_Disk\"><PROPERTY NAME=\"ID\" TYPE=\"string\"><QUALIFIER NAME=\"Key\" "
    "TYPE=\"boolean\"><VALUE>true</VALUE></QUALIFIER></PROPERTY><PROPERTY NAME=\"Removable\" "
    "TYPE=\"boolean\"><VALUE>true</VALUE></PROPERTY></CLASS>\n";
const std::string kOthersInstance =
    "<INSTANCE CLASSNAME=\"EX_Disk\"><PROPERTY NAME=\"ID\" TYPE=\"string\"><VALUE>sda</VALUE>"
    "</PROPERTY><PROPERTY NAME=\"Removable\" TYPE=\"boolean\"/></INSTANCE>\n";

std::string OthersDocument(const std::string& groups) {
  return "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION>\n" + groups +
         "</DECLARATION></CIM>\n";
}

std::string OthersGroup(const std::string& content) {
  return "<DECLGROUP>\n" + content + "</DECLGROUP>";
}

class ContainersTest : public testing::Test {
 protected:
  std::string File(const std::string& name, const std::string& text) const {
    MakeFile(fScratch / name, text);
    return fScratch / name;
  }

  TemporaryDirectory fScratch;
  HwxProcess fHwx;
};

TEST_F(ContainersTest, ShowTellsWhatAFileLeavesToOthers) {
  const std::string file =
      File("disk.xml", OthersDocument(OthersGroup(kOthersInstance + kOthersDisk)));
  const HwxResult result = fHwx.Run({"show", file});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_THAT(result.fOut, HasSubstr("sda"));
  EXPECT_EQ(result.fErr,
            "hwx: warning: " + file + ": qualifiers that the file uses and doesn't declare: Key\n");
}

// A null where the class has a default stays one, however often it is copied.
TEST_F(ContainersTest, NullsStayNull) {
  const std::string file =
      File("disk.xml", OthersDocument(OthersGroup(kOthersDisk + kOthersInstance)));
  const std::string null = "<PROPERTY NAME=\"Removable\" TYPE=\"boolean\"></PROPERTY>";
  const HwxResult whole = fHwx.Run({"show", file, "--format", "xml"});
  EXPECT_THAT(whole.fOut, HasSubstr(null));
  const HwxResult part = fHwx.Run({"show", file, "--class", "EX_Disk", "--format", "xml"});
  EXPECT_EQ(part.fOut, whole.fOut);
  const std::string copy = File("copy.xml", part.fOut);
  EXPECT_EQ(fHwx.Run({"diff", file, copy}).fStatus, 0);
}

TEST_F(ContainersTest, AClassThatIsLeftToOthersHasItsSubclasses) {
  const std::string file = File(
      "tape.xml", OthersDocument(OthersGroup(
                      "<CLASS NAME=\"EX_Tape\" SUPERCLASS=\"EX_Media\"><PROPERTY NAME=\"ID\" "
                      "TYPE=\"string\"/></CLASS><INSTANCE CLASSNAME=\"EX_Tape\"><PROPERTY "
                      "NAME=\"ID\" TYPE=\"string\"><VALUE>st0</VALUE></PROPERTY></INSTANCE>")));
  const HwxResult result = fHwx.Run({"show", file, "--class", "EX_Media"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_THAT(result.fOut, HasSubstr("st0"));
  EXPECT_EQ(fHwx.Run({"show", file, "--class", "EX_Other"}).fStatus, 1);
}

TEST_F(ContainersTest, ShowWritesMof) {
  const std::string file =
      File("disk.xml", OthersDocument(OthersGroup(kOthersDisk + kOthersInstance)));
  const HwxResult result = fHwx.Run({"show", file, "--format", "mof"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_THAT(result.fOut, HasSubstr("instance of EX_Disk {\n  ID = \"sda\";\n"
                                     "  Removable = NULL;\n};\n"));
}

TEST_F(ContainersTest, OneOfSeveralNamespacesIsChosen) {
  const auto group = [](const std::string& name, const std::string& content) {
    return "<DECLGROUP><LOCALNAMESPACEPATH><NAMESPACE NAME=\"" + name +
           "\"/></LOCALNAMESPACEPATH>" + content + "</DECLGROUP>";
  };
  const std::string file = File(
      "two.xml", OthersDocument(group("one", "") + group("two", kOthersDisk + kOthersInstance)));
  const HwxResult none = fHwx.Run({"show", file});
  EXPECT_EQ(none.fStatus, 1);
  EXPECT_EQ(none.fErr, "hwx: " + file +
                           ": holds the namespaces \"one\", \"two\", one of which has to be "
                           "chosen\n");
  EXPECT_THAT(fHwx.Run({"show", file, "--namespace", "two"}).fOut, HasSubstr("sda"));
}

TEST_F(ContainersTest, MemoryIsLimited) {
  std::string instances;
  for (int i = 0; i < 20000; ++i)
    instances += "<INSTANCE CLASSNAME=\"EX_A\"/>\n";
  const std::string file =
      File("many.xml", OthersDocument(OthersGroup("<CLASS NAME=\"EX_A\"/>\n" + instances)));
  const HwxResult result = fHwx.Run({"show", file, "--max-memory", "4"});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fOut, "");
  EXPECT_THAT(result.fErr, MatchesRegex("hwx: .*/many.xml:.* takes more than 4 MiB of memory, "
                                        "which is the limit.*\n"));
}

TEST_F(ContainersTest, AMessageWithoutObjectsIsTold) {
  const std::string file =
      File("answer.xml",
           "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1\" "
           "PROTOCOLVERSION=\"1.0\"><SIMPLERSP><IMETHODRESPONSE NAME=\"GetClass\"><ERROR "
           "CODE=\"6\" DESCRIPTION=\"none\"/></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>");
  const HwxResult result = fHwx.Run({"show", file});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fErr,
            "hwx: " + file +
                ":1: MESSAGE: the answer to \"GetClass\" is the error 6 \"none\", where classes, "
                "instances or qualifier declarations are expected\n");
}

}  // namespace
}  // namespace hwxtest
