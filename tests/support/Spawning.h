#ifndef HWXTESTS_SUPPORT_SPAWNING_H
#define HWXTESTS_SUPPORT_SPAWNING_H

#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>

#include "hwxcore/os/TOSSpecific.h"

namespace hwxtest {

/// What a spawned program came to.
struct Spawned {
  int fResult;
  std::string fOutput;
  double fSeconds;  ///< how long the caller was held
};

/// Calls `SpawnProcess` in the form that gives a result and an output.
inline Spawned Spawn(const std::string& command, const std::vector<std::string>& arguments,
                     int timeout = 60) {
  Spawned spawned{};
  const auto begin = std::chrono::steady_clock::now();
  spawned.fResult =
      NQORHWX20::TOSSpecific::SpawnProcess(command, arguments, spawned.fOutput, timeout);
  spawned.fSeconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  return spawned;
}

/// Spawns a shell that runs `script`.
inline Spawned SpawnShell(const std::string& script, int timeout = 60) {
  return Spawn("sh", {"-c", script}, timeout);
}

/// A child of this process that was left running, and printed its identity first. Killed and
/// collected at the end.
class LeftChild {
 public:
  explicit LeftChild(const std::string& output) : fChild(std::atoi(output.c_str())) {}
  ~LeftChild() {
    if (fChild <= 0) return;
    ::kill(fChild, SIGKILL);
    ::waitpid(fChild, nullptr, 0);
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

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_SPAWNING_H
