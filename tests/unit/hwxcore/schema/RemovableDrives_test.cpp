#include "hwxcore/schema/detail/RemovableDrives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/FakeScsiSystem.h"
#include "support/RecordingNamespace.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"

using hwxtest::FakeScsiSystem;
using hwxtest::RecordingNamespace;
using hwxtest::ScopedLogCapture;
using hwxtest::StatusOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace NQORHWX20::detail {
namespace {

const char kDriveClass[] = "QORSG_SCSIDevice";
const char kDrive[] = "Direct Access Device";

class RemovableDrivesTest : public testing::Test {
 protected:
  RemovableDrivesTest() { fNamespace.AddClass(kDriveClass); }

  void Add(const std::string& id, const std::string& product, const std::string& vendor = "Maker",
           const std::string& type = kDrive) {
    fNamespace.AddInstance(kDriveClass, {{"DeviceType", TCIMValue(type.c_str())},
                                         {"ProductID", TCIMValue(product.c_str())},
                                         {"DeviceID", TCIMValue(id.c_str())},
                                         {"VendorID", TCIMValue(vendor.c_str())}});
  }

  std::vector<std::pair<std::string, std::string> > Drives() {
    return RemovableDrives(fUsbDevices, fNamespace.Get(), BlockDevices());
  }
  std::function<std::string(const std::string&)> BlockDevices() {
    return [this](const std::string& generic) { return BlockDeviceOf(generic, fSystem); };
  }

  int StatusOfDrives() {
    return StatusOf([this] { Drives(); });
  }

  std::vector<std::string> Calls() const {
    std::vector<std::string> names;
    for (const RecordingNamespace::Call& call : fNamespace.Calls())
      names.push_back(call.first);
    return names;
  }

  std::string fUsbDevices = "S:  Product=Stick 3000\n";
  RecordingNamespace fNamespace;
  FakeScsiSystem fSystem;
};

TEST_F(RemovableDrivesTest, AreThoseWhoseProductTheUsbListNames) {
  Add("/dev/sda", "Disk");
  Add("/dev/sdb", "Stick");
  EXPECT_THAT(Drives(), ElementsAre(Pair("/dev/sdb", "Maker - Stick")));
}

TEST_F(RemovableDrivesTest, AreThoseWhoseProductSaysUsbInThisCase) {
  Add("/dev/sda", "Reader-usb");
  Add("/dev/sdb", "Reader-USB");
  Add("/dev/sdc", "USBReader");
  EXPECT_THAT(Drives(), ElementsAre(Pair("/dev/sdb", "Maker - Reader-USB"),
                                    Pair("/dev/sdc", "Maker - USBReader")));
}

TEST_F(RemovableDrivesTest, AreDirectAccessDevicesToTheLetter) {
  Add("/dev/sda", "Stick", "Maker", "CD-ROM");
  Add("/dev/sdb", "Stick", "Maker", "Direct Access Device ");
  Add("/dev/sdc", "Stick", "Maker", "direct access device");
  EXPECT_THAT(Drives(), IsEmpty());
}

TEST_F(RemovableDrivesTest, GoByTheFirstWordOfProductAndVendor) {
  Add("/dev/sda", "Stick 9999", "Some Maker");
  Add("/dev/sdb", "Stick\t9999", "Some\nMaker");
  Add("/dev/sdc", "Stick\r9999", "Some\rMaker");
  Add("/dev/sdd", "Stick\n9999", "Some\tMaker");
  EXPECT_THAT(Drives(),
              ElementsAre(Pair("/dev/sda", "Some - Stick"), Pair("/dev/sdb", "Some - Stick"),
                          Pair("/dev/sdc", "Some - Stick"), Pair("/dev/sdd", "Some - Stick")));
}

TEST_F(RemovableDrivesTest, DoNotCountUsbBehindTheFirstWord) {
  Add("/dev/sda", "Reader USB");
  EXPECT_THAT(Drives(), IsEmpty());
}

TEST_F(RemovableDrivesTest, MayBeNamedInTheMiddleOfTheList) {
  fUsbDevices = "xSticky";
  Add("/dev/sda", "Stick");
  EXPECT_THAT(Drives(), ElementsAre(Pair("/dev/sda", "Maker - Stick")));
}

TEST_F(RemovableDrivesTest, CountAnEmptyProductAsNamed) {
  Add("/dev/sda", "", "Maker");
  Add("/dev/sdb", " Disk", "");
  EXPECT_THAT(Drives(), ElementsAre(Pair("/dev/sda", "Maker - "), Pair("/dev/sdb", " - ")));
  fUsbDevices.clear();
  EXPECT_THAT(Drives(), testing::SizeIs(2));
}

TEST_F(RemovableDrivesTest, StandInTheOrderOfTheClassAndAsOftenAsThere) {
  Add("/dev/sdc", "USB");
  Add("/dev/sda", "USB");
  Add("/dev/sdc", "USB");
  EXPECT_THAT(Drives(),
              ElementsAre(Pair("/dev/sdc", "Maker - USB"), Pair("/dev/sda", "Maker - USB"),
                          Pair("/dev/sdc", "Maker - USB")));
}

TEST_F(RemovableDrivesTest, AreReadWithEmptyContextsInOrder) {
  Add("/dev/sda", "USB");
  Drives();
  for (const RecordingNamespace::Call& call : fNamespace.Calls())
    EXPECT_EQ(call.second, "") << call.first;
  const std::string device = std::string(kDriveClass) + "[0].";
  EXPECT_THAT(
      Calls(),
      ElementsAre("GetClass(QORSG_SCSIDevice)", "QORSG_SCSIDevice.EnumerateInstances(shallow)",
                  device + "GetProperty(DeviceType)", device + "DeviceType.GetValue",
                  device + "GetProperty(ProductID)", device + "ProductID.GetValue",
                  device + "GetProperty(DeviceID)", device + "DeviceID.GetValue",
                  device + "GetProperty(VendorID)", device + "VendorID.GetValue"));
}

TEST_F(RemovableDrivesTest, AreAskedForNothingMoreOnceTheyDoNotCount) {
  Add("/dev/sr0", "USB", "Maker", "CD-ROM");
  Add("/dev/sda", "Disk");
  Drives();
  EXPECT_THAT(
      Calls(),
      ElementsAre(
          "GetClass(QORSG_SCSIDevice)", "QORSG_SCSIDevice.EnumerateInstances(shallow)",
          "QORSG_SCSIDevice[0].GetProperty(DeviceType)", "QORSG_SCSIDevice[0].DeviceType.GetValue",
          "QORSG_SCSIDevice[1].GetProperty(DeviceType)", "QORSG_SCSIDevice[1].DeviceType.GetValue",
          "QORSG_SCSIDevice[1].GetProperty(ProductID)", "QORSG_SCSIDevice[1].ProductID.GetValue"));
}

TEST_F(RemovableDrivesTest, ThatAreGenericDevicesAreListedAsTheirBlockDevices) {
  fSystem.AddGeneric("/dev/sg3", FakeScsiSystem::TGenericAddress{6, 0, 2, 1});
  fSystem.AddBlock("/dev/sdb", FakeScsiSystem::TBlockAddress{6, 0x06000102});
  Add("/dev/sg3", "USB");
  EXPECT_THAT(Drives(), ElementsAre(Pair("/dev/sdb", "Maker - USB")));
}

TEST_F(RemovableDrivesTest, ThatAreNotGenericDevicesAreListedAsTheyStand) {
  Add("/dev/sdb", "USB");
  Add("/dev/disk/sg1", "USB");
  EXPECT_THAT(Drives(),
              ElementsAre(Pair("/dev/sdb", "Maker - USB"), Pair("/dev/disk/sg1", "Maker - USB")));
  EXPECT_THAT(fSystem.Opened(), IsEmpty());
}

TEST_F(RemovableDrivesTest, AreGenericDevicesByTheSixthAndSeventhCharacter) {
  fSystem.AddGeneric("/abc/sgx", FakeScsiSystem::TGenericAddress{0, 0, 0, 0});
  fSystem.AddBlock("/dev/sda", FakeScsiSystem::TBlockAddress{0, 0});
  Add("/abc/sgx", "USB");
  EXPECT_THAT(Drives(), ElementsAre(Pair("/dev/sda", "Maker - USB")));
}

TEST_F(RemovableDrivesTest, MayHaveAnyShortName) {
  const std::vector<std::string> names = {"", "s", "/dev", "/dev/", "/dev/s", "sg"};
  for (const std::string& name : names)
    Add(name, "USB");
  std::vector<std::string> found;
  for (const auto& drive : Drives())
    found.push_back(drive.first);
  EXPECT_EQ(found, names);
}

TEST_F(RemovableDrivesTest, CostNothingButThemselvesWhenTheyCannotBeProbed) {
  fSystem.AddGeneric("/dev/sg1", std::nullopt);
  fSystem.AddGeneric("/dev/sg2", FakeScsiSystem::TGenericAddress{0, 0, 0, 0});
  for (const char* id : {"/dev/sg0", "/dev/sda", "/dev/sg1", "/dev/sg2", "/dev/sdb"})
    Add(id, "USB");
  const ScopedLogCapture log;
  EXPECT_THAT(Drives(),
              ElementsAre(Pair("/dev/sda", "Maker - USB"), Pair("/dev/sdb", "Maker - USB")));
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", "Failed opening/dev/sg0"),
                                       Pair("Error", "Failed ioctl on /dev/sg1"),
                                       Pair("Error", "No mapping found for /dev/sg2")));
}

TEST_F(RemovableDrivesTest, AreLostWithAPropertyThatIsMissing) {
  Add("/dev/sda", "USB");
  for (const char* missing : {"DeviceType", "ProductID", "DeviceID", "VendorID"}) {
    RecordingNamespace ns;
    RecordingNamespace::Properties properties = {{"DeviceType", TCIMValue(kDrive)},
                                                 {"ProductID", TCIMValue("USB")},
                                                 {"DeviceID", TCIMValue("/dev/sda")},
                                                 {"VendorID", TCIMValue("Maker")}};
    ns.AddInstance(kDriveClass, properties);
    properties.erase(missing);
    ns.AddInstance(kDriveClass, properties);
    EXPECT_EQ(StatusOf([&] { RemovableDrives("", ns.Get(), BlockDevices()); }), kHWXStatusNotFound)
        << missing;
  }
}

TEST_F(RemovableDrivesTest, PassOnWhatTheNamespaceThrows) {
  Add("/dev/sg9", "USB");
  for (const char* call :
       {"GetClass(QORSG_SCSIDevice)", "QORSG_SCSIDevice.EnumerateInstances(shallow)",
        "QORSG_SCSIDevice[0].GetProperty(DeviceType)", "QORSG_SCSIDevice[0].ProductID.GetValue",
        "QORSG_SCSIDevice[0].DeviceID.GetValue", "QORSG_SCSIDevice[0].VendorID.GetValue"}) {
    RecordingNamespace ns = fNamespace;
    ns.Fail(call, kHWXStatusAccessDenied);
    EXPECT_EQ(StatusOf([&] { RemovableDrives("", ns.Get(), BlockDevices()); }),
              kHWXStatusAccessDenied)
        << call;
  }
  EXPECT_THAT(fSystem.Opened(), IsEmpty());
}

TEST_F(RemovableDrivesTest, NeedTheClassAndANamespace) {
  RecordingNamespace empty;
  EXPECT_EQ(StatusOf([&] { RemovableDrives("", empty.Get(), BlockDevices()); }),
            kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { RemovableDrives("", nullptr, BlockDevices()); }), kHWXStatusNotFound);
}

TEST_F(RemovableDrivesTest, AreNoneInAClassWithoutInstances) {
  EXPECT_THAT(Drives(), IsEmpty());
}

TEST_F(RemovableDrivesTest, NeedStrings) {
  fNamespace.AddInstance(kDriveClass, {{"DeviceType", TCIMValue(5)}});
  EXPECT_EQ(StatusOfDrives(), kHWXStatusTypeMismatch);
}

}  // namespace
}  // namespace NQORHWX20::detail
