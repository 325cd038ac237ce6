#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "support/RecordingNamespace.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"

using hwxtest::RecordingNamespace;
using hwxtest::ScopedLogCapture;
using hwxtest::StatusOf;
using NQORHWX20::TCIMContext;
using NQORHWX20::TCIMSchemaHelper;
using NQORHWX20::TCIMValue;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

const char kSystem[] = "QORSG_ComputerSystem";
const char kGetClass[] = "GetClass(QORSG_ComputerSystem)";
const char kEnumerate[] = "QORSG_ComputerSystem.EnumerateInstances(deep)";
const char kGetProperty[] = "QORSG_ComputerSystem[0].GetProperty(SerialNumber)";
const char kGetValue[] = "QORSG_ComputerSystem[0].SerialNumber.GetValue";

TCIMContext CallersContext() {
  return {{"nspID", "cmpi"}, {"user", "someone"}};
}

class SerialNumberQuery : public testing::Test {
 protected:
  void AddSystem(const TCIMValue& serialNumber) {
    fNamespace.AddInstance(kSystem, {{"SerialNumber", serialNumber}});
  }

  RecordingNamespace fNamespace;
  ScopedLogCapture fLog;
};

class GetRawSerialNumberString : public SerialNumberQuery {
 protected:
  int Status() {
    return StatusOf([&] { TCIMSchemaHelper::GetRawSerialNumberString(fNamespace.Get(), {}); });
  }
};

TEST_F(GetRawSerialNumberString, ReadsTheOnlyInstanceWithTheBuiltContextInEachStepButTheLast) {
  AddSystem("  06DXM9 ");
  const TCIMContext context = CallersContext();
  EXPECT_EQ(TCIMSchemaHelper::GetRawSerialNumberString(fNamespace.Get(), context), "  06DXM9 ");
  EXPECT_THAT(fNamespace.Calls(),
              ElementsAre(Pair(kGetClass, "nspID=plugin user=someone"),
                          Pair(kEnumerate, "nspID=plugin user=someone"),
                          Pair(kGetProperty, "nspID=plugin user=someone"), Pair(kGetValue, "")));
  EXPECT_EQ(context.at("nspID").ToString(10), "cmpi");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetRawSerialNumberString, TellsThatThereIsNoComputerSystem) {
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), ElementsAre(Pair("Debug", "TCIMSchemaHelper: no computer system")));
  EXPECT_THAT(fNamespace.Calls(), ElementsAre(Pair(kGetClass, "nspID=plugin")));
}

TEST_F(GetRawSerialNumberString, TellsThatThereIsNotExactlyOneInstance) {
  const auto line = Pair("Debug", "TCIMSchemaHelper: computer system instances != 1");
  fNamespace.AddClass(kSystem);
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), ElementsAre(line));
  AddSystem("1A");
  AddSystem("1A");
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), ElementsAre(line, line));
}

TEST_F(GetRawSerialNumberString, TellsThatThereIsNoSuchProperty) {
  fNamespace.AddInstance(kSystem, {});
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(),
              ElementsAre(Pair("Debug", "TCIMSchemaHelper: didn't find SerialNumber property")));
}

TEST_F(GetRawSerialNumberString, TellsAnEmptyPointerAsAThingThatIsNotThere) {
  AddSystem("06DXM9");
  for (const char* const call : {kGetProperty, "QORSG_ComputerSystem[0]", kGetClass}) {
    fNamespace.HandOutNothing(call);
    EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound) << call;
  }
  const auto noProperty = Pair("Debug", "TCIMSchemaHelper: didn't find SerialNumber property");
  EXPECT_THAT(fLog.Lines(), ElementsAre(noProperty, noProperty,
                                        Pair("Debug", "TCIMSchemaHelper: no computer system")));
}

TEST_F(GetRawSerialNumberString, TellsANullValueOfAnyType) {
  for (const auto type : {TCIMValue::TCIMType::kCIMTypeString, TCIMValue::TCIMType::kCIMTypeUInt8,
                          TCIMValue::TCIMType::kCIMTypeNone}) {
    RecordingNamespace ns;
    ns.AddInstance(kSystem, {{"SerialNumber", TCIMValue(type, 0)}});
    EXPECT_EQ(StatusOf([&] { TCIMSchemaHelper::GetRawSerialNumberString(ns.Get(), {}); }),
              NQORHWX20::kHWXStatusNotFound);
  }
  const auto line = Pair("Debug", "TCIMSchemaHelper: SerialNumber is NULL");
  EXPECT_THAT(fLog.Lines(), ElementsAre(line, line, line));
}

TEST_F(GetRawSerialNumberString, TellsAValueThatIsNoString) {
  const std::vector<TCIMValue> texts = {"06DXM9"};
  AddSystem(TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0, texts));
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(),
              ElementsAre(Pair("Debug", "TCIMSchemaHelper: SerialNumber wasn't a string")));
}

TEST_F(GetRawSerialNumberString, PassesOtherStatusesOnUnlogged) {
  AddSystem("06DXM9");
  for (const char* const call : {kGetValue, kGetProperty, kEnumerate, kGetClass}) {
    fNamespace.Fail(call, NQORHWX20::kHWXStatusAccessDenied);
    EXPECT_EQ(Status(), NQORHWX20::kHWXStatusAccessDenied) << call;
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetRawSerialNumberString, LogsNothingWhenTheEnumerationOrTheValueIsNotFound) {
  AddSystem("06DXM9");
  for (const char* const call : {kGetValue, kEnumerate}) {
    fNamespace.Fail(call, NQORHWX20::kHWXStatusNotFound);
    EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound) << call;
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetRawSerialNumberString, PassesOtherExceptionsOn) {
  AddSystem("06DXM9");
  for (const char* const call : {kGetValue, kGetProperty, kEnumerate, kGetClass}) {
    fNamespace.Do(call, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(TCIMSchemaHelper::GetRawSerialNumberString(fNamespace.Get(), {}),
                 std::runtime_error)
        << call;
  }
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
  fNamespace.Fail(kGetClass, NQORHWX20::kHWXStatusAccessDenied);
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
  EXPECT_EQ(context.at("nspID").ToString(10), "cmpi");
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
  for (const char* const call :
       {"OMC_UnitaryComputerSystem[0].GetProperty(OtherIdentifyingInfo)",
        "OMC_UnitaryComputerSystem[0]", "GetClass(OMC_UnitaryComputerSystem)",
        "OMC_Chassis[0].GetProperty(SerialNumber)", "OMC_Chassis[0]", "GetClass(OMC_Chassis)"}) {
    fNamespace.HandOutNothing(call);
    EXPECT_EQ(StatusOf([&] { Ask(); }), NQORHWX20::kHWXStatusNotFound) << call;
  }
}

TEST_F(GetSerialNumber_vmwesxi, PassesFailuresOn) {
  AddChassis("06DXM9");
  fNamespace.Fail("OMC_Chassis[0].GetProperty(SerialNumber)", NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_EQ(StatusOf([&] { Ask(); }), NQORHWX20::kHWXStatusAccessDenied);
}

}  // namespace
