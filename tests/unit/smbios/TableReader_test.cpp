#include "smbios/TableReader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/ChildProcess.h"
#include "support/ScopedEnvironment.h"
#include "support/SmbiosTables.h"
#include "support/TemporaryDirectory.h"

namespace {

using hwxtest::Bytes;
using hwxtest::SmbiosTables;
using hwxtest::WriteBytes;
using smbios::ReadTables;
using smbios::TTables;

SmbiosTables OnlySystem() {
  return SmbiosTables().AddSystem({"Maker", "Box"}).AddEnd();
}

class TableReader : public testing::Test {
 protected:
  void WriteFiles(const Bytes& entryPoint, const Bytes& table) {
    WriteBytes(fDirectory / "smbios_entry_point", entryPoint);
    WriteBytes(fDirectory / "DMI", table);
  }

  hwxtest::TemporaryDirectory fDirectory;
};

void ExpectRefused(const std::string& location, ESmBiosCode status, const std::string& reason) {
  const TTables tables = ReadTables(location);
  EXPECT_EQ(tables.Status(), status);
  EXPECT_EQ(tables.Reason(), reason);
}

void ExpectBox(const TTables& tables) {
  ASSERT_TRUE(tables.IsSound()) << tables.Reason();
  EXPECT_EQ(tables.FindFirst(1).value().StringAt(5), "Box");
}

TEST_F(TableReader, ReadsTheKernelsDirectory) {
  WriteFiles(OnlySystem().EntryPoint32(), OnlySystem().Table());
  ExpectBox(ReadTables(fDirectory.Path()));
  WriteFiles(OnlySystem().EntryPoint64(), OnlySystem().Table());
  ExpectBox(ReadTables(fDirectory.Path()));
  ExpectBox(ReadTables(fDirectory.Path() + "/"));
}

TEST_F(TableReader, ReadsADump) {
  WriteBytes(fDirectory / "dump", OnlySystem().Dump32());
  ExpectBox(ReadTables(fDirectory / "dump"));
  WriteBytes(fDirectory / "dump", OnlySystem().Dump64());
  ExpectBox(ReadTables(fDirectory / "dump"));
}

TEST_F(TableReader, ReadsFilesLargerThanABlock) {
  SmbiosTables made;
  for (int i = 0; i < 2000; ++i)
    made.Add(200, Bytes(100, 1));
  made.AddSystem({"Maker", "Box"}).AddEnd().WriteDump(fDirectory / "dump");
  ExpectBox(ReadTables(fDirectory / "dump"));
}

TEST_F(TableReader, AbsentPlacesAreNamed) {
  ExpectRefused(fDirectory / "none", kSmBiosAbsent, (fDirectory / "none") + " is absent");
  ExpectRefused("", kSmBiosAbsent, "the empty path is absent");
  ExpectRefused(fDirectory.Path(), kSmBiosAbsent,
                (fDirectory / "smbios_entry_point") + " is absent");
  WriteBytes(fDirectory / "smbios_entry_point", OnlySystem().EntryPoint64());
  ExpectRefused(fDirectory.Path(), kSmBiosAbsent, (fDirectory / "DMI") + " is absent");
  const std::string below = fDirectory / "DMI/below";
  WriteBytes(fDirectory / "DMI", {});
  ExpectRefused(below, kSmBiosAbsent, below + " is absent");
}

TEST_F(TableReader, EmptyFilesAreMalformed) {
  WriteFiles({}, {});
  ExpectRefused(fDirectory.Path(), kSmBiosMalformed,
                fDirectory.Path() + ": the entry point is empty");
  WriteFiles(OnlySystem().EntryPoint64(), {});
  ExpectRefused(fDirectory.Path(), kSmBiosMalformed,
                fDirectory.Path() + ": the table is truncated: 0 of " +
                    std::to_string(OnlySystem().Table().size()) + " bytes");
  ExpectRefused(fDirectory / "DMI", kSmBiosMalformed,
                (fDirectory / "DMI") + ": the entry point is empty");
}

TEST_F(TableReader, DamagedDumpIsMalformed) {
  Bytes dump = OnlySystem().Dump64();
  dump.pop_back();
  WriteBytes(fDirectory / "dump", dump);
  const TTables tables = ReadTables(fDirectory / "dump");
  EXPECT_EQ(tables.Status(), kSmBiosMalformed);
  EXPECT_EQ(tables.Reason().rfind((fDirectory / "dump") + ": structure 1 at byte ", 0), 0u)
      << tables.Reason();
}

TEST_F(TableReader, OtherKindsOfFilesAreRefusedWithoutWaiting) {
  ASSERT_EQ(::mkfifo((fDirectory / "pipe").c_str(), 0600), 0);
  ExpectRefused(fDirectory / "pipe", kSmBiosReadFailed,
                (fDirectory / "pipe") + ": Invalid argument");
  ExpectRefused("/dev/zero", kSmBiosReadFailed, "/dev/zero: Invalid argument");
  ASSERT_EQ(::mkdir((fDirectory / "smbios_entry_point").c_str(), 0700), 0);
  ExpectRefused(fDirectory.Path(), kSmBiosReadFailed,
                (fDirectory / "smbios_entry_point") + ": Is a directory");
}

TEST_F(TableReader, HugeFilesAreRefused) {
  WriteBytes(fDirectory / "dump", OnlySystem().Dump64());
  ASSERT_EQ(::truncate((fDirectory / "dump").c_str(), 16 * 1024 * 1024), 0);
  ExpectBox(ReadTables(fDirectory / "dump"));
  ASSERT_EQ(::truncate((fDirectory / "dump").c_str(), 16 * 1024 * 1024 + 1), 0);
  ExpectRefused(fDirectory / "dump", kSmBiosReadFailed, (fDirectory / "dump") + ": File too large");
}

TEST_F(TableReader, RefusedPermissionNeedsRoot) {
  WriteFiles(OnlySystem().EntryPoint64(), OnlySystem().Table());
  const std::string hidden = fDirectory / "hidden";
  ASSERT_EQ(::mkdir(hidden.c_str(), 0), 0);
  ASSERT_EQ(::chmod(fDirectory.Path().c_str(), 0755), 0);
  ASSERT_EQ(::chmod((fDirectory / "smbios_entry_point").c_str(), 0444), 0);
  ASSERT_EQ(::chmod((fDirectory / "DMI").c_str(), 0), 0);
  hwxtest::RunScene("root's rights can't be given up", [&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    ExpectRefused(fDirectory.Path(), kSmBiosNoPermission, (fDirectory / "DMI") + " needs root");
    ExpectRefused(fDirectory / "DMI", kSmBiosNoPermission, (fDirectory / "DMI") + " needs root");
    ExpectRefused(hidden + "/dump", kSmBiosNoPermission, hidden + "/dump needs root");
    return 0;
  });
  ::chmod(hidden.c_str(), 0700);  // so that the directory can be removed
}

TEST(TablesLocation, IsTheKernelsDirectoryBelowTheRoot) {
  const hwxtest::ScopedEnvironment unset("HWX_SMBIOS_TABLES", std::nullopt);
  EXPECT_EQ(smbios::TablesLocation(), "/sys/firmware/dmi/tables");
  EXPECT_EQ(smbios::TablesLocation("/made/machine"), "/made/machine/sys/firmware/dmi/tables");
}

TEST(TablesLocation, IsWhatTheEnvironmentSaysEvenIfNothing) {
  hwxtest::ScopedEnvironment variable("HWX_SMBIOS_TABLES", "/some/dump");
  EXPECT_EQ(smbios::TablesLocation(), "/some/dump");
  EXPECT_EQ(smbios::TablesLocation("/made/machine"), "/some/dump");
  variable.Set("");
  EXPECT_EQ(smbios::TablesLocation(), "");
}

TEST(WhyUnsound, IsEmptyForSoundTables) {
  EXPECT_EQ(smbios::WhyUnsound(TTables::FromDump(OnlySystem().Dump64()), "/x"), "");
}

TEST(WhyUnsound, TellsEachStatusInWords) {
  const auto why = [](ESmBiosCode status) {
    return smbios::WhyUnsound(TTables::None(status, "/x is so"), "/x");
  };
  EXPECT_EQ(why(kSmBiosAbsent), "no firmware tables: /x is so");
  EXPECT_EQ(why(kSmBiosNoPermission), "needs root: /x can't be read");
  EXPECT_EQ(why(kSmBiosMalformed), "malformed: /x is so");
  EXPECT_EQ(why(kSmBiosReadFailed), "unreadable: /x is so");
}

TEST_F(TableReader, ReadsAnewEachTimeWithoutASnapshot) {
  const std::string path = fDirectory / "dump";
  WriteBytes(path, OnlySystem().Dump64());
  ExpectBox(ReadTables(path));
  std::filesystem::remove(path);
  EXPECT_EQ(ReadTables(path).Status(), kSmBiosAbsent);
}

using Snapshot = TableReader;

TEST_F(Snapshot, KeepsWhatWasReadWhileItLives) {
  const std::string path = fDirectory / "dump";
  WriteBytes(path, OnlySystem().Dump64());
  {
    const smbios::TSnapshot snapshot;
    ExpectBox(ReadTables(path));
    std::filesystem::remove(path);
    const smbios::TSnapshot another;
    ExpectBox(ReadTables(path));
  }
  EXPECT_EQ(ReadTables(path).Status(), kSmBiosAbsent);
}

TEST_F(Snapshot, KeepsWhyThereAreNoTables) {
  const std::string path = fDirectory / "dump";
  const smbios::TSnapshot snapshot;
  EXPECT_EQ(ReadTables(path).Status(), kSmBiosAbsent);
  WriteBytes(path, OnlySystem().Dump64());
  EXPECT_EQ(ReadTables(path).Reason(), path + " is absent");
}

TEST_F(Snapshot, HoldsForTheLibrarysHandles) {
  const std::string path = fDirectory / "dump";
  const hwxtest::ScopedEnvironment tables("HWX_SMBIOS_TABLES", path);
  WriteBytes(path, OnlySystem().Dump64());
  const smbios::TSnapshot snapshot;
  ExpectBox(ReadTables(path));
  std::filesystem::remove(path);
  void* handle = nullptr;
  EXPECT_EQ(smBiosLoad(nullptr, &handle).code, kSmBiosOK);
  EXPECT_EQ(smBiosClose(&handle).code, kSmBiosOK);
}

}  // namespace
