// What texts XML 1.0 can carry, in UTF-8, and the two ways of writing them: references such as
// "&lt;", and, for what it can't carry at all, escapes with a backslash.
// Thread-safety: all of it is free of state.

#ifndef CONTAINER_XMLTEXT_H
#define CONTAINER_XMLTEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace container {

/// Whether XML can carry this code point, as it stands or as a reference.
bool IsXMLCharacter(unsigned long codePoint);

/// The length in bytes of the character at the beginning of `text`; 0 if there is none that XML can
/// carry, be it malformed, forbidden or cut off.
std::size_t XMLCharacterLength(std::string_view text);

/// How many bytes at the beginning of `text` are ASCII characters that XML can carry.
std::size_t PlainLength(std::string_view text);

/// Whether XML can carry the whole text.
bool IsXMLText(std::string_view text);

/// The code point of a well-formed character.
unsigned long CodePoint(std::string_view character);

/// A code point in UTF-8, at most U+FFFF.
std::string FromCodePoint(unsigned short codePoint);

/// The text with each backslash doubled, and each byte that XML can't carry as \xHH.
std::string Escaped(std::string_view text);

/// The inverse. Missing for a text with any other escape.
std::optional<std::string> Unescaped(std::string_view text);

/// Appends a text that XML can carry, as the content of an element.
void AppendContent(std::string& xml, std::string_view text);

/// The same as the value of an attribute, without the quotation marks.
void AppendAttributeValue(std::string& xml, std::string_view text);

}  // namespace container

#endif  // CONTAINER_XMLTEXT_H
