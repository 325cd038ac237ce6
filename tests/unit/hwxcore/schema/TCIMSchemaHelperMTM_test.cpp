#include "QueryTesting.h"

using hwxtest::RecordingNamespace;
using hwxtest::StatusOf;
using NQORHWX20::TCIMSchemaHelper;
using NQORHWX20::TCIMValue;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

const auto kEntered = Pair("Debug", "TCIMSchemaHelper- Detected MTM Entered");

class MTMQuery : public hwxtest::QueryTest {
 protected:
  void AddSystem(const TCIMValue& productName) {
    fNamespace.AddInstance("QORSG_ComputerSystem", {{"ProductName", productName}});
  }
};

class GetRawMTMString : public MTMQuery {};
class GetMTM : public MTMQuery {};

TEST_F(GetRawMTMString, ReadsTheOnlyInstanceWithEmptyContextsBehindTheClass) {
  AddSystem("  Rack -[7870A1B]-  ");
  EXPECT_EQ(TCIMSchemaHelper::GetRawMTMString(fNamespace.Get()), "  Rack -[7870A1B]-  ");
  EXPECT_THAT(fNamespace.Calls(),
              ElementsAre(Pair("GetClass(QORSG_ComputerSystem)", "nspID=plugin"),
                          Pair("QORSG_ComputerSystem.EnumerateInstances(deep)", ""),
                          Pair("QORSG_ComputerSystem[0].GetProperty(ProductName)", ""),
                          Pair("QORSG_ComputerSystem[0].ProductName.GetValue", "")));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetMTM, LogsItsStartAndItsResult) {
  AddSystem("Rack -[7870A1B]-");
  EXPECT_EQ(TCIMSchemaHelper::GetMTM(fNamespace.Get()), "7870A1B");
  EXPECT_THAT(fLog.Lines(),
              ElementsAre(kEntered, Pair("Debug", "TCIMSchemaHelper- Detected MTM 7870A1B")));
  EXPECT_EQ(fNamespace.Calls().size(), 4u);
}

TEST_F(GetMTM, LogsItsStartAloneForATextThatFitsNoForm) {
  AddSystem("plain");
  EXPECT_EQ(StatusOf([&] { TCIMSchemaHelper::GetMTM(fNamespace.Get()); }),
            NQORHWX20::kHWXStatusInvalidFormat);
  EXPECT_THAT(fLog.Lines(), ElementsAre(kEntered));
}

TEST_F(GetMTM, PassesTheFailuresOfTheRawReadOnBehindTheStart) {
  EXPECT_EQ(StatusOf([&] { TCIMSchemaHelper::GetMTM(fNamespace.Get()); }),
            NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(),
              ElementsAre(kEntered, Pair("Debug", "TCIMSchemaHelper: no computer system")));
}

TEST_F(GetMTM, IsCutIntoTypeAndModelByAskingAnew) {
  AddSystem("Rack -[7870A1B]-");
  const auto detected = Pair("Debug", "TCIMSchemaHelper- Detected MTM 7870A1B");
  EXPECT_EQ(TCIMSchemaHelper::GetMachineType(fNamespace.Get()), "7870");
  EXPECT_THAT(fLog.Lines(), ElementsAre(kEntered, detected));
  EXPECT_EQ(TCIMSchemaHelper::GetModelNumber(fNamespace.Get()), "A1B");
  EXPECT_THAT(fLog.Lines(), ElementsAre(kEntered, detected, kEntered, detected));
  EXPECT_EQ(fNamespace.Calls().size(), 8u);
}

TEST_F(GetMTM, HasTheModelXxxWhereItIsUnknown) {
  AddSystem("Rack -[7870]-");
  EXPECT_EQ(TCIMSchemaHelper::GetModelNumber(fNamespace.Get()), "xxx");
  EXPECT_EQ(TCIMSchemaHelper::GetMachineType(fNamespace.Get()), "7870");
}

TEST_F(GetMTM, FailsForTypeAndModelAlike) {
  AddSystem("plain");
  EXPECT_EQ(StatusOf([&] { TCIMSchemaHelper::GetMachineType(fNamespace.Get()); }),
            NQORHWX20::kHWXStatusInvalidFormat);
  EXPECT_EQ(StatusOf([&] { TCIMSchemaHelper::GetModelNumber(fNamespace.Get()); }),
            NQORHWX20::kHWXStatusInvalidFormat);
  EXPECT_THAT(fLog.Lines(), ElementsAre(kEntered, kEntered));
}

class GetMTM_vmwesxi : public MTMQuery {
 protected:
  void AddModel(const char* model) {
    fNamespace.AddInstance("CIM_PhysicalElement", {{"Model", model}});
  }
  std::string Ask() { return TCIMSchemaHelper::GetMTM_vmwesxi(fNamespace.Get()); }
};

TEST_F(GetMTM_vmwesxi, TakesWhatStandsBetweenTheMarksUnchecked) {
  for (const auto& [model, mtm] :
       std::vector<std::pair<const char*, const char*> >{{"Rack -[7870A1B]-", "7870A1B"},
                                                         {"Rack -[7870]- more", "7870"},
                                                         {"-[ any text! ]-", " any text! "},
                                                         {"-[a]-[b]-", "a"},
                                                         {"-[a-[b]-", "a-[b"},
                                                         {"]- 7870 -[", "Unknown"},
                                                         {"-[]-", "Unknown"},
                                                         {"]-[]-", "Unknown"}}) {
    RecordingNamespace ns;
    ns.AddInstance("CIM_PhysicalElement", {{"Model", model}});
    EXPECT_EQ(TCIMSchemaHelper::GetMTM_vmwesxi(ns.Get()), mtm) << model;
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetMTM_vmwesxi, IsUnknownWhereThereIsNoModelWithBothMarks) {
  EXPECT_EQ(Ask(), "Unknown");
  AddModel("7870A1B]-");
  EXPECT_EQ(Ask(), "Unknown");
  fNamespace.Fail("GetClass(CIM_PhysicalElement)", NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_EQ(Ask(), "Unknown");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

}  // namespace
