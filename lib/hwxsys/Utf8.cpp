#include "hwxsys/Utf8.h"

namespace hwxsys {

namespace {

constexpr TCharacter kNone{0, 0};

std::size_t LengthByFirstByte(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

bool IsOfLength(char32_t code, std::size_t length) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = code >= 0xD800 && code < 0xE000;
  return code >= kLeast[length] && code <= 0x10FFFF && !isSurrogate;
}

}  // namespace

TCharacter FirstCharacter(std::string_view text) {
  if (text.empty()) return kNone;
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = LengthByFirstByte(first);
  if (length == 1) return {first, 1};
  if (length == 0 || text.size() < length) return kNone;
  char32_t code = first & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) != 0x80) return kNone;
    code = code << 6 | (byte & 0x3Fu);
  }
  return IsOfLength(code, length) ? TCharacter{code, length} : kNone;
}

}  // namespace hwxsys
