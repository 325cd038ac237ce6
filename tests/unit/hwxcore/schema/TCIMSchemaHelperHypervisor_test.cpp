#include "QueryTesting.h"

using NQORHWX20::ICIMNamespace;
using NQORHWX20::TCIMSchemaHelper;
using NQORHWX20::TCIMValue;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

// A query that takes the first instance of a class that suits it, and swallows every failure.
struct HypervisorQuery {
  const char* fTitle;
  std::string (*fAsk)(boost::shared_ptr<ICIMNamespace>);
  const char* fClass;
  const char* fProperty;
  const char* fAnswers[3];
};

const HypervisorQuery kProductName = {"ProductName",
                                      &TCIMSchemaHelper::GetSystemProductName_vmwesxi,
                                      "CIM_PhysicalElement",
                                      "Model",
                                      {"Rack -[7870A1B]-", "Rack -[7870C1D]-", "Rack -[7870E1F]-"}};
const HypervisorQuery kOperatingSystemName = {"OperatingSystemName",
                                              &TCIMSchemaHelper::GetOperatingSystemName_vmwesxi,
                                              "VMware_HypervisorSoftwareIdentity",
                                              "LargeBuildNumber",
                                              {"20036589", "20036590", "20036591"}};

class HypervisorTest : public hwxtest::QueryTest {
 protected:
  explicit HypervisorTest(const HypervisorQuery& query) : fQuery(query) {}

  void Add(const TCIMValue& value) {
    fNamespace.AddInstance(fQuery.fClass, {{fQuery.fProperty, value}});
  }
  std::string Ask() { return fQuery.fAsk(fNamespace.Get()); }

  const HypervisorQuery fQuery;
};

class TCIMSchemaHelperHypervisor : public HypervisorTest,
                                   public testing::WithParamInterface<HypervisorQuery> {
 protected:
  TCIMSchemaHelperHypervisor() : HypervisorTest(GetParam()) {}

  std::string Instance(int index) const { return fClass + "[" + std::to_string(index) + "]"; }
  std::string GetProperty(int index) const {
    return Instance(index) + ".GetProperty(" + fQuery.fProperty + ")";
  }

  const std::string fClass = fQuery.fClass;
  const std::string fGetClass = "GetClass(" + fClass + ")";
  const std::string fEnumerate = fClass + ".EnumerateInstances(deep)";
};

TEST_P(TCIMSchemaHelperHypervisor, IsUnknownWithoutTheClassOrAnInstanceThatCanBeRead) {
  EXPECT_EQ(Ask(), "Unknown");
  fNamespace.AddClass(fClass);
  EXPECT_EQ(Ask(), "Unknown");
  fNamespace.AddInstance(fClass, {});
  EXPECT_EQ(Ask(), "Unknown");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_P(TCIMSchemaHelperHypervisor, PassesOverInstancesThatCannotBeRead) {
  fNamespace.AddInstance(fClass, {});                      // no such property
  Add(TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0));  // null
  Add(5);                                                  // no string
  Add(fQuery.fAnswers[0]);
  fNamespace.Fail(GetProperty(3), NQORHWX20::kHWXStatusAccessDenied);
  Add(fQuery.fAnswers[1]);
  EXPECT_EQ(Ask(), fQuery.fAnswers[1]);
}

TEST_P(TCIMSchemaHelperHypervisor, SwallowsTheFailuresOfTheNamespace) {
  Add(fQuery.fAnswers[0]);
  fNamespace.Fail(fEnumerate, NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_EQ(Ask(), "Unknown");
  fNamespace.Fail(fGetClass, NQORHWX20::kHWXStatusConnectionFailed);
  EXPECT_EQ(Ask(), "Unknown");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_P(TCIMSchemaHelperHypervisor, TakesAnEmptyPointerForAThingThatIsNotThere) {
  for (const char* const answer : fQuery.fAnswers)
    Add(answer);
  fNamespace.HandOutNothing(Instance(0));
  fNamespace.HandOutNothing(GetProperty(1));
  EXPECT_EQ(Ask(), fQuery.fAnswers[2]);
  fNamespace.HandOutNothing(fGetClass);
  EXPECT_EQ(Ask(), "Unknown");
}

TEST_P(TCIMSchemaHelperHypervisor, PassesOtherExceptionsOn) {
  Add(fQuery.fAnswers[0]);
  ExpectOtherExceptionsToPass({Instance(0) + "." + fQuery.fProperty + ".GetStringValue",
                               GetProperty(0), fEnumerate, fGetClass},
                              [&] { Ask(); });
}

INSTANTIATE_TEST_SUITE_P(All, TCIMSchemaHelperHypervisor,
                         testing::Values(kProductName, kOperatingSystemName),
                         [](const auto& query) { return std::string(query.param.fTitle); });

class GetSystemProductName_vmwesxi : public HypervisorTest {
 protected:
  GetSystemProductName_vmwesxi() : HypervisorTest(kProductName) {}
};

TEST_F(GetSystemProductName_vmwesxi, ReadsTheModelWithTheContextOfEachStep) {
  Add("Rack -[7870A1B]-");
  EXPECT_EQ(Ask(), "Rack -[7870A1B]-");
  EXPECT_THAT(fNamespace.Calls(),
              ElementsAre(Pair("GetClass(CIM_PhysicalElement)", "nspID=plugin"),
                          Pair("CIM_PhysicalElement.EnumerateInstances(deep)", ""),
                          Pair("CIM_PhysicalElement[0].GetProperty(Model)", ""),
                          Pair("CIM_PhysicalElement[0].Model.GetStringValue", "none")));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetSystemProductName_vmwesxi, PassesOverModelsWithoutBothMarks) {
  Add("plain");
  EXPECT_EQ(Ask(), "Unknown");
  Add("Rack -[7870A1B");
  Add("Rack 7870A1B]-");
  Add("Rack [7870A1B]");
  Add(" Rack -[7870A1B]-  ");
  Add("Later -[9999A1B]-");
  EXPECT_EQ(Ask(), " Rack -[7870A1B]-  ");
  EXPECT_EQ(fNamespace.Calls().back().first, "CIM_PhysicalElement[4].Model.GetStringValue");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetSystemProductName_vmwesxi, TakesTheMarksInAnyOrder) {
  Add("]- odd -[");
  EXPECT_EQ(Ask(), "]- odd -[");
}

class GetOperatingSystemName_vmwesxi : public HypervisorTest {
 protected:
  GetOperatingSystemName_vmwesxi() : HypervisorTest(kOperatingSystemName) {}
};

TEST_F(GetOperatingSystemName_vmwesxi, ReadsTheBuildNumberWithEmptyContextsThroughout) {
  Add("20036589");
  Add("20036590");
  EXPECT_EQ(Ask(), "20036589");
  const std::string name = "VMware_HypervisorSoftwareIdentity";
  EXPECT_THAT(
      fNamespace.Calls(),
      ElementsAre(Pair("GetClass(" + name + ")", ""), Pair(name + ".EnumerateInstances(deep)", ""),
                  Pair(name + "[0].GetProperty(LargeBuildNumber)", ""),
                  Pair(name + "[0].LargeBuildNumber.GetStringValue", "none")));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetOperatingSystemName_vmwesxi, AppliesNoTestOfFormat) {
  Add("");
  Add("20036590");
  EXPECT_EQ(Ask(), "");
}

}  // namespace
