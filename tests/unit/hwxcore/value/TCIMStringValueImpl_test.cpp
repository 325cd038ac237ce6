#include "hwxcore/value/TCIMStringValueImpl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FailureOf;
using hwxtest::OneOfEachType;
using hwxtest::TCIMType;

TEST(TCIMStringValueImpl, PrintsTheTextUnchangedInAnyBase) {
  for (const std::string& text : {std::string(), std::string("a \"quoted\" \\ text\n"),
                                  std::string("zero\0inside", 11), std::string("\xff\x80")}) {
    const TCIMStringValueImpl body(text);
    for (int base = 0; base < 256; ++base)
      EXPECT_EQ(body.ToString(static_cast<unsigned char>(base)), text);
  }
}

TEST(TCIMStringValueImpl, IsMadeFromBothFormsOfTextAndByCopy) {
  const TCIMStringValueImpl fromPointer("text");
  const TCIMStringValueImpl fromString(std::string("text"));
  const TCIMStringValueImpl copy(fromPointer);
  EXPECT_EQ(fromPointer.operator std::string(), "text");
  EXPECT_EQ(fromString.operator std::string(), "text");
  EXPECT_EQ(copy.operator std::string(), "text");
}

TEST(TCIMStringValueImpl, ConvertsToAStringAlone) {
  const TCIMStringValueImpl body("1");
  const std::string refused = "kHWXStatusTypeMismatch";
  EXPECT_EQ(FailureOf([&] { (void)body.operator bool(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator unsigned char(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator int(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator unsigned long(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator double(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator TCIMChar16(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator TCIMDateTime(); }), refused);
  EXPECT_EQ(FailureOf([&] { (void)body.operator std::vector<TCIMValue>&(); }), refused);
}

TEST(TCIMStringValueImpl, SortsByUnsignedBytesWithPrefixesFirst) {
  const char* const sorted[] = {"", "A", "Z", "a", "ab", "abc", "b", "\x7f", "\x80", "\xff"};
  for (const char* left : sorted) {
    for (const char* right : sorted) {
      const TCIMStringValueImpl body(left);
      EXPECT_EQ(body == TCIMValue(right), left == right);
      const bool before =
          std::string(left) != right &&
          std::lexicographical_compare(left, left + std::string(left).size(), right,
                                       right + std::string(right).size(), [](char a, char b) {
                                         return static_cast<unsigned char>(a) <
                                                static_cast<unsigned char>(b);
                                       });
      EXPECT_EQ(body < TCIMValue(right), before) << left << " < " << right;
    }
  }
}

TEST(TCIMStringValueImpl, BytesBehindAZeroCount) {
  const TCIMStringValueImpl body(std::string("a\0b", 3));
  EXPECT_TRUE(body == TCIMValue(std::string("a\0b", 3)));
  EXPECT_FALSE(body == TCIMValue("a"));
  EXPECT_TRUE(body < TCIMValue(std::string("a\0c", 3)));
}

TEST(TCIMStringValueImpl, OtherTypesAndNullAreNeitherEqualNorGreater) {
  const TCIMStringValueImpl body("");
  for (const TCIMValue& other : OneOfEachType()) {
    if (other.GetType() == TCIMType::kCIMTypeString) continue;
    EXPECT_FALSE(body == other);
    EXPECT_FALSE(body < other);
  }
  const TCIMValue null(TCIMType(TCIMType::kCIMTypeString), 0);
  EXPECT_FALSE(body == null);
  EXPECT_FALSE(body < null);
}

}  // namespace
}  // namespace NQORHWX20
