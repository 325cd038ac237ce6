#ifndef HWXTESTS_INTEGRATION_HWX_HWXTEST_H
#define HWXTESTS_INTEGRATION_HWX_HWXTEST_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "integration/hwx/HwxProcess.h"

namespace hwxtest {

/// Tests of what runs of hwx come to.
class HwxTest : public ::testing::Test {
 protected:
  /// A run that must go well and report nothing.
  HwxResult Succeed(const std::vector<std::string>& arguments) const {
    const HwxResult result = fHwx.Run(arguments);
    EXPECT_EQ(result.fStatus, 0);
    EXPECT_EQ(result.fErr, "");
    return result;
  }

  /// What a run reports that must fail and write nothing else.
  std::string FailureOf(const std::vector<std::string>& arguments) const {
    const HwxResult result = fHwx.Run(arguments);
    EXPECT_EQ(result.fStatus, 1);
    EXPECT_EQ(result.fOut, "");
    return result.fErr;
  }

  /// Expects the message behind the name of the program in the only line that a run writes.
  void ExpectFails(const std::vector<std::string>& arguments, const std::string& message) const {
    EXPECT_EQ(FailureOf(arguments), "hwx: " + message + "\n");
  }

  HwxProcess fHwx;
};

}  // namespace hwxtest

#endif  // HWXTESTS_INTEGRATION_HWX_HWXTEST_H
