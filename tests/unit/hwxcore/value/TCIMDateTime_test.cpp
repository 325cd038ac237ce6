#include "hwxcore/value/TCIMDateTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "hwxcore/value/TCIMDateTimeImpl.h"
#include "support/ScopedEnvironment.h"
#include "support/StatusOf.h"
#include "unit/hwxcore/value/DateTimeTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::IntervalFields;
using hwxtest::StatusOf;
using hwxtest::TimestampFields;
using ::testing::ElementsAre;

const char* const kTimestamp = "20070102030405.000006+060";
const char* const kInterval = "00000001020304.000005:000";

TCIMDateTime TimestampFromFields() {
  return TCIMDateTime(2007, 1, 2, 3, 4, 5, 6, 60);
}

TCIMDateTime IntervalFromFields() {
  return TCIMDateTime(1, 2, 3, 4, 5);
}

TEST(TCIMDateTime, IsNullUnlessItIsGivenAValue) {
  const TCIMDateTime dateTime;
  EXPECT_TRUE(dateTime.IsNull());
  EXPECT_EQ(StatusOf([&] { dateTime.ToString(); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { dateTime.ToUIString(); }), kHWXStatusInvalidDateTime);
}

TEST(TCIMDateTime, ReadsTheFieldsOfANullOneWithoutAnyCheck) {
  const TCIMDateTime dateTime;
  EXPECT_FALSE(dateTime.IsInterval());
  EXPECT_THAT(TimestampFields(dateTime), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(TCIMDateTime, HoldsTheFieldsOfATimestamp) {
  const TCIMDateTime dateTime(2007, 1, 2, 3, 4, 5, 6, -60);
  EXPECT_FALSE(dateTime.IsNull());
  EXPECT_FALSE(dateTime.IsInterval());
  EXPECT_THAT(TimestampFields(dateTime), ElementsAre(2007, 1, 2, 3, 4, 5, 6, -60));
}

TEST(TCIMDateTime, HoldsTheFieldsOfAnInterval) {
  const TCIMDateTime dateTime = IntervalFromFields();
  EXPECT_FALSE(dateTime.IsNull());
  EXPECT_TRUE(dateTime.IsInterval());
  EXPECT_THAT(IntervalFields(dateTime), ElementsAre(1, 2, 3, 4, 5));
}

TEST(TCIMDateTime, AnIntervalLeavesTheFieldsThatItLacks) {
  TCIMDateTime dateTime = TimestampFromFields();
  dateTime.Set(1, 2, 3, 4, 5);
  EXPECT_TRUE(dateTime.IsInterval());
  EXPECT_EQ(dateTime.GetYear(), 2007);
  EXPECT_EQ(dateTime.GetMonth(), 1);
  EXPECT_EQ(dateTime.GetUTCOffset(), 60);
}

TEST(TCIMDateTime, ChangesItsKindWithEachSet) {
  TCIMDateTime dateTime;
  dateTime.Set(1, 2, 3, 4, 5);
  EXPECT_EQ(dateTime.ToString(), kInterval);
  dateTime.Set(2007, 1, 2, 3, 4, 5, 6, 60);
  EXPECT_EQ(dateTime.ToString(), kTimestamp);
  dateTime.Set(std::string(kInterval));
  EXPECT_EQ(dateTime.ToString(), kInterval);
  dateTime.Set(std::string(kTimestamp));
  EXPECT_EQ(dateTime.ToString(), kTimestamp);
}

TEST(TCIMDateTime, AFailedSetLeavesItAsItWas) {
  for (const TCIMDateTime& original : {TimestampFromFields(), IntervalFromFields()}) {
    TCIMDateTime dateTime = original;
    EXPECT_EQ(StatusOf([&] { dateTime.Set(9, 24, 0, 0, 0); }), kHWXStatusInvalidDateTime);
    EXPECT_EQ(StatusOf([&] { dateTime.Set(std::string("20080203040506.000007+061*")); }),
              kHWXStatusInvalidDateTime);
    EXPECT_EQ(StatusOf([&] { dateTime.Set(std::string("00000009240000.000000:000")); }),
              kHWXStatusInvalidDateTime);
    EXPECT_EQ(dateTime.ToString(), original.ToString());
  }
  TCIMDateTime null;
  EXPECT_EQ(StatusOf([&] { null.Set(9, 24, 0, 0, 0); }), kHWXStatusInvalidDateTime);
  EXPECT_TRUE(null.IsNull());
}

TEST(TCIMDateTime, AFailedSetOfATimestampLeavesItAsItWas) {
  const hwxtest::ScopedEnvironment zone("TZ", "UTC");
  for (const TCIMDateTime& original : {TimestampFromFields(), IntervalFromFields()}) {
    TCIMDateTime dateTime = original;
    EXPECT_EQ(StatusOf([&] { dateTime.Set(1969, 12, 31, 23, 59, 59, 7, 0); }),
              kHWXStatusInvalidDateTime);
    EXPECT_EQ(StatusOf([&] { dateTime.Set(std::string("19691231235959.000007+000")); }),
              kHWXStatusInvalidDateTime);
    EXPECT_EQ(dateTime.ToString(), original.ToString());
  }
  TCIMDateTime null;
  EXPECT_EQ(StatusOf([&] { null.Set(1969, 12, 31, 23, 59, 59, 7, 0); }), kHWXStatusInvalidDateTime);
  EXPECT_TRUE(null.IsNull());
}

TEST(TCIMDateTime, AConstructorFailsAsItsSetDoes) {
  const hwxtest::ScopedEnvironment zone("TZ", "UTC");
  EXPECT_EQ(StatusOf([] { TCIMDateTime(9, 24, 0, 0, 0); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([] { TCIMDateTime(1969, 12, 31, 23, 59, 59, 0, 0); }),
            kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([] { TCIMDateTime(std::string("today")); }), kHWXStatusInvalidDateTime);
}

TEST(TCIMDateTime, CopiesShareNothing) {
  TCIMDateTime original = TimestampFromFields();
  TCIMDateTime copy(original);
  TCIMDateTime assigned;
  assigned = original;
  original.Set(1, 2, 3, 4, 5);
  EXPECT_EQ(copy.ToString(), kTimestamp);
  EXPECT_EQ(assigned.ToString(), kTimestamp);
  copy.Set(9, 0, 0, 0, 0);
  EXPECT_EQ(original.ToString(), kInterval);
  EXPECT_EQ(assigned.ToString(), kTimestamp);
}

TEST(TCIMDateTime, CopiesOfANullOneAreNull) {
  const TCIMDateTime null;
  EXPECT_TRUE(TCIMDateTime(null).IsNull());
  TCIMDateTime assigned = TimestampFromFields();
  assigned = null;
  EXPECT_TRUE(assigned.IsNull());
}

TEST(TCIMDateTime, SurvivesItsAssignmentToItself) {
  TCIMDateTime dateTime = TimestampFromFields();
  const TCIMDateTime& itself = dateTime;
  dateTime = itself;
  EXPECT_EQ(dateTime.ToString(), kTimestamp);
}

TEST(TCIMDateTime, SharesItsBodyByGetBodyAlone) {
  TCIMDateTime dateTime = TimestampFromFields();
  const boost::shared_ptr<TCIMDateTimeImpl> body = dateTime.GetBody();
  EXPECT_EQ(body, dateTime.GetBody());
  EXPECT_NE(body, TCIMDateTime(dateTime).GetBody());
  dateTime.Set(1, 2, 3, 4, 5);
  EXPECT_EQ(body->ToString(), kInterval);
  body->Set(2007, 1, 2, 3, 4, 5, 6, 60);
  EXPECT_EQ(dateTime.ToString(), kTimestamp);
}

TEST(TCIMDateTime, AnAssignmentLeavesTheSharedBodyBehind) {
  TCIMDateTime dateTime = TimestampFromFields();
  const boost::shared_ptr<TCIMDateTimeImpl> body = dateTime.GetBody();
  dateTime = IntervalFromFields();
  EXPECT_NE(body, dateTime.GetBody());
  EXPECT_EQ(body->ToString(), kTimestamp);
}

TEST(TCIMDateTime, ClearGivesUpTheBodyAndMakesItNull) {
  TCIMDateTime dateTime = TimestampFromFields();
  const boost::shared_ptr<TCIMDateTimeImpl> body = dateTime.GetBody();
  dateTime.Clear();
  EXPECT_FALSE(dateTime.GetBody());
  EXPECT_TRUE(body->IsNull());
  EXPECT_EQ(body->GetYear(), 2007);
}

TEST(TCIMDateTime, ActsLikeANullOneWhenItIsCleared) {
  TCIMDateTime cleared = IntervalFromFields();
  cleared.Clear();
  cleared.Clear();
  EXPECT_TRUE(cleared.IsNull());
  EXPECT_FALSE(cleared.IsInterval());
  EXPECT_FALSE(cleared.GetPrecision());
  EXPECT_THAT(TimestampFields(cleared), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_EQ(StatusOf([&] { cleared.ToString(); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { cleared.ToUIString(); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { (void)(cleared == cleared); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { (void)(cleared < IntervalFromFields()); }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { IntervalFromFields() + cleared; }), kHWXStatusInvalidDateTime);
  EXPECT_EQ(StatusOf([&] { cleared - IntervalFromFields(); }), kHWXStatusInvalidDateTime);
}

TEST(TCIMDateTime, CanBeCopiedAndSetAgainWhenItIsCleared) {
  TCIMDateTime cleared = IntervalFromFields();
  cleared.Clear();
  EXPECT_TRUE(TCIMDateTime(cleared).IsNull());
  TCIMDateTime assigned = TimestampFromFields();
  assigned = cleared;
  EXPECT_TRUE(assigned.IsNull());

  EXPECT_EQ(StatusOf([&] { cleared.Set(9, 24, 0, 0, 0); }), kHWXStatusInvalidDateTime);
  EXPECT_FALSE(cleared.GetBody());
  cleared.Set(1, 2, 3, 4, 5);
  EXPECT_EQ(cleared.ToString(), kInterval);

  cleared.Clear();
  cleared.SetPrecision(true);
  EXPECT_TRUE(cleared.GetPrecision());
  EXPECT_TRUE(cleared.IsNull());

  cleared.Clear();
  cleared = TimestampFromFields();
  EXPECT_EQ(cleared.ToString(), kTimestamp);
}

TEST(TCIMDateTime, CarriesThePrecisionMarkForItsCallers) {
  TCIMDateTime marked = TimestampFromFields();
  marked.SetPrecision(true);
  EXPECT_TRUE(marked.GetPrecision());
  EXPECT_EQ(marked.ToString(), kTimestamp);
  EXPECT_TRUE(marked == TimestampFromFields());
  EXPECT_FALSE(marked < TimestampFromFields());
  marked.Set(std::string(kInterval));
  EXPECT_TRUE(marked.GetPrecision());
  marked.SetPrecision(false);
  EXPECT_FALSE(marked.GetPrecision());
}

TEST(TCIMDateTime, GetDifferenceIsNotImplementedWhateverItsArguments) {
  TCIMDateTime null;
  TCIMDateTime cleared;
  cleared.Clear();
  TCIMDateTime timestamp = TimestampFromFields();
  TCIMDateTime interval = IntervalFromFields();
  TCIMDateTime* const all[] = {&null, &cleared, &timestamp, &interval};
  for (const TCIMDateTime* object : all) {
    for (TCIMDateTime* first : all) {
      for (TCIMDateTime* second : all) {
        EXPECT_EQ(StatusOf([&] { object->GetDifference(*first, *second); }),
                  kHWXStatusNotImplemented);
      }
    }
  }
}

TEST(TCIMDateTime, IsMadeFromAStringImplicitly) {
  EXPECT_TRUE((std::is_convertible_v<const std::string&, TCIMDateTime>));
  const std::string text = kTimestamp;
  const TCIMDateTime dateTime = text;
  EXPECT_EQ(dateTime.ToString(), text);
}

TEST(TCIMDateTimeImpl, HasNoVirtualOperations) {
  EXPECT_FALSE(std::is_polymorphic_v<TCIMDateTimeImpl>);
}

TEST(TCIMDateTimeImpl, ClearMakesItNullAndChangesNothingElse) {
  TCIMDateTimeImpl body(1, 2, 3, 4, 5);
  body.Clear();
  EXPECT_TRUE(body.IsNull());
  EXPECT_TRUE(body.IsInterval());
  EXPECT_EQ(body.GetDay(), 1u);
  EXPECT_EQ(body.GetMicroSeconds(), 5u);
}

}  // namespace
}  // namespace NQORHWX20
