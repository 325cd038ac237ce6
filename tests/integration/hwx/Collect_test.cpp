// Collecting a machine in a file, and reading it back: collect, show, diff.

#include <gmock/gmock.h>

#include <filesystem>

#include "integration/hwx/HwxProcess.h"
#include "support/FileText.h"
#include "support/Machines.h"

namespace hwxtest {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

class CollectTest : public testing::Test {
 protected:
  CollectTest() { fHwx.On(MakeRackServer(fMachine.Path())); }

  std::string Collect(const std::string& name) const {
    const std::string path = fScratch / name;
    const HwxResult result = fHwx.Run({"collect", "-o", path});
    EXPECT_EQ(result.fStatus, 0) << result.fErr;
    EXPECT_THAT(result.fOut, MatchesRegex("Collected [0-9]+ instances of [0-9]+ classes in .*\n"));
    EXPECT_EQ(result.fErr, "");
    return path;
  }

  // The same with the firmware of a machine that has modules of memory.
  static std::vector<std::string> OnSample(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--firmware", HWX_TEST_SAMPLE_DUMP});
    return arguments;
  }

  // What changes from one reading of a machine to the next.
  std::vector<std::string> Diff(const std::string& oldPath, const std::string& newPath) const {
    return {"diff", oldPath, newPath, "--ignore", "QORSG_OperatingSystem.LocalDateTime"};
  }

  TemporaryDirectory fMachine;
  TemporaryDirectory fScratch;
  HwxProcess fHwx;
};

TEST_F(CollectTest, KeepsWhatTheMachineShows) {
  const std::string file = Collect("machine.xml");
  for (const char* format : {"table", "json", "jsonl", "csv", "xml"}) {
    const HwxResult live =
        fHwx.Run({"show", "--class", "QORSG_ComputerSystem", "--format", format});
    const HwxResult kept =
        fHwx.Run({"show", file, "--class", "QORSG_ComputerSystem", "--format", format});
    EXPECT_EQ(live.fStatus, 0);
    EXPECT_EQ(kept.fStatus, 0);
    EXPECT_THAT(live.fOut, HasSubstr("KQ12345")) << format;
    EXPECT_EQ(live.fOut, kept.fOut) << format;
  }
}

TEST_F(CollectTest, CompressesFilesThatSaySo) {
  const std::string compressed = Collect("machine.xml.gz");
  EXPECT_THAT(FileText(compressed), StartsWith("\x1F\x8B"));
  const std::string plain = Collect("machine.xml");
  EXPECT_THAT(FileText(plain), StartsWith("<?xml"));
  EXPECT_EQ(fHwx.Run(Diff(plain, compressed)).fStatus, 0);
}

TEST_F(CollectTest, KnowsCompressedFilesByTheirContent) {
  const std::string compressed = Collect("machine.xml.gz");
  std::filesystem::rename(compressed, fScratch / "renamed.xml");
  const std::string plain = Collect("plain.xml");
  std::filesystem::rename(plain, fScratch / "plain.xml.gz");
  EXPECT_EQ(fHwx.Run(Diff(fScratch / "renamed.xml", fScratch / "plain.xml.gz")).fStatus, 0);
}

TEST_F(CollectTest, WritesToTheOutputAndReadsTheInput) {
  for (const char* output : {"-", "/dev/stdout"}) {
    const HwxResult result = fHwx.Run({"collect", "-o", output});
    EXPECT_EQ(result.fStatus, 0);
    EXPECT_THAT(result.fOut, StartsWith("<?xml"));
    EXPECT_THAT(result.fOut, EndsWith("</CIM>\n"));
  }
  const std::string file = Collect("machine.xml");
  fHwx.InputFrom(file);
  const std::vector<std::string> shown = {"show", "-", "--class", "QORSG_ComputerSystem"};
  EXPECT_THAT(fHwx.Run(shown).fOut, HasSubstr("KQ12345"));
  EXPECT_EQ(fHwx.Run(Diff("-", file)).fStatus, 0);
}

TEST_F(CollectTest, IsQuietWhenAskedTo) {
  const HwxResult result = fHwx.Run({"collect", "--quiet", "-o", fScratch / "machine.xml"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_EQ(result.fOut + result.fErr, "");
  EXPECT_TRUE(std::filesystem::exists(fScratch / "machine.xml"));
}

TEST_F(CollectTest, ShowsTheMachineOnOneScreen) {
  const HwxResult shown = fHwx.Run(OnSample({"summary"}));
  EXPECT_EQ(shown.fStatus, 0) << shown.fErr;
  EXPECT_THAT(shown.fOut,
              StartsWith("Machine      Example Systems Example Rack Server 3650 -[7915AC1]-\n"
                         "             type 7915, model AC1\n"
                         "             serial number KQ12345\n"
                         "Firmware     Example Systems, -[EXE143B-2.10]-, 2022-03-14\n"));
  EXPECT_THAT(shown.fOut, HasSubstr("Memory       32 GiB in 2 modules, 2 of 4 slots are empty\n"));
  const auto printed = fHwx.Run(OnSample({"summary", "--json"})).Json();
  EXPECT_EQ(printed["machine"][2]["text"], "serial number KQ12345");
  EXPECT_THAT(fHwx.Run(OnSample({"summary", "--color", "always"})).fOut,
              StartsWith("\033[1mMachine\033[0m"));
}

TEST_F(CollectTest, TellsOfItsClasses) {
  const HwxResult classes = fHwx.Run({"classes"});
  EXPECT_EQ(classes.fStatus, 0) << classes.fErr;
  EXPECT_THAT(classes.fOut, HasSubstr("A memory module that is plugged in."));
  const HwxResult described = fHwx.Run({"describe", "cim_physicalmemory"});
  EXPECT_EQ(described.fStatus, 0) << described.fErr;
  EXPECT_THAT(described.fOut, HasSubstr("  Capacity  uint64, in Bytes\n"));
  EXPECT_THAT(described.fOut, HasSubstr("8 DIMM, "));
  EXPECT_EQ(fHwx.Run({"describe", "CIM_Crad"}).fErr,
            "hwx: there is no class CIM_Crad; did you mean CIM_Card?\n");
}

TEST_F(CollectTest, ReplacesAFileAsAWhole) {
  MakeFile(fScratch / "machine.xml", std::string(1 << 20, 'x'));
  const std::string file = Collect("machine.xml");
  EXPECT_THAT(FileText(file), EndsWith("</CIM>\n"));
}

TEST_F(CollectTest, NeedsAFileName) {
  const HwxResult result = fHwx.Run({"collect"});
  EXPECT_EQ(result.fStatus, 2);
  EXPECT_THAT(result.fErr, HasSubstr("--output is required"));
}

TEST_F(CollectTest, FailsWhereNoFileCanBe) {
  const HwxResult result = fHwx.Run({"collect", "-o", fScratch / "absent/machine.xml"});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fOut, "");
  EXPECT_THAT(result.fErr, HasSubstr("absent/machine.xml: "));
}

TEST_F(CollectTest, NeedsTheProviderOfContainers) {
  const HwxTree tree;
  tree.Use(fHwx);
  tree.Remove("libcontainer.nsp.so");
  const HwxResult result = fHwx.Run({"collect", "-o", fScratch / "machine.xml"});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_THAT(result.fErr, MatchesRegex("hwx: there is no provider: .*/libcontainer.nsp.so is "
                                        "absent\n"));
  EXPECT_FALSE(std::filesystem::exists(fScratch / "machine.xml"));
}

TEST_F(CollectTest, WorksOnADumpOfAnotherMachine) {
  const HwxResult result =
      fHwx.Run({"--firmware", HWX_TEST_SAMPLE_DUMP, "show", "--class", "QORSG_ComputerSystem"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_THAT(result.fOut, HasSubstr("Example Rack Server 3650"));
}

TEST_F(CollectTest, ShowRefusesWhatIsNotThere) {
  const HwxResult absent = fHwx.Run({"show", "--class", "EX_Tape"});
  EXPECT_EQ(absent.fStatus, 1);
  EXPECT_EQ(absent.fOut, "");
  EXPECT_EQ(absent.fErr, "hwx: there is no class EX_Tape\n");
  EXPECT_EQ(fHwx.Run({"show", fScratch / "absent.xml"}).fStatus, 1);
  EXPECT_EQ(fHwx.Run({"show", "--format", "yaml"}).fStatus, 2);
}

TEST_F(CollectTest, ShowHasALineForEachInstance) {
  const HwxResult shown = fHwx.Run(OnSample({"show", "--class", "CIM_PhysicalMemory", "--columns",
                                             "Tag,Capacity,FormFactor", "--sort", "Tag:desc"}));
  EXPECT_EQ(shown.fStatus, 0);
  EXPECT_EQ(shown.fErr, "");
  EXPECT_EQ(shown.fOut,
            "Tag                Capacity  FormFactor\n"
            "Physical Memory 2  16 GiB    DIMM\n"
            "Physical Memory 0  16 GiB    DIMM\n");
}

TEST_F(CollectTest, ShowChoosesInstances) {
  const HwxResult shown = fHwx.Run(OnSample({"show", "--class", "CIM_*Memory", "--where",
                                             "Capacity >= 16GiB and FormFactor = dimm and Tag ~ 0",
                                             "--raw", "--no-header", "--columns", "Capacity"}));
  EXPECT_EQ(shown.fStatus, 0) << shown.fErr;
  EXPECT_EQ(shown.fOut, "17179869184\n");
}

TEST_F(CollectTest, ShowLongHasALineForEachProperty) {
  const HwxResult shown = fHwx.Run({"show", "--class", "QORSG_HWXProduct", "--long"});
  EXPECT_THAT(shown.fOut, StartsWith("QORSG_HWXProduct.Name=\"hwx\"\n  Name     hwx\n"));
}

TEST_F(CollectTest, ShowTellsWhyThereIsNothing) {
  const HwxResult none =
      fHwx.Run(OnSample({"show", "--class", "CIM_PhysicalMemory", "--where", "Capacity > 1PiB"}));
  EXPECT_EQ(none.fStatus, 0);
  EXPECT_EQ(none.fOut, "");
  EXPECT_EQ(none.fErr, "hwx: nothing to show: none of 2 instances is as asked for\n");
  const TemporaryDirectory empty;
  fHwx.On(empty.Path());
  const HwxResult absent = fHwx.Run({"show", "--class", "CIM_USBDevice"});
  EXPECT_EQ(absent.fStatus, 0);
  EXPECT_EQ(absent.fErr,
            "hwx: nothing to show: the class has no instance on this machine\n"
            "hwx: CIM_USBDevice has no instances: " +
                empty / "sys/bus/usb/devices" + ": No such file or directory\n");
}

TEST_F(CollectTest, ShowTellsWrongUseBeforeItReads) {
  EXPECT_EQ(fHwx.Run({"show", "--where", "a ="}).fErr,
            "hwx: the condition is wrong at character 4: a value is needed, not the end\n"
            "Run \"hwx --help\" for how it is used.\n");
  EXPECT_EQ(fHwx.Run({"show", "--raw", "--words"}).fStatus, 2);
  EXPECT_EQ(fHwx.Run({"show", "--format", "xml", "--sort", "Name"}).fStatus, 2);
  EXPECT_EQ(fHwx.Run({"show", "--sort", "Name:up"}).fStatus, 2);
  EXPECT_EQ(fHwx.Run({"show", "--columns", "Nmae"}).fErr,
            "hwx: no class here has a property Nmae; did you mean Name?\n");
}

TEST_F(CollectTest, ShowTellsTheLineOfABrokenFile) {
  const std::string file = Collect("machine.xml");
  const std::string text = FileText(file);
  MakeFile(file, text.substr(0, text.size() / 2));
  const HwxResult result = fHwx.Run({"show", file});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fOut, "");
  EXPECT_THAT(result.fErr, MatchesRegex("hwx: .*/machine.xml:[0-9]+: .*\n"));
}

TEST_F(CollectTest, DiffTellsWhatChanged) {
  const std::string before = Collect("before.xml");
  WriteMachineFile(fMachine.Path(), "/proc/sys/kernel/osrelease", "9.9.9\n");
  const std::string after = Collect("after.xml");
  const HwxResult result = fHwx.Run(Diff(before, after));
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_THAT(result.fOut, StartsWith("~ QORSG_OperatingSystem.Name="));
  EXPECT_THAT(result.fOut, HasSubstr(" -> \"9.9.9\"\n0 removed, 0 added, 1 changed, "));

  std::vector<std::string> arguments = Diff(before, after);
  arguments.push_back("--json");
  EXPECT_EQ(fHwx.Run(arguments).Json()["changed"][0]["properties"][0]["new"], "9.9.9");

  arguments.insert(arguments.end(), {"--ignore", "QORSG_OperatingSystem.KernelRelease"});
  EXPECT_EQ(fHwx.Run(arguments).fStatus, 0);
}

TEST_F(CollectTest, DiffTellsTroubleFromDifference) {
  const std::string file = Collect("machine.xml");
  EXPECT_EQ(fHwx.Run({"diff", file, fScratch / "absent.xml"}).fStatus, 2);
  EXPECT_EQ(fHwx.Run({"diff", file}).fStatus, 2);
  EXPECT_EQ(fHwx.Run({"diff", file, file, "--ignore", "nonsense"}).fStatus, 2);
  EXPECT_EQ(fHwx.Run({"diff", file, file}).fStatus, 0);
  EXPECT_EQ(fHwx.OutputTo("/dev/full").Run({"diff", file, file}).fStatus, 2);
  EXPECT_EQ(fHwx.CloseOutput().Run({"diff", file, file}).fStatus, 2);
}

}  // namespace
}  // namespace hwxtest
