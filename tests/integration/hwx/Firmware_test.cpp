// `hwx firmware` and `hwx identity --explain`, as the real program with the real provider.

#include <gmock/gmock.h>

#include "integration/hwx/HwxTest.h"
#include "support/Dmidecode.h"
#include "support/FileText.h"
#include "support/Machines.h"

namespace hwxtest {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string kSample = HWX_TEST_SAMPLE_DUMP;

class FirmwareTest : public HwxTest {
 protected:
  std::string TablesOf(const TemporaryDirectory& machine) const {
    return machine / "sys/firmware/dmi/tables";
  }

  const TemporaryDirectory fMachine;
  const TemporaryDirectory fScratch;
  const std::string fDump = fScratch / "dump";
};

TEST_F(FirmwareTest, DumpsWhatTheOptionReads) {
  fHwx.On(MakeRackServer(fMachine.Path()));
  EXPECT_EQ(Succeed({"firmware", "dump", fDump}).fOut, "");
  const TemporaryDirectory elsewhere;
  fHwx.On(elsewhere.Path());
  const json answers = Succeed({"identity", "--json", "--firmware", fDump}).Json();
  EXPECT_EQ(answers["serialNumber"]["value"], "KQ12345");
  EXPECT_EQ(answers["biosIdentifier"]["value"], "EX");
}

TEST_F(FirmwareTest, DumpsWhatDmidecodeReads) {
  if (!HasDmidecode()) GTEST_SKIP() << "SKIPPED: dmidecode is not installed";
  fHwx.On(MakeRackServer(fMachine.Path()));
  Succeed({"firmware", "dump", fDump});
  EXPECT_EQ(Dmidecode("-s system-serial-number --from-dump " + fDump), "KQ12345\n");
  ExpectDmidecodeAgrees(fDump);
}

TEST_F(FirmwareTest, DumpsADumpToTheByte) {
  Succeed({"--firmware", kSample, "firmware", "dump", fDump});
  EXPECT_EQ(FileText(fDump), FileText(kSample));
}

TEST_F(FirmwareTest, DumpsOverAFileOnlyWhenForced) {
  MakeFile(fDump, "old");
  EXPECT_EQ(FailureOf({"--firmware", kSample, "firmware", "dump", fDump}),
            "hwx: " + fDump + " can't be written: it is there already; --force replaces it\n");
  EXPECT_EQ(FileText(fDump), "old");
  Succeed({"--firmware", kSample, "firmware", "dump", "--force", fDump});
  EXPECT_EQ(FileText(fDump), FileText(kSample));
}

TEST_F(FirmwareTest, DumpsNothingOfAMachineWithoutTables) {
  fHwx.On(MakeContainer(fMachine.Path()));
  const std::string reason = "no firmware tables: " + TablesOf(fMachine) + " is absent\n";
  EXPECT_EQ(FailureOf({"firmware", "dump", fDump}), "hwx: " + reason);
  EXPECT_EQ(FailureOf({"firmware", "show"}), "hwx: " + reason);
  EXPECT_FALSE(std::filesystem::exists(fDump));
}

TEST_F(FirmwareTest, DumpsNothingOfDamagedTables) {
  fHwx.On(MakeBrokenMachine(fMachine.Path()));
  EXPECT_THAT(FailureOf({"firmware", "dump", fDump}), StartsWith("hwx: malformed: "));
  EXPECT_THAT(FailureOf({"firmware", "show", "--json"}), StartsWith("hwx: malformed: "));
  EXPECT_FALSE(std::filesystem::exists(fDump));
}

TEST_F(FirmwareTest, NamesTheOptionWhoseTablesAreBad) {
  EXPECT_EQ(FailureOf({"firmware", "show", "--firmware", "/nowhere"}),
            "hwx: --firmware /nowhere: no firmware tables: /nowhere is absent\n");
}

TEST_F(FirmwareTest, NeedsRootForLockedTables) {
  const HwxTree tree(HwxTree::kCopies);
  tree.Use(fHwx);
  fHwx.On(MakeLockedMachine(fMachine.Path())).Unprivileged();
  EXPECT_THAT(FailureOf({"firmware", "show"}), StartsWith("hwx: needs root: "));
}

TEST_F(FirmwareTest, ShowsTheStructuresWithTheirStrings) {
  fHwx.On(MakeRackServer(fMachine.Path()));
  const std::string text = Succeed({"firmware", "show"}).fOut;
  EXPECT_THAT(text, StartsWith(TablesOf(fMachine) + ": version 3.2, 64-bit entry point, "));
  EXPECT_THAT(text, HasSubstr("\nType 1, System Information, handle 0x0001, "));
  EXPECT_THAT(text, HasSubstr("  2  Example Rack Server 3650 -[7915AC1]-\n"));
  const json shown = Succeed({"firmware", "show", "--json"}).Json();
  EXPECT_EQ(shown["structures"][0]["strings"][1], "-[EXE105A-1.05]-");
  EXPECT_EQ(shown["structures"].back()["name"], "End-of-Table");
}

TEST_F(FirmwareTest, NeedsNoProvider) {
  const HwxTree tree;
  tree.Remove("libplugin.nsp.so");
  tree.Use(fHwx);
  EXPECT_THAT(Succeed({"--firmware", kSample, "firmware", "show"}).fOut, StartsWith(kSample));
}

TEST_F(FirmwareTest, ExplainsAnIdentityByItsSources) {
  fHwx.On(MakeRackServer(fMachine.Path()));
  const std::string plain = Succeed({"identity"}).fOut;
  const std::string text = Succeed({"identity", "--explain"}).fOut;
  EXPECT_EQ(text, plain +
                      "\nMachine type\n"
                      "  schema query  taken    7915\n"
                      "  type 1        agrees   7915\n"
                      "  type 0 table  missing  (no machine type is known for \"EX\")\n"
                      "  sysfs         agrees   7915\n"
                      "\nModel\n"
                      "  schema query  taken   AC1\n"
                      "  type 1        agrees  AC1\n"
                      "  sysfs         agrees  AC1\n"
                      "\nProduct name\n"
                      "  schema query  taken   Example Rack Server 3650 -[7915AC1]-\n"
                      "  type 1        agrees  Example Rack Server 3650 -[7915AC1]-\n"
                      "  sysfs         agrees  Example Rack Server 3650 -[7915AC1]-\n"
                      "\nSerial number\n"
                      "  schema query  taken   KQ12345\n"
                      "  type 1        agrees  KQ12345\n"
                      "  sysfs         agrees  KQ12345\n"
                      "\nBIOS identifier\n"
                      "  type 0  taken    EX\n"
                      "  sysfs   missing  (" +
                      (fMachine / "sys/class/dmi/id/bios_version") +
                      " is absent)\n"
                      "\nMachine type by BIOS\n"
                      "  type 0 table  missing  (no machine type is known for \"EX\")\n"
                      "  type 1        taken    7915\n");
}

TEST_F(FirmwareTest, ExplainsToProgramsToo) {
  fHwx.On(MakeFillerMachine(fMachine.Path()));
  json answers = Succeed({"identity", "--json", "--explain"}).Json();
  const json serial = answers["explanations"]["serialNumber"];
  EXPECT_EQ(serial["disagree"], false);
  EXPECT_EQ(serial["sources"][0],
            json({{"source", "schema query"}, {"verdict", "filler"}, {"value", "Default string"}}));
  answers.erase("explanations");
  EXPECT_EQ(answers, Succeed({"identity", "--json"}).Json());
}

TEST_F(FirmwareTest, ExplainsAProductNameThatBreaksOff) {
  AddDebian(fMachine.Path(), "odd");
  AddFirmware(fMachine.Path(), {"Maker", "Box -", "1", "KQ12345", "", ""});
  // What the library leaves behind when it is thrown out of a read is known, and not looked at.
  fHwx.On(fMachine.Path()).Set("ASAN_OPTIONS", "detect_leaks=0");
  const json answers = Succeed({"identity", "--json", "--explain"}).Json();
  const std::string reason = "no machine type in \"Box -\", which breaks off behind its dash";
  EXPECT_EQ(answers["explanations"]["machineType"]["sources"][1]["reason"], reason);
  EXPECT_EQ(answers["machineTypeByBios"]["reason"], "the product name breaks off behind its dash");
  EXPECT_EQ(answers["serialNumber"]["value"], "KQ12345");
}

}  // namespace
}  // namespace hwxtest
