#ifndef HWXTESTS_SUPPORT_FAKECLOCK_H
#define HWXTESTS_SUPPORT_FAKECLOCK_H

#include <ctime>
#include <vector>

namespace hwxtest {

/// Tells the calling thread made-up wall-clock times: one after the other, then the last one again
/// and again. Its executable's own `clock_gettime` stands before the system's.
class FakeClock {
 public:
  explicit FakeClock(std::vector<timespec> times);
  ~FakeClock();

  FakeClock(const FakeClock&) = delete;
  FakeClock& operator=(const FakeClock&) = delete;

  /// A moment in UTC.
  static timespec At(int year, int month, int day, int hour, int minute, int second,
                     long nanoSeconds = 0);

  /// How often the clock was read so far.
  std::size_t Readings() const { return fReadings; }

  /// The next time; for `clock_gettime`.
  timespec Read();

 private:
  std::vector<timespec> fTimes;
  std::size_t fReadings = 0;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FAKECLOCK_H
