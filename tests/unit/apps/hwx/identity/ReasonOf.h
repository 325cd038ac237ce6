#ifndef HWXTESTS_UNIT_APPS_HWX_REASONOF_H
#define HWXTESTS_UNIT_APPS_HWX_REASONOF_H

#include <gtest/gtest.h>

#include <string>

#include "hwx/text/Answer.h"

namespace hwxtest {

/// Why there is no value; fails the test if there is one.
inline std::string ReasonOf(const hwx::TAnswer<std::string>& answer) {
  EXPECT_FALSE(answer.fValue) << *answer.fValue;
  return answer.fReason;
}

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_APPS_HWX_REASONOF_H
