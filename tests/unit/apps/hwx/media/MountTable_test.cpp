#include "hwx/media/MountTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace hwx {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ParseMounts, ReadsSourceAndPlaceOfEachLine) {
  const auto mounts =
      ParseMounts("/dev/sda1 / ext4 rw,relatime 0 0\ntmpfs /dev/shm tmpfs rw 0 0\n");
  ASSERT_EQ(mounts.size(), 2u);
  EXPECT_EQ(mounts[0].fSource, "/dev/sda1");
  EXPECT_EQ(mounts[0].fMountPoint, "/");
  EXPECT_EQ(mounts[1].fSource, "tmpfs");
  EXPECT_EQ(mounts[1].fMountPoint, "/dev/shm");
}

TEST(ParseMounts, TurnsEscapesIntoTheirCharacters) {
  const auto mounts = ParseMounts("a\\134b /my\\040key\\011 x\n/c\\0 \\999\\040 x\n");
  ASSERT_EQ(mounts.size(), 2u);
  EXPECT_EQ(mounts[0].fSource, "a\\b");
  EXPECT_EQ(mounts[0].fMountPoint, "/my key\t");
  EXPECT_EQ(mounts[1].fSource, "/c\\0");
  EXPECT_EQ(mounts[1].fMountPoint, "\\999 ");
}

TEST(ParseMounts, PassesOverOtherLines) {
  EXPECT_THAT(ParseMounts(""), IsEmpty());
  EXPECT_THAT(ParseMounts("\n\nword\n"), IsEmpty());
}

TEST(IsOfDevice, KnowsTheDeviceAndItsPartitions) {
  EXPECT_TRUE(IsOfDevice("/dev/sdb", "/dev/sdb"));
  EXPECT_TRUE(IsOfDevice("/dev/sdb1", "/dev/sdb"));
  EXPECT_TRUE(IsOfDevice("/dev/sdb15", "/dev/sdb"));
  EXPECT_TRUE(IsOfDevice("/dev/loop0p1", "/dev/loop0"));
}

TEST(IsOfDevice, KnowsOtherDevices) {
  EXPECT_FALSE(IsOfDevice("/dev/sda", "/dev/sdb"));
  EXPECT_FALSE(IsOfDevice("/dev/sdbb", "/dev/sdb"));
  EXPECT_FALSE(IsOfDevice("/dev/sdb1x", "/dev/sdb"));
  EXPECT_FALSE(IsOfDevice("/dev/sd", "/dev/sdb"));
  EXPECT_FALSE(IsOfDevice("/dev/sdb2", "/dev/sdb1"));
  EXPECT_FALSE(IsOfDevice("/dev/loop01", "/dev/loop0"));
  EXPECT_FALSE(IsOfDevice("/dev/loop0p", "/dev/loop0"));
  EXPECT_FALSE(IsOfDevice("1", ""));
}

TEST(MountPointsOf, AreThoseOfTheDeviceAndItsPartitions) {
  const std::vector<TMount> mounts = {
      {"/dev/sda1", "/"}, {"/dev/sdb2", "/b"}, {"/dev/sdb1", "/a"}, {"/dev/sdbb", "/c"}};
  EXPECT_THAT(MountPointsOf("/dev/sdb", mounts), ElementsAre("/b", "/a"));
  EXPECT_THAT(MountPointsOf("/dev/sdc", mounts), IsEmpty());
}

TEST(SourceAt, IsTheLastOneMountedThere) {
  const std::vector<TMount> mounts = {{"a", "/mnt"}, {"b", "/mnt"}, {"c", "/"}};
  EXPECT_EQ(SourceAt("/mnt", mounts), "b");
  EXPECT_EQ(SourceAt("/mnt/key", mounts), "");
}

}  // namespace
}  // namespace hwx
