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

  /// Becomes the calling child's standard input, or another of its descriptors.
  void Take(int descriptor = STDIN_FILENO) const { ::dup2(fTerminal, descriptor); }

  void Type(const std::string& text) const {
    [[maybe_unused]] const ssize_t size = ::write(fHands, text.data(), text.size());
  }

  /// Whether the terminal has shown anything, within a moment.
  bool ShowsSomething() const {
    pollfd input{fHands, POLLIN, 0};
    return ::poll(&input, 1, 100) > 0;
  }

  /// What the terminal has shown until now; line feeds come back with carriage returns.
  std::string Shown() const {
    std::string text;
    char bytes[4096];
    while (ShowsSomething()) {
      const ssize_t size = ::read(fHands, bytes, sizeof bytes);
      if (size <= 0) break;
      text.append(bytes, static_cast<std::size_t>(size));
    }
    return text;
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
