#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <locale>

#include "hwxcore/diagnostics/TLogger.h"
#include "support/ChildProcess.h"
#include "support/FakeClock.h"
#include "support/LoggerFixture.h"
#include "support/StatusOf.h"

using hwxtest::FakeClock;
using hwxtest::kSceneNotAllowed;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using hwxtest::ScopedEnvironment;
using hwxtest::StatusOf;
using NQORHWX20::ILogger;
using NQORHWX20::TLogger;
using testing::EndsWith;

namespace {

class TLoggerFileTest : public hwxtest::LoggerFixture {
 protected:
  // How many descriptors of this process are open on the file `name`.
  long DescriptorsOf(const std::string& name) const {
    long count = 0;
    for (const auto& descriptor : std::filesystem::directory_iterator("/proc/self/fd")) {
      std::error_code gone;
      if (std::filesystem::read_symlink(descriptor, gone) == fScratch / name) ++count;
    }
    return count;
  }

  // What a fresh logger with a file writes at debug level, in UTC, at the times given.
  std::string LineAt(const std::vector<timespec>& times) {
    const ScopedEnvironment zone("TZ", "UTC0");
    TLogger::SetLogThreshold(ILogger::kHWXLogVerbose);
    OnFreshThread([&](TLogger& logger) {
      logger.Initialize("line");
      const FakeClock clock(times);
      logger.OutputLogEntry(ILogger::kHWXLogDebug, "the message");
      EXPECT_EQ(clock.Readings(), 6U);
    });
    const std::size_t banner = std::string(kOpened).size();
    const std::string text = Content("line.log").value_or("");
    return text.substr(banner, text.size() - 2 * banner);
  }
};

TEST_F(TLoggerFileTest, HasBannersOf47Bytes) {
  EXPECT_EQ(std::string(kOpened).size(), 47U);
  EXPECT_EQ(std::string(kClosed).size(), 47U);
}

TEST_F(TLoggerFileTest, InitializeOpensTheFileInTheLogDirectory) {
  OnFreshThread([this](TLogger& logger) {
    EXPECT_EQ(logger.Initialize("collector"), NQORHWX20::kHWXStatusOK);
    EXPECT_EQ(Content("collector.log"), kOpened);
  });
}

TEST_F(TLoggerFileTest, InitializeMakesTheDirectoryWithItsParents) {
  TLogger::SetLogFileDir(fScratch / "a/b/");
  OnFreshThread([](TLogger& logger) { logger.Initialize("log"); });
  EXPECT_EQ(Content("a/b/log.log"), std::string(kOpened) + kClosed);
}

TEST_F(TLoggerFileTest, InitializeAppendsTheNameToTheDirectoryAsItIs) {
  TLogger::SetLogFileDir(fScratch / "prefix");  // no separator: the name goes right behind
  OnFreshThread([](TLogger& logger) { logger.Initialize("-log"); });
  EXPECT_TRUE(std::filesystem::is_directory(fScratch / "prefix"));
  EXPECT_EQ(Content("prefix-log.log"), std::string(kOpened) + kClosed);
}

TEST_F(TLoggerFileTest, InitializeTakesAnEmptyName) {
  OnFreshThread([](TLogger& logger) { logger.Initialize(""); });
  EXPECT_EQ(Content(".log"), std::string(kOpened) + kClosed);
}

TEST_F(TLoggerFileTest, ASecondInitializeKeepsTheFirstFile) {
  OnFreshThread([this](TLogger& logger) {
    logger.Initialize("first");
    TLogger::SetLogFileDir(fScratch / "elsewhere/");
    EXPECT_EQ(logger.Initialize("second"), NQORHWX20::kHWXStatusOK);
    logger.OutputLogEntry(ILogger::kHWXLogError, "message");
  });
  EXPECT_THAT(Content("first.log").value_or(""), EndsWith(std::string(" message\n") + kClosed));
  EXPECT_FALSE(std::filesystem::exists(fScratch / "elsewhere"));
  EXPECT_EQ(Content("second.log"), std::nullopt);
}

TEST_F(TLoggerFileTest, ANewDirectoryTakesEffectAtTheNextInitializeOfAnyThread) {
  OnFreshThread([this](TLogger& logger) {
    logger.Initialize("log");
    TLogger::SetLogFileDir(fScratch / "next/");
    OnFreshThread([](TLogger& other) { other.Initialize("log"); });
    logger.OutputLogEntry(ILogger::kHWXLogError, "message");
  });
  EXPECT_THAT(Content("log.log").value_or(""), EndsWith(std::string(" message\n") + kClosed));
  EXPECT_EQ(Content("next/log.log"), std::string(kOpened) + kClosed);
}

TEST_F(TLoggerFileTest, ANewRunEmptiesTheFile) {
  OnFreshThread([](TLogger& logger) {
    logger.Initialize("log");
    logger.OutputLogEntry(ILogger::kHWXLogError, "message");
  });
  OnFreshThread([](TLogger& logger) { logger.Initialize("log"); });
  EXPECT_EQ(Content("log.log"), std::string(kOpened) + kClosed);
}

TEST_F(TLoggerFileTest, ANewRunAppendsWhereTheEnvironmentSaysSo) {
  for (const char* const value : {"1", "0", ""}) {
    std::filesystem::remove(fScratch / "log.log");
    fAppends.Set(value);
    OnFreshThread([](TLogger& logger) { logger.Initialize("log"); });
    OnFreshThread([](TLogger& logger) { logger.Initialize("log"); });
    EXPECT_EQ(Content("log.log"), std::string(kOpened) + kClosed + kOpened + kClosed) << value;
  }
}

TEST_F(TLoggerFileTest, ALineHasNumbersOfNoFixedWidth) {
  EXPECT_EQ(LineAt({FakeClock::At(2015, 7, 3, 9, 5, 12)}),
            "FDR_[Debug] 7/3/2015  9:5:12 the message\n");
  EXPECT_EQ(LineAt({FakeClock::At(2015, 12, 31, 23, 59, 59)}),
            "FDR_[Debug] 12/31/2015  23:59:59 the message\n");
  EXPECT_EQ(LineAt({FakeClock::At(2016, 1, 1, 0, 0, 0)}),
            "FDR_[Debug] 1/1/2016  0:0:0 the message\n");
}

TEST_F(TLoggerFileTest, ALineTakesEachFieldFromAReadingOfItsOwnInOrder) {
  EXPECT_EQ(LineAt({FakeClock::At(2001, 1, 1, 1, 1, 1), FakeClock::At(2002, 2, 2, 2, 2, 2),
                    FakeClock::At(2003, 3, 3, 3, 3, 3), FakeClock::At(2004, 4, 4, 4, 4, 4),
                    FakeClock::At(2005, 5, 5, 5, 5, 5), FakeClock::At(2006, 6, 6, 6, 6, 6)}),
            "FDR_[Debug] 6/5/2004  3:2:1 the message\n");
}

TEST_F(TLoggerFileTest, ALineIsInLocalTime) {
  OnFreshThread([](TLogger& logger) {
    const ScopedEnvironment zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    const FakeClock clock({FakeClock::At(2015, 7, 3, 23, 5, 12)});
    logger.Initialize("log");
    logger.OutputLogEntry(ILogger::kHWXLogError, "message");
  });
  EXPECT_EQ(Content("log.log"),
            std::string(kOpened) + "FDR_[Error] 7/4/2015  1:5:12 message\n" + kClosed);
}

TEST_F(TLoggerFileTest, EverySeverityHasItsLabel) {
  const ScopedEnvironment zone("TZ", "UTC0");
  TLogger::SetLogThreshold(ILogger::kHWXLogVerbose);
  OnFreshThread([](TLogger& logger) {
    const FakeClock clock({FakeClock::At(2015, 7, 3, 9, 5, 12)});
    logger.Initialize("log");
    for (int severity = 0; severity <= 4; ++severity) {
      logger.OutputLogEntry(Severity(severity), "x");
    }
  });
  EXPECT_EQ(Content("log.log"), std::string(kOpened) +
                                    "FDR_[Error] 7/3/2015  9:5:12 x\n"
                                    "FDR_[Warning] 7/3/2015  9:5:12 x\n"
                                    "FDR_[Status] 7/3/2015  9:5:12 x\n"
                                    "FDR_[Debug] 7/3/2015  9:5:12 x\n"
                                    "FDR_[Verbose] 7/3/2015  9:5:12 x\n" +
                                    kClosed);
}

// Groups by thousands, as many locales do.
struct GroupingPunctuation : std::numpunct<char> {
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

TEST_F(TLoggerFileTest, ALineHasTheNumbersOfTheGlobalLocale) {
  const std::locale before =
      std::locale::global(std::locale(std::locale(), new GroupingPunctuation));
  EXPECT_EQ(LineAt({FakeClock::At(2015, 7, 3, 9, 5, 12)}),
            "FDR_[Debug] 7/3/2,015  9:5:12 the message\n");
  std::locale::global(before);
}

TEST_F(TLoggerFileTest, ALineIsFlushedAtOnceSoThatItSurvivesACrash) {
  const int result = RunInChild([] {
    TLogger::GetInstance()->SetLogFilename(TLogger::GetLogFileDir() + "crash.log");
    TLogger::GetInstance()->OutputLogEntry(ILogger::kHWXLogError, "the last words");
    ::raise(SIGKILL);
    return 0;
  });
  EXPECT_EQ(result, 128 + SIGKILL);
  EXPECT_THAT(Content("crash.log").value_or(""), EndsWith(" the last words\n"));
}

TEST_F(TLoggerFileTest, AMessageIsNeverShortened) {
  const std::string message(1 << 20, 'm');
  OnFreshThread([&](TLogger& logger) {
    logger.Initialize("log");
    logger.OutputLogEntry(ILogger::kHWXLogStatus, message);
  });
  EXPECT_TRUE(Content("log.log").value_or("").find(" " + message + "\n") != std::string::npos);
  EXPECT_EQ(TLogger::fLogEntries.back().fMessage, message);
}

TEST_F(TLoggerFileTest, AMessageEndsAtANulInTheFileAlone) {
  const std::string message("head\0tail", 9);
  OnFreshThread([&](TLogger& logger) {
    logger.Initialize("log");
    logger.OutputLogEntry(ILogger::kHWXLogStatus, message);
  });
  EXPECT_THAT(Content("log.log").value_or(""), EndsWith(std::string(" head") + kClosed));
  EXPECT_EQ(TLogger::fLogEntries.back().fMessage, message);
}

TEST_F(TLoggerFileTest, ErrorsOfWritingAreNotLookedAt) {
  if (::access("/dev/full", W_OK) != 0) GTEST_SKIP() << "SKIPPED: no /dev/full";
  OnFreshThread([](TLogger& logger) {
    EXPECT_EQ(StatusOf([&] {
                logger.SetLogFilename("/dev/full");
                logger.OutputLogEntry(ILogger::kHWXLogError, "message");
              }),
              NQORHWX20::kHWXStatusOK);
  });
  EXPECT_EQ(TLogger::fLogEntries.size(), 1U);
}

TEST_F(TLoggerFileTest, SetLogFilenameLeavesTheOldStreamOpenAndUnclosed) {
  OnFreshThread([this](TLogger& logger) {
    logger.SetLogFilename(fScratch / "old.log");
    logger.SetLogFilename(fScratch / "new.log");
    logger.OutputLogEntry(ILogger::kHWXLogError, "message");
  });
  EXPECT_EQ(Content("old.log"), kOpened);
  EXPECT_EQ(DescriptorsOf("old.log"), 1);
  EXPECT_THAT(Content("new.log").value_or(""), EndsWith(std::string(" message\n") + kClosed));
  EXPECT_EQ(DescriptorsOf("new.log"), 0);
}

TEST_F(TLoggerFileTest, SetLogFilenameDoesNotKeepInitializeFromReplacingItsStream) {
  OnFreshThread([this](TLogger& logger) {
    logger.SetLogFilename(fScratch / "direct.log");
    logger.Initialize("initialized");
    logger.OutputLogEntry(ILogger::kHWXLogError, "message");
  });
  EXPECT_EQ(Content("direct.log"), kOpened);
  EXPECT_THAT(Content("initialized.log").value_or(""), EndsWith(kClosed));
}

TEST_F(TLoggerFileTest, AFailedSetLogFilenameLeavesTheThreadWithoutAFile) {
  std::filesystem::create_directory(fScratch / "directory");
  OnFreshThread([this](TLogger& logger) {
    logger.Initialize("old");
    EXPECT_EQ(StatusOf([&] { logger.SetLogFilename(fScratch / "directory"); }),
              NQORHWX20::kHWXStatusFileSystemError);
    logger.OutputLogEntry(ILogger::kHWXLogError, "message");
  });
  EXPECT_EQ(Content("old.log"), kOpened);
  EXPECT_EQ(DescriptorsOf("old.log"), 1);
  EXPECT_EQ(TLogger::fLogEntries.size(), 1U);
}

TEST_F(TLoggerFileTest, SetLogFilenameFailsForAnEmptyPath) {
  OnFreshThread([](TLogger& logger) {
    EXPECT_EQ(StatusOf([&] { logger.SetLogFilename(""); }), NQORHWX20::kHWXStatusFileSystemError);
  });
}

TEST_F(TLoggerFileTest, InitializePassesOnThatAFileIsInTheWay) {
  std::ofstream(fScratch / "file") << "content";
  TLogger::SetLogFileDir(fScratch / "file/");
  OnFreshThread([](TLogger& logger) {
    EXPECT_EQ(StatusOf([&] { logger.Initialize("log"); }),
              NQORHWX20::kHWXStatusDirectoryAlreadyExists);
  });
  EXPECT_EQ(Content("file"), "content");
}

TEST_F(TLoggerFileTest, InitializePassesOnOtherFailuresOfTheDirectory) {
  TLogger::SetLogFileDir(fScratch / std::string(300, 'x') + "/");
  OnFreshThread([](TLogger& logger) {
    EXPECT_EQ(StatusOf([&] { logger.Initialize("log"); }), NQORHWX20::kHWXStatusFileSystemError);
  });
}

TEST_F(TLoggerFileTest, AFailedInitializeCanBeRepeatedOnceTheCauseIsGone) {
  std::filesystem::create_directory(fScratch / "log.log");
  OnFreshThread([this](TLogger& logger) {
    EXPECT_EQ(StatusOf([&] { logger.Initialize("log"); }), NQORHWX20::kHWXStatusFileSystemError);
    EXPECT_TRUE(TLogger::fLogEntries.empty());  // the exception is the only report
    logger.OutputLogEntry(ILogger::kHWXLogError, "between");
    std::filesystem::remove(fScratch / "log.log");
    EXPECT_EQ(logger.Initialize("log"), NQORHWX20::kHWXStatusOK);
    EXPECT_EQ(Content("log.log"), kOpened);
  });
  EXPECT_EQ(TLogger::fLogEntries.size(), 1U);
}

TEST_F(TLoggerFileTest, InitializeSucceedsOnceItsUnwritableDirectoryIsRepaired) {
  ::chmod(fScratch.Path().c_str(), 0777);
  const int result = RunInChild([this] {
    if (!hwxtest::BecomeUnprivileged()) return kSceneNotAllowed;
    const std::string directory = fScratch / "own/";
    ::mkdir(directory.c_str(), 0555);
    TLogger::SetLogFileDir(directory);
    TLogger& logger = *TLogger::GetInstance();
    EXPECT_EQ(StatusOf([&] { logger.Initialize("log"); }), NQORHWX20::kHWXStatusAccessDenied);
    logger.OutputLogEntry(ILogger::kHWXLogError, "between");
    EXPECT_EQ(TLogger::fLogEntries.size(), 1U);
    ::chmod(directory.c_str(), 0755);
    EXPECT_EQ(logger.Initialize("log"), NQORHWX20::kHWXStatusOK);
    return 0;
  });
  if (result == kSceneNotAllowed) GTEST_SKIP() << "SKIPPED: no right to change the user";
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Content("own/log.log"), kOpened);
}

TEST_F(TLoggerFileTest, AccessIsDeniedWhereTheUserMayNotWrite) {
  ::chmod(fScratch.Path().c_str(), 0555);
  RunScene("no right to change the user", [this] {
    if (!hwxtest::BecomeUnprivileged()) return kSceneNotAllowed;
    TLogger& logger = *TLogger::GetInstance();
    EXPECT_EQ(StatusOf([&] { logger.SetLogFilename(fScratch / "file.log"); }),
              NQORHWX20::kHWXStatusAccessDenied);
    TLogger::SetLogFileDir(fScratch / "new/");
    EXPECT_EQ(StatusOf([&] { logger.Initialize("log"); }), NQORHWX20::kHWXStatusAccessDenied);
    return 0;
  });
  ::chmod(fScratch.Path().c_str(), 0755);
}

TEST_F(TLoggerFileTest, AReadOnlyFileSystemDeniesTheDirectoryButFailsTheFile) {
  RunScene("no right to mount", [this] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(fScratch.Path()) ||
        !hwxtest::RemountReadOnly(fScratch.Path())) {
      return kSceneNotAllowed;
    }
    TLogger& logger = *TLogger::GetInstance();
    EXPECT_EQ(StatusOf([&] { logger.SetLogFilename(fScratch / "file.log"); }),
              NQORHWX20::kHWXStatusFileSystemError);
    TLogger::SetLogFileDir(fScratch / "new/");
    EXPECT_EQ(StatusOf([&] { logger.Initialize("log"); }), NQORHWX20::kHWXStatusAccessDenied);
    return 0;
  });
}

}  // namespace
