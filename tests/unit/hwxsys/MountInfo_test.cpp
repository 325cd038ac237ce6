#include "hwxsys/MountInfo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace std::string_literals;

namespace hwxsys {
namespace {

using ::testing::IsEmpty;

TEST(MountInfo, TellsAllFields) {
  const auto mounts = ParseMountInfo(
      "36 35 98:0 /sub /mnt rw,noatime master:1 shared:2 - ext4 /dev/sda1 rw,errors=continue\n");
  ASSERT_EQ(mounts.size(), 1u);
  EXPECT_EQ(mounts[0].fNumber, 36u);
  EXPECT_EQ(mounts[0].fDevice, "98:0");
  EXPECT_EQ(mounts[0].fRoot, "/sub");
  EXPECT_EQ(mounts[0].fMountPoint, "/mnt");
  EXPECT_EQ(mounts[0].fOptions, "rw,noatime");
  EXPECT_EQ(mounts[0].fType, "ext4");
  EXPECT_EQ(mounts[0].fSource, "/dev/sda1");
}

TEST(MountInfo, UndoesTheKernelsEscapes) {
  const auto mounts =
      ParseMountInfo("1 2 0:1 / /a\\040b\\011c\\012d\\134e\\777\\08 rw - nfs host:/x\\040y rw\n");
  ASSERT_EQ(mounts.size(), 1u);
  EXPECT_EQ(mounts[0].fMountPoint, "/a b\tc\nd\\e\\777\\08");
  EXPECT_EQ(mounts[0].fSource, "host:/x y");
}

TEST(MountInfo, PassesOverLinesOfAnotherForm) {
  EXPECT_THAT(ParseMountInfo(""), IsEmpty());
  EXPECT_THAT(ParseMountInfo("\n\n - \n1 2 0:1 / /mnt rw\n"), IsEmpty());
  EXPECT_THAT(ParseMountInfo("1 2 0:1 / - ext4 x y z\n"), IsEmpty());
  EXPECT_THAT(ParseMountInfo("1 2 0:1 / /mnt rw -\n1 2 0:1 / /mnt rw - ext4\n"), IsEmpty());
  EXPECT_THAT(ParseMountInfo("\xFF\0\xFE"s), IsEmpty());
  EXPECT_EQ(ParseMountInfo("x\n1 2 0:1 / /\xFF rw - ext4 dev rw").at(0).fMountPoint, "/\xFF");
}

TEST(MountInfo, KnowsTheRootOfThisMachine) {
  bool hasRoot = false;
  for (const TMount& mount : ReadMountInfo())
    hasRoot = hasRoot || mount.fMountPoint == "/";
  EXPECT_TRUE(hasRoot);
}

}  // namespace
}  // namespace hwxsys
