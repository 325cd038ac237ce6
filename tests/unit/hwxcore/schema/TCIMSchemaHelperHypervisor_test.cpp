#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "support/RecordingNamespace.h"
#include "support/ScopedLogCapture.h"

using hwxtest::RecordingNamespace;
using hwxtest::ScopedLogCapture;
using NQORHWX20::TCIMSchemaHelper;
using NQORHWX20::TCIMValue;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

const char kElement[] = "CIM_PhysicalElement";
const char kSoftware[] = "VMware_HypervisorSoftwareIdentity";

class GetSystemProductName_vmwesxi : public testing::Test {
 protected:
  void AddModel(const TCIMValue& model) { fNamespace.AddInstance(kElement, {{"Model", model}}); }
  std::string Ask() { return TCIMSchemaHelper::GetSystemProductName_vmwesxi(fNamespace.Get()); }

  RecordingNamespace fNamespace;
  ScopedLogCapture fLog;
};

TEST_F(GetSystemProductName_vmwesxi, ReadsTheModelWithTheContextOfEachStep) {
  AddModel("Rack -[7870A1B]-");
  EXPECT_EQ(Ask(), "Rack -[7870A1B]-");
  EXPECT_THAT(fNamespace.Calls(),
              ElementsAre(Pair("GetClass(CIM_PhysicalElement)", "nspID=plugin"),
                          Pair("CIM_PhysicalElement.EnumerateInstances(deep)", ""),
                          Pair("CIM_PhysicalElement[0].GetProperty(Model)", ""),
                          Pair("CIM_PhysicalElement[0].Model.GetStringValue", "none")));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetSystemProductName_vmwesxi, PassesOverModelsWithoutBothMarks) {
  AddModel("plain");
  AddModel("Rack -[7870A1B");
  AddModel("Rack 7870A1B]-");
  AddModel("Rack [7870A1B]");
  AddModel(" Rack -[7870A1B]-  ");
  AddModel("Later -[9999A1B]-");
  EXPECT_EQ(Ask(), " Rack -[7870A1B]-  ");
  EXPECT_EQ(fNamespace.Calls().back().first, "CIM_PhysicalElement[4].Model.GetStringValue");
}

TEST_F(GetSystemProductName_vmwesxi, TakesTheMarksInAnyOrder) {
  AddModel("]- odd -[");
  EXPECT_EQ(Ask(), "]- odd -[");
}

TEST_F(GetSystemProductName_vmwesxi, IsUnknownWithoutTheClassAnInstanceOrAModelThatFits) {
  EXPECT_EQ(Ask(), "Unknown");
  fNamespace.AddClass(kElement);
  EXPECT_EQ(Ask(), "Unknown");
  AddModel("plain");
  EXPECT_EQ(Ask(), "Unknown");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetSystemProductName_vmwesxi, PassesOverInstancesThatCannotBeRead) {
  fNamespace.AddInstance(kElement, {});                         // no such property
  AddModel(TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0));  // null
  AddModel(5);                                                  // no string
  AddModel("Rack -[7870A1B]-");
  fNamespace.Fail("CIM_PhysicalElement[3].GetProperty(Model)", NQORHWX20::kHWXStatusAccessDenied);
  AddModel("Rack -[7870C1D]-");
  EXPECT_EQ(Ask(), "Rack -[7870C1D]-");
}

TEST_F(GetSystemProductName_vmwesxi, SwallowsTheFailuresOfTheNamespace) {
  AddModel("Rack -[7870A1B]-");
  fNamespace.Fail("CIM_PhysicalElement.EnumerateInstances(deep)",
                  NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_EQ(Ask(), "Unknown");
  fNamespace.Fail("GetClass(CIM_PhysicalElement)", NQORHWX20::kHWXStatusConnectionFailed);
  EXPECT_EQ(Ask(), "Unknown");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetSystemProductName_vmwesxi, TakesAnEmptyPointerForAThingThatIsNotThere) {
  AddModel("Rack -[7870A1B]-");
  AddModel("Rack -[7870C1D]-");
  AddModel("Rack -[7870E1F]-");
  fNamespace.HandOutNothing("CIM_PhysicalElement[0]");
  fNamespace.HandOutNothing("CIM_PhysicalElement[1].GetProperty(Model)");
  EXPECT_EQ(Ask(), "Rack -[7870E1F]-");
  fNamespace.HandOutNothing("GetClass(CIM_PhysicalElement)");
  EXPECT_EQ(Ask(), "Unknown");
}

TEST_F(GetSystemProductName_vmwesxi, PassesOtherExceptionsOn) {
  AddModel("Rack -[7870A1B]-");
  for (const char* const call :
       {"CIM_PhysicalElement[0].Model.GetStringValue", "CIM_PhysicalElement[0].GetProperty(Model)",
        "CIM_PhysicalElement.EnumerateInstances(deep)", "GetClass(CIM_PhysicalElement)"}) {
    fNamespace.Do(call, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(Ask(), std::runtime_error) << call;
  }
}

class GetOperatingSystemName_vmwesxi : public testing::Test {
 protected:
  void AddBuild(const TCIMValue& build) {
    fNamespace.AddInstance(kSoftware, {{"LargeBuildNumber", build}});
  }
  std::string Ask() { return TCIMSchemaHelper::GetOperatingSystemName_vmwesxi(fNamespace.Get()); }

  RecordingNamespace fNamespace;
  ScopedLogCapture fLog;
};

TEST_F(GetOperatingSystemName_vmwesxi, ReadsTheBuildNumberWithEmptyContextsThroughout) {
  AddBuild("20036589");
  AddBuild("20036590");
  EXPECT_EQ(Ask(), "20036589");
  const std::string name = kSoftware;
  EXPECT_THAT(
      fNamespace.Calls(),
      ElementsAre(Pair("GetClass(" + name + ")", ""), Pair(name + ".EnumerateInstances(deep)", ""),
                  Pair(name + "[0].GetProperty(LargeBuildNumber)", ""),
                  Pair(name + "[0].LargeBuildNumber.GetStringValue", "none")));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetOperatingSystemName_vmwesxi, AppliesNoTestOfFormat) {
  AddBuild("");
  AddBuild("20036590");
  EXPECT_EQ(Ask(), "");
}

TEST_F(GetOperatingSystemName_vmwesxi, PassesOverInstancesThatCannotBeRead) {
  fNamespace.AddInstance(kSoftware, {});
  AddBuild(TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0));
  AddBuild("20036590");
  EXPECT_EQ(Ask(), "20036590");
}

TEST_F(GetOperatingSystemName_vmwesxi, IsUnknownWithoutTheClassOrAnInstanceThatCanBeRead) {
  EXPECT_EQ(Ask(), "Unknown");
  fNamespace.AddClass(kSoftware);
  EXPECT_EQ(Ask(), "Unknown");
  fNamespace.AddInstance(kSoftware, {});
  EXPECT_EQ(Ask(), "Unknown");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetOperatingSystemName_vmwesxi, SwallowsTheFailuresOfTheNamespace) {
  const std::string name = kSoftware;
  AddBuild("20036589");
  fNamespace.Fail(name + ".EnumerateInstances(deep)", NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_EQ(Ask(), "Unknown");
  fNamespace.Fail("GetClass(" + name + ")", NQORHWX20::kHWXStatusConnectionFailed);
  EXPECT_EQ(Ask(), "Unknown");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetOperatingSystemName_vmwesxi, TakesAnEmptyPointerForAThingThatIsNotThere) {
  const std::string name = kSoftware;
  AddBuild("20036589");
  AddBuild("20036590");
  AddBuild("20036591");
  fNamespace.HandOutNothing(name + "[0]");
  fNamespace.HandOutNothing(name + "[1].GetProperty(LargeBuildNumber)");
  EXPECT_EQ(Ask(), "20036591");
  fNamespace.HandOutNothing("GetClass(" + name + ")");
  EXPECT_EQ(Ask(), "Unknown");
}

TEST_F(GetOperatingSystemName_vmwesxi, PassesOtherExceptionsOn) {
  const std::string name = kSoftware;
  AddBuild("20036589");
  for (const std::string& call :
       {name + "[0].LargeBuildNumber.GetStringValue", name + "[0].GetProperty(LargeBuildNumber)",
        name + ".EnumerateInstances(deep)", "GetClass(" + name + ")"}) {
    fNamespace.Do(call, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(Ask(), std::runtime_error) << call;
  }
}

}  // namespace
