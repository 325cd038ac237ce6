// The remembered time zone against mktime itself.

#include "hwxcore/value/detail/LocalTime.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <random>
#include <string>

#include "support/ScopedEnvironment.h"

namespace NQORHWX20::detail {
namespace {

std::tm Fields(int year, int month, int day, int hour, int minute, int second) {
  std::tm fields = {};
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_mday = day;
  fields.tm_hour = hour;
  fields.tm_min = minute;
  fields.tm_sec = second;
  return fields;
}

std::time_t AskedOfMktime(std::tm fields) {
  return std::mktime(&fields);
}

std::string FieldsText(const std::tm& fields) {
  return std::to_string(fields.tm_year + 1900) + "-" + std::to_string(fields.tm_mon + 1) + "-" +
         std::to_string(fields.tm_mday) + " " + std::to_string(fields.tm_hour) + ":" +
         std::to_string(fields.tm_min) + ":" + std::to_string(fields.tm_sec);
}

// Where the clocks go back, mktime's answer hangs on what it was asked before: one of the answers
// around will do.
void ExpectSame(const std::tm& fields) {
  const std::time_t before = AskedOfMktime(fields);
  const std::time_t remembered = TLocalTime().Make(fields);
  const std::time_t after = AskedOfMktime(fields);
  EXPECT_TRUE(remembered == before || remembered == after)
      << FieldsText(fields) << ": " << remembered << " in place of " << before;
}

class TLocalTimeInZone : public testing::TestWithParam<std::optional<std::string>> {
 protected:
  TLocalTimeInZone() : fZone("TZ", GetParam()) { ::tzset(); }

  int Below(int limit) {
    return static_cast<int>(fEngine() % static_cast<std::mt19937_64::result_type>(limit));
  }

  // A time of day that is out of all ranges as often as not.
  std::tm AtAnyTime(std::tm day) {
    day.tm_hour = Below(2) == 0 ? Below(24) : Below(65536);
    day.tm_min = Below(2) == 0 ? Below(60) : Below(131072) - 32768;
    day.tm_sec = Below(2) == 0 ? Below(60) : Below(65536);
    return day;
  }

 private:
  hwxtest::ScopedEnvironment fZone;
  std::mt19937_64 fEngine{20070102};
};

TEST_P(TLocalTimeInZone, SaysWhatMktimeSaysInTheYearsOfTheTextForm) {
  for (int i = 0; i != 3000; ++i) {
    ExpectSame(AtAnyTime(Fields(Below(10000), Below(100), Below(100), 0, 0, 0)));
  }
}

TEST_P(TLocalTimeInZone, SaysWhatMktimeSaysInOurTimes) {
  for (int i = 0; i != 3000; ++i) {
    ExpectSame(AtAnyTime(Fields(1840 + Below(220), 1 + Below(12), 1 + Below(31), 0, 0, 0)));
  }
}

TEST_P(TLocalTimeInZone, SaysWhatMktimeSaysForAnyFields) {
  for (int i = 0; i != 1000; ++i) {
    const int day = static_cast<int>(static_cast<unsigned int>(Below(65536)) << 16) + Below(65536);
    ExpectSame(AtAnyTime(Fields(Below(65536), Below(65536), day, 0, 0, 0)));
  }
  for (const int day : {-2147483647 - 1, 2147483647, -1, 0}) {
    ExpectSame(Fields(0, 0, day, 0, -32768, 0));
    ExpectSame(Fields(65535, 65535, day, 65535, 98303, 65535));
  }
}

TEST_P(TLocalTimeInZone, SaysWhatMktimeSaysAroundTheEpoch) {
  for (int second = -2 * 86400; second < 2 * 86400; second += 211) {
    const int day = second < 0 ? -2 : 1;
    ExpectSame(Fields(1970, 1, day, 0, (second - (day - 1) * 86400) / 60, second & 63));
  }
  const std::time_t justBefore = -1;
  std::tm fields = {};
  ASSERT_NE(::localtime_r(&justBefore, &fields), nullptr);
  ASSERT_EQ(AskedOfMktime(fields), -1);
  EXPECT_EQ(TLocalTime().Make(fields), -1);
}

TEST_P(TLocalTimeInZone, SaysWhatMktimeSaysWhereClocksAreKnownToChange) {
  const std::tm days[] = {
      Fields(2016, 5, 1, 0, 0, 0),    // America/Caracas, standard time ahead by half an hour
      Fields(1994, 12, 31, 0, 0, 0),  // Pacific/Kiritimati, a day left out
      Fields(1844, 12, 31, 0, 0, 0),  // Asia/Manila, the same
      Fields(2011, 12, 30, 0, 0, 0),  // Pacific/Apia, the same in summer time
      Fields(2020, 3, 29, 0, 0, 0),   // Europe/Berlin, to summer time
      Fields(2020, 10, 25, 0, 0, 0),  // and back
      Fields(1945, 5, 24, 0, 0, 0),   // to double summer time
      Fields(1973, 12, 31, 0, 0, 0),  // a leap second
      Fields(2000, 10, 29, 0, 0, 0),  // America/Cambridge_Bay, where summer time became standard
      Fields(2020, 3, 8, 0, 0, 0),    // America/St_Johns, to summer time
  };
  for (const std::tm& day : days) {
    for (int minute = -3 * 1440; minute < 3 * 1440; minute += 17) {
      std::tm fields = day;
      fields.tm_min = minute;
      fields.tm_sec = Below(70);
      ExpectSame(fields);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Zones, TLocalTimeInZone,
    testing::Values(std::nullopt, "", "UTC", "Europe/Berlin", "Europe/Dublin", "America/St_Johns",
                    "America/Caracas", "America/Cambridge_Bay", "Pacific/Apia",
                    "Pacific/Kiritimati", "Asia/Kolkata", "Asia/Manila", "Antarctica/Casey",
                    "Antarctica/Troll", "Africa/Casablanca", "Australia/Lord_Howe",
                    "Africa/Monrovia", "right/Europe/Berlin", "right/EST5EDT", "XXX-24", "XXX24",
                    "XXX24:59:59YYY-24:59:59,J60,J300", "No/Such/Zone"),
    [](const auto& zone) {
      std::string name = zone.param ? "TZ_" + *zone.param : "unset";
      for (char& c : name)
        c = std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
      return name + "_" + std::to_string(zone.index);
    });

TEST(TLocalTime, NoticesAChangeOfTZAtOnce) {
  const std::tm gap = Fields(2016, 5, 1, 2, 45, 0);  // in Caracas
  const std::time_t inUtc = 1462070700;
  hwxtest::ScopedEnvironment zone("TZ", "UTC");
  for (int i = 0; i != 3; ++i) {
    zone.Set("UTC");
    EXPECT_EQ(TLocalTime().Make(gap), inUtc);
    zone.Set("America/Caracas");
    EXPECT_EQ(TLocalTime().Make(gap), -1);
    zone.Set("Europe/Berlin");
    EXPECT_EQ(TLocalTime().Make(gap), inUtc - 3600);
    zone.Set(std::nullopt);
    EXPECT_EQ(TLocalTime().Make(gap), AskedOfMktime(gap));
    zone.Set("");
    EXPECT_EQ(TLocalTime().Make(gap), inUtc);
    zone.Set("XXX-24");
    EXPECT_EQ(TLocalTime().Make(gap), inUtc - 86400);
  }
}

TEST(TLocalTime, LooksUpTheZoneBeforeItAddsSurplusSeconds) {
  // The clocks went back by an hour at the end of this day.
  const hwxtest::ScopedEnvironment zone("TZ", "Asia/Qatar");
  const std::tm fields = Fields(1972, 5, 31, 12, 0, 60000);
  ASSERT_EQ(AskedOfMktime(Fields(1972, 6, 1, 4, 40, 0)), AskedOfMktime(fields) + 3600);
  EXPECT_EQ(TLocalTime().Make(fields), AskedOfMktime(fields));
}

TEST(TLocalTime, HeedsAStandardTimeThatIsFoundFromSomeHoursOnly) {
  // Central summer time was followed by not quite a week of eastern standard time, which mktime
  // finds from most hours of the autumn, but not from this one.
  const hwxtest::ScopedEnvironment zone("TZ", "America/Cambridge_Bay");
  const std::tm before = Fields(2000, 10, 22, 1, 30, 0);
  const std::tm within = Fields(2000, 10, 22, 2, 30, 0);
  ASSERT_EQ(AskedOfMktime(within), AskedOfMktime(before) + 2 * 3600);
  EXPECT_EQ(TLocalTime().Make(before), AskedOfMktime(before));
  EXPECT_EQ(TLocalTime().Make(within), AskedOfMktime(within));
}

TEST(TLocalTime, ServesATZOfAnyLength) {
  const std::tm fields = Fields(2007, 1, 2, 3, 4, 5);
  hwxtest::ScopedEnvironment zone("TZ", std::nullopt);
  for (const int length : {5, 100, 125, 126, 127, 128, 129, 300, 5000}) {
    const std::string name(static_cast<std::size_t>(length - 2), 'A');
    zone.Set(name + "-1");
    EXPECT_EQ(TLocalTime().Make(fields), 1167707045 - 3600) << length;
    zone.Set(name + "-2");
    EXPECT_EQ(TLocalTime().Make(fields), 1167707045 - 7200) << length;
  }
}

}  // namespace
}  // namespace NQORHWX20::detail
