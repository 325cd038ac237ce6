// Programs as `hwx run` runs them.

#include <gmock/gmock.h>

#include <csignal>

#include "integration/hwx/HwxProcess.h"
#include "support/FileText.h"

namespace hwxtest {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class RunProgramTest : public testing::Test {
 protected:
  HwxResult Shell(const std::string& script, std::vector<std::string> options = {}) const {
    options.insert(options.begin(), "run");
    options.insert(options.end(), {"--", "sh", "-c", script});
    return fHwx.Run(options);
  }

  HwxProcess fHwx;
};

TEST_F(RunProgramTest, PrintsWhatTheProgramPrints) {
  const HwxResult result = Shell("echo a; echo b >&2; printf '\\033[2J\\377'");
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_EQ(result.fOut, "a\nb\n\x1b[2J\xff");
  EXPECT_EQ(result.fErr, "");
}

TEST_F(RunProgramTest, LosesWhatStandsBehindANulAsACollectorDoes) {
  EXPECT_EQ(Shell("printf 'a\\000b'").fOut, "a");
}

TEST_F(RunProgramTest, HandsArgumentsOnToTheLetter) {
  const HwxResult result =
      fHwx.Run({"run", "--", "printf", "%s;", "[a,b]", "--json", "--help", "", "--", "two words"});
  EXPECT_EQ(result.fOut, "[a,b];--json;--help;;--;two words;");
  EXPECT_EQ(result.fStatus, 0);
}

TEST_F(RunProgramTest, FailsWhenTheProgramDoes) {
  const HwxResult result = Shell("echo out of luck; exit 3");
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fOut, "out of luck\n");
  EXPECT_EQ(result.fErr,
            "hwx: sh: can't be run, or ended by a signal or with a status other than 0\n");
}

TEST_F(RunProgramTest, FailsForAProgramThatIsNotThere) {
  const HwxResult result = fHwx.Run({"run", "--", "no-such\x1bprogram", "x"});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fOut, "");
  EXPECT_THAT(result.fErr, StartsWith("hwx: no-such\\x1bprogram: can't be run, or "));
}

TEST_F(RunProgramTest, GivesUpAfterTheTimeOut) {
  const HwxResult result = Shell("echo $$; exec sleep 300", {"--timeout", "3"});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(::kill(std::stoi(result.fOut), SIGKILL), 0);
  EXPECT_EQ(result.fErr, "hwx: sh: printed nothing for 3 s and was left running\n");
}

TEST_F(RunProgramTest, PrintsJsonForPrograms) {
  const json expected = {
      {"command", {"sh", "-c", "echo a"}}, {"timeout", 300}, {"result", 0}, {"output", "a\n"}};
  EXPECT_EQ(Shell("echo a", {"--json"}).Json(), expected);
}

TEST_F(RunProgramTest, PrintsJsonOfAFailureToo) {
  const HwxResult result = Shell("exit 1", {"--json", "--timeout=-1"});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.Json()["result"], -1);
  EXPECT_EQ(result.Json()["timeout"], -1);
  EXPECT_EQ("hwx: sh: " + result.Json()["reason"].get<std::string>() + "\n", result.fErr);
}

TEST_F(RunProgramTest, LogsWhatTheLibraryDoes) {
  const TemporaryDirectory directory;
  Shell("kill -KILL $$", {"--verbose", "--log-dir", directory.Path()});
  const std::string log = FileText(directory / "hwx.log");
  EXPECT_THAT(log, HasSubstr("SpawnProcess: process sh\n"));
  EXPECT_THAT(log, HasSubstr("ERROR: SpawnProcess - Child process exited abnormally!\n"));
}

TEST_F(RunProgramTest, NeedsACommand) {
  const HwxResult result = fHwx.Run({"run"});
  EXPECT_EQ(result.fStatus, 2);
  EXPECT_EQ(result.fOut, "");
  EXPECT_THAT(result.fErr, StartsWith("hwx: no command behind \"--\"\n"));
}

}  // namespace
}  // namespace hwxtest
