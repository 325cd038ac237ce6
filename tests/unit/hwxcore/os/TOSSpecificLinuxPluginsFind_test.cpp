#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "hwxcore/os/TOSSpecific.h"
#include "support/ChildProcess.h"
#include "support/Descriptors.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::OpenDescriptors;
using hwxtest::ScopedLogCapture;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FindPlugins : public testing::Test {
 protected:
  // Makes an empty file, and the directories on the way.
  void AddFile(const std::string& name) {
    const std::filesystem::path path = fDirectory / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path);
  }

  void AddDirectory(const std::string& name) {
    std::filesystem::create_directories(fDirectory / name);
  }

  std::vector<std::string> Find(const std::string& word) const {
    return TOSSpecific::FindPlugins(fDirectory.Path(), word);
  }

  hwxtest::TemporaryDirectory fDirectory;
};

int StatusOfFindPlugins(const std::string& dir) {
  return hwxtest::StatusOf([&] { TOSSpecific::FindPlugins(dir, "pi"); });
}

TEST_F(FindPlugins, FindsNothingInADirectoryWithoutSubdirectories) {
  EXPECT_THAT(Find("pi"), IsEmpty());
  AddFile("readme");
  EXPECT_THAT(Find("pi"), IsEmpty());
}

TEST_F(FindPlugins, FindsNothingInSubdirectoriesWithoutAMatchingFile) {
  AddDirectory("a");
  AddFile("b/libx.so");
  AddFile("b/libx.pi.s");
  AddFile("b/libxpi.so");
  AddFile("b/libx.nsp.so");
  EXPECT_THAT(Find("pi"), IsEmpty());
}

TEST_F(FindPlugins, SearchesExactlyOneLevelDown) {
  AddFile("libx.pi.so");
  AddFile("a/libx.pi.so");
  AddFile("a/deeper/libx.pi.so");
  EXPECT_THAT(Find("pi"), ElementsAre(fDirectory / "a/libx.pi.so"));
}

TEST_F(FindPlugins, TakesTheWordAnywhereInTheName) {
  AddFile("a/libx.pi.so.1");
  AddFile("a/x.pi.so.bak");
  AddFile("a/.pi.so");
  EXPECT_THAT(Find("pi"), ElementsAre(fDirectory / "a/.pi.so", fDirectory / "a/libx.pi.so.1",
                                      fDirectory / "a/x.pi.so.bak"));
}

TEST_F(FindPlugins, TellsTheWordsApart) {
  AddFile("a/libx.pi.so");
  AddFile("a/libx.nsp.so");
  EXPECT_THAT(Find("nsp"), ElementsAre(fDirectory / "a/libx.nsp.so"));
  EXPECT_THAT(TOSSpecific::FindPlugins(fDirectory.Path()),
              ElementsAre(fDirectory / "a/libx.pi.so"));
}

TEST_F(FindPlugins, PresentsFilesOfTheSameNameByTheirSubdirectory) {
  AddFile("b/libx.pi.so");
  AddFile("a/libx.pi.so");
  EXPECT_THAT(Find("pi"), ElementsAre(fDirectory / "a/libx.pi.so", fDirectory / "b/libx.pi.so"));
}

TEST_F(FindPlugins, SortsWholePathsByTheirBytes) {
  AddFile("b/a.pi.so");
  AddFile("a/z.pi.so");
  AddFile("a/a.pi.so");
  AddFile("a/B.pi.so");
  AddFile("a/\xC3\xA4.pi.so");
  EXPECT_THAT(Find("pi"), ElementsAre(fDirectory / "a/B.pi.so", fDirectory / "a/a.pi.so",
                                      fDirectory / "a/z.pi.so", fDirectory / "a/\xC3\xA4.pi.so",
                                      fDirectory / "b/a.pi.so"));
}

TEST_F(FindPlugins, ReportsADirectoryWithAMatchingName) {
  AddDirectory("a/libx.pi.so");
  EXPECT_THAT(Find("pi"), ElementsAre(fDirectory / "a/libx.pi.so"));
}

TEST_F(FindPlugins, ReportsALinkThatLeadsNowhere) {
  AddDirectory("a");
  std::filesystem::create_symlink("/nowhere", fDirectory / "a/libx.pi.so");
  EXPECT_THAT(Find("pi"), ElementsAre(fDirectory / "a/libx.pi.so"));
}

TEST_F(FindPlugins, FollowsLinksToSubdirectoriesAndPassesOverBrokenOnes) {
  AddFile("a/libx.pi.so");
  std::filesystem::create_symlink("a", fDirectory / "b");
  std::filesystem::create_symlink("nowhere", fDirectory / "c");
  EXPECT_THAT(Find("pi"), ElementsAre(fDirectory / "a/libx.pi.so", fDirectory / "b/libx.pi.so"));
}

// The directory itself is an entry of its own listing, and its parent is another.
TEST_F(FindPlugins, DoesNotTakeTheDirectoryOrItsParentForSubdirectories) {
  AddFile("parent/libouter.pi.so");
  AddFile("parent/dir/libx.pi.so");
  EXPECT_THAT(TOSSpecific::FindPlugins(fDirectory / "parent/dir"), IsEmpty());
}

TEST_F(FindPlugins, PutsASeparatorBehindADirectoryThatHasOne) {
  AddFile("a/libx.pi.so");
  EXPECT_THAT(TOSSpecific::FindPlugins(fDirectory.Path() + "/"),
              ElementsAre(fDirectory.Path() + "//a/libx.pi.so"));
}

TEST_F(FindPlugins, ReleasesItsHandles) {
  AddFile("a/libx.pi.so");
  AddFile("b/liby.pi.so");
  const std::size_t before = OpenDescriptors();
  Find("pi");
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(FindPlugins, FailsWithoutALogEntryWhenTheDirectoryCannotBeOpened) {
  AddFile("file");
  ScopedLogCapture log;
  const std::size_t before = OpenDescriptors();
  EXPECT_EQ(StatusOfFindPlugins(fDirectory / "absent"), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(StatusOfFindPlugins(fDirectory / "file"), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(StatusOfFindPlugins(""), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(OpenDescriptors(), before);
  EXPECT_THAT(log.Lines(), IsEmpty());
}

// In a child, since it gives up its rights, and since a handle is left behind.
TEST_F(FindPlugins, FailsAndKeepsOneHandleWhenASubdirectoryCannotBeOpened) {
  AddFile("a/libx.pi.so");
  AddDirectory("closed");
  std::filesystem::permissions(fDirectory.Path(), std::filesystem::perms(0755));
  ASSERT_EQ(::chmod((fDirectory / "closed").c_str(), 0), 0);
  hwxtest::RunScene("no right to change the user", [this] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    ScopedLogCapture log;
    const std::size_t before = OpenDescriptors();
    EXPECT_EQ(StatusOfFindPlugins(fDirectory.Path()), NQORHWX20::kHWXStatusFileSystemError);
    EXPECT_EQ(OpenDescriptors(), before + 1);
    EXPECT_THAT(log.Lines(), IsEmpty());
    return 0;
  });
}

}  // namespace
