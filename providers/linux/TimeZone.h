// The time zone of a machine that isn't this one: the rules in its /etc/localtime.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_TIMEZONE_H
#define PROVIDERS_LINUX_TIMEZONE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace linux_machine {

/// When clocks are set forward or back: a day of the year, as the text form of rules counts it, and
/// seconds of that day.
struct TClockChange {
  enum class EDay { kWeekday, kWithoutLeapDay, kWithLeapDay };
  EDay fKind = EDay::kWeekday;
  int fMonth = 0;    ///< 1 to 12, of a weekday.
  int fWeek = 0;     ///< 1 to 5, where 5 is the last one.
  int fDay = 0;      ///< 0, Sunday, to 6; else the day of the year.
  int fTime = 7200;  ///< Local time, in seconds.
};

/// The rules that hold for good: "CET-1CEST,M3.5.0,M10.5.0/3". Offsets are seconds east of UTC.
struct TClockRules {
  std::int32_t fStandard = 0;
  std::optional<std::int32_t> fSummer;  ///< None where clocks are never changed.
  TClockChange fBegin;                  ///< Of the summer time.
  TClockChange fEnd;
};

/// Reads the text form of rules; none for any other text.
std::optional<TClockRules> ParseClockRules(std::string_view text);

/// What the bytes of a file of rules hold.
class TTimeZone {
 public:
  /// None for bytes that are no such file. Nothing outside of them is read.
  static std::optional<TTimeZone> FromBytes(std::string_view bytes);

  /// Seconds by which local time was or will be ahead of UTC at a moment, in seconds since 1970.
  std::int32_t OffsetAt(std::int64_t moment) const;

 private:
  std::vector<std::pair<std::int64_t, std::int32_t>> fChanges;  // and the offset from then on
  std::int32_t fFirst = 0;                                      // before all of them
  std::optional<TClockRules> fRules;                            // after all of them
};

/// The time zone of the machine whose /etc lies below `root`; UTC where it has none.
TTimeZone ReadTimeZone(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_TIMEZONE_H
