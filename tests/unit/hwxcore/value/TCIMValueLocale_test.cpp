// Numbers are printed and read as a stream made at that moment would, in whatever global locale.

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>

#include "support/StreamText.h"
#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FromText;
using hwxtest::IsSame;
using hwxtest::RandomNumberText;
using hwxtest::ScopedGlobalLocale;
using hwxtest::StreamedNumber;
using hwxtest::StreamedText;
using hwxtest::TCIMType;

/// Runs its tests where 1234567.5 is written 1.234.567,5.
class TCIMValueLocale : public testing::Test {
 private:
  ScopedGlobalLocale fLocale{',', '.', "\3"};
};

// `Wide` is what a stream prints as a number.
template <typename Wide, typename Number>
void ExpectUnsignedAsStreamed(Number number) {
  const TCIMValue value(number);
  EXPECT_EQ(value.ToString(10), StreamedText(static_cast<Wide>(number), 10, 0));
  EXPECT_EQ(value.ToString(8), StreamedText(static_cast<Wide>(number), 8, 0));
  EXPECT_EQ(value.ToString(16), StreamedText(static_cast<Wide>(number), 16, 2 * sizeof number));
}

template <typename Wide, typename Number>
void ExpectSignedAsStreamed(Number number) {
  EXPECT_EQ(TCIMValue(number).ToString(10), StreamedText(static_cast<Wide>(number), 10, 0));
}

TEST_F(TCIMValueLocale, NumbersOfEveryTypeAndBasePrintAsInAStream) {
  for (const unsigned long bits :
       {0ul, 1ul, 255ul, 999ul, 1000ul, 65535ul, 1234567ul, 4294967295ul, 18446744073709551615ul}) {
    ExpectUnsignedAsStreamed<unsigned int>(static_cast<unsigned char>(bits));
    ExpectUnsignedAsStreamed<unsigned int>(static_cast<unsigned short>(bits));
    ExpectUnsignedAsStreamed<unsigned int>(static_cast<unsigned int>(bits));
    ExpectUnsignedAsStreamed<unsigned long>(bits);
    ExpectSignedAsStreamed<int>(static_cast<signed char>(bits));
    ExpectSignedAsStreamed<int>(static_cast<short>(bits));
    ExpectSignedAsStreamed<int>(static_cast<int>(bits));
    ExpectSignedAsStreamed<long>(static_cast<long>(bits));
    ExpectSignedAsStreamed<double>(static_cast<float>(bits) / 8);
    ExpectSignedAsStreamed<double>(-static_cast<double>(bits) / 8);
  }
}

TEST_F(TCIMValueLocale, DigitsAreGroupedInEveryBase) {
  EXPECT_EQ(TCIMValue(1234567u).ToString(10), "1.234.567");
  EXPECT_EQ(TCIMValue(-1234567).ToString(10), "-1.234.567");
  EXPECT_EQ(TCIMValue(0.5).ToString(10), "0,5");
  EXPECT_EQ(TCIMValue(1234567ul).ToString(8), "4.553.207");
  EXPECT_EQ(TCIMValue(255u).ToString(16), "000000FF");
  EXPECT_EQ(TCIMValue(0xabcdeu).ToString(16), "00AB.CDE");
}

TEST_F(TCIMValueLocale, BooleansPrintAsTheSameTwoWords) {
  EXPECT_EQ(TCIMValue(true).ToString(10), "true");
  EXPECT_EQ(TCIMValue(false).ToString(16), "false");
}

TEST_F(TCIMValueLocale, BooleansReadTheLocalesWords) {
  EXPECT_TRUE(FromText(TCIMType::kCIMTypeBoolean, "wahr").operator bool());
  EXPECT_FALSE(FromText(TCIMType::kCIMTypeBoolean, "true").operator bool());
}

TEST_F(TCIMValueLocale, TextAndCharactersPrintAsEver) {
  EXPECT_EQ(TCIMValue("1234.5").ToString(10), "1234.5");
  EXPECT_EQ(TCIMValue(TCIMChar16(static_cast<unsigned short>(65535))).ToString(10), "65535");
}

TEST_F(TCIMValueLocale, NumbersReadWithTheLocalesPunctuation) {
  EXPECT_EQ(FromText(TCIMType::kCIMTypeUInt32, "1.234.567").operator unsigned int(), 1234567u);
  EXPECT_EQ(FromText(TCIMType::kCIMTypeReal64, "1.234,5").operator double(), 1234.5);
  EXPECT_EQ(FromText(TCIMType::kCIMTypeReal64, "0,5").operator double(), 0.5);
}

template <typename Number>
void ExpectReadAs(TCIMType type, const std::string& text, Number expected) {
  const Number number = FromText(type, text).operator Number();
  EXPECT_TRUE(IsSame(number, expected)) << type << " \"" << text << '"';
}

void ExpectValueReadAsStreamed(const std::string& text) {
  ExpectReadAs(TCIMType::kCIMTypeBoolean, text, StreamedNumber<bool>(text));
  ExpectReadAs(TCIMType::kCIMTypeUInt8, text,
               static_cast<unsigned char>(StreamedNumber<unsigned int>(text)));
  ExpectReadAs(TCIMType::kCIMTypeSInt8, text, static_cast<signed char>(StreamedNumber<int>(text)));
  ExpectReadAs(TCIMType::kCIMTypeUInt16, text, StreamedNumber<unsigned short>(text));
  ExpectReadAs(TCIMType::kCIMTypeSInt16, text, StreamedNumber<short>(text));
  ExpectReadAs(TCIMType::kCIMTypeUInt32, text, StreamedNumber<unsigned int>(text));
  ExpectReadAs(TCIMType::kCIMTypeSInt32, text, StreamedNumber<int>(text));
  ExpectReadAs(TCIMType::kCIMTypeUInt64, text, StreamedNumber<unsigned long>(text));
  ExpectReadAs(TCIMType::kCIMTypeSInt64, text, StreamedNumber<long>(text));
  ExpectReadAs(TCIMType::kCIMTypeReal32, text, StreamedNumber<float>(text));
  ExpectReadAs(TCIMType::kCIMTypeReal64, text, StreamedNumber<double>(text));
}

void ExpectRandomTextsReadAsStreamed() {
  std::mt19937_64 generator(3);
  for (int count = 0; count < 10000 && !testing::Test::HasFailure(); ++count)
    ExpectValueReadAsStreamed(RandomNumberText(generator));
}

TEST_F(TCIMValueLocale, AnyTextReadsAsInAStream) {
  ExpectRandomTextsReadAsStreamed();
}

TEST(TCIMValueClassicLocale, AnyTextReadsAsInAStream) {
  ExpectRandomTextsReadAsStreamed();
}

TEST(TCIMValueClassicLocale, AChangeOfTheLocaleIsNoticedAtOnce) {
  const TCIMValue value(1234567u);
  EXPECT_EQ(value.ToString(10), "1234567");
  {
    const ScopedGlobalLocale locale(',', '.', "\3");
    EXPECT_EQ(value.ToString(10), "1.234.567");
    {
      const ScopedGlobalLocale inner('.', ',', "\2");
      EXPECT_EQ(value.ToString(10), "1,23,45,67");
    }
    EXPECT_EQ(value.ToString(10), "1.234.567");
  }
  EXPECT_EQ(value.ToString(10), "1234567");
}

}  // namespace
}  // namespace NQORHWX20
