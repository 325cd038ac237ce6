#include "providers/container/ScalarText.h"

#include <cstring>
#include <limits>
#include <locale>
#include <random>

#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace container;
using namespace NQORHWX20;
using std::string_literals::operator""s;
using ::testing::HasSubstr;

// The text, with its form behind it unless that is the plain one.
std::string Printed(const TCIMValue& value) {
  const TScalarText text = ScalarText(value);
  const char* const form = FormName(text.fForm);
  return form == nullptr ? text.fText : text.fText + "|" + form;
}

TCIMValue Back(const TCIMValue& value) {
  const TScalarText text = ScalarText(value);
  return ScalarValue(value.GetType(), text.fForm, text.fText);
}

// That a value of every type comes back, told by its text: values themselves compare loosely.
void ExpectComesBack(const TCIMValue& value) {
  const TCIMValue back = Back(value);
  EXPECT_EQ(back.GetType(), value.GetType());
  EXPECT_FALSE(back.IsNull());
  EXPECT_EQ(Printed(back), Printed(value));
}

std::string WhyMalformed(Type::ECIMType type, const std::string& text, EForm form = EForm::kPlain) {
  try {
    return "read as " + ScalarValue(type, form, text).ToString(10);
  } catch (const TMalformedText& why) {
    return why.what();
  }
}

template <typename Integer>
void ExpectLimitsOf(Type::ECIMType type) {
  const Integer lowest = std::numeric_limits<Integer>::min();
  const Integer highest = std::numeric_limits<Integer>::max();
  for (const Integer number : {lowest, Integer(0), Integer(1), highest}) {
    EXPECT_EQ(Back(TCIMValue(number)).operator Integer(), number);
    EXPECT_EQ(Printed(TCIMValue(number)), std::to_string(number));
  }
  const std::string above = std::is_signed_v<Integer> || sizeof(Integer) < 8
                                ? std::to_string(static_cast<unsigned long>(highest) + 1)
                                : "18446744073709551616";
  EXPECT_THAT(WhyMalformed(type, above), HasSubstr("is out of range for"));
}

template <typename Real>
Real RealOf(std::conditional_t<sizeof(Real) == 4, std::uint32_t, std::uint64_t> bits) {
  Real value;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

template <typename Real>
bool SameBits(Real one, Real other) {
  return std::memcmp(&one, &other, sizeof one) == 0;
}

TEST(ScalarText, IntegersHaveTheLimitsOfTheirTypes) {
  ExpectLimitsOf<unsigned char>(Type::kCIMTypeUInt8);
  ExpectLimitsOf<signed char>(Type::kCIMTypeSInt8);
  ExpectLimitsOf<unsigned short>(Type::kCIMTypeUInt16);
  ExpectLimitsOf<short>(Type::kCIMTypeSInt16);
  ExpectLimitsOf<unsigned int>(Type::kCIMTypeUInt32);
  ExpectLimitsOf<int>(Type::kCIMTypeSInt32);
  ExpectLimitsOf<unsigned long>(Type::kCIMTypeUInt64);
  ExpectLimitsOf<long>(Type::kCIMTypeSInt64);
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeUInt8, "256"), "\"256\" is out of range for uint8");
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeSInt8, "-129"), "\"-129\" is out of range for sint8");
}

TEST(ScalarText, IntegersMayHaveASignAndBeHexadecimal) {
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeSInt32, " +7\n"), "read as 7");
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeUInt16, "0xFFff"), "read as 65535");
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeUInt16, "007"), "read as 7");
}

TEST(ScalarText, IntegersAreNothingButDigits) {
  for (const char* text :
       {"", " ", "-", "+", "+-1", "-1", "1 2", "1.0", "x", "0x", "0x-1", "0x+1", "1e3"})
    EXPECT_THAT(WhyMalformed(Type::kCIMTypeUInt32, text), HasSubstr("is no uint32")) << text;
}

TEST(ScalarText, BooleansAreWords) {
  EXPECT_EQ(Printed(true), "true");
  EXPECT_EQ(Printed(false), "false");
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeBoolean, " TRUE "), "read as true");
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeBoolean, "False"), "read as false");
  for (const char* text : {"", "1", "yes", "truer"})
    EXPECT_THAT(WhyMalformed(Type::kCIMTypeBoolean, text), HasSubstr("is no boolean"));
}

TEST(ScalarText, RealsHaveAPointAndAsFewDigitsAsTheyNeed) {
  EXPECT_EQ(Printed(0.0), "0.0");
  EXPECT_EQ(Printed(-0.0), "-0.0");
  EXPECT_EQ(Printed(0.1), "0.1");
  EXPECT_EQ(Printed(0.1F), "0.1");
  EXPECT_EQ(Printed(1e300), "1.0e+300");
  EXPECT_EQ(Printed(5e-324), "5.0e-324");
  EXPECT_EQ(Printed(std::numeric_limits<double>::infinity()), "INF");
  EXPECT_EQ(Printed(-std::numeric_limits<float>::infinity()), "-INF");
  EXPECT_EQ(Printed(std::numeric_limits<double>::quiet_NaN()), "NaN");
}

TEST(ScalarText, RealsOfAnyBitsComeBackExactly) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 100000; ++i) {
    const auto real64 = RealOf<double>(random());
    const auto real32 = RealOf<float>(static_cast<std::uint32_t>(random()));
    EXPECT_TRUE(SameBits(Back(real64).operator double(), real64)) << Printed(real64);
    EXPECT_TRUE(SameBits(Back(real32).operator float(), real32)) << Printed(real32);
  }
}

TEST(ScalarText, OtherNaNsStandAsTheirBits) {
  const auto odd = RealOf<double>(0xFFF8000000001234);
  EXPECT_EQ(Printed(odd), "fff8000000001234|bits");
  EXPECT_TRUE(SameBits(Back(odd).operator double(), odd));
  EXPECT_THAT(WhyMalformed(Type::kCIMTypeReal64, "3ff0000000000000", EForm::kBits),
              HasSubstr("are not the bits of a NaN"));
}

TEST(ScalarText, RealsAreNumbersAndThreeWords) {
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeReal64, " +2.5e0 "), "read as 2.5");
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeReal64, ".5"), "read as 0.5");
  for (const char* text :
       {"", ".", "inf", "infinity", "nan", "nan(1)", "0x1p3", "1,5", "--1", "+-1", "1e"})
    EXPECT_THAT(WhyMalformed(Type::kCIMTypeReal64, text), HasSubstr("is no real64")) << text;
  EXPECT_THAT(WhyMalformed(Type::kCIMTypeReal32, "1e39"), HasSubstr("is out of range for real32"));
}

TEST(ScalarText, CharactersOfEveryCodeComeBack) {
  for (unsigned int code = 0; code <= 0xFFFF; ++code) {
    const TCIMValue value(TCIMChar16(static_cast<unsigned short>(code)));
    EXPECT_EQ(Back(value).ToString(10), std::to_string(code));
  }
  EXPECT_EQ(Printed(TCIMChar16('A')), "A");
  EXPECT_EQ(Printed(TCIMChar16(0x20AC)), "\xE2\x82\xAC");
  EXPECT_EQ(Printed(TCIMChar16(0)), "\\u0000|escaped");
  EXPECT_EQ(Printed(TCIMChar16(0xD800)), "\\uD800|escaped");
}

TEST(ScalarText, CharactersAreSingleOnesOf16Bits) {
  for (const char* text : {"", "AB", " A", "\xF0\x9F\x98\x80"})
    EXPECT_THAT(WhyMalformed(Type::kCIMTypeChar16, text), HasSubstr("is no single character"));
  for (const char* text : {"", "\\u004", "\\u00411", "\\x0041", "\\u00G0", "\\u+041"})
    EXPECT_THAT(WhyMalformed(Type::kCIMTypeChar16, text, EForm::kEscaped), HasSubstr("is no"))
        << text;
}

TEST(ScalarText, ClearedCharactersAndDateTimesStayCleared) {
  const TCIMValue character(TCIMChar16("anything"s));
  EXPECT_EQ(Printed(character), "|cleared");
  EXPECT_THROW(Back(character).ToString(10), THWXException);
  TCIMDateTime moment(1, 2, 3, 4, 5);
  moment.Clear();
  EXPECT_EQ(Printed(moment), "|cleared");
  EXPECT_TRUE(Back(moment).operator TCIMDateTime().IsNull());
}

TEST(ScalarText, DateTimesStandInTheir25Characters) {
  EXPECT_EQ(Printed(TCIMDateTime(2007, 1, 2, 3, 4, 5, 6, 60)), "20070102030405.000006+060");
  EXPECT_EQ(Printed(TCIMDateTime(2007, 1, 2, 3, 4, 5, 6, -90)), "20070102030405.000006-090");
  EXPECT_EQ(Printed(TCIMDateTime(1, 2, 3, 4, 5)), "00000001020304.000005:000");
  ExpectComesBack(TCIMDateTime(2007, 1, 2, 3, 4, 5, 6, -90));
  ExpectComesBack(TCIMDateTime(65535, 23, 59, 59, 999999));
}

TEST(ScalarText, DateTimesThatDoNotFitStandAsTheirFields) {
  const TCIMValue interval(TCIMDateTime(65536, 2, 3, 4, 5));
  EXPECT_EQ(Printed(interval), "interval 65536 2 3 4 5|fields");
  EXPECT_EQ(Back(interval).operator TCIMDateTime().GetDay(), 65536u);
  const TCIMValue late(TCIMDateTime(12345, 1, 2, 3, 4, 5, 1000000, -1000));
  EXPECT_EQ(Printed(late), "timestamp 12345 1 2 3 4 5 1000000 -1000|fields");
  ExpectComesBack(late);
}

TEST(ScalarText, TheMarkOfPrecisionSurvives) {
  TCIMDateTime moment(2007, 1, 2, 3, 4, 5, 6, 60);
  moment.SetPrecision(true);
  EXPECT_EQ(Printed(moment), "timestamp 2007 1 2 3 4 5 6 60 precise|fields");
  EXPECT_TRUE(Back(moment).operator TCIMDateTime().GetPrecision());
}

TEST(ScalarText, DateTimesAreChecked) {
  for (const char* text : {"", "20070102030405.000006", "20070102030405.000006*060", "yesterday"})
    EXPECT_THAT(WhyMalformed(Type::kCIMTypeDateTime, text), HasSubstr("is no datetime")) << text;
  for (const char* text : {"", "precise", "interval", "interval 1 2 3 4", "interval 1 2 3 4 5 6",
                           "timestamp 1 2 3 4 5 6 7", "moment 1 2 3 4 5"}) {
    EXPECT_THAT(WhyMalformed(Type::kCIMTypeDateTime, text, EForm::kFields),
                HasSubstr("doesn't have the fields"))
        << text;
  }
  EXPECT_THAT(WhyMalformed(Type::kCIMTypeDateTime, "interval 1 24 0 0 0", EForm::kFields),
              HasSubstr("is no datetime"));
  EXPECT_THAT(WhyMalformed(Type::kCIMTypeDateTime, "interval 1 99999 0 0 0", EForm::kFields),
              HasSubstr("is out of range"));
}

TEST(ScalarText, TextsStayPlainUnlessXMLCannotCarryThem) {
  EXPECT_EQ(Printed("C:\\dir\\x41"), "C:\\dir\\x41");
  EXPECT_EQ(Printed("  blanks\n"), "  blanks\n");
  EXPECT_EQ(Printed("\x01\\"), "\\x01\\\\|escaped");
  for (const std::string& text : {""s, "plain"s, "\\x00"s, "\0"s, "\xFF\\"s})
    EXPECT_EQ(Back(text).operator std::string(), text);
  EXPECT_THAT(WhyMalformed(Type::kCIMTypeString, "\\n", EForm::kEscaped),
              HasSubstr("has a malformed escape"));
}

TEST(ScalarText, EachFormBelongsToItsTypes) {
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeUInt8, "1", EForm::kEscaped),
            "a uint8 has no form \"escaped\"");
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeString, "", EForm::kCleared),
            "a string has no form \"cleared\"");
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeReal32, "", EForm::kFields),
            "a real32 has no form \"fields\"");
  EXPECT_EQ(WhyMalformed(Type::kCIMTypeDateTime, "", EForm::kBits),
            "a datetime has no form \"bits\"");
}

// Digits grouped by threes, and a comma in reals.
class TOtherPunctuation : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(ScalarText, DoesNotDependOnTheLocale) {
  const std::locale before =
      std::locale::global(std::locale(std::locale::classic(), new TOtherPunctuation));
  EXPECT_EQ(Printed(1234567U), "1234567");
  EXPECT_EQ(Printed(1234.5), "1234.5");
  EXPECT_EQ(Printed(TCIMDateTime(12345, 2, 3, 4, 5)), "00012345020304.000005:000");
  EXPECT_EQ(Printed(TCIMChar16(0x20AC)), "\xE2\x82\xAC");
  ExpectComesBack(1234.5);
  std::locale::global(before);
}

TEST(ScalarText, MessagesShowTextsCutAndPrintable) {
  EXPECT_EQ(Quoted("a\nb\x01"), "\"a b\\x01\"");
  EXPECT_EQ(Quoted(std::string(50, 'x')), "\"" + std::string(40, 'x') + "...\"");
}

}  // namespace

}  // namespace hwxtest
