// Serial numbers, as makers fill them in. Thread-safety: functions without state.

#ifndef HWXIDENTITY_SERIALNUMBERCHECK_H
#define HWXIDENTITY_SERIALNUMBERCHECK_H

#include <optional>
#include <string>

namespace hwxidentity {

/// `text` without white space at its ends, if that can be a serial number; nothing for what makers
/// leave in its place: the empty text, one character repeated (zeros, blanks, dashes), or a phrase
/// such as "Default string", in any mix of cases, whatever the locale.
std::optional<std::string> CheckedSerialNumber(const std::string& text);

}  // namespace hwxidentity

#endif  // HWXIDENTITY_SERIALNUMBERCHECK_H
