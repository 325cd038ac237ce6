#include "hwxcore/value/detail/LocalTime.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <tuple>

namespace NQORHWX20::detail {

enum class EWeek : char { kUnknown, kEven, kUneven };

struct TWeek {
  int fNumber;
  EWeek fState;
  std::int64_t fDifference;  // of `mktime` from the plain count of seconds
};

namespace {

constexpr int kDaySeconds = 86400;
constexpr int kWeekDays = 7;
constexpr int kWeekSeconds = kWeekDays * kDaySeconds;

// Weeks are counted from some ten thousand years before the epoch, and remembered up to as many
// after it.
constexpr int kWeeksBeforeEpoch = 520000;
constexpr std::int64_t kReach = std::int64_t{kWeeksBeforeEpoch} * kWeekSeconds;

// Days from 1970-01-01 to the fields' day. Years begin in March here, so that the leap day comes
// last, and are counted from -400, so that nothing is negative.
std::int64_t PlainDays(const std::tm& fields) {
  constexpr int kDaysBeforeEpoch = 865565;
  const auto months = static_cast<unsigned int>((fields.tm_year + 2300) * 12 + fields.tm_mon - 2);
  const unsigned int year = months / 12;
  const unsigned int daysBeforeYear = year * 365 + year / 4 - year / 100 + year / 400;
  const unsigned int daysBeforeMonth = (months % 12 * 153 + 2) / 5;
  return std::int64_t{daysBeforeYear} + daysBeforeMonth + fields.tm_mday - 1 - kDaysBeforeEpoch;
}

std::int64_t PlainSeconds(const std::tm& fields, int second) {
  const int minutes = fields.tm_hour * 60 + fields.tm_min;
  return PlainDays(fields) * kDaySeconds + std::int64_t{minutes} * 60 + second;
}

// How the clocks stand at a second of the calendar: the difference of `mktime` from the plain
// count, the offset from UTC, and whether it is summer time. Any of them may change alone.
std::tuple<std::int64_t, long, int> Clocks(int day, int secondOfDay) {
  std::tm fields = {};
  fields.tm_year = 70;
  fields.tm_mday = day + 1;
  fields.tm_min = secondOfDay / 60;
  fields.tm_sec = secondOfDay % 60;
  const std::int64_t plain = std::int64_t{day} * kDaySeconds + secondOfDay;
  const std::int64_t difference = std::mktime(&fields) - plain;
  return {difference, fields.tm_gmtoff, fields.tm_isdst};
}

// In summer time, `mktime` answers by the standard time that it finds nearest, in leaps of a week.
// A standard time that lasts less than a leap is found from most hours of a week and missed from
// some. So the answer must be that of half a year before and after.
bool StandardTimeStays(int day, std::int64_t difference) {
  constexpr int kHalfYear = 26 * kWeekDays;
  return std::get<0>(Clocks(day - kHalfYear, 0)) == difference &&
         std::get<0>(Clocks(day + kHalfYear, 0)) == difference;
}

TWeek AskForWeek(int number) {
  const int firstDay = (number - kWeeksBeforeEpoch) * kWeekDays;
  const auto first = Clocks(firstDay, 0);
  const auto last = Clocks(firstDay + kWeekDays - 1, kDaySeconds - 1);
  const auto [difference, offset, isSummer] = first;
  // Odd seconds are those of a zone file that counts leap seconds, which stand anywhere.
  const bool even = first == last && difference % 60 == 0 &&
                    (isSummer == 0 || StandardTimeStays(firstDay, difference));
  return {number, even ? EWeek::kEven : EWeek::kUneven, difference};
}

}  // namespace

// What a thread remembers of one zone. Of trivial type, so that it can be used until the thread's
// very end.
struct TLocalTime::TMemory {
  std::time_t fSecond;  // to which it is limited; 0 for none
  char fZone[128];
  TWeek fWeeks[512];
  bool fHasFields;
  std::time_t fBrokenDown;  // the second of the fields
  std::tm fFields;

  static thread_local TMemory fgOfThread;

  // The thread's memory of that zone, the machine's own where it is null; null if its name is too
  // long.
  static TMemory* Of(const char* zone, std::time_t now) {
    TMemory& memory = fgOfThread;
    return memory.Holds(zone, now) || memory.BeginAnew(zone, now) ? &memory : nullptr;
  }

  // The C library reads a zone that TZ names but once, and looks at its own zone file each time.
  bool Holds(const char* zone, std::time_t now) const {
    return zone != nullptr ? fSecond == 0 && std::strcmp(zone, fZone) == 0 : fSecond == now;
  }

  bool BeginAnew(const char* zone, std::time_t now) {
    const char* const name = zone != nullptr ? zone : "/etc/localtime";
    const std::size_t length = std::strlen(name);
    if (length >= sizeof fZone) return false;
    *this = {};
    fSecond = zone != nullptr ? 0 : now;
    std::memcpy(fZone, name, length);
    return true;
  }

  const TWeek& Week(int number) {
    TWeek& week = fWeeks[static_cast<unsigned int>(number) % std::size(fWeeks)];
    if (week.fState == EWeek::kUnknown || week.fNumber != number) week = AskForWeek(number);
    return week;
  }

  void BreakDown(std::time_t second) {
    ::tzset();  // `localtime_r` alone needn't notice a new TZ
    ::localtime_r(&second, &fFields);
    fBrokenDown = second;
  }
};

thread_local TLocalTime::TMemory TLocalTime::TMemory::fgOfThread;

TLocalTime::TLocalTime() {
  const char* const zone = std::getenv("TZ");
  fMemory = TMemory::Of(zone, zone != nullptr ? 0 : std::time(nullptr));
}

TLocalTime::TLocalTime(std::time_t now) : fMemory(TMemory::Of(std::getenv("TZ"), now)) {}

std::time_t TLocalTime::Make(const std::tm& fields) const {
  // `mktime` looks up the zone with the second brought into the minute, and adds the rest after.
  const int second = std::min(fields.tm_sec, 59);
  const std::int64_t plain = PlainSeconds(fields, second);
  if (fMemory != nullptr && plain >= -kReach && plain < kReach) {
    const TWeek& week = fMemory->Week(static_cast<int>((plain + kReach) / kWeekSeconds));
    if (week.fState == EWeek::kEven) return plain + week.fDifference + (fields.tm_sec - second);
  }
  std::tm normalised = fields;
  return std::mktime(&normalised);
}

const std::tm& TLocalTime::BreakDown(std::time_t second) const {
  TMemory& memory = TMemory::fgOfThread;
  if (fMemory == nullptr || !memory.fHasFields || memory.fBrokenDown != second) {
    memory.BreakDown(second);
    memory.fHasFields = fMemory != nullptr;
  }
  return memory.fFields;
}

TClockReading ReadLocalClock() {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return {TLocalTime(now.tv_sec).BreakDown(now.tv_sec),
          static_cast<unsigned>(now.tv_nsec / 1000000)};
}

}  // namespace NQORHWX20::detail
