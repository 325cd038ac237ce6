#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "support/ChildProcess.h"
#include "support/ProgramDirectory.h"
#include "support/ScopedEnvironment.h"
#include "support/ScopedLogCapture.h"
#include "support/Spawning.h"

using hwxtest::ProgramDirectory;
using hwxtest::ScopedEnvironment;
using hwxtest::ScopedLogCapture;
using hwxtest::Spawn;
using hwxtest::Spawned;
using hwxtest::SpawnShell;
using hwxtest::SpawnSilent;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::Pair;

namespace {

TEST(SpawnProcess, GivesZeroForStatusZero) {
  const Spawned spawned = Spawn("true", {});
  EXPECT_EQ(spawned.fResult, 0);
  EXPECT_EQ(spawned.fOutput, "");
}

TEST(SpawnProcess, GivesMinusOneForEveryOtherStatus) {
  for (const char* const status : {"1", "2", "127", "254", "255"}) {
    const Spawned spawned = SpawnShell(std::string("echo before; exit ") + status);
    EXPECT_EQ(spawned.fResult, -1) << status;
    EXPECT_EQ(spawned.fOutput, "before\n") << status;
  }
}

TEST(SpawnProcess, GivesMinusOneAndNoOutputForAProgramThatIsNotFound) {
  const Spawned spawned = Spawn("no-such-program", {"argument"});
  EXPECT_EQ(spawned.fResult, -1);
  EXPECT_EQ(spawned.fOutput, "");
  EXPECT_EQ(Spawn("/no/such/program", {}).fResult, -1);
  EXPECT_EQ(Spawn("", {}).fResult, -1);
  EXPECT_EQ(TOSSpecific::SpawnProcess("no-such-program", {"argument"}, 60), "");
  EXPECT_EQ(TOSSpecific::SpawnProcess("no-such-program argument", 60), "");
}

TEST(SpawnProcess, GivesMinusOneForWhatIsNoProgram) {
  EXPECT_EQ(Spawn("/", {}).fResult, -1);
  EXPECT_EQ(Spawn("/etc/passwd", {}).fResult, -1);
  EXPECT_EQ(Spawn("/etc/passwd/sh", {}).fResult, -1);
  EXPECT_EQ(Spawn(std::string(300, 'x'), {}).fResult, -1);
}

TEST(SpawnProcess, AppendsToTheOutput) {
  std::string output = "kept ";
  EXPECT_EQ(TOSSpecific::SpawnProcess("echo", {"added"}, output, 60), 0);
  EXPECT_EQ(output, "kept added\n");
  EXPECT_EQ(TOSSpecific::SpawnProcess("no-such-program", {}, output, 60), -1);
  EXPECT_EQ(output, "kept added\n");
}

TEST(SpawnProcess, LogsTheCommandAtDebugLevel) {
  const ScopedLogCapture log;
  Spawn("true", {"argument"});
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "SpawnProcess: process true")));
}

TEST(SpawnProcess, LogsNothingMoreForAStatusOtherThanZeroOrAMissingProgram) {
  const ScopedLogCapture log;
  SpawnShell("exit 3");
  Spawn("no-such-program", {});
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "SpawnProcess: process sh"),
                                       Pair("Debug", "SpawnProcess: process no-such-program")));
}

TEST(SpawnProcess, GivesMinusOneForAChildThatASignalKilled) {
  for (const char* const signal : {"KILL", "TERM", "SEGV"}) {
    const ScopedLogCapture log;
    const Spawned spawned = SpawnShell(std::string("echo before; kill -") + signal + " $$");
    EXPECT_EQ(spawned.fResult, -1);
    EXPECT_EQ(spawned.fOutput, "before\n");
    EXPECT_THAT(
        log.Lines(),
        ElementsAre(Pair("Debug", "SpawnProcess: process sh"),
                    Pair("Debug", "ERROR: SpawnProcess - Child process exited abnormally!")));
  }
}

TEST(SpawnProcess, LogsNoFailureOfAChildWithTheDefaultThreshold) {
  const ScopedLogCapture log;
  NQORHWX20::TLogger::SetLogThreshold(NQORHWX20::ILogger::kHWXLogStatus);
  SpawnShell("kill -KILL $$");
  const hwxtest::LeftChild first(SpawnSilent().fOutput);
  EXPECT_EQ(Spawn("true", {}, -2).fResult, -1);
  ::wait(nullptr);
  EXPECT_THAT(log.Lines(), testing::IsEmpty());
}

TEST(SpawnProcess, DropsTheResultInTheFormsThatReturnTheOutput) {
  EXPECT_EQ(TOSSpecific::SpawnProcess("sh", {"-c", "echo out; exit 1"}, 60), "out\n");
  EXPECT_EQ(TOSSpecific::SpawnProcess("sh", {"-c", "echo out; kill -KILL $$"}, 60), "out\n");
}

TEST(SpawnProcess, PassesArgumentsAsTheyAre) {
  const Spawned spawned = Spawn("printf", {"[%s]", "a b", "", "*", "$HOME", "'\"\\", "-x"});
  EXPECT_EQ(spawned.fOutput, "[a b][][*][$HOME]['\"\\][-x]");
}

TEST(SpawnProcess, PassesTensOfThousandsOfArguments) {
  const std::vector<std::string> arguments(30000, "x");
  EXPECT_EQ(Spawn("echo", arguments).fOutput.size(), 60000U);
}

TEST(SpawnProcess, GivesMinusOneIfTheArgumentsAreTooLarge) {
  EXPECT_EQ(Spawn("true", {std::string(1 << 20, 'x')}).fResult, -1);
}

TEST(SpawnProcess, PassesTheCommandAsFirstArgument) {
  EXPECT_EQ(Spawn("sh", {"-c", "echo $0"}).fOutput, "sh\n");
  EXPECT_EQ(Spawn("/bin/sh", {"-c", "echo $0"}).fOutput, "/bin/sh\n");
}

TEST(SpawnProcess, TakesTheFirstProgramAlongThePath) {
  const ProgramDirectory second;
  second.Add("hwx-test-program", "echo second");
  EXPECT_EQ(Spawn("hwx-test-program", {}).fOutput, "second\n");
  const ProgramDirectory first;
  first.Add("hwx-test-program", "echo first");
  EXPECT_EQ(Spawn("hwx-test-program", {}).fOutput, "first\n");
}

TEST(SpawnProcess, PassesOverFilesAlongThePathThatCannotBeRun) {
  const ProgramDirectory third;
  third.Add("hwx-test-program", "echo third");
  const ProgramDirectory second;
  std::filesystem::create_directory(second / "hwx-test-program");
  const ProgramDirectory first;
  first.AddFile("hwx-test-program", "not executable");
  EXPECT_EQ(Spawn("hwx-test-program", {}).fOutput, "third\n");
}

TEST(SpawnProcess, PassesOverElementsOfThePathThatAreNoDirectories) {
  const ProgramDirectory programs;
  programs.Add("hwx-test-program", "echo found");
  const ScopedEnvironment path(
      "PATH", "/etc/passwd:/absent:" + std::string(5000, 'x') + ":" + programs.Path() + ":/bin");
  EXPECT_EQ(Spawn("hwx-test-program", {}).fOutput, "found\n");
}

TEST(SpawnProcess, TakesAnEmptyElementOfThePathForTheCurrentDirectory) {
  const ProgramDirectory programs;
  programs.Add("hwx-test-program", "echo found");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(programs.Path());
  for (const char* const path : {"", ":", "/absent:", ":/absent", "/absent::/absent"}) {
    const ScopedEnvironment variable("PATH", path);
    EXPECT_EQ(Spawn("hwx-test-program", {}).fOutput, "found\n") << path;
  }
  const ScopedEnvironment variable("PATH", "/absent");
  EXPECT_EQ(Spawn("hwx-test-program", {}).fResult, -1);
  std::filesystem::current_path(before);
}

TEST(SpawnProcess, SearchesTheSystemsDirectoriesWhereThereIsNoPath) {
  const ScopedEnvironment path("PATH", std::nullopt);
  EXPECT_EQ(Spawn("sh", {"-c", "echo found"}).fOutput, "found\n");
  EXPECT_EQ(Spawn("no-such-program", {}).fResult, -1);
}

TEST(SpawnProcess, DoesNotSearchForACommandWithASeparator) {
  const ProgramDirectory programs;
  std::filesystem::create_directory(programs / "sub");
  programs.Add("sub/hwx-test-program", "echo found");
  EXPECT_EQ(Spawn("sub/hwx-test-program", {}).fResult, -1);
  EXPECT_EQ(Spawn(programs / "sub/hwx-test-program", {}).fOutput, "found\n");
}

TEST(SpawnProcess, RunsAScriptThatNamesNoInterpreterWithTheShell) {
  const ProgramDirectory programs;
  programs.AddFile("hwx-test-program", "echo [$0] [$1] [$2]\n");
  std::filesystem::permissions(programs / "hwx-test-program", std::filesystem::perms(0755));
  const std::string path = programs / "hwx-test-program";
  EXPECT_EQ(Spawn("hwx-test-program", {"a b", "c"}).fOutput, "[" + path + "] [a b] [c]\n");
  EXPECT_EQ(Spawn(path, {}).fOutput, "[" + path + "] [] []\n");
}

TEST(SpawnProcess, GivesMinusOneForAProgramThatTheUserMayNotRun) {
  const ProgramDirectory programs;
  programs.Add("hwx-test-program", "echo ran");
  std::filesystem::permissions(programs / "hwx-test-program", std::filesystem::perms(0600));
  hwxtest::RunScene("no right to change the user", [&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(Spawn(programs / "hwx-test-program", {}).fResult, -1);
    EXPECT_EQ(Spawn("true", {}).fResult, 0);
    return 0;
  });
}

}  // namespace
