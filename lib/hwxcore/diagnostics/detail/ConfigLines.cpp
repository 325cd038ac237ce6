#include "hwxcore/diagnostics/detail/ConfigLines.h"

namespace NQORHWX20::detail {

namespace {

// Nothing is trimmed: blanks, tabs and a carriage return at the end belong to key or value.
void AddLine(const std::string& line, std::map<std::string, std::string>& entries) {
  if (line.empty() || line.front() == '#') return;
  const std::size_t sign = line.find('=');
  if (sign == std::string::npos) {
    entries.try_emplace(line, line);  // key and value in one, which is meant
  } else if (sign > 0 && sign + 1 < line.size()) {
    entries.try_emplace(line.substr(0, sign), line, sign + 1);  // the first of a key stands
  }
}

}  // namespace

void ReadConfigLines(std::istream& stream, std::map<std::string, std::string>& entries) {
  std::string line;
  while (std::getline(stream, line))
    AddLine(line, entries);
}

}  // namespace NQORHWX20::detail
