#include "hwxcore/value/TCIMChar16.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "hwxcore/value/TCIMChar16Impl.h"
#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FailureOf;

const char* const kRefusedText = "kHWXStatusInvalidDateTime";

// The handle and its body have the same operations.
template <typename Character>
class TCIMChar16Operations : public testing::Test {
 protected:
  static Character Of(unsigned short value) { return Character(value); }
  static Character Null() { return Character(std::string("A")); }
};

using TCharacters = testing::Types<TCIMChar16, TCIMChar16Impl>;
TYPED_TEST_SUITE(TCIMChar16Operations, TCharacters, );

TYPED_TEST(TCIMChar16Operations, ANumberIsCarriedAndPrintedInDigits) {
  for (const int number : {0, 1, 65, 0xd800, 65535}) {
    const TypeParam character = this->Of(static_cast<unsigned short>(number));
    EXPECT_EQ(character.GetValue(), number);
    EXPECT_EQ(character.ToString(), std::to_string(number));
  }
}

TYPED_TEST(TCIMChar16Operations, ADefaultCharacterIsZeroAndNotNull) {
  const TypeParam character;
  EXPECT_EQ(character.GetValue(), 0);
  EXPECT_EQ(character.ToString(), "0");
}

TYPED_TEST(TCIMChar16Operations, TextGivesANullWhateverItIs) {
  for (const char* text : {"A", "", "65", "long text", "\xff"}) {
    const TypeParam character{std::string(text)};
    EXPECT_EQ(character.GetValue(), 0);
    EXPECT_EQ(FailureOf([&] { character.ToString(); }), kRefusedText);
  }
}

TYPED_TEST(TCIMChar16Operations, AnyTwoNumbersAreEqualAndLess) {
  const TypeParam one = this->Of(1);
  const TypeParam two = this->Of(2);
  EXPECT_TRUE(one == two);
  EXPECT_TRUE(two == one);
  EXPECT_TRUE(one < two);
  EXPECT_TRUE(two < one);
  EXPECT_TRUE(one == one);
  EXPECT_TRUE(one < one);
}

TYPED_TEST(TCIMChar16Operations, ANullOnEitherSideRefusesToCompare) {
  const TypeParam null = this->Null();
  const TypeParam character = this->Of(1);
  EXPECT_EQ(FailureOf([&] { (void)(null == character); }), kRefusedText);
  EXPECT_EQ(FailureOf([&] { (void)(character == null); }), kRefusedText);
  EXPECT_EQ(FailureOf([&] { (void)(null == null); }), kRefusedText);
  EXPECT_EQ(FailureOf([&] { (void)(null < character); }), kRefusedText);
  EXPECT_EQ(FailureOf([&] { (void)(character < null); }), kRefusedText);
  EXPECT_EQ(FailureOf([&] { (void)(null < null); }), kRefusedText);
}

TYPED_TEST(TCIMChar16Operations, ACopyKeepsTheNumberAndTheNull) {
  const TypeParam character = this->Of(65);
  const TypeParam copy(character);
  EXPECT_EQ(copy.ToString(), "65");
  const TypeParam null = this->Null();
  const TypeParam nullCopy(null);
  EXPECT_EQ(FailureOf([&] { nullCopy.ToString(); }), kRefusedText);
}

TYPED_TEST(TCIMChar16Operations, AssignmentTakesEverythingOver) {
  TypeParam character = this->Of(65);
  character = this->Of(66);
  EXPECT_EQ(character.GetValue(), 66);
  character = this->Null();
  EXPECT_EQ(FailureOf([&] { character.ToString(); }), kRefusedText);
  character = this->Of(67);
  EXPECT_EQ(character.ToString(), "67");
}

TEST(TCIMChar16, AMovedFromCharacterStillHasItsBody) {
  TCIMChar16 source(static_cast<unsigned short>(65));
  const TCIMChar16 target(std::move(source));
  EXPECT_EQ(target.GetValue(), 65);
  EXPECT_EQ(source.GetValue(), 65);  // NOLINT(bugprone-use-after-move)
}

TEST(TCIMChar16Impl, TellsWhetherItIsNull) {
  EXPECT_FALSE(TCIMChar16Impl().IsNull());
  EXPECT_FALSE(TCIMChar16Impl(static_cast<unsigned short>(0)).IsNull());
  EXPECT_TRUE(TCIMChar16Impl(std::string("A")).IsNull());
}

}  // namespace
}  // namespace NQORHWX20
