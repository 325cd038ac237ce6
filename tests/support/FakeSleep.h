#ifndef HWXTESTS_SUPPORT_FAKESLEEP_H
#define HWXTESTS_SUPPORT_FAKESLEEP_H

#include <unistd.h>

#include <vector>

namespace hwxtest {

/// Notes for how long the calling thread wants to sleep, and lets it go on at once. Its
/// executable's own `usleep` stands before the system's.
class FakeSleep {
 public:
  FakeSleep();
  ~FakeSleep();

  FakeSleep(const FakeSleep&) = delete;
  FakeSleep& operator=(const FakeSleep&) = delete;

  /// In microseconds.
  const std::vector<useconds_t>& Sleeps() const { return fSleeps; }

  /// For `usleep`.
  void Note(useconds_t sleep) { fSleeps.push_back(sleep); }

 private:
  std::vector<useconds_t> fSleeps;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FAKESLEEP_H
