#include "smbios/TTables.h"

#include <algorithm>
#include <utility>

namespace smbios {

TTables TTables::FromKernelFiles(const std::vector<std::uint8_t>& entryPoint,
                                 std::vector<std::uint8_t> table, const std::string& source) {
  TTables tables;
  tables.fSource = source;
  if (tables.SetEntryPoint(entryPoint)) {
    tables.SetTable(std::move(table));
  }
  return tables;
}

TTables TTables::FromDump(const std::vector<std::uint8_t>& dump, const std::string& source) {
  TTables tables;
  tables.fSource = source;
  if (!tables.SetEntryPoint(dump)) {
    return tables;
  }
  const std::uint64_t offset = tables.fEntryPoint.fTableAddress;
  if (offset < tables.fEntryPoint.fSize || offset > dump.size()) {
    tables.SetMalformed("the table lies outside the dump");
  } else {
    tables.SetTable({dump.begin() + static_cast<std::ptrdiff_t>(offset), dump.end()});
  }
  return tables;
}

TTables TTables::None(ESmBiosCode status, const std::string& reason) {
  TTables tables;
  tables.fStatus = status;
  tables.fReason = reason;
  return tables;
}

bool TTables::SetEntryPoint(const std::vector<std::uint8_t>& bytes) {
  const std::string problem = ParseEntryPoint(bytes.data(), bytes.size(), fEntryPoint);
  if (!problem.empty()) {
    SetMalformed(problem);
    return false;
  }
  const std::size_t size = fEntryPoint.f64Bit ? k64BitEntryPointSize : k32BitEntryPointSize;
  fEntryPointBytes.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
  return true;
}

void TTables::SetTable(std::vector<std::uint8_t> table) {
  // The kernel cuts its copy behind the last structure, so that fewer bytes than announced are
  // sound as long as the structures come to their end within them.
  const bool allThere = table.size() >= fEntryPoint.fTableSize;
  fTable = std::move(table);
  fTable.resize(std::min<std::size_t>(fTable.size(), fEntryPoint.fTableSize));
  const TWalk walk = ForEach([](const TStructure&) { return true; });
  if (!walk.fDamage.empty()) {
    SetMalformed(walk.fDamage);
  } else if (!walk.fEnded && !allThere) {
    SetMalformed("the table is truncated: " + std::to_string(fTable.size()) + " of " +
                 std::to_string(fEntryPoint.fTableSize) + " bytes");
  }
}

void TTables::SetMalformed(const std::string& what) {
  fStatus = kSmBiosMalformed;
  fReason = fSource.empty() ? what : fSource + ": " + what;
}

TWalk TTables::ForEach(const TVisitor& visit) const {
  return WalkTable(fTable.data(), fTable.size(), fEntryPoint.fStructureCount, visit);
}

std::optional<TStructure> TTables::FindFirst(int type) const {
  std::optional<TStructure> found;
  ForEach([&](const TStructure& structure) {
    if (structure.Type() == type) {
      found = structure;
    }
    return !found;
  });
  return found;
}

}  // namespace smbios
