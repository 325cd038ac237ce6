#include "hwxidentity/SerialNumberCheck.h"

#include <gtest/gtest.h>

#include "support/TurkishLocale.h"

using hwxidentity::CheckedSerialNumber;

namespace {

TEST(CheckedSerialNumber, TrimsWhiteSpaceOfAllKinds) {
  EXPECT_EQ(CheckedSerialNumber("06DXM9"), "06DXM9");
  EXPECT_EQ(CheckedSerialNumber(" \t\n\v\f\r06DXM9 \t\n\v\f\r"), "06DXM9");
  EXPECT_EQ(CheckedSerialNumber("06 DX M9"), "06 DX M9");
}

TEST(CheckedSerialNumber, RefusesWhatIsEmpty) {
  EXPECT_EQ(CheckedSerialNumber(""), std::nullopt);
  EXPECT_EQ(CheckedSerialNumber(" \t "), std::nullopt);
}

TEST(CheckedSerialNumber, RefusesOneCharacterRepeated) {
  for (const char* const text : {"0", "0000000", "........", "XXXX", "-", " ---- "}) {
    EXPECT_EQ(CheckedSerialNumber(text), std::nullopt) << text;
  }
  EXPECT_EQ(CheckedSerialNumber("0000001"), "0000001");
  EXPECT_EQ(CheckedSerialNumber("Aa"), "Aa");
}

TEST(CheckedSerialNumber, RefusesThePhrasesOfMakersInAnyCase) {
  for (const char* const text : {"To Be Filled By O.E.M.",
                                 "to be filled by oem",
                                 "Default string",
                                 "System Serial Number",
                                 "Chassis Serial Number",
                                 "Serial Number",
                                 "Not Specified",
                                 "NOT AVAILABLE",
                                 "Not Applicable",
                                 "Not Provided",
                                 "N/A",
                                 "None",
                                 "NULL",
                                 "Empty",
                                 "Unknown",
                                 "INVALID",
                                 "OEM",
                                 "O.E.M.",
                                 "0123456789",
                                 "123456789",
                                 "1234567890",
                                 "  none\n"}) {
    EXPECT_EQ(CheckedSerialNumber(text), std::nullopt) << text;
  }
}

TEST(CheckedSerialNumber, RefusesThePhrasesWhateverTheLocale) {
  const hwxtest::TurkishLocale turkish;
  if (!turkish.IsThere()) GTEST_SKIP() << "no Turkish locale can be made";
  for (const char* const text : {"INVALID", "DEFAULT STRING", "CHASSIS SERIAL NUMBER"})
    EXPECT_EQ(CheckedSerialNumber(text), std::nullopt) << text;
}

TEST(CheckedSerialNumber, TakesWhatOnlyHoldsSuchAPhrase) {
  for (const char* const text : {"None1", "XNULL", "01234567890", "OEM-4711"}) {
    EXPECT_EQ(CheckedSerialNumber(text), text);
  }
}

TEST(CheckedSerialNumber, TakesBytesThatAreNoCharacters) {
  EXPECT_EQ(CheckedSerialNumber("\xFF\x80\xE4"), "\xFF\x80\xE4");
}

}  // namespace
