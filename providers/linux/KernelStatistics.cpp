#include "providers/linux/KernelStatistics.h"

#include <utmp.h>

#include <algorithm>
#include <cstring>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

bool TakeSuffix(std::string_view& text, std::string_view suffix) {
  const bool found =
      text.size() >= suffix.size() && text.substr(text.size() - suffix.size()) == suffix;
  text.remove_suffix(found ? suffix.size() : 0);
  return found;
}

// The number in "Name:      123 kB" if the line is that.
void TakeKibibytes(std::string_view line, std::string_view name,
                   std::optional<std::uint64_t>& number) {
  if (!TakePrefix(line, name) || !TakeSuffix(line, " kB")) {
    return;
  }
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  number = ParseNumber(line);
}

}  // namespace

TMemory ParseMemory(std::string_view text) {
  TMemory memory;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    TakeKibibytes(line, "MemTotal:", memory.fTotal);
    TakeKibibytes(line, "MemFree:", memory.fFree);
    TakeKibibytes(line, "SwapTotal:", memory.fSwapTotal);
    TakeKibibytes(line, "SwapFree:", memory.fSwapFree);
  }
  return memory;
}

std::optional<std::uint64_t> ParseBootTime(std::string_view text) {
  while (!text.empty()) {
    std::string_view line = TakeLine(text);
    if (TakePrefix(line, "btime ")) {
      return ParseNumber(line);
    }
  }
  return std::nullopt;
}

std::uint32_t CountSessions(std::string_view records) {
  std::uint32_t count = 0;
  for (; records.size() >= sizeof(struct utmp); records.remove_prefix(sizeof(struct utmp))) {
    struct utmp record;
    std::memcpy(&record, records.data(), sizeof record);
    count += record.ut_type == USER_PROCESS && record.ut_user[0] != '\0';
  }
  return count;
}

}  // namespace linux_machine
