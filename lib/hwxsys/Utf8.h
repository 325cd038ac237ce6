// The characters of a text in UTF-8, whose bytes may be any. Thread-safety: functions without
// state.

#ifndef HWXSYS_UTF8_H
#define HWXSYS_UTF8_H

#include <cstddef>
#include <string_view>

namespace hwxsys {

/// A character, and the number of bytes that it takes.
struct TCharacter {
  char32_t fCode;
  std::size_t fLength;  ///< 0 where there is no character.
};

/// The character at the front of `text`. There is none in an empty text, and none where the bytes
/// are cut off, longer than they need to be, of a surrogate, or beyond U+10FFFF.
TCharacter FirstCharacter(std::string_view text);

}  // namespace hwxsys

#endif  // HWXSYS_UTF8_H
