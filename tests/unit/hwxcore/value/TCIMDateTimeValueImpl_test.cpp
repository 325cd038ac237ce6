#include "hwxcore/value/TCIMDateTimeValueImpl.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/TCIMValue.h"
#include "support/StatusOf.h"
#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FromText;
using hwxtest::OneOfEachType;
using hwxtest::StatusOf;
using hwxtest::TCIMType;

const std::string kTimestampText = "20070102030405.000006+060";
const std::string kIntervalText = "00000001020304.000005:000";

TCIMDateTime TimestampFromText() {
  return TCIMDateTime(kTimestampText);
}

TCIMDateTime IntervalFromText() {
  return TCIMDateTime(kIntervalText);
}

TCIMDateTime In(const TCIMValue& value) {
  return value;
}

TEST(TCIMDateTimeValueImpl, PrintsTheTextFormWhateverTheBase) {
  const TCIMDateTimeValueImpl body(TimestampFromText());
  for (const unsigned char base : std::vector<unsigned char>{0, 2, 8, 10, 16, 255}) {
    EXPECT_EQ(body.ToString(base), kTimestampText);
    EXPECT_EQ(TCIMValue(IntervalFromText()).ToString(base), kIntervalText);
  }
}

TEST(TCIMDateTimeValueImpl, HandsOutACopy) {
  const TCIMDateTimeValueImpl body(TimestampFromText());
  TCIMDateTime out = body;
  out.Set(1, 2, 3, 4, 5);
  EXPECT_EQ(body.ToString(10), kTimestampText);
}

TEST(TCIMDateTimeValueImpl, KeepsACopyOfWhatItIsGiven) {
  TCIMDateTime given = TimestampFromText();
  auto body = std::make_unique<TCIMDateTimeValueImpl>(given);
  given.Set(1, 2, 3, 4, 5);
  EXPECT_EQ(body->ToString(10), kTimestampText);
  const TCIMDateTimeValueImpl copy(*body);
  body.reset();
  EXPECT_EQ(copy.ToString(10), kTimestampText);
}

TEST(TCIMDateTimeValueImpl, IsNeitherEqualToNorLessThanAnotherType) {
  const TCIMDateTimeValueImpl body(TimestampFromText());
  for (const TCIMValue& other : OneOfEachType()) {
    if (other.GetType() == TCIMType::kCIMTypeDateTime) continue;
    EXPECT_FALSE(body == other) << other.GetType();
    EXPECT_FALSE(body < other) << other.GetType();
  }
}

TEST(TCIMDateTimeValueImpl, ComparesAsDateTimesDo) {
  const TCIMDateTimeValueImpl body(TimestampFromText());
  const TCIMValue sameMoment(TCIMDateTime(std::string("20070102020405.000006+000")));
  const TCIMValue later(TCIMDateTime(std::string("20070102030405.000007+060")));
  EXPECT_TRUE(body == sameMoment);
  EXPECT_FALSE(body < sameMoment);
  EXPECT_FALSE(body == later);
  EXPECT_TRUE(body < later);
}

TEST(TCIMDateTimeValueImpl, LetsTheFailuresOfDateTimesPass) {
  const TCIMDateTimeValueImpl timestamp(TimestampFromText());
  const TCIMDateTimeValueImpl null{TCIMDateTime()};
  EXPECT_EQ(StatusOf([&] { (void)(timestamp == TCIMValue(IntervalFromText())); }),
            kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { (void)(timestamp < TCIMValue(IntervalFromText())); }),
            kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { (void)(null == TCIMValue(TimestampFromText())); }),
            kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { (void)(timestamp < TCIMValue(TCIMDateTime())); }),
            kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { null.ToString(10); }), kHWXStatusInvalidDateTime);
}

TEST(TCIMDateTimeValueImpl, RefusesEveryOtherConversion) {
  const TCIMDateTimeValueImpl body(TimestampFromText());
  EXPECT_EQ(StatusOf([&] { (void)body.operator bool(); }), kHWXStatusTypeMismatch);
  EXPECT_EQ(StatusOf([&] { (void)body.operator long(); }), kHWXStatusTypeMismatch);
  EXPECT_EQ(StatusOf([&] { (void)body.operator std::string(); }), kHWXStatusTypeMismatch);
}

TEST(TCIMValueOfADateTime, ComesFromADateTimeOrASet) {
  const TCIMValue made(TimestampFromText());
  EXPECT_EQ(made.GetType(), TCIMType::kCIMTypeDateTime);
  EXPECT_FALSE(made.IsNull());
  TCIMValue set(true);
  set.Set(IntervalFromText());
  EXPECT_EQ(set.GetType(), TCIMType::kCIMTypeDateTime);
  EXPECT_EQ(In(made).ToString(), kTimestampText);
  EXPECT_EQ(In(set).ToString(), kIntervalText);
}

TEST(TCIMValueOfADateTime, IsNotNullWithANullDateTimeInIt) {
  const TCIMValue value{TCIMDateTime()};
  EXPECT_FALSE(value.IsNull());
  EXPECT_TRUE(In(value).IsNull());
  EXPECT_EQ(StatusOf([&] { value.ToString(10); }), kHWXStatusInvalidDateTime);
}

TEST(TCIMValueOfADateTime, TakesAClearedDateTimeForANullOne) {
  TCIMDateTime cleared = TimestampFromText();
  cleared.Clear();
  EXPECT_TRUE(In(TCIMValue(cleared)).IsNull());
}

TEST(TCIMValueOfADateTime, IsAskedForADateTimeAloneAndNotWhenNull) {
  EXPECT_EQ(StatusOf([] { In(TCIMValue(TCIMType::kCIMTypeDateTime, 0)); }), kHWXStatusValueIsNULL);
  EXPECT_EQ(StatusOf([] { In(TCIMValue()); }), kHWXStatusValueIsNULL);
  EXPECT_EQ(StatusOf([] { In(TCIMValue(kTimestampText)); }), kHWXStatusTypeMismatch);
  const TCIMValue array(TCIMType::kCIMTypeDateTime, 0, {TCIMValue(TimestampFromText())});
  EXPECT_EQ(StatusOf([&] { In(array); }), kHWXStatusTypeMismatch);
}

TEST(TCIMValueOfADateTime, IsReadFromItsTextForm) {
  EXPECT_EQ(In(FromText(TCIMType::kCIMTypeDateTime, kTimestampText)).ToString(), kTimestampText);
  EXPECT_EQ(In(FromText(TCIMType::kCIMTypeDateTime, kIntervalText)).ToString(), kIntervalText);
  EXPECT_EQ(StatusOf([] { FromText(TCIMType::kCIMTypeDateTime, "yesterday"); }),
            kHWXStatusInvalidDateTime);
}

TEST(TCIMValueOfADateTime, CopiesShareNothing) {
  TCIMValue original(TimestampFromText());
  const TCIMValue copy(original);
  TCIMValue assigned;
  assigned = original;
  original.Set(IntervalFromText());
  EXPECT_EQ(In(copy).ToString(), kTimestampText);
  EXPECT_EQ(In(assigned).ToString(), kTimestampText);
}

TEST(TCIMValueOfADateTime, IsAssignedToItsKindAlone) {
  TCIMValue target(IntervalFromText());
  EXPECT_EQ(StatusOf([&] { target = TCIMValue(TimestampFromText()); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { target = TCIMValue(TCIMDateTime()); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(In(target).ToString(), kIntervalText);
  target = TCIMValue(TCIMDateTime(2, 0, 0, 0, 0));
  EXPECT_EQ(In(target).GetDay(), 2u);

  TCIMValue null{TCIMDateTime()};
  EXPECT_EQ(StatusOf([&] { null = TCIMValue(TimestampFromText()); }), kHWXStatusInvalidDateTime);
  EXPECT_TRUE(In(null).IsNull());
}

TEST(TCIMValueOfADateTime, KeepsItsOffsetWhenItIsAssignedTheSameMoment) {
  TCIMValue target(TimestampFromText());
  target = TCIMValue(TCIMDateTime(std::string("20070102020405.000006+000")));
  EXPECT_EQ(In(target).ToString(), kTimestampText);
}

TEST(TCIMValueOfADateTime, TakesTheTypeOfANullSource) {
  TCIMValue target(TimestampFromText());
  target = TCIMValue(TCIMType::kCIMTypeDateTime, 0);
  EXPECT_TRUE(target.IsNull());
  EXPECT_EQ(target.GetType(), TCIMType::kCIMTypeDateTime);
}

}  // namespace
}  // namespace NQORHWX20
