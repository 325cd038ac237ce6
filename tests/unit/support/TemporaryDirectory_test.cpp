#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <filesystem>
#include <optional>

#include "support/ChildProcess.h"
#include "support/FileText.h"

namespace hwxtest {
namespace {

namespace fs = std::filesystem;

TEST(TemporaryDirectory, IsEmptyAndOfItsOwn) {
  const TemporaryDirectory one;
  const TemporaryDirectory other;
  EXPECT_TRUE(fs::is_empty(one.Path()));
  EXPECT_NE(one.Path(), other.Path());
}

TEST(TemporaryDirectory, IsRemovedWithAllThatIsInIt) {
  std::optional<TemporaryDirectory> scratch(std::in_place);
  const std::string path = scratch->Path();
  fs::create_directories(*scratch / "a/b/c");
  MakeFile(*scratch / "a/b/file", "text");
  fs::permissions(*scratch / "a/b/file", fs::perms::none);
  fs::create_symlink("/absent", *scratch / "a/nowhere");
  scratch.reset();
  EXPECT_FALSE(fs::exists(path));
}

TEST(TemporaryDirectory, LeavesWhatALinkInItLeadsTo) {
  const TemporaryDirectory other;
  MakeFile(other / "file", "text");
  {
    const TemporaryDirectory scratch;
    fs::create_directory_symlink(other.Path(), scratch / "link");
    fs::create_symlink(other / "file", scratch / "file");
  }
  EXPECT_EQ(FileText(other / "file"), "text");
}

TEST(TemporaryDirectory, LeavesWhatIsMountedInIt) {
  RunScene("no right to mount", [] {
    if (!EnterPrivateMountNamespace()) return kSceneNotAllowed;
    std::optional<TemporaryDirectory> scratch(std::in_place);
    const std::string path = scratch->Path();
    const std::string mounted = *scratch / "mounted";
    fs::create_directories(mounted);
    if (!MountTmpfs(mounted)) return kSceneNotAllowed;
    MakeFile(mounted + "/file", "text");
    MakeFile(*scratch / "own", "text");
    scratch.reset();
    EXPECT_EQ(FileText(mounted + "/file"), "text");
    EXPECT_FALSE(fs::exists(path + "/own"));
    ::umount(mounted.c_str());
    fs::remove_all(path);
    return 0;
  });
}

}  // namespace
}  // namespace hwxtest
