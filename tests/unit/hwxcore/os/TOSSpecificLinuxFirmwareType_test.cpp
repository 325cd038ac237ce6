// The machine type in the product name, from made tables.

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
using ::testing::ElementsAre;
using ::testing::Pair;

class GetMachineType : public hwxtest::FirmwareFixture {
 protected:
  std::string TypeOf(const std::string& productName) {
    UseProduct(productName);
    return TOSSpecific::GetMachineType();
  }

  // Of a structure of type 1 with these fields behind its header.
  std::string TypeOf(const Bytes& fields, const std::vector<std::string>& strings) {
    Use(SmbiosTables().Add(1, fields, strings).AddEnd());
    return TOSSpecific::GetMachineType();
  }
};

TEST_F(GetMachineType, StandsInBracketsBehindTheFirstDash) {
  EXPECT_EQ(TypeOf("Example Rack Server 3650 -[7915AC1]-"), "7915");
  EXPECT_EQ(TypeOf("Box-[1234]"), "1234");
}

TEST_F(GetMachineType, StandsTwoBehindTheDashWhateverIsThere) {
  EXPECT_EQ(TypeOf("X-series -[7915AC1]-"), "erie");
  EXPECT_EQ(TypeOf("-abcdefgh"), "bcde");
}

TEST_F(GetMachineType, IsCutWhereTheNameEnds) {
  EXPECT_EQ(TypeOf("Box -[79"), "79");
  EXPECT_EQ(TypeOf("Box -["), "");
}

TEST_F(GetMachineType, EndsInAnErrorBehindADashAtTheEnd) {
  UseProduct("Box -");
  FakeSmBios smBios;
  EXPECT_EQ(hwxtest::TextOf<std::out_of_range>(&TOSSpecific::GetMachineType),
            "basic_string::substr");
  EXPECT_FALSE(smBios.IsClosed());
  smBios.ReleaseLeftBehind();
}

TEST_F(GetMachineType, IsTheFrontOfANameOfSevenCharacters) {
  EXPECT_EQ(TypeOf("7915AC1"), "7915");
  EXPECT_EQ(TypeOf("Box 5 x"), "Box ");
}

TEST_F(GetMachineType, IsNotInANameOfAnotherLengthWithoutADash) {
  for (const char* name : {"7915AC", "7915AC1X", "7", "Virtual Machine"})
    EXPECT_EQ(TypeOf(name), "0000") << name;
}

TEST_F(GetMachineType, IsUnknownWithoutAProductName) {
  EXPECT_EQ(TypeOf(""), "0000");
  EXPECT_EQ(TypeOf({1, 0, 0, 2}, {"7915AC1", "SN"}), "0000");
}

TEST_F(GetMachineType, IsUnknownWhenTheNumberLiesPastTheStrings) {
  EXPECT_EQ(TypeOf({1, 3, 0, 2}, {"7915AC1", "SN"}), "0000");
  EXPECT_EQ(TypeOf({1, 255, 0, 2}, {"7915AC1", "SN"}), "0000");
  EXPECT_EQ(TypeOf({1, 1, 0, 2}, {}), "0000");
}

TEST_F(GetMachineType, IsFoundInTheLastStringToo) {
  EXPECT_EQ(TypeOf({0, 1, 0, 0}, {"7915AC1"}), "7915");
  EXPECT_EQ(TypeOf({1, 3, 0, 2}, {"Maker", "SN", "7915AC1"}), "7915");
}

TEST_F(GetMachineType, IsOfTheFirstSystemInTheTables) {
  Use(SmbiosTables().AddSystem({"", "7915AC1"}).AddSystem({"", "7836XY2"}).AddEnd());
  EXPECT_EQ(TOSSpecific::GetMachineType(), "7915");
}

TEST_F(GetMachineType, IsReadAnewEachTime) {
  EXPECT_EQ(TypeOf("7915AC1"), "7915");
  EXPECT_EQ(TypeOf("7836AC1"), "7836");
}

// The bytes of the fields are taken as they come, also where a structure ends before them.
TEST_F(GetMachineType, TakesTheNumberFromTheStringsOfAShortStructure) {
  EXPECT_EQ(TypeOf({}, {"7\002", "7836XY2"}), "7836");  // the byte 2 stands where the number does
  EXPECT_EQ(TypeOf({}, {"7\001AC1 x"}), "7\001AC");
}

TEST_F(GetMachineType, IsUnknownInAStructureOfAHeaderAlone) {
  EXPECT_EQ(TypeOf({}, {}), "0000");
}

TEST_F(GetMachineType, IsReadFromAStructureThatFillsTheBuffer) {
  const std::string filler(1024 - 8 - 8 - 1 - 2, 'x');  // header and fields, the name, NULs
  EXPECT_EQ(TypeOf({2, 1, 0, 0}, {"7915AC1", filler}), "7915");
}

TEST_F(GetMachineType, IsUnknownInAStructureThatIsLargerThanTheBuffer) {
  const std::string filler(1024 - 8 - 8 - 1 - 2 + 1, 'x');
  EXPECT_EQ(TypeOf({2, 1, 0, 0}, {"7915AC1", filler}), "0000");
  EXPECT_EQ(TypeOf({2, 1, 0, 0}, {"7915AC1", std::string(0xFF00, 'x')}), "0000");
}

TEST_F(GetMachineType, LogsWhatItDoesInOrder) {
  UseProduct("Box -[7915AC1]-");
  FakeSmBios smBios;
  const ScopedLogCapture log;
  TOSSpecific::GetMachineType();
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "getMachineType() entered."),  //
                          Pair("Debug", "(load)"), Pair("Debug", "(read type 1 into 1024 bytes)"),
                          Pair("Debug", "Machine type detected: 7915"), Pair("Debug", "(close)"),
                          Pair("Debug", "getMachineType() completed.")));
}

TEST_F(GetMachineType, LogsTheDefaultAsDetectedWithoutAProductName) {
  UseProduct("");
  const ScopedLogCapture log;
  TOSSpecific::GetMachineType();
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "getMachineType() entered."),
                                       Pair("Debug", "Machine type detected: 0000"),
                                       Pair("Debug", "getMachineType() completed.")));
}

TEST_F(GetMachineType, LogsNothingBehindTheReadThatEndsInAnError) {
  UseProduct("Box -");
  FakeSmBios smBios;
  const ScopedLogCapture log;
  EXPECT_THROW(TOSSpecific::GetMachineType(), std::out_of_range);
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "getMachineType() entered."), Pair("Debug", "(load)"),
                          Pair("Debug", "(read type 1 into 1024 bytes)")));
  smBios.ReleaseLeftBehind();
}

}  // namespace
}  // namespace NQORHWX20
