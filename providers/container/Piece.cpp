#include "providers/container/Piece.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

#include "providers/container/ScalarText.h"
#include "providers/container/Scanner.h"
#include "providers/container/XMLText.h"

namespace container {

namespace {

using NQORHWX20::TContainerException;

// White space is kept, as it may be the whole of a text.
constexpr unsigned int kParsing = pugi::parse_escapes | pugi::parse_cdata | pugi::parse_ws_pcdata |
                                  pugi::parse_eol | pugi::parse_wconv_attribute;

// The element, with the name that it bears.
std::string Description(const pugi::xml_node& element) {
  std::string text = element.name();
  for (const char* attribute : {"NAME", "CLASSNAME"}) {
    const pugi::xml_attribute name = element.attribute(attribute);
    if (name) return text + " " + Quoted(name.value());
  }
  return text;
}

bool BelongsToXML(const char* attribute) {
  return std::strncmp(attribute, "xml", 3) == 0 &&
         (attribute[3] == ':' || std::strncmp(attribute + 3, "ns", 2) == 0);
}

}  // namespace

bool Is(const pugi::xml_node& element, const char* name) {
  return std::strcmp(element.name(), name) == 0;
}

TPiece::TPiece(const TScanner& scanner)
    : fFileName(scanner.FileName()), fText(scanner.Text()), fLine(scanner.Line()) {
  // A tag alone becomes an element without content.
  const bool isTag = fText.find('<', 1) == std::string::npos;
  if (isTag && fText[fText.size() - 2] != '/') fText.insert(fText.size() - 1, "/");
  const pugi::xml_parse_result result =
      fDocument.load_buffer(fText.data(), fText.size(), kParsing, pugi::encoding_utf8);
  if (result) return;
  const auto end =
      fText.begin() + std::min<std::ptrdiff_t>(result.offset, std::ptrdiff_t(fText.size()));
  scanner.Fail(fLine + static_cast<unsigned long>(std::count(fText.begin(), end, '\n')),
               std::string("malformed XML: ") + result.description());
}

unsigned long TPiece::LineOf(const pugi::xml_node& element) const {
  const std::ptrdiff_t offset = std::max<std::ptrdiff_t>(element.offset_debug(), 0);
  return fLine +
         static_cast<unsigned long>(std::count(fText.begin(), fText.begin() + offset, '\n'));
}

void TPiece::Fail(const pugi::xml_node& element, const std::string& why) const {
  throw TContainerException(
      NQORHWX20::kHWXStatusCorruptedContainer,
      fFileName + ":" + std::to_string(LineOf(element)) + ": " + Description(element) + ": " + why);
}

void TPiece::FailUnexpected(const pugi::xml_node& element) const {
  Fail(element, std::string("doesn't belong into ") + element.parent().name());
}

void TPiece::CheckBlank(const pugi::xml_node& text) const {
  if (text.value()[std::strspn(text.value(), " \t\r\n")] != '\0')
    Fail(text.parent(), "a text that doesn't belong here: " + Quoted(text.value()));
}

std::string TPiece::Text(const pugi::xml_node& element) const {
  std::string text;
  for (const pugi::xml_node child : element.children()) {
    if (child.type() == pugi::node_element) FailUnexpected(child);
    text += child.value();
  }
  return text;
}

// Attributes.

void TPiece::CheckAttributes(const pugi::xml_node& element,
                             std::initializer_list<const char*> names) const {
  for (const pugi::xml_attribute attribute : element.attributes()) {
    const auto isIt = [&](const char* name) { return std::strcmp(name, attribute.name()) == 0; };
    if (std::any_of(names.begin(), names.end(), isIt) || BelongsToXML(attribute.name())) continue;
    Fail(element, "has no attribute " + Quoted(attribute.name()));
  }
}

std::string TPiece::OptionalName(const pugi::xml_node& element, const char* attribute) const {
  const std::optional<std::string> name = Unescaped(element.attribute(attribute).value());
  if (!name) Fail(element, std::string("a malformed escape in ") + attribute);
  return *name;
}

std::string TPiece::Name(const pugi::xml_node& element, const char* attribute) const {
  if (!element.attribute(attribute)) Fail(element, std::string("lacks the attribute ") + attribute);
  return OptionalName(element, attribute);
}

bool TPiece::Flag(const pugi::xml_node& element, const char* attribute, bool absent) const {
  const pugi::xml_attribute flag = element.attribute(attribute);
  if (!flag) return absent;
  const std::string value = flag.value();
  if (value != "true" && value != "false")
    Fail(element, std::string(attribute) + " is neither true nor false, but " + Quoted(value));
  return value == "true";
}

unsigned int TPiece::Number(const pugi::xml_node& element, const char* attribute) const {
  const pugi::xml_attribute found = element.attribute(attribute);
  if (!found) return 0;
  const std::string digits = found.value();
  unsigned int number = 0;
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end)
    Fail(element, std::string(attribute) + " is no number: " + Quoted(digits));
  return number;
}

TType TPiece::Type(const pugi::xml_node& element) const {
  const std::string name = Name(element, "TYPE");
  const TType type(name);
  if (type == TType::kCIMTypeNone) Fail(element, Quoted(name) + " is no type");
  return type;
}

}  // namespace container
