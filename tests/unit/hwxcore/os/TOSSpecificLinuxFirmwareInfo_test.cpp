// The fields of the system's structure, from made tables.

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

using TFields = std::vector<std::string>;

class GetMachineInfo : public hwxtest::FirmwareFixture {
 protected:
  // All four: type, name, model, serial number.
  static TFields Fields() {
    TFields fields;
    for (const char* field : {"type", "name", "model", "SN"})
      fields.push_back(TOSSpecific::GetMachineInfo(field));
    return fields;
  }

  TFields FieldsOf(const std::string& productName) {
    UseProduct(productName, "SN1");
    return Fields();
  }

  TFields FieldsOf(const Bytes& fields, const std::vector<std::string>& strings) {
    Use(SmbiosTables().Add(1, fields, strings).AddEnd());
    return Fields();
  }

  // The text of the out-of-range error that asking for any field ends in.
  static std::string Error() {
    FakeSmBios smBios;
    const std::string text = TextOf<std::out_of_range>([] { TOSSpecific::GetMachineInfo("type"); });
    EXPECT_FALSE(smBios.IsClosed());
    smBios.ReleaseLeftBehind();
    return text;
  }
};

TEST_F(GetMachineInfo, TakesTheProductNameApart) {
  EXPECT_EQ(FieldsOf("Rack Server 3650 -[7915AC1]-"),
            (TFields{"7915", "Rack Server 3650 ", "AC1", "SN1"}));
}

TEST_F(GetMachineInfo, CutsTheModelWhereTheNameEnds) {
  EXPECT_EQ(FieldsOf("Box -[7915A"), (TFields{"7915", "Box ", "A", "SN1"}));
  EXPECT_EQ(FieldsOf("Box -[7915"), (TFields{"7915", "Box ", "", "SN1"}));
}

TEST_F(GetMachineInfo, EndsInAnErrorWhenTheNameEndsBeforeTheModel) {
  for (const char* name : {"Box -[791", "Box -[", "Box -x", "Box -"}) {
    UseProduct(name);
    EXPECT_EQ(Error(), "basic_string::substr") << name;
  }
}

TEST_F(GetMachineInfo, LeavesANameThatEndsBeforeTheModelToTheType) {
  UseProduct("Box -[791");
  EXPECT_EQ(TOSSpecific::GetMachineType(), "791");
}

TEST_F(GetMachineInfo, HasAnEmptyNameBeforeADashAtTheFront) {
  EXPECT_EQ(FieldsOf("-[7915AC1]-"), (TFields{"7915", "", "AC1", "SN1"}));
}

TEST_F(GetMachineInfo, TakesTheTypeAloneFromANameOfSevenCharacters) {
  EXPECT_EQ(FieldsOf("7915AC1"), (TFields{"7915", "Unknown", "Unknown", "SN1"}));
}

TEST_F(GetMachineInfo, TakesTheSerialNumberBesideANameOfNoForm) {
  for (const char* name : {"7915AC", "7915AC1X", "Virtual Machine 9"})
    EXPECT_EQ(FieldsOf(name), (TFields{"0000", "Unknown", "Unknown", "SN1"})) << name;
}

TEST_F(GetMachineInfo, HasNoSerialNumberWithoutAProductName) {
  EXPECT_EQ(FieldsOf(""), (TFields{"0000", "Unknown", "Unknown", "Unknown"}));
  EXPECT_EQ(FieldsOf({1, 9, 0, 2}, {"Maker", "SN1"}),
            (TFields{"0000", "Unknown", "Unknown", "Unknown"}));
}

TEST_F(GetMachineInfo, HasNoSerialNumberOfNumberZero) {
  UseProduct("Box -[7915AC1]-", "");
  EXPECT_EQ(Fields(), (TFields{"7915", "Box ", "AC1", "Unknown"}));
}

TEST_F(GetMachineInfo, HandsOutTheSerialNumberAsItStands) {
  for (const char* serialNumber : {"  ", "To Be Filled By O.E.M.", "000000", "S-N [1]\xff"}) {
    UseProduct("7915AC1", serialNumber);
    EXPECT_EQ(TOSSpecific::GetMachineSN(), serialNumber);
  }
}

TEST_F(GetMachineInfo, FindsASerialNumberInTheLastString) {
  EXPECT_EQ(FieldsOf({1, 2, 0, 3}, {"Maker", "7915AC1", "SN1"}),
            (TFields{"7915", "Unknown", "Unknown", "SN1"}));
}

TEST_F(GetMachineInfo, EndsInAnErrorWhenTheSerialNumbersNumberLiesPastTheStrings) {
  for (const std::uint8_t number : Bytes{3, 4, 255}) {
    Use(SmbiosTables().Add(1, {1, 2, 0, number}, {"Maker", "7915AC1"}).AddEnd());
    EXPECT_EQ(Error(), "vector::_M_range_check") << int{number};
  }
}

TEST_F(GetMachineInfo, AnswersTheSameInBothFormsOfTheTables) {
  const SmbiosTables tables =
      SmbiosTables().AddSystem({"Maker", "Box -[7915AC1]-", "v1", "SN1"}).AddEnd();
  Use(tables);
  const TFields fields = Fields();
  hwxtest::WriteBytes(fDump, tables.Dump32());
  EXPECT_EQ(Fields(), fields);
  EXPECT_EQ(fields, (TFields{"7915", "Box ", "AC1", "SN1"}));
}

TEST_F(GetMachineInfo, RefusesAFieldThatItDoesNotKnow) {
  UseProduct("7915AC1");
  for (const char* field : {"", "sn", "Type", "serial", "SN "})
    EXPECT_EQ(TOSSpecific::GetMachineInfo(field), "error param of GetMachineInfo") << field;
}

TEST_F(GetMachineInfo, HasShortcutsForItsFields) {
  UseProduct("Rack Server -[7915AC1]-", "SN1");
  EXPECT_EQ(TOSSpecific::GetMachineSN(), "SN1");
  EXPECT_EQ(TOSSpecific::GetMachineModel(), "AC1");
  EXPECT_EQ(TOSSpecific::GetMachineName(), "Rack Server ");
}

TEST_F(GetMachineInfo, GivesTheProductNameAsTheOperatingSystems) {
  UseProduct("Rack Server -[7915AC1]-");
  EXPECT_EQ(TOSSpecific::GetOperatingSystemName(), "Rack Server ");
}

TEST_F(GetMachineInfo, LogsWhatItDoesInOrder) {
  UseProduct("Box -[7915AC1]-");
  FakeSmBios smBios;
  const ScopedLogCapture log;
  TOSSpecific::GetMachineInfo("SN");
  EXPECT_THAT(
      log.Lines(),
      ElementsAre(Pair("Debug", "getMachineInfo() entered."), Pair("Debug", "(load)"),
                  Pair("Debug", "(read type 1 into 1024 bytes)"),
                  Pair("Debug", "GetMachineInfo productDesc"), Pair("Debug", "Box -[7915AC1]-"),
                  Pair("Debug", "GetMachineInfo machineName"), Pair("Debug", "Box "),
                  Pair("Debug", "GetMachineInfo machineType"), Pair("Debug", "7915"),
                  Pair("Debug", "GetMachineInfo machineModel"), Pair("Debug", "AC1"),
                  Pair("Debug", "Machine type detected: 7915"), Pair("Debug", "(close)"),
                  Pair("Debug", "getMachineType() completed.")));
}

TEST_F(GetMachineInfo, LogsNoFieldsOfANameWithoutADash) {
  UseProduct("7915AC1");
  const ScopedLogCapture log;
  TOSSpecific::GetMachineInfo("name");
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "getMachineInfo() entered."),
                                       Pair("Debug", "Machine type detected: 7915"),
                                       Pair("Debug", "getMachineType() completed.")));
}

TEST_F(GetMachineInfo, LogsNothingOfANameThatEndsBeforeTheModel) {
  UseProduct("Box -[791");
  FakeSmBios smBios;
  const ScopedLogCapture log;
  EXPECT_THROW(TOSSpecific::GetMachineInfo("type"), std::out_of_range);
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "getMachineInfo() entered."), Pair("Debug", "(load)"),
                          Pair("Debug", "(read type 1 into 1024 bytes)")));
  smBios.ReleaseLeftBehind();
}

TEST_F(GetMachineInfo, LogsTheFieldsBeforeASerialNumberThatIsNotThere) {
  Use(SmbiosTables().Add(1, {1, 2, 0, 9}, {"Maker", "Box -[7915AC1]-"}).AddEnd());
  FakeSmBios smBios;
  const ScopedLogCapture log;
  EXPECT_THROW(TOSSpecific::GetMachineInfo("type"), std::out_of_range);
  const auto lines = log.Lines();
  ASSERT_EQ(lines.size(), 11u);
  EXPECT_THAT(lines.back(), Pair("Debug", "AC1"));
  smBios.ReleaseLeftBehind();
}

}  // namespace
}  // namespace NQORHWX20
