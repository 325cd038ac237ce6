#include "hwx/system/WholeFile.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "hwx/text/Failure.h"
#include "support/ChildProcess.h"
#include "support/FileText.h"
#include "support/TemporaryDirectory.h"
#include "support/TextOf.h"

namespace hwx {
namespace {

namespace fs = std::filesystem;
using hwxtest::FileText;

class WholeFile : public testing::Test {
 protected:
  std::string FailureOf(bool replaces) const { return FailureOf(fPath, replaces); }

  static std::string FailureOf(const std::string& path, bool replaces) {
    return hwxtest::TextOf<TFailure>([&] { WriteWholeFile(path, "new", replaces); });
  }

  // Nothing else may lie about.
  std::size_t Files() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(fDirectory.Path()), fs::directory_iterator()));
  }

  const hwxtest::TemporaryDirectory fDirectory;
  const std::string fPath = fDirectory / "file";
};

TEST_F(WholeFile, HoldsTheBytes) {
  const std::string bytes = hwxtest::AllBytes(100000);
  WriteWholeFile(fPath, bytes, false);
  EXPECT_EQ(FileText(fPath), bytes);
  EXPECT_EQ(Files(), 1u);
}

TEST_F(WholeFile, MayBeEmpty) {
  WriteWholeFile(fPath, "", false);
  EXPECT_EQ(FileText(fPath), "");
}

TEST_F(WholeFile, IsForItsOwnerAlone) {
  WriteWholeFile(fPath, "x", false);
  EXPECT_EQ(fs::status(fPath).permissions(), fs::perms(0600));
}

TEST_F(WholeFile, LeavesAFileThatIsThere) {
  hwxtest::MakeFile(fPath, "old");
  EXPECT_EQ(FailureOf(false),
            fPath + " can't be written: it is there already; --force replaces it");
  EXPECT_EQ(FileText(fPath), "old");
  EXPECT_EQ(Files(), 1u);
}

TEST_F(WholeFile, ReplacesAFileIfItMay) {
  hwxtest::MakeFile(fPath, "old and longer");
  EXPECT_EQ(FailureOf(true), "");
  EXPECT_EQ(FileText(fPath), "new");
  EXPECT_EQ(Files(), 1u);
}

TEST_F(WholeFile, ReplacesNoLinkAndNoDevice) {
  hwxtest::MakeFile(fDirectory / "other", "old");
  fs::create_symlink(fDirectory / "other", fPath);
  const std::string reason = " can't be written: it is there, and no regular file";
  for (const bool replaces : {false, true})
    EXPECT_EQ(FailureOf(replaces), fPath + reason);
  EXPECT_EQ(FileText(fDirectory / "other"), "old");
  EXPECT_EQ(FailureOf("/dev/null", true), "/dev/null" + reason);
  EXPECT_EQ(FailureOf(fDirectory.Path(), true), fDirectory.Path() + reason);
}

TEST_F(WholeFile, TellsADirectoryThatIsAbsent) {
  const std::string path = fDirectory / "none/file";
  EXPECT_EQ(FailureOf(path, false), path + " can't be written: No such file or directory");
}

TEST_F(WholeFile, TellsADirectoryThatIsClosedToTheUser) {
  hwxtest::RunScene("rights can't be given up", [] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(FailureOf("/etc/hwx-file", false),
              "/etc/hwx-file can't be written: Permission denied");
    return 0;
  });
}

TEST_F(WholeFile, LeavesNothingBehindOnAFullDisk) {
  hwxtest::RunScene("no mounts allowed here", [this] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(fDirectory.Path()))
      return hwxtest::kSceneNotAllowed;
    hwxtest::MakeFile(fPath, "old");
    const std::string large(std::size_t{2} * 1024 * 1024, 'x');
    EXPECT_EQ(hwxtest::TextOf<TFailure>([&] { WriteWholeFile(fPath, large, true); }),
              fPath + " can't be written: No space left on device");
    EXPECT_EQ(FileText(fPath), "old");
    EXPECT_EQ(Files(), 1u);
    return 0;
  });
}

}  // namespace
}  // namespace hwx
