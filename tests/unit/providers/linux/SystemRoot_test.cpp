#include "hwxsys/SystemRoot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "providers/linux/TextFile.h"
#include "support/Machines.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

namespace linux_machine {

namespace {

using hwxsys::FollowedInRoot;
using hwxsys::SystemRoot;
using hwxtest::ScopedEnvironment;
using hwxtest::TemporaryDirectory;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

// A tree "root" in a directory that has a file "outside" beside it.
class SystemTree : public ::testing::Test {
 protected:
  void SetUp() override {
    Write("outside", "outside");
    Write("root/etc/inside", "inside");
    fEnvironment.Set(fRoot);
  }

  void Write(const std::string& path, const std::string& text) {
    hwxtest::WriteMachineFile(fDirectory.Path(), path, text);
  }

  void Link(const std::string& name, const std::string& target) {
    std::filesystem::create_symlink(target, fRoot + "/" + name);
  }

  std::string Read(const std::string& path) {
    return ReadFile(fRoot + path).value_or("unreadable");
  }

  std::string Failure() {
    try {
      return "none: " + SystemRoot();
    } catch (const std::runtime_error& failure) {
      return failure.what();
    }
  }

  TemporaryDirectory fDirectory;
  const std::string fRoot = fDirectory / "root";
  ScopedEnvironment fEnvironment{"HWX_SYSROOT", std::nullopt};
};

TEST_F(SystemTree, IsThisMachineWithoutAName) {
  for (const char* name : {"", "/", "//"}) {
    fEnvironment.Set(name);
    EXPECT_EQ(SystemRoot(), "");
  }
}

TEST_F(SystemTree, IsNamedWithOrWithoutASlashAtTheEnd) {
  EXPECT_EQ(SystemRoot(), fRoot);
  fEnvironment.Set(fRoot + "//");
  EXPECT_EQ(SystemRoot(), fRoot);
}

TEST_F(SystemTree, MustBeADirectory) {
  fEnvironment.Set(fDirectory / "absent");
  EXPECT_THAT(Failure(), HasSubstr("absent: No such file or directory"));
  fEnvironment.Set(fDirectory / "outside");
  EXPECT_THAT(Failure(), HasSubstr("outside, which is no directory"));
}

TEST_F(SystemTree, KeepsLinksWithin) {
  Link("absolute", "/etc/inside");
  Link("relative", "etc/../etc/./inside");
  Link("directory", "/etc");
  Link("chain", "/directory/inside");
  Link("upwards", "../../../../etc/inside");
  for (const char* path : {"/absolute", "/relative", "/directory/inside", "/chain", "/upwards"}) {
    EXPECT_EQ(Read(path), "inside") << path;
  }
  EXPECT_THAT(ListDirectory(fRoot + "/directory"), ElementsAre("inside"));
}

TEST_F(SystemTree, LetsNoLinkLeadOut) {
  Link("out", fDirectory / "outside");
  Link("up", "../outside");
  EXPECT_EQ(Read("/out"), "unreadable");
  EXPECT_EQ(Read("/up"), "unreadable");
  EXPECT_EQ(Read("/../outside"), "unreadable");
}

TEST_F(SystemTree, ReadsNothingBehindLinksInCircles) {
  Link("a", "/b");
  Link("b", "a");
  EXPECT_EQ(Read("/a"), "unreadable");
  EXPECT_TRUE(Exists(fRoot + "/a"));
  EXPECT_FALSE(Exists(fRoot + "/a/b"));
}

TEST_F(SystemTree, LeavesPathsElsewhereAlone) {
  EXPECT_EQ(FollowedInRoot(fRoot + "2/x"), fRoot + "2/x");
  EXPECT_EQ(FollowedInRoot("/etc/../x"), "/etc/../x");
  EXPECT_EQ(ReadFile(fDirectory / "outside"), "outside");
}

}  // namespace

}  // namespace linux_machine
