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

/// Interrupts this process with SIGALRM again and again while it exists, so that a call that waits
/// is interrupted whenever it begins to.
class ScopedAlarms {
 public:
  ScopedAlarms() { Ring(10000); }
  ~ScopedAlarms() { Ring(0); }

  ScopedAlarms(const ScopedAlarms&) = delete;
  ScopedAlarms& operator=(const ScopedAlarms&) = delete;

 private:
  static void Ring(suseconds_t microseconds) {
    const itimerval timer{{0, microseconds}, {0, microseconds}};
    ::setitimer(ITIMER_REAL, &timer, nullptr);
  }

  ScopedSignal fHandled{SIGALRM, &ScopedSignal::Ignore};
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_SCOPEDSIGNAL_H
