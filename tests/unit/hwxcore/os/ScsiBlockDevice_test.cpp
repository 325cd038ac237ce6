#include "hwxcore/os/detail/ScsiBlockDevice.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <set>

#include "hwxcore/value/THWXStatusCode.h"
#include "support/ChildProcess.h"
#include "support/Descriptors.h"
#include "support/FakeScsiFiles.h"
#include "support/FakeScsiSystem.h"
#include "support/FileText.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::FakeScsiFiles;
using hwxtest::FakeScsiSystem;
using hwxtest::OpenDescriptors;
using hwxtest::ScopedLogCapture;
using hwxtest::StatusOf;
using hwxtest::TemporaryDirectory;
using NQORHWX20::kHWXStatusFileSystemError;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

namespace NQORHWX20::detail {
namespace {

constexpr unsigned long kGetScsiId = 0x2276;
constexpr unsigned long kGetIdLun = 0x5382;
constexpr unsigned long kGetBusNumber = 0x5386;

constexpr TGenericAddress kAddress = {4, 3, 2, 1};
constexpr TBlockAddress kSameAddress = {4, 0x04030102};

TEST(BlockDeviceName, RunsThroughOneLetterAndThenThroughTwo) {
  EXPECT_EQ(BlockDeviceName(0), "/dev/sda");
  EXPECT_EQ(BlockDeviceName(1), "/dev/sdb");
  EXPECT_EQ(BlockDeviceName(25), "/dev/sdz");
  EXPECT_EQ(BlockDeviceName(26), "/dev/sdaa");
  EXPECT_EQ(BlockDeviceName(27), "/dev/sdab");
  EXPECT_EQ(BlockDeviceName(51), "/dev/sdaz");
  EXPECT_EQ(BlockDeviceName(52), "/dev/sdba");
  EXPECT_EQ(BlockDeviceName(103), "/dev/sdcz");
  EXPECT_EQ(BlockDeviceName(104), "/dev/sdda");
  EXPECT_EQ(BlockDeviceName(kBlockDeviceCount - 1), "/dev/sddx");
}

TEST(BlockDeviceName, GivesNoNameTwice) {
  std::set<std::string> names;
  for (int index = 0; index < kBlockDeviceCount; ++index)
    names.insert(BlockDeviceName(index));
  EXPECT_THAT(names, SizeIs(128));
}

TEST(IsSameDevice, ComparesEachPartOfTheAddress) {
  EXPECT_TRUE(IsSameDevice(kAddress, kSameAddress));
  EXPECT_FALSE(IsSameDevice(kAddress, {5, 0x04030102}));
  EXPECT_FALSE(IsSameDevice(kAddress, {4, 0x04030103}));
  EXPECT_FALSE(IsSameDevice(kAddress, {4, 0x04030002}));
  EXPECT_FALSE(IsSameDevice(kAddress, {4, 0x04020102}));
}

TEST(IsSameDevice, TakesTheHostFromTheBusNumberAndNotFromTheIdentifier) {
  EXPECT_TRUE(IsSameDevice(kAddress, {4, 0xFF030102}));
  EXPECT_TRUE(IsSameDevice({0x104, 3, 2, 1}, {0x104, 0x04030102}));
  EXPECT_FALSE(IsSameDevice({0x104, 3, 2, 1}, {4, 0x04030102}));
}

TEST(IsSameDevice, KnowsEachByteUpToItsGreatestNumber) {
  EXPECT_TRUE(IsSameDevice({0, 255, 255, 255}, {0, 0x00FFFFFF}));
  EXPECT_TRUE(IsSameDevice({0, 0, 0, 0}, {0, 0}));
}

TEST(IsSameDevice, NeverMatchesAPartThatABytesHoldsNot) {
  EXPECT_FALSE(IsSameDevice({0, 0, 0x100, 0}, {0, 0}));
  EXPECT_FALSE(IsSameDevice({0, 0, 0, 0x100}, {0, 0x00010000}));
  EXPECT_FALSE(IsSameDevice({0, 0x100, 0, 0}, {0, 0}));
  EXPECT_FALSE(IsSameDevice({0, 0, -1, 0}, {0, 0xFF}));
}

class BlockDeviceOfTest : public testing::Test {
 protected:
  BlockDeviceOfTest() { fSystem.AddGeneric("/dev/sg7", kAddress); }

  std::string Search() { return BlockDeviceOf("/dev/sg7", fSystem); }
  int StatusOfSearch() {
    return StatusOf([this] { Search(); });
  }

  FakeScsiSystem fSystem;
};

TEST_F(BlockDeviceOfTest, FindsTheFirstName) {
  fSystem.AddBlock("/dev/sda", kSameAddress);
  const ScopedLogCapture log;
  EXPECT_EQ(Search(), "/dev/sda");
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(BlockDeviceOfTest, FindsTheLastName) {
  fSystem.AddBlock("/dev/sddx", kSameAddress);
  EXPECT_EQ(Search(), "/dev/sddx");
}

TEST_F(BlockDeviceOfTest, EndsWithTheFirstMatch) {
  fSystem.AddBlock("/dev/sdb", kSameAddress);
  fSystem.AddBlock("/dev/sdd", kSameAddress);
  EXPECT_EQ(Search(), "/dev/sdb");
  EXPECT_THAT(fSystem.Opened(), ElementsAre("/dev/sg7", "/dev/sda", "/dev/sdb"));
}

TEST_F(BlockDeviceOfTest, PassesOverDevicesOfAnotherAddressOrOfNone) {
  fSystem.AddBlock("/dev/sda", TBlockAddress{0, 0});
  fSystem.AddBlock("/dev/sdb", std::nullopt);
  fSystem.AddBlock("/dev/sdaa", kSameAddress);
  const ScopedLogCapture log;
  EXPECT_EQ(Search(), "/dev/sdaa");
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(BlockDeviceOfTest, FailsWhenTheGenericDeviceCannotBeOpened) {
  FakeScsiSystem system;
  system.AddBlock("/dev/sda", kSameAddress);
  const ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { BlockDeviceOf("/dev/sg7", system); }), kHWXStatusFileSystemError);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", "Failed opening/dev/sg7")));
  EXPECT_THAT(system.Opened(), ElementsAre("/dev/sg7"));
}

TEST_F(BlockDeviceOfTest, FailsWhenTheGenericDeviceTellsNoAddress) {
  fSystem.AddGeneric("/dev/sg7", std::nullopt);
  fSystem.AddBlock("/dev/sda", kSameAddress);
  const ScopedLogCapture log;
  EXPECT_EQ(StatusOfSearch(), kHWXStatusFileSystemError);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", "Failed ioctl on /dev/sg7")));
  EXPECT_THAT(fSystem.Opened(), ElementsAre("/dev/sg7"));
}

TEST_F(BlockDeviceOfTest, FailsAfterAllNames) {
  fSystem.AddBlock("/dev/sddy", kSameAddress);
  const ScopedLogCapture log;
  EXPECT_EQ(StatusOfSearch(), kHWXStatusFileSystemError);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", "No mapping found for /dev/sg7")));
  EXPECT_THAT(fSystem.Opened(), SizeIs(1 + 128));
  EXPECT_EQ(fSystem.Opened().back(), "/dev/sddx");
}

// With files in the place of devices.
class TScsiSystemTest : public testing::Test {
 protected:
  TScsiSystemTest() { hwxtest::MakeFile(fFile, ""); }

  int Open() { return fSystem.Open(fFile); }

  TScsiSystem fSystem;
  TemporaryDirectory fScratch;
  const std::string fFile = fScratch / "device";
  FakeScsiFiles fFiles;
};

TEST_F(TScsiSystemTest, OpensForReadingAndWithoutWaiting) {
  const int descriptor = Open();
  ASSERT_NE(descriptor, -1);
  EXPECT_EQ(::fcntl(descriptor, F_GETFL) & (O_ACCMODE | O_NONBLOCK), O_RDONLY | O_NONBLOCK);
  ::close(descriptor);
}

TEST_F(TScsiSystemTest, CannotOpenWhatIsNotThere) {
  EXPECT_EQ(fSystem.Open(fScratch / "absent"), -1);
}

TEST_F(TScsiSystemTest, AsksAGenericDeviceForItsAddress) {
  fFiles.Answer(fFile, kGetScsiId, {4, 3, 2, 1, 0, 0, 0, 0});
  const int descriptor = Open();
  const auto address = fSystem.GenericAddress(descriptor);
  ASSERT_TRUE(address);
  EXPECT_EQ(address->fHost, 4);
  EXPECT_EQ(address->fChannel, 3);
  EXPECT_EQ(address->fTarget, 2);
  EXPECT_EQ(address->fUnit, 1);
  EXPECT_FALSE(fSystem.BlockAddress(descriptor));
  ::close(descriptor);
}

TEST_F(TScsiSystemTest, AsksABlockDeviceForIdentifierAndBus) {
  fFiles.Answer(fFile, kGetIdLun, {0x04030102, 9});
  fFiles.Answer(fFile, kGetBusNumber, {4});
  const int descriptor = Open();
  const auto address = fSystem.BlockAddress(descriptor);
  ASSERT_TRUE(address);
  EXPECT_EQ(address->fIdentifier, 0x04030102U);
  EXPECT_EQ(address->fBus, 4);
  EXPECT_FALSE(fSystem.GenericAddress(descriptor));
  ::close(descriptor);
}

TEST_F(TScsiSystemTest, HasNoBlockAddressWhenOneOfTheTwoAsksFails) {
  const int descriptor = Open();
  fFiles.Answer(fFile, kGetIdLun, {0x04030102, 9});
  EXPECT_FALSE(fSystem.BlockAddress(descriptor));
  fFiles.Answer(fFile, kGetIdLun, {});
  fFiles.Answer(fFile, kGetBusNumber, {4});
  EXPECT_FALSE(fSystem.BlockAddress(descriptor));
  ::close(descriptor);
}

TEST_F(TScsiSystemTest, TellsNoAddressOfAnOrdinaryFile) {
  const int descriptor = Open();
  EXPECT_FALSE(fSystem.GenericAddress(descriptor));
  EXPECT_FALSE(fSystem.BlockAddress(descriptor));
  ::close(descriptor);
}

TEST_F(TScsiSystemTest, LeavesTheGenericDeviceOpen) {
  const int result = hwxtest::RunInChild([this] {
    const std::size_t before = OpenDescriptors();
    EXPECT_EQ(StatusOf([this] { BlockDeviceOf(fFile, fSystem); }), kHWXStatusFileSystemError);
    EXPECT_EQ(OpenDescriptors(), before + 1);
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(ScsiDisksOfThisMachine, AreFoundByTheirGenericDevices) {
  const std::string generic = "/sys/class/scsi_generic";
  int disks = 0;
  TScsiSystem system;
  std::error_code none;
  for (const auto& device : std::filesystem::directory_iterator(generic, none)) {
    for (const auto& block :
         std::filesystem::directory_iterator(device.path() / "device" / "block", none)) {
      const std::string name = block.path().filename();
      if (name.compare(0, 2, "sd") != 0) continue;
      const std::string path = "/dev/" + device.path().filename().string();
      if (::access(path.c_str(), R_OK) != 0) continue;
      EXPECT_EQ(BlockDeviceOf(path, system), "/dev/" + name);
      ++disks;
    }
  }
  if (disks == 0) GTEST_SKIP() << "SKIPPED: no SCSI disk with a generic device to read";
}

}  // namespace
}  // namespace NQORHWX20::detail
