#ifndef HWXCORE_VALUE_DETAIL_LOCALTIME_H
#define HWXCORE_VALUE_DETAIL_LOCALTIME_H

#include <ctime>

namespace NQORHWX20::detail {

/// What `mktime` and `localtime` say, mostly without asking them: while TZ is unset, they look at
/// the zone file at each call, which takes longer than all else in a date-time or a line of the
/// log.
///
/// Between two changes of the clocks, `mktime` differs from the plain count of the fields' seconds
/// by a constant; at a change it is full of surprises, and where standard time jumps ahead it
/// fails. So the thread asks it for both ends of a calendar week. If the clocks stand alike at
/// both, then standard time does all the week, for no zone changes that there and back within one,
/// and the constant is remembered; in summer time only if standard time is the same at either side
/// of the summer. In the few other weeks `mktime` is asked each time. Of `localtime` the last
/// answer is remembered.
///
/// Nothing is remembered under another TZ, nor, while TZ is unset, beyond the second in which it
/// was asked, so that another zone file is noticed.
///
/// Made for one operation, of one thread.
class TLocalTime {
 public:
  /// Looks at TZ, or else at the clock.
  TLocalTime();

  /// The same where the clock was read already: `now` is the present second.
  explicit TLocalTime(std::time_t now);

  /// What `mktime` returns for `fields`, which may be out of their ranges; -1 where it fails.
  /// `tm_isdst` must be 0, and the year no less than 0.
  std::time_t Make(const std::tm& fields) const;

  /// The fields of `second`, with the offset from UTC in `tm_gmtoff`, in seconds east. Good until
  /// the thread breaks another one down.
  const std::tm& BreakDown(std::time_t second) const;

 private:
  struct TMemory;

  TMemory* fMemory;  // null for a TZ that is too long to be remembered
};

/// One reading of the clock on the wall, in local time.
struct TClockReading {
  const std::tm& fFields;  ///< As `TLocalTime::BreakDown` gives them.
  unsigned fMilliSeconds;
};

/// Reads the clock. The environment variable TZ counts as it is then. As thread-safe as the reading
/// of the environment.
TClockReading ReadLocalClock();

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_VALUE_DETAIL_LOCALTIME_H
