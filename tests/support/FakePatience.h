#ifndef HWXTESTS_SUPPORT_FAKEPATIENCE_H
#define HWXTESTS_SUPPORT_FAKEPATIENCE_H

#include <poll.h>

#include <cstddef>
#include <ctime>
#include <functional>
#include <vector>

namespace hwxtest {

/// Decides when the calling thread's waits for input time out: not after a while, but once there is
/// nothing to read and the test says so. Its executable's own `ppoll` stands before the system's.
class FakePatience {
 public:
  /// Told how many waits input has ended so far, says whether a wait without input is over. It is
  /// asked again and again while there is nothing to read.
  using IsOver = std::function<bool(std::size_t inputs)>;

  explicit FakePatience(IsOver isOver);
  ~FakePatience();

  FakePatience(const FakePatience&) = delete;
  FakePatience& operator=(const FakePatience&) = delete;

  /// Waits time out once input has ended so many.
  static IsOver After(std::size_t count) {
    return [count](std::size_t inputs) { return inputs == count; };
  }

  /// Waits go on until there is something to read.
  static IsOver Never() {
    return [](std::size_t) { return false; };
  }

  /// The time limit of each wait so far, in seconds; -1 for none.
  const std::vector<double>& Limits() const { return fLimits; }

  /// For `ppoll`.
  int Wait(pollfd* files, nfds_t count, const timespec* limit);

 private:
  IsOver fIsOver;
  std::size_t fInputs = 0;
  std::vector<double> fLimits;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FAKEPATIENCE_H
