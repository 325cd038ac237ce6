// Tables that somebody kept without their entry point.
// Thread-safety: functions without state.

#ifndef SMBIOS_BARETABLE_H
#define SMBIOS_BARETABLE_H

#include <cstddef>
#include <cstdint>

#include "smbios/EntryPoint.h"

namespace smbios {

/// Whether the `size` bytes from `table` are a structure table and nothing else. As no entry point
/// announces it, more is asked of it than of other tables: no damage, a structure of type 0 or 1,
/// no type that the format keeps for its future, and no beginning that looks like an entry point's.
/// Otherwise a damaged entry point could be taken for a structure.
bool IsBareTable(const std::uint8_t* table, std::size_t size);

/// What stands in for the entry point of a table that has none: the whole of the bytes, and the
/// oldest version whose structures are as long as the table's.
TEntryPoint EntryPointOfBareTable(const std::uint8_t* table, std::size_t size);

}  // namespace smbios

#endif  // SMBIOS_BARETABLE_H
