#include "providers/linux/Enclosures.h"

#include "providers/linux/FirmwareTables.h"
#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr std::uint16_t kTrue = 1;
constexpr float kInchesPerUnit = 1.75F;

// Forms for which the standard has no number, or reserves the one that the firmware's format has.
struct TOtherForm {
  std::uint8_t fType;
  std::uint16_t fPackageType;
  const char* fDescription;
};
constexpr std::uint16_t kOtherPackage = 1;
constexpr std::uint16_t kMainChassis = 17;
constexpr std::uint16_t kBladeEnclosure = 28;
constexpr std::uint8_t kRackMount = 23;
constexpr std::uint8_t kMultiSystem = 25;
constexpr std::uint8_t kLastType = 36;
constexpr TOtherForm kOtherForms[] = {
    {kRackMount, kMainChassis, "Rack Mount Chassis"},
    {kMultiSystem, kMainChassis, "Multi-system Chassis"},
    {28, kOtherPackage, "Blade"},
    {29, kBladeEnclosure, nullptr},
};

enum ERemoval : std::uint16_t { kNotApplicable = 2, kWhenOff = 3, kWhenOnOrOff = 4 };

void SetType(TChassis& chassis, std::uint8_t type) {
  if (type == 0 || type == 2) {  // "unknown" in the format
    return;
  }
  chassis.fPackageType = type > kLastType ? kOtherPackage : type;
  for (const TOtherForm& form : kOtherForms) {
    if (form.fType == type) {
      chassis.fPackageType = form.fPackageType;
      chassis.fTypeDescription =
          form.fDescription ? std::optional<std::string>(form.fDescription) : std::nullopt;
    }
  }
  chassis.fRackMountable = type == kRackMount ? std::optional(kTrue) : std::nullopt;
  chassis.fMultipleSystems = type == kMultiSystem ? std::optional(kTrue) : std::nullopt;
}

// 0 says that a number isn't known.
void SetMeasures(TChassis& chassis, std::uint8_t units, std::uint8_t powerCords) {
  if (units != 0) {
    chassis.fHeight = static_cast<float>(units) * kInchesPerUnit;
  }
  chassis.fPowerCords = KnownNumber<std::uint16_t>(powerCords, {0});
}

std::optional<bool> Flag(const smbios::TStructure& structure, std::size_t offset, int bit) {
  return structure.HasField(offset, 1) ? std::optional((structure.Byte(offset) >> bit) % 2 == 1)
                                       : std::nullopt;
}

// The SKU number stands behind a list of parts whose length the structure tells.
std::optional<std::string> SKU(const smbios::TStructure& structure) {
  const std::size_t parts = std::size_t{structure.Byte(0x13)} * structure.Byte(0x14);
  return structure.HasField(0x14, 1) ? FirmwareText(structure, 0x15 + parts) : std::nullopt;
}

template <typename Row>
std::vector<Row> OneUnlessNothing(const Row& row, bool isSomething) {
  return isSomething ? std::vector<Row>{row} : std::vector<Row>();
}

std::vector<TChassis> ReadChassisCopy(const std::string& root) {
  TChassis chassis;
  chassis.fTag = "Chassis 0";
  chassis.fManufacturer = KernelCopy(root, "chassis_vendor");
  chassis.fVersion = KernelCopy(root, "chassis_version");
  chassis.fSerialNumber = KernelCopy(root, "chassis_serial");
  chassis.fAssetTag = KernelCopy(root, "chassis_asset_tag");
  const std::string type = KernelCopy(root, "chassis_type").value_or(std::string());
  SetType(chassis, Narrow<std::uint8_t>(ParseNumber(type)).value_or(0));
  return OneUnlessNothing(chassis, chassis.fManufacturer || chassis.fVersion ||
                                       chassis.fSerialNumber || chassis.fPackageType);
}

std::vector<TBoard> ReadBoardCopy(const std::string& root) {
  TBoard board;
  board.fTag = "Card 0";
  board.fManufacturer = KernelCopy(root, "board_vendor");
  board.fModel = KernelCopy(root, "board_name");
  board.fVersion = KernelCopy(root, "board_version");
  board.fSerialNumber = KernelCopy(root, "board_serial");
  board.fAssetTag = KernelCopy(root, "board_asset_tag");
  return OneUnlessNothing(
      board, board.fManufacturer || board.fModel || board.fVersion || board.fSerialNumber);
}

}  // namespace

std::optional<TChassis> ParseChassis(const smbios::TStructure& structure, std::size_t number) {
  TChassis chassis;
  chassis.fTag = "Chassis " + std::to_string(number);
  chassis.fManufacturer = FirmwareText(structure, 0x04);
  SetType(chassis, structure.Byte(0x05) & 0x7F);
  chassis.fLockPresent = Flag(structure, 0x05, 7);
  chassis.fVersion = FirmwareText(structure, 0x06);
  chassis.fSerialNumber = FirmwareText(structure, 0x07);
  chassis.fAssetTag = FirmwareText(structure, 0x08);
  chassis.fSKU = SKU(structure);
  if (structure.HasField(0x09, 4)) {  // with the states at the last start
    chassis.fSecurityBreach = KnownNumber<std::uint16_t>(structure.Byte(0x0C), {0});
  }
  if (structure.HasField(0x11, 2)) {
    SetMeasures(chassis, structure.Byte(0x11), structure.Byte(0x12));
  }
  return chassis;
}

std::optional<TBoard> ParseBoard(const smbios::TStructure& structure, std::size_t number) {
  TBoard board;
  board.fTag = "Card " + std::to_string(number);
  board.fManufacturer = FirmwareText(structure, 0x04);
  board.fModel = FirmwareText(structure, 0x05);
  board.fVersion = FirmwareText(structure, 0x06);
  board.fSerialNumber = FirmwareText(structure, 0x07);
  board.fAssetTag = FirmwareText(structure, 0x08);
  board.fHosting = Flag(structure, 0x09, 0);
  board.fRequiresDaughterBoard = Flag(structure, 0x09, 1);
  board.fRemovable = Flag(structure, 0x09, 2);
  board.fReplaceable = Flag(structure, 0x09, 3);
  board.fHotSwappable = Flag(structure, 0x09, 4);
  if (structure.HasField(0x0A, 4)) {  // with the chassis and the kind of board
    board.fLocation = FirmwareText(structure, 0x0A);
  }
  return board;
}

std::optional<std::uint16_t> RemovalConditions(const TBoard& board) {
  if (!board.fRemovable) {
    return std::nullopt;
  }
  if (board.fHotSwappable == true) {
    return kWhenOnOrOff;
  }
  return *board.fRemovable || board.fReplaceable == true ? kWhenOff : kNotApplicable;
}

std::vector<TChassis> ReadChassis(const std::string& root) {
  std::vector<TChassis> found =
      ParseStructures(ReadFirmwareTables(root), smbios::kTypeChassis, &ParseChassis);
  return found.empty() ? ReadChassisCopy(root) : found;
}

std::vector<TBoard> ReadBoards(const std::string& root) {
  std::vector<TBoard> found =
      ParseStructures(ReadFirmwareTables(root), smbios::kTypeBaseboard, &ParseBoard);
  return found.empty() ? ReadBoardCopy(root) : found;
}

}  // namespace linux_machine
