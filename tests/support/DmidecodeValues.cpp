#include "support/DmidecodeValues.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "support/Dmidecode.h"

namespace hwxtest {

namespace {

// "\tLabel: value", "\tLabel:" in front of a list, or "\t\titem".
void AddLine(const std::string& line, std::string& label, DmidecodeValues& values) {
  if (line.rfind("\t\t", 0) == 0) {
    values.fLists[label].push_back(line.substr(2));
    return;
  }
  const std::size_t colon = line.find(':');
  if (line.rfind('\t', 0) != 0 || colon == std::string::npos) return;
  label = line.substr(1, colon - 1);
  const std::string value = line.substr(colon + 1);
  values.fValues.emplace(label, value.empty() ? value : value.substr(1));
}

}  // namespace

bool DmidecodeValues::Lists(const std::string& label, const std::string& item) const {
  const auto list = fLists.find(label);
  if (list == fLists.end()) return false;
  // Behind an item may stand more of it, in parentheses.
  return std::any_of(list->second.begin(), list->second.end(), [&](const std::string& entry) {
    return entry == item || entry.rfind(item + " (", 0) == 0;
  });
}

std::map<int, DmidecodeValues> ReadDmidecodeValues(const std::string& dump) {
  std::map<int, DmidecodeValues> structures;
  std::istringstream output(Dmidecode("--from-dump '" + dump + "'"));
  DmidecodeValues* values = nullptr;
  std::string label;
  for (std::string line; std::getline(output, line);) {
    if (line.rfind("Handle 0x", 0) == 0)
      values = &structures[std::stoi(line.substr(7), nullptr, 16)];
    if (values == nullptr) continue;
    values->fText += line + "\n";
    AddLine(line, label, *values);
  }
  return structures;
}

bool IsKnown(const std::string& value) {
  static const char* const kUnknown[] = {
      "", "Not Specified", "<BAD INDEX>", "Unknown", "Not Present", "Not Settable", "Unspecified"};
  return std::find(std::begin(kUnknown), std::end(kUnknown), value) == std::end(kUnknown);
}

std::optional<std::string> KnownValue(const DmidecodeValues& values, const std::string& label) {
  const auto value = values.fValues.find(label);
  const bool isKnown = value != values.fValues.end() && IsKnown(value->second);
  return isKnown ? std::optional(value->second) : std::nullopt;
}

std::string AsDmidecodeShows(std::string text) {
  for (char& c : text)
    if (static_cast<unsigned char>(c) < 32 || static_cast<unsigned char>(c) >= 127) c = '.';
  return text;
}

std::uint64_t Amount(const std::string& value) {
  return std::stoull(value);
}

std::uint64_t UnitOf(const std::string& value) {
  static const char* const kUnits[] = {"bytes", "kB", "MB", "GB", "TB", "PB", "EB"};
  const std::string unit = value.substr(value.find(' ') + 1);
  const auto found = std::find(std::begin(kUnits), std::end(kUnits), unit);
  if (found == std::end(kUnits)) throw std::invalid_argument("no unit in \"" + value + "\"");
  return std::uint64_t{1} << 10 * (found - std::begin(kUnits));
}

}  // namespace hwxtest
