#include "hwxcore/schema/TRootObject.h"

#include <gtest/gtest.h>

#include <thread>

#include "hwxcore/diagnostics/TLogger.h"

using NQORHWX20::ILogger;
using NQORHWX20::TLogger;
using NQORHWX20::TRootObject;

namespace {

TEST(TRootObject, GivesTheCallingThreadsLogger) {
  ILogger* const own = TRootObject::GetCoreLogger();
  EXPECT_EQ(own, TLogger::GetInstance());
  EXPECT_EQ(own, TRootObject::GetCoreLogger());
  std::thread([own] {
    EXPECT_NE(TRootObject::GetCoreLogger(), own);
    EXPECT_EQ(TRootObject::GetCoreLogger(), TLogger::GetInstance());
  }).join();
}

}  // namespace
