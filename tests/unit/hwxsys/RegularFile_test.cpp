#include "hwxsys/RegularFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>

#include "hwxsys/KernelCopy.h"
#include "support/FileText.h"
#include "support/Machines.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

namespace hwxsys {
namespace {

class RegularFile : public testing::Test {
 protected:
  const hwxtest::TemporaryDirectory fDirectory;
  const std::string fPath = fDirectory / "file";
  std::string fBytes = "before";
};

TEST_F(RegularFile, IsReadWhole) {
  const std::string bytes = hwxtest::AllBytes(40000);
  hwxtest::MakeFile(fPath, bytes);
  EXPECT_EQ(ReadRegularFile(fPath, bytes.size(), fBytes), 0);
  EXPECT_EQ(fBytes, bytes);
}

TEST_F(RegularFile, IsReadUpToTheLimit) {
  hwxtest::MakeFile(fPath, std::string(40000, 'x'));
  EXPECT_EQ(ReadRegularFile(fPath, 39999, fBytes), EFBIG);
  EXPECT_EQ(fBytes, std::string(39999, 'x'));
  EXPECT_EQ(ReadRegularFile(fPath, 0, fBytes), EFBIG);
  EXPECT_EQ(fBytes, "");
}

TEST_F(RegularFile, IsNothingElse) {
  EXPECT_EQ(ReadRegularFile(fPath, 10, fBytes), ENOENT);
  EXPECT_EQ(fBytes, "");
  EXPECT_EQ(ReadRegularFile(fDirectory.Path(), 10, fBytes), EISDIR);
  EXPECT_EQ(ReadRegularFile("/dev/zero", 10, fBytes), EINVAL);
  ASSERT_EQ(::mkfifo(fPath.c_str(), 0600), 0);
  EXPECT_EQ(ReadRegularFile(fPath, 10, fBytes), EINVAL);
}

TEST(KernelCopy, IsATextWithoutItsNewline) {
  const hwxtest::TemporaryDirectory root;
  hwxtest::WriteMachineFile(root.Path(), "sys/class/dmi/id/sys_vendor", " Maker \n");
  const TKernelCopy copy = ReadKernelCopy(root.Path(), "sys_vendor");
  EXPECT_EQ(copy.fPath, root / "sys/class/dmi/id/sys_vendor");
  EXPECT_EQ(copy.fError, 0);
  EXPECT_EQ(copy.fText, " Maker ");
}

TEST(KernelCopy, TellsWhyThereIsNone) {
  const hwxtest::TemporaryDirectory root;
  const TKernelCopy copy = ReadKernelCopy(root.Path(), "sys_vendor");
  EXPECT_EQ(copy.fError, ENOENT);
  EXPECT_EQ(copy.fText, "");
}

TEST(OtherFirmware, IsNamedByTheEnvironmentEvenByNothing) {
  hwxtest::ScopedEnvironment tables("HWX_SMBIOS_TABLES", std::nullopt);
  EXPECT_FALSE(IsOtherFirmware());
  tables.Set("");
  EXPECT_TRUE(IsOtherFirmware());
}

}  // namespace
}  // namespace hwxsys
