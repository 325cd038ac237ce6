#include "hwxsys/AtomicFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <iterator>

#include "support/ChildProcess.h"
#include "support/FileText.h"
#include "support/TemporaryDirectory.h"

namespace hwxsys {
namespace {

namespace fs = std::filesystem;
using hwxtest::FileText;
using hwxtest::MakeFile;

class AtomicFile : public testing::TestWithParam<EFileKind> {
 protected:
  static void Write(const std::string& path, EFileKind kind, const std::string& bytes) {
    TAtomicFile file(path, kind);
    file.Write(bytes);
    file.Commit();
  }

  // What goes wrong, with the error's number; empty if nothing does.
  static std::string FailureOf(const std::string& path, EFileKind kind) {
    try {
      Write(path, kind, "new");
      return "";
    } catch (const TFileError& failure) {
      return std::to_string(failure.Error()) + ": " + failure.what();
    }
  }

  std::ptrdiff_t Files() const {
    return std::distance(fs::directory_iterator(fDirectory.Path()), fs::directory_iterator());
  }

  const hwxtest::TemporaryDirectory fDirectory;
  const std::string fPath = fDirectory / "file";
};

TEST_P(AtomicFile, HoldsTheBytes) {
  const std::string bytes = hwxtest::AllBytes(100000);
  Write(fPath, GetParam(), bytes);
  EXPECT_EQ(FileText(fPath), bytes);
  EXPECT_EQ(Files(), 1);
}

TEST_P(AtomicFile, IsNotThereWithoutCommit) {
  {
    TAtomicFile file(fPath, GetParam());
    file.Write("new");
    EXPECT_FALSE(fs::exists(fPath));
  }
  EXPECT_EQ(Files(), 0);
}

TEST_P(AtomicFile, TellsAnAbsentDirectory) {
  const std::string failure = FailureOf(fDirectory / "none/file", GetParam());
  EXPECT_EQ(failure.substr(0, 3), "2: ") << failure;
  EXPECT_NE(failure.find(": No such file or directory"), std::string::npos) << failure;
}

TEST_P(AtomicFile, LeavesNothingBehindOnAFullDisk) {
  hwxtest::RunScene("no mounts allowed here", [this] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(fDirectory.Path()))
      return hwxtest::kSceneNotAllowed;
    const std::string large(std::size_t{2} * 1024 * 1024, 'x');
    EXPECT_THROW(Write(fPath, GetParam(), large), TFileError);
    EXPECT_EQ(Files(), 0);
    return 0;
  });
}

INSTANTIATE_TEST_SUITE_P(Kinds, AtomicFile,
                         testing::Values(EFileKind::kSuccessor, EFileKind::kPrivate,
                                         EFileKind::kPrivateAndNew));

using ASuccessor = AtomicFile;

TEST_F(ASuccessor, KeepsThePermissions) {
  MakeFile(fPath, "old and longer");
  fs::permissions(fPath, fs::perms(0640));
  Write(fPath, EFileKind::kSuccessor, "new");
  EXPECT_EQ(FileText(fPath), "new");
  EXPECT_EQ(fs::status(fPath).permissions(), fs::perms(0640));
}

TEST_F(ASuccessor, TakesThePlaceOfWhatALinkLeadsTo) {
  MakeFile(fDirectory / "other", "old");
  fs::create_symlink("other", fPath);
  Write(fPath, EFileKind::kSuccessor, "new");
  EXPECT_TRUE(fs::is_symlink(fPath));
  EXPECT_EQ(FileText(fDirectory / "other"), "new");
}

TEST_F(ASuccessor, IsOfRegularFilesOnly) {
  EXPECT_EQ(FailureOf("/dev/null", EFileKind::kSuccessor),
            std::to_string(EINVAL) + ": can't be replaced: not a regular file");
  EXPECT_EQ(FailureOf(fDirectory.Path(), EFileKind::kSuccessor),
            std::to_string(EINVAL) + ": can't be replaced: not a regular file");
}

using APrivateFile = AtomicFile;

TEST_F(APrivateFile, IsForItsOwnerAlone) {
  MakeFile(fPath, "old");
  fs::permissions(fPath, fs::perms(0644));
  Write(fPath, EFileKind::kPrivate, "new");
  EXPECT_EQ(fs::status(fPath).permissions(), fs::perms(0600));
}

TEST_F(APrivateFile, TakesNobodysPlaceIfItIsToBeNew) {
  MakeFile(fPath, "old");
  EXPECT_EQ(FailureOf(fPath, EFileKind::kPrivateAndNew),
            std::to_string(EEXIST) + ": can't be written: File exists");
  EXPECT_EQ(FileText(fPath), "old");
  EXPECT_EQ(Files(), 1);
}

}  // namespace
}  // namespace hwxsys
