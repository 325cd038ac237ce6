#include "hwx/text/Words.h"

#include <algorithm>

namespace hwx {

bool IsBlank(std::string_view text) {
  return Trimmed(text).empty();
}

std::string Quoted(std::string_view text) {
  return '"' + std::string(text) + '"';
}

std::string Lower(std::string text) {
  const auto small = [](char c) {
    return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  };
  std::transform(text.begin(), text.end(), text.begin(), small);
  return text;
}

}  // namespace hwx
