#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "hwxcore/os/TOSSpecific.h"
#include "support/ChildProcess.h"
#include "support/FakeSleep.h"
#include "support/FileText.h"
#include "support/ProgramDirectory.h"
#include "support/ScopedEnvironment.h"
#include "support/ScopedLogCapture.h"
#include "support/ScopedSignal.h"
#include "support/TemporaryDirectory.h"
#include "support/TextOf.h"

using hwxtest::FileText;
using hwxtest::MakeFile;
using hwxtest::ProgramDirectory;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using hwxtest::ScopedEnvironment;
using hwxtest::ScopedLogCapture;
using hwxtest::TemporaryDirectory;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

TEST(GetEnvironment, GivesTheValue) {
  const ScopedEnvironment variable("HWX_TEST_VARIABLE", "two words");
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetEnvironment("HWX_TEST_VARIABLE"), "two words");
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST(GetEnvironment, GivesNothingAndADebugLineForAVariableThatIsNotSet) {
  const ScopedEnvironment variable("HWX_TEST_VARIABLE", std::nullopt);
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetEnvironment("HWX_TEST_VARIABLE"), "");
  EXPECT_EQ(TOSSpecific::GetEnvironment(""), "");
  const std::string line = "TOSSpecific debug output: [ERROR]GetEnvironment:Cannt get environmnet.";
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", line), Pair("Debug", line)));
}

TEST(GetEnvironment, SaysNothingOfAVariableThatIsSetToNothing) {
  const ScopedEnvironment variable("HWX_TEST_VARIABLE", "");
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetEnvironment("HWX_TEST_VARIABLE"), "");
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST(PutEnvironment, SetsAndOverwrites) {
  const ScopedEnvironment variable("HWX_TEST_VARIABLE", std::nullopt);
  const ScopedLogCapture log;
  EXPECT_TRUE(TOSSpecific::PutEnvironment("HWX_TEST_VARIABLE", "first"));
  EXPECT_STREQ(std::getenv("HWX_TEST_VARIABLE"), "first");
  EXPECT_TRUE(TOSSpecific::PutEnvironment("HWX_TEST_VARIABLE", "second=2"));
  EXPECT_STREQ(std::getenv("HWX_TEST_VARIABLE"), "second=2");
  EXPECT_TRUE(TOSSpecific::PutEnvironment("HWX_TEST_VARIABLE", ""));
  EXPECT_STREQ(std::getenv("HWX_TEST_VARIABLE"), "");
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST(PutEnvironment, IsFalseWithADebugLineForANameThatCannotBe) {
  const ScopedLogCapture log;
  EXPECT_FALSE(TOSSpecific::PutEnvironment("", "value"));
  EXPECT_FALSE(TOSSpecific::PutEnvironment("A=B", "value"));
  const std::string line = "TOSSpecific debug output: [ERROR]PutEnvironment occured errors.";
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", line), Pair("Debug", line)));
}

TEST(IsAdmin, TellsWhetherTheRealUserIsRoot) {
  EXPECT_EQ(TOSSpecific::IsAdmin(), ::getuid() == 0);
  RunScene("no right to change the user", [] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_FALSE(TOSSpecific::IsAdmin());
    return 0;
  });
}

// As in a program of root's with the set-user-identity bit.
TEST(IsAdmin, DoesNotLookAtTheEffectiveUser) {
  constexpr uid_t kNobody = 65534;
  const int asUser = RunInChild([] {
    if (::setresuid(kNobody, 0, 0) != 0) return hwxtest::kSceneNotAllowed;
    EXPECT_FALSE(TOSSpecific::IsAdmin());
    return 0;
  });
  const int asRoot = RunInChild([] {
    if (::setresuid(0, kNobody, kNobody) != 0) return hwxtest::kSceneNotAllowed;
    EXPECT_TRUE(TOSSpecific::IsAdmin());
    return 0;
  });
  if (asUser == hwxtest::kSceneNotAllowed) GTEST_SKIP() << "SKIPPED: no right to change the user";
  EXPECT_EQ(asUser, 0);
  EXPECT_EQ(asRoot, 0);
}

TEST(USleep, SleepsMilliseconds) {
  const hwxtest::FakeSleep sleep;
  TOSSpecific::USleep(2);
  TOSSpecific::USleep(1100);
  TOSSpecific::USleep(0);
  EXPECT_THAT(sleep.Sleeps(), ElementsAre(2000U, 1100000U, 0U));
}

TEST(USleep, WrapsBeyondThe32Bits) {
  const hwxtest::FakeSleep sleep;
  TOSSpecific::USleep(4294968);
  EXPECT_THAT(sleep.Sleeps(), ElementsAre(704U));
}

TEST(USleep, EndsWithASignal) {
  const hwxtest::ScopedAlarms alarms;
  TOSSpecific::USleep(4000000);  // longer than a test may take
}

TEST(IsOEMBuild, DependsOnTheCurrentDirectory) {
  const TemporaryDirectory scratch;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::create_directory(scratch / "docs");
  MakeFile(scratch / "docs/oem_hwx_preboot_readme.txt", "");
  std::filesystem::current_path("/");
  EXPECT_FALSE(TOSSpecific::isOEMBuild());
  std::filesystem::current_path(scratch.Path());
  EXPECT_TRUE(TOSSpecific::isOEMBuild());
  std::filesystem::remove("docs/oem_hwx_preboot_readme.txt");
  EXPECT_FALSE(TOSSpecific::isOEMBuild());
  std::filesystem::create_directory("docs/oem_hwx_preboot_readme.txt");
  EXPECT_FALSE(TOSSpecific::isOEMBuild());
  std::filesystem::current_path(before);
}

TEST(ExpandCommandLineWildcards, HandsBackTheVeryArray) {
  char program[] = "program";
  char wildcard[] = "*";
  char* arguments[] = {program, wildcard, nullptr};
  int count = 0;
  char** expanded = nullptr;
  TOSSpecific::ExpandCommandLineWildcards(2, arguments, &count, &expanded);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(expanded, arguments);
  EXPECT_STREQ(arguments[1], "*");
}

TEST(Flags, AreFalseAtFirstAndApart) {
  EXPECT_FALSE(TOSSpecific::getLuz());
  EXPECT_FALSE(TOSSpecific::isHWXParser());
  TOSSpecific::setLuz(true);
  EXPECT_TRUE(TOSSpecific::getLuz());
  EXPECT_FALSE(TOSSpecific::isHWXParser());
  TOSSpecific::setHWXParser(true);
  TOSSpecific::setLuz(false);
  EXPECT_FALSE(TOSSpecific::getLuz());
  EXPECT_TRUE(TOSSpecific::isHWXParser());
  TOSSpecific::setHWXParser(false);
  EXPECT_FALSE(TOSSpecific::isHWXParser());
}

// Programs that only write down how they were called, in a current directory of their own.
class LaunchTest : public testing::Test {
 protected:
  LaunchTest() {
    std::filesystem::create_directory(fScratch / "current");
    std::filesystem::current_path(fScratch / "current");
    Record("vi");
  }
  ~LaunchTest() override { std::filesystem::current_path(fBefore); }

  void Record(const std::string& program) {
    fPrograms.Add(program, "echo " + program + " $# \"$@\" >>" + fLog);
  }

  std::string Calls() const { return FileText(fLog); }

  ProgramDirectory fPrograms;
  TemporaryDirectory fScratch;
  std::string fLog = fScratch / "log";
  std::filesystem::path fBefore = std::filesystem::current_path();
};

const std::string kTail = "a-name-of-exactly-thirty-five-chars";

TEST_F(LaunchTest, TheEditorShowsACopyInTheCurrentDirectory) {
  ASSERT_EQ(kTail.size(), 35U);
  const std::string name = "file-with-" + kTail;
  MakeFile(fScratch / name, "text");
  TOSSpecific::LaunchTextEditor(fScratch / name);
  EXPECT_EQ(Calls(), "vi 1 " + name + "\n");
  EXPECT_EQ(FileText(name), "text");  // and stays there
  EXPECT_EQ(FileText(fScratch / name), "text");
}

TEST_F(LaunchTest, TheEditorShowsWhateverBearsTheLast35Characters) {
  MakeFile("x" + kTail + "y", "");
  MakeFile("z" + kTail.substr(1), "");  // bears one less
  MakeFile(fScratch / kTail, "");
  TOSSpecific::LaunchTextEditor(fScratch / kTail);
  EXPECT_EQ(Calls(), "vi 2 " + kTail + " x" + kTail + "y\n");
}

TEST_F(LaunchTest, TheEditorIsCalledEvenIfNothingWasCopied) {
  Record("cp");
  TOSSpecific::LaunchTextEditor("/absent/" + kTail);
  EXPECT_EQ(Calls(),
            "cp 2 /absent/" + kTail + " " + (fScratch / "current") + "\nvi 1 *" + kTail + "*\n");
}

TEST_F(LaunchTest, TheEditorsPathGoesToTheShellUnquoted) {
  Record("cp");
  TOSSpecific::LaunchTextEditor("one two;echo three >made; true " + kTail);
  EXPECT_EQ(Calls(), "cp 2 one two\nvi 1 *" + kTail + "*\n");
  EXPECT_EQ(FileText("made"), "three\n");
}

TEST_F(LaunchTest, TheEditorWithoutACurrentDirectoryCopiesToTheRoot) {
  Record("cp");
  std::filesystem::remove(fScratch / "current");
  TOSSpecific::LaunchTextEditor("/absent/" + kTail);
  EXPECT_EQ(Calls(), "cp 2 /absent/" + kTail + " /\nvi 1 /*" + kTail + "*\n");
}

// No path of 4096 characters or more is told.
TEST_F(LaunchTest, TheEditorCopiesToTheRootWhereTheCurrentDirectoryIsTooDeep) {
  constexpr int kLevels = 21;
  const std::string name(200, 'd');
  Record("cp");
  for (int level = 0; level < kLevels; ++level) {
    ASSERT_EQ(::mkdir(name.c_str(), 0777), 0);
    ASSERT_EQ(::chdir(name.c_str()), 0);
  }
  TOSSpecific::LaunchTextEditor("/absent/" + kTail);
  for (int level = 0; level < kLevels; ++level) {
    ASSERT_EQ(::chdir(".."), 0);
    ASSERT_EQ(::rmdir(name.c_str()), 0);
  }
  EXPECT_EQ(Calls(), "cp 2 /absent/" + kTail + " /\nvi 1 /*" + kTail + "*\n");
}

TEST_F(LaunchTest, TheEditorThrowsForAShortPathAfterTheCopying) {
  const std::string path = kTail.substr(1);
  Record("cp");
  EXPECT_EQ(hwxtest::TextOf<std::out_of_range>([&] { TOSSpecific::LaunchTextEditor(path); }),
            "basic_string::substr");
  EXPECT_EQ(Calls(), "cp 2 " + path + " " + (fScratch / "current") + "\n");
}

TEST_F(LaunchTest, TheEditorTakesAPathOfExactly35Characters) {
  Record("cp");
  TOSSpecific::LaunchTextEditor(kTail);
  EXPECT_EQ(Calls(), "cp 2 " + kTail + " " + (fScratch / "current") + "\nvi 1 *" + kTail + "*\n");
}

TEST_F(LaunchTest, TheShellIsTheFirstAlongThePathAndItsResultIsIgnored) {
  fPrograms.Add("sh", "echo sh $# >>" + fLog + "; exit 3");
  TOSSpecific::LaunchCommandShell();
  EXPECT_EQ(Calls(), "sh 0\n");
}

}  // namespace
