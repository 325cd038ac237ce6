// The firmware's tables in memory, or the reason why there are none.

#ifndef SMBIOS_TTABLES_H
#define SMBIOS_TTABLES_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "smbios/EntryPoint.h"
#include "smbios/TableWalker.h"
#include "smbios/smbios.h"

namespace smbios {

/// A structure table with its entry point, made from bytes or read from files (`ReadTables`).
///
/// A damaged table keeps what lies in front of the damage: its status is `kSmBiosMalformed` and its
/// structures can still be walked. Who wants sound tables only asks `IsSound` first.
///
/// Thread-safety: constant once made; any number of threads may read it. Structures are views and
/// live as long as the object, wherever it is moved to.
class TTables {
 public:
  /// From the two files that the kernel exports. The table begins at its file's start, whatever
  /// address the entry point tells. `source` says where the bytes came from and is put in front of
  /// the reason. Whatever the bytes hold, nothing is thrown.
  static TTables FromKernelFiles(const std::vector<std::uint8_t>& entryPoint,
                                 std::vector<std::uint8_t> table,
                                 const std::string& source = std::string());

  /// From one file as `dmidecode --dump-bin` writes it: the entry point first, in which the table's
  /// address is an offset within the file. `source` as above.
  static TTables FromDump(const std::vector<std::uint8_t>& dump,
                          const std::string& source = std::string());

  /// No tables: `status` is the reason as a code (not `kSmBiosOK`), `reason` in words.
  static TTables None(ESmBiosCode status, const std::string& reason);

  bool IsSound() const { return fStatus == kSmBiosOK; }
  ESmBiosCode Status() const { return fStatus; }

  /// Why the tables are absent or unsound, for people, such as "/sys/firmware/dmi/tables is
  /// absent". Empty when they are sound.
  const std::string& Reason() const { return fReason; }

  /// What the entry point says; zeros when there is none.
  const TEntryPoint& EntryPoint() const { return fEntryPoint; }

  /// The bytes of the entry point, as far as the format defines them: 31 of the 32-bit form, 24 of
  /// the 64-bit one; none when there is none.
  const std::vector<std::uint8_t>& EntryPointBytes() const { return fEntryPointBytes; }

  /// The bytes of the structure table, with what may lie behind its end marker.
  const std::vector<std::uint8_t>& TableBytes() const { return fTable; }

  /// Visits the structures in order, up to the end marker or the damage; see `WalkTable`.
  TWalk ForEach(const TVisitor& visit) const;

  /// The first structure of a type.
  std::optional<TStructure> FindFirst(int type) const;

 private:
  TTables() = default;
  bool SetEntryPoint(const std::vector<std::uint8_t>& bytes);
  void SetTable(std::vector<std::uint8_t> table);
  void SetMalformed(const std::string& what);

  std::string fSource;
  ESmBiosCode fStatus = kSmBiosOK;
  std::string fReason;
  TEntryPoint fEntryPoint;
  std::vector<std::uint8_t> fEntryPointBytes;
  std::vector<std::uint8_t> fTable;
};

}  // namespace smbios

#endif  // SMBIOS_TTABLES_H
