#ifndef HWXTESTS_SUPPORT_SPAWNING_H
#define HWXTESTS_SUPPORT_SPAWNING_H

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "hwxcore/os/TOSSpecific.h"
#include "support/FakePatience.h"

namespace hwxtest {

/// What a spawned program came to.
struct Spawned {
  int fResult;
  std::string fOutput;
};

/// Calls `SpawnProcess` in the form that gives a result and an output.
inline Spawned Spawn(const std::string& command, const std::vector<std::string>& arguments,
                     int timeout = 60) {
  Spawned spawned{};
  spawned.fResult =
      NQORHWX20::TOSSpecific::SpawnProcess(command, arguments, spawned.fOutput, timeout);
  return spawned;
}

/// Spawns a shell that runs `script`.
inline Spawned SpawnShell(const std::string& script, int timeout = 60) {
  return Spawn("sh", {"-c", script}, timeout);
}

/// A script that prints its identity, then nothing for very long.
constexpr const char* kSilent = "echo $$; exec sleep 300";

/// Spawns a shell that runs it, and runs out of patience when it has printed.
inline Spawned SpawnSilent() {
  const FakePatience patience(FakePatience::After(1));
  return SpawnShell(kSilent, 1);
}

/// A child of this process that was left running, and printed its identity first. Killed and
/// collected at the end.
class LeftChild {
 public:
  explicit LeftChild(const std::string& output) : fChild(std::atoi(output.c_str())) {}
  ~LeftChild() {
    if (fChild <= 0) return;
    ::kill(fChild, SIGKILL);
    while (::waitpid(fChild, nullptr, 0) == -1 && errno == EINTR)
      continue;
  }

  LeftChild(const LeftChild&) = delete;
  LeftChild& operator=(const LeftChild&) = delete;

  /// As /proc tells it: 'S' sleeps, 'Z' is a zombie, ' ' is none.
  char State() const {
    std::ifstream stat("/proc/" + std::to_string(fChild) + "/stat");
    std::string pid;
    std::string name;
    char state = ' ';
    stat >> pid >> name >> state;
    return state;
  }

  bool IsRunning() const { return State() != ' ' && State() != 'Z'; }

  void Kill() const { ::kill(fChild, SIGKILL); }

  /// Waits until it has ended, and leaves it uncollected. Returns the signal that killed it, 0 if
  /// it ended by itself.
  int KillingSignal() const {
    siginfo_t info{};
    ::waitid(P_PID, static_cast<id_t>(fChild), &info, WEXITED | WNOWAIT);
    return info.si_code == CLD_KILLED ? info.si_status : 0;
  }

 private:
  pid_t fChild;
};

/// Holds spawned shells until the test lets them go on. A script waits where `Wait` stands in it.
class Gate {
 public:
  Gate() {
    if (::pipe2(fEnds, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    ::fcntl(fEnds[0], F_SETFD, 0);  // for the shell
  }
  ~Gate() {
    Open();
    ::close(fEnds[0]);
  }

  Gate(const Gate&) = delete;
  Gate& operator=(const Gate&) = delete;

  /// A command, which succeeds.
  std::string Wait() const {
    return "{ read opened </proc/self/fd/" + std::to_string(fEnds[0]) + " || :; }";
  }

  /// Lets all go on, those too who come later.
  void Open() {
    if (fEnds[1] == -1) return;
    ::close(fEnds[1]);
    fEnds[1] = -1;
  }

 private:
  int fEnds[2];
};

/// Whether a child of this process runs. Those that have ended are collected.
inline bool HasRunningChild() {
  pid_t child;
  while ((child = ::waitpid(-1, nullptr, WNOHANG)) > 0)
    continue;
  return child == 0;
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_SPAWNING_H
