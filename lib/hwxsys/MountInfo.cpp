#include "hwxsys/MountInfo.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <utility>

#include "hwxsys/RegularFile.h"

namespace hwxsys {

namespace {

constexpr std::size_t kSizeLimit = std::size_t{4} * 1024 * 1024;

// The part of `text` in front of `mark`, which is taken off with it.
std::string_view TakeUpTo(char mark, std::string_view& text) {
  const std::string_view part = text.substr(0, text.find(mark));
  text.remove_prefix(std::min(part.size() + 1, text.size()));
  return part;
}

std::vector<std::string_view> SplitAtBlanks(std::string_view line) {
  std::vector<std::string_view> words;
  while (!line.empty())
    words.push_back(TakeUpTo(' ', line));
  return words;
}

bool IsOctalDigit(char c) {
  return c >= '0' && c <= '7';
}

bool IsEscape(std::string_view text) {
  return text.size() >= 4 && text[0] == '\\' && text[1] <= '3' &&
         std::all_of(text.begin() + 1, text.begin() + 4, &IsOctalDigit);
}

// Blanks, newlines and backslashes stand as a backslash with three octal digits.
std::string Unescaped(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const bool isEscape = IsEscape(text);
    const int code = isEscape ? (text[1] - '0') * 64 + (text[2] - '0') * 8 + (text[3] - '0') : 0;
    plain += isEscape ? static_cast<char>(code) : text.front();
    text.remove_prefix(isEscape ? 4 : 1);
  }
  return plain;
}

// 0 for what is no number.
std::uint64_t Number(std::string_view digits) {
  std::uint64_t number = 0;
  const char* const end = digits.data() + digits.size();
  return std::from_chars(digits.data(), end, number).ptr == end ? number : 0;
}

// Number, parent, device, root, mount point, options, any number of tags, "-", type, source and the
// file system's options.
std::optional<TMount> ParseMount(std::string_view line) {
  const std::vector<std::string_view> words = SplitAtBlanks(line);
  const auto separator = std::find(words.begin(), words.end(), "-");
  if (separator - words.begin() < 6 || words.end() - separator < 3) return std::nullopt;
  return TMount{Number(words[0]),       std::string(words[2]), Unescaped(words[3]),
                Unescaped(words[4]),    std::string(words[5]), Unescaped(separator[1]),
                Unescaped(separator[2])};
}

}  // namespace

std::vector<TMount> ParseMountInfo(std::string_view text) {
  std::vector<TMount> mounts;
  while (!text.empty()) {
    if (auto mount = ParseMount(TakeUpTo('\n', text))) mounts.push_back(std::move(*mount));
  }
  return mounts;
}

std::vector<TMount> ReadMountInfo() {
  std::string text;
  if (ReadRegularFile("/proc/self/mountinfo", kSizeLimit, text) != 0) return {};
  return ParseMountInfo(text);
}

}  // namespace hwxsys
