// What `Set(const TCIMValue&)`, and with it `operator=`, does and in which order.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::ArrayOf;
using hwxtest::FailureOf;
using hwxtest::MakeClassToken;
using hwxtest::OneOfEachType;
using hwxtest::TCIMType;
using hwxtest::TElements;

const double kNaN = std::numeric_limits<double>::quiet_NaN();

TCIMValue Byte(unsigned char number) {
  return TCIMValue(number);
}

TCIMValue ByteArray(unsigned int maxArraySize, const TElements& elements) {
  return TCIMValue(TCIMType::kCIMTypeUInt8, maxArraySize, elements);
}

TCIMValue IntervalValue() {
  return TCIMValue(TCIMDateTime(1, 2, 3, 4, 5));
}

TCIMValue TimestampValue() {
  return TCIMValue(TCIMDateTime(std::string("20070102030405.000006+060")));
}

TCIMValue NullCharacter() {
  return TCIMValue(TCIMChar16(std::string("A")));
}

TCIMValue CharacterValue(unsigned short number) {
  return TCIMValue(TCIMChar16(number));
}

TCIMValue NullOfTag(int tag) {
  return TCIMValue(TCIMType(static_cast<TCIMType::ECIMType>(tag)), 0);
}

TEST(TCIMValueAssignment, ReturnsTheLeftSide) {
  TCIMValue target;
  const TCIMValue source(5);
  EXPECT_EQ(&(target = source), &target);
}

TEST(TCIMValueAssignment, EveryTypeIsAssignedOntoEveryOther) {
  for (const TCIMValue& source : OneOfEachType()) {
    for (TCIMValue& target : OneOfEachType()) {
      const std::string printed = source.ToString(10);
      target = source;
      EXPECT_EQ(target.GetType(), source.GetType());
      EXPECT_EQ(target.ToString(10), printed);
      EXPECT_TRUE(target == source);
      target.SetNullValue(TCIMType::kCIMTypeNone, 0);
      EXPECT_EQ(source.ToString(10), printed);  // the bodies were never shared
    }
  }
}

TEST(TCIMValueAssignment, BetweenEqualsTheTargetKeepsItsClassAndArraySize) {
  TCIMValue target(TCIMType(TCIMType::kCIMTypeUInt8), 9);
  const auto referencedClass = MakeClassToken();
  target.SetReferencedClass(referencedClass);
  target.Set(static_cast<unsigned char>(1));
  target = Byte(1);
  EXPECT_EQ(target.GetReferencedClass(), referencedClass);
  EXPECT_EQ(target.GetMaxArraySize(), 9u);
}

TEST(TCIMValueAssignment, OfAScalarLeavesClassAndArraySizeOfTheTarget) {
  TCIMValue target(TCIMType(TCIMType::kCIMTypeUInt8), 9);
  const auto referencedClass = MakeClassToken();
  target.SetReferencedClass(referencedClass);
  TCIMValue source(TCIMType(TCIMType::kCIMTypeUInt8), 4);
  source.SetReferencedClass(MakeClassToken());
  source.Set("text");
  target = source;
  EXPECT_EQ(target.ToString(10), "text");
  EXPECT_EQ(target.GetReferencedClass(), referencedClass);
  EXPECT_EQ(target.GetMaxArraySize(), 9u);
}

TEST(TCIMValueAssignment, BetweenEqualArraysKeepsTheTargetsArraySize) {
  TCIMValue target = ByteArray(3, {Byte(1)});
  target = ByteArray(4, {Byte(1)});
  EXPECT_EQ(target.GetMaxArraySize(), 3u);
  target = ByteArray(4, {Byte(2)});
  EXPECT_EQ(target.GetMaxArraySize(), 4u);
  EXPECT_EQ(target.ToString(10), "{ 2 }");
}

TEST(TCIMValueAssignment, OfAnArrayLeavesTheTargetsClass) {
  TCIMValue target;
  const auto referencedClass = MakeClassToken();
  target.SetReferencedClass(referencedClass);
  target = ByteArray(4, {Byte(2)});
  EXPECT_EQ(target.GetReferencedClass(), referencedClass);
}

TEST(TCIMValueAssignment, OfATypedNullMakesTheTargetNull) {
  for (int tag = 1; tag < 32; ++tag) {
    if (tag == 16) continue;
    for (TCIMValue& target : OneOfEachType()) {
      target = NullOfTag(tag);
      EXPECT_TRUE(target.IsNull());
      EXPECT_EQ(static_cast<int>(target.GetType()), tag);
    }
  }
}

TEST(TCIMValueAssignment, OfANullArrayTakesItsArraySizeOver) {
  TCIMValue target = ByteArray(3, {Byte(1)});
  target = TCIMValue(TCIMType(TCIMType::kCIMTypeUInt8), 4);
  EXPECT_TRUE(target.IsNull());
  EXPECT_EQ(target.GetMaxArraySize(), 4u);
  target = TCIMValue(TCIMType(TCIMType::kCIMTypeUInt8), 5);
  EXPECT_EQ(target.GetMaxArraySize(), 5u);
}

TEST(TCIMValueAssignment, OfTheTagOfArraysAloneIsTreatedAsAnArray) {
  TCIMValue target(5);
  target = TCIMValue(TCIMType(TCIMType::kCIMTypeArrayFlag), 4);
  EXPECT_TRUE(target.IsNull());
  EXPECT_EQ(static_cast<int>(target.GetType()), 16);
  EXPECT_EQ(target.GetMaxArraySize(), 4u);
}

TEST(TCIMValueAssignment, OfANullReferenceTakesItsClassOver) {
  TCIMValue source = NullOfTag(15);
  source.SetReferencedClass(MakeClassToken());
  TCIMValue target(5);
  target = source;
  EXPECT_TRUE(target.IsNull());
  EXPECT_TRUE(target.IsReference());
  EXPECT_EQ(target.GetReferencedClass(), source.GetReferencedClass());
  target = NullOfTag(15);  // unequal by its class, which is empty
  EXPECT_FALSE(target.GetReferencedClass());
}

TEST(TCIMValueAssignment, OfNoTypeLeavesTheTargetWithoutTypeAndBody) {
  for (TCIMValue& target : OneOfEachType()) {
    EXPECT_EQ(FailureOf([&] { target = TCIMValue(); }), "kHWXStatusTypeMismatch");
    EXPECT_TRUE(target.IsNull());
    EXPECT_EQ(target.GetType(), TCIMType::kCIMTypeNone);
  }
  TCIMValue typedNull = NullOfTag(6);
  EXPECT_EQ(FailureOf([&] { typedNull = TCIMValue(); }), "kHWXStatusTypeMismatch");
  EXPECT_EQ(typedNull.GetType(), TCIMType::kCIMTypeNone);
}

TEST(TCIMValueAssignment, OfNoTypeOntoNoTypeChangesNothing) {
  TCIMValue target;
  EXPECT_EQ(FailureOf([&] { target = TCIMValue(); }), "no failure");
  EXPECT_TRUE(target.IsNull());
}

TEST(TCIMValueAssignment, OfATagThatNamesNoTypeLeavesThatTagAndNoBody) {
  TCIMValue target("text");
  EXPECT_EQ(FailureOf([&] { target = NullOfTag(34); }), "kHWXStatusTypeMismatch");
  EXPECT_TRUE(target.IsNull());
  EXPECT_EQ(static_cast<int>(target.GetType()), 34);
}

TEST(TCIMValueAssignment, ThatFailsToCopyTheBodyLeavesANullOfTheSourcesType) {
  const TCIMValue source = ByteArray(4, {Byte(1)});
  TElements& elements = source;
  elements[0].SetNullValue(static_cast<TCIMType::ECIMType>(34), 0);  // can't be copied
  for (TCIMValue& target : OneOfEachType()) {
    EXPECT_EQ(FailureOf([&] { target = source; }), "kHWXStatusTypeMismatch");
    EXPECT_TRUE(target.IsNull());
    EXPECT_EQ(target.GetType(), ArrayOf(TCIMType::kCIMTypeUInt8));
    EXPECT_EQ(target.GetMaxArraySize(), 4u);
  }
}

TEST(TCIMValueAssignment, BetweenNonNullCharactersChangesNothing) {
  TCIMValue target = CharacterValue(65);
  target = CharacterValue(66);
  EXPECT_EQ(target.ToString(10), "65");
}

TEST(TCIMValueAssignment, ThatFailsToCompareLeavesTheTargetUnchanged) {
  const TCIMValue nullDateTime = TCIMValue(TCIMDateTime());
  const TCIMValue pairs[][2] = {{IntervalValue(), TimestampValue()},
                                {TimestampValue(), IntervalValue()},
                                {IntervalValue(), nullDateTime},
                                {TimestampValue(), nullDateTime},
                                {CharacterValue(65), NullCharacter()}};
  for (const auto& pair : pairs) {
    TCIMValue target(pair[0]);
    EXPECT_EQ(FailureOf([&] { target = pair[1]; }), "kHWXStatusInvalidDateTime");
    EXPECT_FALSE(target.IsNull());
    EXPECT_EQ(target.ToString(10), pair[0].ToString(10));
  }
}

TEST(TCIMValueAssignment, OntoANullCharacterOrDateTimeOfTheSameTypeFails) {
  TCIMValue character = NullCharacter();
  EXPECT_EQ(FailureOf([&] { character = CharacterValue(65); }), "kHWXStatusInvalidDateTime");
  EXPECT_EQ(FailureOf([&] { character.ToString(10); }), "kHWXStatusInvalidDateTime");
  TCIMValue dateTime = TCIMValue(TCIMDateTime());
  EXPECT_EQ(FailureOf([&] { dateTime = IntervalValue(); }), "kHWXStatusInvalidDateTime");
  EXPECT_TRUE(dateTime.operator TCIMDateTime().IsNull());
  const TCIMValue& itself = dateTime;
  EXPECT_EQ(FailureOf([&] { dateTime = itself; }), "kHWXStatusInvalidDateTime");
  EXPECT_FALSE(dateTime.IsNull());
}

TEST(TCIMValueAssignment, OntoAnotherTypeComparesNothingAndSucceeds) {
  TCIMValue target("text");
  target = NullCharacter();
  EXPECT_EQ(target.GetType(), TCIMType::kCIMTypeChar16);
  TCIMValue other("text");
  other = TCIMValue(TCIMDateTime());
  EXPECT_EQ(other.GetType(), TCIMType::kCIMTypeDateTime);
}

TEST(TCIMValueAssignment, BetweenArraysFailsWithTheirElements) {
  TCIMValue target(TCIMType::kCIMTypeDateTime, 1, {IntervalValue()});
  const TCIMValue source(TCIMType::kCIMTypeDateTime, 2, {TimestampValue()});
  EXPECT_EQ(FailureOf([&] { target = source; }), "kHWXStatusInvalidDateTime");
  EXPECT_EQ(target.ToString(10), "{ 00000001020304.000005:000 }");
  EXPECT_EQ(target.GetMaxArraySize(), 1u);
}

TEST(TCIMValueAssignment, BetweenArraysStopsComparingAtTheFirstDifference) {
  TCIMValue target(TCIMType::kCIMTypeDateTime, 1, {IntervalValue()});
  const TCIMValue longer(TCIMType::kCIMTypeDateTime, 2, {TimestampValue(), IntervalValue()});
  target = longer;
  EXPECT_TRUE(target == longer);
}

TEST(TCIMValueAssignment, OntoItselfChangesNothing) {
  for (TCIMValue& value : OneOfEachType()) {
    const std::string printed = value.ToString(10);
    const TCIMValue& itself = value;
    value = itself;
    EXPECT_EQ(value.ToString(10), printed);
  }
}

TEST(TCIMValueAssignment, OfANaNOntoItselfLosesIt) {
  TCIMValue value(kNaN);  // unequal to itself: its body is gone before it could be copied
  const TCIMValue& itself = value;
  value = itself;
  EXPECT_TRUE(value.IsNull());
  EXPECT_EQ(value.GetType(), TCIMType::kCIMTypeReal64);
}

TEST(TCIMValueAssignment, OfANaNOntoAnotherCopies) {
  TCIMValue value(kNaN);
  value = TCIMValue(kNaN);
  EXPECT_TRUE(std::isnan(value.operator double()));
}

TEST(TCIMValueAssignment, OfAnArraysOwnElementOntoTheArray) {
  TCIMValue value(TCIMType::kCIMTypeString, 2, {TCIMValue("first"), TCIMValue("second")});
  const TElements& elements = value;
  value = elements[1];
  EXPECT_EQ(value.GetType(), TCIMType::kCIMTypeString);
  EXPECT_EQ(value.ToString(10), "second");
}

TEST(TCIMValueAssignment, OfAnInnerArrayOntoItsOuterArray) {
  TCIMValue value = ByteArray(1, {Byte(0)});
  TElements& outer = value;
  outer[0] = ByteArray(2, {Byte(7), Byte(8)});
  const TCIMValue& inner = outer[0];
  value = inner;
  EXPECT_EQ(value.ToString(10), "{ 7, 8 }");
  EXPECT_EQ(value.GetMaxArraySize(), 2u);
}

TEST(TCIMValueAssignment, OfAnArrayOntoItsOwnElement) {
  TCIMValue value = ByteArray(3, {Byte(1), Byte(2)});
  TElements& elements = value;
  elements[0] = value;  // the element is null already when the array is copied into it
  ASSERT_EQ(elements.size(), 2u);
  const TElements& inner = elements[0];
  ASSERT_EQ(inner.size(), 2u);
  EXPECT_TRUE(inner[0].IsNull());
  EXPECT_EQ(inner[0].GetType(), ArrayOf(TCIMType::kCIMTypeUInt8));
  EXPECT_EQ(inner[1].ToString(10), "2");
}

}  // namespace
}  // namespace NQORHWX20
