#include "hwxcore/os/detail/LocalClock.h"

#include <cstdlib>
#include <cstring>

namespace NQORHWX20::detail {

// The second that a thread broke down last, and the zone text that it did so under. Breaking down
// costs microseconds where TZ is unset, since the zone's file is looked at, and a log line reads
// the clock six times. Of trivial type, so that it can be used until the thread's very end.
struct TBrokenDownSecond {
  std::tm fFields;
  std::time_t fSecond;
  bool fIsKept;
  bool fZoneIsSet;
  char fZone[64];

  bool IsOf(std::time_t second, const char* zone) const {
    if (!fIsKept || second != fSecond || fZoneIsSet != (zone != nullptr)) return false;
    return !zone || std::strcmp(zone, fZone) == 0;
  }

  void BreakDown(std::time_t second, const char* zone) {
    ::tzset();  // `localtime_r` alone needn't notice a new TZ
    ::localtime_r(&second, &fFields);
    fSecond = second;
    fZoneIsSet = zone != nullptr;
    const std::size_t size = zone ? std::strlen(zone) + 1 : 0;
    fIsKept = size <= sizeof fZone;
    if (fIsKept && zone) std::memcpy(fZone, zone, size);
  }
};

namespace {

thread_local TBrokenDownSecond tLastSecond;

}  // namespace

TLocalClock::TLocalClock() : fLast(tLastSecond) {}

TClockReading TLocalClock::Read() {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  const char* const zone = std::getenv("TZ");
  if (!fLast.IsOf(now.tv_sec, zone)) fLast.BreakDown(now.tv_sec, zone);
  return {fLast.fFields, static_cast<unsigned>(now.tv_nsec / 1000000)};
}

}  // namespace NQORHWX20::detail
