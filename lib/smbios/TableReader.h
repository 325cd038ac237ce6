// Reading the firmware's tables from files.
// Thread-safety: no state is kept. The environment is read, which no thread may change meanwhile.

#ifndef SMBIOS_TABLEREADER_H
#define SMBIOS_TABLEREADER_H

#include <string>

#include "hwxbase/Export.h"
#include "smbios/TTables.h"

namespace smbios {

/// Where the tables are to be read: what the environment variable `HWX_SMBIOS_TABLES` holds when it
/// is set, even to nothing, else the kernel's directory, "/sys/firmware/dmi/tables" below `root`.
///
/// `root`: directory below which /sys lies, without a trailing "/"; empty for this machine's own.
HWX_EXPORT std::string TablesLocation(const std::string& root = std::string());

/// Reads the tables from a directory that holds the kernel's files (`smbios_entry_point` and `DMI`)
/// or from one file: as `dmidecode --dump-bin` writes it, or a table alone (`TTables::FromDump`).
///
/// Doesn't throw but for lack of memory: where there are no sound tables, the result's status tells
/// why, and its `Reason` names the path, in one of these forms:
///
/// - `kSmBiosAbsent`: "PATH is absent"
/// - `kSmBiosNoPermission`: "PATH needs root"
/// - `kSmBiosReadFailed`: "PATH: " and what the operating system says
/// - `kSmBiosMalformed`: "PATH: " and what is wrong with the bytes
///
/// While a `TSnapshot` lives, the answer is what was read first at `location`.
HWX_EXPORT TTables ReadTables(const std::string& location);

/// One reading of the firmware's tables for many questions. While it lives, `ReadTables` reads each
/// location only once, whoever calls it, and gives the same answer again, also that there are no
/// tables. So all answers agree, and the files are read once. Without one, each call reads anew.
///
/// Thread-safety: for the process; any number may live at once, on any threads.
class HWX_EXPORT TSnapshot {
 public:
  TSnapshot();
  ~TSnapshot();
  TSnapshot(const TSnapshot&) = delete;
  TSnapshot& operator=(const TSnapshot&) = delete;
};

/// Why the tables read at `location` are absent or unsound, for people: "no firmware tables: ...",
/// "needs root: ...", "malformed: ..." or "unreadable: ...". Empty when they are sound.
HWX_EXPORT std::string WhyUnsound(const TTables& tables, const std::string& location);

}  // namespace smbios

#endif  // SMBIOS_TABLEREADER_H
