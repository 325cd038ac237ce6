#include <gmock/gmock.h>

#include "hwxcore/diagnostics/TLogger.h"
#include "support/FakeClock.h"
#include "support/FakeSystemLog.h"
#include "support/LoggerFixture.h"
#include "support/StatusOf.h"

using hwxtest::FakeClock;
using hwxtest::FakeSystemLog;
using hwxtest::kSceneNotAllowed;
using hwxtest::ScopedEnvironment;
using hwxtest::StatusOf;
using NQORHWX20::ILogger;
using NQORHWX20::TLogger;

namespace {

class TLoggerSysLogTest : public hwxtest::LoggerFixture {
 protected:
  // Runs `body` in a child that serves the system log itself, or skips the test.
  static void WithSystemLog(const std::function<void(const FakeSystemLog&)>& body) {
    hwxtest::RunScene("/dev/log can't be replaced", [&] {
      const FakeSystemLog log;
      if (!log.IsBound()) return kSceneNotAllowed;
      body(log);
      return 0;
    });
  }
};

TEST_F(TLoggerSysLogTest, WritesTheLineAtThePriorityOfTheSeverityWhateverTheThreshold) {
  WithSystemLog([](const FakeSystemLog& log) {
    const ScopedEnvironment zone("TZ", "UTC0");
    TLogger::SetLogThreshold(ILogger::kHWXLogError);
    const char* const ends[] = {
        "QXPK: FDR_[Error] 7/3/2015  9:5:12 x\n", "QXPK: FDR_[Warning] 7/3/2015  9:5:12 x\n",
        "QXPK: FDR_[Status] 7/3/2015  9:5:12 x\n", "QXPK: FDR_[Debug] 7/3/2015  9:5:12 x\n",
        "QXPK: FDR_[Verbose] 7/3/2015  9:5:12 x\n"};
    const char* const priorities[] = {"<43>", "<44>", "<45>", "<45>", "<45>"};
    for (int severity = 0; severity <= 4; ++severity) {
      const FakeClock clock({FakeClock::At(2015, 7, 3, 9, 5, 12)});
      TLogger::GetInstance()->SysLogEntry(Severity(severity), "x");
      const std::string text = log.Receive();
      EXPECT_THAT(text, testing::StartsWith(priorities[severity]));
      EXPECT_THAT(text, testing::EndsWith(ends[severity]));
    }
  });
}

TEST_F(TLoggerSysLogTest, TouchesNeitherTheListNorTheFile) {
  WithSystemLog([this](const FakeSystemLog& log) {
    TLogger& logger = *TLogger::GetInstance();
    logger.SetLogFilename(fScratch / "file.log");
    logger.SysLogEntry(ILogger::kHWXLogError, "message");
    EXPECT_THAT(log.Receive(), testing::EndsWith(" message\n"));
    EXPECT_TRUE(TLogger::fLogEntries.empty());
    EXPECT_EQ(Content("file.log"), kOpened);
  });
}

TEST_F(TLoggerSysLogTest, OutputLogEntryWritesNothingToTheSystemLog) {
  WithSystemLog([](const FakeSystemLog& log) {
    TLogger::GetInstance()->OutputLogEntry(ILogger::kHWXLogError, "message");
    EXPECT_TRUE(log.IsEmpty());
  });
}

TEST_F(TLoggerSysLogTest, FailsForSeveritiesOutsideItsRangeBeforeAnythingElse) {
  WithSystemLog([](const FakeSystemLog& log) {
    TLogger::SetLogThreshold(Severity(1000));
    for (const int severity : {-1, 5, 99, 100, 101}) {
      const FakeClock clock({FakeClock::At(2015, 7, 3, 9, 5, 12)});
      EXPECT_EQ(StatusOf([&] { TLogger::GetInstance()->SysLogEntry(Severity(severity), "x"); }),
                NQORHWX20::kHWXStatusFail);
      EXPECT_EQ(clock.Readings(), 0U);
    }
    EXPECT_TRUE(log.IsEmpty());
    EXPECT_TRUE(TLogger::fLogEntries.empty());
  });
}

}  // namespace
