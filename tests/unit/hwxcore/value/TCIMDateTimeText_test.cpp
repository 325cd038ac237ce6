// The two text forms: reading and printing.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <locale>
#include <string>

#include "hwxcore/value/TCIMDateTime.h"
#include "support/StatusOf.h"
#include "unit/hwxcore/value/DateTimeTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::IntervalFields;
using hwxtest::ParsedDateTime;
using hwxtest::StatusOf;
using hwxtest::StatusOfParsing;
using hwxtest::TimestampFields;
using ::testing::ElementsAre;

TEST(TCIMDateTimeParsing, ReadsATimestamp) {
  const TCIMDateTime dateTime = ParsedDateTime("20070102030405.000006+060");
  EXPECT_FALSE(dateTime.IsInterval());
  EXPECT_THAT(TimestampFields(dateTime), ElementsAre(2007, 1, 2, 3, 4, 5, 6, 60));
  EXPECT_EQ(dateTime.ToString(), "20070102030405.000006+060");
}

TEST(TCIMDateTimeParsing, ReadsAnInterval) {
  const TCIMDateTime dateTime = ParsedDateTime("00000001020304.000005:000");
  EXPECT_TRUE(dateTime.IsInterval());
  EXPECT_THAT(IntervalFields(dateTime), ElementsAre(1, 2, 3, 4, 5));
  EXPECT_EQ(dateTime.ToString(), "00000001020304.000005:000");
}

TEST(TCIMDateTimeParsing, ReadsEachDigitAtItsPlace) {
  EXPECT_EQ(ParsedDateTime("98765432101112.131415-161").GetYear(), 9876);
  EXPECT_EQ(ParsedDateTime("98765432101112.131415-161").ToString(), "98765432101112.131415-161");
  EXPECT_EQ(ParsedDateTime("00012345213456.789012:000").ToString(), "00012345213456.789012:000");
}

TEST(TCIMDateTimeParsing, ReadsOffsetsToBothSides) {
  EXPECT_EQ(ParsedDateTime("20070102030405.000006-300").GetUTCOffset(), -300);
  EXPECT_EQ(ParsedDateTime("20070102030405.000006+999").GetUTCOffset(), 999);
  EXPECT_EQ(ParsedDateTime("20070102030405.000006-999").GetUTCOffset(), -999);
  EXPECT_EQ(ParsedDateTime("20070102030405.000006+000").GetUTCOffset(), 0);
  // A "-" before 0 isn't kept.
  EXPECT_EQ(ParsedDateTime("20070102030405.000006-000").ToString(), "20070102030405.000006+000");
}

TEST(TCIMDateTimeParsing, AcceptsFieldsOfATimestampThatNoCalendarHas) {
  const TCIMDateTime dateTime = ParsedDateTime("20071340306199.000006+060");
  EXPECT_EQ(dateTime.GetMonth(), 13);
  EXPECT_EQ(dateTime.GetDay(), 40u);
  EXPECT_EQ(dateTime.GetHour(), 30);
  EXPECT_EQ(dateTime.GetMinute(), 61);
  EXPECT_EQ(dateTime.GetSecond(), 99);
  EXPECT_EQ(dateTime.ToString(), "20071340306199.000006+060");
  EXPECT_EQ(ParsedDateTime("00000000000000.000000+000").GetMonth(), 0);
  EXPECT_EQ(ParsedDateTime("99999999999999.999999+999").GetYear(), 9999);
}

TEST(TCIMDateTimeParsing, KeepsTheLow16BitsOfAnIntervalsDays) {
  EXPECT_EQ(ParsedDateTime("00065535000000.000000:000").GetDay(), 65535u);
  EXPECT_EQ(ParsedDateTime("00065536000000.000000:000").GetDay(), 0u);
  EXPECT_EQ(ParsedDateTime("00065537000000.000000:000").GetDay(), 1u);
  EXPECT_EQ(ParsedDateTime("00100000000000.000000:000").GetDay(), 34464u);
  EXPECT_EQ(ParsedDateTime("99999999000000.000000:000").GetDay(), 99999999u % 65536u);
}

TEST(TCIMDateTimeParsing, FailsUnlessTheTextHas25Characters) {
  for (const char* text : {"", "20070102030405.000006+06", "20070102030405.000006+0600",
                           "00000001020304.000005:00", "00000001020304.000005:0000"}) {
    EXPECT_EQ(StatusOfParsing(text), kHWXStatusInvalidDateTime) << text;
  }
}

TEST(TCIMDateTimeParsing, FailsForAnythingButADigitInADigitsPlace) {
  for (const std::string text : {"20070102030405.000006+060", "00000001020304.000005:000"}) {
    ASSERT_EQ(StatusOfParsing(text), kHWXStatusOK);
    for (std::size_t i = 0; i != text.size(); ++i) {
      if (i == 14 || i == 21) continue;
      for (const char c : {'*', '.', '+', '-', ':', ' ', '/', '\0', 'a', '\xB2', '\xFF'}) {
        std::string damaged = text;
        damaged[i] = c;
        EXPECT_EQ(StatusOfParsing(damaged), kHWXStatusInvalidDateTime) << damaged;
      }
    }
  }
}

TEST(TCIMDateTimeParsing, TakesNoWildcards) {
  EXPECT_EQ(StatusOfParsing("****0102030405.000006+060"), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOfParsing("20070102030405.******+060"), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOfParsing("2007010203**05.000006+060"), kHWXStatusInvalidDateTime);
}

TEST(TCIMDateTimeParsing, FailsWithoutAPointAtItsPlace) {
  for (const char c : {',', ':', ' ', '0', '9', '\0'}) {
    std::string text = "20070102030405.000006+060";
    text[14] = c;
    EXPECT_EQ(StatusOfParsing(text), kHWXStatusInvalidDateTime) << text;
  }
}

TEST(TCIMDateTimeParsing, FailsForAnyOtherSign) {
  for (const char c : {'*', ' ', '.', ';', '0', '9', '\0', '~'}) {
    std::string text = "20070102030405.000006+000";
    text[21] = c;
    EXPECT_EQ(StatusOfParsing(text), kHWXStatusInvalidDateTime) << text;
  }
}

TEST(TCIMDateTimeParsing, FailsForTwoWrongsThatHideEachOther) {
  // A digit where the sign belongs, and a sign where a digit belongs.
  EXPECT_EQ(StatusOfParsing("20070102030405.00000+6060"), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOfParsing("2007010203040.5000006+060"), kHWXStatusInvalidDateTime);
}

TEST(TCIMDateTimeParsing, FailsForAnIntervalThatDoesNotEndInZeros) {
  EXPECT_EQ(StatusOfParsing("00000001020304.000005:001"), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOfParsing("00000001020304.000005:100"), kHWXStatusInvalidDateTime);
}

TEST(TCIMDateTimeParsing, FailsForAnIntervalOutOfRangeWhereATimestampPasses) {
  for (const char* fields :
       {"20070102240000.000000", "20070102006000.000000", "20070102000060.000000"}) {
    EXPECT_EQ(StatusOfParsing(std::string(fields) + ":000"), kHWXStatusInvalidDateTime) << fields;
    EXPECT_EQ(StatusOfParsing(std::string(fields) + "+000"), kHWXStatusOK) << fields;
  }
  EXPECT_EQ(StatusOfParsing("00000000235959.999999:000"), kHWXStatusOK);
}

TEST(TCIMDateTimeToString, DoesNotCutWhatIsWiderThanItsField) {
  EXPECT_EQ(TCIMDateTime(20070, 123, 456, 789, 1011, 1213, 14151617, 18192).ToString(),
            "2007012345678910111213.14151617+18192");
  EXPECT_EQ(TCIMDateTime(4294967295u, 1, 2, 3, 4).ToString(), "4294967295010203.000004:000");
  EXPECT_EQ(TCIMDateTime(123456789, 1, 2, 3, 4).ToString(), "123456789010203.000004:000");
}

TEST(TCIMDateTimeToString, PrintsTheLowestOffset) {
  EXPECT_EQ(TCIMDateTime(2007, 1, 2, 3, 4, 5, 6, -32768).ToString(), "20070102030405.000006-32768");
  EXPECT_EQ(TCIMDateTime(2007, 1, 2, 3, 4, 5, 6, -1).ToString(), "20070102030405.000006-001");
}

// Groups digits by threes and says so.
class TGroupingPunctuation : public std::numpunct<char> {
 protected:
  char do_thousands_sep() const override { return '\''; }
  std::string do_grouping() const override { return "\3"; }
};

class TCIMDateTimeInALocale : public testing::Test {
 protected:
  TCIMDateTimeInALocale()
      : fBefore(std::locale::global(std::locale(std::locale(), new TGroupingPunctuation))) {}
  ~TCIMDateTimeInALocale() override { std::locale::global(fBefore); }

 private:
  std::locale fBefore;
};

TEST_F(TCIMDateTimeInALocale, PrintsAsStreamsThenDo) {
  EXPECT_EQ(TCIMDateTime(2007, 1, 2, 3, 4, 5, 123456, 60).ToString(),
            "2'0070102030405.123'456+060");
  EXPECT_EQ(TCIMDateTime(1234, 2, 3, 4, 5).ToString(), "0001'234020304.000005:000");
  EXPECT_EQ(TCIMDateTime(1234, 0, 0, 0, 0).ToUIString(), "1'234 days ");
}

TEST_F(TCIMDateTimeInALocale, ReadsAsEver) {
  EXPECT_EQ(ParsedDateTime("00012345213456.789012:000").GetDay(), 12345u);
}

TEST(TCIMDateTimeToUIString, NamesEachQuantityOfAnInterval) {
  EXPECT_EQ(ParsedDateTime("00000001020304.000005:000").ToUIString(),
            "1 day 2 hours 3 minutes 4 seconds 5 microseconds ");
  EXPECT_EQ(TCIMDateTime(2, 1, 1, 1, 1001).ToUIString(),
            "2 days 1 hour 1 minute 1 second 1 millisecond 1 microsecond ");
  EXPECT_EQ(TCIMDateTime(4294967295u, 23, 59, 59, 999999).ToUIString(),
            "4294967295 days 23 hours 59 minutes 59 seconds 999 milliseconds 999 microseconds ");
}

TEST(TCIMDateTimeToUIString, LeavesOutZerosAndHasAWordForOne) {
  const struct {
    TCIMDateTime fInterval;
    const char* fText;
  } cases[] = {
      {TCIMDateTime(0, 0, 0, 0, 0), ""},
      {TCIMDateTime(1, 0, 0, 0, 0), "1 day "},
      {TCIMDateTime(2, 0, 0, 0, 0), "2 days "},
      {TCIMDateTime(0, 1, 0, 0, 0), "1 hour "},
      {TCIMDateTime(0, 2, 0, 0, 0), "2 hours "},
      {TCIMDateTime(0, 0, 1, 0, 0), "1 minute "},
      {TCIMDateTime(0, 0, 2, 0, 0), "2 minutes "},
      {TCIMDateTime(0, 0, 0, 1, 0), "1 second "},
      {TCIMDateTime(0, 0, 0, 2, 0), "2 seconds "},
      {TCIMDateTime(0, 0, 0, 0, 1000), "1 millisecond "},
      {TCIMDateTime(0, 0, 0, 0, 2000), "2 milliseconds "},
      {TCIMDateTime(0, 0, 0, 0, 1), "1 microsecond "},
      {TCIMDateTime(0, 0, 0, 0, 2), "2 microseconds "},
  };
  for (const auto& entry : cases)
    EXPECT_EQ(entry.fInterval.ToUIString(), entry.fText);
}

TEST(TCIMDateTimeToUIString, WritesATimestampsDateAndTime) {
  EXPECT_EQ(ParsedDateTime("20070102030405.000006+060").ToUIString(), "01/02/2007 03:04:05");
  EXPECT_EQ(TCIMDateTime(7, 111, 222, 333, 444, 555, 0, 0).ToUIString(),
            "111/222/0007 333:444:555");
}

TEST(TCIMDateTimeToUIString, LeavesOutTheTimeAtMidnightAndKeepsTheBlank) {
  EXPECT_EQ(ParsedDateTime("20070102000000.999999+060").ToUIString(), "01/02/2007 ");
  EXPECT_EQ(ParsedDateTime("20070102010000.000000+060").ToUIString(), "01/02/2007 01:00:00");
  EXPECT_EQ(ParsedDateTime("20070102000100.000000+060").ToUIString(), "01/02/2007 00:01:00");
  EXPECT_EQ(ParsedDateTime("20070102000001.000000+060").ToUIString(), "01/02/2007 00:00:01");
}

}  // namespace
}  // namespace NQORHWX20
