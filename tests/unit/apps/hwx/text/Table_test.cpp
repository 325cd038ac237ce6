#include "hwx/text/Table.h"

#include <gtest/gtest.h>

namespace hwx {
namespace {

TEST(AlignedTable, AlignsColumnsWithTwoBlanksBetween) {
  EXPECT_EQ(AlignedTable({{"Model", "AC1"}, {"Serial number", "K"}}),
            "Model          AC1\n"
            "Serial number  K\n");
}

TEST(AlignedTable, PutsTheIndentInFrontOfEachLine) {
  EXPECT_EQ(AlignedTable({{"a", "b"}, {"c", "d"}}, "  "), "  a  b\n  c  d\n");
}

TEST(AlignedTable, LeavesNoBlanksAtTheEndsOfLines) {
  EXPECT_EQ(AlignedTable({{"a", ""}, {"long", "x"}, {"alone"}}), "a\nlong   x\nalone\n");
}

TEST(AlignedTable, KeepsOneLineForACellWithNewlines) {
  EXPECT_EQ(AlignedTable({{"a", "b\nc"}, {"d", "\x1b[2J"}}), "a  b\\x0ac\nd  \\x1b[2J\n");
}

TEST(AlignedTable, MeasuresCellsAsTheyAreShown) {
  EXPECT_EQ(AlignedTable({{"\xC3\xBC", "1"}, {"\x01", "2"}}), "\xC3\xBC     1\n\\x01  2\n");
}

TEST(AlignedTable, IsEmptyWithoutRows) {
  EXPECT_EQ(AlignedTable({}), "");
}

}  // namespace
}  // namespace hwx
