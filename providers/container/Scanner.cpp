#include "providers/container/Scanner.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "hwxkit/TContainerException.h"
#include "providers/container/ScalarText.h"
#include "providers/container/XMLText.h"

namespace container {

namespace {

constexpr std::size_t kMostAttributes = 64;
constexpr int kEnd = -1;

bool IsBlank(int c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// All characters beyond ASCII pass. No element or attribute that is known here has one in its name.
bool StartsName(int c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == ':' || c >= 0x80;
}

bool ContinuesName(int c) {
  return StartsName(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// The value of an attribute in the XML declaration; empty if it has none of that name.
std::string DeclaredValue(const std::string& declaration, const std::string& name) {
  const std::size_t at = declaration.find(name);
  if (at == std::string::npos) return std::string();
  const std::size_t start = declaration.find_first_of("\"'", at);
  if (start == std::string::npos) return std::string();
  const std::size_t end = declaration.find(declaration[start], start + 1);
  return end == std::string::npos ? std::string() : declaration.substr(start + 1, end - start - 1);
}

std::string LowerCase(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

}  // namespace

TScanner::TScanner(TByteSource& source, const std::string& name, const TLimits& limits)
    : fSource(source),
      fName(name),
      fLimits(limits),
      fBuffer(kBufferSize),
      fPosition(0),
      fFilled(0),
      fRead(0),
      fTotal(0),
      fLine(1),
      fIsAtStart(true),
      fHasRoot(false),
      fTextLine(1) {
  if (Peek() == 0xEF) Expect("\xEF\xBB\xBF");
}

void TScanner::Fail(unsigned long line, const std::string& why) const {
  throw NQORHWX20::TContainerException(NQORHWX20::kHWXStatusCorruptedContainer,
                                       fName + ":" + std::to_string(line) + ": " + why);
}

// Bytes.

bool TScanner::Refill() {
  const std::size_t tail = fRead - fFilled;
  std::memmove(fBuffer.data(), fBuffer.data() + fFilled, tail);
  const std::size_t count = fSource.Read(fBuffer.data() + tail, fBuffer.size() - tail);
  fPosition = 0;
  fRead = tail + count;
  fFilled = 0;
  fTotal += count;
  if (fTotal > fLimits.fDocument)
    Fail("the document is larger than " + std::to_string(fLimits.fDocument) + " bytes");
  if (count == 0 && tail != 0) Fail("the file ends within a character");
  TakeInCharacters();
  // If the bytes end within a character, more are read.
  return fFilled != 0 || (count != 0 && Refill());
}

// Takes in whole characters. Bytes of a last one that isn't complete stay for the next time.
void TScanner::TakeInCharacters() {
  constexpr std::size_t kLongest = 4;
  const std::string_view bytes(fBuffer.data(), fRead);
  for (;;) {
    fFilled += PlainLength(bytes.substr(fFilled));
    const std::string_view rest = bytes.substr(fFilled);
    if (rest.empty()) return;
    const std::size_t length = XMLCharacterLength(rest);
    if (length == 0) {
      if (static_cast<unsigned char>(rest[0]) >= 0xC2 && rest.size() < kLongest) return;
      const auto line =
          fLine + static_cast<unsigned long>(
                      std::count(bytes.begin(), bytes.end() - std::ptrdiff_t(rest.size()), '\n'));
      Fail(line, "a byte that XML can't carry: " + Quoted(rest.substr(0, 1)));
    }
    fFilled += length;
  }
}

int TScanner::Peek() {
  if (fPosition == fFilled && !Refill()) return kEnd;
  return static_cast<unsigned char>(fBuffer[fPosition]);
}

// Takes the character that `Peek` has shown, which must not have been the end.
char TScanner::Take() {
  const char c = fBuffer[fPosition++];
  if (c == '\n') ++fLine;
  fText += c;
  CheckSize();
  return c;
}

void TScanner::CheckSize() const {
  if (fText.size() > fLimits.fPiece)
    Fail(fTextLine, "an element is larger than " + std::to_string(fLimits.fPiece) + " bytes");
}

// The same for all bytes up to one for which `stop` is true, or to the end.
template <typename Stop>
void TScanner::TakeUntil(Stop stop) {
  while (Peek() != kEnd) {
    const auto start = fBuffer.begin() + static_cast<std::ptrdiff_t>(fPosition);
    const auto last = fBuffer.begin() + static_cast<std::ptrdiff_t>(fFilled);
    const auto end =
        std::find_if(start, last, [&](char c) { return stop(static_cast<unsigned char>(c)); });
    fText.append(start, end);
    fLine += static_cast<unsigned long>(std::count(start, end, '\n'));
    fPosition += static_cast<std::size_t>(end - start);
    CheckSize();
    if (end != last) return;
  }
}

// Small parts of the grammar.

bool TScanner::TakeBlanks() {
  const bool any = IsBlank(Peek());
  while (IsBlank(Peek()))
    Take();
  return any;
}

void TScanner::Expect(std::string_view text) {
  for (const char c : text) {
    if (Peek() != static_cast<unsigned char>(c)) Fail("malformed XML");
    Take();
  }
}

// The name stays valid until more is taken.
std::string_view TScanner::TakeName() {
  const std::size_t start = fText.size();
  if (StartsName(Peek())) TakeUntil([](int c) { return !ContinuesName(c); });
  if (fText.size() == start) Fail("malformed XML: a name is missing");
  return std::string_view(fText).substr(start);
}

void TScanner::SkipUntil(std::string_view end, const char* what) {
  const unsigned long line = fLine;
  const std::size_t start = fText.size();
  while (!EndsWith(std::string_view(fText).substr(start), end)) {
    TakeUntil([&](int c) { return c == end.back(); });
    if (Peek() == kEnd) Fail(line, std::string(what) + " doesn't end");
    Take();
  }
}

// What stands in front of the elements and among them.

void TScanner::CheckDeclaration() const {
  if (!fIsAtStart) Fail("an XML declaration that isn't at the beginning");
  const std::string encoding = LowerCase(DeclaredValue(fText, "encoding"));
  if (DeclaredValue(fText, "version") != "1.0") Fail("not XML 1.0");
  if (!encoding.empty() && encoding != "utf-8" && encoding != "us-ascii")
    Fail("the encoding isn't UTF-8, but " + Quoted(encoding));
}

void TScanner::TakeProcessingInstruction() {
  Expect("?");
  const std::string target = LowerCase(std::string(TakeName()));
  SkipUntil("?>", "a processing instruction");
  if (target == "xml") CheckDeclaration();
}

void TScanner::TakeDocumentType() {
  if (fHasRoot) Fail("a document type declaration that isn't in front of the elements");
  Expect("DOCTYPE");
  while (Peek() != '>') {
    const int c = Peek();
    if (c == kEnd) Fail("the document type declaration doesn't end");
    if (c == '[') Fail("a document type declaration with definitions, which aren't read");
    Take();
    if (c == '"' || c == '\'') SkipUntil(std::string_view(c == '"' ? "\"" : "'"), "a literal");
  }
  Take();
}

// Behind "<!".
void TScanner::TakeMarkup() {
  if (Peek() == '-') {
    Expect("--");
    const unsigned long line = fLine;
    SkipUntil("--", "a comment");
    if (Peek() != '>') Fail(line, "a comment with two hyphens in it");
    Take();
  } else if (Peek() == '[') {
    Expect("[CDATA[");
    SkipUntil("]]>", "a CDATA section");
  } else {
    TakeDocumentType();
  }
}

void TScanner::CheckCharacterReference(const std::string& name) {
  const bool isHexadecimal = name.size() > 1 && name[1] == 'x';
  const char* const start = name.data() + (isHexadecimal ? 2 : 1);
  const char* const end = name.data() + name.size();
  unsigned long codePoint = 0;
  const auto result = std::from_chars(start, end, codePoint, isHexadecimal ? 16 : 10);
  if (result.ec != std::errc() || result.ptr != end || !IsXMLCharacter(codePoint))
    Fail("&" + name + "; is no character that XML can carry");
}

void TScanner::TakeReference() {
  constexpr std::size_t kLongest = 16;
  Expect("&");
  std::string name;
  while (Peek() != ';') {
    if (name.size() == kLongest || (Peek() != '#' && !ContinuesName(Peek())))
      Fail("an ampersand that begins no reference");
    name += Take();
  }
  Take();
  if (name[0] == '#') return CheckCharacterReference(name);
  for (const char* known : {"amp", "lt", "gt", "quot", "apos"}) {
    if (name == known) return;
  }
  Fail("the entity &" + name + "; isn't one of XML's own");
}

// Character data, up to the next markup.
void TScanner::TakeText() {
  const std::size_t start = fText.size();
  for (;;) {
    TakeUntil([](int c) { return c == '<' || c == '&' || c == '>'; });
    const int c = Peek();
    if (c == '&') {
      TakeReference();
    } else if (c == '>') {
      Take();
      if (EndsWith(std::string_view(fText).substr(start), "]]>")) Fail("\"]]>\" within a text");
    } else {
      return;
    }
  }
}

// Tags.

void TScanner::CheckAttributeName(std::string_view name) {
  const std::string_view text = fText;
  for (const auto& [start, end] : fAttributes) {
    if (text.substr(start, end - start) == name)
      Fail("the attribute " + std::string(name) + " stands twice in one tag");
  }
  if (fAttributes.size() == kMostAttributes) Fail("too many attributes");
  fAttributes.emplace_back(fText.size() - name.size(), fText.size());
}

void TScanner::TakeAttribute() {
  CheckAttributeName(TakeName());
  TakeBlanks();
  Expect("=");
  TakeBlanks();
  const auto failHere = [this](const std::string& before, const std::string& behind) {
    const auto& [start, end] = fAttributes.back();
    Fail(before + fText.substr(start, end - start) + behind);
  };
  const int quote = Peek();
  if (quote != '"' && quote != '\'') failHere("the attribute ", " has no quotation mark");
  Take();
  for (;;) {
    TakeUntil([quote](int c) { return c == quote || c == '<' || c == '&'; });
    const int c = Peek();
    if (c == quote) break;
    if (c == kEnd) failHere("the attribute ", " doesn't end");
    if (c == '<') failHere("a \"<\" within the attribute ", "");
    TakeReference();
  }
  Take();
}

TScanner::EToken TScanner::TakeStartTag() {
  const unsigned long line = fLine;
  fElement = TakeName();
  fAttributes.clear();
  bool isSeparated = TakeBlanks();
  while (Peek() != '>' && Peek() != '/') {
    if (!isSeparated) Fail("malformed XML in a tag of " + fElement);
    TakeAttribute();
    isSeparated = TakeBlanks();
  }
  const bool isEmpty = Peek() == '/';
  if (isEmpty) Take();
  Expect(">");
  if (fOpen.empty() && fHasRoot) Fail(line, "a second element at the top: " + fElement);
  if (fOpen.size() == kMaxElementDepth) Fail(line, "elements are nested too deeply");
  fHasRoot = true;
  if (isEmpty) return kEmptyTag;
  fOpen.emplace_back(fElement, line);
  return kStartTag;
}

void TScanner::TakeEndTag() {
  Expect("/");
  fElement = TakeName();
  TakeBlanks();
  Expect(">");
  if (fOpen.empty()) Fail("an end tag of " + fElement + " without a start tag");
  if (fOpen.back().first != fElement) {
    Fail("an end tag of " + fElement + " where " + fOpen.back().first + ", begun in line " +
         std::to_string(fOpen.back().second) + ", has to end");
  }
  fOpen.pop_back();
}

// What a "<" has begun.
TScanner::EToken TScanner::TakeTag() {
  switch (Peek()) {
    case '!':
      Take();
      TakeMarkup();
      return kOtherMarkup;
    case '?':
      TakeProcessingInstruction();
      return kOtherMarkup;
    case '/':
      TakeEndTag();
      return kEndTag;
    default:
      return TakeStartTag();
  }
}

TScanner::EToken TScanner::Next() {
  for (;;) {
    fText.clear();
    fTextLine = fLine;
    if (TakeBlanks()) fIsAtStart = false;
    fText.clear();
    if (Peek() == kEnd) break;
    if (Peek() != '<') Fail("a text where an element is expected");
    fTextLine = fLine;
    Take();
    const EToken token = TakeTag();
    if (token != kOtherMarkup) return token;
    if (fText.compare(0, 3, "<![") == 0) Fail(fTextLine, "a text where an element is expected");
    fIsAtStart = false;
  }
  CheckComplete();
  return kEndOfDocument;
}

void TScanner::CheckComplete() const {
  if (!fOpen.empty()) {
    Fail("the file ends within " + fOpen.back().first + ", begun in line " +
         std::to_string(fOpen.back().second));
  }
  if (!fHasRoot) Fail("no XML document");
}

void TScanner::ReadElement() {
  const std::size_t depth = fOpen.size();
  const std::string element = fElement;
  while (fOpen.size() >= depth) {
    TakeText();
    if (Peek() == kEnd) CheckComplete();
    Take();
    TakeTag();
  }
  fElement = element;
}

}  // namespace container
