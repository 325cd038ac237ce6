#include "hwx/system/ProgramRun.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <nlohmann/json.hpp>

#include "support/FakePatience.h"
#include "support/Spawning.h"

namespace hwx {
namespace {

using hwxtest::FakePatience;
using hwxtest::LeftChild;
using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string kFailed = "can't be run, or ended by a signal or with a status other than 0";

TProgram Shell(const std::string& script, int timeout = 60) {
  return {"sh", {"-c", script}, timeout};
}

TEST(ProgramRun, GathersOutputAndErrorsInTheirOrder) {
  const TProgramRun run = RunProgram(Shell("echo a; echo b >&2; echo c"));
  EXPECT_EQ(run.fResult, 0);
  EXPECT_EQ(run.fOutput, "a\nb\nc\n");
  EXPECT_EQ(run.fWhatFailed, "");
}

TEST(ProgramRun, HandsArgumentsOnToTheLetter) {
  const TProgramRun run = RunProgram({"printf", {"%s.", "a b", "", "$HOME", "*"}, 60});
  EXPECT_EQ(run.fOutput, "a b..$HOME.*.");
}

TEST(ProgramRun, KeepsTheOutputOfAProgramThatFails) {
  const TProgramRun run = RunProgram(Shell("echo no luck; exit 3"));
  EXPECT_EQ(run.fResult, -1);
  EXPECT_EQ(run.fOutput, "no luck\n");
  EXPECT_EQ(run.fWhatFailed, kFailed);
}

TEST(ProgramRun, FailsForAProgramThatASignalEnds) {
  const TProgramRun run = RunProgram(Shell("kill -TERM $$"));
  EXPECT_EQ(run.fResult, -1);
  EXPECT_EQ(run.fWhatFailed, kFailed);
}

TEST(ProgramRun, FailsForAProgramThatIsNotThere) {
  const TProgramRun run = RunProgram({"/nowhere/program", {}, 60});
  EXPECT_EQ(run.fResult, -1);
  EXPECT_EQ(run.fOutput, "");
  EXPECT_EQ(run.fWhatFailed, kFailed);
}

TEST(ProgramRun, GivesUpWhenAProgramIsSilentForTooLong) {
  const FakePatience patience(FakePatience::After(1));
  const TProgramRun run = RunProgram(Shell("echo $$; exec sleep 300", 1));
  const LeftChild left(run.fOutput);
  EXPECT_TRUE(left.IsRunning());
  EXPECT_THAT(patience.Limits(), ElementsAre(1.0, 1.0));
  EXPECT_EQ(run.fResult, -1);
  EXPECT_EQ(run.fWhatFailed, "printed nothing for 1 s and was left running");
}

TEST(ProgramRun, TellsNoSilenceByAChildThatWasThereBefore) {
  const pid_t other = ::fork();
  if (other == 0) {
    ::pause();
    ::_exit(0);
  }
  ASSERT_GT(other, 0);
  EXPECT_EQ(RunProgram(Shell("exit 1")).fWhatFailed, kFailed);
  ::kill(other, SIGKILL);
  ::waitpid(other, nullptr, 0);
}

TEST(ProgramRunJson, HoldsTheCommandAndWhatCameOfIt) {
  const json expected = {
      {"command", {"echo", "a b"}}, {"timeout", 300}, {"result", 0}, {"output", "a b\n"}};
  EXPECT_EQ(json::parse(ProgramRunJson({"echo", {"a b"}}, {0, "a b\n", ""})), expected);
}

TEST(ProgramRunJson, HasAListOfACommandWithoutArgumentsToo) {
  EXPECT_EQ(json::parse(ProgramRunJson({"true", {}}, {0, "", ""}))["command"],
            json::array({"true"}));
}

TEST(ProgramRunJson, HasAReasonWhereTheProgramFailed) {
  const json failed = json::parse(ProgramRunJson({"false", {}, -1}, {-1, "", "is no good"}));
  EXPECT_EQ(failed["timeout"], -1);
  EXPECT_EQ(failed["result"], -1);
  EXPECT_EQ(failed["reason"], "is no good");
}

TEST(ProgramRunJson, NeverSteersTheTerminal) {
  const std::string text = ProgramRunJson({"cat", {"\x1b"}}, {0, "\x1b[2J\xff", ""});
  EXPECT_THAT(text, Not(HasSubstr("\x1b")));
  EXPECT_EQ(json::parse(text)["output"], "\x1b[2J\xEF\xBF\xBD");
}

}  // namespace
}  // namespace hwx
