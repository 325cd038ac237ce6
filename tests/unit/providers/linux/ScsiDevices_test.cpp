#include "providers/linux/ScsiDevices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/Machines.h"
#include "support/TemporaryDirectory.h"

namespace linux_machine {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

using namespace std::string_literals;

TEST(ScsiAddress, IsFourNumbers) {
  const auto address = ParseScsiAddress("1:2:30:4");
  ASSERT_TRUE(address);
  EXPECT_EQ(address->fHost, 1u);
  EXPECT_EQ(address->fChannel, 2u);
  EXPECT_EQ(address->fTarget, 30u);
  EXPECT_EQ(address->fLUN, 4u);
}

TEST(ScsiAddress, HasALogicalUnitOf64Bits) {
  EXPECT_EQ(ParseScsiAddress("0:0:0:18446744073709551615")->fLUN, 18446744073709551615u);
  EXPECT_FALSE(ParseScsiAddress("0:0:0:18446744073709551616"));
  EXPECT_TRUE(ParseScsiAddress("4294967295:0:0:0"));
  EXPECT_FALSE(ParseScsiAddress("4294967296:0:0:0"));
}

TEST(ScsiAddress, IsNothingElse) {
  for (const char* text : {"", "host0", "target0:0:0", "0:0:0", "0:0:0:0:0",
                           "0:0:0:", ":::", "0:0:0:a", "-1:0:0:0", "0: 0:0:0", "0:0:0:0 "}) {
    EXPECT_FALSE(ParseScsiAddress(text)) << text;
  }
}

TEST(ScsiDeviceTypes, HaveWords) {
  EXPECT_EQ(ScsiDeviceType(0), "Direct Access Device");
  EXPECT_EQ(ScsiDeviceType(1), "Sequential Access Device");
  EXPECT_EQ(ScsiDeviceType(2), "Printer Device");
  EXPECT_EQ(ScsiDeviceType(3), "Processor Device");
  EXPECT_EQ(ScsiDeviceType(4), "Write Once Device");
  EXPECT_EQ(ScsiDeviceType(5), "CD-ROM Device");
  EXPECT_EQ(ScsiDeviceType(6), "Scanner Device");
  EXPECT_EQ(ScsiDeviceType(7), "Optical Memory Device");
  EXPECT_EQ(ScsiDeviceType(8), "Medium Changer Device");
  EXPECT_EQ(ScsiDeviceType(9), "Communications Device");
  EXPECT_EQ(ScsiDeviceType(10), "Graphic Arts Device");
  EXPECT_EQ(ScsiDeviceType(11), "Graphic Arts Device");
  EXPECT_EQ(ScsiDeviceType(12), "Storage Array Device");
  EXPECT_EQ(ScsiDeviceType(13), "Enclosure Services Device");
  EXPECT_EQ(ScsiDeviceType(14), "Simplified Direct Access Device");
  EXPECT_EQ(ScsiDeviceType(15), "Optical Card Device");
  EXPECT_EQ(ScsiDeviceType(16), "Bridge Controller Device");
  EXPECT_EQ(ScsiDeviceType(17), "Object Storage Device");
  EXPECT_EQ(ScsiDeviceType(18), "Automation Drive Device");
  EXPECT_EQ(ScsiDeviceType(19), "Security Manager Device");
  EXPECT_EQ(ScsiDeviceType(20), "Zoned Block Device");
  EXPECT_EQ(ScsiDeviceType(30), "Well Known Logical Unit Device");
}

TEST(ScsiDeviceTypes, ThatNobodyKnowsAreUnknown) {
  for (const std::uint64_t number : {21ul, 29ul, 31ul, 32ul, 256ul, 18446744073709551615ul}) {
    EXPECT_EQ(ScsiDeviceType(number), "Unknown Device") << number;
  }
}

class ScsiDevices : public ::testing::Test {
 protected:
  std::vector<TScsiDevice> Read() { return ReadScsiDevices(fDirectory.Path()); }
  std::vector<std::string> ReadIDs() {
    std::vector<std::string> ids;
    for (const TScsiDevice& device : Read())
      ids.push_back(device.fDeviceID);
    return ids;
  }
  void Add(const std::string& address, const std::string& block, const std::string& generic) {
    hwxtest::AddScsiDevice(fDirectory.Path(), {address, "0", "EXMPL", "DISK", "1", block, generic});
  }

  hwxtest::TemporaryDirectory fDirectory;
};

TEST_F(ScsiDevices, AreNoneOnAMachineWithoutThem) {
  EXPECT_THAT(Read(), IsEmpty());
}

TEST_F(ScsiDevices, AreReadWithThePaddingTakenOff) {
  hwxtest::AddScsiDevice(fDirectory.Path(),
                         {"0:1:2:3", "5", "EXMPL", "DVD-ROM 8x", "B7", "sr0", "sg3"});
  const std::vector<TScsiDevice> devices = Read();
  ASSERT_EQ(devices.size(), 1u);
  EXPECT_EQ(devices[0].fDeviceID, "/dev/sr0");
  EXPECT_EQ(devices[0].fDeviceType, "CD-ROM Device");
  EXPECT_EQ(devices[0].fVendorID, "EXMPL");
  EXPECT_EQ(devices[0].fProductID, "DVD-ROM 8x");
  EXPECT_EQ(devices[0].fRevision, "B7");
  EXPECT_EQ(devices[0].fAddress.fTarget, 2u);
}

TEST_F(ScsiDevices, AreNamedByBlockThenGenericDeviceThenAddress) {
  Add("0:0:0:0", "sda", "sg0");
  Add("0:0:1:0", "", "sg1");
  Add("0:0:2:0", "", "");
  EXPECT_THAT(ReadIDs(), ElementsAre("/dev/sda", "/dev/sg1", "0:0:2:0"));
}

TEST_F(ScsiDevices, AreOrderedByTheNumbersOfTheirAddresses) {
  for (const char* address :
       {"10:0:0:0", "2:0:0:0", "2:0:0:10", "2:0:0:9", "2:0:11:0", "2:1:0:0"}) {
    Add(address, "", "");
  }
  EXPECT_THAT(ReadIDs(),
              ElementsAre("2:0:0:0", "2:0:0:9", "2:0:0:10", "2:0:11:0", "2:1:0:0", "10:0:0:0"));
}

TEST_F(ScsiDevices, HostsAndTargetsBesideThemAreNotDevices) {
  Add("host0", "sda", "");
  Add("target0:0:0", "sdb", "");
  EXPECT_THAT(Read(), IsEmpty());
}

TEST_F(ScsiDevices, ThatClaimTheSameNameKeepTheirAddresses) {
  Add("0:0:0:0", "sda", "");
  Add("0:0:1:0", "sda", "");
  Add("0:0:01:0", "sda", "");
  EXPECT_THAT(ReadIDs(), ElementsAre("/dev/sda", "0:0:01:0", "0:0:1:0"));
}

TEST_F(ScsiDevices, LackWhatCannotBeRead) {
  hwxtest::AddScsiDevice(fDirectory.Path(),
                         {"0:0:0:0", "x", std::nullopt, std::nullopt, std::nullopt, "", ""});
  std::filesystem::create_directories(fDirectory / "sys/bus/scsi/devices/0:0:0:0/model");
  const std::vector<TScsiDevice> devices = Read();
  ASSERT_EQ(devices.size(), 1u);
  EXPECT_EQ(devices[0].fDeviceType, std::nullopt);
  EXPECT_EQ(devices[0].fVendorID, std::nullopt);
  EXPECT_EQ(devices[0].fProductID, std::nullopt);
  EXPECT_EQ(devices[0].fRevision, std::nullopt);
}

TEST_F(ScsiDevices, OfBlanksAloneHaveEmptyTexts) {
  hwxtest::AddScsiDevice(fDirectory.Path(), {"0:0:0:0", "0", "", "", "", "", ""});
  EXPECT_THAT(Read().at(0).fVendorID, Optional(""s));
  EXPECT_THAT(Read().at(0).fProductID, Optional(""s));
}

}  // namespace

}  // namespace linux_machine
