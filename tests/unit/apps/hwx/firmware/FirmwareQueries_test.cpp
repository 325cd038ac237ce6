#include "hwx/firmware/FirmwareQueries.h"

#include <cstdlib>
#include <utility>
#include <vector>

#include "support/FirmwareFixture.h"
#include "support/Machines.h"
#include "unit/apps/hwx/identity/ReasonOf.h"

namespace hwx {
namespace {

using hwxtest::Bytes;
using hwxtest::ReasonOf;
using hwxtest::SmbiosTables;

class FirmwareQueries : public hwxtest::FirmwareFixture {
 protected:
  void UseBoth(const std::string& version, const std::string& productName) {
    Use(SmbiosTables()
            .AddBios("Maker", version, "01/02/2020")
            .AddSystem({"Maker", productName, "v1", "SN1"})
            .AddEnd());
  }
};

TEST_F(FirmwareQueries, TellTheTypeOfAKnownBiosIdentifier) {
  UseBios("[A3E105A-1.05]");
  const TBiosIdentity bios = AskBios();
  EXPECT_EQ(bios.fBiosID.fValue, "A3");
  EXPECT_EQ(bios.fTypeByTable.fValue, "7141");
  EXPECT_EQ(bios.fMachineTypeFromID.fValue, "7141");
}

TEST_F(FirmwareQueries, FallBackOnTheProductNameForAnUnknownBiosIdentifier) {
  UseBios("[ZZE105A-1.05]");
  const TBiosIdentity bios = AskBios();
  EXPECT_EQ(bios.fBiosID.fValue, "ZZ");
  EXPECT_EQ(ReasonOf(bios.fTypeByTable), "no machine type is known for \"ZZ\"");
  EXPECT_EQ(bios.fMachineTypeFromID.fValue, "7915");
}

TEST_F(FirmwareQueries, TellThatNeitherSourceHasAType) {
  UseBoth("[ZZ-1.05]", "Box 5");
  EXPECT_EQ(ReasonOf(AskBios().fMachineTypeFromID),
            "neither the BIOS identifier nor the product name tells one");
}

TEST_F(FirmwareQueries, TellAVersionWithoutAnIdentifier) {
  UseBios("[Z]");
  EXPECT_EQ(ReasonOf(AskBios().fBiosID), "no BIOS identifier in \"[Z]\"");
  UseBios("-1.05");
  EXPECT_EQ(ReasonOf(AskBios().fBiosID),
            "no BIOS identifier in \"-1.05\", which breaks off behind its dash");
  EXPECT_EQ(AskBios().fMachineTypeFromID.fValue, "7915");
}

TEST_F(FirmwareQueries, TellAnAbsentVersionAndAnAbsentStructure) {
  UseBios("");
  EXPECT_EQ(ReasonOf(AskBios().fBiosID), "the firmware tables hold no BIOS version");
  Use(SmbiosTables().AddEnd());
  EXPECT_EQ(ReasonOf(AskBios().fBiosID), "the firmware tables have no structure of type 0");
  EXPECT_EQ(ReasonOf(AskSystem().fProductName), "the firmware tables have no structure of type 1");
  EXPECT_EQ(ReasonOf(AskSystem().fMachineType), "the firmware tables have no structure of type 1");
}

TEST_F(FirmwareQueries, TellWhatTheSystemInformationHolds) {
  UseProduct("Box -[7915AC1]-", " SN1 ");
  const TSystemIdentity system = AskSystem();
  EXPECT_EQ(system.fMachineType.fValue, "7915");
  EXPECT_EQ(system.fModel.fValue, "AC1");
  EXPECT_EQ(system.fProductName.fValue, "Box -[7915AC1]-");
  EXPECT_EQ(system.fSerialNumber.fValue, " SN1 ");
}

TEST_F(FirmwareQueries, TellAProductNameWithoutATypeAndAModel) {
  UseProduct("7915AC1");
  EXPECT_EQ(AskSystem().fMachineType.fValue, "7915");
  EXPECT_EQ(ReasonOf(AskSystem().fModel), "no model in \"7915AC1\"");
  UseProduct("Box 5", "");
  EXPECT_EQ(ReasonOf(AskSystem().fMachineType), "no machine type in \"Box 5\"");
  EXPECT_EQ(ReasonOf(AskSystem().fSerialNumber), "the firmware tables hold no serial number");
}

TEST_F(FirmwareQueries, TellAGuessFromAFact) {
  UseProduct("XX-A7816");
  EXPECT_EQ(AskSystem().fMachineType.fValue, "7816");
  EXPECT_TRUE(AskSystem().fMachineType.fIsGuess);
  EXPECT_TRUE(AskBios().fMachineTypeFromID.fIsGuess);
  UseProduct("Box -[7915AC1]-");
  EXPECT_FALSE(AskSystem().fMachineType.fIsGuess);
  EXPECT_FALSE(AskSystem().fModel.fIsGuess);
  EXPECT_FALSE(AskBios().fMachineTypeFromID.fIsGuess);
  UseBios("[A3E105A-1.05]");
  EXPECT_FALSE(AskBios().fTypeByTable.fIsGuess);
  UseBios("A3E105A");
  EXPECT_TRUE(AskBios().fTypeByTable.fIsGuess);
  EXPECT_EQ(AskBios().fMachineTypeFromID.fValue, "7141");
  EXPECT_TRUE(AskBios().fMachineTypeFromID.fIsGuess);
}

TEST_F(FirmwareQueries, TellWhatIsNoMachineTypeByBios) {
  for (const auto& [name, text] : std::vector<std::pair<std::string, std::string>>{
           {"XX-7816", "816"}, {"Q9AB-3F/Q9AB-iF", "F/Q9"}, {"Box-5", ""}}) {
    UseProduct(name);
    EXPECT_EQ(
        ReasonOf(AskBios().fMachineTypeFromID),
        "\"" + text + "\" in \"" + name + "\" is no machine type: not four letters or digits");
  }
}

// Where the library alone would refuse the tables.
TEST_F(FirmwareQueries, TellWhatStandsInFrontOfADamage) {
  const Bytes damage(6, 0);
  Use(SmbiosTables().AddBios("Maker", "[A3E105A-1.05]", "").AddRaw(damage).AddSystem({"Maker"}));
  EXPECT_EQ(AskBios().fBiosID.fValue, "A3");
  EXPECT_EQ(AskBios().fMachineTypeFromID.fValue, "7141");
  EXPECT_EQ(ReasonOf(AskSystem().fProductName).rfind("malformed: " + fDump + ": structure 1 ", 0),
            0u);
  Use(SmbiosTables().AddSystem({"Maker", "Box -[7915AC1]-", "", "SN1"}).AddRaw(damage));
  EXPECT_EQ(AskSystem().fMachineType.fValue, "7915");
  EXPECT_EQ(AskSystem().fSerialNumber.fValue, "SN1");
  EXPECT_EQ(ReasonOf(AskBios().fBiosID).rfind("malformed: ", 0), 0u);
  EXPECT_EQ(std::getenv("HWX_SMBIOS_TABLES"), fDump);
}

TEST_F(FirmwareQueries, TellWhyThereAreNoTables) {
  const std::string reason = "no firmware tables: " + fDump + " is absent";
  EXPECT_EQ(ReasonOf(AskBios().fBiosID), reason);
  EXPECT_EQ(ReasonOf(AskBios().fTypeByTable), reason);
  EXPECT_EQ(ReasonOf(AskBios().fMachineTypeFromID), reason);
  EXPECT_EQ(ReasonOf(AskSystem().fSerialNumber), reason);
}

TEST_F(FirmwareQueries, ReadTheMachineBelowTheSystemRoot) {
  fVariable.Set(std::nullopt);
  const hwxtest::ScopedEnvironment root("HWX_SYSROOT",
                                        hwxtest::MakeRackServer(fDirectory.Path()) + "/");
  EXPECT_EQ(AskBios().fBiosID.fValue, "EX");
  EXPECT_EQ(AskBios().fMachineTypeFromID.fValue, "7915");
  EXPECT_EQ(AskSystem().fSerialNumber.fValue, "KQ12345");
  EXPECT_EQ(std::getenv("HWX_SMBIOS_TABLES"), nullptr);
}

}  // namespace
}  // namespace hwx
