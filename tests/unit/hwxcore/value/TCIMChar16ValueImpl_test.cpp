#include "hwxcore/value/TCIMChar16ValueImpl.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FailureOf;
using hwxtest::OneOfEachType;
using hwxtest::TCIMType;

TCIMChar16 Character(unsigned short number) {
  return TCIMChar16(number);
}

TCIMChar16 Null() {
  return TCIMChar16(std::string("A"));
}

TEST(TCIMChar16ValueImpl, PrintsTheNumberInDigitsWhateverTheBase) {
  const TCIMChar16ValueImpl body(Character(65));
  for (int base = 0; base < 256; ++base)
    EXPECT_EQ(body.ToString(static_cast<unsigned char>(base)), "65");
}

TEST(TCIMChar16ValueImpl, ANullCharacterDoesNotPrint) {
  const TCIMChar16ValueImpl body(Null());
  for (const int base : {2, 10, 16}) {
    EXPECT_EQ(FailureOf([&] { body.ToString(static_cast<unsigned char>(base)); }),
              "kHWXStatusInvalidDateTime");
  }
}

TEST(TCIMChar16ValueImpl, ConvertsToACharacterAlone) {
  const TCIMChar16ValueImpl body(Character(65));
  EXPECT_EQ(body.operator TCIMChar16().GetValue(), 65);
  const std::string refused = "kHWXStatusTypeMismatch";
  EXPECT_EQ(FailureOf([&] { (void)body.operator unsigned short(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator std::string(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator TCIMDateTime(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator std::vector<TCIMValue>&(); }), refused);
}

TEST(TCIMChar16ValueImpl, ACopyHoldsTheSameNumber) {
  const TCIMChar16ValueImpl body(Character(65));
  const TCIMChar16ValueImpl copy(body);
  EXPECT_EQ(copy.ToString(10), "65");
}

TEST(TCIMChar16ValueImpl, AnyTwoNumbersAreEqualAndLess) {
  const TCIMChar16ValueImpl body(Character(1));
  EXPECT_TRUE(body == TCIMValue(Character(2)));
  EXPECT_TRUE(body < TCIMValue(Character(2)));
  EXPECT_TRUE(TCIMChar16ValueImpl(Character(2)) < TCIMValue(Character(1)));
}

TEST(TCIMChar16ValueImpl, ANullCharacterOnEitherSideRefusesToCompare) {
  const std::string refused = "kHWXStatusInvalidDateTime";
  const TCIMChar16ValueImpl body(Character(1));
  const TCIMChar16ValueImpl null(Null());
  EXPECT_EQ(FailureOf([&] { (void)(body == TCIMValue(Null())); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)(body < TCIMValue(Null())); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)(null == TCIMValue(Character(1))); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)(null < TCIMValue(Character(1))); }), refused);
}

TEST(TCIMChar16ValueImpl, OtherTypesAndNullValuesAreNeitherEqualNorGreater) {
  for (const TCIMChar16ValueImpl& body :
       {TCIMChar16ValueImpl(Character(1)), TCIMChar16ValueImpl(Null())}) {
    for (const TCIMValue& other : OneOfEachType()) {
      if (other.GetType() == TCIMType::kCIMTypeChar16) continue;
      EXPECT_FALSE(body == other);
      EXPECT_FALSE(body < other);
    }
    const TCIMValue null(TCIMType(TCIMType::kCIMTypeChar16), 0);
    EXPECT_FALSE(body == null);
    EXPECT_FALSE(body < null);
  }
}

TEST(TCIMChar16InTheHandle, HasNoWayToItsContentButPrinting) {
  const TCIMValue value(Character(65));
  EXPECT_EQ(static_cast<int>(value.GetType()), 12);
  EXPECT_EQ(value.ToString(10), "65");
  EXPECT_EQ(value.ToString(2), "65");
  EXPECT_EQ(FailureOf([&] { (void)value.operator unsigned short(); }), "kHWXStatusTypeMismatch");
  EXPECT_EQ(FailureOf([&] { (void)value.operator std::string(); }), "kHWXStatusTypeMismatch");
}

TEST(TCIMChar16InTheHandle, ANullCharacterIsNotANullValue) {
  const TCIMValue value(Null());
  EXPECT_FALSE(value.IsNull());
  EXPECT_EQ(value.GetType(), TCIMType::kCIMTypeChar16);
  EXPECT_EQ(FailureOf([&] { value.ToString(10); }), "kHWXStatusInvalidDateTime");
}

}  // namespace
}  // namespace NQORHWX20
