// A day, as firmware tells when it was released.
// Thread-safety: plain values.

#ifndef PROVIDERS_LINUX_DATE_H
#define PROVIDERS_LINUX_DATE_H

#include <cstdint>
#include <optional>
#include <string_view>

namespace linux_machine {

struct TDate {
  std::uint16_t fYear = 0;
  std::uint16_t fMonth = 0;
  std::uint16_t fDay = 0;
};

/// Reads "mm/dd/yyyy", or "mm/dd/yy", which is of the years 1980 to 2079; month and day may be of
/// one digit, and blanks may stand around. None for anything else, and for a month or day that no
/// calendar has.
std::optional<TDate> ParseFirmwareDate(std::string_view text);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_DATE_H
