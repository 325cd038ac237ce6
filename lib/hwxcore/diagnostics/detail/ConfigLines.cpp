#include "hwxcore/diagnostics/detail/ConfigLines.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace NQORHWX20::detail {

namespace {

using TEntry = std::pair<std::string_view, std::string_view>;

// A line whose end can't be read for an error is left out: half a value is worse than none.
std::string ReadLines(std::istream& stream) {
  std::string text;
  for (std::string line; std::getline(stream, line);)
    text.append(line) += '\n';
  return text;
}

// Blanks, tabs and a carriage return at the end belong to key or value.
// Contract: config-nothing-trimmed, config-comment-in-front, config-empty-text-dropped.
void AddLine(std::string_view line, std::vector<TEntry>& entries) {
  if (line.empty() || line.front() == '#') return;
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos) {
    entries.emplace_back(line, line);  // Contract: config-line-is-both.
  } else if (sign > 0 && sign + 1 < line.size()) {
    entries.emplace_back(line.substr(0, sign), line.substr(sign + 1));
  }
}

std::vector<TEntry> EntriesOf(std::string_view text) {
  std::vector<TEntry> entries;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    AddLine(text.substr(0, end), entries);
    text.remove_prefix(end + 1);
  }
  return entries;
}

bool HasLowerKey(const TEntry& left, const TEntry& right) {
  return left.first < right.first;
}

}  // namespace

// Sorting first makes a long file in no order three times as fast as a search for each key.
void ReadConfigLines(std::istream& stream, std::map<std::string, std::string>& entries) {
  const std::string text = ReadLines(stream);
  std::vector<TEntry> added = EntriesOf(text);
  // Contract: config-first-value-stays.
  std::stable_sort(added.begin(), added.end(), &HasLowerKey);
  auto place = entries.begin();
  for (const TEntry& entry : added)
    place = entries.emplace_hint(place, entry.first, entry.second);
}

}  // namespace NQORHWX20::detail
