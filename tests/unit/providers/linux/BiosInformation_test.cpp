#include "providers/linux/BiosInformation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Machines.h"
#include "support/ScopedEnvironment.h"
#include "support/Structures.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

namespace {

using namespace linux_machine;
using ::testing::ElementsAre;
using ::testing::Optional;

class Bios : public ::testing::Test {
 protected:
  const TemporaryDirectory fDirectory;
  const ScopedEnvironment fTables{"HWX_SMBIOS_TABLES", std::nullopt};
};

TEST_F(Bios, TellsAllFields) {
  Bytes fields(0x12 - 4);
  PutField(fields, 0x04, 1, 1);
  PutField(fields, 0x05, 1, 2);
  PutField(fields, 0x06, 2, 0xE800);
  PutField(fields, 0x08, 1, 3);
  const TBios bios = ParseBios(MadeStructure(0, fields, {"EXMPL", "1.05", "03/01/2021"}).Get());
  EXPECT_EQ(bios.fManufacturer, "EXMPL");
  EXPECT_EQ(bios.fVersion, "1.05");
  EXPECT_EQ(bios.fReleaseDate.value().fYear, 2021);
  EXPECT_EQ(bios.fReleaseDate.value().fMonth, 3);
  EXPECT_EQ(bios.fReleaseDate.value().fDay, 1);
  EXPECT_EQ(bios.fStartingAddress, 0xE8000u);
  EXPECT_EQ(bios.fEndingAddress, 0xFFFFFu);
}

TEST_F(Bios, HasNothingOfAStructureWithoutFields) {
  const TBios bios = ParseBios(MadeStructure(0, {}, {"EXMPL"}).Get());
  EXPECT_FALSE(bios.fManufacturer);
  EXPECT_FALSE(bios.fReleaseDate);
  EXPECT_FALSE(bios.fStartingAddress);
}

TEST_F(Bios, TellsItsLanguages) {
  Bytes fields(0x16 - 4);
  PutField(fields, 0x04, 1, 2);
  PutField(fields, 0x15, 1, 2);
  TBios bios;
  ParseBiosLanguages(MadeStructure(13, fields, {"en|US", "fr|FR", "other"}).Get(), bios);
  EXPECT_THAT(bios.fLanguages, Optional(ElementsAre("en|US", "fr|FR")));
  EXPECT_EQ(bios.fCurrentLanguage, "fr|FR");
}

TEST_F(Bios, HasNoMoreLanguagesThanThereAreTexts) {
  Bytes fields(0x16 - 4, 0xFF);
  TBios bios;
  ParseBiosLanguages(MadeStructure(13, fields, {"en|US"}).Get(), bios);
  EXPECT_THAT(bios.fLanguages, Optional(ElementsAre("en|US")));
  EXPECT_FALSE(bios.fCurrentLanguage);
  TBios none;
  ParseBiosLanguages(MadeStructure(13, {}, {"en|US"}).Get(), none);
  EXPECT_FALSE(none.fLanguages);
}

TEST_F(Bios, IsReadFromTheTables) {
  MakeRackServer(fDirectory.Path());
  const auto found = ReadBios(fDirectory.Path());
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].fVersion, "-[EXE105A-1.05]-");
}

TEST_F(Bios, IsWhatTheKernelKnowsWhereThereAreNoTables) {
  EXPECT_TRUE(ReadBios(fDirectory.Path()).empty());
  WriteMachineFile(fDirectory.Path(), "sys/class/dmi/id/bios_date", "02/30/19999\n");
  EXPECT_TRUE(ReadBios(fDirectory.Path()).empty());
  WriteMachineFile(fDirectory.Path(), "sys/class/dmi/id/bios_version", "1.05\n");
  ASSERT_EQ(ReadBios(fDirectory.Path()).size(), 1u);
  EXPECT_EQ(ReadBios(fDirectory.Path())[0].fVersion, "1.05");
}

TEST_F(Bios, HasTheDatesThatFirmwareWrites) {
  EXPECT_EQ(ParseFirmwareDate("12/31/99").value().fYear, 1999);
  EXPECT_EQ(ParseFirmwareDate("12/31/80").value().fYear, 1980);
  EXPECT_EQ(ParseFirmwareDate("12/31/04").value().fYear, 2004);
  EXPECT_EQ(ParseFirmwareDate("12/31/2099").value().fYear, 2099);
  EXPECT_EQ(ParseFirmwareDate("3/1/2021").value().fMonth, 3);
  EXPECT_EQ(ParseFirmwareDate("3/1/2021").value().fDay, 1);
  EXPECT_EQ(ParseFirmwareDate(" 01/02/2021  ").value().fYear, 2021);
  for (const char* text :
       {"", "2021-03-01", "/1/2021", "003/1/2021", "13/01/2021", "01/01/021", "01/01/",
        "00/01/2021", "01/32/2021", "01/00/2021", "01/01/20x1", "01/01/+021", "  /  /    ",
        "01/01/2021.", "\xFF\xFF/\xFF\xFF/\xFF\xFF"}) {
    EXPECT_FALSE(ParseFirmwareDate(text)) << text;
  }
}

}  // namespace

}  // namespace hwxtest
