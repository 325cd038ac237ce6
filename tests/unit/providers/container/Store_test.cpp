// Files that are replaced whole or not at all.

#include "providers/container/Store.h"

#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>

#include "support/ChildProcess.h"
#include "support/FileText.h"
#include "support/NamespaceText.h"
#include "support/RandomNamespace.h"
#include "support/TemporaryDirectory.h"
#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

namespace fs = std::filesystem;
using namespace container;
using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

// The names of all files in a directory.
std::vector<std::string> Files(const std::string& directory) {
  std::vector<std::string> names;
  for (const fs::directory_entry& file : fs::directory_iterator(directory))
    names.push_back(file.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

// A namespace whose document is larger than so many bytes and doesn't compress well.
Namespace LargeNamespace(std::size_t bytes) {
  const Namespace ns = TMemoryNamespace::Create("root/large");
  const auto owner = TClassBuilder(ns, "Large").Key("Name", "string").Commit();
  std::mt19937_64 random(1);
  for (std::size_t size = 0; size < bytes; size += 10000) {
    std::string text;
    while (text.size() < 10000)
      text += std::to_string(random());
    const auto instance = owner->NewInstance();
    instance->Set("Name", text);
    owner->AddInstance(instance);
  }
  return ns;
}

int StatusOfSave(const Namespace& ns, const std::string& path) {
  return FailureOf([&] { SaveFile(*ns, path); }).status;
}

class Store : public ::testing::Test {
 protected:
  const Namespace fSmall = TMemoryNamespace::Create("root/small");
  TemporaryDirectory fDirectory;
  const std::string fPath = fDirectory / "one.xml";
};

TEST_F(Store, WritesADocument) {
  SaveFile(*fSmall, fPath);
  EXPECT_EQ(FileText(fPath), Save(*fSmall));
  EXPECT_EQ(LoadFile(fPath)->GetName({}), "root/small");
  EXPECT_THAT(Files(fDirectory.Path()), ElementsAre("one.xml"));
}

TEST_F(Store, CompressesByTheEndOfTheName) {
  const Namespace large = LargeNamespace(300000);
  const std::string plain = Save(*large);
  SaveFile(*large, fDirectory / "one.xml.gz");
  SaveFile(*large, fDirectory / "one.gz.xml");
  SaveFile(*large, fDirectory / ".gz");
  EXPECT_LT(fs::file_size(fDirectory / "one.xml.gz"), plain.size() / 2);
  EXPECT_EQ(FileText(fDirectory / "one.gz.xml"), plain);
  EXPECT_EQ(FileText(fDirectory / ".gz"), FileText(fDirectory / "one.xml.gz"));
  EXPECT_EQ(Difference(*large, *LoadFile(fDirectory / "one.xml.gz")), "");
}

TEST_F(Store, CompressesToTheSameBytesEachTime) {
  SaveFile(*RandomNamespace(1), fDirectory / "one.gz");
  SaveFile(*LoadFile(fDirectory / "one.gz"), fDirectory / "other.gz");
  EXPECT_EQ(FileText(fDirectory / "one.gz"), FileText(fDirectory / "other.gz"));
}

TEST_F(Store, ReplacesAFileAndKeepsItsPermissions) {
  MakeFile(fPath, "old");
  ::chmod(fPath.c_str(), 0640);
  SaveFile(*fSmall, fPath);
  EXPECT_EQ(FileText(fPath), Save(*fSmall));
  EXPECT_EQ(fs::status(fPath).permissions(), fs::perms(0640));
  EXPECT_THAT(Files(fDirectory.Path()), ElementsAre("one.xml"));
}

TEST_F(Store, GivesANewFileThePermissionsThatTheMaskLeaves) {
  const mode_t before = ::umask(027);
  SaveFile(*fSmall, fPath);
  ::umask(before);
  EXPECT_EQ(fs::status(fPath).permissions(), fs::perms(0640));
}

// Whoever has the old file open goes on reading the old file.
TEST_F(Store, NeverWritesIntoTheOldFile) {
  MakeFile(fPath, "old");
  std::ifstream old(fPath);
  SaveFile(*fSmall, fPath);
  std::string text;
  std::getline(old, text);
  EXPECT_EQ(text, "old");
}

TEST_F(Store, ReplacesWhatASymbolicLinkLeadsTo) {
  fs::create_directory(fDirectory / "elsewhere");
  fs::create_symlink("elsewhere/two.xml", fPath);
  SaveFile(*fSmall, fPath);
  SaveFile(*fSmall, fPath);
  EXPECT_TRUE(fs::is_symlink(fPath));
  EXPECT_EQ(FileText(fDirectory / "elsewhere/two.xml"), Save(*fSmall));
  EXPECT_THAT(Files(fDirectory / "elsewhere"), ElementsAre("two.xml"));
}

TEST_F(Store, RefusesACircleOfLinks) {
  fs::create_symlink("one.xml", fDirectory / "two.xml");
  fs::create_symlink("two.xml", fPath);
  const Failure failure = FailureOf([&] { SaveFile(*fSmall, fPath); });
  EXPECT_EQ(failure.status, kHWXStatusFileSystemError);
  EXPECT_THAT(failure.text, HasSubstr("one.xml: can't be followed: "));
}

TEST_F(Store, RefusesWhatIsNoFile) {
  EXPECT_EQ(StatusOfSave(fSmall, fDirectory.Path()), kHWXStatusFileSystemError);
  EXPECT_EQ(StatusOfSave(fSmall, "/dev/null"), kHWXStatusFileSystemError);
  EXPECT_EQ(StatusOfSave(fSmall, ""), kHWXStatusFileNotFound);
  EXPECT_EQ(StatusOfSave(fSmall, fDirectory / "absent/"), kHWXStatusFileNotFound);
  EXPECT_EQ(StatusOfSave(fSmall, fDirectory / "absent/one.xml"), kHWXStatusFileNotFound);
  MakeFile(fPath, "old");
  EXPECT_EQ(StatusOfSave(fSmall, fPath + "/one.xml"), kHWXStatusFileNotFound);
}

TEST_F(Store, LoadsNothingFromWhatIsNoFile) {
  EXPECT_EQ(FailureOf([&] { LoadFile(""); }).status, kHWXStatusFileNotFound);
  EXPECT_EQ(FailureOf([&] { LoadFile(fPath); }).status, kHWXStatusFileNotFound);
  EXPECT_EQ(FailureOf([&] { LoadFile(fDirectory.Path()); }).status, kHWXStatusFileSystemError);
}

TEST_F(Store, LeavesEverythingAsItWasWhenTheNamespaceIsRefused) {
  MakeFile(fPath, "old");
  const Namespace ns = TMemoryNamespace::Create("root/test");
  TClassBuilder(ns, "Live")
      .Key("Name", "string")
      .Source([](TInstanceList&) { throw std::runtime_error("the machine can't be read"); })
      .Commit();
  EXPECT_THROW(SaveFile(*ns, fPath), std::runtime_error);
  EXPECT_EQ(FileText(fPath), "old");
  EXPECT_THAT(Files(fDirectory.Path()), ElementsAre("one.xml"));
}

TEST_F(Store, LeavesEverythingAsItWasWhenTheDiskIsFull) {
  RunScene("no mounts of one's own are allowed here", [&] {
    if (!EnterPrivateMountNamespace() || !MountTmpfs(fDirectory.Path())) return kSceneNotAllowed;
    for (const char* name : {"one.xml", "one.xml.gz"}) {
      const std::string path = fDirectory / name;
      SaveFile(*fSmall, path);
      const std::string old = FileText(path);
      const Failure failure = FailureOf([&] { SaveFile(*LargeNamespace(4000000), path); });
      EXPECT_EQ(failure.status, kHWXStatusFileSystemError);
      EXPECT_EQ(failure.text, path + ": can't be written: No space left on device");
      EXPECT_EQ(FileText(path), old);
    }
    EXPECT_THAT(Files(fDirectory.Path()), ElementsAre("one.xml", "one.xml.gz"));
    SaveFile(*fSmall, fPath);  // there is room again
    return 0;
  });
}

TEST_F(Store, MakesNoFileOnAFullDisk) {
  RunScene("no mounts of one's own are allowed here", [&] {
    if (!EnterPrivateMountNamespace() || !MountTmpfs(fDirectory.Path())) return kSceneNotAllowed;
    EXPECT_EQ(StatusOfSave(LargeNamespace(4000000), fPath), kHWXStatusFileSystemError);
    EXPECT_THAT(Files(fDirectory.Path()), ElementsAre());
    return 0;
  });
}

// Without /proc a file can't be given its name late: it has one from the beginning.
TEST_F(Store, LeavesNothingBehindWhereFilesNeedANameAtOnce) {
  RunScene("no mounts of one's own are allowed here", [&] {
    if (!EnterPrivateMountNamespace() || !MountTmpfs(fDirectory.Path()) || !MountTmpfs("/proc"))
      return kSceneNotAllowed;
    SaveFile(*fSmall, fPath);
    EXPECT_EQ(FileText(fPath), Save(*fSmall));
    EXPECT_EQ(StatusOfSave(LargeNamespace(4000000), fPath), kHWXStatusFileSystemError);
    EXPECT_EQ(FileText(fPath), Save(*fSmall));
    EXPECT_THAT(Files(fDirectory.Path()), ElementsAre("one.xml"));
    return 0;
  });
}

TEST_F(Store, SaysThatADirectoryMayNotBeWritten) {
  RunScene("no mounts of one's own are allowed here", [&] {
    if (!EnterPrivateMountNamespace() || !MountTmpfs(fDirectory.Path())) return kSceneNotAllowed;
    SaveFile(*fSmall, fPath);
    if (!RemountReadOnly(fDirectory.Path())) return kSceneNotAllowed;
    EXPECT_EQ(StatusOfSave(fSmall, fPath), kHWXStatusAccessDenied);
    EXPECT_EQ(StatusOfSave(fSmall, fDirectory / "new.xml"), kHWXStatusAccessDenied);
    return 0;
  });
}

// Its directory would let anybody replace it.
TEST_F(Store, RespectsAFileThatIsProtectedAgainstWriting) {
  MakeFile(fPath, "old");
  fs::permissions(fPath, fs::perms(0444));
  fs::permissions(fDirectory.Path(), fs::perms(0777));
  const int result = RunInChild([&] {
    if (!BecomeUnprivileged()) return kSceneNotAllowed;
    EXPECT_EQ(StatusOfSave(fSmall, fPath), kHWXStatusAccessDenied);
    EXPECT_EQ(StatusOfSave(fSmall, fDirectory / "new.xml"), kHWXStatusOK);
    return 0;
  });
  if (result == kSceneNotAllowed) GTEST_SKIP() << "rights can't be given up here";
  EXPECT_EQ(result, 0);
  EXPECT_EQ(FileText(fPath), "old");
}

// A process that is killed in the middle leaves the old file, and on most file systems no other.
TEST_F(Store, SurvivesBeingKilled) {
  SaveFile(*fSmall, fPath);
  const int result = RunInChild([&] {
    const Namespace ns = LargeNamespace(1000000);
    TClassBuilder(ns, "Live")
        .Key("Name", "string")
        .Source([](TInstanceList&) { ::raise(SIGKILL); })
        .Commit();
    SaveFile(*ns, fPath);
    return 0;
  });
  EXPECT_EQ(result, 128 + SIGKILL);
  EXPECT_EQ(FileText(fPath), Save(*fSmall));
  EXPECT_EQ(LoadFile(fPath)->GetName({}), "root/small");
}

}  // namespace

}  // namespace hwxtest
