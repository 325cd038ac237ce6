#include "providers/linux/SystemInformation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <numeric>

#include "support/ChildProcess.h"
#include "support/Machines.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

namespace linux_machine {

namespace {

using hwxtest::Bytes;
using hwxtest::SmbiosTables;
using ::testing::HasSubstr;
using ::testing::Optional;
using ::testing::StartsWith;

using namespace std::string_literals;

// A structure of type 1 with these fields behind its header.
TSystemInformation ParseSystem(const Bytes& fields, const std::vector<std::string>& strings = {},
                               int major = 3, int minor = 2) {
  const Bytes bytes = SmbiosTables().Add(1, fields, strings).Table();
  return ParseSystemInformation(smbios::TStructure(bytes.data(), fields.size() + 4, bytes.size()),
                                major, minor);
}

std::optional<std::string> ParseUUID(const Bytes& uuid, int major, int minor) {
  Bytes fields(4);
  fields.insert(fields.end(), uuid.begin(), uuid.end());
  fields.push_back(6);  // woken by the power switch
  return ParseSystem(fields, {}, major, minor).fUUID;
}

Bytes CountingBytes() {
  Bytes bytes(16);
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{0xA0});
  return bytes;
}

TEST(SystemStructure, GivesEachTextItsField) {
  Bytes fields(23);
  fields[0] = 1;
  fields[1] = 2;
  fields[2] = 3;
  fields[3] = 4;
  fields[21] = 5;
  fields[22] = 6;
  const TSystemInformation information = ParseSystem(fields, {"m", "p", "v", "s", "sku", "f"});
  EXPECT_THAT(information.fManufacturer, Optional("m"s));
  EXPECT_THAT(information.fProductName, Optional("p"s));
  EXPECT_THAT(information.fVersion, Optional("v"s));
  EXPECT_THAT(information.fSerialNumber, Optional("s"s));
  EXPECT_THAT(information.fSKUNumber, Optional("sku"s));
  EXPECT_THAT(information.fFamily, Optional("f"s));
  EXPECT_EQ(information.fFirmwareStatus, std::nullopt);
}

TEST(SystemStructure, TextsKeepTheirBlanksAndBytes) {
  EXPECT_THAT(ParseSystem({1, 2, 0, 0}, {"   ", " caf\xe9  "}).fManufacturer, Optional("   "s));
  EXPECT_THAT(ParseSystem({1, 2, 0, 0}, {"   ", " caf\xe9  "}).fProductName,
              Optional(" caf\xe9  "s));
}

TEST(SystemStructure, NumberZeroAndNumbersOfNoStringAreMissing) {
  const TSystemInformation information = ParseSystem({0, 3, 255, 2}, {"a", "b"});
  EXPECT_EQ(information.fManufacturer, std::nullopt);
  EXPECT_EQ(information.fProductName, std::nullopt);
  EXPECT_EQ(information.fVersion, std::nullopt);
  EXPECT_THAT(information.fSerialNumber, Optional("b"s));
}

TEST(SystemStructure, OfAnOlderVersionLacksTheLaterFields) {
  Bytes oldest(4, 1);
  EXPECT_THAT(ParseSystem(oldest, {"x"}).fSerialNumber, Optional("x"s));
  EXPECT_EQ(ParseSystem(oldest, {"x"}).fUUID, std::nullopt);
  Bytes withUUID(21, 1);
  EXPECT_NE(ParseSystem(withUUID, {"x"}).fUUID, std::nullopt);
  EXPECT_EQ(ParseSystem(withUUID, {"x"}).fSKUNumber, std::nullopt);
  EXPECT_EQ(ParseSystem({}, {"x"}).fManufacturer, std::nullopt);
}

// The UUID came with the byte that stands behind it.
TEST(SystemStructure, CutWithinTheFieldsOfAVersionHasNoneOfThem) {
  EXPECT_EQ(ParseSystem(Bytes(20, 1)).fUUID, std::nullopt);
  EXPECT_NE(ParseSystem(Bytes(21, 1)).fUUID, std::nullopt);
  EXPECT_EQ(ParseSystem(Bytes(22, 1), {"x"}).fSKUNumber, std::nullopt);
  EXPECT_NE(ParseSystem(Bytes(23, 1), {"x"}).fSKUNumber, std::nullopt);
}

TEST(UUID, HasItsFirstGroupsSwappedFromVersion26On) {
  const char* plain = "a0a1a2a3-a4a5-a6a7-a8a9-aaabacadaeaf";
  const char* swapped = "a3a2a1a0-a5a4-a7a6-a8a9-aaabacadaeaf";
  EXPECT_EQ(ParseUUID(CountingBytes(), 2, 0), plain);
  EXPECT_EQ(ParseUUID(CountingBytes(), 2, 5), plain);
  EXPECT_EQ(ParseUUID(CountingBytes(), 2, 6), swapped);
  EXPECT_EQ(ParseUUID(CountingBytes(), 2, 8), swapped);
  EXPECT_EQ(ParseUUID(CountingBytes(), 3, 0), swapped);
}

TEST(UUID, OfZerosOrOnesAloneIsNone) {
  EXPECT_EQ(ParseUUID(Bytes(16, 0x00), 3, 2), std::nullopt);
  EXPECT_EQ(ParseUUID(Bytes(16, 0xFF), 3, 2), std::nullopt);
  Bytes almost(16, 0xFF);
  almost[15] = 0xFE;
  EXPECT_EQ(ParseUUID(almost, 3, 2), "ffffffff-ffff-ffff-ffff-fffffffffffe");
}

class SystemInformation : public ::testing::Test {
 protected:
  TSystemInformation Read() { return ReadSystemInformation(fDirectory.Path()); }
  std::string Tables() { return fDirectory / "sys/firmware/dmi/tables"; }
  void WriteKernelCopy(const std::string& name, const std::string& text) {
    hwxtest::WriteMachineFile(fDirectory.Path(), "sys/class/dmi/id/" + name, text);
  }

  hwxtest::TemporaryDirectory fDirectory;
  hwxtest::ScopedEnvironment fTables{"HWX_SMBIOS_TABLES", std::nullopt};
};

TEST_F(SystemInformation, ComesFromTheFirmwareTables) {
  hwxtest::MakeRackServer(fDirectory.Path());
  WriteKernelCopy("product_name", "something else\n");
  const TSystemInformation information = Read();
  EXPECT_THAT(information.fProductName, Optional("Example Rack Server 3650 -[7915AC1]-"s));
  EXPECT_THAT(information.fUUID, Optional("04030201-0605-0807-090a-0b0c0d0e0f10"s));
  EXPECT_EQ(information.fFirmwareStatus, std::nullopt);
}

TEST_F(SystemInformation, ComesFromTheKernelsCopyWithoutTables) {
  WriteKernelCopy("sys_vendor", "Maker\n");
  WriteKernelCopy("product_name", "Product  \n");
  WriteKernelCopy("product_version", "7\n");
  WriteKernelCopy("product_serial", "S1\n");
  WriteKernelCopy("product_uuid", "00112233-4455-6677-8899-aabbccddeeff\n");
  WriteKernelCopy("product_sku", "\n");
  const TSystemInformation information = Read();
  EXPECT_THAT(information.fManufacturer, Optional("Maker"s));
  EXPECT_THAT(information.fProductName, Optional("Product  "s));
  EXPECT_THAT(information.fVersion, Optional("7"s));
  EXPECT_THAT(information.fSerialNumber, Optional("S1"s));
  EXPECT_THAT(information.fUUID, Optional("00112233-4455-6677-8899-aabbccddeeff"s));
  EXPECT_EQ(information.fSKUNumber, std::nullopt);
  EXPECT_EQ(information.fFamily, std::nullopt);
  EXPECT_THAT(information.fFirmwareStatus,
              Optional("no firmware tables: " + Tables() + " is absent"));
}

TEST_F(SystemInformation, OfADumpIsNotMixedWithThisMachines) {
  WriteKernelCopy("product_name", "Product\n");
  fTables.Set(fDirectory / "absent.bin");
  EXPECT_EQ(Read().fProductName, std::nullopt);
  EXPECT_THAT(Read().fFirmwareStatus,
              Optional("no firmware tables: " + fDirectory / "absent.bin" + " is absent"));

  SmbiosTables().AddSystem({"Maker"}).AddEnd().WriteDump(fDirectory / "dump.bin");
  fTables.Set(fDirectory / "dump.bin");
  EXPECT_THAT(Read().fManufacturer, Optional("Maker"s));
  EXPECT_EQ(Read().fProductName, std::nullopt);
}

TEST_F(SystemInformation, InFrontOfADamageIsStillTaken) {
  SmbiosTables tables;
  tables.AddSystem({"Maker", "Product"}).AddRaw({9, 3, 0, 0});
  tables.WriteDirectory(Tables());
  EXPECT_THAT(Read().fProductName, Optional("Product"s));
  EXPECT_THAT(Read().fFirmwareStatus, Optional(StartsWith("malformed: " + Tables() + ": ")));
}

TEST_F(SystemInformation, BehindADamageComesFromTheKernelsCopy) {
  SmbiosTables tables;
  tables.AddRaw({9, 3, 0, 0}).AddSystem({"Maker", "Product"});
  tables.WriteDirectory(Tables());
  WriteKernelCopy("product_name", "Copy\n");
  EXPECT_THAT(Read().fProductName, Optional("Copy"s));
  EXPECT_THAT(Read().fFirmwareStatus, Optional(StartsWith("malformed: ")));
}

TEST_F(SystemInformation, MayBeMissingFromSoundTables) {
  SmbiosTables().AddBios("Maker", "1", "01/02/2020").AddEnd().WriteDirectory(Tables());
  EXPECT_EQ(Read().fProductName, std::nullopt);
  EXPECT_THAT(Read().fFirmwareStatus,
              Optional("no system information: " + Tables() + " has no structure of type 1"));
}

TEST_F(SystemInformation, ThatCannotBeReadSaysSo) {
  std::filesystem::create_directories(Tables() + "/smbios_entry_point");
  EXPECT_THAT(Read().fFirmwareStatus, Optional(StartsWith("unreadable: " + Tables())));
}

TEST_F(SystemInformation, ThatNeedsRootSaysSoAndGivesWhatOthersMayRead) {
  hwxtest::MakeLockedMachine(fDirectory.Path());
  const int code = hwxtest::RunInChild([this] {
    if (!hwxtest::BecomeUnprivileged()) return 2;
    const TSystemInformation information = Read();
    EXPECT_THAT(information.fFirmwareStatus,
                Optional("needs root: " + Tables() + " can't be read"));
    EXPECT_THAT(information.fProductName, Optional("Example Rack Server 3650 -[7915AC1]-"s));
    EXPECT_EQ(information.fSerialNumber, std::nullopt);
    return 0;
  });
  EXPECT_EQ(code, 0);
}

TEST_F(SystemInformation, IsEmptyWhereFilesAreNotWhatTheyShouldBe) {
  hwxtest::MakeBrokenMachine(fDirectory.Path());
  const TSystemInformation information = Read();
  EXPECT_EQ(information.fManufacturer, std::nullopt);
  EXPECT_EQ(information.fProductName, std::nullopt);
  EXPECT_THAT(information.fFirmwareStatus, Optional(HasSubstr("malformed: ")));
}

}  // namespace

}  // namespace linux_machine
