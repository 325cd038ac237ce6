// Tables without an entry point, read from a file.

#include "smbios/BareTable.h"

#include <gtest/gtest.h>

#include "smbios/TTables.h"
#include "support/SmbiosTables.h"

namespace {

using hwxtest::Bytes;
using hwxtest::SmbiosTables;
using smbios::EEntryPointForm;
using smbios::TTables;

SmbiosTables BareTables() {
  return SmbiosTables().AddBios("Maker", "V1", "").AddSystem({"Maker", "Box"});
}

bool IsBareTable(const Bytes& bytes) {
  return smbios::IsBareTable(bytes.data(), bytes.size());
}

std::string VersionOf(SmbiosTables tables) {
  const Bytes bytes = tables.AddEnd().Table();
  const auto entryPoint = smbios::EntryPointOfBareTable(bytes.data(), bytes.size());
  return std::to_string(entryPoint.fMajor) + "." + std::to_string(entryPoint.fMinor);
}

TEST(BareTable, IsReadWithAWarning) {
  const Bytes bytes = BareTables().AddEnd().Table();
  const TTables tables = TTables::FromDump(bytes, "here");
  EXPECT_TRUE(tables.IsSound());
  EXPECT_EQ(tables.FindFirst(1)->String(2), "Box");
  EXPECT_EQ(tables.TableBytes(), bytes);
  EXPECT_EQ(tables.EntryPoint().fForm, EEntryPointForm::kNone);
  EXPECT_TRUE(tables.EntryPointBytes().empty());
  EXPECT_EQ(tables.Warning(),
            "here: there is no entry point, only a table, taken for one of version 2.4 by its "
            "structures");
}

TEST(BareTable, EndsWithTheMarkerOrWithItsBytes) {
  EXPECT_TRUE(IsBareTable(BareTables().Table()));
  EXPECT_TRUE(IsBareTable(BareTables().AddEnd().AddRaw(Bytes(100, 0)).Table()));
}

TEST(BareTable, IsRefusedAtEveryCutWithinAStructure) {
  const Bytes whole = BareTables().Table();
  const std::size_t biosSize = SmbiosTables().AddBios("Maker", "V1", "").Table().size();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    if (size == biosSize) continue;
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_FALSE(IsBareTable(cut)) << size;
    EXPECT_FALSE(TTables::FromDump(cut).IsSound()) << size;
  }
}

TEST(BareTable, HasABiosOrASystem) {
  EXPECT_TRUE(IsBareTable(SmbiosTables().AddSystem({"Maker"}).AddEnd().Table()));
  EXPECT_TRUE(IsBareTable(SmbiosTables().AddBios("Maker", "V1", "").AddEnd().Table()));
  EXPECT_FALSE(IsBareTable(SmbiosTables().Add(2, {1}, {"Maker"}).AddEnd().Table()));
  EXPECT_FALSE(IsBareTable(SmbiosTables().AddEnd().Table()));
  EXPECT_FALSE(IsBareTable({}));
}

TEST(BareTable, HasNoTypeThatTheFormatKeepsForItsFuture) {
  EXPECT_FALSE(IsBareTable(BareTables().Add(47, {}).Table()));
  EXPECT_FALSE(IsBareTable(BareTables().Add(125, {}).Table()));
  EXPECT_TRUE(IsBareTable(BareTables().Add(46, {}).Add(126, {}).Add(128, {}).Table()));
}

// The bytes of a damaged entry point are no structure, wherever they happen to lead.
TEST(BareTable, IsNotSeenInADumpWhoseAnchorIsDamaged) {
  for (const Bytes& dump : {BareTables().AddEnd().LegacyDump(), BareTables().AddEnd().Dump32(),
                            BareTables().AddEnd().Dump64()}) {
    for (std::size_t place = 0; place < 5; ++place) {
      for (int value = 0; value < 256; ++value) {
        Bytes damaged = dump;
        damaged[place] = static_cast<std::uint8_t>(value);
        if (damaged == dump) continue;
        EXPECT_FALSE(IsBareTable(damaged)) << place << " " << value;
      }
    }
  }
}

TEST(BareTable, IsOfTheOldestVersionThatHasSuchStructures) {
  const auto system = [](std::size_t size) { return SmbiosTables().Add(1, Bytes(size - 4)); };
  EXPECT_EQ(VersionOf(system(0x08)), "2.0");
  EXPECT_EQ(VersionOf(system(0x19)), "2.1");
  EXPECT_EQ(VersionOf(system(0x1B)), "2.4");
  EXPECT_EQ(VersionOf(system(0x1B).Add(4, Bytes(0x28 - 4))), "2.5");
  EXPECT_EQ(VersionOf(system(0x1B).Add(4, Bytes(0x2A - 4))), "2.6");
  EXPECT_EQ(VersionOf(system(0x19).Add(17, Bytes(0x1C - 4))), "2.6");
  EXPECT_EQ(VersionOf(system(0x1B).Add(17, Bytes(0x28 - 4)).Add(4, Bytes(0x28 - 4))), "2.8");
  EXPECT_EQ(VersionOf(system(0x1B).Add(17, Bytes(0x5C - 4))), "3.3");
}

}  // namespace
