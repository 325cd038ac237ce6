#include "smbios/Dump.h"

#include <gtest/gtest.h>

#include "support/Dmidecode.h"
#include "support/SmbiosTables.h"
#include "support/TemporaryDirectory.h"

namespace {

using hwxtest::Bytes;
using hwxtest::PutNumber;
using hwxtest::SmbiosTables;
using smbios::MakeDump;
using smbios::TTables;

SmbiosTables NamedTables() {
  return SmbiosTables()
      .AddBios("Maker", "[AB12-1.05]", "01/02/2020")
      .AddSystem({"Maker", "Box 5", "v1", "SN99"})
      .AddEnd();
}

// Of the kernel's files, whose entry point tells where the table lies in memory.
Bytes DumpOf(const Bytes& entryPoint, const Bytes& table) {
  const TTables tables = TTables::FromKernelFiles(entryPoint, table);
  EXPECT_TRUE(tables.IsSound()) << tables.Reason();
  return MakeDump(tables);
}

void ExpectSameTable(const Bytes& dump, const Bytes& table) {
  const TTables again = TTables::FromDump(dump);
  EXPECT_TRUE(again.IsSound()) << again.Reason();
  EXPECT_EQ(again.TableBytes(), table);
  EXPECT_EQ(again.EntryPoint().fTableSize, table.size());
  EXPECT_EQ(again.EntryPoint().fTableAddress, 32u);
}

TEST(Dump, HoldsThe64BitEntryPointAndTheTable) {
  EXPECT_EQ(DumpOf(NamedTables().EntryPoint64(), NamedTables().Table()), NamedTables().Dump64());
}

TEST(Dump, HoldsThe32BitEntryPointAndTheTable) {
  EXPECT_EQ(DumpOf(NamedTables().EntryPoint32(), NamedTables().Table()), NamedTables().Dump32());
}

TEST(Dump, HoldsTheLegacyEntryPointAndTheTable) {
  EXPECT_EQ(DumpOf(NamedTables().LegacyEntryPoint(), NamedTables().Table()),
            NamedTables().LegacyDump());
}

TEST(Dump, OfABareTableIsTheTable) {
  EXPECT_EQ(MakeDump(TTables::FromDump(NamedTables().Table())), NamedTables().Table());
}

TEST(Dump, OfADamagedTableHoldsTheDamageToo) {
  Bytes table = NamedTables().Table();
  table.pop_back();
  const Bytes dump = MakeDump(TTables::FromKernelFiles(NamedTables().EntryPoint64(), table));
  EXPECT_EQ(TTables::FromDump(dump).TableBytes(), table);
}

TEST(Dump, OfADumpIsTheSameDump) {
  for (const Bytes& dump :
       {NamedTables().LegacyDump(), NamedTables().Dump32(), NamedTables().Dump64()})
    EXPECT_EQ(MakeDump(TTables::FromDump(dump)), dump);
}

TEST(Dump, TellsTheSizeOfWhatIsThere) {
  // As the kernel does it: more announced than there is.
  Bytes entryPoint = NamedTables().EntryPoint64();
  PutNumber(entryPoint, 0x0C, 4, 0x10000);
  hwxtest::FixChecksums64(entryPoint);
  ExpectSameTable(DumpOf(entryPoint, NamedTables().Table()), NamedTables().Table());
}

TEST(Dump, KeepsWhatLiesBehindTheEndMarker) {
  const SmbiosTables tables = NamedTables().Add(200, {1, 2, 3});
  ExpectSameTable(DumpOf(tables.EntryPoint64(), tables.Table()), tables.Table());
}

TEST(Dump, KeepsTheVersion) {
  Bytes entryPoint = NamedTables().EntryPoint64();
  entryPoint[7] = 9;
  entryPoint[8] = 7;
  hwxtest::FixChecksums64(entryPoint);
  const TTables again = TTables::FromDump(DumpOf(entryPoint, NamedTables().Table()));
  EXPECT_EQ(again.EntryPoint().fMajor, 9);
  EXPECT_EQ(again.EntryPoint().fMinor, 7);
}

TEST(Dump, MendsAShort32BitLength) {
  Bytes entryPoint = NamedTables().EntryPoint32();
  entryPoint[5] = 30;
  entryPoint[30] = 0;
  hwxtest::FixChecksums32(entryPoint);
  const Bytes dump = DumpOf(entryPoint, NamedTables().Table());
  EXPECT_EQ(dump[5], 31);
  ExpectSameTable(dump, NamedTables().Table());
}

TEST(Dump, CutsALongEntryPoint) {
  Bytes entryPoint = NamedTables().EntryPoint64();
  entryPoint.resize(48, 0xA5);
  entryPoint[6] = 48;
  hwxtest::FixChecksums64(entryPoint);
  const Bytes dump = DumpOf(entryPoint, NamedTables().Table());
  EXPECT_EQ(dump[6], 24);
  ExpectSameTable(dump, NamedTables().Table());
}

TEST(Dump, IsReadByDmidecode) {
  if (!hwxtest::HasDmidecode()) GTEST_SKIP() << "SKIPPED: dmidecode is not installed";
  const hwxtest::TemporaryDirectory directory;
  const SmbiosTables tables = NamedTables();
  for (const Bytes& entryPoint :
       {tables.LegacyEntryPoint(), tables.EntryPoint32(), tables.EntryPoint64()}) {
    hwxtest::WriteBytes(directory / "dump", DumpOf(entryPoint, tables.Table()));
    EXPECT_EQ(hwxtest::Dmidecode("-s system-serial-number --from-dump " + (directory / "dump")),
              "SN99\n");
    hwxtest::ExpectDmidecodeAgrees(directory / "dump");
  }
}

}  // namespace
