// What every user of command-line tools expects: help, version, errors, exit statuses, output that
// fails, the log.

#include <gmock/gmock.h>

#include "integration/hwx/HwxProcess.h"
#include "support/FileText.h"
#include "support/Machines.h"

namespace hwxtest {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::Not;
using ::testing::StartsWith;

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() { fHwx.On(MakeRackServer(fMachine.Path())); }

  std::string LogOf(const std::string& directory) const { return FileText(directory + "/hwx.log"); }

  TemporaryDirectory fMachine;
  TemporaryDirectory fScratch;
  HwxProcess fHwx;
};

TEST_F(ProgramTest, PrintsItsVersion) {
  const HwxResult result = fHwx.Run({"--version"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_EQ(result.fOut, "hwx " HWX_TEST_VERSION "\n");
  EXPECT_EQ(result.fErr, "");
}

TEST_F(ProgramTest, PrintsHelpOnTheStandardOutput) {
  const HwxResult result = fHwx.Run({"--help"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_THAT(result.fOut, HasSubstr("Usage: hwx"));
  EXPECT_EQ(result.fErr, "");
}

TEST_F(ProgramTest, AnswersNoCommandWithHelpOnTheErrorStream) {
  const HwxResult result = fHwx.Run({});
  EXPECT_EQ(result.fStatus, 2);
  EXPECT_EQ(result.fOut, "");
  EXPECT_THAT(result.fErr, HasSubstr("Usage: hwx"));
}

TEST_F(ProgramTest, RefusesWrongUsage) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"identify"}, {"identity", "--yaml"}, {"identity", "now"}}) {
    const HwxResult result = fHwx.Run(arguments);
    EXPECT_EQ(result.fStatus, 2);
    EXPECT_EQ(result.fOut, "");
    EXPECT_THAT(result.fErr, StartsWith("hwx: un"));
  }
}

TEST_F(ProgramTest, FailsWhenTheOutputIsFull) {
  fHwx.OutputTo("/dev/full");
  for (const char* command : {"identity", "providers", "--help", "--version"}) {
    const HwxResult result = fHwx.Run({command, "--log-dir", fScratch.Path()});
    EXPECT_EQ(result.fStatus, 1) << command;
    EXPECT_EQ(result.fErr, "hwx: the output can't be written: No space left on device\n");
  }
}

TEST_F(ProgramTest, FailsWhenTheOutputIsClosed) {
  fHwx.CloseOutput();
  const HwxResult result = fHwx.Run({"identity", "--log-dir", fScratch.Path()});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fErr, "hwx: the output can't be written: Bad file descriptor\n");
  EXPECT_THAT(LogOf(fScratch.Path()), Not(HasSubstr("Machine type")));
}

TEST_F(ProgramTest, FailsAsEverWhenTheErrorStreamIsClosed) {
  fHwx.CloseError();
  EXPECT_EQ(fHwx.Run({"identity", "--firmware", "/nowhere"}).fStatus, 1);
  EXPECT_EQ(fHwx.Run({"identify"}).fStatus, 2);
  EXPECT_EQ(fHwx.Run({"identity"}).fStatus, 0);
}

TEST_F(ProgramTest, WritesItsLogToTheDirectoryGiven) {
  const std::string directory = fScratch / "new/log";
  const HwxResult result = fHwx.Run({"--log-dir", directory, "identity"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_EQ(result.fErr, "");
  EXPECT_THAT(LogOf(directory), StartsWith("-- HWX Log Opened"));
  EXPECT_THAT(LogOf(directory), HasSubstr("-- HWX Log Closed"));
}

TEST_F(ProgramTest, WritesDebugMessagesOnlyWhenToldTo) {
  fHwx.Run({"identity", "--log-dir", fScratch.Path()});
  EXPECT_THAT(LogOf(fScratch.Path()), Not(HasSubstr("[Debug]")));
  fHwx.Run({"identity", "--verbose", "--log-dir", fScratch.Path()});
  EXPECT_THAT(LogOf(fScratch.Path()), HasSubstr("TCIMSchemaHelper- Detected MTM 7915AC1\n"));
}

TEST_F(ProgramTest, GoesOnWithoutALogThatCannotBeOpenedButSaysSo) {
  std::ofstream(fScratch / "file") << "no directory";
  const HwxResult result = fHwx.Run({"identity", "--log-dir", fScratch / "file/log"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_THAT(result.fOut, HasSubstr("Machine type              7915\n"));
  EXPECT_THAT(result.fErr,
              MatchesRegex("hwx: no log: .*/file/log/hwx\\.log can't be opened: .*\n"));
}

TEST_F(ProgramTest, LeavesTheLibrarysOwnLogAloneUntilAsked) {
  const std::string directory = "/var/log/Varnok_Support/HwxDebugLog";
  std::error_code failure;
  const auto before = std::filesystem::last_write_time(directory + "/hwx.log", failure);
  const bool isThere = !failure;
  EXPECT_EQ(fHwx.Run({"identity"}).fStatus, 0);
  const auto after = std::filesystem::last_write_time(directory + "/hwx.log", failure);
  EXPECT_EQ(!failure, isThere);
  EXPECT_TRUE(!isThere || before == after);
}

TEST_F(ProgramTest, SaysThatTheLogItWasAskedForCannotBeWritten) {
  const HwxTree tree(HwxTree::kCopies);
  tree.Use(fHwx);
  std::filesystem::permissions(fMachine.Path(), std::filesystem::perms(0755));
  fHwx.Unprivileged();  // who may not write below /var/log
  const HwxResult quiet = fHwx.Run({"identity"});
  EXPECT_EQ(quiet.fStatus, 0);
  EXPECT_EQ(quiet.fErr, "");
  const HwxResult verbose = fHwx.Run({"identity", "--verbose"});
  EXPECT_EQ(verbose.fStatus, 0);
  EXPECT_THAT(verbose.fErr, StartsWith("hwx: no log: /var/log/"));
}

}  // namespace
}  // namespace hwxtest
