// The serial number and the product name as stored, for the queries that take them apart. Unlike
// the rest, these two log what is missing.

#include "QueryTesting.h"

using NQORHWX20::ICIMNamespace;
using NQORHWX20::TCIMSchemaHelper;
using NQORHWX20::TCIMValue;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

struct RawTextQuery {
  const char* fProperty;
  std::string (*fAsk)(boost::shared_ptr<ICIMNamespace>);
};

std::string AskSerialNumber(boost::shared_ptr<ICIMNamespace> ns) {
  return TCIMSchemaHelper::GetRawSerialNumberString(ns, {});
}

const RawTextQuery kQueries[] = {{"SerialNumber", &AskSerialNumber},
                                 {"ProductName", &TCIMSchemaHelper::GetRawMTMString}};

const char kSystem[] = "QORSG_ComputerSystem";
const char kInstance[] = "QORSG_ComputerSystem[0]";
const char kGetClass[] = "GetClass(QORSG_ComputerSystem)";
const char kEnumerate[] = "QORSG_ComputerSystem.EnumerateInstances(deep)";

const auto kNoSystem = Pair("Debug", "TCIMSchemaHelper: no computer system");

class TCIMSchemaHelperRawText : public hwxtest::QueryTest,
                                public testing::WithParamInterface<RawTextQuery> {
 protected:
  void AddSystem(const TCIMValue& value) { fNamespace.AddInstance(kSystem, {{fProperty, value}}); }
  std::string Ask() { return GetParam().fAsk(fNamespace.Get()); }
  int Status() {
    return hwxtest::StatusOf([&] { Ask(); });
  }

  const std::string fProperty = GetParam().fProperty;
  const std::string fGetProperty = kInstance + (".GetProperty(" + fProperty) + ")";
  const std::string fGetValue = kInstance + ("." + fProperty) + ".GetValue";
};

TEST_P(TCIMSchemaHelperRawText, TellsThatThereIsNoComputerSystem) {
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), ElementsAre(kNoSystem));
  EXPECT_THAT(fNamespace.Calls(), ElementsAre(Pair(kGetClass, "nspID=plugin")));
}

TEST_P(TCIMSchemaHelperRawText, TellsThatThereIsNotExactlyOneInstance) {
  const auto line = Pair("Debug", "TCIMSchemaHelper: computer system instances != 1");
  fNamespace.AddClass(kSystem);
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), ElementsAre(line));
  AddSystem("1A");
  AddSystem("1A");
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), ElementsAre(line, line));
}

TEST_P(TCIMSchemaHelperRawText, TellsThatThereIsNoSuchProperty) {
  fNamespace.AddInstance(kSystem, {});
  EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), ElementsAre(Pair("Debug", "TCIMSchemaHelper: didn't find " + fProperty +
                                                          " property")));
}

TEST_P(TCIMSchemaHelperRawText, TellsAnEmptyPointerAsAThingThatIsNotThere) {
  AddSystem("7870A1B");
  ExpectEmptyPointerNotFound({fGetProperty, kInstance, kGetClass}, [&] { Ask(); });
  const auto noProperty = Pair("Debug", "TCIMSchemaHelper: didn't find " + fProperty + " property");
  EXPECT_THAT(fLog.Lines(), ElementsAre(noProperty, noProperty, kNoSystem));
}

TEST_P(TCIMSchemaHelperRawText, TellsANullValueOfAnyType) {
  for (const auto type : {TCIMValue::TCIMType::kCIMTypeString, TCIMValue::TCIMType::kCIMTypeUInt8,
                          TCIMValue::TCIMType::kCIMTypeNone}) {
    hwxtest::RecordingNamespace ns;
    ns.AddInstance(kSystem, {{fProperty, TCIMValue(type, 0)}});
    EXPECT_EQ(hwxtest::StatusOf([&] { GetParam().fAsk(ns.Get()); }), NQORHWX20::kHWXStatusNotFound);
  }
  const auto line = Pair("Debug", "TCIMSchemaHelper: " + fProperty + " is NULL");
  EXPECT_THAT(fLog.Lines(), ElementsAre(line, line, line));
}

TEST_P(TCIMSchemaHelperRawText, TellsAValueThatIsNoString) {
  const std::vector<TCIMValue> texts = {"7870A1B"};
  for (const TCIMValue& value :
       {TCIMValue(7870), TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0, texts)}) {
    hwxtest::RecordingNamespace ns;
    ns.AddInstance(kSystem, {{fProperty, value}});
    EXPECT_EQ(hwxtest::StatusOf([&] { GetParam().fAsk(ns.Get()); }), NQORHWX20::kHWXStatusNotFound);
  }
  const auto line = Pair("Debug", "TCIMSchemaHelper: " + fProperty + " wasn't a string");
  EXPECT_THAT(fLog.Lines(), ElementsAre(line, line));
}

TEST_P(TCIMSchemaHelperRawText, PassesOtherFailuresOnUnlogged) {
  AddSystem("7870A1B");
  const Calls calls = {fGetValue, fGetProperty, kEnumerate, kGetClass};
  ExpectStatusToPass(calls, [&] { Ask(); });
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_P(TCIMSchemaHelperRawText, PassesOtherExceptionsOnUnlogged) {
  AddSystem("7870A1B");
  const Calls calls = {fGetValue, fGetProperty, kEnumerate, kGetClass};
  ExpectOtherExceptionsToPass(calls, [&] { Ask(); });
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_P(TCIMSchemaHelperRawText, LogsNothingWhenTheEnumerationOrTheValueIsNotFound) {
  AddSystem("7870A1B");
  for (const std::string& call : {fGetValue, std::string(kEnumerate)}) {
    fNamespace.Fail(call, NQORHWX20::kHWXStatusNotFound);
    EXPECT_EQ(Status(), NQORHWX20::kHWXStatusNotFound) << call;
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, TCIMSchemaHelperRawText, testing::ValuesIn(kQueries),
                         [](const auto& query) { return std::string(query.param.fProperty); });

}  // namespace
