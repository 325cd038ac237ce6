#ifndef HWXTESTS_SUPPORT_SMBIOSTABLES_H
#define HWXTESTS_SUPPORT_SMBIOSTABLES_H

#include <cstdint>
#include <string>
#include <vector>

namespace hwxtest {

using Bytes = std::vector<std::uint8_t>;

/// What the System Information structure of a made machine says. Empty text: no such string.
struct SmbiosSystem {
  std::string manufacturer = {};
  std::string productName = {};
  std::string version = {};
  std::string serialNumber = {};
  std::string skuNumber = {};
  std::string family = {};
};

/// Makes the firmware tables of a machine:
///
///     SmbiosTables tables;
///     tables.AddBios("Maker", "[AB12-1.05]", "01/02/2020").AddSystem({"Maker", "Box 5"}).AddEnd();
///     tables.WriteDirectory(directory / "sys/firmware/dmi/tables");
///
/// What it gives is sound as long as it is used soundly; tests that want damage change the bytes,
/// and call the `Fix...` functions where the checksums are not to give it away.
class SmbiosTables {
 public:
  /// Adds a structure. `fields` is the formatted area behind the header of four bytes; type, length
  /// and the next free handle (from 0) are put in front of it, the strings and NUL bytes behind it.
  SmbiosTables& Add(int type, const Bytes& fields, const std::vector<std::string>& strings = {});

  /// Type 0, with the strings numbered in this order; empty text gives number 0.
  SmbiosTables& AddBios(const std::string& vendor, const std::string& version,
                        const std::string& date);

  /// Type 1, of 27 bytes; the UUID's bytes count up from 1.
  SmbiosTables& AddSystem(const SmbiosSystem& system);

  /// Type 127, the end marker.
  SmbiosTables& AddEnd() { return Add(127, {}); }

  /// Adds bytes as they are, counted as one structure.
  SmbiosTables& AddRaw(const Bytes& bytes);

  const Bytes& Table() const { return fTable; }

  /// The entry points for this table, of version 2.0 ("_DMI_"), 2.8 and 3.2, with valid checksums.
  /// `address` is where the table is said to lie.
  Bytes LegacyEntryPoint(std::uint32_t address = 0x000E0000) const;
  Bytes EntryPoint32(std::uint32_t address = 0x000E0000) const;
  Bytes EntryPoint64(std::uint64_t address = 0x7B000000) const;

  /// As `dmidecode --dump-bin` writes it: the entry point, padded to 32 bytes, then the table.
  Bytes LegacyDump() const;
  Bytes Dump32() const;
  Bytes Dump64() const;

  /// Write the files `smbios_entry_point` (64-bit) and `DMI` to a directory, which is made with its
  /// parents, or the 64-bit dump to a file. Where dmidecode is installed, the test also expects
  /// that it reads the same strings of type 0 and type 1 in them.
  void WriteDirectory(const std::string& directory) const;
  void WriteDump(const std::string& path) const;

 private:
  Bytes fTable;
  std::uint16_t fCount = 0;
};

/// Make the checksums of an entry point that begins at the bytes' start right again.
void FixLegacyChecksum(Bytes& bytes);
void FixChecksums32(Bytes& bytes);
void FixChecksums64(Bytes& bytes);

/// Puts a number of `width` bytes at an offset, lowest byte first.
void PutNumber(Bytes& bytes, std::size_t offset, std::size_t width, std::uint64_t value);

void WriteBytes(const std::string& path, const Bytes& bytes);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_SMBIOSTABLES_H
