#include "providers/linux/Enclosures.h"

#include <gtest/gtest.h>

#include "support/Machines.h"
#include "support/ScopedEnvironment.h"
#include "support/Structures.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

namespace {

using namespace linux_machine;

// A rack mount chassis of two units with a lock, and a list of two parts of three bytes.
Bytes ChassisFields() {
  Bytes fields(0x1C - 4);
  PutField(fields, 0x04, 1, 1);
  PutField(fields, 0x05, 1, 0x80 | 23);
  PutField(fields, 0x06, 1, 2);
  PutField(fields, 0x07, 1, 3);
  PutField(fields, 0x08, 1, 4);
  PutField(fields, 0x0C, 1, 3);
  PutField(fields, 0x11, 1, 2);
  PutField(fields, 0x12, 1, 2);
  PutField(fields, 0x13, 1, 2);
  PutField(fields, 0x14, 1, 3);
  PutField(fields, 0x1B, 1, 5);
  return fields;
}

const std::vector<std::string> kChassisTexts = {"EXMPL", "v2", "5A17", "A-77", "SKU-1"};

TChassis ParsedChassis(const Bytes& fields) {
  return ParseChassis(MadeStructure(3, fields, kChassisTexts).Get(), 0).value();
}

std::optional<std::uint16_t> TypeOf(std::uint8_t number) {
  Bytes fields = ChassisFields();
  PutField(fields, 0x05, 1, number);
  return ParsedChassis(fields).fPackageType;
}

TEST(Chassis, TellsAllFields) {
  const TChassis chassis = ParsedChassis(ChassisFields());
  EXPECT_EQ(chassis.fTag, "Chassis 0");
  EXPECT_EQ(chassis.fManufacturer, "EXMPL");
  EXPECT_EQ(chassis.fVersion, "v2");
  EXPECT_EQ(chassis.fSerialNumber, "5A17");
  EXPECT_EQ(chassis.fAssetTag, "A-77");
  EXPECT_EQ(chassis.fSKU, "SKU-1");
  EXPECT_EQ(chassis.fPackageType, 17);
  EXPECT_EQ(chassis.fTypeDescription, "Rack Mount Chassis");
  EXPECT_EQ(chassis.fRackMountable, 1);
  EXPECT_EQ(chassis.fLockPresent, true);
  EXPECT_EQ(chassis.fSecurityBreach, 3);
  EXPECT_EQ(chassis.fHeight, 3.5F);
  EXPECT_EQ(chassis.fPowerCords, 2);
}

TEST(Chassis, HasTheTypesOfTheSchema) {
  EXPECT_EQ(TypeOf(0), std::nullopt);
  EXPECT_EQ(TypeOf(1), 1);
  EXPECT_EQ(TypeOf(2), std::nullopt);
  EXPECT_EQ(TypeOf(3), 3);
  EXPECT_EQ(TypeOf(28), 1);
  EXPECT_EQ(TypeOf(29), 28);
  EXPECT_EQ(TypeOf(36), 36);
}

TEST(Chassis, HasNoTypeThatTheSchemaReserves) {
  EXPECT_EQ(TypeOf(23), 17);
  EXPECT_EQ(TypeOf(25), 17);
  EXPECT_EQ(TypeOf(37), 1);
  EXPECT_EQ(TypeOf(127), 1);
  Bytes fields = ChassisFields();
  PutField(fields, 0x05, 1, 25);
  EXPECT_EQ(ParsedChassis(fields).fTypeDescription, "Multi-system Chassis");
  EXPECT_EQ(ParsedChassis(fields).fMultipleSystems, 1);
  EXPECT_EQ(ParsedChassis(fields).fRackMountable, std::nullopt);
}

TEST(Board, TellsWhenItCanBeTakenOut) {
  TBoard board;
  EXPECT_EQ(RemovalConditions(board), std::nullopt);
  board.fRemovable = false;
  EXPECT_EQ(RemovalConditions(board), 2);
  board.fReplaceable = true;
  EXPECT_EQ(RemovalConditions(board), 3);
  board.fHotSwappable = true;
  EXPECT_EQ(RemovalConditions(board), 4);
}

TEST(Chassis, CanBeCutOffAnywhere) {
  for (std::size_t size = 0; size < ChassisFields().size(); ++size) {
    Bytes fields = ChassisFields();
    fields.resize(size);
    const TChassis chassis = ParsedChassis(fields);
    EXPECT_EQ(chassis.fLockPresent.has_value(), size >= 2) << size;
    EXPECT_EQ(chassis.fSKU, std::nullopt) << size;
  }
}

// A maker told a length with one byte more than there are, which is the first of a text.
TEST(Chassis, HasAHeightOnlyWithThePowerCords) {
  Bytes fields = ChassisFields();
  fields.resize(0x12 - 4);
  EXPECT_EQ(ParsedChassis(fields).fHeight, std::nullopt);
  fields.resize(0x13 - 4);
  EXPECT_EQ(ParsedChassis(fields).fHeight, 3.5F);
}

TEST(Chassis, HasNoSKUWhereTheListOfPartsRunsPastTheEnd) {
  Bytes fields = ChassisFields();
  PutField(fields, 0x13, 1, 0xFF);
  PutField(fields, 0x14, 1, 0xFF);
  EXPECT_EQ(ParsedChassis(fields).fSKU, std::nullopt);
}

TEST(Chassis, IsWhatTheKernelKnowsWhereThereAreNoTables) {
  const TemporaryDirectory directory;
  const ScopedEnvironment tables("HWX_SMBIOS_TABLES", std::nullopt);
  WriteMachineFile(directory.Path(), "sys/class/dmi/id/chassis_vendor", "EXMPL\n");
  WriteMachineFile(directory.Path(), "sys/class/dmi/id/chassis_type", "23\n");
  const auto found = ReadChassis(directory.Path());
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].fManufacturer, "EXMPL");
  EXPECT_EQ(found[0].fPackageType, 17);
  EXPECT_EQ(found[0].fRackMountable, 1);
  EXPECT_FALSE(found[0].fLockPresent);
}

TEST(Chassis, IsNoneWhereTheKernelHasNumbersOfNoKind) {
  const TemporaryDirectory directory;
  const ScopedEnvironment tables("HWX_SMBIOS_TABLES", std::nullopt);
  for (const char* type : {"", "2", "-1", "99999999999999999999", "\xFF"}) {
    WriteMachineFile(directory.Path(), "sys/class/dmi/id/chassis_type", type);
    EXPECT_TRUE(ReadChassis(directory.Path()).empty()) << type;
  }
}

TEST(Chassis, OfOtherTablesTakesNothingOfThisMachine) {
  const TemporaryDirectory directory;
  WriteMachineFile(directory.Path(), "sys/class/dmi/id/chassis_vendor", "EXMPL\n");
  WriteMachineFile(directory.Path(), "sys/class/dmi/id/board_name", "Board\n");
  const ScopedEnvironment tables("HWX_SMBIOS_TABLES", directory / "none");
  EXPECT_TRUE(ReadChassis(directory.Path()).empty());
  EXPECT_TRUE(ReadBoards(directory.Path()).empty());
}

TEST(Board, TellsAllFields) {
  const Bytes fields = {1, 2, 3, 4, 5, 0b10101, 6, 0, 0, 0x0A, 0};
  const MadeStructure made(2, fields, {"EXMPL", "Board 9", "v1", "5A17", "A-77", "Slot 1"});
  const TBoard board = ParseBoard(made.Get(), 1).value();
  EXPECT_EQ(board.fTag, "Card 1");
  EXPECT_EQ(board.fManufacturer, "EXMPL");
  EXPECT_EQ(board.fModel, "Board 9");
  EXPECT_EQ(board.fVersion, "v1");
  EXPECT_EQ(board.fSerialNumber, "5A17");
  EXPECT_EQ(board.fAssetTag, "A-77");
  EXPECT_EQ(board.fLocation, "Slot 1");
  EXPECT_EQ(board.fHosting, true);
  EXPECT_EQ(board.fRequiresDaughterBoard, false);
  EXPECT_EQ(board.fRemovable, true);
  EXPECT_EQ(board.fReplaceable, false);
  EXPECT_EQ(board.fHotSwappable, true);
}

TEST(Board, HasNothingOfAStructureWithoutFields) {
  const TBoard board = ParseBoard(MadeStructure(2, {}, kChassisTexts).Get(), 0).value();
  EXPECT_FALSE(board.fManufacturer);
  EXPECT_FALSE(board.fHosting);
  EXPECT_FALSE(board.fLocation);
}

TEST(Board, IsWhatTheKernelKnowsWhereThereAreNoTables) {
  const TemporaryDirectory directory;
  const ScopedEnvironment tables("HWX_SMBIOS_TABLES", std::nullopt);
  EXPECT_TRUE(ReadBoards(directory.Path()).empty());
  WriteMachineFile(directory.Path(), "sys/class/dmi/id/board_name", "Board 9\n");
  ASSERT_EQ(ReadBoards(directory.Path()).size(), 1u);
  EXPECT_EQ(ReadBoards(directory.Path())[0].fModel, "Board 9");
}

}  // namespace

}  // namespace hwxtest
