// Which moments pass, and how date-times compare, in several time zones.

#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/TCIMDateTimeImpl.h"
#include "support/ScopedEnvironment.h"
#include "support/StatusOf.h"
#include "unit/hwxcore/value/DateTimeTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::ParsedDateTime;
using hwxtest::ScopedEnvironment;
using hwxtest::StatusOf;
using hwxtest::StatusOfParsing;

TEST(TCIMDateTimeIsValid, AnIntervalHasLimitsForAllButItsDays) {
  EXPECT_TRUE(TCIMDateTimeImpl::IsValid(0, 0, 0, 0, 0));
  EXPECT_TRUE(TCIMDateTimeImpl::IsValid(4294967295u, 23, 59, 59, 999999));
  EXPECT_FALSE(TCIMDateTimeImpl::IsValid(0, 24, 0, 0, 0));
  EXPECT_FALSE(TCIMDateTimeImpl::IsValid(0, 0, 60, 0, 0));
  EXPECT_FALSE(TCIMDateTimeImpl::IsValid(0, 0, 0, 60, 0));
  EXPECT_FALSE(TCIMDateTimeImpl::IsValid(0, 0, 0, 0, 1000000));
}

TEST(TCIMDateTimeIsValid, ATimestampHasNone) {
  const ScopedEnvironment zone("TZ", "UTC");
  EXPECT_TRUE(TCIMDateTimeImpl::IsValid(2007, 13, 40, 24, 60, 60, 4294967295u, 32767));
  EXPECT_TRUE(TCIMDateTimeImpl::IsValid(0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_TRUE(TCIMDateTimeImpl::IsValid(65535, 65535, 4294967295u, 65535, 65535, 65535, 0, -32768));
}

TEST(TCIMDateTimeIsValid, TheSecondBeforeTheEpochLooksLikeAnError) {
  const ScopedEnvironment zone("TZ", "UTC");
  EXPECT_EQ(StatusOfParsing("19691231235958.000000+000"), kHWXStatusOK);
  EXPECT_EQ(StatusOfParsing("19691231235959.000000+000"), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOfParsing("19691231235959.999999+000"), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOfParsing("19700102005959.000000+000"), kHWXStatusOK);
  // The same second by an offset.
  EXPECT_EQ(StatusOfParsing("19691231225959.000000-060"), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOfParsing("19691231235959.000000+060"), kHWXStatusOK);
}

TEST(TCIMDateTimeIsValid, TheSecondBeforeTheEpochIsTheLocalOne) {
  const ScopedEnvironment zone("TZ", "Europe/Berlin");
  EXPECT_EQ(StatusOfParsing("19691231235959.000000+000"), kHWXStatusOK);
  EXPECT_EQ(StatusOfParsing("19691231235959.000000-060"), kHWXStatusInvalidDateTime);
}

TEST(TCIMDateTimeIsValid, TheFirstDayPassesAtAnyTime) {
  const ScopedEnvironment zone("TZ", "UTC");
  EXPECT_EQ(StatusOfParsing("19700101000059.000000+001"), kHWXStatusOK);
  EXPECT_TRUE(TCIMDateTimeImpl::IsValid(1970, 1, 1, 65535, 65535, 65535, 1, -32768));
  // The same moment by another day of the calendar.
  EXPECT_EQ(StatusOfParsing("19691232000059.000000+001"), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOfParsing("19691301000059.000000+001"), kHWXStatusInvalidDateTime);
  EXPECT_FALSE(TCIMDateTimeImpl::IsValid(1970, 0, 1, 743, 59, 59, 0, 0));
}

TEST(TCIMDateTimeIsValid, AMomentThatStandardTimeLeavesOutFails) {
  ScopedEnvironment zone("TZ", "Pacific/Kiritimati");
  EXPECT_EQ(StatusOfParsing("19941231120000.000000+000"), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOfParsing("19941230120000.000000+000"), kHWXStatusOK);
  zone.Set("America/Caracas");
  EXPECT_EQ(StatusOfParsing("20160501024500.000000+000"), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOfParsing("19941231120000.000000+000"), kHWXStatusOK);
}

TEST(TCIMDateTimeComparison, NeedsTwoValuesOfOneKind) {
  const TCIMDateTime null;
  const TCIMDateTime timestamp = ParsedDateTime("20070102030405.000006+060");
  const TCIMDateTime interval = ParsedDateTime("00000001020304.000005:000");
  const TCIMDateTime* const unlike[][2] = {
      {&null, &null},     {&null, &timestamp},     {&timestamp, &null},    {&null, &interval},
      {&interval, &null}, {&timestamp, &interval}, {&interval, &timestamp}};
  for (const auto& [one, other] : unlike) {
    EXPECT_EQ(StatusOf([one = one, other = other] { (void)(*one < *other); }),
              kHWXStatusInvalidDateTime);
    EXPECT_EQ(StatusOf([one = one, other = other] { (void)(*one == *other); }),
              kHWXStatusInvalidDateTime);
  }
}

TEST(TCIMDateTimeComparison, TimestampsOfOneMomentAreEqual) {
  const TCIMDateTime one = ParsedDateTime("20070102030405.000000+000");
  const TCIMDateTime other = ParsedDateTime("20070102040405.000000+060");
  EXPECT_TRUE(one == other);
  EXPECT_FALSE(one < other);
  EXPECT_FALSE(other < one);
  EXPECT_TRUE(ParsedDateTime("20071332000000.000000+000") ==
              ParsedDateTime("20080201000000.000000+000"));
}

TEST(TCIMDateTimeComparison, TimestampsAreOrderedByMomentAndThenByMicroseconds) {
  const TCIMDateTime ordered[] = {ParsedDateTime("19690720201740.000000+000"),
                                  ParsedDateTime("20070102030405.000000+060"),
                                  ParsedDateTime("20070102030405.000001+060"),
                                  ParsedDateTime("20070102030406.000000+060"),
                                  ParsedDateTime("20070102030405.000000-060"),
                                  TCIMDateTime(2007, 2, 1, 0, 0, 0, 4000000000u, 0),
                                  TCIMDateTime(2007, 2, 1, 0, 0, 0, 4000000001u, 0),
                                  TCIMDateTime(2007, 2, 1, 0, 0, 1, 0, 0),
                                  ParsedDateTime("99991231235959.999999-999")};
  for (std::size_t i = 0; i != std::size(ordered); ++i) {
    for (std::size_t j = 0; j != std::size(ordered); ++j) {
      EXPECT_EQ(ordered[i] < ordered[j], i < j) << i << " " << j;
      EXPECT_EQ(ordered[i] == ordered[j], i == j) << i << " " << j;
    }
  }
}

TEST(TCIMDateTimeComparison, TheMomentBeforeTheEpochCountsAsTheEpochOnItsDay) {
  const ScopedEnvironment zone("TZ", "UTC");
  const TCIMDateTime before = ParsedDateTime("19700101000059.000000+001");
  EXPECT_TRUE(before == ParsedDateTime("19700101000000.000000+000"));
  EXPECT_TRUE(before < ParsedDateTime("19700101000001.000000+000"));
  EXPECT_TRUE(ParsedDateTime("19700101000058.000000+001") < before);
}

TEST(TCIMDateTimeComparison, FailsForAMomentThatTheZoneOfNowDoesNotHave) {
  ScopedEnvironment zone("TZ", "Europe/Berlin");
  const TCIMDateTime justBefore = ParsedDateTime("19691231235959.000000+000");
  const TCIMDateTime leftOut = ParsedDateTime("20160501024500.000000+000");
  const TCIMDateTime plain = ParsedDateTime("20070102030405.000006+060");
  zone.Set("UTC");
  EXPECT_EQ(StatusOf([&] { (void)(justBefore < plain); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { (void)(plain == justBefore); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { (void)(justBefore == justBefore); }), kHWXStatusInvalidDateTime);
  zone.Set("America/Caracas");
  EXPECT_EQ(StatusOf([&] { (void)(leftOut < plain); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { (void)(leftOut == leftOut); }), kHWXStatusInvalidDateTime);
  EXPECT_TRUE(justBefore < plain);
}

TEST(TCIMDateTimeComparison, IntervalsAreOrderedByLength) {
  const TCIMDateTime ordered[] = {TCIMDateTime(0, 0, 0, 0, 0),   TCIMDateTime(0, 0, 0, 0, 999999),
                                  TCIMDateTime(0, 0, 0, 1, 0),   TCIMDateTime(0, 0, 1, 0, 0),
                                  TCIMDateTime(0, 0, 59, 59, 0), TCIMDateTime(0, 1, 0, 0, 0),
                                  TCIMDateTime(0, 23, 0, 0, 0),  TCIMDateTime(1, 0, 0, 0, 0),
                                  TCIMDateTime(1, 0, 0, 0, 1),   TCIMDateTime(49710, 0, 0, 0, 0)};
  for (std::size_t i = 0; i != std::size(ordered); ++i) {
    for (std::size_t j = 0; j != std::size(ordered); ++j) {
      EXPECT_EQ(ordered[i] < ordered[j], i < j) << i << " " << j;
      EXPECT_EQ(ordered[i] == ordered[j], i == j) << i << " " << j;
    }
  }
}

TEST(TCIMDateTimeComparison, IntervalsWrapAt32BitsOfSeconds) {
  const TCIMDateTime wrapped(49711, 0, 0, 0, 0);
  EXPECT_TRUE(wrapped == TCIMDateTime(0, 17, 31, 44, 0));
  EXPECT_TRUE(wrapped < TCIMDateTime(1, 0, 0, 0, 0));
  EXPECT_EQ(wrapped.GetDay(), 49711u);
}

// What mktime alone makes of the timestamps.

struct TReference {
  int fStatus;
  bool fLess;
  bool fEqual;
};

std::time_t EpochByMktime(const TCIMDateTime& timestamp) {
  std::tm fields = {};
  fields.tm_year = timestamp.GetYear() - 1900;
  fields.tm_mon = timestamp.GetMonth() - 1;
  fields.tm_mday = static_cast<int>(timestamp.GetDay());
  fields.tm_hour = timestamp.GetHour();
  fields.tm_min = timestamp.GetMinute() - timestamp.GetUTCOffset();
  fields.tm_sec = timestamp.GetSecond();
  return std::mktime(&fields);
}

bool IsFirstDay(const TCIMDateTime& timestamp) {
  return timestamp.GetYear() == 1970 && timestamp.GetMonth() == 1 && timestamp.GetDay() == 1;
}

TReference Compared(const TCIMDateTime& one, const TCIMDateTime& other) {
  std::time_t epochs[2] = {EpochByMktime(one), EpochByMktime(other)};
  const TCIMDateTime* const timestamps[2] = {&one, &other};
  for (int i = 0; i != 2; ++i) {
    if (epochs[i] != -1) continue;
    if (!IsFirstDay(*timestamps[i])) return {kHWXStatusInvalidDateTime, false, false};
    epochs[i] = 0;
  }
  if (epochs[0] != epochs[1]) return {kHWXStatusOK, epochs[0] < epochs[1], false};
  return {kHWXStatusOK, one.GetMicroSeconds() < other.GetMicroSeconds(),
          one.GetMicroSeconds() == other.GetMicroSeconds()};
}

std::string PairText(const TCIMDateTime& one, const TCIMDateTime& other) {
  return one.ToString() + " and " + other.ToString();
}

void ExpectAsMktimeSays(const TCIMDateTime& one, const TCIMDateTime& other) {
  const TReference expected = Compared(one, other);
  bool less = false;
  bool equal = false;
  EXPECT_EQ(StatusOf([&] { less = one < other; }), expected.fStatus) << PairText(one, other);
  EXPECT_EQ(StatusOf([&] { equal = one == other; }), expected.fStatus) << PairText(one, other);
  EXPECT_EQ(less, expected.fLess) << PairText(one, other);
  EXPECT_EQ(equal, expected.fEqual) << PairText(one, other);
}

class TCIMDateTimeInZone : public testing::TestWithParam<std::optional<std::string>> {
 protected:
  TCIMDateTimeInZone() : fZone("TZ", "UTC") {}

  unsigned int Below(unsigned int limit) { return static_cast<unsigned int>(fEngine() % limit); }
  unsigned short Short(unsigned int limit) { return static_cast<unsigned short>(Below(limit)); }

  // In UTC, where a moment is valid that others leave out.
  TCIMDateTime AnyTimestamp() {
    const bool wild = Below(4) == 0;
    const unsigned int years = Below(3) == 0 ? 1 : Below(2) == 0 ? 60 : 8000;
    for (;;) {
      try {
        return TCIMDateTime(static_cast<unsigned short>(wild ? Below(65536) : 1970 + Below(years)),
                            Short(wild ? 65536 : 14), wild ? Below(4294967295u) : Below(40),
                            Short(wild ? 65536 : 24), Short(wild ? 65536 : 60),
                            Short(wild ? 65536 : 61), Below(3),
                            static_cast<short>(static_cast<int>(Below(4) * 60) - 120));
      } catch (const THWXException&) {
        // The second before the epoch: once more.
      }
    }
  }

  // The same moment by another offset, or one close by.
  TCIMDateTime Neighbour(const TCIMDateTime& timestamp) {
    const int shift = static_cast<int>(Below(3)) - 1;
    const int minute = timestamp.GetMinute() + shift;
    if (minute < 0 || timestamp.GetUTCOffset() + shift < -32768) return timestamp;
    return TCIMDateTime(timestamp.GetYear(), timestamp.GetMonth(), timestamp.GetDay(),
                        timestamp.GetHour(), static_cast<unsigned short>(minute),
                        timestamp.GetSecond(), Below(3),
                        static_cast<short>(timestamp.GetUTCOffset() + shift));
  }

  ScopedEnvironment fZone;

 private:
  std::mt19937_64 fEngine{20070102};
};

TEST_P(TCIMDateTimeInZone, ComparesAsMktimeSays) {
  std::vector<TCIMDateTime> timestamps;
  for (int i = 0; i != 2000; ++i) {
    timestamps.push_back(AnyTimestamp());
    timestamps.push_back(Neighbour(timestamps.back()));
  }
  fZone.Set(GetParam());
  for (std::size_t i = 1; i != timestamps.size(); ++i) {
    ExpectAsMktimeSays(timestamps[i - 1], timestamps[i]);
  }
}

TEST_P(TCIMDateTimeInZone, PassesWhatMktimePasses) {
  std::vector<TCIMDateTime> timestamps;
  for (int i = 0; i != 2000; ++i)
    timestamps.push_back(AnyTimestamp());
  fZone.Set(GetParam());
  for (const TCIMDateTime& timestamp : timestamps) {
    const bool valid = TCIMDateTimeImpl::IsValid(
        timestamp.GetYear(), timestamp.GetMonth(), timestamp.GetDay(), timestamp.GetHour(),
        timestamp.GetMinute(), timestamp.GetSecond(), 0, timestamp.GetUTCOffset());
    EXPECT_EQ(valid, IsFirstDay(timestamp) || EpochByMktime(timestamp) != -1)
        << timestamp.ToString();
  }
}

INSTANTIATE_TEST_SUITE_P(Zones, TCIMDateTimeInZone,
                         testing::Values(std::nullopt, "UTC", "Europe/Berlin", "America/St_Johns",
                                         "Pacific/Apia", "Pacific/Kiritimati", "Asia/Kolkata",
                                         "Asia/Manila", "XXX-24", "XXX24"));

}  // namespace
}  // namespace NQORHWX20
