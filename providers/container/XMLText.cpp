#include "providers/container/XMLText.h"

#include <algorithm>

#include "hwxsys/Utf8.h"

namespace container {

namespace {

unsigned char Byte(std::string_view text, std::size_t index) {
  return static_cast<unsigned char>(text[index]);
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// The byte that the four characters of \xHH stand for, else -1.
int EscapedByte(std::string_view text) {
  if (text.size() < 4 || text[1] != 'x') return -1;
  const int high = HexDigit(text[2]);
  const int low = HexDigit(text[3]);
  return high < 0 || low < 0 ? -1 : high * 16 + low;
}

// The reference by which a character has to be written; null for one that needs none. A carriage
// return without it would be read as a line feed.
const char* ContentReference(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\r':
      return "&#13;";
    default:
      return nullptr;
  }
}

// The same in an attribute, where white space without a reference would be read as a blank.
const char* AttributeReference(char c) {
  switch (c) {
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    default:
      return ContentReference(c);
  }
}

template <typename Reference>
void Append(std::string& xml, std::string_view text, Reference reference) {
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char* const replacement = reference(text[i]);
    if (replacement == nullptr) continue;
    xml.append(text, start, i - start).append(replacement);
    start = i + 1;
  }
  xml.append(text, start);
}

}  // namespace

bool IsXMLCharacter(unsigned long codePoint) {
  if (codePoint < 0x20) return codePoint == '\t' || codePoint == '\n' || codePoint == '\r';
  if (codePoint >= 0xD800 && codePoint <= 0xDFFF) return false;
  return codePoint != 0xFFFE && codePoint != 0xFFFF && codePoint <= 0x10FFFF;
}

std::size_t XMLCharacterLength(std::string_view text) {
  const hwxsys::TCharacter character = hwxsys::FirstCharacter(text);
  return IsXMLCharacter(character.fCode) ? character.fLength : 0;
}

// Most texts are plain ASCII throughout, so this is the loop that has to be quick.
std::size_t PlainLength(std::string_view text) {
  const auto isSpecial = [](char c) {
    return static_cast<signed char>(c) < ' ' && !(c == '\t' || c == '\n' || c == '\r');
  };
  return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isSpecial) - text.begin());
}

bool IsXMLText(std::string_view text) {
  for (;;) {
    text.remove_prefix(PlainLength(text));
    if (text.empty()) return true;
    const std::size_t length = XMLCharacterLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
}

unsigned long CodePoint(std::string_view character) {
  return hwxsys::FirstCharacter(character).fCode;
}

std::string FromCodePoint(unsigned short codePoint) {
  const unsigned int code = codePoint;
  const auto last = [code](int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) return {static_cast<char>(code)};
  if (code < 0x800) return {static_cast<char>(0xC0 | code >> 6), last(0)};
  return {static_cast<char>(0xE0 | code >> 12), last(6), last(0)};
}

std::string Escaped(std::string_view text) {
  static const char kDigits[] = "0123456789ABCDEF";
  if (text.find('\\') == std::string_view::npos && IsXMLText(text)) return std::string(text);
  std::string escaped;
  std::size_t length = 0;
  for (std::size_t i = 0; i < text.size(); i += length) {
    length = XMLCharacterLength(text.substr(i));
    if (length != 0) {
      if (text[i] == '\\') escaped += '\\';
      escaped.append(text, i, length);
      continue;
    }
    escaped.append("\\x").append(1, kDigits[Byte(text, i) >> 4]);
    escaped += kDigits[Byte(text, i) & 0x0F];
    length = 1;
  }
  return escaped;
}

std::optional<std::string> Unescaped(std::string_view text) {
  if (text.find('\\') == std::string_view::npos) return std::string(text);
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      plain += text[i];
    } else if (text.substr(i + 1, 1) == "\\") {
      plain += text[++i];
    } else {
      const int byte = EscapedByte(text.substr(i));
      if (byte < 0) return std::nullopt;
      plain += static_cast<char>(byte);
      i += 3;
    }
  }
  return plain;
}

void AppendContent(std::string& xml, std::string_view text) {
  Append(xml, text, [](char c) { return ContentReference(c); });
}

void AppendAttributeValue(std::string& xml, std::string_view text) {
  Append(xml, text, [](char c) { return AttributeReference(c); });
}

}  // namespace container
