// The short cuts for numbers as text must not be told from the streams that they stand for.

#include "hwxcore/value/detail/NumberText.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "support/StreamText.h"

namespace NQORHWX20 {
namespace {

using hwxtest::IsSame;
using hwxtest::RandomNumberText;
using hwxtest::ScopedGlobalLocale;
using hwxtest::StreamedNumber;
using hwxtest::StreamedText;

using TGenerator = std::mt19937_64;

template <typename Number>
void ExpectReadNumberAsStreamed(const std::string& text) {
  const Number number = detail::ReadNumber<Number>(text);
  const Number streamed = StreamedNumber<Number>(text);
  EXPECT_TRUE(IsSame(number, streamed))
      << '"' << text << "\" gave " << number << " in place of " << streamed;
}

void ExpectReadAsStreamedByAllTypes(const std::string& text) {
  ExpectReadNumberAsStreamed<bool>(text);
  ExpectReadNumberAsStreamed<unsigned short>(text);
  ExpectReadNumberAsStreamed<short>(text);
  ExpectReadNumberAsStreamed<unsigned int>(text);
  ExpectReadNumberAsStreamed<int>(text);
  ExpectReadNumberAsStreamed<unsigned long>(text);
  ExpectReadNumberAsStreamed<long>(text);
  ExpectReadNumberAsStreamed<float>(text);
  ExpectReadNumberAsStreamed<double>(text);
}

// An integer of any length, so that short ones aren't rare.
template <typename Integer>
Integer RandomInteger(TGenerator& generator) {
  const auto bits = generator();
  return static_cast<Integer>(bits >> generator() % 64);
}

double RandomReal(TGenerator& generator) {
  const auto bits = generator();
  double real = 0;
  if (generator() % 2 == 0) {
    std::memcpy(&real, &bits, sizeof real);  // any exponent, infinities and NaNs too
  } else {
    real = static_cast<double>(static_cast<long>(bits) >> generator() % 64) / 1000;
  }
  return real;
}

template <typename Integer>
void ExpectIntegersAsStreamed(int count) {
  TGenerator generator(sizeof(Integer));
  const int bases[] = {8, 10, 16};
  while (count-- > 0) {
    const Integer integer = RandomInteger<Integer>(generator);
    const int base = std::is_signed_v<Integer> ? 10 : bases[generator() % 3];
    const int width = static_cast<int>(generator() % 24);
    ASSERT_EQ(detail::IntegerText(integer, static_cast<unsigned>(base),
                                  static_cast<std::size_t>(integer < 0 ? 0 : width)),
              StreamedText(integer, base, integer < 0 ? 0 : width));
  }
}

void ExpectRealsAsStreamed(int count) {
  TGenerator generator(11);
  while (count-- > 0) {
    const double real = RandomReal(generator);
    ASSERT_EQ(detail::RealText(real), StreamedText(real, 10, 0));
    const double narrow = static_cast<double>(static_cast<float>(real));
    ASSERT_EQ(detail::RealText(narrow), StreamedText(narrow, 10, 0));
  }
}

void ExpectTextsAsStreamed(int count) {
  TGenerator generator(9);
  while (count-- > 0) {
    ExpectReadAsStreamedByAllTypes(RandomNumberText(generator));
    if (testing::Test::HasFailure()) return;
  }
}

// Numbers as they are really printed, whole and cut.
void ExpectPrintedNumbersAsStreamed(int count) {
  TGenerator generator(5);
  while (count-- > 0) {
    std::string text = std::to_string(RandomInteger<long>(generator));
    if (generator() % 2 == 0) {
      char digits[64];
      std::snprintf(digits, sizeof digits, "%.*g", static_cast<int>(generator() % 20),
                    RandomReal(generator));
      text = digits;
    }
    if (generator() % 4 == 0) text.resize(generator() % (text.size() + 1));
    ExpectReadAsStreamedByAllTypes(text);
    if (testing::Test::HasFailure()) return;
  }
}

TEST(NumberText, TheClassicLocaleIsKnownFromOthers) {
  EXPECT_TRUE(detail::StreamsAreClassic());
  {
    const ScopedGlobalLocale german(',', '.', "\3");
    EXPECT_FALSE(detail::StreamsAreClassic());
  }
  EXPECT_TRUE(detail::StreamsAreClassic());
}

TEST(NumberText, IntegersPrintAsInStreams) {
  ExpectIntegersAsStreamed<unsigned short>(50000);
  ExpectIntegersAsStreamed<short>(50000);
  ExpectIntegersAsStreamed<unsigned int>(50000);
  ExpectIntegersAsStreamed<int>(50000);
  ExpectIntegersAsStreamed<unsigned long>(50000);
  ExpectIntegersAsStreamed<long>(50000);
}

TEST(NumberText, SingleBytesPrintAsNumbers) {
  for (int number = 0; number < 256; ++number) {
    const auto byte = static_cast<unsigned char>(number);
    EXPECT_EQ(detail::IntegerText(byte, 10, 0), StreamedText(number, 10, 0));
    EXPECT_EQ(detail::IntegerText(byte, 16, 2), StreamedText(number, 16, 2));
    EXPECT_EQ(detail::IntegerText(byte, 8, 0), StreamedText(number, 8, 0));
    const auto small = static_cast<signed char>(number - 128);
    EXPECT_EQ(detail::IntegerText(small, 10, 0), StreamedText(number - 128, 10, 0));
  }
}

TEST(NumberText, RealsPrintAsInStreams) {
  ExpectRealsAsStreamed(100000);
  const double edges[] = {0.0,      -0.0,     999999.5, 999999.4999, 0.0001, 0.00009999995,
                          123456.5, 123455.5, 1e6,      1e-5,        1e15,   1e22};
  for (const double real : edges)
    EXPECT_EQ(detail::RealText(real), StreamedText(real, 10, 0));
}

TEST(NumberText, RandomTextsReadAsInStreams) {
  ExpectTextsAsStreamed(50000);
}

TEST(NumberText, PrintedNumbersReadAsInStreams) {
  ExpectPrintedNumbersAsStreamed(30000);
}

TEST(NumberText, LimitsAndTheirNeighboursReadAsInStreams) {
  for (const char* text : {"32767",
                           "32768",
                           "-32768",
                           "-32769",
                           "65535",
                           "65536",
                           "2147483647",
                           "2147483648",
                           "-2147483648",
                           "-2147483649",
                           "4294967295",
                           "4294967296",
                           "9223372036854775807",
                           "9223372036854775808",
                           "-9223372036854775808",
                           "-9223372036854775809",
                           "18446744073709551615",
                           "18446744073709551616",
                           "1.7976931348623157e308",
                           "1.7976931348623159e308",
                           "3.4028235e38",
                           "3.4028236e38",
                           "4.9e-324",
                           "2e-324",
                           "1e-45",
                           "7e-46",
                           "2.2250738585072011e-308",
                           "1e400",
                           "-1e400",
                           "0e400",
                           "1e-400"}) {
    ExpectReadAsStreamedByAllTypes(text);
    ExpectReadAsStreamedByAllTypes(std::string(text) + "0");
    ExpectReadAsStreamedByAllTypes(std::string(text) + "x");
    ExpectReadAsStreamedByAllTypes(" " + std::string(text));
  }
  ExpectReadAsStreamedByAllTypes(std::string(5000, '9'));
  ExpectReadAsStreamedByAllTypes("0." + std::string(5000, '0') + "1");
  ExpectReadAsStreamedByAllTypes(
      std::string("12\0"
                  "34",
                  5));
}

TEST(NumberText, AllOfItHoldsInLocalesThatWriteNumbersDifferently) {
  const struct {
    char fPoint;
    char fSeparator;
    const char* fGrouping;
  } locales[] = {{',', '.', "\3"}, {',', ' ', ""}, {'.', ',', "\2\1"}, {'x', 'e', "\1"}};
  for (const auto& locale : locales) {
    const ScopedGlobalLocale scope(locale.fPoint, locale.fSeparator, locale.fGrouping);
    ExpectIntegersAsStreamed<unsigned long>(3000);
    ExpectIntegersAsStreamed<long>(3000);
    ExpectIntegersAsStreamed<unsigned short>(3000);
    ExpectRealsAsStreamed(3000);
    ExpectTextsAsStreamed(5000);
    ExpectPrintedNumbersAsStreamed(3000);
  }
}

}  // namespace
}  // namespace NQORHWX20
