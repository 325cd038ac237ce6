#include "hwxcore/diagnostics/TLogger.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>

#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/schema/TRootObject.h"
#include "support/ChildProcess.h"
#include "support/FakeClock.h"
#include "support/LoggerFixture.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"

using hwxtest::FakeClock;
using hwxtest::ScopedEnvironment;
using hwxtest::ScopedLogCapture;
using hwxtest::StatusOf;
using NQORHWX20::ILogger;
using NQORHWX20::TLogger;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

// What the process has before any test touches it.
const std::string gFirstLogFileDir = TLogger::m_logFileDir;
const ILogger::EHWXLogSeverity gFirstThreshold = TLogger::fThreshold;

class TLoggerTest : public hwxtest::LoggerFixture {
 protected:
  // Severity and message of all entries.
  static std::vector<std::pair<int, std::string>> Entries() {
    std::vector<std::pair<int, std::string>> entries;
    for (const ILogger::TLogEntry& entry : TLogger::fLogEntries) {
      entries.emplace_back(entry.fSeverity, entry.fMessage);
    }
    return entries;
  }

  // What a fresh logger with a file writes of one message, without the banners.
  std::string FileTextOf(int severity, const std::string& message) {
    std::string text;
    OnFreshThread([&](TLogger& logger) {
      logger.Initialize("text");
      logger.OutputLogEntry(Severity(severity), message);
      text = Content("text.log").value_or("").substr(std::string(kOpened).size());
    });
    return text;
  }
};

TEST_F(TLoggerTest, StartsWithTheDefaults) {
  EXPECT_EQ(gFirstLogFileDir, "/var/log/Varnok_Support/HwxDebugLog/");
  EXPECT_EQ(gFirstThreshold, ILogger::kHWXLogStatus);
}

TEST_F(TLoggerTest, GivesOneLoggerPerThread) {
  TLogger* const mine = TLogger::GetInstance();
  ASSERT_NE(mine, nullptr);
  EXPECT_EQ(TLogger::GetInstance(), mine);
  OnFreshThread([mine](TLogger& logger) {
    EXPECT_NE(&logger, mine);
    EXPECT_EQ(&logger, TLogger::GetInstance());
  });
}

TEST_F(TLoggerTest, IsTheCoreLogger) {
  EXPECT_EQ(NQORHWX20::TRootObject::GetCoreLogger(), TLogger::GetInstance());
}

TEST_F(TLoggerTest, HasNoFileAtFirstAndFillsTheListAllTheSame) {
  OnFreshThread([](TLogger& logger) { logger.OutputLogEntry(ILogger::kHWXLogError, "failed"); });
  EXPECT_THAT(Entries(), ElementsAre(Pair(0, "failed")));
  EXPECT_TRUE(std::filesystem::is_empty(fScratch.Path()));
}

TEST_F(TLoggerTest, SharesTheThreshold) {
  TLogger::SetLogThreshold(ILogger::kHWXLogVerbose);
  EXPECT_EQ(TLogger::fThreshold, ILogger::kHWXLogVerbose);
  OnFreshThread(
      [](TLogger& logger) { EXPECT_EQ(logger.GetLogThreshold(), ILogger::kHWXLogVerbose); });
  TLogger::fThreshold = ILogger::kHWXLogError;
  EXPECT_EQ(TLogger::GetInstance()->GetLogThreshold(), ILogger::kHWXLogError);
}

TEST_F(TLoggerTest, SharesTheLogDirectory) {
  TLogger::SetLogFileDir("/elsewhere/");
  EXPECT_EQ(TLogger::GetLogFileDir(), "/elsewhere/");
  EXPECT_EQ(TLogger::m_logFileDir, "/elsewhere/");
}

TEST_F(TLoggerTest, ListsWhatIsOfStatusOrMoreSevere) {
  const ScopedLogCapture log;
  for (int severity = 0; severity <= 4; ++severity) {
    TLogger::GetInstance()->OutputLogEntry(Severity(severity), "message");
  }
  EXPECT_THAT(Entries(), ElementsAre(Pair(0, "message"), Pair(1, "message"), Pair(2, "message")));
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", "message"), Pair("Warning", "message"),
                                       Pair("Status", "message"), Pair("Debug", "message"),
                                       Pair("Verbose", "message")));
}

TEST_F(TLoggerTest, ListsTheMessageAsGivenAtTheLocalTime) {
  const ScopedEnvironment zone("TZ", "XXX-2");
  const FakeClock clock({FakeClock::At(2015, 7, 3, 9, 5, 12, 123456789)});
  TLogger::GetInstance()->OutputLogEntry(ILogger::kHWXLogListOnly, "two\nlines ");
  ASSERT_EQ(TLogger::fLogEntries.size(), 1U);
  EXPECT_EQ(TLogger::fLogEntries.front().fMessage, "two\nlines ");
  EXPECT_EQ(TLogger::fLogEntries.front().fTime.ToString(), "20150703110512.123000+120");
}

TEST_F(TLoggerTest, DropsDebugMessagesByDefault) {
  EXPECT_EQ(FileTextOf(3, "message"), "");
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(TLoggerTest, WritesDebugMessagesToTheFileAloneOnceTheThresholdIsRaised) {
  TLogger::SetLogThreshold(ILogger::kHWXLogDebug);
  EXPECT_THAT(FileTextOf(3, "message"), testing::EndsWith(" message\n"));
  EXPECT_EQ(FileTextOf(4, "message"), "");
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(TLoggerTest, DropsStatusMessagesFromBothSinksAtTheErrorThreshold) {
  TLogger::SetLogThreshold(ILogger::kHWXLogError);
  EXPECT_EQ(FileTextOf(2, "message"), "");
  EXPECT_EQ(FileTextOf(1, "message"), "");
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(TLoggerTest, ListsListOnlyMessagesOnceWhateverTheThreshold) {
  for (const int threshold : {-5, 0, 2, 99, 100, 101, 200}) {
    TLogger::SetLogThreshold(Severity(threshold));
    TLogger::GetInstance()->ClearLog();
    EXPECT_EQ(FileTextOf(100, "first"), "");
    EXPECT_EQ(FileTextOf(101, "second"), "");
    EXPECT_THAT(Entries(), ElementsAre(Pair(100, "first"), Pair(101, "second"))) << threshold;
  }
}

TEST_F(TLoggerTest, ListsANegativeSeverityAndThenFailsIfAFileIsOpen) {
  OnFreshThread([](TLogger& logger) {
    EXPECT_EQ(StatusOf([&] { logger.OutputLogEntry(Severity(-1), "without file"); }),
              NQORHWX20::kHWXStatusOK);
    logger.Initialize("log");
    EXPECT_EQ(StatusOf([&] { logger.OutputLogEntry(Severity(-1), "with file"); }),
              NQORHWX20::kHWXStatusFail);
  });
  EXPECT_THAT(Entries(), ElementsAre(Pair(-1, "without file"), Pair(-1, "with file")));
  EXPECT_EQ(Content("log.log"), std::string(kOpened) + kClosed);
}

TEST_F(TLoggerTest, DropsANegativeSeverityAboveTheThreshold) {
  TLogger::SetLogThreshold(Severity(-5));
  EXPECT_EQ(FileTextOf(-1, "message"), "");
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(TLoggerTest, DropsUnknownSeveritiesAboveTheThreshold) {
  for (const int severity : {5, 50, 99, 102})
    EXPECT_EQ(FileTextOf(severity, "message"), "");
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(TLoggerTest, FailsForUnknownSeveritiesBelowTheThresholdIfAFileIsOpen) {
  TLogger::SetLogThreshold(Severity(1000));
  OnFreshThread([](TLogger& logger) {
    for (const int severity : {5, 50, 99, 102}) {
      EXPECT_EQ(StatusOf([&] { logger.OutputLogEntry(Severity(severity), "without file"); }),
                NQORHWX20::kHWXStatusOK);
    }
    logger.Initialize("log");
    for (const int severity : {5, 50, 99, 102}) {
      EXPECT_EQ(StatusOf([&] { logger.OutputLogEntry(Severity(severity), "with file"); }),
                NQORHWX20::kHWXStatusFail);
    }
  });
  EXPECT_THAT(Entries(), IsEmpty());
  EXPECT_EQ(Content("log.log"), std::string(kOpened) + kClosed);
}

TEST_F(TLoggerTest, KeepsTheEntriesOfThreadsThatHaveEnded) {
  OnFreshThread([](TLogger& logger) { logger.OutputLogEntry(ILogger::kHWXLogError, "first"); });
  OnFreshThread([](TLogger& logger) { logger.OutputLogEntry(ILogger::kHWXLogError, "second"); });
  EXPECT_THAT(Entries(), ElementsAre(Pair(0, "first"), Pair(0, "second")));
}

TEST_F(TLoggerTest, HandsOutTheListItself) {
  EXPECT_EQ(&TLogger::GetInstance()->GetLog(), &TLogger::fLogEntries);
}

TEST_F(TLoggerTest, PushesACopyOfAnEntryBack) {
  ILogger::TLogEntry entry;
  entry.fSeverity = Severity(42);
  entry.fMessage = "by hand";
  TLogger::PushBackLog(entry);
  entry.fMessage = "changed";
  EXPECT_THAT(Entries(), ElementsAre(Pair(42, "by hand")));
}

TEST_F(TLoggerTest, ClearsTheList) {
  TLogger& logger = *TLogger::GetInstance();
  logger.OutputLogEntry(ILogger::kHWXLogError, "message");
  logger.ClearLog();
  EXPECT_THAT(Entries(), IsEmpty());
  logger.ClearLog();
  EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(TLoggerTest, LetsWhoHoldsTheMutexLogAndClear) {
  const boost::lock_guard<boost::recursive_mutex> lock(TLogger::fLogEntriesMutex);
  TLogger::GetInstance()->OutputLogEntry(ILogger::kHWXLogError, "message");
  EXPECT_THAT(Entries(), ElementsAre(Pair(0, "message")));
  TLogger::GetInstance()->ClearLog();
  EXPECT_THAT(Entries(), IsEmpty());
}

// Logs when the exit handlers run, after those that the process registered since it began.
struct LateCaller {
  std::function<void()> fBody;
  ~LateCaller() {
    if (fBody) fBody();
  }
};

LateCaller gLateCaller;

TEST_F(TLoggerTest, ClosesTheFileOfTheThreadThatRunsTheExitHandlers) {
  const int result = hwxtest::RunInChild([] {
    OnFreshThread([](TLogger& logger) {
      logger.Initialize("exit");
      std::exit(0);
    });
    return 1;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Content("exit.log"), std::string(kOpened) + kClosed);
}

TEST_F(TLoggerTest, ServesCallersThatComeAfterTheLoggersAreGone) {
  const int result = hwxtest::RunInChild([this] {
    OnFreshThread([this](TLogger& logger) {
      logger.Initialize("early");
      const std::string directory = fScratch / "";
      gLateCaller.fBody = [directory] {
        TLogger& late = *TLogger::GetInstance();
        late.SetLogFilename(directory + "late.log");
        late.OutputLogEntry(ILogger::kHWXLogError, "late message");
      };
      std::exit(0);
    });
    return 1;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Content("early.log"), std::string(kOpened) + kClosed);
  EXPECT_THAT(Content("late.log").value_or(""), testing::StartsWith(kOpened));
  EXPECT_THAT(Content("late.log").value_or(""), testing::EndsWith(" late message\n"));
}

}  // namespace
