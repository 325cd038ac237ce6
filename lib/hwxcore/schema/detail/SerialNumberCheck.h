#ifndef HWXCORE_SCHEMA_DETAIL_SERIALNUMBERCHECK_H
#define HWXCORE_SCHEMA_DETAIL_SERIALNUMBERCHECK_H

#include <optional>
#include <string>

namespace NQORHWX20::detail {

/// `text` without white space at its ends, if that can be a serial number; nothing for what makers
/// leave in its place: the empty text, one character repeated (zeros, blanks, dashes), or a phrase
/// such as "Default string", in any mix of cases.
std::optional<std::string> CheckedSerialNumber(const std::string& text);

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_SCHEMA_DETAIL_SERIALNUMBERCHECK_H
