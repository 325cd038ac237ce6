#include "hwx/text/Units.h"

#include <gtest/gtest.h>

namespace hwx {
namespace {

std::string Amount(long double number, const char* unit) {
  const auto parsed = ParseUnit(unit);
  return parsed ? AmountText(number, *parsed) : "unknown";
}

TEST(AmountText, HasTheBinaryPrefixThatSuitsBytes) {
  EXPECT_EQ(Amount(0, "Bytes"), "0 B");
  EXPECT_EQ(Amount(512, "Bytes"), "512 B");
  EXPECT_EQ(Amount(1023, "Bytes"), "1023 B");
  EXPECT_EQ(Amount(1024, "Bytes"), "1 KiB");
  EXPECT_EQ(Amount(17179869184, "Bytes"), "16 GiB");
  EXPECT_EQ(Amount(77570568192, "Bytes"), "72.2 GiB");
  EXPECT_EQ(Amount(18446744073709551615.0L, "Bytes"), "16 EiB");
}

TEST(AmountText, RoundsNoFewBytes) {
  EXPECT_EQ(Amount(1500, "Bytes"), "1500 B");
  EXPECT_EQ(Amount(1536, "Bytes"), "1.5 KiB");
  EXPECT_EQ(Amount(1048577, "Bytes"), "1 MiB");
}

TEST(AmountText, TakesOldKilobytesForKibibytesAndProgrammaticOnesForThousands) {
  EXPECT_EQ(Amount(4, "KiloBytes"), "4 KiB");
  EXPECT_EQ(Amount(1000, "byte * 2^10"), "1000 KiB");
  EXPECT_EQ(Amount(1024, "byte * 10^3"), "1000 KiB");
}

TEST(AmountText, HasDecimalPrefixesElsewhereAndRoundsNothing) {
  EXPECT_EQ(Amount(3200, "MegaHertz"), "3.2 GHz");
  EXPECT_EQ(Amount(2666, "MegaHertz"), "2666 MHz");
  EXPECT_EQ(Amount(100, "hertz * 10^6"), "100 MHz");
  EXPECT_EQ(Amount(2500000000, "Bits per Second"), "2.5 Gbit/s");
  EXPECT_EQ(Amount(1000, "bit / second * 10^6"), "1 Gbit/s");
  EXPECT_EQ(Amount(64, "Bits"), "64 bit");
  EXPECT_EQ(Amount(12, "volt * 10^-1"), "1.2 V");
}

TEST(AmountText, HasNoPrefixForOtherUnits) {
  EXPECT_EQ(Amount(-120, "Minutes"), "-120 min");
  EXPECT_EQ(Amount(2.5L, "Inches"), "2.5 in");
  EXPECT_EQ(Amount(4200, "revolution / minute"), "4200 rpm");
}

TEST(ParseUnit, KnowsNoOtherTexts) {
  for (const char* text : {"", "*", "furlongs", "byte *", "byte * x", "byte * 10^", "byte * 0^3",
                           "byte * 10^1000000", "10^3", "byte * 10^3^3"})
    EXPECT_FALSE(ParseUnit(text)) << text;
}

TEST(ParseSymbol, KnowsPrefixesInAnyCase) {
  EXPECT_EQ(ParseSymbol("GiB")->fFactor, 1073741824.0L);
  EXPECT_EQ(ParseSymbol("gb")->fFactor, 1e9L);
  EXPECT_EQ(ParseSymbol("kbit/s")->fFactor, 1e3L);
  EXPECT_EQ(ParseSymbol("MHz")->fSymbol, "Hz");
  EXPECT_EQ(ParseSymbol("b")->fSymbol, "B");
  EXPECT_EQ(ParseSymbol("rpm")->fFactor, 1);
  for (const char* text : {"", "x", "kmin", "GiBB", "i"})
    EXPECT_FALSE(ParseSymbol(text)) << text;
}

}  // namespace
}  // namespace hwx
