#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hwxcore/os/TOSSpecific.h"
#include "support/FileText.h"
#include "support/LoopDevice.h"
#include "support/ProgramDirectory.h"
#include "support/ScopedEnvironment.h"

using hwxtest::FileText;
using hwxtest::ProgramDirectory;
using hwxtest::ScopedEnvironment;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::vector<std::string> VirtualDevices(int deviceClass, bool useAlternateName = false) {
  std::vector<std::string> devices;
  TOSSpecific::getiQBCVirtualDevices(deviceClass, devices, useAlternateName);
  return devices;
}

TEST(VirtualDevices, AreAskedOfHwinfoByOneArgumentForEachClass) {
  const ProgramDirectory programs;
  programs.Add("hwinfo", "echo \"$#:$*\" >> " + (programs / "calls"));
  for (const int deviceClass : {0, 1, 2, 3, 4, -1})
    VirtualDevices(deviceClass);
  EXPECT_EQ(FileText(programs / "calls"), "1:--disk\n1:--cdrom\n1:--keyboard\n1:--mouse\n0:\n0:\n");
}

TEST(VirtualDevices, AreAppended) {
  const ProgramDirectory programs;
  programs.Add("hwinfo",
               "printf '  Hardware Class: disk\\n  Device: \"Virtual\"\\n"
               "  Device File: /dev/sdb (/dev/sg2)\\n'");
  std::vector<std::string> devices = {"before"};
  TOSSpecific::getiQBCVirtualDevices(0, devices, false);
  TOSSpecific::getiQBCVirtualDevices(0, devices, true);
  TOSSpecific::getiQBCVirtualDevices(1, devices, true);
  EXPECT_THAT(devices, ElementsAre("before", "/dev/sdb (/dev/sg2)", "(/dev/sg2)"));
}

TEST(VirtualDevices, AreReadAlsoFromAHwinfoThatFails) {
  const ProgramDirectory programs;
  programs.Add("hwinfo",
               "printf 'Hardware Class: mouse\\nDevice: 0x4012\\nDevice File: a\\n'; exit 1");
  EXPECT_THAT(VirtualDevices(3), ElementsAre("a"));
}

TEST(VirtualDevices, AreNoneWhenHwinfoEndsTooEarly) {
  const ProgramDirectory programs;
  programs.Add("hwinfo", "printf 'Hardware Class: mouse\\nDevice: 0x4012\\n'; kill -9 $$");
  EXPECT_THAT(VirtualDevices(3), IsEmpty());
}

TEST(VirtualDevices, AreNoneWithoutHwinfo) {
  const ScopedEnvironment path("PATH", "/absent");
  EXPECT_THAT(VirtualDevices(0), IsEmpty());
}

// The real program, on whatever machine this is.

class RealHwinfoTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!hwxtest::RunsAsAdministrator("command -v hwinfo")) {
      GTEST_SKIP() << "SKIPPED: there is no hwinfo";
    }
    fText = TOSSpecific::SpawnProcess("hwinfo", {}, 300);
  }

  ScopedEnvironment fPath{"PATH", std::string(std::getenv("PATH")) + ":/usr/sbin:/sbin"};
  std::string fText;
};

TEST_F(RealHwinfoTest, NamesInItsListOfAllHardwareWhatIsFoundThere) {
  const std::vector<std::string> devices = VirtualDevices(-1);
  std::size_t place = 0;
  for (const std::string& device : devices) {
    place = fText.find("  Device File: " + device + "\n", place);
    ASSERT_NE(place, std::string::npos) << device;
  }
}

TEST_F(RealHwinfoTest, HasBlocksOfTheFormThatIsRead) {
  if (fText.find("\n  Device: ") == std::string::npos) {
    GTEST_SKIP() << "SKIPPED: hwinfo finds no device here";
  }
  EXPECT_THAT(fText, HasSubstr("\n  Hardware Class: "));
  EXPECT_THAT(fText, HasSubstr("\n  Device File: "));
  EXPECT_FALSE(VirtualDevices(4).empty());
}

TEST_F(RealHwinfoTest, MarksEachDeviceThatIsFoundInAClass) {
  const std::pair<std::string, std::string> classes[] = {
      {"disk", "Virtual"}, {"cdrom", "0x4012"}, {"keyboard", "0x4012"}, {"mouse", "0x4012"}};
  for (int deviceClass = 0; deviceClass < 4; ++deviceClass) {
    const auto& [name, marker] = classes[deviceClass];
    const std::string text = TOSSpecific::SpawnProcess("hwinfo", {"--" + name}, 300);
    for (const std::string& device : VirtualDevices(deviceClass)) {
      EXPECT_THAT(text, HasSubstr("Hardware Class: " + name + "\n"));
      EXPECT_THAT(text, HasSubstr(marker));
      EXPECT_THAT(text, HasSubstr("Device File: " + device + "\n"));
    }
  }
}

}  // namespace
