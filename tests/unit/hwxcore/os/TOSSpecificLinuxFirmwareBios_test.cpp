// The BIOS's build and the machine type that a table gives for it, from made tables.

#include <gmock/gmock.h>

#include "hwxcore/os/TOSSpecific.h"
#include "support/FakeSmBios.h"
#include "support/FirmwareFixture.h"
#include "support/ScopedLogCapture.h"
#include "support/TextOf.h"

namespace NQORHWX20 {
namespace {

using hwxtest::Bytes;
using hwxtest::FakeSmBios;
using hwxtest::ScopedLogCapture;
using hwxtest::SmbiosTables;
using hwxtest::TextOf;
using ::testing::ElementsAre;
using ::testing::Pair;

class BiosFixture : public hwxtest::FirmwareFixture {
 protected:
  // A structure of type 0 with this length of its formatted area, whose version has this number.
  void UseStrings(std::size_t length, std::uint8_t number,
                  const std::vector<std::string>& strings) {
    Bytes fields(length - 4);
    fields.at(1) = number;
    Use(SmbiosTables().Add(0, fields, strings).AddSystem({"Maker", "7915AC1"}).AddEnd());
  }

  std::string BiosIDOf(const std::string& version) {
    UseBios(version);
    return TOSSpecific::GetBiosID();
  }

  std::string TypeOf(const std::string& version) {
    UseBios(version);
    return TOSSpecific::GetMachineTypeFromID();
  }

  // The line that tells the build, and the last one.
  std::vector<std::string> LinesOf(const std::string& version) {
    UseBios(version);
    const ScopedLogCapture log;
    TOSSpecific::GetMachineTypeFromID();
    const auto lines = log.Lines();
    if (lines.size() < 2) return {};
    return {lines[lines.size() - 2].second, lines.back().second};
  }
};

class GetBiosID : public BiosFixture {};
class GetMachineTypeFromID : public BiosFixture {};

TEST_F(GetBiosID, IsTheFrontOfTheBuildInBrackets) {
  EXPECT_EQ(BiosIDOf("[AB12-1.05]"), "AB");
  EXPECT_EQ(BiosIDOf("-[EXE105A-1.05]-"), "EX");
}

TEST_F(GetBiosID, IsTheSameWithADashWithinTheBuild) {
  EXPECT_EQ(BiosIDOf("[AB-12-1.05]"), "AB");
}

TEST_F(GetBiosID, IsTheFrontOfAVersionWithoutBracketsAndDash) {
  EXPECT_EQ(BiosIDOf("1.05 beta"), "1.");
  EXPECT_EQ(BiosIDOf("AB"), "AB");
}

TEST_F(GetBiosID, KeepsTheCase) {
  EXPECT_EQ(BiosIDOf("[aB12-1.05]"), "aB");
  EXPECT_EQ(BiosIDOf("[VVE105A-1.05]"), "VV");
}

TEST_F(GetBiosID, MayHoldADash) {
  EXPECT_EQ(BiosIDOf("A-1-2"), "A-");
  EXPECT_EQ(BiosIDOf("-A-2"), "-A");
}

TEST_F(GetBiosID, IsUnknownForAVersionOfUpToOneCharacter) {
  EXPECT_EQ(BiosIDOf(""), "00");
  EXPECT_EQ(BiosIDOf("A"), "00");
  EXPECT_EQ(BiosIDOf("-"), "00");
  EXPECT_EQ(BiosIDOf("-[A]-"), "00");
  EXPECT_EQ(BiosIDOf("[]"), "00");
}

TEST_F(GetBiosID, EndsInAnErrorForABuildOfUpToOneCharacterInALongerVersion) {
  for (const char* version : {"-1.05", "A-1.05", "--", "[-1]", "A-"}) {
    UseBios(version);
    EXPECT_EQ(TextOf<std::out_of_range>(&TOSSpecific::GetBiosID), "basic_string::erase") << version;
  }
}

TEST_F(GetBiosID, IsUnknownWithoutATypeZeroStructure) {
  Use(SmbiosTables().AddSystem({"Maker", "7915AC1"}).AddEnd());
  EXPECT_EQ(TOSSpecific::GetBiosID(), "00");
}

TEST_F(GetBiosID, IsUnknownWhenTheNumberIsZeroOrPastTheStrings) {
  for (const std::uint8_t number : Bytes{0, 3, 255}) {
    UseStrings(24, number, {"Maker", "AB12"});
    EXPECT_EQ(TOSSpecific::GetBiosID(), "00") << int{number};
  }
}

TEST_F(GetBiosID, IsFoundInAnyString) {
  UseStrings(24, 1, {"AB12", "x"});
  EXPECT_EQ(TOSSpecific::GetBiosID(), "AB");
  UseStrings(24, 3, {"x", "y", "CD12"});
  EXPECT_EQ(TOSSpecific::GetBiosID(), "CD");
}

TEST_F(GetBiosID, IsFoundBehindAFormattedAreaOfAnyLength) {
  for (const std::size_t length : {6, 18, 24, 255}) {
    UseStrings(length, 2, {"Maker", "AB12"});
    EXPECT_EQ(TOSSpecific::GetBiosID(), "AB") << length;
  }
}

TEST_F(GetBiosID, IsFoundWhenTheVersionEndsInTheHundredthByte) {
  UseStrings(24, 1, {"AB" + std::string(97, 'x')});
  EXPECT_EQ(TOSSpecific::GetBiosID(), "AB");
  UseStrings(24, 2, {std::string(94, 'm'), "AB12"});
  EXPECT_EQ(TOSSpecific::GetBiosID(), "AB");
}

TEST_F(GetBiosID, IsUnknownWhenTheVersionEndsBehindTheHundredthByte) {
  UseStrings(24, 1, {"AB" + std::string(98, 'x')});
  EXPECT_EQ(TOSSpecific::GetBiosID(), "00");
  UseStrings(24, 2, {std::string(95, 'm'), "AB12"});
  EXPECT_EQ(TOSSpecific::GetBiosID(), "00");
}

TEST_F(GetBiosID, IsReadFromAStructureThatFillsTheBuffer) {
  UseStrings(24, 1, {"AB12", std::string(4096 - 24 - 5 - 1 - 2, 'x')});
  EXPECT_EQ(TOSSpecific::GetBiosID(), "AB");
}

TEST_F(GetBiosID, IsUnknownInAStructureThatIsLargerThanTheBuffer) {
  UseStrings(24, 1, {"AB12", std::string(4096 - 24 - 5 - 1 - 2 + 1, 'x')});
  EXPECT_EQ(TOSSpecific::GetBiosID(), "00");
  UseStrings(24, 1, {"AB12", std::string(0xFF00, 'x')});
  EXPECT_EQ(TOSSpecific::GetBiosID(), "00");
}

TEST_F(GetBiosID, TakesTheNumberFromTheStringsOfAShortStructure) {
  Use(SmbiosTables().Add(0, {}, {"x\002", "AB12"}).AddEnd());
  EXPECT_EQ(TOSSpecific::GetBiosID(), "AB");
}

TEST_F(GetBiosID, LogsWhatItDoesInOrder) {
  UseBios("[AB12-1.05]");
  FakeSmBios smBios;
  const ScopedLogCapture log;
  TOSSpecific::GetBiosID();
  EXPECT_THAT(
      log.Lines(),
      ElementsAre(Pair("Debug", "(load)"),
                  Pair("Debug", "TOSSpecific::GetBiosID - Retrieving first SMBIOS structure"),
                  Pair("Debug", "(read type 0 into 4096 bytes)"),
                  Pair("Debug", "TOSSpecific::GetBiosID - biosID = AB"), Pair("Debug", "(close)")));
}

TEST_F(GetBiosID, LogsNoIdentifierWhereThereIsNone) {
  UseBios("A");
  const ScopedLogCapture log;
  TOSSpecific::GetBiosID();
  EXPECT_THAT(
      log.Lines(),
      ElementsAre(Pair("Debug", "TOSSpecific::GetBiosID - Retrieving first SMBIOS structure")));
}

TEST_F(GetMachineTypeFromID, IsThatOfTheBuildsCode) {
  const struct {
    const char* fCode;
    const char* fType;
  } kBuilds[] = {{"a3", "7141"}, {"k3", "4192"}, {"gu", "4367"}, {"m9", "4190"}, {"p9", "1936"},
                 {"d6", "4199"}, {"y4", "7836"}, {"tm", "7321"}, {"gy", "7327"}, {"g0", "7145"},
                 {"hi", "7872"}, {"hs", "7376"}, {"ml", "7148"}, {"j2", "4253"}, {"ay", "7164"},
                 {"ko", "8722"}, {"vv", "7915"}, {"a8", "3837"}};
  for (const auto& build : kBuilds)
    EXPECT_EQ(TypeOf(std::string("[") + build.fCode + "E105A-1.05]"), build.fType) << build.fCode;
}

TEST_F(GetMachineTypeFromID, MatchesABuildInUpperCase) {
  EXPECT_EQ(TypeOf("-[Y4E105A-1.05]-"), "7836");
  EXPECT_EQ(TypeOf("-[GyE105A-1.05]-"), "7327");
}

TEST_F(GetMachineTypeFromID, IsTheSameWithADashWithinTheBuild) {
  EXPECT_EQ(TypeOf("[Y4-12-1.05]"), "7836");
  EXPECT_THAT(LinesOf("[AB-12-1.05]"),
              ElementsAre("TOSSpecific::GetMachineTypeFromID - buildNumber is ab",
                          "Get machineType from Bios ID().\nmachineType=7915\tBios ID =ab"));
}

TEST_F(GetMachineTypeFromID, IsThatOfTheProductNameForAnotherBuild) {
  for (const char* version : {"[AB12-1.05]", "[3A12-1.05]", "[xy4-1.05]", "1.05"})
    EXPECT_EQ(TypeOf(version), "7915") << version;
}

TEST_F(GetMachineTypeFromID, IsThatOfTheProductNameForABuildThatIsTooShort) {
  for (const char* version : {"", "y", "-y4", "y-4", "[]", "-"})
    EXPECT_EQ(TypeOf(version), "7915") << version;
}

TEST_F(GetMachineTypeFromID, IsThatOfTheProductNameWithoutAVersion) {
  UseStrings(24, 0, {"Maker", "Y4"});
  EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7915");
  UseStrings(24, 9, {"Maker", "Y4"});
  EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7915");
}

TEST_F(GetMachineTypeFromID, IsFoundWithoutAProductName) {
  Use(SmbiosTables().AddBios("Maker", "[Y412-1]", "").AddEnd());
  EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "7836");
}

TEST_F(GetMachineTypeFromID, IsUnknownInBothSources) {
  Use(SmbiosTables().AddBios("Maker", "[AB12-1]", "").AddSystem({"Maker", "Box"}).AddEnd());
  EXPECT_EQ(TOSSpecific::GetMachineTypeFromID(), "0000");
}

TEST_F(GetMachineTypeFromID, PassesOnTheErrorOfTheProductName) {
  Use(SmbiosTables().AddBios("Maker", "[Y412-1]", "").AddSystem({"Maker", "Box -"}).AddEnd());
  FakeSmBios smBios;
  EXPECT_EQ(TextOf<std::out_of_range>(&TOSSpecific::GetMachineTypeFromID), "basic_string::substr");
  smBios.ReleaseLeftBehind();
}

TEST_F(GetMachineTypeFromID, LogsWhatItDoesInOrder) {
  UseBios("[Y412-1.05]");
  FakeSmBios smBios;
  const ScopedLogCapture log;
  TOSSpecific::GetMachineTypeFromID();
  EXPECT_THAT(
      log.Lines(),
      ElementsAre(
          Pair("Debug", "getMachineType() entered."), Pair("Debug", "(load)"),
          Pair("Debug", "(read type 1 into 1024 bytes)"),
          Pair("Debug", "Machine type detected: 7915"), Pair("Debug", "(close)"),
          Pair("Debug", "getMachineType() completed."), Pair("Debug", "(load)"),
          Pair("Debug", "TOSSpecific::GetMachineTypeFromID - Retrieving first SMBIOS structure"),
          Pair("Debug", "(read type 0 into 4096 bytes)"),
          Pair("Debug", "TOSSpecific::GetMachineTypeFromID - buildNumber is y4"),
          Pair("Debug", "Get machineType from Bios ID().\nmachineType=7836\tBios ID =y4"),
          Pair("Debug", "(close)")));
}

TEST_F(GetMachineTypeFromID, LogsTheSameWordsWithoutAMatch) {
  EXPECT_THAT(LinesOf("[AB12-1.05]"),
              ElementsAre("TOSSpecific::GetMachineTypeFromID - buildNumber is ab",
                          "Get machineType from Bios ID().\nmachineType=7915\tBios ID =ab"));
}

TEST_F(GetMachineTypeFromID, LogsAnEmptyBuild) {
  for (const char* version : {"", "-1.05", "A-1.05"}) {
    EXPECT_THAT(LinesOf(version),
                ElementsAre("TOSSpecific::GetMachineTypeFromID - buildNumber is ",
                            "Get machineType from Bios ID().\nmachineType=7915\tBios ID ="))
        << version;
  }
}

}  // namespace
}  // namespace NQORHWX20
