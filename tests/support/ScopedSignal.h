#ifndef HWXTESTS_SUPPORT_SCOPEDSIGNAL_H
#define HWXTESTS_SUPPORT_SCOPEDSIGNAL_H

#include <sys/time.h>

#include <csignal>

namespace hwxtest {

/// Handles a signal in a way of its own, and puts back at the end what was there.
class ScopedSignal {
 public:
  ScopedSignal(int signal, void (*handler)(int), int flags = 0) : fSignal(signal) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    ::sigaction(fSignal, &action, &fBefore);
  }
  ~ScopedSignal() { ::sigaction(fSignal, &fBefore, nullptr); }

  ScopedSignal(const ScopedSignal&) = delete;
  ScopedSignal& operator=(const ScopedSignal&) = delete;

  /// A handler that does nothing; it interrupts all the same.
  static void Ignore(int) {}

 private:
  int fSignal;
  struct sigaction fBefore;
};

/// Sends this process SIGALRM once, so many milliseconds from now.
inline void AlarmIn(int milliseconds) {
  const itimerval timer{{0, 0}, {milliseconds / 1000, milliseconds % 1000 * 1000}};
  ::setitimer(ITIMER_REAL, &timer, nullptr);
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_SCOPEDSIGNAL_H
