#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>
#include <new>

#include "hwxcore/os/TOSSpecific.h"
#include "support/ChildProcess.h"
#include "support/FileText.h"
#include "support/MemoryLimit.h"
#include "support/ProgramDirectory.h"
#include "support/Sanitizers.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::MakeFile;
using hwxtest::ProgramDirectory;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using hwxtest::TemporaryDirectory;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

TEST(FindFile, GivesThePathAndAllThatLiesBelowIt) {
  const TemporaryDirectory scratch;
  std::filesystem::create_directories(scratch / "a/b");
  MakeFile(scratch / "a/b/c d", "");
  EXPECT_THAT(
      TOSSpecific::FindFile(scratch.Path()),
      UnorderedElementsAre(scratch.Path(), scratch / "a", scratch / "a/b", scratch / "a/b/c d"));
  EXPECT_THAT(TOSSpecific::FindFile(scratch / "a/b/c d"), ElementsAre(scratch / "a/b/c d"));
}

TEST(FindFile, GivesTheLinesOfTheProgramForTheOneArgument) {
  const ProgramDirectory programs;
  programs.Add("find", "echo $# $0; echo \"[$1]\"; echo; echo last; exit 1");
  EXPECT_THAT(TOSSpecific::FindFile("one argument"),
              ElementsAre("1 " + programs / "find", "[one argument]", "", "last"));
}

TEST(FindFile, GivesAComplaintAsALineLikeAnyOther) {
  const TemporaryDirectory scratch;
  const std::vector<std::string> lines = TOSSpecific::FindFile(scratch / "absent");
  EXPECT_THAT(lines, ElementsAre(HasSubstr(scratch / "absent")));
  EXPECT_NE(lines[0], scratch / "absent");
}

TEST(FindFile, GivesTheComplaintAboutAnUnreadableDirectoryAmongTheLines) {
  const TemporaryDirectory scratch;
  ::chmod(scratch.Path().c_str(), 0755);
  std::filesystem::create_directory(scratch / "secret");
  ::chmod((scratch / "secret").c_str(), 0);
  RunScene("no right to change the user", [&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    const std::vector<std::string> lines = TOSSpecific::FindFile(scratch.Path());
    EXPECT_EQ(lines.size(), 3U);
    EXPECT_THAT(lines, testing::Contains(HasSubstr("find: ")));
    return 0;
  });
}

TEST(FindFile, GivesNothingIfTheProgramPrintsNothingOrIsMissing) {
  const ProgramDirectory programs;
  programs.Add("find", "exit 0");
  EXPECT_THAT(TOSSpecific::FindFile("/"), IsEmpty());
  const hwxtest::ScopedEnvironment path("PATH", "/absent");
  EXPECT_THAT(TOSSpecific::FindFile("/"), IsEmpty());
}

TEST(FindFile, GivesEmptyLines) {
  const ProgramDirectory programs;
  programs.Add("find", "echo; echo; echo x; echo");
  EXPECT_THAT(TOSSpecific::FindFile("/"), ElementsAre("", "", "x", ""));
}

TEST(FindFile, ThrowsIfNoChildCanBeMade) {
  RunScene("children can't be forbidden", [] {
    const rlimit none{0, 0};
    if (!hwxtest::BecomeUnprivileged() || ::setrlimit(RLIMIT_NPROC, &none) != 0) {
      return hwxtest::kSceneNotAllowed;
    }
    const int status = hwxtest::StatusOf([] { TOSSpecific::FindFile("/proc/version"); });
    if (status == NQORHWX20::kHWXStatusOK) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(status, NQORHWX20::kHWXStatusFail);
    return 0;
  });
}

TEST(FindFile, TakesALastLineThatDoesNotEndAgainAndAgain) {
  const ProgramDirectory programs;
  programs.Add("find", "echo first; printf unended");
  const int result = RunInChild([] {
    constexpr int kNoMemory = 42;
    hwxtest::LimitMemoryTo(512 << 20);
    try {
      TOSSpecific::FindFile("/");
    } catch (const std::bad_alloc&) {
      return kNoMemory;
    }
    return 0;
  });
#ifdef HWXTESTS_ADDRESS_SANITIZER
  EXPECT_NE(result, 0) << "it returned";  // the sanitizer ends a process that has no memory left
#else
  EXPECT_EQ(result, 42);
#endif
}

}  // namespace
