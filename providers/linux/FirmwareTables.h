// What the readers of the firmware's tables share: rows from structures, texts, and the copies of
// single values that the kernel keeps.
// Thread-safety: no state is kept. Reading looks at the environment, which no thread may change
// meanwhile.

#ifndef PROVIDERS_LINUX_FIRMWARETABLES_H
#define PROVIDERS_LINUX_FIRMWARETABLES_H

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "smbios/TTables.h"

namespace linux_machine {

/// The text that a structure has at `offset`, byte for byte as the firmware has it; none when it is
/// empty.
std::optional<std::string> FirmwareText(const smbios::TStructure& structure, std::size_t offset);

/// A field's number; none when it is one of those by which the format says that it isn't known.
template <typename Number>
std::optional<Number> KnownNumber(Number number, std::initializer_list<Number> unknown) {
  for (const Number other : unknown) {
    if (number == other) {
      return std::nullopt;
    }
  }
  return number;
}

/// A text in /sys/class/dmi/id, where the kernel repeats some of the tables. None where
/// `HWX_SMBIOS_TABLES` is set: those tables are another machine's.
std::optional<std::string> KernelCopy(const std::string& root, const char* name);

/// The tables of the machine whose /sys lies below `root`, or of the one that `HWX_SMBIOS_TABLES`
/// names.
smbios::TTables ReadFirmwareTables(const std::string& root);

/// Makes rows of the structures of a type, in the tables' order, up to a damage if there is one.
/// `parse` is given each with its number among those of the type, from 0, and gives no row for one
/// that stands for nothing, such as an empty slot.
template <typename Row>
std::vector<Row> ParseStructures(const smbios::TTables& tables, int type,
                                 std::optional<Row> (*parse)(const smbios::TStructure&,
                                                             std::size_t)) {
  std::vector<Row> rows;
  std::size_t number = 0;
  tables.ForEach([&](const smbios::TStructure& structure) {
    if (structure.Type() == type) {
      if (std::optional<Row> row = parse(structure, number++)) {
        rows.push_back(std::move(*row));
      }
    }
    return true;
  });
  return rows;
}

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_FIRMWARETABLES_H
