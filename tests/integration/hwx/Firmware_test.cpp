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

const std::string kSampleDump = HWX_TEST_SAMPLE_DUMP;

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

TEST_F(FirmwareTest, DumpsToTheOutput) {
  fHwx.On(MakeRackServer(fMachine.Path()));
  Succeed({"firmware", "dump", fDump});
  EXPECT_EQ(Succeed({"firmware", "dump", "-"}).fOut, FileText(fDump));
}

TEST_F(FirmwareTest, DumpsWhatDmidecodeReads) {
  if (!HasDmidecode()) GTEST_SKIP() << "SKIPPED: dmidecode is not installed";
  fHwx.On(MakeRackServer(fMachine.Path()));
  Succeed({"firmware", "dump", fDump});
  EXPECT_EQ(Dmidecode("-s system-serial-number --from-dump " + fDump), "KQ12345\n");
  ExpectDmidecodeAgrees(fDump);
}

TEST_F(FirmwareTest, DumpsADumpToTheByte) {
  Succeed({"--firmware", kSampleDump, "firmware", "dump", fDump});
  EXPECT_EQ(FileText(fDump), FileText(kSampleDump));
}

TEST_F(FirmwareTest, DumpsOverAFileOnlyWhenForced) {
  MakeFile(fDump, "old");
  EXPECT_EQ(FailureOf({"--firmware", kSampleDump, "firmware", "dump", fDump}),
            "hwx: " + fDump + " can't be written: it is there already; --force replaces it\n");
  EXPECT_EQ(FileText(fDump), "old");
  Succeed({"--firmware", kSampleDump, "firmware", "dump", "--force", fDump});
  EXPECT_EQ(FileText(fDump), FileText(kSampleDump));
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

// Sound structures, then an entry without a length.
SmbiosTables DamagedTables() {
  return SmbiosTables()
      .AddBios("Maker", "-[A3E105A-1.05]-", "01/02/2020")
      .AddSystem({"Maker", "Box -[7915AC1]-", "v1", "KQ12345"})
      .AddRaw(Bytes(6, 0))
      .Add(3, Bytes(9), {});
}

TEST_F(FirmwareTest, ReadsWhatStandsInFrontOfADamage) {
  DamagedTables().WriteDump(fDump);
  const std::string warning = "hwx: warning: " + fDump +
                              ": structure 2 at byte 120 is shorter than its header; 2 structures "
                              "in front of it can be read\n";
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"firmware", "show", "--json"},
        {"identity", "--json"},
        {"show", "--format", "json"},
        {"collect", "-o", fScratch / "machine.xml"},
        {"firmware", "dump", fScratch / "copy"}}) {
    SCOPED_TRACE(command[0]);
    fHwx.On(MakeContainer(fMachine.Path()));
    std::vector<std::string> arguments = {"--firmware", fDump};
    arguments.insert(arguments.end(), command.begin(), command.end());
    const HwxResult result = fHwx.Run(arguments);
    EXPECT_EQ(result.fStatus, 0);
    EXPECT_EQ(result.fErr, warning);
    if (command[0] == "identity") {
      EXPECT_EQ(result.Json()["serialNumber"]["value"], "KQ12345");
      EXPECT_EQ(result.Json()["biosIdentifier"]["value"], "A3");
      EXPECT_EQ(result.Json()["machineTypeByBios"]["value"], "7141");
    }
  }
  EXPECT_EQ(FileText(fScratch / "copy"), FileText(fDump));
}

TEST_F(FirmwareTest, BlamesNoDamageForWhatSoundStructuresLeaveOut) {
  SmbiosTables()
      .AddBios("Maker", "-[A3E105A-1.05]-", "01/02/2020")
      .AddSystem({"Maker", "Box -[7915AC1]-", "v1", ""})
      .AddRaw(Bytes(6, 0))
      .WriteDump(fDump);
  fHwx.On(MakeContainer(fMachine.Path()));
  const json answers = fHwx.Run({"--firmware", fDump, "identity", "--json"}).Json();
  EXPECT_EQ(answers["serialNumber"]["reason"], "the firmware tables hold no serial number");
}

TEST_F(FirmwareTest, ReadsFewerBytesThanAnnouncedUpToTheEndOfAStructure) {
  const Bytes dump = DamagedTables().Dump32();
  WriteBytes(fDump, Bytes(dump.begin(), dump.begin() + 32 + 120));
  const HwxResult plain = fHwx.Run({"firmware", "show", "--firmware", fDump});
  EXPECT_EQ(plain.fStatus, 0);
  EXPECT_EQ(plain.fErr, "");
  const HwxResult verbose = fHwx.Run(
      {"--verbose", "--log-dir", fScratch / "log", "firmware", "show", "--firmware", fDump});
  EXPECT_EQ(verbose.fStatus, 0);
  EXPECT_THAT(verbose.fErr, StartsWith("hwx: note: " + fDump + ": 120 of "));
  EXPECT_EQ(verbose.fOut, plain.fOut);
}

TEST_F(FirmwareTest, ReadsABareTableWithAWarning) {
  WriteBytes(fDump, SmbiosTables()
                        .AddBios("Maker", "1.05", "01/02/2020")
                        .AddSystem({"Maker", "Box 5", "v1", "KQ12345"})
                        .Table());
  fHwx.On(MakeContainer(fMachine.Path()));
  const HwxResult result = fHwx.Run({"identity", "--json", "--firmware", fDump});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_THAT(result.fErr, StartsWith("hwx: warning: " + fDump + ": there is no entry point, "));
  EXPECT_EQ(result.Json()["serialNumber"]["value"], "KQ12345");
}

TEST_F(FirmwareTest, ReadsTheEntryPointOfBeforeVersion21) {
  WriteBytes(fDump, SmbiosTables().AddSystem({"Maker", "Box 5", "v1", "KQ12345"}).LegacyDump());
  fHwx.On(MakeContainer(fMachine.Path()));
  EXPECT_EQ(Succeed({"--firmware", fDump, "identity", "--json"}).Json()["serialNumber"]["value"],
            "KQ12345");
}

TEST_F(FirmwareTest, ReadsSoundTablesThatDoNotDescribeTheSystem) {
  SmbiosTables().AddBios("Maker", "-[A3E105A-1.05]-", "01/02/2020").AddEnd().WriteDump(fDump);
  fHwx.On(MakeContainer(fMachine.Path()));
  const json answers = Succeed({"--firmware", fDump, "identity", "--json"}).Json();
  EXPECT_EQ(answers["biosIdentifier"]["value"], "A3");
  EXPECT_THAT(answers["serialNumber"]["reason"], StartsWith("no system information: "));
  EXPECT_THAT(Succeed({"--firmware", fDump, "show", "--class", "CIM_BIOSElement"}).fOut,
              HasSubstr("[A3E105A-1.05]"));
  Succeed({"--firmware", fDump, "collect", "-o", fScratch / "machine.xml"});
}

TEST_F(FirmwareTest, ShowsAsAGuessWhatANameOnlySeemsToHold) {
  fHwx.On(MakeContainer(fMachine.Path()));
  SmbiosTables().AddSystem({"Maker", "AB305CD", "v1", "KQ12345"}).AddEnd().WriteDump(fDump);
  const json guess = Succeed({"--firmware", fDump, "identity", "--json", "--explain"}).Json();
  EXPECT_EQ(guess["machineType"], json({{"value", "AB30"}, {"guess", true}}));
  EXPECT_EQ(guess["model"], json({{"value", "5CD"}, {"guess", true}}));
  EXPECT_EQ(guess["machineTypeByBios"], json({{"value", "AB30"}, {"guess", true}}));
  EXPECT_EQ(guess["explanations"]["machineType"]["sources"][0]["form"],
            "a product name of seven characters");
  EXPECT_THAT(Succeed({"--firmware", fDump, "identity", "--explain"}).fOut,
              HasSubstr("AB30 (a guess: a product name of seven characters)\n"));
  SmbiosTables().AddSystem({"Maker", "XX-7816", "v1", "KQ12345"}).AddEnd().WriteDump(fDump);
  const json none = Succeed({"--firmware", fDump, "identity", "--json"}).Json();
  EXPECT_EQ(none["machineTypeByBios"]["value"], nullptr);
  EXPECT_EQ(none["machineTypeByBios"]["reason"],
            "\"816\" in \"XX-7816\" is no machine type: not four letters or digits");
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
  EXPECT_THAT(Succeed({"--firmware", kSampleDump, "firmware", "show"}).fOut,
              StartsWith(kSampleDump));
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
