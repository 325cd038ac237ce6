#include "providers/container/Warnings.h"

namespace container {

std::vector<std::string> TWarnings::Lines(const std::string& fileName) const {
  constexpr std::size_t kMostNames = 5;
  std::vector<std::string> lines;
  for (const auto& [kind, names] : fNames) {
    std::string line = fileName + ": " + kind + ": ";
    std::size_t count = 0;
    for (const std::string& name : names) {
      if (count == kMostNames) break;
      line += (count++ == 0 ? "" : ", ") + name;
    }
    if (names.size() > kMostNames)
      line += " and " + std::to_string(names.size() - kMostNames) + " more";
    lines.push_back(line);
  }
  return lines;
}

}  // namespace container
