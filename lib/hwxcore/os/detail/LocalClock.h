#ifndef HWXCORE_OS_DETAIL_LOCALCLOCK_H
#define HWXCORE_OS_DETAIL_LOCALCLOCK_H

#include <ctime>

namespace NQORHWX20::detail {

struct TBrokenDownSecond;

/// One reading of the clock, in local time.
struct TClockReading {
  /// With the offset from UTC in `tm_gmtoff`, in seconds east. Good until the thread's next
  /// reading.
  const std::tm& fFields;
  unsigned fMilliSeconds;
};

/// The clock on the wall. At each reading, the environment variable TZ counts as it is then.
///
/// Belongs to the thread that made it, which needn't keep it. As thread-safe as the reading of the
/// environment.
class TLocalClock {
 public:
  TLocalClock();

  TClockReading Read();

 private:
  TBrokenDownSecond& fLast;
};

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_OS_DETAIL_LOCALCLOCK_H
