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
  for (const char* format : {"table", "json", "xml"}) {
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
