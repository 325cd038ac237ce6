#include "smbios/TableWalker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "support/SmbiosTables.h"

namespace {

using hwxtest::Bytes;
using hwxtest::SmbiosTables;
using smbios::TStructure;
using smbios::TWalk;
using smbios::WalkTable;
using testing::ElementsAre;
using testing::IsEmpty;

// The bytes on the heap with nothing behind them, so that the sanitizer sees a read past the end.
class ExactBytes {
 public:
  explicit ExactBytes(const Bytes& bytes) : fData(new std::uint8_t[bytes.size()]) {
    std::copy(bytes.begin(), bytes.end(), fData.get());
  }
  const std::uint8_t* Get() const { return fData.get(); }

 private:
  std::unique_ptr<std::uint8_t[]> fData;
};

struct Seen {
  std::vector<int> types;
  std::vector<std::size_t> ends;  // byte behind each structure
  TWalk walk;
};

// Walks all, and touches every byte and string of what is found.
Seen Walk(const Bytes& table, std::size_t countLimit = 0) {
  const ExactBytes exact(table);
  Seen seen;
  seen.walk = WalkTable(exact.Get(), table.size(), countLimit, [&](const TStructure& structure) {
    seen.types.push_back(structure.Type());
    seen.ends.push_back(
        static_cast<std::size_t>(structure.Bytes() + structure.Size() - exact.Get()));
    EXPECT_EQ(structure.Bytes()[structure.Size() - 1], 0);
    EXPECT_EQ(structure.Bytes()[structure.Size() - 2], 0);
    for (const std::string_view text : structure.Strings()) {
      EXPECT_EQ(text.find('\0'), std::string_view::npos);
    }
    return true;
  });
  return seen;
}

SmbiosTables WalkedTables() {
  SmbiosTables tables;
  tables.AddBios("Maker", "[AB12-1.05]", "01/02/2020");
  tables.AddSystem({"Maker", "Box 5 -[1234ABC]-", "v1", "SN99", "sku", "family"});
  tables.Add(200, {1, 2, 3});
  tables.AddEnd();
  return tables;
}

TEST(TableWalker, VisitsAllStructuresInOrderTheEndMarkerIncluded) {
  const Bytes table = WalkedTables().Table();
  const Seen seen = Walk(table);
  EXPECT_THAT(seen.types, ElementsAre(0, 1, 200, 127));
  EXPECT_EQ(seen.walk.fCount, 4u);
  EXPECT_EQ(seen.walk.fOffset, table.size());
  EXPECT_TRUE(seen.walk.fEnded);
  EXPECT_FALSE(seen.walk.fStopped);
  EXPECT_EQ(seen.walk.fDamage, "");
}

TEST(TableWalker, NothingIsVisitedInNoBytes) {
  const TWalk walk = WalkTable(nullptr, 0, 0, [](const TStructure&) {
    ADD_FAILURE() << "visited";
    return true;
  });
  EXPECT_EQ(walk.fCount, 0u);
  EXPECT_FALSE(walk.fEnded);
  EXPECT_EQ(walk.fDamage, "");
}

TEST(TableWalker, TableWithoutEndMarkerEndsWithItsBytes) {
  const Seen seen = Walk(SmbiosTables().Add(200, {}).Add(201, {}).Table());
  EXPECT_THAT(seen.types, ElementsAre(200, 201));
  EXPECT_FALSE(seen.walk.fEnded);
  EXPECT_EQ(seen.walk.fDamage, "");
}

TEST(TableWalker, NothingBehindTheEndMarkerIsVisited) {
  const Bytes junk{0xFF, 0x00, 0xFF};
  const Seen seen = Walk(SmbiosTables().Add(200, {}).AddEnd().Add(201, {}).AddRaw(junk).Table());
  EXPECT_THAT(seen.types, ElementsAre(200, 127));
  EXPECT_EQ(seen.walk.fDamage, "");
}

TEST(TableWalker, CountLimitEndsTheWalk) {
  const Bytes table = WalkedTables().Table();
  const Seen seen = Walk(table, 2);
  EXPECT_THAT(seen.types, ElementsAre(0, 1));
  EXPECT_TRUE(seen.walk.fEnded);
  EXPECT_EQ(seen.walk.fOffset, seen.ends.back());
}

TEST(TableWalker, CountLimitLeavesPaddingBehindTheLastStructureAlone) {
  SmbiosTables tables;
  tables.Add(200, {}).Add(201, {}).AddRaw(Bytes(16, 0));
  EXPECT_EQ(Walk(tables.Table(), 2).walk.fDamage, "");
  EXPECT_EQ(Walk(tables.Table(), 3).walk.fDamage,
            "structure 2 at byte 12 is shorter than its header");
}

// Makers of 32-bit tables put structures of their own there.
TEST(TableWalker, CountedStructuresBehindTheEndMarkerAreVisited) {
  const Bytes table = SmbiosTables().Add(200, {}).AddEnd().Add(201, {}).Add(202, {}).Table();
  const Seen seen = Walk(table, 3);
  EXPECT_THAT(seen.types, ElementsAre(200, 127, 201));
  EXPECT_TRUE(seen.walk.fEnded);
}

TEST(TableWalker, NothingBehindTheEndMarkerIsDamage) {
  for (const Bytes& junk : {Bytes{}, Bytes(1, 0), Bytes(16, 0), Bytes(16, 0xFF)}) {
    const Seen seen = Walk(SmbiosTables().Add(200, {}).AddEnd().AddRaw(junk).Table(), 9);
    EXPECT_THAT(seen.types, ElementsAre(200, 127));
    EXPECT_TRUE(seen.walk.fEnded);
    EXPECT_EQ(seen.walk.fDamage, "");
  }
}

// A structure of 11 bytes that says it had 16.
TEST(TableWalker, ManagementDeviceThatTellsTooLongALengthKeepsItsStrings) {
  const Bytes fields{1, 3, 0, 0, 0, 0, 3};
  Bytes table = SmbiosTables().Add(34, fields, {"LM78-1", "next"}).Table();
  table[1] = 16;
  const ExactBytes exact(table);
  int visits = 0;
  WalkTable(exact.Get(), table.size(), 0, [&](const TStructure& structure) {
    ++visits;
    EXPECT_EQ(structure.FormattedSize(), 11u);
    EXPECT_EQ(structure.Size(), table.size());
    EXPECT_THAT(structure.Strings(), ElementsAre("LM78-1", "next"));
    return true;
  });
  EXPECT_EQ(visits, 1);
}

TEST(TableWalker, ManagementDeviceWithoutTextInTheDoubtfulPlaceIsLeftAsItIs) {
  const Bytes table = SmbiosTables().Add(34, Bytes(12, 1), {"text"}).Table();
  WalkTable(table.data(), table.size(), 0, [](const TStructure& structure) {
    EXPECT_EQ(structure.FormattedSize(), 16u);
    return true;
  });
}

TEST(TableWalker, VisitorEndsTheWalk) {
  const Bytes table = WalkedTables().Table();
  const ExactBytes exact(table);
  int visits = 0;
  const TWalk walk = WalkTable(exact.Get(), table.size(), 0, [&](const TStructure&) {
    ++visits;
    return false;
  });
  EXPECT_EQ(visits, 1);
  EXPECT_TRUE(walk.fStopped);
  EXPECT_FALSE(walk.fEnded);
}

TEST(TableWalker, VisitorsExceptionPassesThrough) {
  const Bytes table = WalkedTables().Table();
  EXPECT_THROW(WalkTable(table.data(), table.size(), 0,
                         [](const TStructure&) -> bool { throw std::runtime_error("enough"); }),
               std::runtime_error);
}

// A table cut anywhere gives the structures that are whole in front of the cut, and nothing else.
TEST(TableWalker, TruncatedTableGivesWhatIsWholeAtEveryLength) {
  const Bytes table = WalkedTables().Table();
  const std::vector<std::size_t> ends = Walk(table).ends;
  for (std::size_t size = 0; size < table.size(); ++size) {
    SCOPED_TRACE(size);
    const Seen seen = Walk(Bytes(table.begin(), table.begin() + static_cast<std::ptrdiff_t>(size)));
    std::size_t whole = 0;
    while (ends[whole] <= size)
      ++whole;
    const bool onBoundary = size == 0 || (whole > 0 && ends[whole - 1] == size);
    EXPECT_EQ(seen.walk.fCount, whole);
    EXPECT_EQ(seen.walk.fDamage.empty(), onBoundary);
    EXPECT_FALSE(seen.walk.fEnded);
  }
}

TEST(TableWalker, DamageIsToldInWordsWithItsPlace) {
  const SmbiosTables sound = SmbiosTables().Add(200, {});
  const auto damage = [&](const Bytes& bytes) {
    return Walk(SmbiosTables(sound).AddRaw(bytes).Table()).walk.fDamage;
  };
  EXPECT_EQ(damage({1}), "structure 1 at byte 6 ends within its header");
  EXPECT_EQ(damage({1, 4, 0}), "structure 1 at byte 6 ends within its header");
  EXPECT_EQ(damage({1, 0, 0, 0, 0, 0}), "structure 1 at byte 6 is shorter than its header");
  EXPECT_EQ(damage({1, 3, 0, 0, 0, 0}), "structure 1 at byte 6 is shorter than its header");
  EXPECT_EQ(damage({1, 7, 0, 0, 0, 0}), "structure 1 at byte 6 runs past the end of the table");
  EXPECT_EQ(damage({1, 255, 0, 0, 0, 0}), "structure 1 at byte 6 runs past the end of the table");
  EXPECT_EQ(damage({1, 4, 0, 0}), "structure 1 at byte 6 has strings without an end");
  EXPECT_EQ(damage({1, 4, 0, 0, 0}), "structure 1 at byte 6 has strings without an end");
  EXPECT_EQ(damage({1, 4, 0, 0, 'a', 0}), "structure 1 at byte 6 has strings without an end");
  EXPECT_EQ(damage({1, 4, 0, 0, 'a', 'b'}), "structure 1 at byte 6 has strings without an end");
}

TEST(TableWalker, StructuresInFrontOfDamageAreVisited) {
  const Seen seen = Walk(SmbiosTables().Add(200, {}).Add(201, {}).AddRaw({1, 99, 0, 0}).Table());
  EXPECT_THAT(seen.types, ElementsAre(200, 201));
  EXPECT_EQ(seen.walk.fOffset, seen.ends.back());
}

TEST(TableWalker, LengthsOfZeroDontMakeTheWalkLoop) {
  const Seen seen = Walk(Bytes(4096, 0));
  EXPECT_THAT(seen.types, IsEmpty());
  EXPECT_EQ(seen.walk.fDamage, "structure 0 at byte 0 is shorter than its header");
}

// Two NUL bytes within the formatted area close nothing.
TEST(TableWalker, NulBytesInTheFormattedAreaAreData) {
  const Seen seen = Walk(SmbiosTables().Add(200, Bytes(30, 0), {"text"}).AddEnd().Table());
  EXPECT_THAT(seen.types, ElementsAre(200, 127));
}

TEST(TableWalker, LargestFormattedAreaIsRead) {
  const Seen seen = Walk(SmbiosTables().Add(200, Bytes(251, 7)).AddEnd().Table());
  EXPECT_THAT(seen.types, ElementsAre(200, 127));
  EXPECT_EQ(seen.ends.front(), 257u);
}

// Every byte of a table set to every value: whatever comes out, the walk ends within its bytes.
TEST(TableWalker, AnyByteMayHoldAnyValue) {
  const Bytes sound = SmbiosTables().AddSystem({"M", "P", "", "S"}).AddEnd().Table();
  for (std::size_t i = 0; i < sound.size(); ++i) {
    Bytes table = sound;
    for (int value = 0; value < 256; ++value) {
      table[i] = static_cast<std::uint8_t>(value);
      const Seen seen = Walk(table);
      EXPECT_LE(seen.walk.fOffset, table.size());
      EXPECT_LE(seen.types.size(), table.size() / 6);
    }
  }
}

}  // namespace
