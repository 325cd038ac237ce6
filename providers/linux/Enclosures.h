// What the machine is built into and upon: chassis and boards, as the firmware tells. Texts are as
// the firmware has them, filler included.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_ENCLOSURES_H
#define PROVIDERS_LINUX_ENCLOSURES_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "smbios/TableWalker.h"

namespace linux_machine {

struct TChassis {
  std::string fTag;  ///< "Chassis 0"
  std::optional<std::string> fManufacturer;
  std::optional<std::string> fVersion;
  std::optional<std::string> fSerialNumber;
  std::optional<std::string> fAssetTag;
  std::optional<std::string> fSKU;
  std::optional<std::uint16_t> fPackageType;      ///< In the value map of CIM_Chassis.
  std::optional<std::string> fTypeDescription;    ///< Where CIM has no number for the form.
  std::optional<std::uint16_t> fMultipleSystems;  ///< 1: yes. Nothing tells of one that it isn't.
  std::optional<std::uint16_t> fRackMountable;    ///< 1: yes. Nothing tells of one that it isn't.
  std::optional<bool> fLockPresent;
  std::optional<std::uint16_t> fSecurityBreach;  ///< In the value map of CIM_PhysicalFrame.
  std::optional<float> fHeight;                  ///< Inches.
  std::optional<std::uint16_t> fPowerCords;
};

struct TBoard {
  std::string fTag;  ///< "Card 0"
  std::optional<std::string> fManufacturer;
  std::optional<std::string> fModel;
  std::optional<std::string> fVersion;
  std::optional<std::string> fSerialNumber;
  std::optional<std::string> fAssetTag;
  std::optional<std::string> fLocation;  ///< In the chassis.
  std::optional<bool> fHosting;          ///< Whether it carries other boards.
  std::optional<bool> fRequiresDaughterBoard;
  std::optional<bool> fRemovable;
  std::optional<bool> fReplaceable;
  std::optional<bool> fHotSwappable;
};

/// The chassis that a structure of type 3 describes, of whatever length.
std::optional<TChassis> ParseChassis(const smbios::TStructure& structure, std::size_t number);

/// The board that a structure of type 2 describes, of whatever length.
std::optional<TBoard> ParseBoard(const smbios::TStructure& structure, std::size_t number);

/// Whether a board can be taken out, and when, in the value map of CIM_PhysicalPackage.
std::optional<std::uint16_t> RemovalConditions(const TBoard& board);

/// From the firmware's tables; where those show none, the one that the kernel knows of.
std::vector<TChassis> ReadChassis(const std::string& root);
std::vector<TBoard> ReadBoards(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_ENCLOSURES_H
