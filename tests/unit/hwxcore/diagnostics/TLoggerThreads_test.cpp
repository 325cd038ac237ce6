#include <gmock/gmock.h>

#include <atomic>
#include <boost/thread/lock_guard.hpp>
#include <map>
#include <sstream>

#include "hwxcore/diagnostics/TLogger.h"
#include "support/LoggerFixture.h"

using NQORHWX20::ILogger;
using NQORHWX20::TLogger;

namespace {

constexpr int kThreads = 4;
constexpr int kMessages = 200;

class TLoggerThreadsTest : public hwxtest::LoggerFixture {
 protected:
  static void OnThreads(const std::function<void(TLogger&, int)>& body) {
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number) {
      threads.emplace_back([&body, number] { body(*TLogger::GetInstance(), number); });
    }
    for (std::thread& thread : threads)
      thread.join();
  }

  static std::string Message(int thread, int message) {
    return "thread " + std::to_string(thread) + " message " + std::to_string(message);
  }
};

TEST_F(TLoggerThreadsTest, ThreadedLoggersWriteEachToItsOwnFile) {
  OnThreads([](TLogger& logger, int thread) {
    logger.Initialize(std::to_string(thread));
    for (int message = 0; message < kMessages; ++message) {
      logger.OutputLogEntry(ILogger::kHWXLogStatus, Message(thread, message));
    }
  });
  for (int thread = 0; thread < kThreads; ++thread) {
    std::istringstream text(Content(std::to_string(thread) + ".log").value_or(""));
    std::string line;
    std::getline(text, line);
    EXPECT_EQ(line + "\n", kOpened);
    for (int message = 0; message < kMessages; ++message) {
      std::getline(text, line);
      EXPECT_THAT(line, testing::StartsWith("FDR_[Status] "));
      EXPECT_THAT(line, testing::EndsWith(" " + Message(thread, message)));
    }
    std::getline(text, line);
    EXPECT_EQ(line + "\n", kClosed);
    EXPECT_FALSE(std::getline(text, line));
  }
}

TEST_F(TLoggerThreadsTest, ThreadedLoggersShareOneListInWhichEachKeepsItsOrder) {
  OnThreads([](TLogger& logger, int thread) {
    for (int message = 0; message < kMessages; ++message) {
      const auto severity = message % 2 ? ILogger::kHWXLogError : ILogger::kHWXLogListOnly;
      logger.OutputLogEntry(severity, Message(thread, message));
    }
  });
  EXPECT_EQ(TLogger::fLogEntries.size(), std::size_t{kThreads} * kMessages);
  std::map<std::string, int> next;
  for (const ILogger::TLogEntry& entry : TLogger::fLogEntries) {
    const std::string thread = entry.fMessage.substr(0, std::string("thread 0").size());
    EXPECT_EQ(entry.fMessage, thread + " message " + std::to_string(next[thread]++));
  }
}

TEST_F(TLoggerThreadsTest, ThreadedReadersWalkTheListUnderItsMutex) {
  OnThreads([](TLogger& logger, int thread) {
    for (int message = 0; message < kMessages; ++message) {
      if (thread == 0) {
        const boost::lock_guard<boost::recursive_mutex> lock(TLogger::fLogEntriesMutex);
        for (const ILogger::TLogEntry& entry : logger.GetLog())
          EXPECT_EQ(entry.fMessage, "x");
      } else {
        logger.OutputLogEntry(ILogger::kHWXLogError, "x");
      }
      if (thread == 1 && message % 50 == 0) logger.ClearLog();
    }
  });
}

TEST_F(TLoggerThreadsTest, ThreadedLoggersSeeAChangeOfThreshold) {
  std::atomic<bool> isRaised{false};
  OnThreads([&](TLogger& logger, int thread) {
    if (thread == 0) {
      TLogger::SetLogThreshold(ILogger::kHWXLogError);
      isRaised = true;
      return;
    }
    while (!isRaised)
      logger.OutputLogEntry(ILogger::kHWXLogDebug, "dropped at either threshold");
    logger.OutputLogEntry(ILogger::kHWXLogStatus, "dropped at the new threshold");
    logger.OutputLogEntry(ILogger::kHWXLogError, "kept");
  });
  EXPECT_EQ(TLogger::fLogEntries.size(), std::size_t{kThreads} - 1);
}

TEST_F(TLoggerThreadsTest, ThreadedLoggersOfOneNameHaveStreamsOfTheirOwn) {
  OnThreads([](TLogger& logger, int) {
    logger.Initialize("shared");
    logger.OutputLogEntry(ILogger::kHWXLogError, "message");
  });
  EXPECT_THAT(Content("shared.log").value_or(""), testing::EndsWith(kClosed));
}

}  // namespace
