// Text from firmware, files and other programs, made fit for a terminal.
// Thread-safety: functions without state.

#ifndef HWX_TEXT_PRINTABLE_H
#define HWX_TEXT_PRINTABLE_H

#include <string>
#include <string_view>

namespace hwx {

/// `text` with everything that could steer a terminal, or turn the text on the screen around, as
/// \xNN: control characters, direction marks, and bytes that aren't UTF-8. The rest is unchanged, a
/// backslash too.
std::string Printable(std::string_view text);

/// The number of characters in a printable text.
std::size_t CharacterCount(std::string_view text);

/// The first `count` characters of a printable text; all of it if it has no more.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

}  // namespace hwx

#endif  // HWX_TEXT_PRINTABLE_H
