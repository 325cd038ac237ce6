#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/FakePatience.h"
#include "support/ProgramDirectory.h"
#include "support/ScopedEnvironment.h"
#include "support/ScopedLogCapture.h"
#include "support/Spawning.h"

using hwxtest::FakePatience;
using hwxtest::LeftChild;
using hwxtest::ProgramDirectory;
using hwxtest::ScopedEnvironment;
using hwxtest::ScopedLogCapture;
using hwxtest::Spawn;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::Pair;

namespace {

using Texts = std::vector<std::string>;

// The arguments that a command line gives, each in brackets.
std::string Split(const std::string& arguments) {
  return TOSSpecific::SpawnProcess("printf [%s]" + arguments, 60);
}

TEST(SpawnCommandLine, IsSplitAtEachBlank) {
  EXPECT_EQ(TOSSpecific::SpawnProcess("echo a b", 60), "a b\n");
  EXPECT_EQ(Split(" a b c"), "[a][b][c]");
}

TEST(SpawnCommandLine, IsTheProgramAloneWhereThereIsNoBlank) {
  EXPECT_EQ(TOSSpecific::SpawnProcess("echo", 60), "\n");
}

TEST(SpawnCommandLine, GivesEmptyArgumentsBetweenAndBehindBlanks) {
  EXPECT_EQ(Split(" a  b"), "[a][][b]");
  EXPECT_EQ(Split(" a   b"), "[a][][][b]");
  EXPECT_EQ(Split(" a "), "[a][]");
  EXPECT_EQ(Split(" a  "), "[a][][]");
}

TEST(SpawnCommandLine, KnowsNoOtherSeparatorAndNoQuoting) {
  EXPECT_EQ(Split(" a\tb c\nd"), "[a\tb][c\nd]");
  EXPECT_EQ(Split(" 'a b' \"c\" \\ d"), "['a][b'][\"c\"][\\][d]");
  EXPECT_EQ(Split(" * $HOME ;"), "[*][$HOME][;]");
}

TEST(SpawnCommandLine, WithABlankInFrontHasNoProgram) {
  EXPECT_EQ(TOSSpecific::SpawnProcess(" echo a", 60), "");
  EXPECT_EQ(TOSSpecific::SpawnProcess("", 60), "");
}

TEST(SpawnCommandLine, ReturnsTheOutputWhateverTheResult) {
  EXPECT_EQ(TOSSpecific::SpawnProcess("sh -c echo;exit\t1", 60), "\n");
}

TEST(SpawnExplicitly, RunsTheFileUnderAnotherName) {
  std::string output = "kept ";
  EXPECT_EQ(
      TOSSpecific::SpawnProcess("renamed", {"-c", "echo $0 $1", "x"}, "/bin/sh", {}, output, 60),
      0);
  EXPECT_EQ(output, "kept x\n");
  EXPECT_EQ(TOSSpecific::SpawnProcess("renamed", {"-c", "echo $0"}, "/bin/sh", {}, output, 60), 0);
  EXPECT_EQ(output, "kept x\nrenamed\n");
}

TEST(SpawnExplicitly, GivesTheChildExactlyTheEnvironment) {
  const ScopedEnvironment variable("HWX_TEST_VARIABLE", "inherited");
  std::string output;
  EXPECT_EQ(TOSSpecific::SpawnProcess("env", {}, "/usr/bin/env", {"A=1", "B=two words", "C="},
                                      output, 60),
            0);
  EXPECT_EQ(output, "A=1\nB=two words\nC=\n");
}

TEST(SpawnExplicitly, GivesTheChildNoVariablesForAnEmptyEnvironment) {
  std::string output;
  EXPECT_EQ(TOSSpecific::SpawnProcess("env", {}, "/usr/bin/env", {}, output, 60), 0);
  EXPECT_EQ(output, "");
}

TEST(SpawnExplicitly, DoesNotSearch) {
  const ProgramDirectory programs;
  programs.Add("hwx-test-program", "echo found");
  std::string output;
  EXPECT_EQ(TOSSpecific::SpawnProcess("x", {}, "hwx-test-program", {}, output, 60), -1);
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(programs.Path());
  EXPECT_EQ(TOSSpecific::SpawnProcess("x", {}, "hwx-test-program", {}, output, 60), 0);
  std::filesystem::current_path(before);
  EXPECT_EQ(output, "found\n");
}

TEST(SpawnExplicitly, DoesNotHandAScriptToTheShell) {
  const ProgramDirectory programs;
  programs.AddFile("script", "echo ran\n");
  std::filesystem::permissions(programs / "script", std::filesystem::perms(0755));
  std::string output;
  EXPECT_EQ(TOSSpecific::SpawnProcess("x", {}, programs / "script", {}, output, 60), -1);
  EXPECT_EQ(output, "");
}

TEST(SpawnExplicitly, GivesMinusOneForEveryFailure) {
  std::string output;
  EXPECT_EQ(TOSSpecific::SpawnProcess("x", {}, "/no/such/program", {}, output, 60), -1);
  EXPECT_EQ(TOSSpecific::SpawnProcess("x", {"-c", "exit 1"}, "/bin/sh", {}, output, 60), -1);
  EXPECT_EQ(TOSSpecific::SpawnProcess("x", {"-c", "kill -9 $$"}, "/bin/sh", {}, output, 60), -1);
  EXPECT_EQ(TOSSpecific::SpawnProcess("x", {}, "/bin/true", {}, output, -7), -1);
  ::wait(nullptr);
}

TEST(SpawnExplicitly, LogsAllThatItIsGiven) {
  const ScopedLogCapture log;
  std::string output;
  const Texts environment = {"A=1", "B=two words"};
  TOSSpecific::SpawnProcess("name", {"a", "", "b c"}, "/bin/true", environment, output, 60);
  TOSSpecific::SpawnProcess("name", {}, "/bin/true", {}, output, 60);
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug",
                               "TOSSpecific::SpawnProcess calling /bin/true\nwith parameters "
                               "name a  b c \nwith envoirment vars A=1 B=two words "),
                          Pair("Debug",
                               "TOSSpecific::SpawnProcess calling /bin/true\nwith parameters "
                               "name \nwith envoirment vars ")));
}

TEST(SpawnExplicitly, LogsFailuresInTheWordsOfTheOtherForms) {
  const ScopedLogCapture log;
  std::string output;
  TOSSpecific::SpawnProcess("x", {"-c", "kill -KILL $$"}, "/bin/sh", {}, output, 60);
  TOSSpecific::SpawnProcess("x", {}, "/bin/true", {}, output, -7);
  ::wait(nullptr);
  ASSERT_EQ(log.Lines().size(), 4U);
  EXPECT_THAT(log.Lines()[1],
              Pair("Debug", "ERROR: SpawnProcess - Child process exited abnormally!"));
  EXPECT_THAT(log.Lines()[3], Pair("Debug", "ERROR: SpawnProcess - select call failed!"));
}

TEST(SpawnExplicitly, NamesTheProcessInTheMessageOfATimeOut) {
  const ScopedLogCapture log;
  const FakePatience patience(FakePatience::After(1));
  std::string output;
  EXPECT_EQ(TOSSpecific::SpawnProcess("renamed", {"-c", "echo $$; exec /bin/sleep 300"}, "/bin/sh",
                                      {}, output, 1),
            -1);
  const LeftChild child(output);
  EXPECT_TRUE(child.IsRunning());
  ASSERT_EQ(log.Lines().size(), 2U);
  EXPECT_THAT(log.Lines()[1], Pair("Debug", "ERROR: SpawnProcess - renamed TimeOut!"));
}

}  // namespace
