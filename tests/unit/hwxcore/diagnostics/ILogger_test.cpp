#include "hwxcore/diagnostics/ILogger.h"

#include <gtest/gtest.h>

#include <list>
#include <string>
#include <type_traits>

#include "hwxcore/diagnostics/TLogger.h"
#include "support/ExactMember.h"
#include "support/VirtualSlots.h"

using hwxtest::Has;
using NQORHWX20::ILogger;
using NQORHWX20::TCIMDateTime;
using NQORHWX20::THWXStatusCode;
using NQORHWX20::TLogger;

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

// The forms of the operations, held by the compiler.
using Severity = ILogger::EHWXLogSeverity;
static_assert(std::is_abstract_v<ILogger> && std::has_virtual_destructor_v<ILogger>);
static_assert(Has<void (ILogger::*)(Severity, const std::string&)>(&ILogger::OutputLogEntry));
static_assert(Has<void (ILogger::*)(Severity, const std::string&)>(&ILogger::SysLogEntry));
static_assert(Has<std::list<ILogger::TLogEntry>& (ILogger::*)()>(&ILogger::GetLog));
static_assert(Has<void (ILogger::*)()>(&ILogger::ClearLog));
static_assert(Has<Severity (ILogger::*)()>(&ILogger::GetLogThreshold));
static_assert(Has<void (ILogger::*)(std::string)>(&ILogger::SetLogFilename));

static_assert(std::is_base_of_v<ILogger, TLogger>);
static_assert(Has<TLogger* (*)()>(&TLogger::GetInstance));
static_assert(Has<THWXStatusCode (TLogger::*)(std::string)>(&TLogger::Initialize));
static_assert(Has<void (*)(Severity)>(&TLogger::SetLogThreshold));
static_assert(Has<std::string (*)()>(&TLogger::GetLogFileDir));
static_assert(Has<void (*)(std::string)>(&TLogger::SetLogFileDir));
static_assert(Has<void (*)(ILogger::TLogEntry&)>(&TLogger::PushBackLog));

TEST(ILoggerSlots, StandInTheOrderThatPluginsAreCompiledAgainst) {
  hwxtest::SlotTable().Has(&ILogger::OutputLogEntry, &ILogger::SysLogEntry, &ILogger::GetLog,
                           &ILogger::ClearLog, &ILogger::GetLogThreshold, &ILogger::SetLogFilename);
}

}  // namespace
