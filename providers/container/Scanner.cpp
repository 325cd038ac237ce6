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
constexpr std::string_view kNoteStart = "hwx ";

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Characters beyond ASCII all pass: no name with one is known here.
bool StartsName(unsigned char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == ':' || c >= 0x80;
}

bool ContinuesName(unsigned char c) {
  return StartsName(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

// The place of the first character behind `at` that is special; the text's size without one. The
// look-ups of the standard library for one of several characters are slow.
template <typename Predicate>
std::size_t FindSpecial(std::string_view text, std::size_t at, Predicate isSpecial) {
  while (at < text.size() && !isSpecial(text[at]))
    ++at;
  return at;
}

std::size_t SkippedBlanks(std::string_view text, std::size_t at) {
  while (at < text.size() && IsBlank(text[at]))
    ++at;
  return at;
}

unsigned long LineFeeds(std::string_view text) {
  unsigned long count = 0;
  for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1))
    ++count;
  return count;
}

// The value of an attribute in the XML declaration; empty if it has none of that name.
std::string_view DeclaredValue(std::string_view declaration, std::string_view name) {
  const std::size_t at = declaration.find(name);
  if (at == std::string_view::npos) return std::string_view();
  const std::size_t start = declaration.find_first_of("\"'", at);
  if (start == std::string_view::npos) return std::string_view();
  const std::size_t end = declaration.find(declaration[start], start + 1);
  return end == std::string_view::npos ? std::string_view()
                                       : declaration.substr(start + 1, end - start - 1);
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

bool BelongsToXML(std::string_view attribute) {
  return StartsWith(attribute, "xml:") || StartsWith(attribute, "xmlns");
}

void AppendCharacter(std::string& text, unsigned long code) {
  if (code <= 0xFFFF) {
    text += FromCodePoint(static_cast<unsigned short>(code));
    return;
  }
  const auto part = [code](int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3F)); };
  text += static_cast<char>(0xF0 | code >> 18);
  text += part(12);
  text += part(6);
  text += part(0);
}

}  // namespace

TScanner::TScanner(TByteSource& source, const std::string& name, const TLimits& limits,
                   unsigned long line)
    : fSource(source),
      fName(name),
      fLimits(limits),
      fBuffer(kBufferSize),
      fMark(0),
      fFilled(0),
      fRead(0),
      fTotal(0),
      fKept(0),
      fLine(line),
      fDepth(0),
      fIsAtStart(true),
      fHasRoot(false),
      fIsEmptyTag(false),
      fElement(EElement::kUnknown),
      fTagLine(line),
      fAttributeCount(0),
      fNotesAreOld(false) {
  if (Has(1) && Buffered()[0] == '\xEF' && Has(3) && StartsWith(Buffered(), "\xEF\xBB\xBF"))
    Advance(3);
}

// Failures.

void TScanner::Fail(unsigned long line, const std::string& why) const {
  throw NQORHWX20::TContainerException(NQORHWX20::kHWXStatusCorruptedContainer,
                                       fName + ":" + std::to_string(line) + ": " + why);
}

void TScanner::FailHere(const std::string& why) const {
  std::string element = fElementName;
  for (const char* const attribute : {"NAME", "CLASSNAME"}) {
    const std::string* const name = Attribute(attribute);
    if (name == nullptr) continue;
    element += " " + Quoted(*name);
    break;
  }
  Fail(fTagLine, element + ": " + why);
}

void TScanner::FailUnexpected(const std::string& expected) const {
  const std::string parent = fDepth >= 2 ? fOpen[fDepth - 2].fName : "the document";
  FailHere("doesn't belong into " + parent + ", where " + expected + " is expected");
}

void TScanner::Keep(std::uint64_t bytes) {
  fKept += bytes;
  if (fKept <= fLimits.fMemory) return;
  constexpr std::uint64_t kMebibyte = 1U << 20;
  Fail("the content takes more than " + std::to_string(fLimits.fMemory / kMebibyte) +
       " MiB of memory, which is the limit");
}

// Bytes.

std::string_view TScanner::Buffered() const {
  return std::string_view(fBuffer.data() + fMark, fFilled - fMark);
}

// Moves what is still to be read to the beginning, and makes the buffer larger if that fills it.
void TScanner::MakeRoom() {
  std::memmove(fBuffer.data(), fBuffer.data() + fMark, fRead - fMark);
  fFilled -= fMark;
  fRead -= fMark;
  fMark = 0;
  if (fRead < fBuffer.size()) return;
  if (fBuffer.size() > fLimits.fPiece)
    Fail("an element is larger than " + std::to_string(fLimits.fPiece) + " bytes");
  fBuffer.resize(2 * fBuffer.size());
}

// False at the end of the file.
bool TScanner::Refill() {
  MakeRoom();
  const std::size_t before = fFilled;
  const std::size_t count = fSource.Read(fBuffer.data() + fRead, fBuffer.size() - fRead);
  fRead += count;
  fTotal += count;
  if (fTotal > fLimits.fDocument)
    Fail("the document is larger than " + std::to_string(fLimits.fDocument) + " bytes");
  if (count == 0 && fRead != fFilled) Fail("the file ends within a character");
  TakeInCharacters();
  // A character that is still cut off needs another look.
  return fFilled != before || (count != 0 && Refill());
}

// Takes in whole characters; what is left over at the end waits for its other bytes.
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
      Fail(fLine + LineFeeds(Buffered()),
           "a byte that XML can't carry: " + Quoted(rest.substr(0, 1)));
    }
    fFilled += length;
  }
}

// Whether so many bytes are there to be read.
bool TScanner::Has(std::size_t count) {
  while (fFilled - fMark < count) {
    if (!Refill()) return false;
  }
  return true;
}

// The place of the first such byte behind `from`, counted from the mark; `npos` if the file ends
// before.
std::size_t TScanner::Find(char c, std::size_t from) {
  for (;;) {
    const std::string_view bytes = Buffered();
    const std::size_t at = bytes.find(c, from);
    if (at != std::string_view::npos) return at;
    from = bytes.size();
    if (from > fLimits.fPiece)
      Fail("an element is larger than " + std::to_string(fLimits.fPiece) + " bytes");
    if (!Refill()) return std::string_view::npos;
  }
}

// The same for a text whose last character is rare. `what` doesn't end without it.
std::size_t TScanner::FindText(std::string_view text, std::size_t from, const char* what) {
  from += text.size() - 1;
  for (;;) {
    const std::size_t last = Find(text.back(), from);
    if (last == std::string_view::npos) Fail(std::string(what) + " doesn't end");
    if (last > fLimits.fPiece)
      Fail("an element is larger than " + std::to_string(fLimits.fPiece) + " bytes");
    const std::size_t start = last + 1 - text.size();
    if (StartsWith(Buffered().substr(start), text)) return start;
    from = last + 1;
  }
}

void TScanner::Advance(std::size_t count) {
  fLine += LineFeeds(Buffered().substr(0, count));
  fMark += count;
}

// Tags.

std::size_t TScanner::NameLength(std::string_view text) const {
  std::size_t length = 0;
  if (!text.empty() && StartsName(static_cast<unsigned char>(text[0]))) {
    do {
      ++length;
    } while (length < text.size() && ContinuesName(static_cast<unsigned char>(text[length])));
  }
  if (length == 0) Fail("malformed XML: a name is missing");
  return length;
}

// Appends what the reference at a place in `whole`, which begins at the mark, stands for. Its
// length.
std::size_t TScanner::AppendReference(std::string& text, std::string_view whole,
                                      std::size_t at) const {
  const std::string_view raw = whole.substr(at);
  const auto fail = [&](const std::string& why) {
    Fail(fLine + LineFeeds(whole.substr(0, at)), why);
  };
  constexpr std::size_t kLongest = 16;
  std::size_t end = 1;
  while (end < raw.size() && raw[end] != ';' && end <= kLongest &&
         (raw[end] == '#' || ContinuesName(static_cast<unsigned char>(raw[end]))))
    ++end;
  if (end == raw.size() || raw[end] != ';') fail("an ampersand that begins no reference");
  const std::string_view name = raw.substr(1, end - 1);
  if (StartsWith(name, "#")) {
    const bool isHexadecimal = name.size() > 1 && name[1] == 'x';
    const char* const last = name.data() + name.size();
    unsigned long code = 0;
    const auto result =
        std::from_chars(name.data() + (isHexadecimal ? 2 : 1), last, code, isHexadecimal ? 16 : 10);
    if (result.ec != std::errc() || result.ptr != last || !IsXMLCharacter(code))
      fail("&" + std::string(name) + "; is no character that XML can carry");
    AppendCharacter(text, code);
    return end + 1;
  }
  constexpr std::pair<std::string_view, char> kEntities[] = {
      {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
  for (const auto& [known, character] : kEntities) {
    if (name != known) continue;
    text += character;
    return end + 1;
  }
  fail("the entity &" + std::string(name) + "; isn't one of XML's own");
  return 0;
}

// All white space in attributes is read as blanks.
void TScanner::AddAttribute(std::string_view name, std::string_view value) {
  for (std::size_t i = 0; i < fAttributeCount; ++i) {
    if (fAttributes[i].fName == name)
      Fail("the attribute " + std::string(name) + " stands twice in one tag");
  }
  if (fAttributeCount == kMostAttributes) Fail("too many attributes");
  if (fAttributeCount == fAttributes.size()) fAttributes.emplace_back();
  TAttribute& attribute = fAttributes[fAttributeCount++];
  attribute.fName = name;
  attribute.fValue.clear();
  for (std::size_t at = 0; at < value.size();) {
    const std::size_t end = FindSpecial(value, at, [](char c) {
      return c == '&' || c == '<' || c == '\t' || c == '\n' || c == '\r';
    });
    attribute.fValue.append(value, at, end - at);
    if (end == value.size()) return;
    at = end + 1;
    if (value[end] == '<') Fail("a \"<\" within the attribute " + std::string(name));
    if (value[end] == '&')
      at = end + AppendReference(attribute.fValue, value, end);
    else if (value[end] != '\r' || value.substr(at, 1) != "\n")
      attribute.fValue += ' ';
  }
}

// Reads one attribute of a tag; where it ends, or `npos` if the tag goes on behind what is there.
std::size_t TScanner::ParseAttribute(std::string_view tag, std::size_t at) {
  const std::string_view name = tag.substr(at, NameLength(tag.substr(at)));
  at = SkippedBlanks(tag, at + name.size());
  if (at == tag.size() || tag[at] != '=') Fail("malformed XML");
  at = SkippedBlanks(tag, at + 1);
  if (at == tag.size() || (tag[at] != '"' && tag[at] != '\''))
    Fail("the attribute " + std::string(name) + " has no quotation mark");
  const std::size_t end = tag.find(tag[at], at + 1);
  if (end == std::string_view::npos) return end;
  AddAttribute(name, tag.substr(at + 1, end - at - 1));
  return end + 1;
}

// Reads a start tag without its angle brackets. False if it goes on, as the bracket stands within
// an attribute.
bool TScanner::ParseTag(std::string_view tag) {
  fAttributeCount = 0;
  fIsEmptyTag = false;
  const std::string_view name = tag.substr(0, NameLength(tag));
  std::size_t at = name.size();
  for (;;) {
    const std::size_t next = SkippedBlanks(tag, at);
    if (next == tag.size()) break;
    if (tag[next] == '/') {
      if (next + 1 != tag.size()) Fail("malformed XML");
      fIsEmptyTag = true;
      break;
    }
    if (next == at) Fail("malformed XML in a tag of " + std::string(name));
    at = ParseAttribute(tag, next);
    if (at == std::string_view::npos) return false;
  }
  OpenElement(name);
  return true;
}

void TScanner::OpenElement(std::string_view name) {
  if (fDepth == 0 && fHasRoot) Fail("a second element at the top: " + std::string(name));
  if (fDepth == kMaxElementDepth) Fail("elements are nested too deeply");
  fHasRoot = true;
  fElementName = name;
  fElement = ElementOf(name);
  fTagLine = fLine;
  if (fDepth == fOpen.size()) fOpen.emplace_back();
  fOpen[fDepth].fName = name;
  fOpen[fDepth].fLine = fLine;
  ++fDepth;
}

void TScanner::TakeStartTag() {
  std::size_t end = Find('>', 1);
  for (;;) {
    if (end == std::string_view::npos) {
      // What stands there tells best what is wrong with it.
      if (!ParseTag(Buffered().substr(1))) {
        const std::string tag(Buffered());
        const std::size_t equals = tag.rfind('=');
        const std::size_t start = tag.find_last_of(" \t\r\n", equals) + 1;
        Fail("the attribute " + tag.substr(start, equals - start) + " doesn't end");
      }
      Fail("malformed XML");
    }
    if (ParseTag(Buffered().substr(1, end - 1))) break;
    end = Find('>', end + 1);
  }
  Advance(end + 1);
}

void TScanner::TakeEndTag() {
  const std::size_t end = Find('>', 2);
  if (end == std::string_view::npos) Fail("malformed XML");
  const std::string_view tag = Buffered().substr(2, end - 2);
  const std::string_view name = tag.substr(0, NameLength(tag));
  if (SkippedBlanks(tag, name.size()) != tag.size()) Fail("malformed XML");
  if (fDepth == 0) Fail("an end tag of " + std::string(name) + " without a start tag");
  const TOpen& open = fOpen[fDepth - 1];
  if (open.fName != name) {
    Fail("an end tag of " + std::string(name) + " where " + open.fName + ", begun in line " +
         std::to_string(open.fLine) + ", has to end");
  }
  --fDepth;
  Advance(end + 1);
}

// What stands in front of the elements and among them.

void TScanner::TakeComment() {
  const std::size_t end = FindText("-->", 4, "a comment");
  const std::string_view text = Buffered().substr(4, end - 4);
  if (text.find("--") != std::string_view::npos || (!text.empty() && text.back() == '-'))
    Fail("a comment with two hyphens in it");
  if (StartsWith(text, kNoteStart))
    fNotes.push_back({fLine, std::string(text.substr(kNoteStart.size()))});
  Advance(end + 3);
}

void TScanner::CheckDeclaration(std::string_view declaration) const {
  if (!fIsAtStart) Fail("an XML declaration that isn't at the beginning");
  if (DeclaredValue(declaration, "version") != "1.0") Fail("not XML 1.0");
}

void TScanner::TakeProcessingInstruction() {
  const std::size_t end = FindText("?>", 2, "a processing instruction");
  const std::string_view text = Buffered().substr(2, end - 2);
  if (LowerCase(text.substr(0, NameLength(text))) == "xml") CheckDeclaration(text);
  Advance(end + 2);
}

void TScanner::TakeDocumentType() {
  constexpr std::string_view kStart = "<!DOCTYPE";
  if (fHasRoot) Fail("a document type declaration that isn't in front of the elements");
  if (!Has(kStart.size()) || !StartsWith(Buffered(), kStart)) Fail("malformed XML");
  for (std::size_t at = kStart.size();; ++at) {
    if (!Has(at + 1)) Fail("the document type declaration doesn't end");
    const char c = Buffered()[at];
    if (c == '[') Fail("a document type declaration with definitions, which aren't read");
    if (c == '>') return Advance(at + 1);
    if (c != '"' && c != '\'') continue;
    at = Find(c, at + 1);
    if (at == std::string_view::npos) Fail("a literal doesn't end");
  }
}

void TScanner::TakeCData() {
  constexpr std::string_view kStart = "<![CDATA[";
  if (!Has(kStart.size()) || !StartsWith(Buffered(), kStart)) Fail("malformed XML");
  const std::size_t end = FindText("]]>", kStart.size(), "a CDATA section");
  std::string_view text = Buffered().substr(kStart.size(), end - kStart.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t next = std::min(text.find('\r', at), text.size());
    fText.append(text, at, next - at);
    if (next != text.size() && text.substr(next + 1, 1) != "\n") fText += '\n';
    at = next + 1;
  }
  Advance(end + 3);
}

// What a "<" begins.
TScanner::EToken TScanner::TakeTag() {
  if (fNotesAreOld) fNotes.clear();
  fNotesAreOld = false;
  if (!Has(2)) Fail("malformed XML");
  switch (Buffered()[1]) {
    case '!':
      if (Has(4) && StartsWith(Buffered(), "<!--"))
        TakeComment();
      else if (Has(3) && Buffered()[2] == '[')
        TakeCData();
      else
        TakeDocumentType();
      return kOther;
    case '?':
      TakeProcessingInstruction();
      return kOther;
    case '/':
      TakeEndTag();
      fNotesAreOld = true;
      return kEndTag;
    default:
      TakeStartTag();
      fNotesAreOld = true;
      return kStartTag;
  }
}

// Texts.

void TScanner::AppendText(std::string_view raw) {
  for (std::size_t at = 0; at < raw.size();) {
    const std::size_t next =
        FindSpecial(raw, at, [](char c) { return c == '&' || c == '\r' || c == '>'; });
    fText.append(raw, at, next - at);
    if (next == raw.size()) return;
    at = next + 1;
    if (raw[next] == '&')
      at = next + AppendReference(fText, raw, next);
    else if (raw[next] == '\r')
      fText.append(raw.substr(at, 1) == "\n" ? "" : "\n");
    else if (next >= 2 && raw.substr(next - 2, 3) == "]]>")
      Fail(fLine + LineFeeds(raw.substr(0, next)), "\"]]>\" within a text");
    else
      fText += '>';
  }
}

// Appends character data up to the next markup.
void TScanner::TakeText() {
  std::size_t end = Find('<', 0);
  const bool isEnd = end == std::string_view::npos;
  if (isEnd) end = Buffered().size();
  if (fText.size() + end > fLimits.fPiece)
    Fail(fTagLine, "an element is larger than " + std::to_string(fLimits.fPiece) + " bytes");
  AppendText(Buffered().substr(0, end));
  Advance(end);
  if (!isEnd) return;
  const TOpen& open = fOpen[fDepth - 1];
  Fail("the file ends within " + open.fName + ", begun in line " + std::to_string(open.fLine));
}

void TScanner::SkipBlanks() {
  for (;;) {
    const std::string_view bytes = Buffered();
    const std::size_t count = SkippedBlanks(bytes, 0);
    if (count != 0) fIsAtStart = false;
    Advance(count);
    if (count != bytes.size() || !Refill()) return;
  }
}

// Going on.

bool TScanner::Next() {
  if (fIsEmptyTag) {
    fIsEmptyTag = false;
    fNotes.clear();
    --fDepth;
    return false;
  }
  for (;;) {
    SkipBlanks();
    if (!Has(1)) break;
    const unsigned long line = fLine;
    if (Buffered()[0] != '<' || (Has(3) && StartsWith(Buffered(), "<![")))
      Fail(line, "a text where an element is expected");
    const EToken token = TakeTag();
    fIsAtStart = false;
    if (token != kOther) return token == kStartTag;
  }
  if (fDepth != 0) {
    const TOpen& open = fOpen[fDepth - 1];
    Fail("the file ends within " + open.fName + ", begun in line " + std::to_string(open.fLine));
  }
  if (!fHasRoot) Fail("no XML document");
  return false;
}

const std::string& TScanner::Text() {
  fText.clear();
  const bool isEmpty = fIsEmptyTag;
  if (isEmpty) Next();
  while (!isEmpty) {
    TakeText();
    const EToken token = TakeTag();
    if (token == kStartTag) FailUnexpected("text alone");
    if (token == kEndTag) break;
  }
  return fText;
}

void TScanner::Close() {
  const unsigned long line = fTagLine;
  const std::string name = fElementName;
  if (!Text().empty()) Fail(line, name + ": isn't empty");
}

void TScanner::Skip() {
  const std::size_t depth = fDepth;
  if (fIsEmptyTag) {
    Next();
    return;
  }
  while (fDepth >= depth) {
    fText.clear();
    TakeText();
    TakeTag();
    if (!fIsEmptyTag) continue;
    fIsEmptyTag = false;
    --fDepth;
  }
}

// Attributes.

const std::string* TScanner::Attribute(std::string_view name) const {
  for (std::size_t i = 0; i < fAttributeCount; ++i) {
    if (fAttributes[i].fName == name) return &fAttributes[i].fValue;
  }
  return nullptr;
}

void TScanner::CheckAttributes(std::initializer_list<std::string_view> names) const {
  for (std::size_t i = 0; i < fAttributeCount; ++i) {
    const std::string& attribute = fAttributes[i].fName;
    if (std::find(names.begin(), names.end(), attribute) == names.end() && !BelongsToXML(attribute))
      FailHere("has no attribute " + Quoted(attribute));
  }
}

}  // namespace container
