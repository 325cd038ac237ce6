// Setting scalars, null values and the referenced class.

#include <gtest/gtest.h>

#include <functional>
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

const struct {
  int fTag;
  std::function<void(TCIMValue&)> fSet;
  const char* fPrinted;
} kSetters[] = {
    {1, [](TCIMValue& value) { value.Set(true); }, "true"},
    {2, [](TCIMValue& value) { value.Set(static_cast<unsigned char>(200)); }, "200"},
    {3, [](TCIMValue& value) { value.Set(static_cast<signed char>(-100)); }, "-100"},
    {4, [](TCIMValue& value) { value.Set(static_cast<unsigned short>(50000)); }, "50000"},
    {5, [](TCIMValue& value) { value.Set(static_cast<short>(-30000)); }, "-30000"},
    {6, [](TCIMValue& value) { value.Set(3000000000u); }, "3000000000"},
    {7, [](TCIMValue& value) { value.Set(-3); }, "-3"},
    {8, [](TCIMValue& value) { value.Set(3000000000ul); }, "3000000000"},
    {9, [](TCIMValue& value) { value.Set(-3000000000l); }, "-3000000000"},
    {10, [](TCIMValue& value) { value.Set(1.5f); }, "1.5"},
    {11, [](TCIMValue& value) { value.Set(2.5); }, "2.5"},
    {12, [](TCIMValue& value) { value.Set(TCIMChar16(static_cast<unsigned short>(66))); }, "66"},
    {13, [](TCIMValue& value) { value.Set("pointer"); }, "pointer"},
    {13, [](TCIMValue& value) { value.Set(std::string("string")); }, "string"},
    {14, [](TCIMValue& value) { value.Set(TCIMDateTime(1, 0, 0, 0, 0)); },
     "00000001000000.000000:000"},
};

TEST(TCIMValueSet, AScalarReplacesTypeAndBodyAndNothingElse) {
  for (const auto& setter : kSetters) {
    for (const TCIMValue& former : OneOfEachType()) {
      TCIMValue value(TCIMType(TCIMType::kCIMTypeUInt8), 9);
      const auto referencedClass = MakeClassToken();
      value.SetReferencedClass(referencedClass);
      value = former;
      const unsigned int maxArraySize = value.GetMaxArraySize();
      setter.fSet(value);
      EXPECT_EQ(static_cast<int>(value.GetType()), setter.fTag);
      EXPECT_FALSE(value.IsNull());
      EXPECT_EQ(value.ToString(10), setter.fPrinted);
      EXPECT_EQ(value.GetMaxArraySize(), maxArraySize);
      EXPECT_EQ(value.GetReferencedClass(), referencedClass);
    }
  }
}

TEST(TCIMValueSet, AScalarSetsUntypedAndNullValuesToo) {
  for (const auto& setter : kSetters) {
    TCIMValue untyped;
    setter.fSet(untyped);
    EXPECT_EQ(untyped.ToString(10), setter.fPrinted);
    TCIMValue null(TCIMType(TCIMType::kCIMTypeReference), 0);
    setter.fSet(null);
    EXPECT_EQ(static_cast<int>(null.GetType()), setter.fTag);
  }
}

TEST(TCIMValueSet, ACharacterReplacesACharacter) {
  TCIMValue value(TCIMChar16(static_cast<unsigned short>(65)));
  value.Set(TCIMChar16(static_cast<unsigned short>(66)));  // sets without comparing
  EXPECT_EQ(value.ToString(10), "66");
}

TEST(TCIMValueSet, TextTakenFromTheValueItselfIsSafe) {
  TCIMValue value("a text that is too long to stay inside the string object itself");
  const std::string text = value;
  value.Set(value.operator std::string());
  EXPECT_EQ(value.ToString(10), text);
}

TEST(TCIMValueSetNullValue, GivesTypeAndDropsTheBody) {
  for (TCIMValue& value : OneOfEachType()) {
    value.SetNullValue(TCIMType::kCIMTypeSInt16, 0);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetType(), TCIMType::kCIMTypeSInt16);
  }
}

TEST(TCIMValueSetNullValue, StoresTheArraySizeForArrayTypesAlone) {
  TCIMValue value(TCIMType(TCIMType::kCIMTypeUInt8), 9);
  value.SetNullValue(TCIMType::kCIMTypeString, 4);
  EXPECT_EQ(value.GetMaxArraySize(), 9u);
  EXPECT_FALSE(value.IsArray());
  value.SetNullValue(ArrayOf(TCIMType::kCIMTypeString), 4);
  EXPECT_EQ(value.GetMaxArraySize(), 4u);
  EXPECT_TRUE(value.IsArray());
  value.SetNullValue(ArrayOf(TCIMType::kCIMTypeString), 0);
  EXPECT_EQ(value.GetMaxArraySize(), 0u);
}

TEST(TCIMValueSetNullValue, DoesNotMakeAnArrayOfAScalarType) {
  TCIMValue value;
  value.SetNullValue(TCIMType::kCIMTypeString, 4);
  EXPECT_EQ(value.GetType(), TCIMType::kCIMTypeString);
  EXPECT_EQ(value.GetMaxArraySize(), 0u);
}

TEST(TCIMValueSetNullValue, KeepsTheClass) {
  TCIMValue value(TCIMType(TCIMType::kCIMTypeReference), 0);
  const auto referencedClass = MakeClassToken();
  value.SetReferencedClass(referencedClass);
  value.SetNullValue(TCIMType::kCIMTypeNone, 0);
  EXPECT_EQ(value.GetReferencedClass(), referencedClass);
  EXPECT_EQ(value.GetType(), TCIMType::kCIMTypeNone);
}

TEST(TCIMValueSetReferencedClass, TakesANullValueOfAnyTypeAndReplaces) {
  for (int tag = 0; tag < 32; ++tag) {
    TCIMValue value(TCIMType(static_cast<TCIMType::ECIMType>(tag)), 0);
    const auto first = MakeClassToken();
    const auto second = MakeClassToken();
    value.SetReferencedClass(first);
    EXPECT_EQ(value.GetReferencedClass(), first);
    value.SetReferencedClass(second);
    EXPECT_EQ(value.GetReferencedClass(), second);
    EXPECT_EQ(first.use_count(), 1);
    value.SetReferencedClass(boost::shared_ptr<ICIMClass>());
    EXPECT_FALSE(value.GetReferencedClass());
    EXPECT_EQ(static_cast<int>(value.GetType()), tag);
    EXPECT_TRUE(value.IsNull());
  }
}

TEST(TCIMValueSetReferencedClass, RefusesAValueThatIsNotNull) {
  for (TCIMValue& value : OneOfEachType()) {
    EXPECT_EQ(FailureOf([&] { value.SetReferencedClass(MakeClassToken()); }),
              "kHWXStatusInvalidOpSequence");
    EXPECT_FALSE(value.GetReferencedClass());
  }
}

TEST(TCIMValueSetReferencedClass, TheValueHoldsTheClassAndLetsItGo) {
  const auto referencedClass = MakeClassToken();
  {
    TCIMValue value(TCIMType(TCIMType::kCIMTypeReference), 0);
    value.SetReferencedClass(referencedClass);
    EXPECT_EQ(referencedClass.use_count(), 2);
    const TCIMValue copy(value);
    EXPECT_EQ(referencedClass.use_count(), 3);
  }
  EXPECT_EQ(referencedClass.use_count(), 1);
}

}  // namespace
}  // namespace NQORHWX20
