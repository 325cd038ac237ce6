#include "hwxcore/schema/TCIMSchemaHelper.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "support/RecordingNamespace.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"

using hwxtest::RecordingNamespace;
using hwxtest::ScopedLogCapture;
using hwxtest::StatusOf;
using NQORHWX20::ICIMNamespace;
using NQORHWX20::TCIMSchemaHelper;
using NQORHWX20::TCIMValue;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

const char kPlugin[] = "nspID=plugin";
const char kEmpty[] = "";

TEST(TCIMSchemaHelper, NamesItsProvidersContextAndClasses) {
  EXPECT_EQ(TCIMSchemaHelper::kPluginNSPName, "plugin");
  EXPECT_EQ(TCIMSchemaHelper::kCMPINSPName, "cmpi");
  EXPECT_EQ(TCIMSchemaHelper::kContextName, "nspID");
  EXPECT_EQ(TCIMSchemaHelper::kSystemCreationClassName, "QORSG_ComputerSystem");
  EXPECT_EQ(TCIMSchemaHelper::kOperatingSystemCreationClassName, "QORSG_OperatingSystem");
}

TEST(TCIMSchemaHelper, GivesClassNamesWithoutAskingTheNamespace) {
  RecordingNamespace ns;
  EXPECT_EQ(TCIMSchemaHelper::GetSystemCreationClassName(ns.Get()), "QORSG_ComputerSystem");
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemCreationClassName(ns.Get()),
            "QORSG_OperatingSystem");
  EXPECT_THAT(ns.Calls(), IsEmpty());
  EXPECT_EQ(TCIMSchemaHelper::GetSystemCreationClassName(nullptr), "QORSG_ComputerSystem");
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemCreationClassName(nullptr),
            "QORSG_OperatingSystem");
}

// A query that reads a property of the only instance of a class, as text.
struct StrictQuery {
  const char* fTitle;
  std::string (*fAsk)(boost::shared_ptr<ICIMNamespace>);
  const char* fClass;
  const char* fProperty;
  TCIMValue fStored;
  const char* fAnswer;
};

std::string AskOperatingSystemType(boost::shared_ptr<ICIMNamespace> ns) {
  return std::to_string(TCIMSchemaHelper::GetOperatingSystemType(ns));
}

const StrictQuery kStrictQueries[] = {
    {"ProductName", &TCIMSchemaHelper::GetSystemProductName, "QORSG_ComputerSystem", "ProductName",
     "  Rack -[7870A1B]- ", "  Rack -[7870A1B]- "},
    {"SystemName", &TCIMSchemaHelper::GetSystemName, "QORSG_ComputerSystem", "Name", "host.example",
     "host.example"},
    {"OSName", &TCIMSchemaHelper::GetOperatingSystemName, "QORSG_OperatingSystem", "Name", "Linux",
     "Linux"},
    {"OSVersion", &TCIMSchemaHelper::GetOperatingSystemVersion, "QORSG_OperatingSystem", "Version",
     "", ""},
    {"OSType", &AskOperatingSystemType, "QORSG_OperatingSystem", "OSType",
     static_cast<unsigned short>(65535), "65535"},
};

class TCIMSchemaHelperStrictQuery : public testing::TestWithParam<StrictQuery> {
 protected:
  int Status() {
    return StatusOf([&] { GetParam().fAsk(fNamespace.Get()); });
  }
  std::string Path(const std::string& call) const { return GetParam().fClass + call; }
  std::string GetProperty() const { return Path("[0].GetProperty(") + GetParam().fProperty + ")"; }
  std::string GetValue() const { return Path("[0].") + GetParam().fProperty + ".GetValue"; }
  void AddInstance(const TCIMValue& value) {
    fNamespace.AddInstance(GetParam().fClass, {{GetParam().fProperty, value}});
  }
  // Fails one call of the query, with a status and with an exception of another kind.
  void ExpectFailureToPass(const std::string& call) {
    for (const auto status : {NQORHWX20::kHWXStatusNotFound, NQORHWX20::kHWXStatusAccessDenied}) {
      fNamespace.Fail(call, status);
      EXPECT_EQ(Status(), status) << call;
    }
    fNamespace.Do(call, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(GetParam().fAsk(fNamespace.Get()), std::runtime_error) << call;
  }

  RecordingNamespace fNamespace;
  ScopedLogCapture fLog;
};

TEST_P(TCIMSchemaHelperStrictQuery, ReadsTheOnlyInstanceWithTheContextOfEachStep) {
  AddInstance(GetParam().fStored);
  EXPECT_EQ(GetParam().fAsk(fNamespace.Get()), GetParam().fAnswer);
  EXPECT_THAT(fNamespace.Calls(),
              ElementsAre(Pair(std::string("GetClass(") + GetParam().fClass + ")", kPlugin),
                          Pair(Path(".EnumerateInstances(deep)"), kEmpty),
                          Pair(GetProperty(), kPlugin), Pair(GetValue(), kEmpty)));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_P(TCIMSchemaHelperStrictQuery, ThrowsNotFoundForAnyNumberOfInstancesButOne) {
  fNamespace.AddClass(GetParam().fClass);
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_EQ(fNamespace.Calls().size(), 2u);
  AddInstance(GetParam().fStored);
  AddInstance(GetParam().fStored);
  fNamespace.ForgetCalls();
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_EQ(fNamespace.Calls().size(), 2u);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_P(TCIMSchemaHelperStrictQuery, PassesFailuresOnWithoutALogEntry) {
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);  // no such class
  fNamespace.AddInstance(GetParam().fClass, {});
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);  // no such property
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_P(TCIMSchemaHelperStrictQuery, PassesTheFailureOfEachStepOn) {
  AddInstance(GetParam().fStored);
  ExpectFailureToPass(GetValue());
  ExpectFailureToPass(GetProperty());
  ExpectFailureToPass(Path(".EnumerateInstances(deep)"));
  ExpectFailureToPass(std::string("GetClass(") + GetParam().fClass + ")");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_P(TCIMSchemaHelperStrictQuery, AsksNoOtherProviderWhenItFails) {
  EXPECT_NE(Status(), NQORHWX20::kHWXStatusOK);
  EXPECT_THAT(fNamespace.Calls(),
              ElementsAre(Pair(std::string("GetClass(") + GetParam().fClass + ")", kPlugin)));
}

TEST_P(TCIMSchemaHelperStrictQuery, TakesAnEmptyPointerForAThingThatIsNotThere) {
  AddInstance(GetParam().fStored);
  for (const std::string& call :
       {GetProperty(), Path("[0]"), std::string("GetClass(") + GetParam().fClass + ")"}) {
    fNamespace.HandOutNothing(call);
    EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound) << call;
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_P(TCIMSchemaHelperStrictQuery, RefusesANullValue) {
  AddInstance(TCIMValue(GetParam().fStored.GetType(), 0));
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusValueIsNULL);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_P(TCIMSchemaHelperStrictQuery, RefusesAValueOfAnotherType) {
  AddInstance(static_cast<short>(1));
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusTypeMismatch);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, TCIMSchemaHelperStrictQuery, testing::ValuesIn(kStrictQueries),
                         [](const auto& query) { return std::string(query.param.fTitle); });

}  // namespace
