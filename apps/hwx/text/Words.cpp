#include "hwx/text/Words.h"

#include <algorithm>

namespace hwx {

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

}  // namespace

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(kWhiteSpace) == std::string_view::npos;
}

std::string_view Trimmed(std::string_view text) {
  if (IsBlank(text)) return {};
  const std::size_t begin = text.find_first_not_of(kWhiteSpace);
  return text.substr(begin, text.find_last_not_of(kWhiteSpace) - begin + 1);
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
