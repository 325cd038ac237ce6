#ifndef HWXTESTS_SUPPORT_TERMINALPROCESS_H
#define HWXTESTS_SUPPORT_TERMINALPROCESS_H

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <stdexcept>
#include <string>

namespace hwxtest {

/// A child process that has a terminal of its own, on which the test reads and types:
///
///     TerminalProcess child([&] { ::execv(...); });
///     ASSERT_TRUE(child.WaitFor("(y/n): "));
///     child.Type("y\n");
///     EXPECT_EQ(child.End(), 0);
class TerminalProcess {
 public:
  /// `body` becomes a program. If it returns, the child ends with status 127.
  explicit TerminalProcess(const std::function<void()>& body) {
    fChild = ::forkpty(&fTerminal, nullptr, nullptr, nullptr);
    if (fChild == 0) {
      body();
      ::_exit(127);
    }
    if (fChild < 0) throw std::runtime_error("no terminal");
  }

  ~TerminalProcess() {
    if (fChild > 0) {
      ::kill(fChild, SIGKILL);
      ::waitpid(fChild, nullptr, 0);
    }
    ::close(fTerminal);
  }

  TerminalProcess(const TerminalProcess&) = delete;
  TerminalProcess& operator=(const TerminalProcess&) = delete;

  /// Waits until the screen holds `text`, behind what earlier calls have waited for. False if it
  /// doesn't come.
  bool WaitFor(const std::string& text) {
    while (fScreen.find(text, fSeen) == std::string::npos) {
      if (!ReadMore()) return false;
    }
    fSeen = fScreen.find(text, fSeen) + text.size();
    return true;
  }

  void Type(const std::string& text) {
    if (::write(fTerminal, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
      throw std::runtime_error("can't type");
    }
  }

  /// Reads to the child's end and returns its exit status; 128 and the signal if it was killed.
  int End() {
    while (ReadMore()) {
    }
    int status = 0;
    ::waitpid(fChild, &status, 0);
    fChild = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }

  /// All that was shown so far, echo and all; each line end is "\r\n".
  const std::string& Screen() const { return fScreen; }

 private:
  bool ReadMore() {
    pollfd wait = {fTerminal, POLLIN, 0};
    constexpr int kPatience = 60000;
    if (::poll(&wait, 1, kPatience) <= 0) return false;
    char buffer[4096];
    const ssize_t size = ::read(fTerminal, buffer, sizeof buffer);
    if (size <= 0) return false;  // the terminal's other side is closed
    fScreen.append(buffer, static_cast<std::size_t>(size));
    return true;
  }

  pid_t fChild = -1;
  int fTerminal = -1;
  std::string fScreen;
  std::size_t fSeen = 0;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_TERMINALPROCESS_H
