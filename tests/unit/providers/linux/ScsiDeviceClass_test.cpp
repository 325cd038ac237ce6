#include "unit/providers/linux/ProviderFixture.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using Type = TCIMValue::TCIMType;

constexpr const char* kScsiDevice = "QORSG_SCSIDevice";

class ScsiDeviceInstances : public ProviderTest {
 protected:
  std::vector<std::string> Texts(const std::string& property) {
    std::vector<std::string> texts;
    for (const auto& instance : List(kScsiDevice)) {
      texts.push_back(Value(instance, property).ToString(10));
    }
    return texts;
  }
};

TEST_F(ScsiDeviceInstances, AreTheDevicesInTheOrderOfTheirAddresses) {
  MakeRackServer(fDirectory.Path());
  EXPECT_THAT(Texts("DeviceID"), ElementsAre("/dev/sda", "/dev/sdb", "/dev/sg2", "/dev/sr0"));
  EXPECT_THAT(Texts("DeviceType"), ElementsAre("Direct Access Device", "Direct Access Device",
                                               "Enclosure Services Device", "CD-ROM Device"));
  EXPECT_THAT(Texts("ProductID"),
              ElementsAre("DISK 15K", "USB Memory Key", "EXP BACKPLANE", "DVD-ROM 8x"));
  EXPECT_THAT(Texts("VendorID"), ElementsAre("EXMPL", "EXMPL", "EXMPL", "EXMPL"));
  EXPECT_THAT(Texts("Revision"), ElementsAre("A1", "1.0", "3.04", "B7"));
}

TEST_F(ScsiDeviceInstances, TellTheirAddressesInNumbers) {
  AddScsiDevice(fDirectory.Path(), {"1:2:3:49409", "0", "V", "P", "R", "sda", ""});
  EXPECT_EQ(static_cast<unsigned int>(Read(kScsiDevice, "HostNumber")), 1u);
  EXPECT_EQ(static_cast<unsigned int>(Read(kScsiDevice, "Channel")), 2u);
  EXPECT_EQ(static_cast<unsigned int>(Read(kScsiDevice, "TargetID")), 3u);
  EXPECT_EQ(static_cast<unsigned long>(Read(kScsiDevice, "LUN")), 49409u);
}

TEST_F(ScsiDeviceInstances, AreNoneWithoutDevices) {
  MakeContainer(fDirectory.Path());
  EXPECT_EQ(List(kScsiDevice).size(), 0u);
}

TEST_F(ScsiDeviceInstances, HaveTypedNullsForWhatCannotBeRead) {
  MakeBrokenMachine(fDirectory.Path());
  ASSERT_EQ(List(kScsiDevice).size(), 1u);
  EXPECT_EQ(ReadText(kScsiDevice, "DeviceID"), "0:0:0:0");
  EXPECT_EQ(ReadText(kScsiDevice, "Revision"), "A1");
  for (const char* property : {"DeviceType", "VendorID", "ProductID"}) {
    EXPECT_TRUE(IsNullOf(Type::kCIMTypeString, kScsiDevice, property)) << property;
  }
}

TEST_F(ScsiDeviceInstances, AreListedThoughTwoClaimTheSameName) {
  AddScsiDevice(fDirectory.Path(), {"0:0:0:0", "0", "V", "P", "R", "sda", ""});
  AddScsiDevice(fDirectory.Path(), {"0:0:1:0", "0", "V", "P", "R", "sda", ""});
  EXPECT_THAT(Texts("DeviceID"), ElementsAre("/dev/sda", "0:0:1:0"));
}

TEST_F(ScsiDeviceInstances, ComeAndGoWithTheDevices) {
  MakeRackServer(fDirectory.Path());
  EXPECT_EQ(List(kScsiDevice).size(), 4u);
  AddScsiDevice(fDirectory.Path(), {"6:0:0:0", "0", "EXMPL", "USB Stick", "1.0", "sdc", "sg4"});
  EXPECT_EQ(List(kScsiDevice).size(), 5u);
}

}  // namespace

}  // namespace hwxtest
