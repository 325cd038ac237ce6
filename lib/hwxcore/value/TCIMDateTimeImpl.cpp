#include "hwxcore/value/TCIMDateTimeImpl.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <limits>

#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/THWXException.h"
#include "hwxcore/value/detail/LocalTime.h"
#include "hwxcore/value/detail/NumberText.h"

namespace NQORHWX20 {

namespace {

constexpr std::size_t kTextLength = 25;
constexpr int kSecondsPerHour = 3600;
constexpr unsigned int kSecondsPerDay = 86400;
constexpr std::int64_t kMicroSecondsPerSecond = 1000000;

[[noreturn]] void Fail() {
  throw THWXException(kHWXStatusInvalidDateTime);
}

void RequireValue(const TCIMDateTimeImpl& dateTime) {
  if (dateTime.IsNull()) Fail();
}

void RequireValues(const TCIMDateTimeImpl& one, const TCIMDateTimeImpl& other) {
  RequireValue(one);
  RequireValue(other);
}

// Contract: unlike-date-times-throw.
void RequireOneKind(const TCIMDateTimeImpl& one, const TCIMDateTimeImpl& other) {
  RequireValues(one, other);
  if (one.IsInterval() != other.IsInterval()) Fail();
}

// Reading

// How many of the text form's characters are no digits. The point and the sign should be all.
// It counts in a byte and doesn't stop early, so that the compiler can take many at once.
unsigned int CountNonDigits(const std::string& text) {
  unsigned char count = 0;
  for (std::size_t i = 0; i != kTextLength; ++i) {
    const bool isDigit = text[i] >= '0' && text[i] <= '9';
    count = static_cast<unsigned char>(count + (isDigit ? 0 : 1));
  }
  return count;
}

unsigned int NumberAt(const std::string& text, std::size_t position, std::size_t length) {
  unsigned int number = 0;
  for (std::size_t i = position; i != position + length; ++i) {
    number = number * 10 + static_cast<unsigned int>(text[i] - '0');
  }
  return number;
}

unsigned short ShortAt(const std::string& text, std::size_t position, std::size_t length) {
  return static_cast<unsigned short>(NumberAt(text, position, length));
}

// Printing

// Appends what a string stream with the fill character "0" prints.
class TPaddedText {
 public:
  explicit TPaddedText(std::string& text)
      : fStreamsAreClassic(detail::StreamsAreClassic()), fText(text) {}

  TPaddedText& Number(unsigned int value, std::size_t width) {
    if (!fStreamsAreClassic) return Text(detail::IntegerText(value, 10, width).c_str());
    char digits[16];
    const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    if (length < width) fText.append(width - length, '0');
    fText.append(digits, length);
    return *this;
  }

  TPaddedText& Text(const char* text) {
    fText += text;
    return *this;
  }

  // A number with its word, and nothing for 0.
  TPaddedText& Quantity(unsigned int value, const char* one, const char* others) {
    if (value == 0) return *this;
    if (value == 1) return Text(one);
    return Number(value, 0).Text(others);
  }

 private:
  bool fStreamsAreClassic;
  std::string& fText;
};

// Seconds of the calendar

// `minute` is an int, for the offset may take it below 0.
std::tm CalendarFields(unsigned short year, unsigned short month, unsigned int day,
                       unsigned short hour, int minute, unsigned short second) {
  std::tm fields = {};
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_mday = static_cast<int>(day);
  fields.tm_hour = hour;
  fields.tm_min = minute;
  fields.tm_sec = second;
  return fields;
}

std::tm FieldsLessOffset(const TCIMDateTimeImpl& timestamp) {
  return CalendarFields(timestamp.GetYear(), timestamp.GetMonth(), timestamp.GetDay(),
                        timestamp.GetHour(), timestamp.GetMinute() - timestamp.GetUTCOffset(),
                        timestamp.GetSecond());
}

std::tm FieldsAsTheyStand(const TCIMDateTimeImpl& timestamp) {
  return CalendarFields(timestamp.GetYear(), timestamp.GetMonth(), timestamp.GetDay(),
                        timestamp.GetHour(), timestamp.GetMinute(), timestamp.GetSecond());
}

bool IsFirstDay(unsigned short year, unsigned short month, unsigned int day) {
  return month == 1 && year == 1970 && day == 1;
}

// -1 is the error of `mktime`, and also the second before the epoch. On the day of the epoch it
// counts as the epoch. Contract: second-before-epoch.
std::int64_t Epoch(const TCIMDateTimeImpl& timestamp, std::time_t made) {
  if (made != -1) return made;
  if (!IsFirstDay(timestamp.GetYear(), timestamp.GetMonth(), timestamp.GetDay())) Fail();
  return 0;
}

std::int64_t EpochLessOffset(const TCIMDateTimeImpl& timestamp, const detail::TLocalTime& zone) {
  return Epoch(timestamp, zone.Make(FieldsLessOffset(timestamp)));
}

// Asks `mktime` itself, which also brings `localtime_r` up to date with TZ.
// Contract: offset-left-out, local-zone.
std::int64_t EpochAsItStands(const TCIMDateTimeImpl& timestamp) {
  std::tm fields = FieldsAsTheyStand(timestamp);
  return Epoch(timestamp, std::mktime(&fields));
}

std::int64_t OffsetSeconds(const TCIMDateTimeImpl& timestamp) {
  return timestamp.GetUTCOffset() * std::int64_t{60};
}

// A timestamp's days reach further than 64 bits of microseconds do.
std::int64_t InMicroSeconds(std::int64_t seconds, std::int64_t microSeconds) {
  std::int64_t total = 0;
  if (__builtin_mul_overflow(seconds, kMicroSecondsPerSecond, &total) ||
      __builtin_add_overflow(total, microSeconds, &total)) {
    Fail();
  }
  return total;
}

// Contract: difference-never-negative.
std::int64_t Absolute(std::int64_t total) {
  if (total == std::numeric_limits<std::int64_t>::min()) Fail();
  return std::abs(total);
}

TCIMDateTimeImpl IntervalOf(std::int64_t microSeconds) {
  const std::int64_t sec = microSeconds / kMicroSecondsPerSecond;
  const std::int64_t min = sec / 60;
  const std::int64_t hrs = min / 60;
  return TCIMDateTimeImpl(
      static_cast<unsigned int>(hrs / 24), static_cast<unsigned short>(hrs % 24),
      static_cast<unsigned short>(min % 60), static_cast<unsigned short>(sec % 60),
      static_cast<unsigned int>(microSeconds - sec * kMicroSecondsPerSecond));
}

std::tm LocalFields(std::time_t moment) {
  std::tm fields = {};
  if (::localtime_r(&moment, &fields) == nullptr) Fail();
  return fields;
}

}  // namespace

TCIMDateTimeImpl::TCIMDateTimeImpl(unsigned short year, unsigned short month, unsigned int day,
                                   unsigned short hour, unsigned short minute,
                                   unsigned short second, unsigned int microSeconds,
                                   short utcOffset) {
  Set(year, month, day, hour, minute, second, microSeconds, utcOffset);
}

TCIMDateTimeImpl::TCIMDateTimeImpl(unsigned int days, unsigned short hours, unsigned short minutes,
                                   unsigned short seconds, unsigned int microSeconds) {
  Set(days, hours, minutes, seconds, microSeconds);
}

TCIMDateTimeImpl::TCIMDateTimeImpl(const std::string& text) {
  Set(text);
}

bool TCIMDateTimeImpl::IsValid(unsigned int /*days*/, unsigned short hours, unsigned short minutes,
                               unsigned short seconds, unsigned int microSeconds) {
  return minutes <= 59 && hours <= 23 && seconds <= 59 && microSeconds <= 999999;
}

// Fields out of range pass, and any number of microseconds.
// Contract: weak-timestamp-check, second-before-epoch, local-zone.
bool TCIMDateTimeImpl::IsValid(unsigned short year, unsigned short month, unsigned int day,
                               unsigned short hour, unsigned short minute, unsigned short second,
                               unsigned int /*microSeconds*/, short utcOffset) {
  if (IsFirstDay(year, month, day)) return true;
  const std::tm fields = CalendarFields(year, month, day, hour, minute - utcOffset, second);
  return detail::TLocalTime().Make(fields) != -1;
}

void TCIMDateTimeImpl::Set(unsigned int days, unsigned short hours, unsigned short minutes,
                           unsigned short seconds, unsigned int microSeconds) {
  if (!IsValid(days, hours, minutes, seconds, microSeconds)) Fail();
  // Year, month and offset stay. Contract: interval-keeps-date.
  fDay = days;
  fHour = hours;
  fMinute = minutes;
  fSecond = seconds;
  fMicroSeconds = microSeconds;
  fIsNull = false;
  fIsInterval = true;
}

void TCIMDateTimeImpl::Set(unsigned short year, unsigned short month, unsigned int day,
                           unsigned short hour, unsigned short minute, unsigned short second,
                           unsigned int microSeconds, short utcOffset) {
  if (!IsValid(year, month, day, hour, minute, second, microSeconds, utcOffset)) Fail();
  fYear = year;
  fMonth = month;
  fDay = day;
  fHour = hour;
  fMinute = minute;
  fSecond = second;
  fMicroSeconds = microSeconds;
  fUTCOffset = utcOffset;
  fIsNull = false;
  fIsInterval = false;
}

// Contract: no-wildcards.
void TCIMDateTimeImpl::Set(const std::string& text) {
  if (text.size() != kTextLength || text[14] != '.' || CountNonDigits(text) != 2) Fail();
  const unsigned int date = NumberAt(text, 0, 8);
  const unsigned short hour = ShortAt(text, 8, 2);
  const unsigned short minute = ShortAt(text, 10, 2);
  const unsigned short second = ShortAt(text, 12, 2);
  const unsigned int microSeconds = NumberAt(text, 15, 6);
  const auto offset = static_cast<short>(NumberAt(text, 22, 3));
  const auto timestamp = [&](int utcOffset) {
    Set(static_cast<unsigned short>(date / 10000), static_cast<unsigned short>(date / 100 % 100),
        date % 100, hour, minute, second, microSeconds, static_cast<short>(utcOffset));
  };
  switch (text[21]) {
    case '+':
      return timestamp(offset);
    case '-':
      return timestamp(-offset);
    case ':':
      if (offset != 0) Fail();
      // The low 16 bits of the days. Contract: days-of-16-bits.
      return Set(static_cast<unsigned short>(date), hour, minute, second, microSeconds);
    default:
      Fail();
  }
}

std::string TCIMDateTimeImpl::ToString() const {  // Contract: wide-fields-uncut.
  RequireValue(*this);
  std::string text;
  text.reserve(kTextLength);
  TPaddedText padded(text);
  if (fIsInterval) {
    padded.Number(fDay, 8);
  } else {
    padded.Number(fYear, 4).Number(fMonth, 2).Number(fDay, 2);
  }
  padded.Number(fHour, 2).Number(fMinute, 2).Number(fSecond, 2);
  padded.Text(".").Number(fMicroSeconds, 6);
  if (fIsInterval) {
    padded.Text(":000");
  } else {
    const auto offset = static_cast<unsigned int>(std::abs(int{fUTCOffset}));
    padded.Text(fUTCOffset < 0 ? "-" : "+").Number(offset, 3);
  }
  return text;
}

std::string TCIMDateTimeImpl::ToUIString() const {  // Contract: blank-at-the-end.
  RequireValue(*this);
  std::string text;
  TPaddedText padded(text);
  if (fIsInterval) {
    padded.Quantity(fDay, "1 day ", " days ")
        .Quantity(fHour, "1 hour ", " hours ")
        .Quantity(fMinute, "1 minute ", " minutes ")
        .Quantity(fSecond, "1 second ", " seconds ")
        .Quantity(fMicroSeconds / 1000, "1 millisecond ", " milliseconds ")
        .Quantity(fMicroSeconds % 1000, "1 microsecond ", " microseconds ");
    return text;
  }
  padded.Number(fMonth, 2).Text("/").Number(fDay, 2).Text("/").Number(fYear, 4).Text(" ");
  if (fHour != 0 || fMinute != 0 || fSecond != 0) {
    padded.Number(fHour, 2).Text(":").Number(fMinute, 2).Text(":").Number(fSecond, 2);
  }
  return text;
}

// Contract: interval-wraps.
unsigned int TCIMDateTimeImpl::IntervalSeconds() const {
  return fSecond + fDay * kSecondsPerDay + fHour * 3600U + fMinute * 60U;
}

bool TCIMDateTimeImpl::operator<(const TCIMDateTimeImpl& other) const {
  RequireOneKind(*this, other);
  if (fIsInterval) {
    if (IntervalSeconds() != other.IntervalSeconds()) {
      return IntervalSeconds() < other.IntervalSeconds();
    }
  } else {
    const detail::TLocalTime zone;
    const std::int64_t mine = EpochLessOffset(*this, zone);
    const std::int64_t others = EpochLessOffset(other, zone);
    if (mine != others) return mine < others;
  }
  return fMicroSeconds < other.fMicroSeconds;
}

bool TCIMDateTimeImpl::operator==(const TCIMDateTimeImpl& other) const {
  RequireOneKind(*this, other);
  if (fIsInterval) {
    if (IntervalSeconds() != other.IntervalSeconds()) return false;
  } else {
    const detail::TLocalTime zone;
    if (EpochLessOffset(*this, zone) != EpochLessOffset(other, zone)) return false;
  }
  return fMicroSeconds == other.fMicroSeconds;
}

TCIMDateTimeImpl TCIMDateTimeImpl::operator+(const TCIMDateTimeImpl& other) const {
  RequireValues(*this, other);
  if (!fIsInterval && !other.fIsInterval) Fail();
  const std::int64_t microSeconds = std::int64_t{fMicroSeconds} + other.fMicroSeconds;
  if (fIsInterval && other.fIsInterval) {
    const std::int64_t seconds = std::int64_t{IntervalSeconds()} + other.IntervalSeconds();
    return IntervalOf(InMicroSeconds(seconds, microSeconds));
  }
  const TCIMDateTimeImpl& timestamp = fIsInterval ? other : *this;
  const TCIMDateTimeImpl& interval = fIsInterval ? *this : other;
  const std::int64_t seconds = EpochAsItStands(timestamp) + interval.IntervalSeconds();
  return timestamp.TimestampAt(InMicroSeconds(seconds, microSeconds));
}

TCIMDateTimeImpl TCIMDateTimeImpl::operator-(const TCIMDateTimeImpl& other) const {
  RequireValues(*this, other);
  // This one's less the other's, also where the other is the timestamp.
  // Contract: microseconds-change-sides, interval-less-timestamp.
  const std::int64_t microSeconds = std::int64_t{fMicroSeconds} - other.fMicroSeconds;
  if (fIsInterval != other.fIsInterval) {
    const TCIMDateTimeImpl& timestamp = fIsInterval ? other : *this;
    const TCIMDateTimeImpl& interval = fIsInterval ? *this : other;
    const std::int64_t seconds = EpochAsItStands(timestamp) - interval.IntervalSeconds();
    return timestamp.TimestampAt(Absolute(InMicroSeconds(seconds, microSeconds)));
  }
  const std::int64_t seconds = fIsInterval
                                   ? std::int64_t{IntervalSeconds()} - other.IntervalSeconds()
                                   : (EpochAsItStands(*this) - OffsetSeconds(*this)) -
                                         (EpochAsItStands(other) - OffsetSeconds(other));
  return IntervalOf(Absolute(InMicroSeconds(seconds, microSeconds)));
}

// The timestamp, with this one's offset, whose fields stand so many microseconds after the epoch.
TCIMDateTimeImpl TCIMDateTimeImpl::TimestampAt(long long microSeconds) const {
  // Before the epoch the seconds lose their sign, and the microseconds wrap below.
  // Contract: mirrored-at-epoch, summer-hour.
  std::time_t moment = std::abs(microSeconds / kMicroSecondsPerSecond);
  std::tm fields = LocalFields(moment);
  if (fields.tm_isdst != 0) {
    moment -= kSecondsPerHour;
    fields = LocalFields(moment);
  }
  return TCIMDateTimeImpl(
      static_cast<unsigned short>(fields.tm_year + 1900),
      static_cast<unsigned short>(fields.tm_mon + 1), static_cast<unsigned int>(fields.tm_mday),
      static_cast<unsigned short>(fields.tm_hour), static_cast<unsigned short>(fields.tm_min),
      static_cast<unsigned short>(fields.tm_sec),
      static_cast<unsigned int>(microSeconds % kMicroSecondsPerSecond), fUTCOffset);
}

// Contract: no-get-difference.
TCIMDateTime TCIMDateTimeImpl::GetDifference(TCIMDateTime& /*first*/,
                                             TCIMDateTime& /*second*/) const {
  throw THWXException(kHWXStatusNotImplemented);
}

}  // namespace NQORHWX20
