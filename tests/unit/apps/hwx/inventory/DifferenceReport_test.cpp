#include "hwx/inventory/DifferenceReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace hwx {
namespace {

TDifference OneOfEach() {
  TDifference difference;
  difference.fRemoved = {{"EX_Disk.Name=\"sda\"", {{"Size", 1}}}};
  difference.fAdded = {{"EX_Disk.Name=\"s\033b\"", {{"Size", 2}}}};
  difference.fChanged = {
      {"EX_Disk.Name=\"sdc\"", {{"Size", 1, 2}, {"Model", nullptr, "null\033\xFF"}}}};
  difference.fEqual = 7;
  return difference;
}

TEST(DifferenceText, MarksInstancesAndCountsThem) {
  EXPECT_EQ(DifferenceText(OneOfEach(), EValues::kMeant),
            "- EX_Disk.Name=\"sda\"\n"
            "+ EX_Disk.Name=\"s\\x1bb\"\n"
            "~ EX_Disk.Name=\"sdc\"\n"
            "    Size   1 -> 2\n"
            "    Model  null -> \"null\\u001b\xEF\xBF\xBD\"\n"
            "1 removed, 1 added, 1 changed, 7 equal\n");
}

TEST(DifferenceText, IsASummaryWhenNothingDiffers) {
  EXPECT_EQ(DifferenceText(TDifference(), EValues::kMeant),
            "0 removed, 0 added, 0 changed, 0 equal\n");
}

TDifference ChangesWithWords() {
  TDifference difference;
  difference.fAdded = {{"EX_Disk", {{"Size", 1024}}, {{"Size", "1 KiB"}}}};
  difference.fChanged = {{"EX_Module",
                          {{"Form", 8, 3, "DIMM", std::nullopt},
                           {"Free", 77570568192, 77570568191, "72.2 GiB", "72.2 GiB"}}}};
  return difference;
}

TEST(DifferenceText, TellsWhatValuesMeanUnlessThatHidesTheChange) {
  EXPECT_EQ(DifferenceText(ChangesWithWords(), EValues::kMeant),
            "+ EX_Disk\n"
            "~ EX_Module\n"
            "    Form  DIMM -> 3\n"
            "    Free  77570568192 -> 77570568191\n"
            "0 removed, 1 added, 1 changed, 0 equal\n");
}

TEST(DifferenceText, TellsWhatIsStoredWhenAskedTo) {
  EXPECT_NE(DifferenceText(ChangesWithWords(), EValues::kStored).find("Form  8 -> 3\n"),
            std::string::npos);
}

TEST(DifferenceJson, TellsWhatValuesMeanWhenAskedTo) {
  const auto printed = nlohmann::json::parse(DifferenceJson(ChangesWithWords(), EValues::kMeant));
  EXPECT_EQ(printed["added"][0]["values"]["Size"],
            nlohmann::json::parse(R"({"value": 1024, "text": "1 KiB"})"));
  const auto& form = printed["changed"][0]["properties"][0];
  EXPECT_EQ(form["old"], nlohmann::json::parse(R"({"value": 8, "text": "DIMM"})"));
  EXPECT_EQ(form["new"], 3);
}

TEST(DifferenceJson, HasAllThatDiffers) {
  EXPECT_EQ(nlohmann::json::parse(DifferenceJson(OneOfEach(), EValues::kStored)),
            nlohmann::json::parse(R"({
    "removed": [{"path": "EX_Disk.Name=\"sda\"", "values": {"Size": 1}}],
    "added": [{"path": "EX_Disk.Name=\"s\u001bb\"", "values": {"Size": 2}}],
    "changed": [{"path": "EX_Disk.Name=\"sdc\"", "properties": [
      {"name": "Size", "old": 1, "new": 2},
      {"name": "Model", "old": null, "new": "null\u001b\ufffd"}]}],
    "equal": 7})"));
}

}  // namespace
}  // namespace hwx
