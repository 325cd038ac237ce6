// Which part of the machine holds which other, as far as the firmware tells.
// Thread-safety: no state is kept. Reading looks at the environment, which no thread may change
// meanwhile.

#ifndef PROVIDERS_LINUX_HOLDERS_H
#define PROVIDERS_LINUX_HOLDERS_H

#include <optional>
#include <string>
#include <vector>

namespace linux_machine {

enum class EHeldKind {
  kBoard,   ///< By a chassis.
  kModule,  ///< A memory module, by a board.
  kSlot     ///< By a board.
};

struct THolding {
  EHeldKind fKind;
  std::string fHolder;                ///< The tag: "Chassis 0".
  std::string fHeld;                  ///< The tag.
  std::optional<std::string> fPlace;  ///< What the place is labelled.
};

/// A board is held by the chassis that it names, or else by the only one. A module or a slot is on
/// the board that lists it, or else on the only board, or on the only motherboard.
std::vector<THolding> ReadHoldings(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_HOLDERS_H
