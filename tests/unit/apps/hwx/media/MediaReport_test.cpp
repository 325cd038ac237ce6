#include "hwx/media/MediaReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace hwx {
namespace {

using nlohmann::json;

TAnswer<std::vector<TMedium>> Answer(const std::vector<TMedium>& media) {
  return {media, ""};
}

const auto kNone = Missing<std::vector<TMedium>>("no list");

TEST(MediaText, HasALineForEachDrive) {
  EXPECT_EQ(MediaText(Answer({{"/dev/sdb", "Maker - Stick", {"/mnt/key", "/home"}},
                              {"/dev/floppy", "Built-in Floppy Drive", {}}})),
            "/dev/sdb     Maker - Stick          /mnt/key, /home\n"
            "/dev/floppy  Built-in Floppy Drive  not mounted\n");
}

TEST(MediaText, SaysThatThereIsNone) {
  EXPECT_EQ(MediaText(Answer({})), "none\n");
}

TEST(MediaText, SaysWhyNoneIsKnown) {
  EXPECT_EQ(MediaText(kNone), "none known: no list\n");
}

TEST(MediaText, NeverSteersTheTerminal) {
  EXPECT_EQ(MediaText(Answer({{"/dev/sdb", "\x1b[2J", {"/m\n"}}})),
            "/dev/sdb  \\x1b[2J  /m\\x0a\n");
}

TEST(MediaJson, HoldsEachDrive) {
  const json expected = {
      {"media",
       {{{"device", "/dev/sdb"}, {"description", "d"}, {"mountPoints", {"/mnt/key"}}},
        {{"device", "/dev/fd0"}, {"description", "f"}, {"mountPoints", json::array()}}}}};
  EXPECT_EQ(
      json::parse(MediaJson(Answer({{"/dev/sdb", "d", {"/mnt/key"}}, {"/dev/fd0", "f", {}}}))),
      expected);
}

TEST(MediaJson, HasAListOfOneOrNoneToo) {
  EXPECT_EQ(json::parse(MediaJson(Answer({{"/dev/sdb", "d", {}}})))["media"].size(), 1u);
  EXPECT_EQ(json::parse(MediaJson(Answer({}))), json({{"media", json::array()}}));
}

TEST(MediaJson, HoldsTheReason) {
  const json expected = {{"media", json::array()}, {"reason", "no list"}};
  EXPECT_EQ(json::parse(MediaJson(kNone)), expected);
}

}  // namespace
}  // namespace hwx
