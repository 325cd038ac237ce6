// The virtual devices of a management controller, as `hwx virtual-devices` shows them.

#include <gmock/gmock.h>

#include "integration/hwx/HwxTest.h"
#include "support/ProgramDirectory.h"

namespace hwxtest {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

// With a hwinfo of the test's own, which knows one device of each class but the mouse.
class VirtualDevicesTest : public HwxTest {
 protected:
  VirtualDevicesTest() {
    fPrograms.Add("hwinfo", "cat " + (fPrograms / "output$1") + " 2>/dev/null; true");
    AddOutput("disk", "\"Virtual Disk\"", "/dev/sdb (/dev/sg2)");
    AddOutput("cdrom", "usb 0x4012", "/dev/sr1");
    AddOutput("keyboard", "usb 0x4012", "/dev/input/event4");
    AddOutput("mouse", "usb 0x0001", "/dev/input/mice");
  }

  void AddOutput(const std::string& name, const std::string& device, const std::string& file) {
    fPrograms.AddFile("output--" + name, "5: USB\n  Hardware Class: " + name + "\n  Device: " +
                                             device + "\n  Device File: " + file + "\n\n");
  }

  std::string Output(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "virtual-devices");
    return Succeed(arguments).fOut;
  }

  ProgramDirectory fPrograms;
};

TEST_F(VirtualDevicesTest, ShowsAllClasses) {
  EXPECT_EQ(Output({}),
            "disk      /dev/sdb (/dev/sg2)\n"
            "cdrom     /dev/sr1\n"
            "keyboard  /dev/input/event4\n"
            "mouse     none\n");
}

TEST_F(VirtualDevicesTest, ShowsOneClass) {
  EXPECT_EQ(Output({"disk"}), "disk  /dev/sdb (/dev/sg2)\n");
  EXPECT_EQ(Output({"cdrom"}), "cdrom  /dev/sr1\n");
  EXPECT_EQ(Output({"keyboard"}), "keyboard  /dev/input/event4\n");
  EXPECT_EQ(Output({"mouse"}), "mouse  none\n");
}

TEST_F(VirtualDevicesTest, ShowsThemForPrograms) {
  const json expected = {{"disk", {"/dev/sdb (/dev/sg2)"}},
                         {"cdrom", {"/dev/sr1"}},
                         {"keyboard", {"/dev/input/event4"}},
                         {"mouse", json::array()}};
  EXPECT_EQ(json::parse(Output({"--json"})), expected);
  EXPECT_EQ(json::parse(Output({"mouse", "--json"})), json({{"mouse", json::array()}}));
}

TEST_F(VirtualDevicesTest, SaysThatThereIsNoHwinfo) {
  const HwxResult result = HwxProcess().Set("PATH", "/absent").Run({"virtual-devices"});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fOut, "");
  EXPECT_EQ(
      result.fErr,
      "hwx: the program hwinfo, which knows the devices, isn't on the PATH or can't be run\n");
}

TEST_F(VirtualDevicesTest, RefusesOtherClasses) {
  for (const std::string name : {"floppy", "Disk", "0"}) {
    const HwxResult result = fHwx.Run({"virtual-devices", name});
    EXPECT_EQ(result.fStatus, 2);
    EXPECT_THAT(result.fErr, HasSubstr(name));
    EXPECT_THAT(result.fErr, HasSubstr("disk"));
  }
}

}  // namespace
}  // namespace hwxtest
