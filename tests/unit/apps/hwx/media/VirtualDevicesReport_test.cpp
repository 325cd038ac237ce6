#include "hwx/media/VirtualDevicesReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace hwx {
namespace {

using nlohmann::json;

TEST(VirtualDevicesText, HasALineForEachDeviceBehindItsClass) {
  EXPECT_EQ(VirtualDevicesText({{"disk", {"/dev/sdb (/dev/sg2)", "/dev/sdc"}}, {"mouse", {}}}),
            "disk   /dev/sdb (/dev/sg2)\n"
            "disk   /dev/sdc\n"
            "mouse  none\n");
}

TEST(VirtualDevicesText, NeverSteersTheTerminal) {
  EXPECT_EQ(VirtualDevicesText({{"disk", {"\x1b[2J"}}}), "disk  \\x1b[2J\n");
}

TEST(VirtualDevicesJson, HoldsAListForEachClass) {
  const json expected = {{"disk", {"/dev/sdb"}}, {"mouse", json::array()}};
  EXPECT_EQ(json::parse(VirtualDevicesJson({{"disk", {"/dev/sdb"}}, {"mouse", {}}})), expected);
}

}  // namespace
}  // namespace hwx
