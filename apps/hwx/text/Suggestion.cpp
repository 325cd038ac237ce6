#include "hwx/text/Suggestion.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "hwx/text/Words.h"

namespace hwx {

namespace {

constexpr std::size_t kLongestName = 100;  // beyond, nobody mistypes

// How many characters have to be changed, put in or taken out to make one text of the other.
std::size_t EditDistance(const std::string& left, const std::string& right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < left.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < right.size(); ++j) {
      const std::size_t changed = diagonal + (left[i] == right[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

// A part of a name is as good as one mistyped letter: "DiskDrive" for "CIM_DiskDrive".
std::size_t Distance(const std::string& given, const std::string& name) {
  constexpr std::size_t kLeastPart = 3;
  if (given.size() >= kLeastPart && name.find(given) != std::string::npos) return 1;
  return EditDistance(given, name);
}

}  // namespace

std::string MostAlike(const std::string& given, const std::vector<std::string>& names) {
  if (given.size() > kLongestName) return std::string();
  std::string best;
  constexpr std::size_t kTooMany = 4;
  std::size_t least = std::min(given.size() / 3 + 2, kTooMany);  // as many differ too much
  for (const std::string& name : names) {
    if (name.size() > kLongestName) continue;
    const std::size_t distance = Distance(Lower(given), Lower(name));
    if (distance >= least) continue;
    least = distance;
    best = name;
  }
  return best;
}

std::string DidYouMean(const std::string& given, const std::vector<std::string>& names) {
  const std::string name = MostAlike(given, names);
  return name.empty() ? std::string() : "; did you mean " + name + "?";
}

}  // namespace hwx
