#include "hwx/firmware/KernelCopy.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/ChildProcess.h"
#include "support/Machines.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

namespace hwx {
namespace {

class KernelCopyAnswer : public testing::Test {
 protected:
  void Add(const std::string& name, const std::string& text) const {
    hwxtest::WriteMachineFile(fRoot.Path(), "sys/class/dmi/id/" + name, text);
  }

  std::string PathOf(const std::string& name) const { return fRoot / "sys/class/dmi/id/" + name; }

  static std::string ReasonOf(const std::string& name) {
    const auto answer = KernelCopy(name);
    EXPECT_FALSE(answer.fValue) << *answer.fValue;
    return answer.fReason;
  }

  const hwxtest::TemporaryDirectory fRoot;
  const hwxtest::ScopedEnvironment fVariable{"HWX_SYSROOT", fRoot.Path()};
  hwxtest::ScopedEnvironment fTables{"HWX_SMBIOS_TABLES", std::nullopt};
};

TEST_F(KernelCopyAnswer, HoldsATextWithoutTheNewline) {
  Add("product_name", " Box 5 \n");
  EXPECT_EQ(KernelCopy("product_name").fValue, " Box 5 ");
}

TEST_F(KernelCopyAnswer, EndsAtANulByte) {
  Add("product_name", std::string("Box\0x\n", 6));
  EXPECT_EQ(KernelCopy("product_name").fValue, "Box");
}

TEST_F(KernelCopyAnswer, TellsAFileOfMoreThanAPage) {
  Add("product_name", std::string(4097, 'x'));
  EXPECT_EQ(ReasonOf("product_name"), PathOf("product_name") + ": File too large");
}

TEST_F(KernelCopyAnswer, TellsABlankFileAndAnAbsentOne) {
  Add("product_name", "  \n");
  Add("product_serial", "");
  EXPECT_EQ(ReasonOf("product_name"), PathOf("product_name") + " is blank");
  EXPECT_EQ(ReasonOf("product_serial"), PathOf("product_serial") + " is blank");
  EXPECT_EQ(ReasonOf("bios_version"), PathOf("bios_version") + " is absent");
}

TEST_F(KernelCopyAnswer, TellsADirectory) {
  std::filesystem::create_directories(PathOf("product_name"));
  EXPECT_EQ(ReasonOf("product_name"), PathOf("product_name") + ": Is a directory");
}

TEST_F(KernelCopyAnswer, TellsThatItNeedsRoot) {
  Add("product_serial", "SN1\n");
  std::filesystem::permissions(fRoot.Path(), std::filesystem::perms(0755));
  std::filesystem::permissions(PathOf("product_serial"), std::filesystem::perms(0));
  hwxtest::RunScene("rights can't be given up", [this] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(ReasonOf("product_serial"),
              "needs root: " + PathOf("product_serial") + " can't be read");
    return 0;
  });
}

TEST_F(KernelCopyAnswer, IsNotForTheTablesOfAnotherMachine) {
  Add("product_name", "Box 5\n");
  fTables.Set("/nowhere");
  EXPECT_EQ(ReasonOf("product_name"), "the tables are another machine's");
}

}  // namespace
}  // namespace hwx
