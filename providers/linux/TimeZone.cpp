#include "providers/linux/TimeZone.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <iterator>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr std::int64_t kSecondsOfDay = 86400;
constexpr std::int32_t kSecondsOfHour = 3600;
constexpr std::uint64_t kMostHours = 167;  // that the form of rules allows
constexpr std::size_t kHeaderSize = 44;
constexpr std::size_t kTypeSize = 6;

// The text form of rules.

// A name of letters, or of anything between "<" and ">".
bool TakeName(std::string_view& text) {
  std::size_t end = 0;
  if (!text.empty() && text.front() == '<') {
    end = text.find('>');
    end = end == std::string_view::npos ? 0 : end + 1;
  } else {
    while (end < text.size() && std::isalpha(static_cast<unsigned char>(text[end])) != 0) {
      ++end;
    }
  }
  text.remove_prefix(end);
  return end != 0;
}

std::optional<std::uint64_t> TakeNumber(std::string_view& text, std::uint64_t most) {
  std::size_t end = 0;
  while (end < text.size() && std::isdigit(static_cast<unsigned char>(text[end])) != 0) {
    ++end;
  }
  const auto number = ParseNumber(text.substr(0, end));
  text.remove_prefix(end);
  return number && *number <= most ? number : std::nullopt;
}

// "[+-]hours[:minutes[:seconds]]" in seconds.
std::optional<std::int32_t> TakeTime(std::string_view& text) {
  const bool isNegative = TakePrefix(text, "-");
  if (!isNegative) {
    TakePrefix(text, "+");
  }
  const auto hours = TakeNumber(text, kMostHours);
  if (!hours) {
    return std::nullopt;
  }
  std::uint64_t seconds = *hours * kSecondsOfHour;
  for (const std::uint64_t unit : {60UL, 1UL}) {
    if (!TakePrefix(text, ":")) {
      break;
    }
    const auto part = TakeNumber(text, 59);
    if (!part) {
      return std::nullopt;
    }
    seconds += *part * unit;
  }
  const auto time = static_cast<std::int32_t>(seconds);
  return isNegative ? -time : time;
}

std::optional<int> TakeInteger(std::string_view& text, std::uint64_t least, std::uint64_t most) {
  const auto number = TakeNumber(text, most);
  return number && *number >= least ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

// ",M3.5.0/2", ",J60" or ",59".
std::optional<TClockChange> TakeChange(std::string_view& text) {
  TClockChange change;
  std::optional<int> month = 1;
  std::optional<int> week = 1;
  std::optional<int> day;
  if (!TakePrefix(text, ",")) {
    return std::nullopt;
  }
  if (TakePrefix(text, "M")) {
    month = TakeInteger(text, 1, 12);
    week = TakePrefix(text, ".") ? TakeInteger(text, 1, 5) : std::nullopt;
    day = TakePrefix(text, ".") ? TakeInteger(text, 0, 6) : std::nullopt;
  } else if (TakePrefix(text, "J")) {
    change.fKind = TClockChange::EDay::kWithoutLeapDay;
    day = TakeInteger(text, 1, 365);
  } else {
    change.fKind = TClockChange::EDay::kWithLeapDay;
    day = TakeInteger(text, 0, 365);
  }
  const auto time =
      TakePrefix(text, "/") ? TakeTime(text) : std::optional<std::int32_t>(change.fTime);
  if (!month || !week || !day || !time) {
    return std::nullopt;
  }
  change.fMonth = *month;
  change.fWeek = *week;
  change.fDay = *day;
  change.fTime = *time;
  return change;
}

// The calendar.

bool IsLeapYear(std::int64_t year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// Days from 1970 to the first of January.
std::int64_t DaysBefore(std::int64_t year) {
  const std::int64_t last = year - 1;
  const auto leaps = [](std::int64_t y) { return y / 4 - y / 100 + y / 400; };
  return (year - 1970) * 365 + leaps(last) - leaps(1969);
}

int DaysOfMonth(std::int64_t year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return kDays[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

std::int64_t DayOf(const TClockChange& change, std::int64_t year) {
  const std::int64_t first = DaysBefore(year);
  if (change.fKind == TClockChange::EDay::kWithLeapDay) {
    return first + change.fDay;
  }
  if (change.fKind == TClockChange::EDay::kWithoutLeapDay) {
    const bool isAfterLeapDay = IsLeapYear(year) && change.fDay >= 60;
    return first + change.fDay - 1 + (isAfterLeapDay ? 1 : 0);
  }
  std::int64_t day = first;
  for (int month = 1; month < change.fMonth; ++month) {
    day += DaysOfMonth(year, month);
  }
  const std::int64_t weekday = ((day + 4) % 7 + 7) % 7;  // 1970 began on a Thursday
  std::int64_t inMonth = (change.fDay - weekday + 7) % 7 + std::int64_t{change.fWeek - 1} * 7;
  while (inMonth >= DaysOfMonth(year, change.fMonth)) {
    inMonth -= 7;
  }
  return day + inMonth;
}

std::int64_t YearOf(std::int64_t moment) {
  constexpr std::int64_t kSecondsOfYear = 31556952;
  std::int64_t year = 1970 + moment / kSecondsOfYear;
  while (DaysBefore(year) * kSecondsOfDay > moment) {
    --year;
  }
  while (DaysBefore(year + 1) * kSecondsOfDay <= moment) {
    ++year;
  }
  return year;
}

std::int32_t OffsetBy(const TClockRules& rules, std::int64_t moment) {
  if (!rules.fSummer) {
    return rules.fStandard;
  }
  const std::int64_t year = YearOf(moment + rules.fStandard);
  const auto moments = [year](const TClockChange& change, std::int32_t offset) {
    return DayOf(change, year) * kSecondsOfDay + change.fTime - offset;
  };
  const std::int64_t begin = moments(rules.fBegin, rules.fStandard);
  const std::int64_t end = moments(rules.fEnd, *rules.fSummer);
  const bool isSummer =
      begin < end ? moment >= begin && moment < end : moment >= begin || moment < end;
  return isSummer ? *rules.fSummer : rules.fStandard;
}

// The form of files.

std::uint64_t NumberAt(std::string_view bytes, std::size_t offset, std::size_t size) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < size; ++i) {
    number = number << 8 | static_cast<unsigned char>(bytes[offset + i]);
  }
  return number;
}

// A header and the data behind it, whose moments have 4 or 8 bytes.
struct TBlock {
  std::uint64_t fMoments = 0;
  std::uint64_t fTypes = 0;
  std::uint64_t fSize = 0;  // of all of it
};

std::optional<TBlock> BlockOf(std::string_view bytes, std::size_t momentSize) {
  if (bytes.size() < kHeaderSize || bytes.substr(0, 4) != "TZif") {
    return std::nullopt;
  }
  const auto count = [bytes](std::size_t place) { return NumberAt(bytes, 20 + 4 * place, 4); };
  TBlock block;
  block.fMoments = count(3);
  block.fTypes = count(4);
  block.fSize = kHeaderSize + block.fMoments * (momentSize + 1) + block.fTypes * kTypeSize +
                count(5) + count(2) * (momentSize + 4) + count(1) + count(0);
  return block.fTypes != 0 && block.fSize <= bytes.size() ? std::optional(block) : std::nullopt;
}

std::int64_t MomentAt(std::string_view bytes, std::size_t offset, std::size_t size) {
  const std::uint64_t number = NumberAt(bytes, offset, size);
  return size == 4 ? static_cast<std::int32_t>(number) : static_cast<std::int64_t>(number);
}

}  // namespace

std::optional<TClockRules> ParseClockRules(std::string_view text) {
  TClockRules rules;
  const bool isNamed = TakeName(text);
  const auto standard = isNamed ? TakeTime(text) : std::nullopt;
  if (!standard) {
    return std::nullopt;
  }
  rules.fStandard = -*standard;  // the form counts westwards
  if (text.empty()) {
    return rules;
  }
  if (!TakeName(text)) {
    return std::nullopt;
  }
  rules.fSummer = rules.fStandard + kSecondsOfHour;
  if (!text.empty() && text.front() != ',') {
    const auto summer = TakeTime(text);
    rules.fSummer = summer ? std::optional(-*summer) : std::nullopt;
  }
  const auto begin = TakeChange(text);
  const auto end = begin ? TakeChange(text) : std::nullopt;
  if (!rules.fSummer || !end || !text.empty()) {
    return std::nullopt;
  }
  rules.fBegin = *begin;
  rules.fEnd = *end;
  return rules;
}

std::optional<TTimeZone> TTimeZone::FromBytes(std::string_view bytes) {
  std::size_t momentSize = 4;
  std::optional<TBlock> block = BlockOf(bytes, momentSize);
  if (block && bytes[4] != '\0') {  // the same again, with wider moments
    bytes.remove_prefix(block->fSize);
    momentSize = 8;
    block = BlockOf(bytes, momentSize);
  }
  if (!block) {
    return std::nullopt;
  }
  const std::size_t indexes = kHeaderSize + block->fMoments * momentSize;
  const std::size_t types = indexes + block->fMoments;
  const auto offsetOf = [&](std::uint64_t type) {
    return static_cast<std::int32_t>(MomentAt(bytes, types + type * kTypeSize, 4));
  };
  TTimeZone zone;
  zone.fFirst = offsetOf(0);
  for (std::size_t i = 0; i < block->fMoments; ++i) {
    const std::uint64_t type = NumberAt(bytes, indexes + i, 1);
    if (type >= block->fTypes) {
      return std::nullopt;
    }
    zone.fChanges.emplace_back(MomentAt(bytes, kHeaderSize + i * momentSize, momentSize),
                               offsetOf(type));
  }
  std::string_view footer = bytes.substr(block->fSize);
  if (momentSize == 8 && TakePrefix(footer, "\n")) {
    zone.fRules = ParseClockRules(TakeLine(footer));
  }
  return zone;
}

std::int32_t TTimeZone::OffsetAt(std::int64_t moment) const {
  const auto after = std::upper_bound(
      fChanges.begin(), fChanges.end(), moment,
      [](std::int64_t sought, const auto& change) { return sought < change.first; });
  if (after == fChanges.end() && fRules) {
    return OffsetBy(*fRules, moment);
  }
  return after == fChanges.begin() ? fFirst : std::prev(after)->second;
}

TTimeZone ReadTimeZone(const std::string& root) {
  const auto bytes = ReadFile(root + "/etc/localtime");
  const auto zone = bytes ? TTimeZone::FromBytes(*bytes) : std::nullopt;
  return zone.value_or(TTimeZone());
}

}  // namespace linux_machine
