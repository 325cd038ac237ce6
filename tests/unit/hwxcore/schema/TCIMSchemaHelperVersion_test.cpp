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

const char kDataSource[] = "QORSG_HWXProduct";

class DataSourceQuery : public hwxtest::QueryTest {
 protected:
  void AddVersion(const TCIMValue& version) {
    fNamespace.AddInstance(kDataSource, {{"Version", version}});
  }
  void AddBuild(const TCIMValue& build) { fNamespace.AddInstance(kDataSource, {{"Build", build}}); }
};

class GetDataSourceVersion : public DataSourceQuery {
 protected:
  std::string Ask() { return TCIMSchemaHelper::GetDataSourceVersion(fNamespace.Get(), {}); }
  int Status() {
    return StatusOf([&] { Ask(); });
  }
};

TEST_F(GetDataSourceVersion, ReadsTheLastInstanceWithTheContextOfEachStep) {
  AddVersion("1.1.1.1");
  AddVersion("2.2.2.2");
  AddVersion("3.3.3.3");
  EXPECT_EQ(TCIMSchemaHelper::GetDataSourceVersion(fNamespace.Get(), {}), "3.3.3.3");
  EXPECT_THAT(fNamespace.Calls(),
              ElementsAre(Pair("GetClass(QORSG_HWXProduct)", "nspID=plugin"),
                          Pair("QORSG_HWXProduct.EnumerateInstances(deep)", ""),
                          Pair("QORSG_HWXProduct[2].GetProperty(Version)", "nspID=plugin"),
                          Pair("QORSG_HWXProduct[2].Version.GetValue", "")));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetDataSourceVersion, OverwritesTheProviderInItsOwnCopyOfTheContext) {
  AddVersion("1.2.3.4");
  const TCIMContext context = CallersContext();
  TCIMSchemaHelper::GetDataSourceVersion(fNamespace.Get(), context);
  ExpectUnchanged(context);
  EXPECT_EQ(fNamespace.Calls()[0].second, "nspID=plugin user=someone");
  EXPECT_EQ(fNamespace.Calls()[1].second, "");
  EXPECT_EQ(fNamespace.Calls()[2].second, "nspID=plugin user=someone");
}

TEST_F(GetDataSourceVersion, OverwritesAProviderThatIsNoString) {
  AddVersion("1.2.3.4");
  const TCIMValue null(TCIMValue::TCIMType::kCIMTypeDateTime, 0);
  TCIMSchemaHelper::GetDataSourceVersion(fNamespace.Get(), {{"nspID", null}});
  EXPECT_EQ(fNamespace.Calls()[0].second, "nspID=plugin");
}

TEST_F(GetDataSourceVersion, ThrowsNotFoundWithoutAnInstance) {
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  fNamespace.AddClass(kDataSource);
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetDataSourceVersion, DoesNotFallBackToAnEarlierInstance) {
  AddVersion("1.1.1.1");
  fNamespace.AddInstance(kDataSource, {});
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  AddVersion(TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0));
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusValueIsNULL);
  AddVersion(5);
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusTypeMismatch);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetDataSourceVersion, PassesTheFailureOfEachStepOn) {
  AddVersion("1.2.3.4");
  ExpectStatusToPass(
      {"QORSG_HWXProduct[0].Version.GetValue", "QORSG_HWXProduct[0].GetProperty(Version)",
       "QORSG_HWXProduct.EnumerateInstances(deep)", "GetClass(QORSG_HWXProduct)"},
      [&] { Ask(); });
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetDataSourceVersion, TakesAnEmptyPointerForAThingThatIsNotThere) {
  AddVersion("1.2.3.4");
  ExpectEmptyPointerNotFound({"QORSG_HWXProduct[0].GetProperty(Version)", "QORSG_HWXProduct[0]",
                              "GetClass(QORSG_HWXProduct)"},
                             [&] { Ask(); });
}

class GetDataSourceBuild : public DataSourceQuery {
 protected:
  std::string Ask() { return TCIMSchemaHelper::GetDataSourceBuild(fNamespace.Get(), {}); }
};

TEST_F(GetDataSourceBuild, SendsTheCallersContextToTheClassAndEmptyOnesFurtherOn) {
  AddBuild(1234u);
  const TCIMContext context = CallersContext();
  EXPECT_EQ(TCIMSchemaHelper::GetDataSourceBuild(fNamespace.Get(), context), "1234");
  ExpectUnchanged(context);
  EXPECT_THAT(fNamespace.Calls(),
              ElementsAre(Pair("GetClass(QORSG_HWXProduct)", "nspID=cmpi user=someone"),
                          Pair("QORSG_HWXProduct.EnumerateInstances(deep)", ""),
                          Pair("QORSG_HWXProduct[0].GetProperty(Build)", ""),
                          Pair("QORSG_HWXProduct[0].Build.GetValue", "")));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetDataSourceBuild, ChoosesNoProviderOfItsOwn) {
  AddBuild(1234u);
  Ask();
  EXPECT_EQ(fNamespace.Calls()[0].second, "");
}

TEST_F(GetDataSourceBuild, IsTheFirstThatCanBeReadInDecimalDigits) {
  fNamespace.AddInstance(kDataSource, {});
  AddBuild(TCIMValue(TCIMValue::TCIMType::kCIMTypeUInt32, 0));
  AddBuild(4294967295u);
  AddBuild(7u);
  EXPECT_EQ(Ask(), "4294967295");
}

TEST_F(GetDataSourceBuild, TakesATextAsItStands) {
  AddBuild("CY12");
  EXPECT_EQ(Ask(), "CY12");
}

TEST_F(GetDataSourceBuild, IsEmptyWithoutTheClassOrAnInstanceThatCanBeRead) {
  EXPECT_EQ(Ask(), "");
  fNamespace.AddClass(kDataSource);
  EXPECT_EQ(Ask(), "");
  fNamespace.AddInstance(kDataSource, {});
  EXPECT_EQ(Ask(), "");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetDataSourceBuild, IsEmptyWhateverStatusTheClassFailsWith) {
  AddBuild(1234u);
  for (const auto status : {NQORHWX20::kHWXStatusNotFound, NQORHWX20::kHWXStatusAccessDenied}) {
    fNamespace.Fail("GetClass(QORSG_HWXProduct)", status);
    EXPECT_EQ(Ask(), "");
  }
  EXPECT_EQ(fNamespace.Calls().size(), 2u);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetDataSourceBuild, TakesAnEmptyPointerForAThingThatIsNotThere) {
  AddBuild(1234u);
  AddBuild(1235u);
  AddBuild(1236u);
  fNamespace.HandOutNothing("QORSG_HWXProduct[0]");
  fNamespace.HandOutNothing("QORSG_HWXProduct[1].GetProperty(Build)");
  EXPECT_EQ(Ask(), "1236");
  fNamespace.HandOutNothing("GetClass(QORSG_HWXProduct)");
  EXPECT_EQ(Ask(), "");
}

TEST_F(GetDataSourceBuild, PassesAFailureOfTheEnumerationOn) {
  AddBuild(1234u);
  fNamespace.Fail("QORSG_HWXProduct.EnumerateInstances(deep)", NQORHWX20::kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { Ask(); }), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(GetDataSourceBuild, PassesOtherExceptionsOn) {
  AddBuild(1234u);
  ExpectOtherExceptionsToPass(
      {"QORSG_HWXProduct[0].Build.GetValue", "QORSG_HWXProduct[0].GetProperty(Build)",
       "QORSG_HWXProduct.EnumerateInstances(deep)", "GetClass(QORSG_HWXProduct)"},
      [&] { Ask(); });
}

// The version parts. A part that is not there throws `kHWXStatusNotFound`.
struct VersionParts {
  const char* fVersion;
  const char* fMajor;
  const char* fMinor;
  const char* fBuildVersion;
};

const VersionParts kVersionParts[] = {
    {"12.34.56.78", "12", "34", "78"},
    {"12.34.56", "12", "34", "56"},
    {"12.34", "12", nullptr, "34"},
    {"12", nullptr, nullptr, nullptr},
    {"", nullptr, nullptr, nullptr},
    {".34.56.78", "", "34", "78"},
    {"12.34.56.", "12", "34", ""},
    {".", "", nullptr, ""},
    {"..", "", "", ""},
    {"1.2.3.4.5.6", "1", "2", "6"},
    {"a b.c d.e", "a b", "c d", "e"},
};

class DataSourceVersionPart : public DataSourceQuery {
 protected:
  // What `call` returns, "none" if it throws.
  template <typename Call>
  std::string PartOf(Call call) {
    std::string part = "none";
    const int status = StatusOf([&] { part = call(); });
    EXPECT_EQ(status, part == "none" ? NQORHWX20::kHWXStatusNotFound : NQORHWX20::kHWXStatusOK);
    return part;
  }
  static std::string Expected(const char* part) { return part ? part : "none"; }
};

TEST_F(DataSourceVersionPart, IsCutAtTheDots) {
  for (const VersionParts& parts : kVersionParts) {
    AddVersion(parts.fVersion);
    const auto ns = fNamespace.Get();
    EXPECT_EQ(PartOf([&] { return TCIMSchemaHelper::GetDataSourceMajorVersion(ns, {}); }),
              Expected(parts.fMajor))
        << parts.fVersion;
    EXPECT_EQ(PartOf([&] { return TCIMSchemaHelper::GetDataSourceMinorVersion(ns, {}); }),
              Expected(parts.fMinor))
        << parts.fVersion;
    EXPECT_EQ(PartOf([&] { return TCIMSchemaHelper::GetDataSourceBuildVersion(ns); }),
              Expected(parts.fBuildVersion))
        << parts.fVersion;
  }
}

TEST_F(DataSourceVersionPart, IsLoggedAsMissingForTheMajorVersionAlone) {
  AddVersion("12");
  const auto ns = fNamespace.Get();
  PartOf([&] { return TCIMSchemaHelper::GetDataSourceMinorVersion(ns, {}); });
  PartOf([&] { return TCIMSchemaHelper::GetDataSourceBuildVersion(ns); });
  EXPECT_THAT(fLog.Lines(), IsEmpty());
  PartOf([&] { return TCIMSchemaHelper::GetDataSourceMajorVersion(ns, {}); });
  EXPECT_THAT(fLog.Lines(),
              ElementsAre(Pair("Debug", "TCIMSchemaHelper::GetDataSourceMajorVersion - Throwing")));
}

TEST_F(DataSourceVersionPart, IsNotLoggedWhenItIsThere) {
  AddVersion("1.2.3.4");
  TCIMSchemaHelper::GetDataSourceMajorVersion(fNamespace.Get(), {});
  TCIMSchemaHelper::GetDataSourceMinorVersion(fNamespace.Get(), {});
  TCIMSchemaHelper::GetDataSourceBuildVersion(fNamespace.Get());
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(DataSourceVersionPart, CarriesTheCallersContextWhereThereIsOne) {
  AddVersion("1.2.3.4");
  const TCIMContext context = CallersContext();
  TCIMSchemaHelper::GetDataSourceMajorVersion(fNamespace.Get(), context);
  EXPECT_EQ(fNamespace.Calls()[0].second, "nspID=plugin user=someone");
  fNamespace.ForgetCalls();
  TCIMSchemaHelper::GetDataSourceMinorVersion(fNamespace.Get(), context);
  EXPECT_EQ(fNamespace.Calls()[0].second, "nspID=plugin user=someone");
  fNamespace.ForgetCalls();
  TCIMSchemaHelper::GetDataSourceBuildVersion(fNamespace.Get());
  EXPECT_EQ(fNamespace.Calls()[0].second, "nspID=plugin");
  ExpectUnchanged(context);
}

TEST_F(DataSourceVersionPart, PassesTheFailuresOfTheVersionOnUnlogged) {
  const auto ns = fNamespace.Get();
  fNamespace.Fail("GetClass(QORSG_HWXProduct)", NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_EQ(StatusOf([&] { TCIMSchemaHelper::GetDataSourceMajorVersion(ns, {}); }),
            NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_EQ(StatusOf([&] { TCIMSchemaHelper::GetDataSourceMinorVersion(ns, {}); }),
            NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_EQ(StatusOf([&] { TCIMSchemaHelper::GetDataSourceBuildVersion(ns); }),
            NQORHWX20::kHWXStatusAccessDenied);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

}  // namespace
