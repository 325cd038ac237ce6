#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FailureOf;
using hwxtest::OneOfEachType;
using hwxtest::TCIMType;

template <typename Target>
void Convert(const TCIMValue& value) {
  const Target target = value.operator Target();
  static_cast<void>(target);
}

void ConvertToElements(const TCIMValue& value) {
  std::vector<TCIMValue>& elements = value;
  static_cast<void>(elements);
}

const struct {
  const char* fName;
  int fTag;  // the one that is accepted
  std::function<void(const TCIMValue&)> fConvert;
} kConversions[] = {
    {"bool", 1, Convert<bool>},
    {"unsigned char", 2, Convert<unsigned char>},
    {"signed char", 3, Convert<signed char>},
    {"unsigned short", 4, Convert<unsigned short>},
    {"short", 5, Convert<short>},
    {"unsigned int", 6, Convert<unsigned int>},
    {"int", 7, Convert<int>},
    {"unsigned long", 8, Convert<unsigned long>},
    {"long", 9, Convert<long>},
    {"float", 10, Convert<float>},
    {"double", 11, Convert<double>},
    {"std::string", 13, Convert<std::string>},
    {"TCIMDateTime", 14, Convert<TCIMDateTime>},
};

TEST(TCIMValueConversion, EveryTypeConvertsToItselfAlone) {
  for (const TCIMValue& value : OneOfEachType()) {
    for (const auto& conversion : kConversions) {
      const int tag = value.GetType();
      EXPECT_EQ(FailureOf([&] { conversion.fConvert(value); }),
                tag == conversion.fTag ? "no failure" : "kHWXStatusTypeMismatch")
          << "tag " << tag << " to " << conversion.fName;
    }
  }
}

TEST(TCIMValueConversion, ANullValueOfAnyTypeIsRefusedAsNullFirst) {
  for (int tag = 0; tag < 32; ++tag) {
    const TCIMValue null(TCIMType(static_cast<TCIMType::ECIMType>(tag)), 0);
    for (const auto& conversion : kConversions) {
      EXPECT_EQ(FailureOf([&] { conversion.fConvert(null); }), "kHWXStatusValueIsNULL")
          << "tag " << tag << " to " << conversion.fName;
    }
    EXPECT_EQ(FailureOf([&] { ConvertToElements(null); }), "kHWXStatusValueIsNULL") << tag;
  }
}

TEST(TCIMValueConversion, OnlyArraysGiveTheirElements) {
  for (const TCIMValue& value : OneOfEachType()) {
    EXPECT_EQ(FailureOf([&] { ConvertToElements(value); }),
              value.IsArray() ? "no failure" : "kHWXStatusTypeMismatch")
        << static_cast<int>(value.GetType());
  }
}

TEST(TCIMValueConversion, ArraysOfEveryTypeRefuseScalarConversions) {
  for (int tag = 1; tag < 16; ++tag) {
    const TCIMType type = static_cast<TCIMType::ECIMType>(tag);
    const TCIMValue array(type, 0, std::vector<TCIMValue>());
    for (const auto& conversion : kConversions) {
      EXPECT_EQ(FailureOf([&] { conversion.fConvert(array); }), "kHWXStatusTypeMismatch")
          << "array of " << tag << " to " << conversion.fName;
    }
    EXPECT_EQ(FailureOf([&] { ConvertToElements(array); }), "no failure");
  }
}

template <typename Number>
void ExpectRoundTrip() {
  using Limits = std::numeric_limits<Number>;
  for (const Number number :
       {Limits::min(), Limits::lowest(), Limits::max(), Number(0), Number(1)}) {
    const TCIMValue value(number);
    EXPECT_EQ(value.operator Number(), number);
    TCIMValue set;
    set.Set(number);
    EXPECT_EQ(set.operator Number(), number);
    const TCIMValue copy(value);
    EXPECT_EQ(copy.operator Number(), number);
  }
}

TEST(TCIMValueConversion, NumbersComeBackAsTheyWentIn) {
  ExpectRoundTrip<unsigned char>();
  ExpectRoundTrip<signed char>();
  ExpectRoundTrip<unsigned short>();
  ExpectRoundTrip<short>();
  ExpectRoundTrip<unsigned int>();
  ExpectRoundTrip<int>();
  ExpectRoundTrip<unsigned long>();
  ExpectRoundTrip<long>();
  ExpectRoundTrip<float>();
  ExpectRoundTrip<double>();
  EXPECT_TRUE(TCIMValue(true).operator bool());
  EXPECT_FALSE(TCIMValue(false).operator bool());
}

TEST(TCIMValueConversion, TextAndDateTimesComeBackAsTheyWentIn) {
  const std::string text("by\0tes\xff", 7);
  EXPECT_EQ(TCIMValue(text).operator std::string(), text);
  const TCIMDateTime interval(1, 2, 3, 4, 5);
  EXPECT_EQ(TCIMValue(interval).operator TCIMDateTime().ToString(), "00000001020304.000005:000");
}

TEST(TCIMValueConversion, TheStringHandedOutIsACopy) {
  const TCIMValue value("text");
  std::string copy = value;
  copy += " more";
  EXPECT_EQ(value.ToString(10), "text");
}

TEST(TCIMValueConversion, ToStringOfANullValueThrowsWhateverTheBase) {
  for (int tag = 0; tag < 32; ++tag) {
    const TCIMValue null(TCIMType(static_cast<TCIMType::ECIMType>(tag)), 0);
    for (const int base : {0, 2, 8, 10, 16, 255}) {
      EXPECT_EQ(FailureOf([&] { null.ToString(static_cast<unsigned char>(base)); }),
                "kHWXStatusValueIsNULL")
          << tag;
    }
  }
}

void ExpectAnswers(const TCIMValue& value) {
  const int tag = value.GetType();
  EXPECT_NO_THROW(value.IsNull());
  EXPECT_EQ(value.IsArray(), (tag & 16) != 0) << tag;
  EXPECT_EQ(value.IsReference(), tag == 15) << tag;
}

TEST(TCIMValueConversion, AskingThrowsForNoValueAtAll) {
  for (const TCIMValue& value : OneOfEachType())
    ExpectAnswers(value);
  for (int tag = -1; tag < 70; ++tag) {
    TCIMValue value;
    value.SetNullValue(static_cast<TCIMType::ECIMType>(tag), 3);
    ExpectAnswers(value);
  }
}

}  // namespace
}  // namespace NQORHWX20
