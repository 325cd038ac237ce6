#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "hwxcore/diagnostics/TLogger.h"
#include "hwxcore/os/TOSSpecific.h"
#include "support/ChildProcess.h"
#include "support/Descriptors.h"
#include "support/FakeClock.h"
#include "support/FakeSystemLog.h"
#include "support/FileMode.h"
#include "support/ScopedEnvironment.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::FakeClock;
using hwxtest::FakeSystemLog;
using hwxtest::ModeOf;
using hwxtest::OpenDescriptors;
using hwxtest::ScopedEnvironment;
using hwxtest::ScopedLogCapture;
using hwxtest::TemporaryDirectory;
using NQORHWX20::ILogger;
using NQORHWX20::TCIMDateTime;
using NQORHWX20::TLogger;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

int StatusOfCreateDir(const std::string& path) {
  return hwxtest::StatusOf([&] { TOSSpecific::CreateDir(path); });
}

TEST(TOSSpecificConstants, HaveTheirTexts) {
  EXPECT_EQ(TOSSpecific::kDynamicModuleExtension, ".so");
  EXPECT_EQ(TOSSpecific::kHWXPluginExtension, "pi");
  EXPECT_EQ(TOSSpecific::kPluginExtension, ".pi.so");
  EXPECT_EQ(TOSSpecific::kSpecificationExtension, ".properties.xml");
  EXPECT_EQ(TOSSpecific::kRegistrationExtension, ".registration.xml");
  EXPECT_EQ(TOSSpecific::kFileSeparator, "/");
  EXPECT_EQ(TOSSpecific::libx86IntrAddrFile, "/tmp/intr_address.tmp");
}

TEST(TOSSpecificDirExists, TellsDirectoriesFromOtherObjects) {
  const TemporaryDirectory scratch;
  std::ofstream(scratch / "file");
  EXPECT_TRUE(TOSSpecific::DirExists(scratch.Path()));
  EXPECT_TRUE(TOSSpecific::DirExists(scratch.Path() + "/"));
  EXPECT_FALSE(TOSSpecific::DirExists(scratch / "file"));
  EXPECT_FALSE(TOSSpecific::DirExists(scratch / "absent"));
  EXPECT_FALSE(TOSSpecific::DirExists("/dev/null"));
  EXPECT_FALSE(TOSSpecific::DirExists(""));
}

TEST(TOSSpecificDirExists, FollowsLinks) {
  const TemporaryDirectory scratch;
  std::filesystem::create_directory_symlink(scratch.Path(), scratch / "to-directory");
  std::filesystem::create_symlink(scratch / "absent", scratch / "broken");
  EXPECT_TRUE(TOSSpecific::DirExists(scratch / "to-directory"));
  EXPECT_FALSE(TOSSpecific::DirExists(scratch / "broken"));
}

TEST(TOSSpecificCreateDir, GivesAllRightsLessTheUmask) {
  const TemporaryDirectory scratch;
  const int result = hwxtest::RunInChild([&] {
    ::umask(0);
    TOSSpecific::CreateDir(scratch / "open");
    ::umask(027);
    TOSSpecific::CreateDir(scratch / "masked");
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(ModeOf(scratch / "open"), 0777U);
  EXPECT_EQ(ModeOf(scratch / "masked"), 0750U);
}

TEST(TOSSpecificCreateDir, ThrowsAlreadyExistsWhereSomethingIsInTheWay) {
  const TemporaryDirectory scratch;
  std::ofstream(scratch / "file");
  EXPECT_EQ(StatusOfCreateDir(scratch.Path()), NQORHWX20::kHWXStatusDirectoryAlreadyExists);
  EXPECT_EQ(StatusOfCreateDir(scratch / "file"), NQORHWX20::kHWXStatusDirectoryAlreadyExists);
}

TEST(TOSSpecificCreateDir, MakesOneLevelOnly) {
  const TemporaryDirectory scratch;
  EXPECT_EQ(StatusOfCreateDir(scratch / "a/b"), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_FALSE(TOSSpecific::DirExists(scratch / "a"));
}

TEST(TOSSpecificCreateDir, ThrowsFileSystemErrorForOtherFailures) {
  const TemporaryDirectory scratch;
  std::ofstream(scratch / "file");
  EXPECT_EQ(StatusOfCreateDir(scratch / "file/inner"), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(StatusOfCreateDir(scratch / std::string(300, 'x')),
            NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(StatusOfCreateDir(""), NQORHWX20::kHWXStatusFileSystemError);
}

TEST(TOSSpecificCreateDir, ThrowsAccessDeniedOnAReadOnlyFileSystem) {
  const TemporaryDirectory scratch;
  hwxtest::RunScene("no right to mount", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(scratch.Path()) ||
        !hwxtest::RemountReadOnly(scratch.Path())) {
      return hwxtest::kSceneNotAllowed;
    }
    EXPECT_EQ(StatusOfCreateDir(scratch / "new"), NQORHWX20::kHWXStatusAccessDenied);
    return 0;
  });
}

TEST(TOSSpecificCreateDir, ThrowsAccessDeniedWhereTheUserMayNotWrite) {
  const TemporaryDirectory scratch;
  ::chmod(scratch.Path().c_str(), 0555);
  hwxtest::RunScene("no right to change the user", [&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(StatusOfCreateDir(scratch / "new"), NQORHWX20::kHWXStatusAccessDenied);
    return 0;
  });
  ::chmod(scratch.Path().c_str(), 0755);
}

TEST(TOSSpecificGetLocalTime, GivesEveryFieldInWholeMilliseconds) {
  const ScopedEnvironment zone("TZ", "UTC0");
  const FakeClock clock({FakeClock::At(2015, 7, 3, 9, 5, 12, 123999999)});
  const TCIMDateTime now = TOSSpecific::GetLocalTime();
  EXPECT_EQ(now.ToString(), "20150703090512.123000+000");
  EXPECT_FALSE(now.IsNull());
  EXPECT_FALSE(now.IsInterval());
  EXPECT_EQ(clock.Readings(), 1U);
}

TEST(TOSSpecificGetLocalTime, IsTheTimeOfTheWallClock) {
  const ScopedEnvironment zone("TZ", "XXX-2");
  const std::time_t before = std::time(nullptr);
  const TCIMDateTime now = TOSSpecific::GetLocalTime();
  const std::time_t after = std::time(nullptr);
  const std::time_t told =
      FakeClock::At(now.GetYear(), now.GetMonth(), static_cast<int>(now.GetDay()), now.GetHour(),
                    now.GetMinute(), now.GetSecond())
          .tv_sec -
      2 * 60 * 60;
  EXPECT_LE(before - 1, told);  // `time` may lag behind by a tick
  EXPECT_LE(told, after + 1);
  EXPECT_EQ(now.GetUTCOffset(), 120);
}

TEST(TOSSpecificGetLocalTime, AddsAnHourToTheOffsetInSummer) {
  const ScopedEnvironment zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
  const FakeClock clock({FakeClock::At(2015, 1, 3, 9, 5, 12), FakeClock::At(2015, 7, 3, 9, 5, 12)});
  EXPECT_EQ(TOSSpecific::GetLocalTime().ToString(), "20150103100512.000000+060");
  EXPECT_EQ(TOSSpecific::GetLocalTime().ToString(), "20150703110512.000000+120");
}

TEST(TOSSpecificGetLocalTime, CountsOffsetsEastOfGreenwich) {
  const FakeClock clock({FakeClock::At(2015, 7, 3, 1, 5, 12)});
  ScopedEnvironment zone("TZ", "EST5EDT,M3.2.0,M11.1.0");
  EXPECT_EQ(TOSSpecific::GetLocalTime().ToString(), "20150702210512.000000-240");
  zone.Set("IST-5:30");
  EXPECT_EQ(TOSSpecific::GetLocalTime().ToString(), "20150703063512.000000+330");
}

TEST(TOSSpecificGetLocalTime, NoticesAChangeOfZoneWithinTheSecond) {
  const FakeClock clock({FakeClock::At(2015, 7, 3, 9, 5, 12)});
  ScopedEnvironment zone("TZ", "XXX-1");
  EXPECT_EQ(TOSSpecific::GetLocalTime().GetUTCOffset(), 60);
  zone.Set("XXX-2");
  EXPECT_EQ(TOSSpecific::GetLocalTime().GetUTCOffset(), 120);
  zone.Set("");  // empty means UTC
  EXPECT_EQ(TOSSpecific::GetLocalTime().GetUTCOffset(), 0);
  zone.Set("XXX-1");
  EXPECT_EQ(TOSSpecific::GetLocalTime().GetUTCOffset(), 60);
}

TEST(TOSSpecificGetLocalTime, TakesTheMachinesZoneWhereNoneIsSet) {
  const timespec moment = FakeClock::At(2015, 7, 3, 9, 5, 12);
  const FakeClock clock({moment});
  ScopedEnvironment zone("TZ", "XXX-13:30");
  EXPECT_EQ(TOSSpecific::GetLocalTime().GetUTCOffset(), 810);
  zone.Set(std::nullopt);
  const short offset = TOSSpecific::GetLocalTime().GetUTCOffset();
  ::tzset();
  std::tm fields{};
  ::localtime_r(&moment.tv_sec, &fields);
  EXPECT_EQ(offset, fields.tm_gmtoff / 60);
}

TEST(TOSSpecificGetLocalTime, NoticesAChangeBetweenLongZoneTexts) {
  const FakeClock clock({FakeClock::At(2015, 7, 3, 9, 5, 12)});
  const std::string name = "<" + std::string(100, 'Z') + ">";
  ScopedEnvironment zone("TZ", name + "-3");
  EXPECT_EQ(TOSSpecific::GetLocalTime().GetUTCOffset(), 180);
  EXPECT_EQ(TOSSpecific::GetLocalTime().GetUTCOffset(), 180);
  zone.Set(name + "-4");
  EXPECT_EQ(TOSSpecific::GetLocalTime().GetUTCOffset(), 240);
}

TEST(TOSSpecificGetLocalTime, LeavesTheSharedStorageOfLocaltimeAlone) {
  const ScopedEnvironment zone("TZ", "UTC0");
  const std::time_t moment = 1000000000;
  const std::tm* const shared = std::localtime(&moment);
  const int year = shared->tm_year;
  const FakeClock clock({FakeClock::At(2015, 7, 3, 9, 5, 12)});
  TOSSpecific::GetLocalTime();
  EXPECT_EQ(shared->tm_year, year);
}

TEST(TOSSpecificOutputLogString, DoesNothing) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  TOSSpecific::OutputLogString("text");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// What reaches the system log of one event.
std::string Receipt(const FakeSystemLog& log, int severity, const char* text) {
  TOSSpecific::LogSELEvent(text, static_cast<ILogger::EHWXLogSeverity>(severity), 1);
  return log.Receive();
}

TEST(TOSSpecificLogSELEvent, WritesToTheSystemLogAtThePriorityOfTheSeverity) {
  hwxtest::RunScene("/dev/log can't be replaced", [] {
    const FakeSystemLog log;
    if (!log.IsBound()) return hwxtest::kSceneNotAllowed;
    const std::string dateAndName = ">[A-Z][a-z][a-z] [ 1-3][0-9] ..:..:.. QXPK: ";
    const std::vector<std::pair<int, std::string>> priorities = {
        {0, "<43"}, {1, "<44"}, {2, "<45"}, {3, "<45"}, {4, "<45"}, {-1, "<45"}, {100, "<45"}};
    for (const auto& [severity, priority] : priorities) {
      EXPECT_THAT(Receipt(log, severity, "the text"),
                  testing::MatchesRegex(priority + dateAndName + "the text"));
    }
    EXPECT_TRUE(log.IsEmpty());
    return 0;
  });
}

TEST(TOSSpecificLogSELEvent, TakesTheTextLiterally) {
  hwxtest::RunScene("/dev/log can't be replaced", [] {
    const FakeSystemLog log;
    if (!log.IsBound()) return hwxtest::kSceneNotAllowed;
    EXPECT_THAT(Receipt(log, 0, "100%s %n %d"), testing::EndsWith("QXPK: 100%s %n %d"));
    return 0;
  });
}

TEST(TOSSpecificLogSELEvent, ClosesItsConnectionEachTime) {
  hwxtest::RunScene("/dev/log can't be replaced", [] {
    const FakeSystemLog log;
    if (!log.IsBound()) return hwxtest::kSceneNotAllowed;
    const std::size_t before = OpenDescriptors();
    Receipt(log, 2, "text");
    EXPECT_EQ(OpenDescriptors(), before);
    return 0;
  });
}

TEST(TOSSpecificPrimitives, WriteNothingToTheLogger) {
  const ScopedLogCapture log;
  const TemporaryDirectory scratch;
  TOSSpecific::DirExists(scratch / "absent");
  StatusOfCreateDir(scratch.Path());
  TOSSpecific::GetLocalTime();
  TOSSpecific::OutputLogString("text");
  EXPECT_THAT(log.Lines(), IsEmpty());
  EXPECT_THAT(TLogger::fLogEntries, IsEmpty());
}

TEST(TOSSpecificDebugOut, LogsAtDebugLevelBehindItsPrefix) {
  const ScopedLogCapture log;
  TOSSpecific::DebugOut("the text");
  TOSSpecific::DebugOut("");
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "TOSSpecific debug output: the text"),
                                       Pair("Debug", "TOSSpecific debug output: ")));
  EXPECT_THAT(TLogger::fLogEntries, IsEmpty());
}

}  // namespace
