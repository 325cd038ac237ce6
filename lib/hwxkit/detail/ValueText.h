#ifndef HWXKIT_DETAIL_VALUETEXT_H
#define HWXKIT_DETAIL_VALUETEXT_H

#include <string>

#include "hwxcore/value/TCIMValue.h"

// Values as texts that are equal exactly if type and content are. The comparison of values itself
// won't do: it takes any two characters for equal, refuses some date-times, and can't be hashed.

namespace NQORHWX20::detail {

/// The text of any value. Throws what the value's `ToString` throws for a null date-time or
/// character, and `kHWXStatusInvalidReference` for a reference without a class.
std::string ContentText(const TCIMValue& value);

/// Appends the text of a key's value. False, with nothing appended, for a value that can't be a
/// key: null, an array, or without a printed form.
bool AppendKeyText(const TCIMValue& value, std::string& text);

}  // namespace NQORHWX20::detail

#endif  // HWXKIT_DETAIL_VALUETEXT_H
