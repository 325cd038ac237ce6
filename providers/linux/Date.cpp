#include "providers/linux/Date.h"

#include <algorithm>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

std::string_view WithoutBlanksAround(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// Takes the number in front of the next slash, of one or two digits.
std::optional<std::uint64_t> TakeNumber(std::string_view& text) {
  const std::size_t slash = text.find('/');
  if (slash != 1 && slash != 2) {
    return std::nullopt;
  }
  const auto number = ParseNumber(text.substr(0, slash));
  text.remove_prefix(slash + 1);
  return number;
}

// Four digits, or two: those of a year since there have been such machines.
std::optional<std::uint64_t> Year(std::string_view digits) {
  constexpr std::uint64_t kFirstYear = 80;
  const auto year = ParseNumber(digits);
  if (!year || digits.size() == 4) {
    return year;
  }
  return digits.size() == 2 ? std::optional(*year + (*year < kFirstYear ? 2000 : 1900))
                            : std::nullopt;
}

}  // namespace

std::optional<TDate> ParseFirmwareDate(std::string_view text) {
  text = WithoutBlanksAround(text);
  const auto month = TakeNumber(text);
  const auto day = TakeNumber(text);
  const auto year = Year(text);
  if (!month || !day || !year || *month < 1 || *month > 12 || *day < 1 || *day > 31) {
    return std::nullopt;
  }
  return TDate{static_cast<std::uint16_t>(*year), static_cast<std::uint16_t>(*month),
               static_cast<std::uint16_t>(*day)};
}

}  // namespace linux_machine
