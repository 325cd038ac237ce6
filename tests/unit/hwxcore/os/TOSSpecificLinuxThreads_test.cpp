#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "hwxcore/os/TOSSpecific.h"
#include "support/FakeClock.h"
#include "support/ScopedEnvironment.h"

using hwxtest::FakeClock;
using hwxtest::ScopedEnvironment;
using NQORHWX20::TCIMDateTime;
using NQORHWX20::TOSSpecific;

namespace {

TEST(TOSSpecificGetLocalTimeThreaded, ReadingsDoNotMix) {
  const ScopedEnvironment zone("TZ", "UTC0");
  std::vector<std::thread> threads;
  for (int day = 1; day <= 4; ++day) {
    threads.emplace_back([day] {
      for (int second = 0; second < 60; ++second) {
        const FakeClock clock({FakeClock::At(2000 + day, day, day, day, day, second)});
        const TCIMDateTime now = TOSSpecific::GetLocalTime();
        EXPECT_EQ(now.GetYear(), 2000 + day);
        EXPECT_EQ(now.GetHour(), day);
        EXPECT_EQ(now.GetSecond(), second);
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
}

}  // namespace
