#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

#include "hwxcore/value/TCIMValue.h"

namespace {

using NQORHWX20::TCIMValue;

TEST(BlockPoolThreads, TakesBlocksOfOtherThreads) {
  std::vector<TCIMValue> values;
  std::thread maker([&values] {
    for (unsigned i = 0; i < 2000; ++i)
      values.emplace_back(i);
  });
  maker.join();
  EXPECT_EQ(static_cast<unsigned>(values.back()), 1999u);
  values.clear();
  std::thread user([] {
    for (unsigned i = 0; i < 2000; ++i)
      EXPECT_EQ(static_cast<unsigned>(TCIMValue(i)), i);
  });
  user.join();
}

// Lives until the very end of its thread, behind everything that was made later.
struct TLateValue {
  std::unique_ptr<TCIMValue> fValue;
};
thread_local TLateValue tLate;

TEST(BlockPoolThreads, WorksToTheEndOfAThread) {
  std::thread thread([] {
    tLate.fValue = std::make_unique<TCIMValue>(1u);
    TCIMValue(2u);
  });
  thread.join();
}

}  // namespace
