// Firmware tables from any bytes: the walk, the entry points, the dump and the kernel's two files.

#include <algorithm>
#include <iterator>
#include <memory>
#include <numeric>
#include <string_view>
#include <vector>

#include "Require.h"
#include "smbios/Dump.h"
#include "smbios/TTables.h"

namespace {

using fuzz::Require;
using Bytes = std::vector<std::uint8_t>;
using smbios::TStructure;
using smbios::TTables;

volatile std::uint64_t gSink;  // keeps the reads from being left out

// Reads all that a structure offers.
void Touch(const TStructure& structure) {
  std::uint64_t sum = std::accumulate(structure.Bytes(), structure.Bytes() + structure.Size(),
                                      std::uint64_t{structure.Handle()});
  for (std::size_t offset = 0; offset <= structure.FormattedSize(); ++offset) {
    sum += structure.QWord(offset) + structure.Byte(offset);
  }
  gSink = sum;
  const std::vector<std::string_view> strings = structure.Strings();
  std::size_t length = structure.FormattedSize() + (structure.HasStrings() ? 1 : 2);
  for (const std::string_view text : strings) {
    Require(text.find('\0') == std::string_view::npos);
    length += text.size() + 1;
  }
  Require(length == structure.Size());
  Require(strings.empty() || structure.String(strings.size()) == strings.back());
  Require(structure.String(0).empty() && structure.String(strings.size() + 1).empty());
}

// Walks bytes that end where their memory ends.
void Walk(const std::uint8_t* data, std::size_t size) {
  const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[size]);
  std::copy(data, data + size, exact.get());
  std::size_t behind = 0;
  const smbios::TWalk walk =
      smbios::WalkTable(exact.get(), size, 0, [&](const TStructure& structure) {
        Require(structure.Bytes() == exact.get() + behind);
        behind += structure.Size();
        Require(behind <= size);
        Touch(structure);
        return true;
      });
  Require(walk.fOffset == behind);
  Require(walk.fEnded || !walk.fDamage.empty() || behind == size);
}

// Makes the byte at `checksum` fit, so that a damaged entry point isn't refused for its sum alone.
void FixChecksum(Bytes& bytes, std::size_t start, std::size_t size, std::size_t checksum) {
  if (checksum >= bytes.size() || start + size > bytes.size()) return;
  const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(start);
  bytes[checksum] = 0;
  bytes[checksum] = static_cast<std::uint8_t>(
      0x100 - std::accumulate(first, first + static_cast<std::ptrdiff_t>(size), 0u) % 0x100);
}

void FixChecksums(Bytes& bytes) {
  if (bytes.size() < 32) return;
  if (bytes[1] == 'D') {
    FixChecksum(bytes, 0, 15, 5);
  } else if (bytes[3] == '_') {
    FixChecksum(bytes, 0x10, 15, 0x15);
    FixChecksum(bytes, 0, bytes[5], 4);
  } else {
    FixChecksum(bytes, 0, bytes[6], 5);
  }
}

// What is made of readable tables: the sound part, and a dump.
void CheckCopies(const TTables& tables, const smbios::TWalk& walk) {
  const TTables part = tables.SoundPart();
  Require(part.IsSound());
  const smbios::TWalk partWalk = part.ForEach([](const TStructure&) { return true; });
  Require(partWalk.fCount == walk.fCount && partWalk.fOffset == walk.fOffset);
  const TTables again = TTables::FromDump(smbios::MakeDump(tables));
  Require(again.IsReadable());
  Require(again.TableBytes() == tables.TableBytes());
}

void Check(const TTables& tables) {
  Require(tables.IsSound() == (tables.Status() == kSmBiosOK));
  Require(tables.IsSound() == tables.Reason().empty());
  const smbios::TWalk walk = tables.ForEach([](const TStructure& structure) {
    Touch(structure);
    return true;
  });
  Require(!tables.IsSound() || walk.fDamage.empty());
  Require(tables.IsReadable() == (tables.IsSound() || walk.fCount > 0));
  Require(tables.IsReadable() || tables.Warning().empty());
  tables.FindFirst(smbios::kTypeSystemInformation);
  if (tables.IsReadable()) CheckCopies(tables, walk);
}

void CheckBothForms(const Bytes& dump) {
  Check(TTables::FromDump(dump));
  const auto split =
      dump.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(32, dump.size()));
  Check(TTables::FromKernelFiles(Bytes(dump.begin(), split), Bytes(split, dump.end())));
}

Bytes Dump(Bytes entryPoint, const Bytes& table) {
  entryPoint.resize(32);
  entryPoint.insert(entryPoint.end(), table.begin(), table.end());
  FixChecksums(entryPoint);
  return entryPoint;
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  const Bytes table{0, 8,   0, 0, 1, 2, 0, 0,   'M', 0,   'A', 'B', '1', 0,   0,   1,
                    8, 1,   0, 1, 2, 0, 3, 'M', 0,   'B', 'o', 'x', 0,   'S', 'N', 0,
                    0, 200, 6, 2, 0, 9, 9, 0,   0,   127, 4,   3,   0,   0,   0};
  const std::uint8_t size = static_cast<std::uint8_t>(table.size());
  const Bytes entryPoint32{'_', 'S', 'M', '_', 0,   31, 2,    8, 0,  1, 0, 0, 0, 0, 0,   0,
                           '_', 'D', 'M', 'I', '_', 0,  size, 0, 32, 0, 0, 0, 4, 0, 0x28};
  const Bytes legacy{'_', 'D', 'M', 'I', '_', 0, size, 0, 32, 0, 0, 0, 4, 0, 0x20};
  const Bytes entryPoint64{'_',  'S', 'M', '3', '_', 0, 24, 3, 2, 0, 1, 0,
                           size, 0,   0,   0,   32,  0, 0,  0, 0, 0, 0, 0};
  return {table, Dump(legacy, table), Dump(entryPoint32, table), Dump(entryPoint64, table)};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Walk(data, size);
  Bytes bytes(data, data + size);
  CheckBothForms(bytes);
  FixChecksums(bytes);
  CheckBothForms(bytes);
  return 0;
}
