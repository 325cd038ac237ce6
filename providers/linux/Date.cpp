#include "providers/linux/Date.h"

#include "providers/linux/TextFile.h"

namespace linux_machine {

std::optional<TDate> ParseFirmwareDate(std::string_view text) {
  const bool isShort = text.size() == 8;
  if ((!isShort && text.size() != 10) || text[2] != '/' || text[5] != '/') {
    return std::nullopt;
  }
  const auto month = ParseNumber(text.substr(0, 2));
  const auto day = ParseNumber(text.substr(3, 2));
  const auto year = ParseNumber(text.substr(6));
  if (!month || !day || !year || *month < 1 || *month > 12 || *day < 1 || *day > 31) {
    return std::nullopt;
  }
  return TDate{static_cast<std::uint16_t>(*year + (isShort ? 1900 : 0)),
               static_cast<std::uint16_t>(*month), static_cast<std::uint16_t>(*day)};
}

}  // namespace linux_machine
