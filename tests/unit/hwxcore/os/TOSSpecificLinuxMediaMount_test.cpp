#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/value/THWXStatusCode.h"
#include "support/ChildProcess.h"
#include "support/FakeShell.h"
#include "support/FileText.h"
#include "support/LoopDevice.h"
#include "support/MediaScene.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::FakeShell;
using hwxtest::LoopDevice;
using hwxtest::RunsAsAdministrator;
using hwxtest::StatusOf;
using hwxtest::TemporaryDirectory;
using NQORHWX20::kHWXStatusFileSystemError;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

const char kTestKey[] = "mount | grep \"/mnt/key type\" >/dev/null";
const char kTestFloppy[] = "mount | grep \"/mnt/floppy type\" >/dev/null";

int StatusOfMount(const std::string& device) {
  return StatusOf([&] { TOSSpecific::MountDevice(device); });
}

int StatusOfUnmount(const std::string& mountPoint) {
  return StatusOf([&] { TOSSpecific::UnmountDevice("ignored", mountPoint); });
}

TEST(MountDevice, DoesNothingWhereAnythingIsMounted) {
  FakeShell shell;
  shell.Succeed(kTestKey);
  EXPECT_EQ(TOSSpecific::MountDevice("/dev/sdb"), "/mnt/key");
  EXPECT_THAT(shell.Commands(), ElementsAre(kTestKey));
}

TEST(MountDevice, MountsTheDeviceItself) {
  FakeShell shell;
  shell.Succeed("mount /dev/sdb /mnt/key 2>/dev/null");
  EXPECT_EQ(TOSSpecific::MountDevice("/dev/sdb"), "/mnt/key");
  EXPECT_THAT(shell.Commands(), ElementsAre(kTestKey, "mount /dev/sdb /mnt/key 2>/dev/null"));
}

TEST(MountDevice, MountsTheFirstPartitionIfTheDeviceCannotBeMounted) {
  FakeShell shell;
  shell.Succeed("mount /dev/sdb1 /mnt/key 2>/dev/null");
  EXPECT_EQ(TOSSpecific::MountDevice("/dev/sdb"), "/mnt/key");
  EXPECT_THAT(shell.Commands(), ElementsAre(kTestKey, "mount /dev/sdb /mnt/key 2>/dev/null",
                                            "mount /dev/sdb1 /mnt/key 2>/dev/null"));
}

TEST(MountDevice, ThrowsFileSystemErrorAfterBothMounts) {
  FakeShell shell;
  EXPECT_EQ(StatusOfMount("/dev/sdb"), kHWXStatusFileSystemError);
  EXPECT_EQ(kHWXStatusFileSystemError, 11);
  EXPECT_THAT(shell.Commands(), ElementsAre(kTestKey, "mount /dev/sdb /mnt/key 2>/dev/null",
                                            "mount /dev/sdb1 /mnt/key 2>/dev/null"));
}

TEST(MountDevice, TakesEveryStatusButZeroForAFailure) {
  for (const int result : {1 << 8, 32 << 8, 9, -1}) {
    FakeShell shell;
    shell.Answer(kTestKey, result)
        .Answer("mount /dev/sdb /mnt/key 2>/dev/null", result)
        .Answer("mount /dev/sdb1 /mnt/key 2>/dev/null", result);
    EXPECT_EQ(StatusOfMount("/dev/sdb"), kHWXStatusFileSystemError) << result;
    EXPECT_THAT(shell.Commands(), testing::SizeIs(3));
  }
}

TEST(MountDevice, HasAMountPointOfItsOwnForTheThreeFloppyDevices) {
  for (const std::string device : {"/dev/floppy", "/dev/fd0", "/dev/fd1"}) {
    FakeShell shell;
    shell.Succeed("mount " + device + " /mnt/floppy 2>/dev/null");
    EXPECT_EQ(TOSSpecific::MountDevice(device), "/mnt/floppy");
    EXPECT_THAT(shell.Commands(),
                ElementsAre(kTestFloppy, "mount " + device + " /mnt/floppy 2>/dev/null"));
  }
}

TEST(MountDevice, TakesAllOthersForKeys) {
  for (const std::string device : {"/dev/fd2", "/dev/fd", "/dev/fd01", "/dev/floppy0", "fd0", ""}) {
    FakeShell shell;
    shell.Succeed(kTestKey);
    EXPECT_EQ(TOSSpecific::MountDevice(device), "/mnt/key") << device;
  }
}

TEST(UnmountDevice, NeverReadsItsFirstText) {
  FakeShell shell;
  shell.Succeed("umount /mnt/key 2> /dev/null");
  TOSSpecific::UnmountDevice("/dev/sdb", "/mnt/key");
  TOSSpecific::UnmountDevice("", "/mnt/key");
  EXPECT_THAT(shell.Commands(),
              ElementsAre("umount /mnt/key 2> /dev/null", "umount /mnt/key 2> /dev/null"));
}

TEST(UnmountDevice, ThrowsFileSystemErrorForEveryStatusButZero) {
  for (const int result : {1 << 8, 32 << 8, 9, -1}) {
    FakeShell shell;
    shell.Answer("umount /mnt/key 2> /dev/null", result);
    EXPECT_EQ(StatusOfUnmount("/mnt/key"), kHWXStatusFileSystemError) << result;
  }
}

// Real file systems on real block devices.

// The file systems that this machine can make and mount.
constexpr const char* kExt2 = "mke2fs -q -F ";
constexpr const char* kVfat = "mkfs.vfat ";

class MountedTest : public testing::TestWithParam<const char*> {
 protected:
  // Runs `body` in a scene of its own. A scene that can't be set says why, to `fWhySkipped`.
  void RunInScene(const std::function<void()>& body) {
    hwxtest::RunScene("no right to mount", [&] {
      if (!hwxtest::EnterMediaScene()) return hwxtest::kSceneNotAllowed;
      std::filesystem::create_directories("/mnt/key");
      std::filesystem::create_directories("/mnt/floppy");
      body();
      return 0;
    });
  }

  // Why there can be no test with this kind of file system; empty if there can.
  std::string WhyNot(const std::string& maker) const {
    const std::string program = maker.substr(0, maker.find(' '));
    if (!RunsAsAdministrator("command -v " + program)) return "there is no " + program;
    const TemporaryDirectory scratch;
    hwxtest::MakeImage(scratch / "image");
    if (!RunsAsAdministrator(maker + (scratch / "image"))) return program + " fails";
    const LoopDevice device(scratch / "image");
    if (!device.IsThere()) return "this machine refuses loop devices";
    const int mounted = hwxtest::RunInChild([&device] {
      if (!hwxtest::EnterMediaScene()) return hwxtest::kSceneNotAllowed;
      return RunsAsAdministrator("mount " + device.Path() + " /mnt") ? 0 : 1;
    });
    if (mounted == hwxtest::kSceneNotAllowed) return "no right to mount";
    return mounted == 0 ? "" : "the kernel can't mount what " + program + " makes";
  }

  void SetUp() override {
    const std::string why = WhyNot(GetParam());
    if (!why.empty()) GTEST_SKIP() << "SKIPPED: " << why;
  }

  // An image with a file system on it.
  std::string FormattedImage() const {
    hwxtest::MakeImage(fScratch / "image");
    RunsAsAdministrator(GetParam() + (fScratch / "image"));
    return fScratch / "image";
  }

  TemporaryDirectory fScratch;
};

std::string Mounts() {
  return hwxtest::FileText("/proc/self/mounts");
}

TEST_P(MountedTest, AStickWithoutPartitionsIsMountedAndReleased) {
  RunInScene([this] {
    const LoopDevice stick(FormattedImage());
    ASSERT_EQ(TOSSpecific::MountDevice(stick.Path()), "/mnt/key");
    EXPECT_THAT(Mounts(), HasSubstr(stick.Path() + " /mnt/key "));
    hwxtest::MakeFile("/mnt/key/file", "kept");
    EXPECT_EQ(hwxtest::FileText("/mnt/key/file"), "kept");
    TOSSpecific::UnmountDevice("", "/mnt/key");
    EXPECT_THAT(Mounts(), Not(HasSubstr(" /mnt/key ")));
    EXPECT_EQ(hwxtest::FileText("/mnt/key/file"), "(none)");
    TOSSpecific::MountDevice(stick.Path());
    EXPECT_EQ(hwxtest::FileText("/mnt/key/file"), "kept");
    TOSSpecific::UnmountDevice("", "/mnt/key");
  });
}

// The partition is shown as a device by hand, since not every kernel reads partition tables.
TEST_P(MountedTest, AStickWithAPartitionTableIsMountedByItsFirstPartition) {
  if (!RunsAsAdministrator("command -v sfdisk")) GTEST_SKIP() << "SKIPPED: there is no sfdisk";
  RunInScene([this] {
    constexpr std::size_t kSector = 512;
    constexpr std::size_t kStart = 2048;
    const std::string image = fScratch / "stick.img";
    hwxtest::MakeImage(image, 4 << 20);
    ASSERT_TRUE(RunsAsAdministrator("echo start=2048,type=83 | sfdisk " + image));
    const LoopDevice stick(image);
    const LoopDevice partition(image, kStart * kSector);
    ASSERT_TRUE(RunsAsAdministrator(GetParam() + partition.Path()));
    std::filesystem::create_symlink(stick.Path(), fScratch / "stick");
    std::filesystem::create_symlink(partition.Path(), fScratch / "stick1");
    ASSERT_EQ(TOSSpecific::MountDevice(fScratch / "stick"), "/mnt/key");
    EXPECT_THAT(Mounts(), HasSubstr(partition.Path() + " /mnt/key "));
    TOSSpecific::UnmountDevice("", "/mnt/key");
  });
}

TEST_P(MountedTest, ASecondStickIsNotMountedOverTheFirst) {
  RunInScene([this] {
    const LoopDevice stick(FormattedImage());
    TOSSpecific::MountDevice(stick.Path());
    const std::string before = Mounts();
    EXPECT_EQ(TOSSpecific::MountDevice("/dev/absent"), "/mnt/key");
    EXPECT_EQ(Mounts(), before);
    TOSSpecific::UnmountDevice("", "/mnt/key");
    EXPECT_EQ(StatusOfMount("/dev/absent"), kHWXStatusFileSystemError);
  });
}

TEST_P(MountedTest, AStickNeedsItsMountPointWhichIsNotMade) {
  RunInScene([this] {
    const LoopDevice stick(FormattedImage());
    std::filesystem::remove("/mnt/key");
    EXPECT_EQ(StatusOfMount(stick.Path()), kHWXStatusFileSystemError);
    EXPECT_FALSE(std::filesystem::exists("/mnt/key"));
  });
}

TEST_P(MountedTest, AStickWithoutAFileSystemIsNotMounted) {
  RunInScene([this] {
    hwxtest::MakeImage(fScratch / "empty");
    const LoopDevice stick(fScratch / "empty");
    EXPECT_EQ(StatusOfMount(stick.Path()), kHWXStatusFileSystemError);
    EXPECT_THAT(Mounts(), Not(HasSubstr(" /mnt/key ")));
  });
}

TEST_P(MountedTest, AFloppyDiskIsMountedAtItsOwnPlace) {
  RunInScene([this] {
    const LoopDevice floppy(FormattedImage());
    ASSERT_TRUE(hwxtest::ReplaceDev());
    std::filesystem::create_symlink(floppy.Path(), "/dev/fd0");
    EXPECT_EQ(TOSSpecific::MountDevice("/dev/fd0"), "/mnt/floppy");
    EXPECT_THAT(Mounts(), HasSubstr(" /mnt/floppy "));
    EXPECT_THAT(Mounts(), Not(HasSubstr(" /mnt/key ")));
    TOSSpecific::UnmountDevice("", "/mnt/floppy");
  });
}

TEST_P(MountedTest, NothingIsReleasedWhereNothingIsMounted) {
  RunInScene([] { EXPECT_EQ(StatusOfUnmount("/mnt/key"), kHWXStatusFileSystemError); });
}

INSTANTIATE_TEST_SUITE_P(Ext2, MountedTest, testing::Values(kExt2));
INSTANTIATE_TEST_SUITE_P(Vfat, MountedTest, testing::Values(kVfat));

}  // namespace
