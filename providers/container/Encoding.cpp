#include "providers/container/Encoding.h"

#include <algorithm>
#include <string_view>

#include "hwxkit/TContainerException.h"
#include "providers/container/ScalarText.h"
#include "providers/container/XMLText.h"

namespace container {

namespace {

constexpr std::size_t kHead = 1024;  // an XML declaration is much shorter

bool BeginsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

std::string LowerCaseOf(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

}  // namespace

TDecodedSource::TDecodedSource(TByteSource& source, const std::string& name)
    : fSource(source), fName(name), fEncoding(kUTF8), fGiven(0) {
  ReadHead();
  FindEncoding();
}

void TDecodedSource::Fail(const std::string& why) const {
  throw NQORHWX20::TContainerException(NQORHWX20::kHWXStatusCorruptedContainer,
                                       fName + ":1: " + why);
}

void TDecodedSource::ReadHead() {
  char bytes[kHead];
  while (fRaw.size() < kHead) {
    const std::size_t count = fSource.Read(bytes, kHead - fRaw.size());
    if (count == 0) return;
    fRaw.append(bytes, count);
  }
}

// A byte order mark tells the encoding, else the first bracket, else the XML declaration.
void TDecodedSource::FindEncoding() {
  using std::string_view_literals::operator""sv;
  const bool isMarked = BeginsWith(fRaw, "\xFF\xFE"sv) || BeginsWith(fRaw, "\xFE\xFF"sv);
  if (BeginsWith(fRaw, "\xFF\xFE"sv) || BeginsWith(fRaw, "<\0"sv))
    fEncoding = kUTF16LE;
  else if (BeginsWith(fRaw, "\xFE\xFF"sv) || BeginsWith(fRaw, "\0<"sv))
    fEncoding = kUTF16BE;
  else
    fEncoding = DeclaredEncoding();
  if (isMarked) fRaw.erase(0, 2);
  if (fEncoding == kUTF8) fDecoded.swap(fRaw);
}

TDecodedSource::EEncoding TDecodedSource::DeclaredEncoding() const {
  std::string_view head = fRaw;
  if (BeginsWith(head, "\xEF\xBB\xBF")) head.remove_prefix(3);
  if (!BeginsWith(head, "<?xml")) return kUTF8;
  head = head.substr(0, head.find("?>"));
  const std::size_t at = head.find("encoding");
  const std::size_t start = at == std::string_view::npos ? at : head.find_first_of("\"'", at);
  if (start == std::string_view::npos) return kUTF8;
  const std::size_t end = head.find(head[start], start + 1);
  if (end == std::string_view::npos) return kUTF8;
  const std::string name = LowerCaseOf(head.substr(start + 1, end - start - 1));
  if (name == "utf-8" || name == "utf8" || name == "us-ascii" || name == "ascii") return kUTF8;
  if (name == "iso-8859-1" || name == "latin1" || name == "latin-1") return kLatin1;
  if (BeginsWith(name, "utf-16")) Fail("the encoding is said to be UTF-16, and isn't");
  Fail("the encoding is " + Quoted(name) + ", where UTF-8, UTF-16 or ISO-8859-1 is expected");
}

unsigned int TDecodedSource::Unit(std::size_t at) const {
  const auto first = static_cast<unsigned char>(fRaw[at]);
  const auto second = static_cast<unsigned char>(fRaw[at + 1]);
  return fEncoding == kUTF16LE ? second * 256U + first : first * 256U + second;
}

// Takes what is whole; the rest waits for more.
void TDecodedSource::DecodeUTF16() {
  std::size_t at = 0;
  while (at + 2 <= fRaw.size()) {
    const unsigned int unit = Unit(at);
    if (unit < 0xD800 || unit > 0xDFFF) {
      fDecoded += FromCodePoint(static_cast<unsigned short>(unit));
      at += 2;
      continue;
    }
    if (at + 4 > fRaw.size()) break;
    const unsigned int low = Unit(at + 2);
    if (unit > 0xDBFF || low < 0xDC00 || low > 0xDFFF) Fail("half a character of UTF-16");
    const unsigned int code = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
    fDecoded += static_cast<char>(0xF0 | code >> 18);
    fDecoded += static_cast<char>(0x80 | (code >> 12 & 0x3F));
    fDecoded += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    fDecoded += static_cast<char>(0x80 | (code & 0x3F));
    at += 4;
  }
  fRaw.erase(0, at);
}

void TDecodedSource::DecodeLatin1() {
  for (const char c : fRaw)
    fDecoded += FromCodePoint(static_cast<unsigned char>(c));
  fRaw.clear();
}

void TDecodedSource::Decode() {
  fDecoded.clear();
  fGiven = 0;
  char bytes[kHead];
  for (;;) {
    fEncoding == kLatin1 ? DecodeLatin1() : DecodeUTF16();
    if (!fDecoded.empty()) return;
    const std::size_t count = fSource.Read(bytes, kHead);
    if (count == 0) break;
    fRaw.append(bytes, count);
  }
  if (!fRaw.empty()) Fail("the file ends within a character");
}

std::size_t TDecodedSource::Read(char* buffer, std::size_t size) {
  if (fGiven == fDecoded.size()) {
    if (fEncoding == kUTF8) return fSource.Read(buffer, size);
    Decode();
  }
  const std::size_t count = fDecoded.copy(buffer, size, fGiven);
  fGiven += count;
  return count;
}

}  // namespace container
