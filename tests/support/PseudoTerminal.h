#ifndef HWXTESTS_SUPPORT_PSEUDOTERMINAL_H
#define HWXTESTS_SUPPORT_PSEUDOTERMINAL_H

#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <string>

namespace hwxtest {

/// A terminal, and the hands at its keyboard.
class PseudoTerminal {
 public:
  PseudoTerminal() {
    if (::openpty(&fHands, &fTerminal, nullptr, nullptr, nullptr) != 0) fHands = -1;
  }
  ~PseudoTerminal() {
    if (!IsOpen()) return;
    ::close(fHands);
    ::close(fTerminal);
  }

  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  bool IsOpen() const { return fHands != -1; }

  /// Becomes the calling child's standard input.
  void Take() const { ::dup2(fTerminal, STDIN_FILENO); }

  void Type(const std::string& text) const {
    [[maybe_unused]] const ssize_t size = ::write(fHands, text.data(), text.size());
  }

  /// Whether the terminal has shown anything, within a moment.
  bool ShowsSomething() const {
    pollfd input{fHands, POLLIN, 0};
    return ::poll(&input, 1, 100) > 0;
  }

  tcflag_t LocalModes() const { return Settings().c_lflag; }

  termios Settings() const {
    termios settings{};
    ::tcgetattr(fTerminal, &settings);
    return settings;
  }

 private:
  int fHands = -1;
  int fTerminal = -1;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_PSEUDOTERMINAL_H
