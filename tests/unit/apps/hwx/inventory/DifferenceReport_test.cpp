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
  EXPECT_EQ(DifferenceText(OneOfEach()),
            "- EX_Disk.Name=\"sda\"\n"
            "+ EX_Disk.Name=\"s\\x1bb\"\n"
            "~ EX_Disk.Name=\"sdc\"\n"
            "    Size   1 -> 2\n"
            "    Model  null -> \"null\\u001b\xEF\xBF\xBD\"\n"
            "1 removed, 1 added, 1 changed, 7 equal\n");
}

TEST(DifferenceText, IsASummaryWhenNothingDiffers) {
  EXPECT_EQ(DifferenceText(TDifference()), "0 removed, 0 added, 0 changed, 0 equal\n");
}

TEST(DifferenceJson, HasAllThatDiffers) {
  EXPECT_EQ(nlohmann::json::parse(DifferenceJson(OneOfEach())), nlohmann::json::parse(R"({
    "removed": [{"path": "EX_Disk.Name=\"sda\"", "values": {"Size": 1}}],
    "added": [{"path": "EX_Disk.Name=\"s\u001bb\"", "values": {"Size": 2}}],
    "changed": [{"path": "EX_Disk.Name=\"sdc\"", "properties": [
      {"name": "Size", "old": 1, "new": 2},
      {"name": "Model", "old": null, "new": "null\u001b\ufffd"}]}],
    "equal": 7})"));
}

}  // namespace
}  // namespace hwx
