#include "hwx/text/ConfigReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace hwx {
namespace {

using nlohmann::json;

TEST(ConfigKeysText, HasALineForEachKey) {
  EXPECT_EQ(ConfigKeysText({"a", "b.c", "two words"}), "a\nb.c\ntwo words\n");
}

TEST(ConfigKeysText, NeverSteersTheTerminal) {
  EXPECT_EQ(ConfigKeysText({"\x1b[2J", "old\r"}), "\\x1b[2J\nold\\x0d\n");
}

TEST(ConfigKeysJson, HoldsTheFileAndTheKeys) {
  const json expected = {{"file", "/opt/lib/dct/dct.cfg"}, {"keys", {"a", "b\r"}}};
  EXPECT_EQ(json::parse(ConfigKeysJson("/opt/lib/dct/dct.cfg", {"a", "b\r"})), expected);
}

TEST(ConfigKeysJson, HasAListOfASingleKeyToo) {
  EXPECT_EQ(json::parse(ConfigKeysJson("f", {"a"}))["keys"], json::array({"a"}));
  EXPECT_EQ(json::parse(ConfigKeysJson("f", {"a", "b"}))["keys"], json::array({"a", "b"}));
}

TEST(ConfigValueText, IsTheValueInALine) {
  EXPECT_EQ(ConfigValueText("300"), "300\n");
  EXPECT_EQ(ConfigValueText(" b=c "), " b=c \n");
}

TEST(ConfigValueText, NeverSteersTheTerminal) {
  EXPECT_EQ(ConfigValueText("\x1b]0;owned\x07"), "\\x1b]0;owned\\x07\n");
  EXPECT_EQ(ConfigValueText("300\r"), "300\\x0d\n");
}

TEST(ConfigValueJson, HoldsFileKeyAndValue) {
  const json expected = {{"file", "f"}, {"key", "k"}, {"value", "v\r"}};
  EXPECT_EQ(json::parse(ConfigValueJson("f", "k", "v\r")), expected);
}

TEST(ConfigValueJson, ReplacesBytesThatAreNoUtf8) {
  EXPECT_EQ(json::parse(ConfigValueJson("f", "k", "Box\xFF"))["value"], "Box\xEF\xBF\xBD");
}

}  // namespace
}  // namespace hwx
