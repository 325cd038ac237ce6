#include "providers/linux/TimeZone.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <time.h>

#include "providers/linux/TextFile.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"
#include "support/TimeZoneFile.h"

namespace hwxtest {

namespace {

using namespace linux_machine;

constexpr std::int64_t kJanuary2021 = 1609459200;
constexpr std::int64_t kJuly2021 = 1625097600;
constexpr std::int64_t kDayLength = 86400;

std::int32_t OffsetBy(const std::string& rules, std::int64_t moment) {
  return TTimeZone::FromBytes(TimeZoneFile(rules)).value().OffsetAt(moment);
}

TEST(ClockRules, TellSummerFromWinterOnBothHalvesOfTheEarth) {
  const std::string berlin = "CET-1CEST,M3.5.0,M10.5.0/3";
  EXPECT_EQ(OffsetBy(berlin, kJanuary2021), 3600);
  EXPECT_EQ(OffsetBy(berlin, kJuly2021), 7200);
  const std::string sydney = "AEST-10AEDT,M10.1.0,M4.1.0/3";
  EXPECT_EQ(OffsetBy(sydney, kJanuary2021), 11 * 3600);
  EXPECT_EQ(OffsetBy(sydney, kJuly2021), 10 * 3600);
  EXPECT_EQ(OffsetBy("<-03>3", kJuly2021), -3 * 3600);
  EXPECT_EQ(OffsetBy("IST-5:30", kJuly2021), 19800);
}

TEST(ClockRules, ChangeClocksToTheSecond) {
  const std::int64_t change = 1616893200;  // 2021-03-28, one o'clock UTC
  EXPECT_EQ(OffsetBy("CET-1CEST,M3.5.0,M10.5.0/3", change - 1), 3600);
  EXPECT_EQ(OffsetBy("CET-1CEST,M3.5.0,M10.5.0/3", change), 7200);
  const std::int64_t march = kJanuary2021 + 59 * kDayLength;  // the first of March
  EXPECT_EQ(OffsetBy("A0B,J60/0,J300", march - 1), 0);
  EXPECT_EQ(OffsetBy("A0B,J60/0,J300", march), 3600);
  EXPECT_EQ(OffsetBy("A0B,59/0,300", march), 3600);
}

TEST(ClockRules, AreNoneOfAnotherForm) {
  for (const char* text : {"", "CET", "-1", "CET-1CEST", "CET-1CEST,M3.5.0", "CET-168",
                           "CET-1CEST,M13.5.0,M10.5.0", "CET-1CEST,M3.5.0,M10.5.0x", "<CET-1",
                           "CET-1:60", "CET-1CEST,J0,J1", "CET-1CEST,M3.5,M10.5.0"}) {
    EXPECT_FALSE(ParseClockRules(text)) << text;
  }
}

TEST(TimeZone, IsNoneInOtherBytes) {
  const std::string file = TimeZoneFile("CET-1");
  for (std::size_t size = 0; size + 8 < file.size(); ++size) {
    EXPECT_FALSE(TTimeZone::FromBytes(file.substr(0, size))) << size;
  }
  EXPECT_FALSE(TTimeZone::FromBytes("TZif2" + std::string(39, '\xFF')));
  EXPECT_FALSE(TTimeZone::FromBytes("TZif" + std::string(40, '\0')));
  EXPECT_EQ(OffsetBy("nonsense", kJuly2021), 3600);
}

TEST(TimeZone, IsUTCOfAMachineWithoutOne) {
  EXPECT_EQ(ReadTimeZone(TemporaryDirectory().Path()).OffsetAt(kJuly2021), 0);
}

// Each zone that is installed here, beside what the C library makes of the same file.
TEST(TimeZone, AgreesWithTheCLibrary) {
  int count = 0;
  for (const char* name : {"Europe/Berlin", "America/New_York", "Australia/Sydney", "Asia/Kolkata",
                           "Asia/Tehran", "America/Sao_Paulo", "Africa/Casablanca"}) {
    const std::string path = std::string("/usr/share/zoneinfo/") + name;
    const auto bytes = ReadFile(path);
    if (!bytes) {
      continue;
    }
    ++count;
    const ScopedEnvironment zoneName("TZ", ":" + path);
    ::tzset();
    const TTimeZone zone = TTimeZone::FromBytes(*bytes).value();
    for (time_t moment = 0; moment < 4000000000; moment += 9 * kDayLength + 12345) {
      struct tm fields {};
      ASSERT_NE(::localtime_r(&moment, &fields), nullptr);
      ASSERT_EQ(zone.OffsetAt(moment), fields.tm_gmtoff) << name << " at " << moment;
    }
  }
  ::tzset();
  if (count == 0) {
    GTEST_SKIP() << "no time zones are installed";
  }
}

}  // namespace

}  // namespace hwxtest
