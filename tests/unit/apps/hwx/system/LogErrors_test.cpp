#include "hwx/system/LogErrors.h"

#include <gtest/gtest.h>

#include "hwxcore/schema/TRootObject.h"
#include "support/ScopedLogCapture.h"

namespace hwx {
namespace {

using NQORHWX20::ILogger;
using NQORHWX20::TRootObject;

void Log(ILogger::EHWXLogSeverity severity, const std::string& message) {
  TRootObject::GetCoreLogger()->OutputLogEntry(severity, message);
}

TEST(LogErrors, AreEmptyWithoutAnError) {
  const hwxtest::ScopedLogCapture log;
  const TLogErrors errors;
  Log(ILogger::kHWXLogStatus, "all is well");
  Log(ILogger::kHWXLogWarning, "nearly");
  EXPECT_EQ(errors.Last(), "");
}

TEST(LogErrors, TellTheNewestError) {
  const hwxtest::ScopedLogCapture log;
  const TLogErrors errors;
  Log(ILogger::kHWXLogError, "first");
  Log(ILogger::kHWXLogError, "second");
  Log(ILogger::kHWXLogStatus, "no error");
  EXPECT_EQ(errors.Last(), "second");
}

TEST(LogErrors, LeaveOutWhatWasLoggedBefore) {
  const hwxtest::ScopedLogCapture log;
  Log(ILogger::kHWXLogError, "before");
  const TLogErrors errors;
  EXPECT_EQ(errors.Last(), "");
  Log(ILogger::kHWXLogError, "after");
  EXPECT_EQ(errors.Last(), "after");
}

TEST(LogErrors, SurviveThatTheLogIsCleared) {
  const hwxtest::ScopedLogCapture log;
  Log(ILogger::kHWXLogError, "before");
  const TLogErrors errors;
  TRootObject::GetCoreLogger()->ClearLog();
  EXPECT_EQ(errors.Last(), "");
}

}  // namespace
}  // namespace hwx
