#include "providers/linux/Holders.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "providers/linux/Enclosures.h"
#include "providers/linux/FirmwareTables.h"
#include "providers/linux/MemoryModules.h"
#include "providers/linux/Slots.h"

namespace linux_machine {

namespace {

constexpr std::uint8_t kMotherboard = 0x0A;

// A structure as others refer to it.
struct TPlaced {
  std::uint16_t fHandle = 0;
  std::string fTag;
  std::optional<std::string> fPlace;
};

struct TPlacedBoard : TPlaced {
  std::uint16_t fChassis = 0;
  bool fIsMain = false;
  std::vector<std::uint16_t> fContained;
};

struct TPlacedModule : TPlaced {
  std::uint16_t fArray = 0;
};

std::optional<TPlaced> PlaceChassis(const smbios::TStructure& structure, std::size_t number) {
  return TPlaced{structure.Handle(), "Chassis " + std::to_string(number), std::nullopt};
}

std::optional<TPlacedBoard> PlaceBoard(const smbios::TStructure& structure, std::size_t number) {
  TPlacedBoard board;
  board.fHandle = structure.Handle();
  board.fTag = "Card " + std::to_string(number);
  board.fPlace = FirmwareText(structure, 0x0A);
  board.fChassis = structure.Word(0x0B);
  board.fIsMain = structure.Byte(0x0D) == kMotherboard;
  for (std::size_t i = 0; i < structure.Byte(0x0E); ++i) {
    if (structure.HasField(0x0F + 2 * i, 2)) {
      board.fContained.push_back(structure.Word(0x0F + 2 * i));
    }
  }
  return board;
}

std::optional<TPlacedModule> PlaceModule(const smbios::TStructure& structure, std::size_t number) {
  const auto module = ParseMemoryModule(structure, number);
  if (!module) {
    return std::nullopt;
  }
  TPlacedModule placed;
  placed.fHandle = structure.Handle();
  placed.fTag = module->fTag;
  placed.fPlace = module->fLocator;
  placed.fArray = structure.Word(0x04);
  return placed;
}

std::optional<TPlaced> PlaceSlot(const smbios::TStructure& structure, std::size_t number) {
  const auto slot = ParseSlot(structure, number);
  return TPlaced{structure.Handle(), slot->fTag, slot->fName};
}

// The boards that parts may be on.
class TBoards {
 public:
  explicit TBoards(const std::vector<TPlacedBoard>& boards) : fBoards(boards) {}

  // The board of what bears one of the handles; none where it isn't clear.
  const TPlacedBoard* Of(std::initializer_list<std::uint16_t> handles) const {
    for (const TPlacedBoard& board : fBoards) {
      for (const std::uint16_t handle : handles) {
        const auto& listed = board.fContained;
        if (std::find(listed.begin(), listed.end(), handle) != listed.end()) {
          return &board;
        }
      }
    }
    return TheOnly();
  }

 private:
  const TPlacedBoard* TheOnly() const {
    if (fBoards.size() == 1) {
      return &fBoards.front();
    }
    const TPlacedBoard* found = nullptr;
    for (const TPlacedBoard& board : fBoards) {
      if (board.fIsMain && found != nullptr) {
        return nullptr;
      }
      found = board.fIsMain ? &board : found;
    }
    return found;
  }

  const std::vector<TPlacedBoard>& fBoards;
};

void AddBoard(const TPlacedBoard& board, const std::vector<TPlaced>& chassis,
              std::vector<THolding>& holdings) {
  const auto named = std::find_if(chassis.begin(), chassis.end(), [&board](const TPlaced& one) {
    return one.fHandle == board.fChassis;
  });
  if (named != chassis.end()) {
    holdings.push_back({EHeldKind::kBoard, named->fTag, board.fTag, board.fPlace});
  } else if (chassis.size() == 1) {
    holdings.push_back({EHeldKind::kBoard, chassis.front().fTag, board.fTag, board.fPlace});
  }
}

void AddPart(EHeldKind kind, const TPlacedBoard* board, const TPlaced& part,
             std::vector<THolding>& holdings) {
  if (board != nullptr) {
    holdings.push_back({kind, board->fTag, part.fTag, part.fPlace});
  }
}

// Where the kernel's copies tell of a chassis and a board, the one holds the other.
std::vector<THolding> ReadHoldingsCopy(const std::string& root) {
  const std::vector<TChassis> chassis = ReadChassis(root);
  const std::vector<TBoard> boards = ReadBoards(root);
  if (chassis.size() != 1 || boards.size() != 1) {
    return {};
  }
  return {{EHeldKind::kBoard, chassis[0].fTag, boards[0].fTag, std::nullopt}};
}

}  // namespace

std::vector<THolding> ReadHoldings(const std::string& root) {
  const smbios::TTables tables = ReadFirmwareTables(root);
  const auto chassis = ParseStructures(tables, smbios::kTypeChassis, &PlaceChassis);
  const auto boards = ParseStructures(tables, smbios::kTypeBaseboard, &PlaceBoard);
  if (chassis.empty() || boards.empty()) {
    return ReadHoldingsCopy(root);
  }
  std::vector<THolding> holdings;
  for (const TPlacedBoard& board : boards) {
    AddBoard(board, chassis, holdings);
  }
  const TBoards holders(boards);
  for (const auto& module : ParseStructures(tables, smbios::kTypeMemoryDevice, &PlaceModule)) {
    AddPart(EHeldKind::kModule, holders.Of({module.fHandle, module.fArray}), module, holdings);
  }
  for (const TPlaced& slot : ParseStructures(tables, kTypeSlot, &PlaceSlot)) {
    AddPart(EHeldKind::kSlot, holders.Of({slot.fHandle}), slot, holdings);
  }
  return holdings;
}

}  // namespace linux_machine
