#include "hwxcore/value/NumericType.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace NQORHWX20 {
namespace {

using TCIMType = TCIMValue::TCIMType;

// The type of the value that the C++ type makes; `kCIMTypeNone` where there is none.
TCIMType TypeOfHolder(TCIMType::ECIMType type) {
  const auto made = [](auto numeric) {
    return TCIMValue(typename decltype(numeric)::Type()).GetType();
  };
  return OfNumericType(type, made, [] { return TCIMType(TCIMType::kCIMTypeNone); });
}

TEST(OfNumericType, GivesTheTypeThatHoldsAValueOfIt) {
  for (int tag = TCIMType::kCIMTypeBoolean; tag <= TCIMType::kCIMTypeReal64; ++tag) {
    const auto type = static_cast<TCIMType::ECIMType>(tag);
    EXPECT_EQ(TypeOfHolder(type), type);
    EXPECT_TRUE(IsNumericType(type));
  }
}

TEST(OfNumericType, CallsTheOtherFunctionForAllElse) {
  for (const int tag : {0, 12, 13, 14, 15, 16, 17, 18, 27, 31, 100}) {
    const auto type = static_cast<TCIMType::ECIMType>(tag);
    EXPECT_EQ(TypeOfHolder(type), TCIMType::kCIMTypeNone) << tag;
    EXPECT_FALSE(IsNumericType(type)) << tag;
  }
}

}  // namespace
}  // namespace NQORHWX20
