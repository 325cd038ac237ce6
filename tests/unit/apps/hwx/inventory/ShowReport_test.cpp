#include "hwx/inventory/ShowReport.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "hwxcore/value/THWXException.h"
#include "unit/apps/hwx/inventory/MadeDisks.h"
#include "unit/apps/hwx/inventory/MadeModules.h"

namespace hwx {
namespace {

using namespace NQORHWX20;
using hwxtest::AddDisk;
using hwxtest::AddNote;
using hwxtest::MakeDisks;
using hwxtest::MakeModules;
using nlohmann::json;

TReading WholeReading(ICIMNamespace& ns) {
  return ReadInstances(AllClasses(ns));
}

TEST(ShowColumns, HaveALineForEachInstance) {
  EXPECT_EQ(ShowColumns(WholeReading(*MakeModules()), {}),
            "Tag  Capacity  Form  Speed    Maker        Made\n"
            "A    16 GiB    DIMM  3.2 GHz  Acme, \"Inc\"  2022-03-14 12:00:00 +01:00\n"
            "B    8 GiB                    Bolt\n");
}

TEST(ShowColumns, ShowStoredValuesWhenAskedTo) {
  const TColumnsStyle style = {EValues::kStored, {"Tag", "capacity", "Form"}, std::nullopt, false};
  EXPECT_EQ(ShowColumns(WholeReading(*MakeModules()), style), "A  17179869184  8\nB  8589934592\n");
}

TEST(ShowColumns, FitAndTellWhatDoesNot) {
  TColumnsStyle style;
  style.fWidth = 41;
  EXPECT_EQ(ShowColumns(WholeReading(*MakeModules()), style),
            "Tag  Capacity  Form  Speed    Maker\n"
            "A    16 GiB    DIMM  3.2 GHz  Acme, \"Inc\"\n"
            "B    8 GiB                    Bolt\n"
            "(1 column left out: --wide, --long)\n");
}

TEST(ShowColumns, StandUnderTheNamesOfSeveralClasses) {
  const auto ns = MakeDisks();
  AddDisk(ns, "sda", 500);
  AddNote(ns, "one\n");
  EXPECT_EQ(ShowColumns(WholeReading(*ns), {}),
            "EX_Disk\n"
            "Name  Size\n"
            "sda   500\n"
            "\n"
            "EX_Note\n"
            "Text\n"
            "one\\x0a\n");
  TColumnsStyle bare;
  bare.fHasHeader = false;
  EXPECT_EQ(ShowColumns(WholeReading(*ns), bare), "sda  500\none\\x0a\n");
}

TEST(ShowColumns, NameInstancesWithoutValuesByTheirPath) {
  const auto ns = MakeDisks();
  ns->FindClass("EX_Note")->AddInstance(ns->FindClass("EX_Note")->NewInstance());
  EXPECT_EQ(ShowColumns(WholeReading(*ns), {}), "\nEX_Note\n");
}

TEST(ShowLong, PutsPropertiesUnderThePathAndLeavesNullsOut) {
  const auto ns = MakeDisks();
  AddDisk(ns, "sda", 500);
  AddDisk(ns, "sdb\033[2J", 1);
  const std::string shown = ShowLong(WholeReading(*ns), EValues::kMeant);
  EXPECT_EQ(shown,
            "EX_Disk.Name=\"sda\"\n"
            "  Name  sda\n"
            "  Size  500\n"
            "\n"
            "EX_Disk.Name=\"sdb\\x1b[2J\"\n"
            "  Name  sdb\\x1b[2J\n"
            "  Size  1\n");
}

TEST(ShowLong, HasWordsOrWhatIsStored) {
  const TReading reading = WholeReading(*MakeModules());
  EXPECT_THAT(ShowLong(reading, EValues::kMeant), testing::HasSubstr("  Form      DIMM\n"));
  EXPECT_THAT(ShowLong(reading, EValues::kStored), testing::HasSubstr("  Form      8\n"));
}

TEST(ShowReports, AreEmptyWithoutInstances) {
  const TReading reading = WholeReading(*MakeDisks());
  EXPECT_EQ(ShowColumns(reading, {}), "");
  EXPECT_EQ(ShowLong(reading, EValues::kMeant), "");
  EXPECT_EQ(ShowJsonLines(reading, EValues::kStored), "");
  EXPECT_EQ(ShowCsv(reading, EValues::kStored, true), "Class,Path\n");
}

TEST(ShowJson, TellsTheWholeClass) {
  const auto ns = MakeDisks();
  AddDisk(ns, "sda", 500);
  const TReading reading = ReadInstances(ClassesLike(*ns, {"EX_Disk"}));
  EXPECT_EQ(json::parse(ShowJson(reading, EValues::kStored)), json::parse(R"({"classes": [{
    "name": "EX_Disk", "superclass": "EX_Device", "abstract": false, "association": false,
    "properties": [
      {"name": "Name", "type": "string", "key": true},
      {"name": "Size", "type": "uint64", "key": false},
      {"name": "Model", "type": "string", "key": false}],
    "instances": [{
      "path": "EX_Disk.Name=\"sda\"",
      "values": {"Name": "sda", "Size": 500, "Model": null}}]}]})"));
}

TEST(ShowJson, TellsOfRootAndAbstractClasses) {
  const json shown = json::parse(ShowJson(WholeReading(*MakeDisks()), EValues::kStored));
  const json& device = shown["classes"][0];
  EXPECT_EQ(device["superclass"], nullptr);
  EXPECT_EQ(device["abstract"], true);
  EXPECT_EQ(device["instances"], json::array());
}

TEST(ShowJson, TellsWordsWhenAskedTo) {
  const json shown = json::parse(ShowJson(WholeReading(*MakeModules()), EValues::kMeant));
  const json& values = shown["classes"][0]["instances"][0]["values"];
  EXPECT_EQ(values["Form"], json::parse(R"({"value": 8, "text": "DIMM"})"));
  EXPECT_EQ(values["Tag"], "A");
}

TEST(ShowJsonLines, HaveOneForEachInstance) {
  TReading reading = WholeReading(*MakeModules());
  KeepProperties(reading, {"Tag", "Form"});
  EXPECT_EQ(ShowJsonLines(reading, EValues::kStored),
            R"({"class":"EX_Module","path":"EX_Module.Tag=\"A\"","values":{"Tag":"A","Form":8}})"
            "\n"
            R"({"class":"EX_Module","path":"EX_Module.Tag=\"B\"","values":{"Tag":"B","Form":null}})"
            "\n");
}

TEST(ShowCsv, QuotesWhatNeedsIt) {
  TReading reading = WholeReading(*MakeModules());
  KeepProperties(reading, {"Maker", "Form"});
  EXPECT_EQ(ShowCsv(reading, EValues::kStored, true),
            "Class,Path,Maker,Form\n"
            "EX_Module,\"EX_Module.Tag=\"\"A\"\"\",\"Acme, \"\"Inc\"\"\",8\n"
            "EX_Module,\"EX_Module.Tag=\"\"B\"\"\",Bolt,\n");
  EXPECT_EQ(ShowCsv(reading, EValues::kMeant, false).substr(0, 10), "EX_Module,");
}

TEST(ShowReports, GoOnBehindAClassThatFails) {
  const auto ns = MakeDisks();
  AddDisk(ns, "sda", 1);
  TClassBuilder(ns, "EX_Tape")
      .Key("Name", "string")
      .Commit()
      ->SetInstanceSource([](TInstanceList&) { throw THWXException(kHWXStatusAccessDenied); });
  testing::internal::CaptureStderr();
  const TReading reading = WholeReading(*ns);
  EXPECT_FALSE(reading.fIsComplete);
  EXPECT_THAT(ShowLong(reading, EValues::kMeant), testing::HasSubstr("sda"));
  EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("EX_Tape is incomplete"));
}

}  // namespace
}  // namespace hwx
