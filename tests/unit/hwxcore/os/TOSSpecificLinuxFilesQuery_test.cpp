#include <dirent.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "hwxcore/os/TOSSpecific.h"
#include "support/ChildProcess.h"
#include "support/Descriptors.h"
#include "support/FileText.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::MakeFile;
using hwxtest::OpenDescriptors;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using hwxtest::StatusOf;
using hwxtest::TemporaryDirectory;
using NQORHWX20::TOSSpecific;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

TEST(FileExists, HoldsForAnythingButADirectory) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "text");
  EXPECT_TRUE(TOSSpecific::FileExists(scratch / "file"));
  EXPECT_TRUE(TOSSpecific::FileExists("/dev/null"));
  EXPECT_FALSE(TOSSpecific::FileExists(scratch.Path()));
  EXPECT_FALSE(TOSSpecific::FileExists(scratch / "absent"));
  EXPECT_FALSE(TOSSpecific::FileExists(scratch / "file/"));
  EXPECT_FALSE(TOSSpecific::FileExists(""));
}

TEST(FileExists, FollowsLinks) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "text");
  std::filesystem::create_symlink("file", scratch / "link");
  std::filesystem::create_symlink("absent", scratch / "broken");
  std::filesystem::create_symlink(".", scratch / "to-directory");
  EXPECT_TRUE(TOSSpecific::FileExists(scratch / "link"));
  EXPECT_FALSE(TOSSpecific::FileExists(scratch / "broken"));
  EXPECT_FALSE(TOSSpecific::FileExists(scratch / "to-directory"));
}

TEST(FileExists, IsFalseWhereTheUserMayNotLook) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "text");
  ::chmod(scratch.Path().c_str(), 0);
  RunScene("no right to change the user", [&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_FALSE(TOSSpecific::FileExists(scratch / "file"));
    EXPECT_EQ(StatusOf([&] { TOSSpecific::GetFileSize(scratch / "file"); }),
              NQORHWX20::kHWXStatusFileNotFound);
    return 0;
  });
  ::chmod(scratch.Path().c_str(), 0755);
}

TEST(GetFileSize, CountsBytes) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "empty", "");
  MakeFile(scratch / "file", std::string("a\0b", 3));
  std::filesystem::create_symlink("file", scratch / "link");
  EXPECT_EQ(TOSSpecific::GetFileSize(scratch / "empty"), 0);
  EXPECT_EQ(TOSSpecific::GetFileSize(scratch / "file"), 3);
  EXPECT_EQ(TOSSpecific::GetFileSize(scratch / "link"), 3);
}

TEST(GetFileSize, HoldsMoreThan32Bits) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "");
  std::filesystem::resize_file(scratch / "file", 5000000000);
  const std::int64_t size = TOSSpecific::GetFileSize(scratch / "file");
  EXPECT_EQ(size, 5000000000);
}

TEST(GetFileSize, ThrowsFileNotFound) {
  const TemporaryDirectory scratch;
  std::filesystem::create_symlink("absent", scratch / "broken");
  for (const std::string& path : {scratch.Path(), scratch / "absent", scratch / "broken"}) {
    EXPECT_EQ(StatusOf([&] { TOSSpecific::GetFileSize(path); }), NQORHWX20::kHWXStatusFileNotFound)
        << path;
  }
}

TEST(GetCurrentDir, NamesTheCurrentDirectory) {
  EXPECT_EQ(TOSSpecific::GetCurrentDir(), std::filesystem::current_path().string());
}

// Goes down until the path is `length` long. The steps leave room for a last one.
void EnterPathOfLength(std::size_t length) {
  while (true) {
    const std::size_t missing = length - std::filesystem::current_path().string().size();
    if (missing == 0) return;
    const std::size_t name = missing > 202 ? 200 : missing - 1;
    const std::string directory(name, 'd');
    if (::mkdir(directory.c_str(), 0777) != 0 || ::chdir(directory.c_str()) != 0) return;
  }
}

TEST(GetCurrentDir, ThrowsFailForAPathOf1024BytesOrMore) {
  const TemporaryDirectory scratch;
  const int result = RunInChild([&] {
    std::filesystem::current_path(scratch.Path());
    EnterPathOfLength(1023);
    EXPECT_EQ(TOSSpecific::GetCurrentDir().size(), 1023U);
    std::filesystem::current_path("..");
    EnterPathOfLength(1024);
    EXPECT_EQ(StatusOf(&TOSSpecific::GetCurrentDir), NQORHWX20::kHWXStatusFail);
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(GetCurrentDir, ThrowsFailIfTheDirectoryIsGone) {
  const TemporaryDirectory scratch;
  const int result = RunInChild([&] {
    std::filesystem::create_directory(scratch / "gone");
    std::filesystem::current_path(scratch / "gone");
    std::filesystem::remove(scratch / "gone");
    EXPECT_EQ(StatusOf(&TOSSpecific::GetCurrentDir), NQORHWX20::kHWXStatusFail);
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(ListDir, GivesTheNamesOfAllEntriesWithoutTheTwoThatAreAlwaysThere) {
  const TemporaryDirectory scratch;
  for (const char* const name : {"b", "a", ".hidden", "...", "..x", "two words"})
    MakeFile(scratch / name, "");
  std::filesystem::create_directory(scratch / "directory");
  std::filesystem::create_symlink("absent", scratch / "broken");
  EXPECT_THAT(
      TOSSpecific::ListDir(scratch.Path()),
      UnorderedElementsAre("b", "a", ".hidden", "...", "..x", "two words", "directory", "broken"));
  EXPECT_THAT(TOSSpecific::ListDir(scratch / "directory"), IsEmpty());
  EXPECT_EQ(TOSSpecific::ListDir(scratch.Path() + "/").size(), 8U);
}

TEST(ListDir, KeepsTheDirectorysOrder) {
  const TemporaryDirectory scratch;
  for (int i = 0; i < 3000; ++i)
    MakeFile(scratch / ("name-of-some-length-" + std::to_string(i * 7919 % 3000)), "");
  std::vector<std::string> expected;
  DIR* const directory = ::opendir(scratch.Path().c_str());
  while (const dirent* const entry = ::readdir(directory))
    expected.push_back(entry->d_name);
  ::closedir(directory);
  expected.erase(std::remove(expected.begin(), expected.end(), "."), expected.end());
  expected.erase(std::remove(expected.begin(), expected.end(), ".."), expected.end());
  ASSERT_EQ(expected.size(), 3000U);
  EXPECT_EQ(TOSSpecific::ListDir(scratch.Path()), expected);
}

TEST(ListDir, LeavesADescriptorOpenAtEachCall) {
  const TemporaryDirectory scratch;
  const std::size_t before = OpenDescriptors();
  TOSSpecific::ListDir(scratch.Path());
  EXPECT_EQ(OpenDescriptors(), before + 1);
  TOSSpecific::ListDir(scratch.Path());
  EXPECT_EQ(OpenDescriptors(), before + 2);
}

TEST(ListDir, ThrowsFileSystemErrorForWhatCannotBeOpened) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "");
  const std::size_t before = OpenDescriptors();
  for (const std::string& path : {scratch / "absent", scratch / "file", std::string()}) {
    EXPECT_EQ(StatusOf([&] { TOSSpecific::ListDir(path); }), NQORHWX20::kHWXStatusFileSystemError);
  }
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST(ListDir, ThrowsFileSystemErrorWhenNoDescriptorIsLeft) {
  const int result = RunInChild([] {
    StatusOf([] { TOSSpecific::ListDir("/absent"); });  // for UBSan, see LimitDescriptors
    hwxtest::LimitDescriptors(OpenDescriptors() + 30);
    int calls = 0;
    const int status = StatusOf([&] {
      for (; calls < 100; ++calls)
        TOSSpecific::ListDir("/");
    });
    EXPECT_EQ(status, NQORHWX20::kHWXStatusFileSystemError);
    EXPECT_GT(calls, 0);
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(RelocateRelativePath, PutsARelativePathBehindTheBase) {
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt", "a"), "/opt/a");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt/", "a"), "/opt/a");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt//", "a"), "/opt//a");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("opt", "a/b"), "opt/a/b");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/", "a"), "/a");
}

TEST(RelocateRelativePath, TakesOneSeparatorFromTheEndOfThePath) {
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt", "a/"), "/opt/a");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt", "a//"), "/opt/a/");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt", "/a/"), "/a");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("", "a/"), "a");
}

TEST(RelocateRelativePath, KeepsAnAbsolutePathAndOneWithoutABase) {
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt", "/a"), "/a");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt", "//"), "/");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("", "a"), "a");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("", "/"), "");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("", ""), "");
}

TEST(RelocateRelativePath, TakesAPathThatIsOrBecomesEmptyForARelativeOne) {
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt", ""), "/opt/");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt", "/"), "/opt/");
  EXPECT_EQ(TOSSpecific::RelocateRelativePath("/opt/", "/"), "/opt/");
}

}  // namespace
