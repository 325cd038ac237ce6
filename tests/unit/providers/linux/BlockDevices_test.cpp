#include "providers/linux/BlockDevices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/Machines.h"
#include "support/TemporaryDirectory.h"

using namespace std::string_literals;

namespace hwxtest {

namespace {

using namespace linux_machine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BlockDevices : public ::testing::Test {
 protected:
  void Write(const std::string& file, const std::string& text) {
    WriteMachineFile(fDirectory.Path(), "sys/block/" + file, text);
  }
  void AddDisk(const std::string& name) {
    Write(name + "/dev", "8:0\n");
    Write(name + "/size", "7814037168\n");
    Write(name + "/ro", "0\n");
    Write(name + "/removable", "0\n");
    Write(name + "/queue/rotational", "1\n");
    Write(name + "/queue/logical_block_size", "512\n");
    Write(name + "/device/vendor", "EXMPL   \n");
    Write(name + "/device/model", "DISK 15K        \n");
    Write(name + "/device/rev", "A1  \n");
    Write(name + "/device/vpd_pg80", "\0\x80\0\x08  5A17  "s);
  }
  void AddPartition(const std::string& disk, const std::string& name) {
    Write(disk + "/" + name + "/partition", "1\n");
    Write(disk + "/" + name + "/size", "2048\n");
    Write(disk + "/" + name + "/start", "4096\n");
    Write(disk + "/" + name + "/ro", "0\n");
    Write(disk + "/" + name + "/uevent", "MAJOR=8\nPARTN=1\nPARTNAME=EFI System\n");
  }
  std::vector<TDisk> Disks() { return ReadDisks(fDirectory.Path()); }
  std::vector<TPartition> Partitions() { return ReadPartitions(fDirectory.Path()); }

  const TemporaryDirectory fDirectory;
};

TEST_F(BlockDevices, TellAllOfADisk) {
  AddDisk("sda");
  ASSERT_EQ(Disks().size(), 1u);
  const TDisk disk = Disks()[0];
  EXPECT_EQ(disk.fDeviceID, "/dev/sda");
  EXPECT_EQ(disk.fManufacturer, "EXMPL");
  EXPECT_EQ(disk.fModel, "DISK 15K");
  EXPECT_EQ(disk.fSerialNumber, "5A17");
  EXPECT_EQ(disk.fRevision, "A1");
  EXPECT_EQ(disk.fSize, 4000787030016u);
  EXPECT_EQ(disk.fBlockSize, 512u);
  EXPECT_EQ(disk.fDiskType, 2);
  EXPECT_THAT(disk.fCapabilities, ElementsAre(3, 4));
}

TEST_F(BlockDevices, TellWhatOtherDriversCallOtherwise) {
  Write("nvme0n1/dev", "259:0\n");
  Write("nvme0n1/size", "1000\n");
  Write("nvme0n1/queue/rotational", "0\n");
  Write("nvme0n1/device/model", "Example SSD     \n");
  Write("nvme0n1/device/serial", "S1234           \n");
  Write("nvme0n1/device/firmware_rev", "2B4Q\n");
  Write("vda/dev", "254:0\n");
  Write("vda/size", "1000\n");
  Write("vda/ro", "1\n");
  Write("vda/removable", "1\n");
  Write("vda/serial", "virt-1");
  Write("vda/device/vendor", "0x1af4\n");
  ASSERT_EQ(Disks().size(), 2u);
  const TDisk nvme = Disks()[0];
  EXPECT_EQ(nvme.fModel, "Example SSD");
  EXPECT_EQ(nvme.fSerialNumber, "S1234");
  EXPECT_EQ(nvme.fRevision, "2B4Q");
  EXPECT_EQ(nvme.fDiskType, 3);
  const TDisk virtualDisk = Disks()[1];
  EXPECT_EQ(virtualDisk.fSerialNumber, "virt-1");
  EXPECT_FALSE(virtualDisk.fManufacturer);
  EXPECT_FALSE(virtualDisk.fDiskType);
  EXPECT_THAT(virtualDisk.fCapabilities, ElementsAre(3, 7));
}

TEST_F(BlockDevices, AreNoDisksWithoutADeviceOrOfAnotherKind) {
  AddDisk("fd0");
  Write("fd0/dev", "2:0\n");
  AddDisk("sr0");
  Write("sr0/dev", "11:0\n");
  AddDisk("nvme0c0n1");
  Write("nvme0c0n1/hidden", "1\n");
  Write("loop0/size", "0\n");
  Write("dm-0/size", "100\n");
  EXPECT_THAT(Disks(), IsEmpty());
}

TEST_F(BlockDevices, ThatVanishOrLieCostNothingElse) {
  std::filesystem::create_directories(fDirectory / "sys/block/sda/device");
  std::filesystem::create_directory_symlink("/nowhere", fDirectory / "sys/block/sdb");
  AddDisk("sdc");
  Write("sdc/size", "18446744073709551615\n");
  Write("sdc/queue/rotational", "\xFF\n");
  Write("sdc/queue/logical_block_size", "-1\n");
  std::filesystem::remove(fDirectory / "sys/block/sdc/device/model");
  ASSERT_EQ(::mkfifo((fDirectory / "sys/block/sdc/device/model").c_str(), 0600), 0);
  AddDisk("sdd");
  ASSERT_EQ(Disks().size(), 2u);
  EXPECT_EQ(Disks()[0].fDeviceID, "/dev/sdc");
  EXPECT_FALSE(Disks()[0].fSize);
  EXPECT_FALSE(Disks()[0].fDiskType);
  EXPECT_FALSE(Disks()[0].fBlockSize);
  EXPECT_FALSE(Disks()[0].fModel);
  EXPECT_EQ(Disks()[1].fModel, "DISK 15K");
}

TEST_F(BlockDevices, AreFoundThoughTheirDeviceIsADanglingLink) {
  Write("sda/size", "8\n");
  std::filesystem::create_directory_symlink("../../gone", fDirectory / "sys/block/sda/device");
  EXPECT_EQ(Disks().size(), 1u);
}

TEST_F(BlockDevices, HaveNoneWithoutSys) {
  EXPECT_THAT(Disks(), IsEmpty());
  EXPECT_THAT(Partitions(), IsEmpty());
}

TEST_F(BlockDevices, TellAllOfAPartition) {
  AddPartition("sda", "sda1");
  ASSERT_EQ(Partitions().size(), 1u);
  const TPartition partition = Partitions()[0];
  EXPECT_EQ(partition.fDeviceID, "/dev/sda1");
  EXPECT_EQ(partition.fLabel, "EFI System");
  EXPECT_EQ(partition.fBlocks, 2048u);
  EXPECT_EQ(partition.fStart, 2097152u);
  EXPECT_EQ(partition.fAccess, 3);
}

TEST_F(BlockDevices, HavePartitionsOfAnyBlockDevice) {
  AddPartition("loop0", "loop0p1");
  AddPartition("cciss!c0d0", "cciss!c0d0p1");
  Write("sda/queue/partition", "1\n");
  Write("sda/sda1/size", "1\n");
  Write("sda/sda2/partition", "2\n");
  ASSERT_EQ(Partitions().size(), 2u);
  EXPECT_EQ(Partitions()[0].fDeviceID, "/dev/cciss/c0d0p1");
  EXPECT_EQ(Partitions()[1].fDeviceID, "/dev/loop0p1");
}

TEST_F(BlockDevices, LackOfPartitionsWhatCannotBeRead) {
  Write("sda/sda1/partition", "1\n");
  Write("sda/sda1/size", "1\n");
  Write("sda/sda1/start", "18446744073709551615\n");
  ASSERT_EQ(Partitions().size(), 1u);
  EXPECT_FALSE(Partitions()[0].fStart);
  EXPECT_FALSE(Partitions()[0].fLabel);
  EXPECT_FALSE(Partitions()[0].fAccess);
}

TEST_F(BlockDevices, HaveSerialNumbersInPagesOfAnyBytes) {
  EXPECT_EQ(ParseUnitSerialNumber("\0\x80\0\x04 ABC"s), "ABC");
  EXPECT_EQ(ParseUnitSerialNumber("\0\x80\0\x02 ABC"s), "A");
  EXPECT_EQ(ParseUnitSerialNumber("\0\x80\xFF\xFF\xFE\xFD"s), "\xFE\xFD");
  EXPECT_EQ(ParseUnitSerialNumber("\0\x80\0\x04"
                                  "A\0BC"s),
            "A");
  for (const std::string& page : {""s, "\0\x80\0"s, "\0\x80\0\0"s, "\0\x80\0\x04    "s,
                                  "\0\x83\0\x04 ABC"s, "\0\x80\0\x04\0ABC"s}) {
    EXPECT_FALSE(ParseUnitSerialNumber(page)) << page.size();
  }
}

TEST_F(BlockDevices, HaveVariablesOfWholeNames) {
  EXPECT_EQ(EventVariable("PARTN=1\nPARTNAME=a=b\n", "PARTNAME"), "a=b");
  EXPECT_FALSE(EventVariable("PARTNAMES=x\nPARTNAME\nPARTNAME=\n", "PARTNAME"));
  EXPECT_FALSE(EventVariable("", "PARTNAME"));
}

}  // namespace

}  // namespace hwxtest
