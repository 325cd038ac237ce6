#include "hwx/identity/Explanation.h"

#include <map>

#include "support/FirmwareFixture.h"
#include "support/Machines.h"
#include "unit/apps/hwx/identity/MadeMachine.h"

namespace hwx {
namespace {

using hwxtest::MadeMachine;
using hwxtest::SmbiosTables;

class Explanation : public hwxtest::FirmwareFixture {
 protected:
  Explanation() { UseBoth("[VV12-1.05]", "Rack Server -[7915AC1]-", "KQ12345"); }

  void UseBoth(const std::string& version, const std::string& productName,
               const std::string& serialNumber) {
    Use(SmbiosTables()
            .AddBios("Maker", version, "01/02/2020")
            .AddSystem({"Maker", productName, "v1", serialNumber})
            .AddEnd());
  }

  // Puts this machine, with files of the kernel's, in the place of the dump.
  void UseKernelCopy(const std::map<std::string, std::string>& files) {
    for (const auto& [name, text] : files)
      hwxtest::WriteMachineFile(fDirectory.Path(), "sys/class/dmi/id/" + name, text + "\n");
    fVariable.Set(std::nullopt);
  }

  static TExplanation Of(const std::string& key, const MadeMachine& made = MadeMachine()) {
    const NamespacePtr machine = made.Open();
    for (const TExplanation& fact : Explain(machine, AskIdentity(machine)))
      if (fact.fKey == key) return fact;
    ADD_FAILURE() << key;
    return {};
  }

  // "SOURCE VERDICT VALUE" for each source.
  static std::vector<std::string> Rows(const TExplanation& fact) {
    const char* const words[] = {"taken", "agrees", "differs", "not taken", "filler", "missing"};
    std::vector<std::string> rows;
    for (const TSourceAnswer& source : fact.fSources)
      rows.push_back(source.fSource + ": " + words[source.fVerdict] + ": " +
                     source.fAnswer.fValue.value_or("(" + source.fAnswer.fReason + ")"));
    return rows;
  }

  using Lines = std::vector<std::string>;
  const hwxtest::ScopedEnvironment fRoot{"HWX_SYSROOT", fDirectory.Path()};
};

TEST_F(Explanation, HasTheFactsInTheOrderOfTheIdentity) {
  const NamespacePtr machine = MadeMachine().Open();
  std::vector<std::string> keys;
  for (const TExplanation& fact : Explain(machine, AskIdentity(machine)))
    keys.push_back(fact.fKey);
  EXPECT_EQ(keys, Lines({"machineType", "model", "productName", "serialNumber", "biosIdentifier",
                         "machineTypeByBios"}));
}

TEST_F(Explanation, TakesTheSchemaQueryWithWhichTheOthersAgree) {
  const TExplanation fact = Of("machineType");
  EXPECT_EQ(Rows(fact), Lines({"schema query: taken: 7915", "type 1: agrees: 7915",
                               "type 0 table: agrees: 7915",
                               "sysfs: missing: (the tables are another machine's)"}));
  EXPECT_FALSE(fact.fDisagree);
}

TEST_F(Explanation, ShowsWhereSourcesDiffer) {
  UseBoth("[A3-1.05]", "Other -[8888ZZ9]-", "KQ99999");
  EXPECT_EQ(Rows(Of("machineType")), Lines({"schema query: taken: 7915", "type 1: differs: 8888",
                                            "type 0 table: differs: 7141",
                                            "sysfs: missing: (the tables are another machine's)"}));
  EXPECT_TRUE(Of("machineType").fDisagree);
  EXPECT_EQ(Rows(Of("model"))[1], "type 1: differs: ZZ9");
  EXPECT_EQ(Rows(Of("productName"))[1], "type 1: differs: Other -[8888ZZ9]-");
  EXPECT_EQ(Rows(Of("serialNumber"))[1], "type 1: differs: KQ99999");
}

TEST_F(Explanation, RejectsFiller) {
  UseBoth("[VV12-1.05]", "Default string", "00000000");
  MadeMachine machine;
  machine.Serial("To Be Filled By O.E.M.").Product("Default string");
  EXPECT_EQ(Rows(Of("serialNumber", machine)),
            Lines({"schema query: filler: To Be Filled By O.E.M.", "type 1: filler: 00000000",
                   "sysfs: missing: (the tables are another machine's)"}));
  EXPECT_FALSE(Of("serialNumber", machine).fDisagree);
  EXPECT_EQ(Rows(Of("productName", machine))[0], "schema query: filler: Default string");
}

TEST_F(Explanation, TakesNoOtherSourceForAFiller) {
  MadeMachine machine;
  machine.Serial("None");
  const TExplanation fact = Of("serialNumber", machine);
  EXPECT_EQ(Rows(fact)[0], "schema query: filler: None");
  EXPECT_EQ(Rows(fact)[1], "type 1: not taken: KQ12345");
  EXPECT_FALSE(fact.fDisagree);
}

TEST_F(Explanation, TellsWhyTheSchemaQueryFails) {
  MadeMachine machine;
  machine.Without(MadeMachine::kComputer);
  EXPECT_EQ(Rows(Of("serialNumber", machine))[0],
            "schema query: missing: (the provider lacks the class QORSG_ComputerSystem)");
}

TEST_F(Explanation, TakesBlanksAtTheEndsForNoDifference) {
  UseBoth("[VV12-1.05]", "Rack Server -[7915AC1]-  ", " KQ12345 ");
  EXPECT_EQ(Rows(Of("serialNumber"))[1], "type 1: agrees:  KQ12345 ");
  EXPECT_EQ(Rows(Of("productName"))[1], "type 1: agrees: Rack Server -[7915AC1]-  ");
}

TEST_F(Explanation, TakesTheTableBeforeTheProductNameForTheTypeByBios) {
  UseBoth("[A3-1.05]", "Rack Server -[7915AC1]-", "KQ12345");
  const TExplanation fact = Of("machineTypeByBios");
  EXPECT_EQ(Rows(fact), Lines({"type 0 table: taken: 7141", "type 1: differs: 7915"}));
  EXPECT_TRUE(fact.fDisagree);
}

TEST_F(Explanation, TakesTheProductNameForATypeThatTheTableLacks) {
  UseBoth("[ZZ-1.05]", "Rack Server -[7915AC1]-", "KQ12345");
  EXPECT_EQ(Rows(Of("machineTypeByBios")),
            Lines({"type 0 table: missing: (no machine type is known for \"ZZ\")",
                   "type 1: taken: 7915"}));
}

TEST_F(Explanation, TakesAGuessAndSaysSo) {
  UseBoth("1.05", "AB305CD", "KQ12345");
  MadeMachine machine;
  machine.Product("AB305CD");
  const TExplanation fact = Of("machineType", machine);
  EXPECT_EQ(Rows(fact)[0], "schema query: taken: AB30");
  EXPECT_EQ(Rows(fact)[1], "type 1: agrees: AB30");
  EXPECT_TRUE(fact.fSources[0].fAnswer.fIsGuess);
  EXPECT_TRUE(fact.fSources[1].fAnswer.fIsGuess);
  EXPECT_EQ(Rows(Of("machineTypeByBios", machine))[1], "type 1: taken: AB30");
}

TEST_F(Explanation, ReadsTheKernelsCopyOfThisMachine) {
  UseKernelCopy({{"product_name", "Rack Server -[7915AC2]-"},
                 {"product_serial", "0000000"},
                 {"bios_version", "-[VVE105A-1.05]-"}});
  EXPECT_EQ(Rows(Of("machineType"))[3], "sysfs: agrees: 7915");
  EXPECT_EQ(Rows(Of("model"))[2], "sysfs: differs: AC2");
  EXPECT_EQ(Rows(Of("productName"))[2], "sysfs: differs: Rack Server -[7915AC2]-");
  EXPECT_EQ(Rows(Of("serialNumber"))[2], "sysfs: filler: 0000000");
  EXPECT_EQ(Rows(Of("biosIdentifier"))[1], "sysfs: not taken: VV");
}

TEST_F(Explanation, TellsWhatTheKernelsCopyLacks) {
  UseKernelCopy({{"product_name", "Box 5"}, {"bios_version", "1"}});
  EXPECT_EQ(Rows(Of("machineType"))[3], "sysfs: missing: (no machine type in \"Box 5\")");
  EXPECT_EQ(Rows(Of("model"))[2], "sysfs: missing: (no model in \"Box 5\")");
  EXPECT_EQ(Rows(Of("biosIdentifier"))[1], "sysfs: missing: (no BIOS identifier in \"1\")");
}

}  // namespace
}  // namespace hwx
