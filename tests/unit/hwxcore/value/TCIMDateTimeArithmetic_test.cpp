// Sums and differences, in several time zones.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <random>
#include <string>

#include "hwxcore/value/TCIMDateTime.h"
#include "support/ScopedEnvironment.h"
#include "support/StatusOf.h"
#include "unit/hwxcore/value/DateTimeTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::ParsedDateTime;
using hwxtest::ScopedEnvironment;
using hwxtest::StatusOf;

std::string Sum(const std::string& one, const std::string& other) {
  return (ParsedDateTime(one) + ParsedDateTime(other)).ToString();
}

std::string Difference(const std::string& one, const std::string& other) {
  return (ParsedDateTime(one) - ParsedDateTime(other)).ToString();
}

const char* const kZero = "00000000000000.000000:000";

class TCIMDateTimeArithmetic : public testing::Test {
 protected:
  ScopedEnvironment fZone{"TZ", "UTC"};
};

TEST_F(TCIMDateTimeArithmetic, NeedsValues) {
  const TCIMDateTime null;
  for (const TCIMDateTime& other :
       {TCIMDateTime(), TCIMDateTime(1, 2, 3, 4, 5), TCIMDateTime(2007, 1, 2, 3, 4, 5, 6, 60)}) {
    EXPECT_EQ(StatusOf([&] { null + other; }), kHWXStatusInvalidDateTime);
    EXPECT_EQ(StatusOf([&] { other + null; }), kHWXStatusInvalidDateTime);
    EXPECT_EQ(StatusOf([&] { null - other; }), kHWXStatusInvalidDateTime);
    EXPECT_EQ(StatusOf([&] { other - null; }), kHWXStatusInvalidDateTime);
  }
}

TEST_F(TCIMDateTimeArithmetic, TwoTimestampsHaveNoSum) {
  const TCIMDateTime timestamp = ParsedDateTime("20070102030405.000006+060");
  EXPECT_EQ(StatusOf([&] { timestamp + timestamp; }), kHWXStatusInvalidDateTime);
}

TEST_F(TCIMDateTimeArithmetic, IntervalsAddUp) {
  EXPECT_EQ(Sum("00000000230000.000000:000", "00000000230000.000000:000"),
            "00000001220000.000000:000");
  EXPECT_EQ(Sum("00000000235959.999999:000", "00000000235959.999999:000"),
            "00000001235959.999998:000");
  EXPECT_EQ(Sum("00000001020304.000005:000", kZero), "00000001020304.000005:000");
  EXPECT_EQ(Sum(kZero, kZero), kZero);
}

TEST_F(TCIMDateTimeArithmetic, ASumOfIntervalsExceeds32BitsOfSeconds) {
  const TCIMDateTime longest(49710, 0, 0, 0, 0);
  EXPECT_EQ((longest + longest).ToString(), "00099420000000.000000:000");
}

TEST_F(TCIMDateTimeArithmetic, EachIntervalWrapsAt32BitsOfSeconds) {
  const TCIMDateTime wrapped(49711, 0, 0, 0, 0);
  EXPECT_EQ((wrapped + TCIMDateTime(0, 0, 0, 0, 0)).ToString(), "00000000173144.000000:000");
  EXPECT_EQ((wrapped - TCIMDateTime(0, 0, 0, 0, 0)).ToString(), "00000000173144.000000:000");
}

TEST_F(TCIMDateTimeArithmetic, ATimestampAndAnIntervalGiveATimestampInEitherOrder) {
  const std::string timestamp = "20070102030405.000006+060";
  const std::string interval = "00000001020304.000005:000";
  EXPECT_EQ(Sum(timestamp, interval), "20070103050709.000011+060");
  EXPECT_EQ(Sum(interval, timestamp), "20070103050709.000011+060");
  EXPECT_EQ(Sum("20071231235959.999999-300", "00000000000000.000001:000"),
            "20080101000000.000000-300");
  EXPECT_EQ(Difference(timestamp, interval), "20070101010101.000001+060");
}

TEST_F(TCIMDateTimeArithmetic, ATimestampOutOfRangeComesOutInRange) {
  EXPECT_EQ(Sum("20071340306199.000006+060", kZero), "20080210070239.000006+060");
  EXPECT_EQ((TCIMDateTime(2007, 1, 2, 3, 4, 5, 4000000006u, 60) + ParsedDateTime(kZero)).ToString(),
            "20070102041045.000006+060");
}

TEST_F(TCIMDateTimeArithmetic, AnIntervalLessATimestampIsTheTimestampLessTheInterval) {
  const TCIMDateTime difference =
      ParsedDateTime("00000001020304.000000:000") - ParsedDateTime("20070102030405.000000+060");
  EXPECT_FALSE(difference.IsInterval());
  EXPECT_EQ(difference.ToString(), "20070101010101.000000+060");
}

TEST_F(TCIMDateTimeArithmetic, TheMicrosecondsChangeSidesWithTheOrder) {
  const std::string timestamp = "20070102030405.000005+000";
  const std::string interval = "00000000000000.000003:000";
  EXPECT_EQ(Difference(timestamp, interval), "20070102030405.000002+000");
  EXPECT_EQ(Difference(interval, timestamp), "20070102030404.999998+000");
}

TEST_F(TCIMDateTimeArithmetic, TheDifferenceOfTwoOfAKindIsNeverNegative) {
  const std::string early = "20070102030405.000006+060";
  const std::string late = "20070103050709.000011+060";
  EXPECT_EQ(Difference(early, late), "00000001020304.000005:000");
  EXPECT_EQ(Difference(late, early), "00000001020304.000005:000");
  EXPECT_EQ(Difference("00000001000000.000000:000", "00000000000000.000001:000"),
            "00000000235959.999999:000");
  EXPECT_EQ(Difference("00000000000000.000001:000", "00000001000000.000000:000"),
            "00000000235959.999999:000");
  EXPECT_EQ(Difference(early, early), kZero);
}

TEST_F(TCIMDateTimeArithmetic, TheDifferenceOfTimestampsHeedsTheirOffsets) {
  EXPECT_EQ(Difference("20070102030405.000000+000", "20070102040405.000000+060"), kZero);
  EXPECT_EQ(Difference("20070102030405.000000+000", "20070102030405.000000-330"),
            "00000000053000.000000:000");
}

TEST_F(TCIMDateTimeArithmetic, FailsAtTheSecondBeforeTheEpochWithoutItsOffset) {
  const TCIMDateTime timestamp = ParsedDateTime("19691231235959.000000+060");
  EXPECT_EQ(StatusOf([&] { timestamp + ParsedDateTime(kZero); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { timestamp - ParsedDateTime(kZero); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { ParsedDateTime(kZero) - timestamp; }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { timestamp - timestamp; }), kHWXStatusInvalidDateTime);
  EXPECT_FALSE(timestamp < timestamp);
}

TEST_F(TCIMDateTimeArithmetic, TheMomentBeforeTheEpochCountsAsTheEpochOnItsDay) {
  fZone.Set("Europe/Berlin");
  EXPECT_EQ(Sum("19700101005959.000000+000", kZero), "19700101010000.000000+000");
  EXPECT_EQ(Difference("19700101005959.000000+000", "19700101010000.000000+000"), kZero);
}

TEST_F(TCIMDateTimeArithmetic, ASumBeforeTheEpochIsMirroredBehindIt) {
  EXPECT_EQ(Sum("19691231000000.000000+000", "00000000000001.000000:000"),
            "19700101235959.000000+000");
  // The microseconds before the epoch are negative, and kept in 32 bits without a sign.
  EXPECT_EQ(Sum("19691231000000.000003+000", "00000000000000.000004:000"),
            "19700101235959.4293967303+000");
}

TEST_F(TCIMDateTimeArithmetic, ADifferenceBeforeTheEpochIsMirroredWithItsMicroseconds) {
  EXPECT_EQ(Difference("19691231000000.000003+000", "00000000000000.000001:000"),
            "19700101235959.999998+000");
  EXPECT_EQ(Difference("19700101000000.000000+000", "00000001000000.000000:000"),
            "19700102000000.000000+000");
}

TEST_F(TCIMDateTimeArithmetic, FailsForAResultThatIsNoTimestamp) {
  const TCIMDateTime timestamp(1970, 1, 2, 0, 0, 58, 0, 1441);
  const TCIMDateTime second(0, 0, 0, 1, 0);
  EXPECT_EQ(StatusOf([&] { timestamp + second; }), kHWXStatusInvalidDateTime);
  EXPECT_EQ((timestamp + TCIMDateTime(0, 0, 0, 2, 0)).ToString(), "19700102000100.000000+1441");
}

TEST_F(TCIMDateTimeArithmetic, FailsBeyond64BitsOfMicroseconds) {
  const TCIMDateTime far(2007, 1, 2147483647, 0, 0, 0, 0, 0);
  const TCIMDateTime zero = ParsedDateTime(kZero);
  EXPECT_EQ(StatusOf([&] { far + zero; }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { zero + far; }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { far - zero; }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { zero - far; }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { far - ParsedDateTime("20070102030405.000006+060"); }),
            kHWXStatusInvalidDateTime);
  EXPECT_EQ((far - far).ToString(), kZero);
}

TEST_F(TCIMDateTimeArithmetic, AFarYearIsKeptInItsLow16Bits) {
  // 106 million days from the epoch.
  const TCIMDateTime sum = TCIMDateTime(1970, 1, 106000001, 0, 0, 0, 0, 0) + ParsedDateTime(kZero);
  const std::time_t moment = std::time_t{106000000} * 86400;
  std::tm fields = {};
  ASSERT_NE(::gmtime_r(&moment, &fields), nullptr);
  EXPECT_EQ(sum.GetYear(), (fields.tm_year + 1900) % 65536);
  EXPECT_EQ(sum.GetMonth(), fields.tm_mon + 1);
  EXPECT_EQ(sum.GetDay(), static_cast<unsigned int>(fields.tm_mday));
}

TEST_F(TCIMDateTimeArithmetic, TheFieldsStayInSummerTimeToo) {
  fZone.Set("Europe/Berlin");
  EXPECT_EQ(Sum("20070702030405.000000+120", kZero), "20070702030405.000000+120");
  EXPECT_EQ(Sum("20070102030405.000000+060", "00000181000000.000000:000"),
            "20070702030405.000000+060");
  EXPECT_EQ(Difference("20070702030405.000000+120", "00000181000000.000000:000"),
            "20070102030405.000000+120");
  EXPECT_EQ(Difference("20070702030405.000000+120", "20070102030405.000000+120"),
            "00000181000000.000000:000");
}

TEST_F(TCIMDateTimeArithmetic, SummerTimeIsTakenForAnHourWhateverItIs) {
  // The hour that the clocks leave out.
  fZone.Set("Europe/Berlin");
  EXPECT_EQ(Sum("20070325023000.000000+060", kZero), "20070325013000.000000+060");
  // Half an hour of summer time.
  fZone.Set("Australia/Lord_Howe");
  EXPECT_EQ(Sum("20070115120000.000000+630", kZero), "20070115113000.000000+630");
}

TEST_F(TCIMDateTimeArithmetic, NoticesAChangeOfTZAtOnce) {
  for (int i = 0; i != 3; ++i) {
    fZone.Set("Australia/Lord_Howe");
    EXPECT_EQ(Sum("20070115120000.000000+630", kZero), "20070115113000.000000+630");
    fZone.Set("UTC");
    EXPECT_EQ(Sum("20070115120000.000000+630", kZero), "20070115120000.000000+630");
  }
}

TEST_F(TCIMDateTimeArithmetic, DoesNotTrustTheZoneThatOthersLeftBehind) {
  const TCIMDateTime timestamp = ParsedDateTime("20070115120000.000000+630");
  for (int i = 0; i != 2; ++i) {
    fZone.Set("Australia/Lord_Howe");
    EXPECT_EQ((timestamp + ParsedDateTime(kZero)).ToString(), "20070115113000.000000+630");
    EXPECT_EQ((timestamp - ParsedDateTime(kZero)).ToString(), "20070115113000.000000+630");
    fZone.Set("UTC");
    ::tzset();
  }
}

class TCIMDateTimeArithmeticInZone : public testing::TestWithParam<std::optional<std::string>> {
 protected:
  TCIMDateTimeArithmeticInZone() : fZone("TZ", GetParam()) {}

  unsigned int Below(unsigned int limit) { return static_cast<unsigned int>(fEngine() % limit); }
  unsigned short Short(unsigned int limit) { return static_cast<unsigned short>(Below(limit)); }

  // Clear of the epoch, the rest of whose surroundings have their own tests.
  TCIMDateTime AnyTimestamp() {
    return TCIMDateTime(static_cast<unsigned short>(2007 + Below(50)), Short(14), Below(40),
                        Short(24), Short(60), Short(60), Below(1000000),
                        static_cast<short>(static_cast<int>(Below(120)) - 60));
  }

  TCIMDateTime AnyInterval() {
    return TCIMDateTime(Below(10000), Short(24), Short(60), Short(60), Below(1000000));
  }

 private:
  ScopedEnvironment fZone;
  std::mt19937_64 fEngine{20070102};
};

std::int64_t EpochOf(const TCIMDateTime& timestamp) {
  std::tm fields = {};
  fields.tm_year = timestamp.GetYear() - 1900;
  fields.tm_mon = timestamp.GetMonth() - 1;
  fields.tm_mday = static_cast<int>(timestamp.GetDay());
  fields.tm_hour = timestamp.GetHour();
  fields.tm_min = timestamp.GetMinute();
  fields.tm_sec = timestamp.GetSecond();
  return std::mktime(&fields);
}

std::int64_t MicroSecondsOf(const TCIMDateTime& interval) {
  return ((interval.GetDay() * INT64_C(24) + interval.GetHour()) * 3600 +
          interval.GetMinute() * INT64_C(60) + interval.GetSecond()) *
             1000000 +
         interval.GetMicroSeconds();
}

// The text of the local moment, with summer time taken off.
std::string LocalText(std::int64_t microSeconds, int offset) {
  std::time_t moment = microSeconds / 1000000;
  if (std::localtime(&moment)->tm_isdst != 0) moment -= 3600;
  char date[32];
  std::strftime(date, sizeof date, "%Y%m%d%H%M%S", std::localtime(&moment));
  char text[64];
  std::snprintf(text, sizeof text, "%s.%06d%c%03d", date, static_cast<int>(microSeconds % 1000000),
                offset < 0 ? '-' : '+', std::abs(offset));
  return text;
}

TEST_P(TCIMDateTimeArithmeticInZone, AddsInLocalTime) {
  for (int i = 0; i != 2000; ++i) {
    const TCIMDateTime timestamp = AnyTimestamp();
    const TCIMDateTime interval = AnyInterval();
    const std::string expected = LocalText(
        EpochOf(timestamp) * 1000000 + timestamp.GetMicroSeconds() + MicroSecondsOf(interval),
        timestamp.GetUTCOffset());
    EXPECT_EQ((timestamp + interval).ToString(), expected) << timestamp.ToString();
    EXPECT_EQ((interval + timestamp).ToString(), expected) << timestamp.ToString();
  }
}

TEST_P(TCIMDateTimeArithmeticInZone, SubtractsInLocalTime) {
  for (int i = 0; i != 2000; ++i) {
    const TCIMDateTime timestamp = AnyTimestamp();
    const TCIMDateTime interval = AnyInterval();
    const std::string expected = LocalText(
        EpochOf(timestamp) * 1000000 + timestamp.GetMicroSeconds() - MicroSecondsOf(interval),
        timestamp.GetUTCOffset());
    EXPECT_EQ((timestamp - interval).ToString(), expected) << timestamp.ToString();
  }
}

TEST_P(TCIMDateTimeArithmeticInZone, TakesTheDifferenceOfMoments) {
  for (int i = 0; i != 2000; ++i) {
    const TCIMDateTime one = AnyTimestamp();
    const TCIMDateTime other = AnyTimestamp();
    const std::int64_t expected = (EpochOf(one) - one.GetUTCOffset() * INT64_C(60) -
                                   EpochOf(other) + other.GetUTCOffset() * INT64_C(60)) *
                                      1000000 +
                                  one.GetMicroSeconds() - other.GetMicroSeconds();
    EXPECT_EQ(MicroSecondsOf(one - other), std::abs(expected)) << one.ToString();
    EXPECT_EQ(MicroSecondsOf(other - one), std::abs(expected)) << one.ToString();
  }
}

INSTANTIATE_TEST_SUITE_P(Zones, TCIMDateTimeArithmeticInZone,
                         testing::Values(std::nullopt, "UTC", "Europe/Berlin", "Europe/Dublin",
                                         "America/St_Johns", "Pacific/Apia", "Asia/Kolkata",
                                         "XXX-24", "XXX24"));

}  // namespace
}  // namespace NQORHWX20
