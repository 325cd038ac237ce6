#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/value/THWXStatusCode.h"
#include "support/Descriptors.h"
#include "support/FakeScsiFiles.h"
#include "support/FakeShell.h"
#include "support/LoopDevice.h"
#include "support/MediaScene.h"
#include "support/RecordingNamespace.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"

using hwxtest::FakeScsiFiles;
using hwxtest::FakeShell;
using hwxtest::LoopDevice;
using hwxtest::MakeOldUsbList;
using hwxtest::MakeUsbList;
using hwxtest::OpenDescriptors;
using hwxtest::RecordingNamespace;
using hwxtest::RunsAsAdministrator;
using hwxtest::ScopedLogCapture;
using hwxtest::StatusOf;
using hwxtest::TemporaryDirectory;
using NQORHWX20::TCIMValue;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

const char kScsiClass[] = "QORSG_SCSIDevice";
const char kFloppyDrive[] = "Built-in Floppy Drive";
const char kTestFloppyMount[] = "mount | grep \"/mnt/floppy type\" >/dev/null";

std::string MountOf(const std::string& device) {
  return "mount " + device + " /mnt/floppy 2>/dev/null";
}

// On a machine without drives, mounts or lists of USB devices, till a test adds them. Whatever a
// test does there, it does in a child.
class EnumerateRemovableMediaTest : public testing::Test {
 protected:
  EnumerateRemovableMediaTest() { fNamespace.AddClass(kScsiClass); }

  void AddDrive(const std::string& id, const std::string& product) {
    fNamespace.AddInstance(kScsiClass, {{"DeviceType", TCIMValue("Direct Access Device")},
                                        {"ProductID", TCIMValue(product.c_str())},
                                        {"DeviceID", TCIMValue(id.c_str())},
                                        {"VendorID", TCIMValue("Maker")}});
  }

  std::vector<std::pair<std::string, std::string> > Enumerate() {
    return TOSSpecific::EnumerateRemovableMedia(fNamespace.Get());
  }
  int StatusOfEnumerate() {
    return StatusOf([this] { Enumerate(); });
  }

  static void RunInScene(const std::function<void()>& body) {
    RunIn([] { return hwxtest::EnterMediaScene(); }, body);
  }

  // The same with a /dev of its own.
  static void RunInSceneWithDev(const std::function<void()>& body) {
    RunIn([] { return hwxtest::EnterMediaScene() && hwxtest::ReplaceDev(); }, body);
  }

  RecordingNamespace fNamespace;

 private:
  static void RunIn(const std::function<bool()>& enter, const std::function<void()>& body) {
    hwxtest::RunScene("no right to mount", [&] {
      if (!enter()) return hwxtest::kSceneNotAllowed;
      body();
      return 0;
    });
  }
};

TEST_F(EnumerateRemovableMediaTest, ReadsTheListAtItsOldPlaceFirst) {
  RunInScene([this] {
    const FakeShell shell;
    MakeOldUsbList("Product=Stick");
    MakeUsbList("Product=Key");
    AddDrive("/dev/sda", "Stick");
    AddDrive("/dev/sdb", "Key");
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/sda", "Maker - Stick")));
    std::filesystem::remove("/proc/bus/usb/devices");
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/sdb", "Maker - Key")));
  });
}

TEST_F(EnumerateRemovableMediaTest, ThrowsFileNotFoundWithoutAListAndTriesNothingElse) {
  RunInScene([this] {
    const FakeShell shell;
    AddDrive("/dev/sda", "USB");
    const ScopedLogCapture log;
    EXPECT_EQ(StatusOfEnumerate(), NQORHWX20::kHWXStatusFileNotFound);
    EXPECT_THAT(log.Lines(),
                ElementsAre(Pair(
                    "Error", "ERROR: CaptureFile failed to open: /sys/kernel/debug/usb/devices")));
    EXPECT_THAT(fNamespace.Calls(), IsEmpty());
    EXPECT_THAT(shell.Commands(), IsEmpty());
    EXPECT_FALSE(TOSSpecific::DirExists("/mnt/floppy"));
  });
}

TEST_F(EnumerateRemovableMediaTest, ThrowsNotFoundForADriveWithoutAProductAndTriesNoFloppy) {
  RunInScene([this] {
    const FakeShell shell;
    MakeUsbList("");
    AddDrive("/dev/sda", "USB");
    fNamespace.AddInstance(kScsiClass, {{"DeviceType", TCIMValue("Direct Access Device")}});
    EXPECT_EQ(StatusOfEnumerate(), NQORHWX20::kHWXStatusNotFound);
    EXPECT_THAT(shell.Commands(), IsEmpty());
    EXPECT_FALSE(TOSSpecific::DirExists("/mnt/floppy"));
  });
}

TEST_F(EnumerateRemovableMediaTest, TriesThreeFloppyDrivesByThreeCommandsEach) {
  RunInScene([this] {
    const FakeShell shell;
    MakeUsbList("");
    AddDrive("/dev/sda", "USB");
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/sda", "Maker - USB")));
    EXPECT_THAT(shell.Commands(),
                ElementsAre(kTestFloppyMount, MountOf("/dev/floppy"), MountOf("/dev/floppy1"),
                            kTestFloppyMount, MountOf("/dev/fd0"), MountOf("/dev/fd01"),
                            kTestFloppyMount, MountOf("/dev/fd1"), MountOf("/dev/fd11")));
    EXPECT_TRUE(TOSSpecific::DirExists("/mnt/floppy"));
    EXPECT_FALSE(TOSSpecific::DirExists("/mnt/key"));
  });
}

TEST_F(EnumerateRemovableMediaTest, ListsTheFirstFloppyDriveThatMountsAsTheLast) {
  RunInScene([this] {
    MakeUsbList("");
    AddDrive("/dev/sda", "USB");
    for (const std::string device : {"/dev/floppy", "/dev/fd0", "/dev/fd1"}) {
      FakeShell shell;
      shell.Succeed(MountOf(device)).Succeed(MountOf("/dev/fd11"));
      EXPECT_THAT(Enumerate(),
                  ElementsAre(Pair("/dev/sda", "Maker - USB"), Pair(device, kFloppyDrive)));
      EXPECT_EQ(shell.Commands().back(), MountOf(device));
    }
  });
}

TEST_F(EnumerateRemovableMediaTest, ListsAFloppyDriveAlsoByItsFirstPartition) {
  RunInScene([this] {
    FakeShell shell;
    shell.Succeed(MountOf("/dev/fd01"));
    MakeUsbList("");
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/fd0", kFloppyDrive)));
  });
}

TEST_F(EnumerateRemovableMediaTest, TakesAnyMountAtItsPlaceForTheFirstFloppyDrive) {
  RunInScene([this] {
    FakeShell shell;
    shell.Succeed(kTestFloppyMount);
    MakeUsbList("");
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/floppy", kFloppyDrive)));
    EXPECT_THAT(shell.Commands(), ElementsAre(kTestFloppyMount));
  });
}

TEST_F(EnumerateRemovableMediaTest, MakesTheMountPointOfFloppyDrivesAlone) {
  RunInScene([this] {
    const FakeShell shell;
    MakeUsbList("Product=Stick");
    AddDrive("/dev/sda", "Stick");
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/sda", "Maker - Stick")));
    EXPECT_TRUE(TOSSpecific::DirExists("/mnt/floppy"));
    EXPECT_FALSE(TOSSpecific::DirExists("/mnt/key"));
  });
}

TEST_F(EnumerateRemovableMediaTest, GoesOnWhereTheMountPointIsThereOrCannotBeMade) {
  RunInScene([this] {
    FakeShell shell;
    shell.Succeed(MountOf("/dev/fd0"));
    MakeUsbList("");
    std::filesystem::create_directory("/mnt/floppy");
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/fd0", kFloppyDrive)));
    std::filesystem::remove("/mnt/floppy");
    ASSERT_TRUE(hwxtest::RemountReadOnly("/mnt"));
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/fd0", kFloppyDrive)));
    EXPECT_FALSE(TOSSpecific::DirExists("/mnt/floppy"));
  });
}

TEST_F(EnumerateRemovableMediaTest, ListsAGenericDeviceAsItsBlockDeviceAndLeavesAllOpen) {
  RunInSceneWithDev([this] {
    const FakeShell shell;
    FakeScsiFiles files;
    MakeUsbList("");
    for (const char* device : {"/dev/sg1", "/dev/sda", "/dev/sdc"})
      hwxtest::MakeFile(device, "");
    files.Answer("/dev/sg1", 0x2276, {4, 3, 2, 1, 0, 0, 0, 0});
    files.Answer("/dev/sda", 0x5382, {0x04030002, 0});
    files.Answer("/dev/sda", 0x5386, {4});
    files.Answer("/dev/sdc", 0x5382, {0x04030102, 0});
    files.Answer("/dev/sdc", 0x5386, {4});
    AddDrive("/dev/sg1", "USB");
    const std::size_t before = OpenDescriptors();
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/sdc", "Maker - USB")));
    EXPECT_EQ(OpenDescriptors(), before + 3);
  });
}

TEST_F(EnumerateRemovableMediaTest, LeavesOutDrivesThatCannotBeProbedAfterALogEntryEach) {
  RunInSceneWithDev([this] {
    const FakeShell shell;
    FakeScsiFiles files;
    MakeUsbList("");
    hwxtest::MakeFile("/dev/sg1", "");
    hwxtest::MakeFile("/dev/sg2", "");
    files.Answer("/dev/sg2", 0x2276, {4, 3, 2, 1, 0, 0, 0, 0});
    for (const char* id : {"/dev/sg0", "/dev/sg1", "/dev/sg2", "/dev/sdb"})
      AddDrive(id, "USB");
    const ScopedLogCapture log;
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/sdb", "Maker - USB")));
    std::vector<ScopedLogCapture::Line> errors = log.Lines();
    errors.erase(errors.begin());  // the list of USB devices, at debug level
    EXPECT_THAT(errors, ElementsAre(Pair("Error", "Failed opening/dev/sg0"),
                                    Pair("Error", "Failed ioctl on /dev/sg1"),
                                    Pair("Error", "No mapping found for /dev/sg2")));
  });
}

// With the real shell.

TEST_F(EnumerateRemovableMediaTest, FindsNoFloppyDriveOnAMachineWithoutOne) {
  RunInSceneWithDev([this] {
    MakeUsbList("");
    EXPECT_THAT(Enumerate(), IsEmpty());
  });
}

TEST_F(EnumerateRemovableMediaTest, FindsAFloppyDriveByItsMediumAndLeavesItMounted) {
  if (!RunsAsAdministrator("command -v mke2fs")) GTEST_SKIP() << "SKIPPED: there is no mke2fs";
  const TemporaryDirectory scratch;
  hwxtest::MakeImage(scratch / "image");
  ASSERT_TRUE(RunsAsAdministrator("mke2fs -q -F " + (scratch / "image")));
  const LoopDevice floppy(scratch / "image");
  if (!floppy.IsThere()) GTEST_SKIP() << "SKIPPED: this machine refuses loop devices";
  RunInSceneWithDev([&] {
    MakeUsbList("");
    std::filesystem::create_symlink(floppy.Path(), "/dev/fd1");
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/fd1", kFloppyDrive)));
    EXPECT_TRUE(TOSSpecific::DirExists("/mnt/floppy/lost+found"));
    EXPECT_THAT(Enumerate(), ElementsAre(Pair("/dev/floppy", kFloppyDrive)));
    TOSSpecific::UnmountDevice("", "/mnt/floppy");
  });
}

}  // namespace
