#include "hwx/media/MountTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace hwx {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TMount Mount(const std::string& source, const std::string& mountPoint) {
  return {1, "8:1", "/", mountPoint, "rw", "ext4", source};
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
  const std::vector<TMount> mounts = {Mount("/dev/sda1", "/"), Mount("/dev/sdb2", "/b"),
                                      Mount("/dev/sdb1", "/a"), Mount("/dev/sdbb", "/c")};
  EXPECT_THAT(MountPointsOf("/dev/sdb", mounts), ElementsAre("/b", "/a"));
  EXPECT_THAT(MountPointsOf("/dev/sdc", mounts), IsEmpty());
}

TEST(SourceAt, IsTheLastOneMountedThere) {
  const std::vector<TMount> mounts = {Mount("a", "/mnt"), Mount("b", "/mnt"), Mount("c", "/")};
  EXPECT_EQ(SourceAt("/mnt", mounts), "b");
  EXPECT_EQ(SourceAt("/mnt/key", mounts), "");
}

}  // namespace
}  // namespace hwx
