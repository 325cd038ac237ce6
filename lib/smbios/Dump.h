// The firmware's tables as one file. Thread-safety: a function without state.

#ifndef SMBIOS_DUMP_H
#define SMBIOS_DUMP_H

#include <cstdint>
#include <vector>

#include "hwxbase/Export.h"
#include "smbios/TTables.h"

namespace smbios {

/// The bytes of a file as `dmidecode --dump-bin` writes it, which `ReadTables` reads and
/// `dmidecode --from-dump` too: the entry point, padded to 32 bytes, then the table. The entry
/// point is the tables' own, but for where the table lies, how large it is, and the checksums. Of a
/// table without an entry point it is the table alone. The part of the table that is damaged is
/// there too.
///
/// `tables` must be readable.
HWX_EXPORT std::vector<std::uint8_t> MakeDump(const TTables& tables);

}  // namespace smbios

#endif  // SMBIOS_DUMP_H
