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

using hwxtest::FileText;
using hwxtest::MakeFile;
using hwxtest::OpenDescriptors;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using hwxtest::TemporaryDirectory;
using NQORHWX20::TOSSpecific;

namespace {

int StatusOfDirCopy(const std::string& source, const std::string& destination, bool recursive) {
  return hwxtest::StatusOf([&] { TOSSpecific::DirCopy(source, destination, recursive); });
}

// A directory "from" with two files, and a file two levels below it.
class DirCopyTest : public testing::Test {
 protected:
  DirCopyTest() {
    std::filesystem::create_directories(fScratch / "from/sub/deep");
    MakeFile(fScratch / "from/a", "text of a");
    MakeFile(fScratch / "from/.b", "text of b");
    MakeFile(fScratch / "from/sub/deep/c", "text of c");
  }

  TemporaryDirectory fScratch;
};

TEST_F(DirCopyTest, CopiesTheTopLevelsFilesAlone) {
  TOSSpecific::DirCopy(fScratch / "from", fScratch / "to", false);
  EXPECT_EQ(FileText(fScratch / "to/a"), "text of a");
  EXPECT_EQ(FileText(fScratch / "to/.b"), "text of b");
  EXPECT_FALSE(TOSSpecific::DirExists(fScratch / "to/sub"));
}

TEST_F(DirCopyTest, CopiesTheWholeTreeWhereItIsRecursive) {
  std::filesystem::create_directory(fScratch / "from/empty");
  const std::size_t before = OpenDescriptors();
  TOSSpecific::DirCopy(fScratch / "from", fScratch / "to", true);
  EXPECT_EQ(FileText(fScratch / "to/a"), "text of a");
  EXPECT_EQ(FileText(fScratch / "to/sub/deep/c"), "text of c");
  EXPECT_TRUE(TOSSpecific::DirExists(fScratch / "to/empty"));
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(DirCopyTest, TakesPathsWithSeparatorsAtTheirEnds) {
  TOSSpecific::DirCopy(fScratch / "from/", fScratch / "to//", true);
  EXPECT_EQ(FileText(fScratch / "to/sub/deep/c"), "text of c");
}

TEST_F(DirCopyTest, CopiesIntoADirectoryThatIsThere) {
  std::filesystem::create_directories(fScratch / "to/sub");
  MakeFile(fScratch / "to/a", "old text, which is longer");
  MakeFile(fScratch / "to/other", "kept");
  TOSSpecific::DirCopy(fScratch / "from", fScratch / "to", true);
  EXPECT_EQ(FileText(fScratch / "to/a"), "text of a which is longer");
  EXPECT_EQ(FileText(fScratch / "to/other"), "kept");
  EXPECT_EQ(FileText(fScratch / "to/sub/deep/c"), "text of c");
}

TEST_F(DirCopyTest, FollowsLinksAndPassesOverBrokenOnes) {
  std::filesystem::create_symlink("a", fScratch / "from/link");
  std::filesystem::create_symlink("sub", fScratch / "from/to-directory");
  std::filesystem::create_symlink("absent", fScratch / "from/broken");
  TOSSpecific::DirCopy(fScratch / "from", fScratch / "to", true);
  EXPECT_EQ(FileText(fScratch / "to/link"), "text of a");
  EXPECT_FALSE(std::filesystem::is_symlink(fScratch / "to/link"));
  EXPECT_EQ(FileText(fScratch / "to/to-directory/deep/c"), "text of c");
  EXPECT_FALSE(std::filesystem::is_symlink(fScratch / "to/to-directory"));
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(fScratch / "to/broken")));
}

TEST_F(DirCopyTest, GivesNewDirectoriesAllRightsLessTheUmask) {
  std::filesystem::permissions(fScratch / "from", std::filesystem::perms(0700));
  const int result = RunInChild([&] {
    ::umask(022);
    TOSSpecific::DirCopy(fScratch / "from", fScratch / "to", false);
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(std::filesystem::status(fScratch / "to").permissions(), std::filesystem::perms(0755));
}

TEST_F(DirCopyTest, ThrowsWithoutASourceAndMakesNothing) {
  EXPECT_EQ(StatusOfDirCopy(fScratch / "absent", fScratch / "to", true),
            NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(StatusOfDirCopy(fScratch / "from/a", fScratch / "to", true),
            NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_FALSE(TOSSpecific::DirExists(fScratch / "to"));
}

// The failing calls below leave the source open, in a child that takes it along when it ends.

TEST_F(DirCopyTest, ThrowsWhatCreateDirThrowsAndLeavesTheSourceOpen) {
  const int result = RunInChild([&] {
    MakeFile(fScratch / "file", "");
    const std::size_t before = OpenDescriptors();
    EXPECT_EQ(StatusOfDirCopy(fScratch / "from", fScratch / "absent/to", true),
              NQORHWX20::kHWXStatusFileSystemError);
    EXPECT_EQ(OpenDescriptors(), before + 1);
    EXPECT_EQ(StatusOfDirCopy(fScratch / "from", fScratch / "file", true),
              NQORHWX20::kHWXStatusDirectoryAlreadyExists);
    EXPECT_EQ(OpenDescriptors(), before + 2);
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_FALSE(TOSSpecific::DirExists(fScratch / "absent"));
}

TEST_F(DirCopyTest, ThrowsAccessDeniedOnAReadOnlyFileSystem) {
  RunScene("no right to mount", [&] {
    std::filesystem::create_directory(fScratch / "fixed");
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(fScratch / "fixed") ||
        !hwxtest::RemountReadOnly(fScratch / "fixed")) {
      return hwxtest::kSceneNotAllowed;
    }
    EXPECT_EQ(StatusOfDirCopy(fScratch / "from", fScratch / "fixed/to", true),
              NQORHWX20::kHWXStatusAccessDenied);
    EXPECT_EQ(StatusOfDirCopy(fScratch / "from", fScratch / "fixed", true),
              NQORHWX20::kHWXStatusFileSystemError);
    return 0;
  });
}

TEST_F(DirCopyTest, ThrowsWhatFileCopyThrowsAndKeepsWhatItHasMade) {
  const int result = RunInChild([&] {
    std::filesystem::create_directories(fScratch / "to/sub/deep/c");  // in the file's way
    const std::size_t before = OpenDescriptors();
    EXPECT_EQ(StatusOfDirCopy(fScratch / "from", fScratch / "to", true),
              NQORHWX20::kHWXStatusFileSystemError);
    EXPECT_EQ(OpenDescriptors(), before + 3);  // one for each level
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(TOSSpecific::DirExists(fScratch / "to/sub/deep/c"));
}

TEST_F(DirCopyTest, ThrowsForASubdirectoryThatTheUserMayNotRead) {
  using std::filesystem::perms;
  std::filesystem::create_directories(fScratch / "source/secret");
  std::filesystem::permissions(fScratch.Path(), perms(0777));
  std::filesystem::permissions(fScratch / "source", perms(0755));
  std::filesystem::permissions(fScratch / "source/secret", perms(0));
  const int result = RunInChild([&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(StatusOfDirCopy(fScratch / "source", fScratch / "flat", false),
              NQORHWX20::kHWXStatusOK);
    const std::size_t before = OpenDescriptors();
    EXPECT_EQ(StatusOfDirCopy(fScratch / "source", fScratch / "to", true),
              NQORHWX20::kHWXStatusFileSystemError);
    EXPECT_EQ(OpenDescriptors(), before + 1);  // the level above
    return 0;
  });
  std::filesystem::permissions(fScratch / "source/secret", perms(0755));
  if (result == hwxtest::kSceneNotAllowed) GTEST_SKIP() << "SKIPPED: no right to change the user";
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(TOSSpecific::DirExists(fScratch / "to"));
  EXPECT_FALSE(TOSSpecific::DirExists(fScratch / "to/secret"));
}

TEST_F(DirCopyTest, TakesAnEmptyTextForTheRootDirectory) {
  RunScene("no right to change the root", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() || ::chroot((fScratch / "from").c_str()) != 0) {
      return hwxtest::kSceneNotAllowed;
    }
    std::filesystem::current_path("/sub/deep");
    TOSSpecific::DirCopy("", "to", false);
    EXPECT_EQ(FileText("/sub/deep/to/a"), "text of a");
    TOSSpecific::DirCopy("/sub/deep", "", false);
    EXPECT_EQ(FileText("/c"), "text of c");
    return 0;
  });
}

}  // namespace
