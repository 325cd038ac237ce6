#include "smbios/TTables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SmbiosTables.h"

namespace {

using hwxtest::Bytes;
using hwxtest::SmbiosTables;
using smbios::TStructure;
using smbios::TTables;
using testing::ElementsAre;
using testing::IsEmpty;

SmbiosTables BiosAndSystem() {
  return SmbiosTables().AddBios("Maker", "V1", "").AddSystem({"Maker", "Box"}).AddEnd();
}

std::vector<int> Types(const TTables& tables) {
  std::vector<int> types;
  tables.ForEach([&](const TStructure& structure) {
    types.push_back(structure.Type());
    return true;
  });
  return types;
}

Bytes Cut(Bytes bytes, std::size_t fewer) {
  bytes.resize(bytes.size() - fewer);
  return bytes;
}

TEST(TTables, SoundInEveryForm) {
  const SmbiosTables made = BiosAndSystem();
  for (const TTables& tables :
       {TTables::FromKernelFiles(made.EntryPoint32(), made.Table()),
        TTables::FromKernelFiles(made.EntryPoint64(), made.Table()),
        TTables::FromKernelFiles(made.LegacyEntryPoint(), made.Table()),
        TTables::FromDump(made.LegacyDump()), TTables::FromDump(made.Dump32()),
        TTables::FromDump(made.Dump64())}) {
    EXPECT_TRUE(tables.IsSound());
    EXPECT_TRUE(tables.IsReadable());
    EXPECT_EQ(tables.Status(), kSmBiosOK);
    EXPECT_EQ(tables.Reason(), "");
    EXPECT_EQ(tables.Warning(), "");
    EXPECT_EQ(tables.Remark(), "");
    EXPECT_THAT(Types(tables), ElementsAre(0, 1, 127));
    EXPECT_EQ(tables.EntryPoint().fTableSize, made.Table().size());
  }
}

TEST(TTables, FindsTheFirstStructureOfAType) {
  const SmbiosTables made = SmbiosTables().Add(17, {1}).Add(18, {2}).Add(17, {3}).AddEnd();
  const TTables tables = TTables::FromDump(made.Dump64());
  ASSERT_TRUE(tables.FindFirst(17).has_value());
  EXPECT_EQ(tables.FindFirst(17)->Handle(), 0);
  EXPECT_EQ(tables.FindFirst(18)->Byte(4), 2);
  EXPECT_FALSE(tables.FindFirst(1).has_value());
  EXPECT_FALSE(tables.FindFirst(17 + 256).has_value());
  EXPECT_FALSE(tables.FindFirst(-1).has_value());
}

TEST(TTables, StructuresOutliveAMove) {
  TTables tables = TTables::FromDump(BiosAndSystem().Dump64());
  const TStructure system = *tables.FindFirst(smbios::kTypeSystemInformation);
  const TTables moved = std::move(tables);
  EXPECT_EQ(system.String(2), "Box");
}

TEST(TTables, CountOf32BitFormLimitsTheTable) {
  const SmbiosTables made = BiosAndSystem();
  Bytes entryPoint = made.EntryPoint32();
  hwxtest::PutNumber(entryPoint, 0x1C, 2, 1);
  hwxtest::FixChecksums32(entryPoint);
  const TTables tables = TTables::FromKernelFiles(entryPoint, made.Table());
  EXPECT_TRUE(tables.IsSound());
  EXPECT_THAT(Types(tables), ElementsAre(0));
}

TEST(TTables, CountOfZeroIsNoLimit) {
  const SmbiosTables made = BiosAndSystem();
  Bytes entryPoint = made.EntryPoint32();
  hwxtest::PutNumber(entryPoint, 0x1C, 2, 0);
  hwxtest::FixChecksums32(entryPoint);
  EXPECT_THAT(Types(TTables::FromKernelFiles(entryPoint, made.Table())), ElementsAre(0, 1, 127));
}

// Firmware that miscounts is known on machines in use; what the table holds is whole all the same.
TEST(TTables, CountAboveWhatTheTableHoldsIsLetPass) {
  const SmbiosTables made = SmbiosTables().Add(200, {}).Add(201, {});
  Bytes entryPoint = made.EntryPoint32();
  hwxtest::PutNumber(entryPoint, 0x1C, 2, 9);
  hwxtest::FixChecksums32(entryPoint);
  const TTables tables = TTables::FromKernelFiles(entryPoint, made.Table());
  EXPECT_TRUE(tables.IsSound());
  EXPECT_THAT(Types(tables), ElementsAre(200, 201));
}

TEST(TTables, SizeToldByTheEntryPointLimitsTheTable) {
  SmbiosTables made;
  made.Add(200, {});
  const Bytes entryPoint32 = made.EntryPoint32();
  const Bytes entryPoint64 = made.EntryPoint64();
  made.Add(201, {});
  for (const Bytes& entryPoint : {entryPoint32, entryPoint64}) {
    const TTables tables = TTables::FromKernelFiles(entryPoint, made.Table());
    EXPECT_TRUE(tables.IsSound());
    EXPECT_THAT(Types(tables), ElementsAre(200));
  }
}

TEST(TTables, SizeThatEndsWithinAStructureIsMalformed) {
  const SmbiosTables made = BiosAndSystem();
  Bytes entryPoint = made.EntryPoint64();
  hwxtest::PutNumber(entryPoint, 0x0C, 4, made.Table().size() - 1);
  hwxtest::FixChecksums64(entryPoint);
  const TTables tables = TTables::FromKernelFiles(entryPoint, made.Table());
  EXPECT_EQ(tables.Status(), kSmBiosMalformed);
  EXPECT_EQ(tables.Reason(), "structure 2 at byte 72 has strings without an end");
}

// The 64-bit form tells only the most that there can be, and the kernel cuts its copy.
TEST(TTables, FewerBytesThanToldAreSoundUpToTheEndMarker) {
  const SmbiosTables made = BiosAndSystem();
  Bytes entryPoint = made.EntryPoint64();
  hwxtest::PutNumber(entryPoint, 0x0C, 4, 0xFFFFFFFF);
  hwxtest::FixChecksums64(entryPoint);
  EXPECT_TRUE(TTables::FromKernelFiles(entryPoint, made.Table()).IsSound());
}

TEST(TTables, FewerBytesThanToldAreSoundUpToTheCount) {
  const SmbiosTables made = SmbiosTables().Add(200, {}).Add(201, {});
  Bytes entryPoint = made.EntryPoint32();
  hwxtest::PutNumber(entryPoint, 0x16, 2, made.Table().size() + 100);
  hwxtest::FixChecksums32(entryPoint);
  EXPECT_TRUE(TTables::FromKernelFiles(entryPoint, made.Table()).IsSound());
}

// Where the structures of BiosAndSystem end.
bool EndsWithAStructure(std::size_t size) {
  const Bytes bios = SmbiosTables().AddBios("Maker", "V1", "").Table();
  return size == bios.size() || size == BiosAndSystem().Table().size() - 6;
}

TEST(TTables, TableCutWithinAStructureIsMalformed) {
  const SmbiosTables made = BiosAndSystem();
  for (std::size_t fewer = 1; fewer <= made.Table().size(); ++fewer) {
    SCOPED_TRACE(fewer);
    if (EndsWithAStructure(made.Table().size() - fewer)) continue;
    for (const TTables& tables :
         {TTables::FromKernelFiles(made.EntryPoint32(), Cut(made.Table(), fewer)),
          TTables::FromKernelFiles(made.EntryPoint64(), Cut(made.Table(), fewer)),
          TTables::FromDump(Cut(made.Dump32(), fewer)),
          TTables::FromDump(Cut(made.Dump64(), fewer))}) {
      EXPECT_EQ(tables.Status(), kSmBiosMalformed);
      EXPECT_NE(tables.Reason(), "");
    }
  }
}

// As programs write it that know where the last structure ends.
TEST(TTables, FewerBytesThanToldAreSoundUpToTheEndOfAStructure) {
  const SmbiosTables made = BiosAndSystem();
  for (const TTables& tables :
       {TTables::FromKernelFiles(made.EntryPoint32(), Cut(made.Table(), 6), "here"),
        TTables::FromKernelFiles(made.EntryPoint64(), Cut(made.Table(), 6), "here"),
        TTables::FromDump(Cut(made.Dump32(), 6), "here")}) {
    EXPECT_TRUE(tables.IsSound()) << tables.Reason();
    EXPECT_THAT(Types(tables), ElementsAre(0, 1));
    EXPECT_EQ(tables.Warning(), "");
    EXPECT_EQ(tables.Remark(), "here: 72 of 78 bytes are there, which end with structure 1");
  }
}

TEST(TTables, NoByteOfATableThatIsToldHasManyIsMalformed) {
  const TTables tables = TTables::FromKernelFiles(BiosAndSystem().EntryPoint64(), {}, "here");
  EXPECT_EQ(tables.Reason(), "here: the table is truncated: 0 of 78 bytes");
  EXPECT_FALSE(tables.IsReadable());
}

TEST(TTables, TellsHowMuchOfADamagedTableIsThere) {
  const SmbiosTables made = BiosAndSystem();
  EXPECT_EQ(TTables::FromKernelFiles(made.EntryPoint64(), Cut(made.Table(), 7), "here").Reason(),
            "here: structure 1 at byte 34 has strings without an end, where 71 of 78 bytes are "
            "there");
}

// A machine in use has such a table: sound structures, then an entry without a length.
TEST(TTables, DamagedTableStillGivesWhatLiesInFrontOfTheDamage) {
  const SmbiosTables made =
      SmbiosTables().AddBios("Maker", "V1", "").AddSystem({"Maker", "Box"}).AddRaw(Bytes(6, 0));
  const TTables tables = TTables::FromDump(made.Dump64(), "here");
  EXPECT_FALSE(tables.IsSound());
  EXPECT_TRUE(tables.IsReadable());
  EXPECT_EQ(tables.Status(), kSmBiosMalformed);
  EXPECT_THAT(Types(tables), ElementsAre(0, 1));
  EXPECT_EQ(tables.FindFirst(1)->String(2), "Box");
  EXPECT_EQ(tables.Warning(),
            "here: structure 2 at byte 72 is shorter than its header; 2 structures in front of it "
            "can be read");
}

TEST(TTables, TableDamagedFromItsBeginningIsNotReadable) {
  const TTables tables = TTables::FromDump(SmbiosTables().AddRaw(Bytes(6, 0)).Dump64());
  EXPECT_FALSE(tables.IsReadable());
  EXPECT_EQ(tables.Warning(), "");
}

TEST(TTables, SoundPartEndsInFrontOfTheDamage) {
  const SmbiosTables made = BiosAndSystem();
  const TTables damaged = TTables::FromDump(Cut(made.Dump32(), 1));
  const TTables part = damaged.SoundPart();
  EXPECT_TRUE(part.IsSound());
  EXPECT_EQ(part.Reason(), "");
  EXPECT_EQ(part.TableBytes(), Cut(made.Table(), 6));
  EXPECT_FALSE(damaged.IsSound());
}

TEST(TTables, SoundPartOfSoundTablesIsAllOfThem) {
  const SmbiosTables made = BiosAndSystem().Add(200, {1});
  const TTables part = TTables::FromDump(made.Dump64()).SoundPart();
  EXPECT_EQ(part.TableBytes(), made.Table());
}

TEST(TTables, TableWithoutAnyStructureIsSound) {
  const SmbiosTables none;
  EXPECT_TRUE(TTables::FromKernelFiles(none.EntryPoint32(), {}).IsSound());
  EXPECT_TRUE(TTables::FromDump(none.Dump64()).IsSound());
}

TEST(TTables, WrongChecksumIsMalformedAndLeavesNoStructures) {
  const SmbiosTables made = BiosAndSystem();
  Bytes dump = made.Dump32();
  ++dump[4];
  const TTables tables = TTables::FromDump(dump, "here");
  EXPECT_EQ(tables.Status(), kSmBiosMalformed);
  EXPECT_EQ(tables.Reason(), "here: the entry point's checksum is wrong");
  EXPECT_THAT(Types(tables), IsEmpty());
}

TEST(TTables, DumpWhoseTableLiesOutsideItIsMalformed) {
  const SmbiosTables made = BiosAndSystem();
  const std::uint64_t behind = made.Dump64().size() + 1;
  for (const std::uint64_t offset : {std::uint64_t{0}, std::uint64_t{23}, behind, UINT64_MAX}) {
    Bytes dump = made.Dump64();
    hwxtest::PutNumber(dump, 0x10, 8, offset);
    hwxtest::FixChecksums64(dump);
    EXPECT_EQ(TTables::FromDump(dump).Reason(), "the table lies outside the dump") << offset;
  }
}

TEST(TTables, DumpsTableMayLieAnywhereBehindTheEntryPoint) {
  const SmbiosTables made = BiosAndSystem();
  Bytes dump = made.EntryPoint64(100);
  dump.resize(100);
  dump.insert(dump.end(), made.Table().begin(), made.Table().end());
  EXPECT_THAT(Types(TTables::FromDump(dump)), ElementsAre(0, 1, 127));
}

TEST(TTables, NoneKeepsItsReason) {
  const TTables none = TTables::None(kSmBiosNoPermission, "DMI needs root");
  EXPECT_FALSE(none.IsSound());
  EXPECT_EQ(none.Status(), kSmBiosNoPermission);
  EXPECT_EQ(none.Reason(), "DMI needs root");
  EXPECT_THAT(Types(none), IsEmpty());
  EXPECT_FALSE(none.FindFirst(1).has_value());
}

}  // namespace
