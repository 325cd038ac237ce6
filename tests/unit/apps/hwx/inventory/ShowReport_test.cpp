#include "hwx/inventory/ShowReport.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "hwxcore/value/THWXException.h"
#include "unit/apps/hwx/inventory/MadeDisks.h"

namespace hwx {
namespace {

using namespace NQORHWX20;
using hwxtest::AddDisk;
using hwxtest::MakeDisks;
using nlohmann::json;

TEST(ShowTable, PutsPropertiesUnderThePathAndLeavesNullsOut) {
  const auto ns = MakeDisks();
  AddDisk(ns, "sda", 500);
  AddDisk(ns, "sdb\033[2J", 1);
  const TShownClasses shown = ShowTable(AllClasses(*ns));
  EXPECT_EQ(shown.fText,
            "EX_Disk.Name=\"sda\"\n"
            "  Name  sda\n"
            "  Size  500\n"
            "\n"
            "EX_Disk.Name=\"sdb\\x1b[2J\"\n"
            "  Name  sdb\\x1b[2J\n"
            "  Size  1\n");
  EXPECT_TRUE(shown.fIsComplete);
}

TEST(ShowTable, IsEmptyWithoutInstances) {
  EXPECT_EQ(ShowTable(AllClasses(*MakeDisks())).fText, "");
}

TEST(ShowJson, TellsTheWholeClass) {
  const auto ns = MakeDisks();
  AddDisk(ns, "sda", 500);
  const json shown = json::parse(ShowJson(ClassesUnder(*ns, "EX_Disk")).fText);
  EXPECT_EQ(shown, json::parse(R"({"classes": [{
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
  const json shown = json::parse(ShowJson(AllClasses(*MakeDisks())).fText);
  const json& device = shown["classes"][0];
  EXPECT_EQ(device["superclass"], nullptr);
  EXPECT_EQ(device["abstract"], true);
  EXPECT_EQ(device["instances"], json::array());
}

TEST(ShowReports, GoOnBehindAClassThatFails) {
  const auto ns = MakeDisks();
  AddDisk(ns, "sda", 1);
  TClassBuilder(ns, "EX_Tape")
      .Key("Name", "string")
      .Commit()
      ->SetInstanceSource([](TInstanceList&) { throw THWXException(kHWXStatusAccessDenied); });
  testing::internal::CaptureStderr();
  for (const TShownClasses& shown : {ShowTable(AllClasses(*ns)), ShowJson(AllClasses(*ns))}) {
    EXPECT_FALSE(shown.fIsComplete);
    EXPECT_THAT(shown.fText, testing::HasSubstr("sda"));
  }
  testing::internal::GetCapturedStderr();
}

}  // namespace
}  // namespace hwx
