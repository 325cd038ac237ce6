#include "hwx/text/Printable.h"

#include <algorithm>

#include "hwxsys/Utf8.h"

namespace hwx {

namespace {

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
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
    const hwxsys::TCharacter character = hwxsys::FirstCharacter(text);
    // A byte that begins no character is shown by itself.
    const std::string_view bytes = text.substr(0, std::max<std::size_t>(character.fLength, 1));
    if (IsHarmless(character.fCode)) {
      result += bytes;
    } else {
      AppendEscaped(result, bytes);
    }
    text.remove_prefix(bytes.size());
  }
  return result;
}

std::size_t CharacterCount(std::string_view text) {
  return text.size() -
         static_cast<std::size_t>(std::count_if(text.begin(), text.end(), IsContinuation));
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (std::size_t taken = 0; end < text.size() && taken < count; ++taken) {
    do
      ++end;
    while (end < text.size() && IsContinuation(text[end]));
  }
  return text.substr(0, end);
}

}  // namespace hwx
