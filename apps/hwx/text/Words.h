// Small questions to texts. Letters and blanks are those of ASCII, whatever the locale.
// Thread-safety: functions without state.

#ifndef HWX_TEXT_WORDS_H
#define HWX_TEXT_WORDS_H

#include <string>
#include <string_view>

#include "hwxsys/Words.h"

namespace hwx {

/// Whether there is nothing but white space.
bool IsBlank(std::string_view text);

/// The text without the white space at both ends.
using hwxsys::Trimmed;

/// The text in double quotes.
std::string Quoted(std::string_view text);

/// The text with its capital letters as small ones.
std::string Lower(std::string text);

}  // namespace hwx

#endif  // HWX_TEXT_WORDS_H
