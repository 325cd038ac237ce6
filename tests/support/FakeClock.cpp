#include "support/FakeClock.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace hwxtest {

namespace {

thread_local FakeClock* tClock = nullptr;

}  // namespace

FakeClock::FakeClock(std::vector<timespec> times) : fTimes(std::move(times)) {
  tClock = this;
}

FakeClock::~FakeClock() {
  tClock = nullptr;
}

timespec FakeClock::At(int year, int month, int day, int hour, int minute, int second,
                       long nanoSeconds) {
  std::tm fields{};
  fields.tm_year = year - 1900;
  fields.tm_mon = month - 1;
  fields.tm_mday = day;
  fields.tm_hour = hour;
  fields.tm_min = minute;
  fields.tm_sec = second;
  return {::timegm(&fields), nanoSeconds};
}

timespec FakeClock::Read() {
  return fTimes.at(std::min(fReadings++, fTimes.size() - 1));
}

}  // namespace hwxtest

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
  if (clock != CLOCK_REALTIME || !hwxtest::tClock) {
    return static_cast<int>(::syscall(SYS_clock_gettime, clock, time));
  }
  *time = hwxtest::tClock->Read();
  return 0;
}
