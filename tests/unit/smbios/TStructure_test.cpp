#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "smbios/TableWalker.h"
#include "support/SmbiosTables.h"

namespace {

using hwxtest::Bytes;
using hwxtest::SmbiosTables;
using smbios::TStructure;
using testing::ElementsAre;
using testing::IsEmpty;

// The first structure of a table, which must outlive it.
TStructure First(const Bytes& table) {
  std::vector<TStructure> found;
  smbios::WalkTable(table.data(), table.size(), 1, [&](const TStructure& structure) {
    found.push_back(structure);
    return true;
  });
  return found.at(0);
}

TEST(TStructure, TellsItsHeaderAndSizes) {
  const Bytes table{17, 6, 0x34, 0x12, 1, 2, 'a', 'b', 0, 0};
  const TStructure structure = First(table);
  EXPECT_EQ(structure.Type(), 17);
  EXPECT_EQ(structure.Handle(), 0x1234);
  EXPECT_EQ(structure.FormattedSize(), 6u);
  EXPECT_EQ(structure.Size(), 10u);
  EXPECT_EQ(structure.Bytes(), table.data());
}

TEST(TStructure, ReadsNumbersLowestByteFirst) {
  const Bytes table = SmbiosTables().Add(200, {1, 2, 3, 4, 5, 6, 7, 0x88}).Table();
  const TStructure structure = First(table);
  EXPECT_EQ(structure.Byte(4), 0x01);
  EXPECT_EQ(structure.Word(4), 0x0201);
  EXPECT_EQ(structure.DWord(4), 0x04030201u);
  EXPECT_EQ(structure.QWord(4), 0x8807060504030201u);
}

TEST(TStructure, FieldOutsideTheFormattedAreaReadsAsZero) {
  const Bytes table = SmbiosTables().Add(200, {0x11, 0x22}, {"text"}).Table();
  const TStructure structure = First(table);
  EXPECT_EQ(structure.Byte(5), 0x22);
  EXPECT_EQ(structure.Byte(6), 0);
  EXPECT_EQ(structure.Word(4), 0x2211);
  EXPECT_EQ(structure.Word(5), 0);  // half in, half out
  EXPECT_EQ(structure.DWord(4), 0u);
  EXPECT_EQ(structure.QWord(4), 0u);
  EXPECT_EQ(structure.QWord(SIZE_MAX), 0u);
  EXPECT_TRUE(structure.HasField(5, 1));
  EXPECT_FALSE(structure.HasField(5, 2));
  EXPECT_FALSE(structure.HasField(SIZE_MAX, 1));
}

TEST(TStructure, StringsAreNumberedFromOne) {
  const Bytes table = SmbiosTables().Add(200, {2, 0, 3}, {"one", "two"}).Table();
  const TStructure structure = First(table);
  EXPECT_TRUE(structure.HasStrings());
  EXPECT_THAT(structure.Strings(), ElementsAre("one", "two"));
  EXPECT_EQ(structure.String(0), "");
  EXPECT_EQ(structure.String(1), "one");
  EXPECT_EQ(structure.String(2), "two");
  EXPECT_EQ(structure.String(3), "");
  EXPECT_EQ(structure.StringAt(4), "two");
  EXPECT_EQ(structure.StringAt(5), "");  // number 0: none
  EXPECT_EQ(structure.StringAt(6), "");  // past the last
  EXPECT_EQ(structure.StringAt(7), "");  // no such field
}

TEST(TStructure, WithoutStringsEveryNumberIsEmpty) {
  const Bytes table = SmbiosTables().Add(200, {1}).Table();
  const TStructure structure = First(table);
  EXPECT_FALSE(structure.HasStrings());
  EXPECT_THAT(structure.Strings(), IsEmpty());
  EXPECT_EQ(structure.String(1), "");
}

TEST(TStructure, StringsKeepTheirBytes) {
  const std::string bytes = "\xC3\xA9\xFF\x80\x01 \x7F ";
  const Bytes table = SmbiosTables().Add(200, {}, {bytes, "  padded  "}).Table();
  EXPECT_THAT(First(table).Strings(), ElementsAre(bytes, "  padded  "));
}

// An empty string in front keeps its number; two NUL bytes in a row end the strings.
TEST(TStructure, EmptyFirstStringKeepsItsNumber) {
  const Bytes table{200, 4, 0, 0, 0, 'b', 0, 0};
  const TStructure structure = First(table);
  EXPECT_EQ(structure.Size(), table.size());
  EXPECT_THAT(structure.Strings(), ElementsAre("", "b"));
}

TEST(TStructure, HoldsMoreStringsThanAnyFieldCanNumber) {
  const Bytes table = SmbiosTables().Add(200, {}, std::vector<std::string>(300, "x")).Table();
  EXPECT_EQ(First(table).Strings().size(), 300u);
  EXPECT_EQ(First(table).String(300), "x");
}

}  // namespace
