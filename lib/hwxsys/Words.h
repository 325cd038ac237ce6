#ifndef HWXSYS_WORDS_H
#define HWXSYS_WORDS_H

#include <cstddef>
#include <string_view>

namespace hwxsys {

/// White space as ASCII has it, whatever the locale.
constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

/// The text without the characters of `blanks` at both ends.
constexpr std::string_view Trimmed(std::string_view text, std::string_view blanks = kWhiteSpace) {
  const std::size_t begin = text.find_first_not_of(blanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

}  // namespace hwxsys

#endif  // HWXSYS_WORDS_H
