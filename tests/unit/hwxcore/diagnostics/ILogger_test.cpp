#include "hwxcore/diagnostics/ILogger.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "support/VirtualSlots.h"

using NQORHWX20::ILogger;
using NQORHWX20::TCIMDateTime;

namespace {

TEST(ILoggerSeverity, HasItsNumbersInASigned32BitEnumeration) {
  EXPECT_EQ(ILogger::kHWXLogError, 0);
  EXPECT_EQ(ILogger::kHWXLogWarning, 1);
  EXPECT_EQ(ILogger::kHWXLogStatus, 2);
  EXPECT_EQ(ILogger::kHWXLogDebug, 3);
  EXPECT_EQ(ILogger::kHWXLogVerbose, 4);
  EXPECT_EQ(ILogger::kHWXLogListOnly, 100);
  EXPECT_EQ(ILogger::kHWXLogListOnly2, 101);
  EXPECT_TRUE((std::is_same_v<std::underlying_type_t<ILogger::EHWXLogSeverity>, int>));
}

TEST(ILoggerEntry, IsEmptyAtFirst) {
  const ILogger::TLogEntry entry;
  EXPECT_EQ(entry.fMessage, "");
  EXPECT_TRUE(entry.fTime.IsNull());
}

TEST(ILoggerEntry, KeepsSeverityMessageAndTime) {
  const TCIMDateTime time("20150703090512.123000+060");
  const ILogger::TLogEntry entry(ILogger::kHWXLogListOnly2, "the message", time);
  const ILogger::TLogEntry copy(entry);
  for (const ILogger::TLogEntry* each : {&entry, &copy}) {
    EXPECT_EQ(each->fSeverity, ILogger::kHWXLogListOnly2);
    EXPECT_EQ(each->fMessage, "the message");
    EXPECT_EQ(each->fTime.ToString(), "20150703090512.123000+060");
  }
}

TEST(ILoggerSlots, StandInTheOrderThatPluginsAreCompiledAgainst) {
  hwxtest::SlotTable().Has(&ILogger::OutputLogEntry, &ILogger::SysLogEntry, &ILogger::GetLog,
                           &ILogger::ClearLog, &ILogger::GetLogThreshold, &ILogger::SetLogFilename);
}

}  // namespace
