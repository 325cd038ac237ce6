#include "support/SmbiosTables.h"

#include <filesystem>
#include <fstream>
#include <numeric>
#include <stdexcept>

#include "support/Dmidecode.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

namespace {

constexpr std::size_t kDumpHeaderSize = 32;

void PutText(Bytes& bytes, std::size_t offset, const std::string& text) {
  std::copy(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
}

// Sets the checksum byte so that the `size` bytes from `start` add up to 0.
void FixChecksum(Bytes& bytes, std::size_t start, std::size_t size, std::size_t checksum) {
  const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(start);
  bytes.at(checksum) = 0;
  const unsigned sum = std::accumulate(first, first + static_cast<std::ptrdiff_t>(size), 0u);
  bytes.at(checksum) = static_cast<std::uint8_t>(0x100 - sum % 0x100);
}

Bytes Dump(Bytes entryPoint, const Bytes& table) {
  entryPoint.resize(kDumpHeaderSize);
  entryPoint.insert(entryPoint.end(), table.begin(), table.end());
  return entryPoint;
}

// dmidecode reads no directory of the kernel's files.
void ExpectDmidecodeAgreesOn(const SmbiosTables& tables) {
  const TemporaryDirectory directory;
  WriteBytes(directory / "dump", tables.Dump64());
  ExpectDmidecodeAgrees(directory / "dump");
}

// Gathers the strings of a structure and gives each its number.
class StringSet {
 public:
  std::uint8_t Number(const std::string& text) {
    if (text.empty()) return 0;
    fStrings.push_back(text);
    return static_cast<std::uint8_t>(fStrings.size());
  }
  const std::vector<std::string>& All() const { return fStrings; }

 private:
  std::vector<std::string> fStrings;
};

}  // namespace

SmbiosTables& SmbiosTables::Add(int type, const Bytes& fields,
                                const std::vector<std::string>& strings) {
  Bytes structure(4);
  structure[0] = static_cast<std::uint8_t>(type);
  structure[1] = static_cast<std::uint8_t>(fields.size() + 4);
  PutNumber(structure, 2, 2, fCount);
  structure.insert(structure.end(), fields.begin(), fields.end());
  for (const std::string& text : strings) {
    structure.insert(structure.end(), text.begin(), text.end());
    structure.push_back(0);
  }
  structure.insert(structure.end(), strings.empty() ? 2 : 1, 0);
  return AddRaw(structure);
}

SmbiosTables& SmbiosTables::AddBios(const std::string& vendor, const std::string& version,
                                    const std::string& date) {
  StringSet strings;
  Bytes fields(20);
  fields[0] = strings.Number(vendor);
  fields[1] = strings.Number(version);
  fields[4] = strings.Number(date);
  fields[5] = 0xFF;  // size of the ROM: 16 MiB
  return Add(0, fields, strings.All());
}

SmbiosTables& SmbiosTables::AddSystem(const SmbiosSystem& system) {
  StringSet strings;
  Bytes fields(23);
  fields[0] = strings.Number(system.manufacturer);
  fields[1] = strings.Number(system.productName);
  fields[2] = strings.Number(system.version);
  fields[3] = strings.Number(system.serialNumber);
  std::iota(fields.begin() + 4, fields.begin() + 20, std::uint8_t{1});
  fields[20] = 6;  // woken by the power switch
  fields[21] = strings.Number(system.skuNumber);
  fields[22] = strings.Number(system.family);
  return Add(1, fields, strings.All());
}

SmbiosTables& SmbiosTables::AddRaw(const Bytes& bytes) {
  fTable.insert(fTable.end(), bytes.begin(), bytes.end());
  ++fCount;
  return *this;
}

Bytes SmbiosTables::LegacyEntryPoint(std::uint32_t address) const {
  if (fTable.size() > 0xFFFF) throw std::length_error("too large for this entry point");
  Bytes bytes(15);
  PutText(bytes, 0, "_DMI_");
  PutNumber(bytes, 0x06, 2, fTable.size());
  PutNumber(bytes, 0x08, 4, address);
  PutNumber(bytes, 0x0C, 2, fCount);
  bytes[0x0E] = 0x20;
  FixLegacyChecksum(bytes);
  return bytes;
}

Bytes SmbiosTables::EntryPoint32(std::uint32_t address) const {
  if (fTable.size() > 0xFFFF) throw std::length_error("too large for a 32-bit entry point");
  Bytes bytes(31);
  PutText(bytes, 0, "_SM_");
  bytes[5] = 31;
  bytes[6] = 2;
  bytes[7] = 8;
  PutNumber(bytes, 8, 2, 256);  // size of the largest structure
  PutText(bytes, 0x10, "_DMI_");
  PutNumber(bytes, 0x16, 2, fTable.size());
  PutNumber(bytes, 0x18, 4, address);
  PutNumber(bytes, 0x1C, 2, fCount);
  bytes[0x1E] = 0x28;
  FixChecksums32(bytes);
  return bytes;
}

Bytes SmbiosTables::EntryPoint64(std::uint64_t address) const {
  Bytes bytes(24);
  PutText(bytes, 0, "_SM3_");
  bytes[6] = 24;
  bytes[7] = 3;
  bytes[8] = 2;
  bytes[10] = 1;
  PutNumber(bytes, 0x0C, 4, fTable.size());
  PutNumber(bytes, 0x10, 8, address);
  FixChecksums64(bytes);
  return bytes;
}

Bytes SmbiosTables::LegacyDump() const {
  return Dump(LegacyEntryPoint(kDumpHeaderSize), fTable);
}
Bytes SmbiosTables::Dump32() const {
  return Dump(EntryPoint32(kDumpHeaderSize), fTable);
}
Bytes SmbiosTables::Dump64() const {
  return Dump(EntryPoint64(kDumpHeaderSize), fTable);
}

void SmbiosTables::WriteDirectory(const std::string& directory) const {
  std::filesystem::create_directories(directory);
  WriteBytes(directory + "/smbios_entry_point", EntryPoint64());
  WriteBytes(directory + "/DMI", fTable);
  ExpectDmidecodeAgreesOn(*this);
}

void SmbiosTables::WriteDump(const std::string& path) const {
  WriteBytes(path, Dump64());
  ExpectDmidecodeAgrees(path);
}

void FixLegacyChecksum(Bytes& bytes) {
  FixChecksum(bytes, 0, 15, 5);
}

void FixChecksums32(Bytes& bytes) {
  FixChecksum(bytes, 0x10, 15, 0x15);  // first, since the outer sum takes it in
  FixChecksum(bytes, 0, bytes.at(5), 4);
}

void FixChecksums64(Bytes& bytes) {
  FixChecksum(bytes, 0, bytes.at(6), 5);
}

void PutNumber(Bytes& bytes, std::size_t offset, std::size_t width, std::uint64_t value) {
  for (std::size_t i = 0; i < width; ++i) {
    bytes.at(offset + i) = static_cast<std::uint8_t>(value >> 8 * i);
  }
}

void WriteBytes(const std::string& path, const Bytes& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw std::runtime_error("can't write " + path);
}

}  // namespace hwxtest
