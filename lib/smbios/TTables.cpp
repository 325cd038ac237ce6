#include "smbios/TTables.h"

#include <algorithm>
#include <utility>

#include "smbios/BareTable.h"

namespace smbios {

namespace {

std::size_t BytesOf(EEntryPointForm form) {
  switch (form) {
    case EEntryPointForm::kLegacy:
      return kLegacyEntryPointSize;
    case EEntryPointForm::k32Bit:
      return k32BitEntryPointSize;
    case EEntryPointForm::k64Bit:
      return k64BitEntryPointSize;
    case EEntryPointForm::kNone:
      break;
  }
  return 0;
}

// "1 structure", "2 structures"
std::string Structures(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " structure" : " structures");
}

}  // namespace

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
  if (EntryPointForm(dump.data(), dump.size()) == EEntryPointForm::kNone &&
      IsBareTable(dump.data(), dump.size())) {
    tables.SetBareTable(dump);
    return tables;
  }
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
  const auto size = static_cast<std::ptrdiff_t>(BytesOf(fEntryPoint.fForm));
  fEntryPointBytes.assign(bytes.begin(), bytes.begin() + size);
  return true;
}

void TTables::SetTable(std::vector<std::uint8_t> table) {
  const std::size_t announced = fEntryPoint.fTableSize;
  fTable = std::move(table);
  fTable.resize(std::min(fTable.size(), announced));
  const bool allThere = fTable.size() == announced;
  const std::string share =
      std::to_string(fTable.size()) + " of " + std::to_string(announced) + " bytes";
  const TWalk walk = ForEach([](const TStructure&) { return true; });
  if (!walk.fDamage.empty()) {
    SetMalformed(walk.fDamage + (allThere ? "" : ", where " + share + " are there"));
  } else if (!allThere && fTable.empty()) {
    SetMalformed("the table is truncated: " + share);
  } else if (!allThere && !walk.fEnded) {
    fRemark = WithSource(share + " are there, which end with structure " +
                         std::to_string(walk.fCount - 1));
  }
}

void TTables::SetBareTable(std::vector<std::uint8_t> table) {
  fEntryPoint = EntryPointOfBareTable(table.data(), table.size());
  fTable = std::move(table);
}

void TTables::SetMalformed(const std::string& what) {
  fStatus = kSmBiosMalformed;
  fReason = WithSource(what);
}

std::string TTables::WithSource(const std::string& text) const {
  return fSource.empty() ? text : fSource + ": " + text;
}

bool TTables::IsReadable() const {
  return IsSound() || ForEach([](const TStructure&) { return false; }).fCount > 0;
}

std::string TTables::Warning() const {
  if (!IsReadable()) {
    return std::string();
  }
  if (!IsSound()) {
    const std::size_t count = ForEach([](const TStructure&) { return true; }).fCount;
    return fReason + "; " + Structures(count) + " in front of it can be read";
  }
  return fEntryPoint.fForm == EEntryPointForm::kNone
             ? WithSource("there is no entry point, only a table, taken for one of version " +
                          std::to_string(fEntryPoint.fMajor) + "." +
                          std::to_string(fEntryPoint.fMinor) + " by its structures")
             : std::string();
}

TTables TTables::SoundPart() const {
  TTables part = *this;
  if (!IsSound()) {
    part.fTable.resize(ForEach([](const TStructure&) { return true; }).fOffset);
    part.fStatus = kSmBiosOK;
    part.fReason.clear();
  }
  return part;
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
