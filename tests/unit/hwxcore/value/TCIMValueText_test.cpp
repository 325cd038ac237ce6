// Values read from text.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FailureOf;
using hwxtest::FromText;
using hwxtest::TCIMType;

struct TCase {
  TCIMType::ECIMType fType;
  const char* fText;
  const char* fPrinted;  // what the value prints in base 10
};

void Expect(const TCase& expected) {
  const TCIMValue value = FromText(expected.fType, expected.fText);
  EXPECT_EQ(value.GetType(), expected.fType);
  EXPECT_EQ(value.ToString(10), expected.fPrinted)
      << TCIMType(expected.fType) << " from \"" << expected.fText << '"';
}

TEST(TCIMValueText, BooleansReadTheWordsAlone) {
  const TCase cases[] = {
      {TCIMType::kCIMTypeBoolean, "true", "true"},
      {TCIMType::kCIMTypeBoolean, "false", "false"},
      {TCIMType::kCIMTypeBoolean, "  true", "true"},
      {TCIMType::kCIMTypeBoolean, "truely", "true"},
      {TCIMType::kCIMTypeBoolean, "true false", "true"},
      {TCIMType::kCIMTypeBoolean, "TRUE", "false"},
      {TCIMType::kCIMTypeBoolean, "True", "false"},
      {TCIMType::kCIMTypeBoolean, "1", "false"},
      {TCIMType::kCIMTypeBoolean, "tru", "false"},
      {TCIMType::kCIMTypeBoolean, "", "false"},
      {TCIMType::kCIMTypeBoolean, "yes", "false"},
      {TCIMType::kCIMTypeBoolean, "   ", "false"},
  };
  for (const TCase& expected : cases)
    Expect(expected);
}

// What holds for all integer types that hold the numbers.
TEST(TCIMValueText, IntegersPickTheBaseFromTheText) {
  const TCIMType::ECIMType types[] = {TCIMType::kCIMTypeUInt8,  TCIMType::kCIMTypeSInt8,
                                      TCIMType::kCIMTypeUInt16, TCIMType::kCIMTypeSInt16,
                                      TCIMType::kCIMTypeUInt32, TCIMType::kCIMTypeSInt32,
                                      TCIMType::kCIMTypeUInt64, TCIMType::kCIMTypeSInt64};
  const char* const cases[][2] = {
      {"0", "0"},
      {"12", "12"},
      {"0x10", "16"},
      {"0X10", "16"},
      {"0x7f", "127"},
      {"0X7F", "127"},
      {"010", "8"},
      {"0177", "127"},
      {"00", "0"},
      {"08", "0"},
      {"019", "1"},
      {"0x", "0"},
      {"0xg", "0"},
      {"x10", "0"},
      {"+7", "7"},
      {"+0x10", "16"},
      {"+", "0"},
      {"-", "0"},
      {"-0", "0"},
      {"--1", "0"},
      {"+-1", "0"},
      {"  12", "12"},
      {"\t\n\v\f\r12", "12"},
      {"- 1", "0"},
      {"12abc", "12"},
      {"12 34", "12"},
      {"12.9", "12"},
      {"12,345", "12"},
      {"1e2", "1"},
      {"12 ", "12"},
      {"abc", "0"},
      {"", "0"},
      {"   ", "0"},
      {".", "0"},
      {"inf", "0"},
      {"true", "0"},
      {"0b11", "0"},
      {"1'0", "1"},
      {"\xc2\xa0"
       "5",
       "0"},
  };
  for (const auto type : types)
    for (const auto& expected : cases)
      Expect({type, expected[0], expected[1]});
}

TEST(TCIMValueText, NarrowIntegersKeepTheLowBitsOfAWiderRead) {
  const TCase cases[] = {
      {TCIMType::kCIMTypeUInt8, "255", "255"},
      {TCIMType::kCIMTypeUInt8, "256", "0"},
      {TCIMType::kCIMTypeUInt8, "300", "44"},
      {TCIMType::kCIMTypeUInt8, "-1", "255"},
      {TCIMType::kCIMTypeUInt8, "4294967295", "255"},
      {TCIMType::kCIMTypeUInt8, "4294967296", "255"},
      {TCIMType::kCIMTypeUInt8, "0x1ff", "255"},
      {TCIMType::kCIMTypeSInt8, "127", "127"},
      {TCIMType::kCIMTypeSInt8, "128", "-128"},
      {TCIMType::kCIMTypeSInt8, "-128", "-128"},
      {TCIMType::kCIMTypeSInt8, "-129", "127"},
      {TCIMType::kCIMTypeSInt8, "300", "44"},
      {TCIMType::kCIMTypeSInt8, "2147483648", "-1"},
      {TCIMType::kCIMTypeSInt8, "-2147483649", "0"},
  };
  for (const TCase& expected : cases)
    Expect(expected);
}

TEST(TCIMValueText, IntegersThatOverflowGiveTheLimit) {
  const TCase cases[] = {
      {TCIMType::kCIMTypeUInt16, "65535", "65535"},
      {TCIMType::kCIMTypeUInt16, "65536", "65535"},
      {TCIMType::kCIMTypeUInt16, "0x10000", "65535"},
      {TCIMType::kCIMTypeSInt16, "32768", "32767"},
      {TCIMType::kCIMTypeSInt16, "-32768", "-32768"},
      {TCIMType::kCIMTypeSInt16, "-32769", "-32768"},
      {TCIMType::kCIMTypeUInt32, "4294967295", "4294967295"},
      {TCIMType::kCIMTypeUInt32, "4294967296", "4294967295"},
      {TCIMType::kCIMTypeUInt32, "99999999999999999999999", "4294967295"},
      {TCIMType::kCIMTypeSInt32, "2147483648", "2147483647"},
      {TCIMType::kCIMTypeSInt32, "-2147483649", "-2147483648"},
      {TCIMType::kCIMTypeSInt32, "-99999999999999999999999", "-2147483648"},
      {TCIMType::kCIMTypeUInt64, "18446744073709551615", "18446744073709551615"},
      {TCIMType::kCIMTypeUInt64, "18446744073709551616", "18446744073709551615"},
      {TCIMType::kCIMTypeSInt64, "9223372036854775808", "9223372036854775807"},
      {TCIMType::kCIMTypeSInt64, "-9223372036854775808", "-9223372036854775808"},
      {TCIMType::kCIMTypeSInt64, "-9223372036854775809", "-9223372036854775808"},
  };
  for (const TCase& expected : cases)
    Expect(expected);
}

TEST(TCIMValueText, NegativeTextForUnsignedTypesWrapsAsStreamsWrapIt) {
  const TCase cases[] = {
      {TCIMType::kCIMTypeUInt16, "-1", "65535"},
      {TCIMType::kCIMTypeUInt16, "-65535", "1"},
      {TCIMType::kCIMTypeUInt16, "-65536", "65535"},  // beyond the range even as a magnitude
      {TCIMType::kCIMTypeUInt32, "-1", "4294967295"},
      {TCIMType::kCIMTypeUInt32, "-5x", "4294967291"},
      {TCIMType::kCIMTypeUInt64, "-1", "18446744073709551615"},
  };
  for (const TCase& expected : cases)
    Expect(expected);
}

TEST(TCIMValueText, RealsReadWhatStreamsRead) {
  for (const auto type : {TCIMType::kCIMTypeReal32, TCIMType::kCIMTypeReal64}) {
    const char* const cases[][2] = {
        {"0.5", "0.5"},   {"-0.25", "-0.25"}, {"+1.5", "1.5"},  {"1e3", "1000"},
        {"1E3", "1000"},  {"1e+3", "1000"},   {"1e-2", "0.01"}, {"  2.5", "2.5"},
        {".5", "0.5"},    {"-.5", "-0.5"},    {"5.", "5"},      {"007.5", "7.5"},
        {"12abc", "12"},  {"1.2.3", "1.2"},   {"1,5", "1"},     {"1e5x", "100000"},
        {"0x10", "0"},    {"-0", "-0"},       {"1e", "0"},      {"1e+", "0"},
        {"1ex", "0"},     {".", "0"},         {"-", "0"},       {"-.", "0"},
        {"e5", "0"},      {"abc", "0"},       {"", "0"},        {"  ", "0"},
        {"inf", "0"},     {"infinity", "0"},  {"nan", "0"},     {"-inf", "0"},
        {"1e-9999", "0"}, {"0e9999", "0"},    {"--1", "0"},     {"1 e5", "1"},
    };
    for (const auto& expected : cases)
      Expect({type, expected[0], expected[1]});
  }
}

TEST(TCIMValueText, RealsThatOverflowGiveTheLimit) {
  EXPECT_EQ(FromText(TCIMType::kCIMTypeReal32, "1e39").operator float(),
            std::numeric_limits<float>::max());
  EXPECT_EQ(FromText(TCIMType::kCIMTypeReal32, "-1e39").operator float(),
            std::numeric_limits<float>::lowest());
  EXPECT_EQ(FromText(TCIMType::kCIMTypeReal64, "1e309").operator double(),
            std::numeric_limits<double>::max());
  EXPECT_EQ(FromText(TCIMType::kCIMTypeReal64, "-1e99999").operator double(),
            std::numeric_limits<double>::lowest());
}

TEST(TCIMValueText, RealsKeepEveryDigit) {
  EXPECT_EQ(FromText(TCIMType::kCIMTypeReal64, "0.1").operator double(), 0.1);
  EXPECT_EQ(FromText(TCIMType::kCIMTypeReal64, "1.7976931348623157e308").operator double(),
            std::numeric_limits<double>::max());
  EXPECT_EQ(FromText(TCIMType::kCIMTypeReal64, "4.9406564584124654e-324").operator double(),
            std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(FromText(TCIMType::kCIMTypeReal32, "3.4028235e38").operator float(),
            std::numeric_limits<float>::max());
  EXPECT_TRUE(std::signbit(FromText(TCIMType::kCIMTypeReal64, "-0").operator double()));
}

TEST(TCIMValueText, StringsAreTakenAsTheyAre) {
  for (const std::string& text :
       {std::string(), std::string("  text "), std::string("a\0b", 3), std::string("\xff\n")}) {
    const TCIMValue value = FromText(TCIMType::kCIMTypeString, text);
    EXPECT_EQ(value.GetType(), TCIMType::kCIMTypeString);
    EXPECT_EQ(value.operator std::string(), text);
  }
}

TEST(TCIMValueText, CharactersComeOutAsStrings) {
  for (const std::string text : {"A", "", "65", "text"}) {
    const TCIMValue value = FromText(TCIMType::kCIMTypeChar16, text);
    EXPECT_EQ(static_cast<int>(value.GetType()), 13);
    EXPECT_EQ(value.operator std::string(), text);
  }
}

TEST(TCIMValueText, DateTimesAreReadInTheirTextForm) {
  const TCIMValue value = FromText(TCIMType::kCIMTypeDateTime, "00000001020304.000005:000");
  EXPECT_EQ(value.GetType(), TCIMType::kCIMTypeDateTime);
  EXPECT_EQ(value.ToString(10), "00000001020304.000005:000");
}

TEST(TCIMValueText, ATextThatIsNoDateTimeIsRefused) {
  for (const char* text : {"", "yesterday", "00000001020304.000005:00", "20070102030405"}) {
    EXPECT_EQ(FailureOf([&] { FromText(TCIMType::kCIMTypeDateTime, text); }),
              "kHWXStatusInvalidDateTime")
        << text;
  }
}

TEST(TCIMValueText, NoTypeAndArrayTypesAreRefused) {
  EXPECT_EQ(FailureOf([] { FromText(TCIMType::kCIMTypeNone, "1"); }), "kHWXStatusTypeMismatch");
  for (const int tag : {-16, -1, 16, 17, 18, 23, 29, 30, 31, 32, 34, 47, 48, 1000}) {
    const TCIMType type = static_cast<TCIMType::ECIMType>(tag);
    EXPECT_EQ(FailureOf([&] { FromText(type, "1"); }), "kHWXStatusTypeMismatch") << tag;
  }
}

TEST(TCIMValueText, TheCallersTextStaysAsItWas) {
  for (const auto type : {TCIMType::kCIMTypeUInt32, TCIMType::kCIMTypeReal64,
                          TCIMType::kCIMTypeBoolean, TCIMType::kCIMTypeString}) {
    std::string text = " 12abc";
    const TCIMValue value(TCIMType(type), text, boost::shared_ptr<ICIMNamespace>());
    EXPECT_EQ(text, " 12abc");
    EXPECT_FALSE(value.IsNull());
    EXPECT_EQ(value.GetMaxArraySize(), 0u);
    EXPECT_FALSE(value.GetReferencedClass());
  }
}

}  // namespace
}  // namespace NQORHWX20
