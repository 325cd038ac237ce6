#include "hwxcore/value/TCIMArrayValueImpl.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::ArrayOf;
using hwxtest::ByteElements;
using hwxtest::FailureOf;
using hwxtest::OneOfEachType;
using hwxtest::TCIMType;
using hwxtest::TElements;

TCIMValue ArrayOfBytes(const std::vector<unsigned char>& numbers) {
  return TCIMValue(TCIMType::kCIMTypeUInt8, 0, ByteElements(numbers));
}

TEST(TCIMArrayValueImpl, PrintsTheElementsInBraces) {
  EXPECT_EQ(TCIMArrayValueImpl(ByteElements({1, 2})).ToString(10), "{ 1, 2 }");
  EXPECT_EQ(TCIMArrayValueImpl(ByteElements({1})).ToString(10), "{ 1 }");
  EXPECT_EQ(TCIMArrayValueImpl(TElements()).ToString(10), "{  }");
  EXPECT_EQ(TCIMArrayValueImpl(TElements()).ToString(2), "{  }");
}

TEST(TCIMArrayValueImpl, PrintsElementsInTheBaseAskedFor) {
  const TCIMArrayValueImpl body(ByteElements({10, 255}));
  EXPECT_EQ(body.ToString(16), "{ 0A, FF }");
  EXPECT_EQ(body.ToString(8), "{ 12, 377 }");
}

TEST(TCIMArrayValueImpl, PrintsTextWithoutQuotesOrEscapes) {
  const TCIMArrayValueImpl body({TCIMValue("a, b"), TCIMValue("\"c\""), TCIMValue("")});
  EXPECT_EQ(body.ToString(10), "{ a, b, \"c\",  }");
}

TEST(TCIMArrayValueImpl, PrintsArraysInArrays) {
  const TCIMArrayValueImpl body({ArrayOfBytes({1, 2}), ArrayOfBytes({})});
  EXPECT_EQ(body.ToString(10), "{ { 1, 2 }, {  } }");
}

TEST(TCIMArrayValueImpl, PassesOnWhatAnElementThrowsWhenPrinted) {
  const TCIMArrayValueImpl withNull(
      {TCIMValue(1), TCIMValue(TCIMType(TCIMType::kCIMTypeSInt32), 0)});
  EXPECT_EQ(FailureOf([&] { withNull.ToString(10); }), "kHWXStatusValueIsNULL");
  const TCIMArrayValueImpl numbers(TElements{TCIMValue(1)});
  EXPECT_EQ(FailureOf([&] { numbers.ToString(16); }), "kHWXStatusNotSupported");
  EXPECT_EQ(FailureOf([&] { numbers.ToString(2); }), "kHWXStatusNotSupported");
  const TCIMArrayValueImpl characters(TElements{TCIMValue(TCIMChar16(std::string("A")))});
  EXPECT_EQ(FailureOf([&] { characters.ToString(10); }), "kHWXStatusInvalidDateTime");
}

TEST(TCIMArrayValueImpl, HandsOutItsOwnElements) {
  const TCIMArrayValueImpl body(ByteElements({1}));
  TElements& elements = body;
  elements.push_back(TCIMValue(static_cast<unsigned char>(2)));
  EXPECT_EQ(body.ToString(10), "{ 1, 2 }");
}

TEST(TCIMArrayValueImpl, ACopyIsDeep) {
  const TCIMArrayValueImpl body(TElements{ArrayOfBytes({1})});
  const TCIMArrayValueImpl copy(body);
  TElements& outer = body;
  TElements& inner = outer[0];
  inner[0].Set(static_cast<unsigned char>(9));
  EXPECT_EQ(body.ToString(10), "{ { 9 } }");
  EXPECT_EQ(copy.ToString(10), "{ { 1 } }");
}

TEST(TCIMArrayValueImpl, IsEqualToAnArrayWithEqualElements) {
  const TCIMArrayValueImpl body(ByteElements({1, 2}));
  EXPECT_TRUE(body == ArrayOfBytes({1, 2}));
  EXPECT_FALSE(body == ArrayOfBytes({1}));
  EXPECT_FALSE(body == ArrayOfBytes({1, 2, 3}));
  EXPECT_FALSE(body == ArrayOfBytes({2, 1}));
  EXPECT_TRUE(TCIMArrayValueImpl(TElements()) == ArrayOfBytes({}));
}

TEST(TCIMArrayValueImpl, ComparesNullElementsToo) {
  const TCIMValue null(TCIMType(TCIMType::kCIMTypeUInt8), 0);
  const TCIMArrayValueImpl body(TElements{null});
  EXPECT_TRUE(body == TCIMValue(TCIMType::kCIMTypeUInt8, 0, {null}));
  EXPECT_FALSE(body == ArrayOfBytes({0}));
}

TEST(TCIMArrayValueImpl, StopsComparingAtTheFirstDifference) {
  const TCIMValue nullCharacter(TCIMChar16(std::string("A")));
  const TElements differs = {TCIMValue(1), nullCharacter};
  const TElements fails = {TCIMValue(2), nullCharacter};
  TCIMValue other(TCIMType::kCIMTypeSInt32, 0, {});
  TElements& elements = other;
  elements = fails;
  EXPECT_FALSE(TCIMArrayValueImpl(differs) == other);
  EXPECT_EQ(FailureOf([&] { (void)(TCIMArrayValueImpl(fails) == other); }),
            "kHWXStatusInvalidDateTime");
}

TEST(TCIMArrayValueImpl, IsEqualToNoScalarAndNoNull) {
  for (const TCIMValue& other : OneOfEachType()) {
    if (other.IsArray()) continue;
    EXPECT_FALSE(TCIMArrayValueImpl(TElements()) == other);
  }
  EXPECT_FALSE(TCIMArrayValueImpl(TElements()) == TCIMValue());
  EXPECT_FALSE(TCIMArrayValueImpl(TElements()) == TCIMValue(TCIMType(TCIMType::kCIMTypeUInt8), 5));
}

TEST(TCIMArrayValueImpl, HasNoOrderWhateverTheOtherIs) {
  const TCIMArrayValueImpl body(ByteElements({1}));
  std::vector<TCIMValue> others = OneOfEachType();
  others.push_back(TCIMValue());
  others.push_back(TCIMValue(ArrayOf(TCIMType::kCIMTypeUInt8), 0));
  for (const TCIMValue& other : others)
    EXPECT_EQ(FailureOf([&] { (void)(body < other); }), "kHWXStatusNotImplemented");
}

TEST(TCIMArrayValueImpl, RefusesScalarConversions) {
  const TCIMArrayValueImpl body(ByteElements({1}));
  const std::string refused = "kHWXStatusTypeMismatch";
  EXPECT_EQ(FailureOf([&] { (void)body.operator unsigned char(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator bool(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator std::string(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator TCIMDateTime(); }), refused);
}

}  // namespace
}  // namespace NQORHWX20
