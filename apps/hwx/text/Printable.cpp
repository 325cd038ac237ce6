#include "hwx/text/Printable.h"

#include <algorithm>

namespace hwx {

namespace {

struct TCharacter {
  char32_t fCode;
  std::size_t fLength;
};

constexpr TCharacter kNoCharacter{0, 1};  // a byte that begins no character

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

std::size_t LengthFromFirstByte(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

bool IsUnicode(char32_t code, std::size_t length) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = code >= 0xD800 && code < 0xE000;
  return code >= kLeast[length] && code <= 0x10FFFF && !isSurrogate;
}

// The character at the front of a text that isn't empty.
TCharacter FirstCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = LengthFromFirstByte(first);
  if (length == 1) return {first, 1};
  if (length == 0 || text.size() < length) return kNoCharacter;
  char32_t code = first & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(text[i])) return kNoCharacter;
    code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
  }
  return IsUnicode(code, length) ? TCharacter{code, length} : kNoCharacter;
}

bool IsHarmless(char32_t code) {
  const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
  const bool isDirection = code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
                           (code >= 0x2066 && code <= 0x2069);
  return !isControl && !isDirection;
}

void AppendEscaped(std::string& result, std::string_view bytes) {
  const char kDigits[] = "0123456789abcdef";
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    result += {'\\', 'x', kDigits[value >> 4], kDigits[value & 0xF]};
  }
}

}  // namespace

std::string Printable(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const TCharacter character = FirstCharacter(text);
    const std::string_view bytes = text.substr(0, character.fLength);
    if (IsHarmless(character.fCode)) {
      result += bytes;
    } else {
      AppendEscaped(result, bytes);
    }
    text.remove_prefix(character.fLength);
  }
  return result;
}

std::size_t CharacterCount(std::string_view text) {
  return text.size() -
         static_cast<std::size_t>(std::count_if(text.begin(), text.end(), IsContinuation));
}

}  // namespace hwx
