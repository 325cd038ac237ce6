#include "hwx/system/ProgramRun.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <nlohmann/json.hpp>

namespace hwx {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string kFailed = "can't be run, or ended by a signal or with a status other than 0";

TProgram Shell(const std::string& script, int timeout = 60) {
  return {"sh", {"-c", script}, timeout};
}

// Ends and waits for the children that a time-out left.
class LeftChildren {
 public:
  ~LeftChildren() {
    while (::waitpid(-1, nullptr, 0) > 0) {
    }
  }
};

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
  const LeftChildren left;
  const auto start = std::chrono::steady_clock::now();
  const TProgramRun run = RunProgram(Shell("echo a; exec sleep 2", 1));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  EXPECT_EQ(run.fResult, -1);
  EXPECT_EQ(run.fOutput, "a\n");
  EXPECT_EQ(run.fWhatFailed, "printed nothing for 1 s and was left running");
}

TEST(ProgramRun, TellsNoSilenceByAChildThatWasThereBefore) {
  const LeftChildren left;
  const pid_t other = ::fork();
  if (other == 0) {
    ::sleep(1);
    ::_exit(0);
  }
  ASSERT_GT(other, 0);
  EXPECT_EQ(RunProgram(Shell("exit 1")).fWhatFailed, kFailed);
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
