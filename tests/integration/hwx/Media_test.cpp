// Removable drives, as `hwx media` lists, mounts and unmounts them.

#include <gmock/gmock.h>

#include <memory>

#include "integration/hwx/HwxTest.h"
#include "support/LoopDevice.h"
#include "support/Machines.h"
#include "support/MediaScene.h"

namespace hwxtest {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

// On a machine with a disk and a stick, for the provider; the lists of USB devices and the mounts
// are those of a scene of a child's own.
class MediaTest : public HwxTest {
 protected:
  MediaTest() {
    AddDebian(fMachine.Path(), "rack7");
    AddScsiDevice(fMachine.Path(), {"0:0:0:0", "0", "ATA", "Disk", "1", "sda", "sg0"});
    AddScsiDevice(fMachine.Path(), {"6:0:0:0", "0", "Maker", "Stick 3000", "1", "sdb", "sg1"});
    fHwx.On(fMachine.Path());
  }

  static void RunInScene(const std::function<void()>& body) {
    RunScene("no right to mount, or no device to mount", [&] {
      if (!EnterMediaScene() || !ReplaceDev()) return kSceneNotAllowed;
      body();
      return 0;
    });
  }

  // An image that can be mounted, as a device. Ends a child that can't have one.
  std::unique_ptr<LoopDevice> FormattedDevice(const std::string& name) const {
    MakeImage(fScratch / name);
    const bool isFormatted = RunsAsAdministrator("mke2fs -q -F " + (fScratch / name));
    auto device = std::make_unique<LoopDevice>(fScratch / name);
    if (!isFormatted || !device->IsThere()) ::_exit(kSceneNotAllowed);
    return device;
  }

  std::string Output(const std::vector<std::string>& arguments) const {
    return Succeed(arguments).fOut;
  }

  TemporaryDirectory fMachine;
  TemporaryDirectory fScratch;
};

TEST_F(MediaTest, ListsWhatTheUsbListNames) {
  RunInScene([this] {
    MakeUsbList("S:  Product=Stick 3000\n");
    EXPECT_EQ(Output({"media"}), "/dev/sdb  Maker - Stick  not mounted\n");
    const json expected = {{"media",
                            {{{"device", "/dev/sdb"},
                              {"description", "Maker - Stick"},
                              {"mountPoints", json::array()}}}}};
    EXPECT_EQ(json::parse(Output({"media", "--json"})), expected);
  });
}

TEST_F(MediaTest, SaysThatThereIsNone) {
  RunInScene([this] {
    MakeUsbList("S:  Product=Mouse\n");
    EXPECT_EQ(Output({"media"}), "none\n");
    EXPECT_EQ(json::parse(Output({"media", "--json"})), json({{"media", json::array()}}));
  });
}

TEST_F(MediaTest, TellsInWordsThatThereIsNoUsbList) {
  RunInScene([this] {
    const std::string reason =
        "this machine has no list of USB devices: neither /proc/bus/usb/devices nor "
        "/sys/kernel/debug/usb/devices can be read";
    EXPECT_EQ(Output({"media"}), "none known: " + reason + "\n");
    const json expected = {{"media", json::array()}, {"reason", reason}};
    EXPECT_EQ(json::parse(Output({"media", "--json"})), expected);
  });
}

TEST_F(MediaTest, TellsInWordsThatTheUsbListNeedsRoot) {
  const HwxTree tree(HwxTree::kCopies);
  tree.Use(fHwx);
  std::filesystem::permissions(fMachine.Path(), std::filesystem::perms(0755));
  fHwx.Unprivileged();
  RunInScene([this] {
    EXPECT_EQ(Output({"media"}),
              "none known: needs root: /sys/kernel/debug/usb/devices can't be read\n");
  });
}

TEST_F(MediaTest, ShowsWhereADriveIsMounted) {
  RunInScene([this] {
    const auto device = FormattedDevice("image");
    std::filesystem::create_symlink(device->Path(), "/dev/sdb");
    MakeUsbList("S:  Product=Stick 3000\n");
    EXPECT_EQ(Output({"media", "mount", "/dev/sdb"}), "/mnt/key\n");
    EXPECT_EQ(Output({"media"}), "/dev/sdb  Maker - Stick  /mnt/key\n");
    EXPECT_EQ(Output({"media", "mount", "/dev/sdb"}), "/mnt/key\n");
    EXPECT_EQ(Output({"media", "unmount", "/mnt/key"}), "");
    EXPECT_EQ(Output({"media"}), "/dev/sdb  Maker - Stick  not mounted\n");
  });
}

TEST_F(MediaTest, MountsAFloppyDiskAndListsItLast) {
  RunInScene([this] {
    const auto device = FormattedDevice("image");
    std::filesystem::create_symlink(device->Path(), "/dev/fd0");
    MakeUsbList("S:  Product=Stick 3000\n");
    EXPECT_EQ(Output({"media"}),
              "/dev/sdb  Maker - Stick          not mounted\n"
              "/dev/fd0  Built-in Floppy Drive  /mnt/floppy\n");
    EXPECT_EQ(Output({"media", "unmount", "/mnt/floppy"}), "");
  });
}

TEST_F(MediaTest, RefusesToMountWhereSomethingElseIsMounted) {
  RunInScene([this] {
    const auto device = FormattedDevice("image");
    EXPECT_EQ(Output({"media", "mount", device->Path()}), "/mnt/key\n");
    ExpectFails({"media", "mount", "/dev/sdc"},
                "/mnt/key is in use: " + device->Path() + " is mounted there");
    EXPECT_EQ(Output({"media", "unmount", "/mnt/key"}), "");
  });
}

TEST_F(MediaTest, SaysWhatCannotBeMountedOrUnmounted) {
  RunInScene([this] {
    ExpectFails({"media", "mount", "/dev/sdb"},
                "neither /dev/sdb nor /dev/sdb1 can be mounted at /mnt/key");
    ExpectFails({"media", "mount", "/dev/fd1"},
                "neither /dev/fd1 nor /dev/fd11 can be mounted at /mnt/floppy");
    ExpectFails({"media", "unmount", "/mnt/key"}, "nothing is mounted at /mnt/key");
  });
}

TEST_F(MediaTest, NeedsRootToMountAndUnmount) {
  const HwxTree tree(HwxTree::kCopies);
  tree.Use(fHwx);
  fHwx.Unprivileged();
  const std::string needs = "needs root: only root may mount and unmount";
  ExpectFails({"media", "mount", "/dev/sdb"}, needs);
  ExpectFails({"media", "unmount", "/mnt/key"}, needs);
}

TEST_F(MediaTest, HandsNoOtherCommandToAShell) {
  const std::string made = fScratch / "made";
  for (const std::string& path :
       {"/dev/sdb;touch " + made, "$(touch " + made + ")", "/dev/`touch " + made + "`",
        "/dev/sdb\ntouch " + made, std::string("/dev/sd?"), std::string("sdb")}) {
    for (const char* command : {"mount", "unmount"}) {
      const HwxResult result = fHwx.Run({"media", command, path});
      EXPECT_EQ(result.fStatus, 1) << path;
      EXPECT_THAT(result.fErr, HasSubstr(" is no path of letters, digits and \"/._-+:@\""));
    }
  }
  EXPECT_FALSE(std::filesystem::exists(made));
}

TEST_F(MediaTest, RefusesWrongUsage) {
  const std::pair<std::vector<std::string>, std::string> lines[] = {
      {{"media", "x"}, "unknown command \"x\""},
      {{"media", "mount"}, "device is required"},
      {{"media", "unmount"}, "mountpoint is required"},
      {{"media", "mount", "/dev/sdb", "--json"}, "unknown option \"--json\""},
      {{"media", "mount", "/dev/sdb", "/dev/sdc"}, "unexpected argument \"/dev/sdc\""}};
  for (const auto& [arguments, message] : lines) {
    const HwxResult result = fHwx.Run(arguments);
    EXPECT_EQ(result.fStatus, 2);
    EXPECT_THAT(result.fErr, HasSubstr("hwx: " + message + "\n"));
  }
}

}  // namespace
}  // namespace hwxtest
