#include "QueryTesting.h"

using hwxtest::RecordingNamespace;
using hwxtest::StatusOf;
using NQORHWX20::TCIMContext;
using NQORHWX20::TCIMSchemaHelper;
using NQORHWX20::TCIMValue;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

class SerialNumberQuery : public hwxtest::QueryTest {
 protected:
  void AddSystem(const TCIMValue& serialNumber) {
    fNamespace.AddInstance("QORSG_ComputerSystem", {{"SerialNumber", serialNumber}});
  }
};

class GetRawSerialNumberString : public SerialNumberQuery {};

TEST_F(GetRawSerialNumberString, ReadsTheOnlyInstanceWithTheBuiltContextInEachStepButTheLast) {
  AddSystem("  06DXM9 ");
  const TCIMContext context = CallersContext();
  EXPECT_EQ(TCIMSchemaHelper::GetRawSerialNumberString(fNamespace.Get(), context), "  06DXM9 ");
  EXPECT_THAT(
      fNamespace.Calls(),
      ElementsAre(
          Pair("GetClass(QORSG_ComputerSystem)", "nspID=plugin user=someone"),
          Pair("QORSG_ComputerSystem.EnumerateInstances(deep)", "nspID=plugin user=someone"),
          Pair("QORSG_ComputerSystem[0].GetProperty(SerialNumber)", "nspID=plugin user=someone"),
          Pair("QORSG_ComputerSystem[0].SerialNumber.GetValue", "")));
  ExpectUnchanged(context);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

class GetSerialNumber : public SerialNumberQuery {
 protected:
  int Status() {
    return StatusOf([&] { TCIMSchemaHelper::GetSerialNumber(fNamespace.Get(), {}); });
  }
};

TEST_F(GetSerialNumber, TrimsTheRawSerialNumber) {
  AddSystem(" \t06DXM9 \n");
  EXPECT_EQ(TCIMSchemaHelper::GetSerialNumber(fNamespace.Get(), CallersContext()), "06DXM9");
  EXPECT_EQ(fNamespace.Calls()[0].second, "nspID=plugin user=someone");
}

TEST_F(GetSerialNumber, RefusesFiller) {
  AddSystem("To Be Filled By O.E.M.");
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
}

TEST_F(GetSerialNumber, PassesTheFailuresOfTheRawReadOn) {
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), ElementsAre(Pair("Debug", "TCIMSchemaHelper: no computer system")));
  fNamespace.Fail("GetClass(QORSG_ComputerSystem)", NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusAccessDenied);
}

class GetSerialNumber_vmwesxi : public SerialNumberQuery {
 protected:
  void AddChassis(const TCIMValue& serialNumber) {
    fNamespace.AddInstance("OMC_Chassis", {{"SerialNumber", serialNumber}});
  }
  void AddOtherInfo(const std::vector<TCIMValue>& texts) {
    fNamespace.AddInstance(
        "OMC_UnitaryComputerSystem",
        {{"OtherIdentifyingInfo", TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0, texts)}});
  }
  std::string Ask() { return TCIMSchemaHelper::GetSerialNumber_vmwesxi(fNamespace.Get(), {}); }
};

TEST_F(GetSerialNumber_vmwesxi, ReadsTheChassisWithTheBuiltContext) {
  AddChassis(" 06DXM9 ");
  const TCIMContext context = CallersContext();
  EXPECT_EQ(TCIMSchemaHelper::GetSerialNumber_vmwesxi(fNamespace.Get(), context), "06DXM9");
  EXPECT_THAT(
      fNamespace.Calls(),
      ElementsAre(Pair("GetClass(OMC_Chassis)", "nspID=plugin user=someone"),
                  Pair("OMC_Chassis.EnumerateInstances(deep)", "nspID=plugin user=someone"),
                  Pair("OMC_Chassis[0].GetProperty(SerialNumber)", "nspID=plugin user=someone"),
                  Pair("OMC_Chassis[0].SerialNumber.GetValue", "")));
  ExpectUnchanged(context);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetSerialNumber_vmwesxi, TurnsToTheOtherTextsWhereTheChassisHasFiller) {
  AddChassis("0000000");
  AddOtherInfo({"", "Unknown", " 06DXM9 ", "later"});
  EXPECT_EQ(Ask(), "06DXM9");
  EXPECT_THAT(
      std::vector<RecordingNamespace::Call>(fNamespace.Calls().begin() + 4,
                                            fNamespace.Calls().end()),
      ElementsAre(
          Pair("GetClass(OMC_UnitaryComputerSystem)", "nspID=plugin"),
          Pair("OMC_UnitaryComputerSystem.EnumerateInstances(deep)", "nspID=plugin"),
          Pair("OMC_UnitaryComputerSystem[0].GetProperty(OtherIdentifyingInfo)", "nspID=plugin"),
          Pair("OMC_UnitaryComputerSystem[0].OtherIdentifyingInfo.GetStringArrayValue", "none")));
}

TEST_F(GetSerialNumber_vmwesxi, TurnsToTheOtherTextsWhereTheChassisHasNone) {
  AddChassis(TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0));
  AddOtherInfo({});
  AddOtherInfo({"06DXM9"});
  EXPECT_EQ(Ask(), "06DXM9");
}

TEST_F(GetSerialNumber_vmwesxi, ThrowsNotFoundWithoutAChassis) {
  EXPECT_EQ(StatusOf([&] { Ask(); }), NQORHWX20::kHWXStatusNotFound);
  fNamespace.AddClass("OMC_Chassis");
  AddOtherInfo({"06DXM9"});
  EXPECT_EQ(StatusOf([&] { Ask(); }), NQORHWX20::kHWXStatusNotFound);
  EXPECT_EQ(fNamespace.Calls().back().first, "OMC_Chassis.EnumerateInstances(deep)");
}

TEST_F(GetSerialNumber_vmwesxi, ThrowsNotFoundWhereThereIsNothingButFiller) {
  AddChassis("None");
  EXPECT_EQ(StatusOf([&] { Ask(); }), NQORHWX20::kHWXStatusNotFound);
  AddOtherInfo({"N/A", "-----"});
  EXPECT_EQ(StatusOf([&] { Ask(); }), NQORHWX20::kHWXStatusNotFound);
}

TEST_F(GetSerialNumber_vmwesxi, TakesAnEmptyPointerForAThingThatIsNotThere) {
  AddChassis("None");
  AddOtherInfo({"06DXM9"});
  ExpectEmptyPointerNotFound(
      {"OMC_UnitaryComputerSystem[0].GetProperty(OtherIdentifyingInfo)",
       "OMC_UnitaryComputerSystem[0]", "GetClass(OMC_UnitaryComputerSystem)",
       "OMC_Chassis[0].GetProperty(SerialNumber)", "OMC_Chassis[0]", "GetClass(OMC_Chassis)"},
      [&] { Ask(); });
}

TEST_F(GetSerialNumber_vmwesxi, PassesFailuresOn) {
  AddChassis("06DXM9");
  fNamespace.Fail("OMC_Chassis[0].GetProperty(SerialNumber)", NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_EQ(StatusOf([&] { Ask(); }), NQORHWX20::kHWXStatusAccessDenied);
}

}  // namespace
