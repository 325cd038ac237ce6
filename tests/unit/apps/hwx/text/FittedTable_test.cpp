#include "hwx/text/FittedTable.h"

#include <gtest/gtest.h>

#include <sstream>

#include "hwx/text/Printable.h"

namespace hwx {
namespace {

const std::vector<std::vector<std::string>> kRows = {
    {"Name", "Size", "Model"}, {"sda", "500", "A model of a very long name"}, {"sdb", "1", ""}};

std::size_t LongestLine(const std::string& text) {
  std::size_t longest = 0;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);)
    longest = std::max(longest, CharacterCount(line));
  return longest;
}

TEST(FittedTable, IsWholeWhereThereIsRoom) {
  const std::string whole =
      "Name  Size  Model\n"
      "sda   500   A model of a very long name\n"
      "sdb   1\n";
  EXPECT_EQ(FittedTable(kRows, std::nullopt, true).fText, whole);
  EXPECT_EQ(FittedTable(kRows, 39, true).fText, whole);
}

TEST(FittedTable, CutsTheLongestCells) {
  const TFittedTable table = FittedTable(kRows, 30, true);
  EXPECT_EQ(table.fText,
            "Name  Size  Model\n"
            "sda   500   A model of a very~\n"
            "sdb   1\n");
  EXPECT_EQ(table.fLeftColumns, 0u);
}

TEST(FittedTable, LeavesColumnsOutThatHaveNoRoom) {
  const TFittedTable table = FittedTable(kRows, 12, true);
  EXPECT_EQ(table.fText, "Name  Size\nsda   500\nsdb   1\n");
  EXPECT_EQ(table.fLeftColumns, 1u);
}

TEST(FittedTable, KeepsAllColumnsIfItMust) {
  const TFittedTable table = FittedTable(kRows, 12, false);
  EXPECT_EQ(table.fText, "Name  Size  Model\nsda   500   A mod~\nsdb   1\n");
  EXPECT_EQ(table.fLeftColumns, 0u);
}

TEST(FittedTable, FitsAnyWidth) {
  for (const std::size_t width : {17u, 20u, 25u, 40u, 80u, 200u})
    EXPECT_LE(LongestLine(FittedTable(kRows, width, true).fText), width);
}

TEST(FittedTable, CutsBetweenCharactersAndHidesBytes) {
  EXPECT_EQ(
      FittedTable({{"\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F\xC3\xA4\xC3\xB6\xC3\xBC"}}, 6, true).fText,
      "\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F\xC3\xA4~\n");
  EXPECT_EQ(FittedTable({{"a\033b"}}, 80, true).fText, "a\\x1bb\n");
}

TEST(FittedTable, MayBeEmpty) {
  EXPECT_EQ(FittedTable({}, 80, true).fText, "");
  EXPECT_EQ(FittedTable({{}}, 80, true).fText, "\n");
}

TEST(Wrapped, BreaksLinesAtBlanks) {
  EXPECT_EQ(Wrapped("one two three four", 9, "  "), "one two\n  three\n  four");
  EXPECT_EQ(Wrapped("one  two\nthree", std::nullopt, "  "), "one two three");
  EXPECT_EQ(Wrapped("incomprehensible", 5, ""), "incomprehensible");
  EXPECT_EQ(Wrapped("", 5, ""), "");
}

}  // namespace
}  // namespace hwx
