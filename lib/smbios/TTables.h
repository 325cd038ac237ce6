// The firmware's tables in memory, or the reason why there are none.

#ifndef SMBIOS_TTABLES_H
#define SMBIOS_TTABLES_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "hwxbase/Export.h"
#include "smbios/EntryPoint.h"
#include "smbios/TableWalker.h"
#include "smbios/smbios.h"

namespace smbios {

/// A structure table with its entry point, made from bytes or read from files (`ReadTables`).
///
/// A damaged table keeps what lies in front of the damage: its status is `kSmBiosMalformed` and its
/// structures can still be walked. Who wants sound tables only asks `IsSound` first, who takes what
/// there is asks `IsReadable`.
///
/// A table with fewer bytes than its entry point announces is sound where they end with a
/// structure: the kernel cuts its copy behind the last one, and programs that keep it do the same.
///
/// Thread-safety: constant once made; any number of threads may read it. Structures are views and
/// live as long as the object, wherever it is moved to.
class HWX_EXPORT TTables {
 public:
  /// From the two files that the kernel exports. The table begins at its file's start, whatever
  /// address the entry point tells. `source` says where the bytes came from and is put in front of
  /// the reason. Whatever the bytes hold, nothing is thrown.
  static TTables FromKernelFiles(const std::vector<std::uint8_t>& entryPoint,
                                 std::vector<std::uint8_t> table,
                                 const std::string& source = std::string());

  /// From one file as `dmidecode --dump-bin` writes it: the entry point first, in which the table's
  /// address is an offset within the file; or from a file that holds the table alone, if it is
  /// sound to its end. `source` as above.
  static TTables FromDump(const std::vector<std::uint8_t>& dump,
                          const std::string& source = std::string());

  /// No tables: `status` is the reason as a code (not `kSmBiosOK`), `reason` in words.
  static TTables None(ESmBiosCode status, const std::string& reason);

  bool IsSound() const { return fStatus == kSmBiosOK; }
  ESmBiosCode Status() const { return fStatus; }

  /// Whether structures can be had: those of sound tables, or the ones in front of a damage.
  bool IsReadable() const;

  /// Why the tables are absent or unsound, for people, such as "/sys/firmware/dmi/tables is
  /// absent". Empty when they are sound.
  const std::string& Reason() const { return fReason; }

  /// What people are to hear of readable tables: where and how they are damaged, and how much is
  /// read; or that they have no entry point. Empty when there is nothing to say.
  std::string Warning() const;

  /// What only the curious want to hear of sound tables: that fewer bytes are there than the entry
  /// point announces. Empty otherwise.
  const std::string& Remark() const { return fRemark; }

  /// The structures in front of a damage as tables of their own, which are sound. `IsReadable` must
  /// hold; what is sound is copied as it is.
  TTables SoundPart() const;

  /// What the entry point says; zeros when there are no tables. Of tables without an entry point,
  /// the size and the oldest version that has structures as long as theirs.
  const TEntryPoint& EntryPoint() const { return fEntryPoint; }

  /// The bytes of the entry point, as far as the format defines them: 15, 31 or 24, by its form;
  /// none when there is none.
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
  void SetBareTable(std::vector<std::uint8_t> table);
  void SetMalformed(const std::string& what);
  std::string WithSource(const std::string& text) const;

  std::string fSource;
  ESmBiosCode fStatus = kSmBiosOK;
  std::string fReason;
  std::string fRemark;
  TEntryPoint fEntryPoint;
  std::vector<std::uint8_t> fEntryPointBytes;
  std::vector<std::uint8_t> fTable;
};

}  // namespace smbios

#endif  // SMBIOS_TTABLES_H
