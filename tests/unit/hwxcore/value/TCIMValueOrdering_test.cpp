#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FailureOf;
using hwxtest::MakeClassToken;
using hwxtest::OneOfEachScalar;
using hwxtest::OneOfEachType;
using hwxtest::TCIMType;
using hwxtest::TElements;

TCIMValue NullOf(int tag, unsigned int maxArraySize = 0) {
  return TCIMValue(TCIMType(static_cast<TCIMType::ECIMType>(tag)), maxArraySize);
}

TCIMValue LimitedBytes(const std::vector<unsigned char>& numbers, unsigned int maxArraySize = 0) {
  return TCIMValue(TCIMType::kCIMTypeUInt8, maxArraySize,
                   TElements(numbers.begin(), numbers.end()));
}

enum ERelation { kLess, kEqual, kGreater };

void ExpectRelation(const TCIMValue& left, const TCIMValue& right, ERelation relation) {
  EXPECT_EQ(left < right, relation == kLess);
  EXPECT_EQ(left <= right, relation != kGreater);
  EXPECT_EQ(left > right, relation == kGreater);
  EXPECT_EQ(left >= right, relation != kLess);
  EXPECT_EQ(left == right, relation == kEqual);
  EXPECT_EQ(left != right, relation != kEqual);
}

void ExpectLess(const TCIMValue& less, const TCIMValue& greater) {
  ExpectRelation(less, greater, kLess);
  ExpectRelation(greater, less, kGreater);
}

// Unequal and neither less: what null values of different types are to each other.
void ExpectApart(const TCIMValue& left, const TCIMValue& right) {
  EXPECT_FALSE(left == right);
  EXPECT_TRUE(left != right);
  EXPECT_FALSE(left < right);
  EXPECT_FALSE(right < left);
  EXPECT_FALSE(left <= right);
  EXPECT_TRUE(left > right);  // neither equal nor less: greater, in both directions
  EXPECT_TRUE(right > left);
  EXPECT_TRUE(left >= right);
}

TEST(TCIMValueOrdering, DifferentTypesSortByTheirNumbersWhateverTheContent) {
  const std::vector<TCIMValue> values = OneOfEachType();
  for (std::size_t less = 0; less < values.size(); ++less)
    for (std::size_t greater = less + 1; greater < values.size(); ++greater)
      ExpectLess(values[less], values[greater]);
}

TEST(TCIMValueOrdering, OneNumberInTwoTypesIsNotEqual) {
  ExpectLess(TCIMValue(5), TCIMValue(5l));
  ExpectLess(TCIMValue(static_cast<unsigned char>(1)), TCIMValue(""));
  ExpectLess(TCIMValue(true), TCIMValue(static_cast<unsigned char>(0)));
}

TEST(TCIMValueOrdering, ScalarsSortBeforeArrays) {
  for (const TCIMValue& scalar : OneOfEachScalar())
    ExpectLess(scalar, TCIMValue(TCIMType::kCIMTypeBoolean, 0, TElements()));
}

TEST(TCIMValueOrdering, NumbersSortInTheirOwnType) {
  ExpectLess(TCIMValue(false), TCIMValue(true));
  ExpectLess(TCIMValue(static_cast<unsigned char>(127)),
             TCIMValue(static_cast<unsigned char>(128)));
  ExpectLess(TCIMValue(static_cast<signed char>(-128)), TCIMValue(static_cast<signed char>(127)));
  ExpectLess(TCIMValue(static_cast<unsigned short>(1)),
             TCIMValue(static_cast<unsigned short>(65535)));
  ExpectLess(TCIMValue(static_cast<short>(-1)), TCIMValue(static_cast<short>(0)));
  ExpectLess(TCIMValue(1u), TCIMValue(4294967295u));
  ExpectLess(TCIMValue(-1), TCIMValue(1));
  ExpectLess(TCIMValue(1ul), TCIMValue(18446744073709551615ul));
  ExpectLess(TCIMValue(std::numeric_limits<long>::min()),
             TCIMValue(std::numeric_limits<long>::max()));
  ExpectLess(TCIMValue(-1.5f), TCIMValue(0.5f));
  ExpectLess(TCIMValue(-1e300), TCIMValue(1e-300));
}

TEST(TCIMValueOrdering, EqualContentOfOneTypeIsEqual) {
  const std::vector<TCIMValue> again = OneOfEachScalar();
  std::size_t index = 0;
  for (const TCIMValue& value : OneOfEachScalar()) {
    if (value.GetType() != TCIMType::kCIMTypeChar16) ExpectRelation(value, again[index], kEqual);
    ++index;
  }
  ExpectRelation(TCIMValue(0.0), TCIMValue(-0.0), kEqual);
}

TEST(TCIMValueOrdering, StringsSortByUnsignedBytes) {
  ExpectLess(TCIMValue("abc"), TCIMValue("abd"));
  ExpectLess(TCIMValue("ab"), TCIMValue("abc"));
  ExpectLess(TCIMValue(""), TCIMValue("a"));
  ExpectLess(TCIMValue("Z"), TCIMValue("a"));
  ExpectLess(TCIMValue("\x7f"), TCIMValue("\x80"));
  ExpectLess(TCIMValue(std::string("a")), TCIMValue(std::string("a\0", 2)));
}

TEST(TCIMValueOrdering, ANaNIsNeitherEqualNorLess) {
  const TCIMValue nans[] = {TCIMValue(std::numeric_limits<double>::quiet_NaN()),
                            TCIMValue(std::numeric_limits<float>::quiet_NaN())};
  for (const TCIMValue& nan : nans)
    ExpectApart(nan, nan);
  ExpectApart(nans[0], TCIMValue(0.5));
  ExpectApart(nans[1], TCIMValue(0.5f));
}

TEST(TCIMValueOrdering, CharactersAreEqualAndLessAtOnce) {
  const TCIMValue left(TCIMChar16(static_cast<unsigned short>(1)));
  const TCIMValue right(TCIMChar16(static_cast<unsigned short>(2)));
  for (const auto& pair : {std::make_pair(left, right), std::make_pair(right, left)}) {
    EXPECT_TRUE(pair.first == pair.second);
    EXPECT_TRUE(pair.first < pair.second);
    EXPECT_TRUE(pair.first <= pair.second);
    EXPECT_FALSE(pair.first > pair.second);
    EXPECT_FALSE(pair.first >= pair.second);
    EXPECT_FALSE(pair.first != pair.second);
  }
}

TEST(TCIMValueOrdering, NullCharactersAndUnlikeDateTimesRefuseEveryComparison) {
  const TCIMValue interval(TCIMDateTime(1, 2, 3, 4, 5));
  const TCIMValue timestamp(TCIMDateTime(std::string("20070102030405.000006+060")));
  const TCIMValue nullDateTime{TCIMDateTime()};
  const TCIMValue nullCharacter(TCIMChar16(std::string("A")));
  const TCIMValue character(TCIMChar16(static_cast<unsigned short>(65)));
  const TCIMValue pairs[][2] = {{interval, timestamp},
                                {interval, nullDateTime},
                                {nullDateTime, nullDateTime},
                                {character, nullCharacter},
                                {nullCharacter, nullCharacter}};
  for (const auto& pair : pairs) {
    for (const int first : {0, 1}) {
      const TCIMValue& left = pair[first];
      const TCIMValue& right = pair[1 - first];
      const std::string failure = "kHWXStatusInvalidDateTime";
      EXPECT_EQ(FailureOf([&] { (void)(left < right); }), failure);
      EXPECT_EQ(FailureOf([&] { (void)(left == right); }), failure);
      EXPECT_EQ(FailureOf([&] { (void)(left <= right); }), failure);
      EXPECT_EQ(FailureOf([&] { (void)(left > right); }), failure);
      EXPECT_EQ(FailureOf([&] { (void)(left >= right); }), failure);
      EXPECT_EQ(FailureOf([&] { (void)(left != right); }), failure);
    }
  }
}

TEST(TCIMValueOrdering, NullSortsBeforeEveryValue) {
  for (int tag = 0; tag < 32; ++tag)
    for (const TCIMValue& value : OneOfEachType())
      ExpectLess(NullOf(tag), value);
}

TEST(TCIMValueOrdering, NullsOfOneTypeAreEqualAndOfTwoTypesApart) {
  for (int left = 0; left < 32; ++left) {
    for (int right = 0; right < 32; ++right) {
      if (left == right)
        ExpectRelation(NullOf(left), NullOf(right), kEqual);
      else
        ExpectApart(NullOf(left), NullOf(right));
    }
  }
}

TEST(TCIMValueOrdering, NullArraysMustAgreeInTheirMaximumSize) {
  ExpectRelation(NullOf(2, 3), NullOf(18, 3), kEqual);
  ExpectApart(NullOf(2, 3), NullOf(2, 4));
}

TEST(TCIMValueOrdering, NullScalarsDoNotCompareTheirMaximumSize) {
  TCIMValue sized(TCIMType(TCIMType::kCIMTypeUInt8), 3);
  sized.SetNullValue(TCIMType::kCIMTypeString, 0);
  ASSERT_EQ(sized.GetMaxArraySize(), 3u);
  ExpectRelation(sized, NullOf(13), kEqual);
}

TEST(TCIMValueOrdering, NullReferencesMustAgreeInTheirClass) {
  TCIMValue left = NullOf(15);
  TCIMValue right = NullOf(15);
  left.SetReferencedClass(MakeClassToken());
  ExpectApart(left, right);
  right.SetReferencedClass(left.GetReferencedClass());
  ExpectRelation(left, right, kEqual);
  right.SetReferencedClass(MakeClassToken());
  ExpectApart(left, right);
}

TEST(TCIMValueOrdering, TheClassCountsForNullReferencesAlone) {
  for (const int tag : {0, 6, 13, 31}) {
    TCIMValue left = NullOf(tag);
    left.SetReferencedClass(MakeClassToken());
    ExpectRelation(left, NullOf(tag), kEqual);
  }
}

TEST(TCIMValueOrdering, ArraysAreEqualByTheirElementsAlone) {
  EXPECT_TRUE(LimitedBytes({1, 2}, 3) == LimitedBytes({1, 2}, 4));
  EXPECT_FALSE(LimitedBytes({1, 2}) == LimitedBytes({1, 3}));
  EXPECT_FALSE(LimitedBytes({1, 2}) == LimitedBytes({2, 1}));
  EXPECT_FALSE(LimitedBytes({1, 2}) == LimitedBytes({1}));
  EXPECT_FALSE(LimitedBytes({}) == LimitedBytes({1}));
  EXPECT_TRUE(LimitedBytes({}) == LimitedBytes({}));
  EXPECT_TRUE(LimitedBytes({1}) != LimitedBytes({2}));
}

TEST(TCIMValueOrdering, ArraysOfOneTypeHaveNoOrder) {
  const TCIMValue left = LimitedBytes({1});
  const TCIMValue right = LimitedBytes({2});
  const std::string failure = "kHWXStatusNotImplemented";
  EXPECT_EQ(FailureOf([&] { (void)(left < right); }), failure);
  EXPECT_EQ(FailureOf([&] { (void)(left <= right); }), failure);
  EXPECT_EQ(FailureOf([&] { (void)(left > right); }), failure);
  EXPECT_EQ(FailureOf([&] { (void)(left >= right); }), failure);
}

TEST(TCIMValueOrdering, EqualArraysAnswerWhereEqualityIsAskedFirst) {
  const TCIMValue left = LimitedBytes({1});
  const TCIMValue right = LimitedBytes({1});
  EXPECT_TRUE(left <= right);
  EXPECT_FALSE(left > right);
  EXPECT_EQ(FailureOf([&] { (void)(left < right); }), "kHWXStatusNotImplemented");
  EXPECT_EQ(FailureOf([&] { (void)(left >= right); }), "kHWXStatusNotImplemented");
}

TEST(TCIMValueOrdering, ArraysOfDifferentTypesAndNullArraysAreOrdered) {
  ExpectLess(LimitedBytes({9}), TCIMValue(TCIMType::kCIMTypeString, 0, {TCIMValue("a")}));
  ExpectLess(NullOf(18), LimitedBytes({}));
  ExpectLess(NullOf(31), LimitedBytes({}));
}

}  // namespace
}  // namespace NQORHWX20
