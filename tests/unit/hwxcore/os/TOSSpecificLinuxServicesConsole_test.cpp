#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <thread>

#include "hwxcore/os/TOSSpecific.h"
#include "support/ChildProcess.h"
#include "support/PseudoTerminal.h"

using hwxtest::PseudoTerminal;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using NQORHWX20::TOSSpecific;

namespace {

bool AreEqual(const termios& a, const termios& b) {
  return a.c_iflag == b.c_iflag && a.c_oflag == b.c_oflag && a.c_cflag == b.c_cflag &&
         a.c_lflag == b.c_lflag && std::memcmp(a.c_cc, b.c_cc, sizeof a.c_cc) == 0;
}

TEST(IsKeyWaiting, TellsOfAKeyThatNoNewlineFollows) {
  RunScene("there are no terminals", [] {
    const PseudoTerminal terminal;
    if (!terminal.IsOpen()) return hwxtest::kSceneNotAllowed;
    terminal.Take();
    const termios before = terminal.Settings();
    EXPECT_FALSE(TOSSpecific::IsKeyWaiting());
    terminal.Type("k");
    EXPECT_TRUE(TOSSpecific::IsKeyWaiting());
    EXPECT_TRUE(TOSSpecific::IsKeyWaiting()) << "the key was taken";
    EXPECT_TRUE(AreEqual(terminal.Settings(), before));
    return 0;
  });
}

// Puts a file in the place of the standard input and asks.
bool IsKeyWaitingAt(int descriptor) {
  ::dup2(descriptor, STDIN_FILENO);
  return TOSSpecific::IsKeyWaiting();
}

TEST(IsKeyWaiting, GoesOnWithoutATerminal) {
  const int result = RunInChild([] {
    int ends[2];
    if (::pipe(ends) != 0) return 2;
    EXPECT_FALSE(IsKeyWaitingAt(ends[0]));
    EXPECT_EQ(::write(ends[1], "x", 1), 1);
    EXPECT_TRUE(IsKeyWaitingAt(ends[0]));
    EXPECT_TRUE(IsKeyWaitingAt(::open("/dev/null", O_RDONLY)));
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(IsKeyWaiting, IsTrueIfItCannotBeTold) {
  const int result = RunInChild([] {
    ::close(STDIN_FILENO);
    EXPECT_TRUE(TOSSpecific::IsKeyWaiting());
    return 0;
  });
  EXPECT_EQ(result, 0);
}

// Types a text once the terminal's local modes are clear, and says what they were by then.
class Typist {
 public:
  Typist(const PseudoTerminal& terminal, const std::string& text)
      : fThread([this, &terminal, text] {
          for (int wait = 0; wait < 1000 && terminal.LocalModes() != 0; ++wait)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
          fModes = terminal.LocalModes();
          terminal.Type(text);
        }) {}

  tcflag_t Modes() {
    fThread.join();
    return fModes;
  }

 private:
  tcflag_t fModes = 0;
  std::thread fThread;
};

TEST(GetKeyboardChar, WaitsForAKeyWithoutEchoAndPutsTheSettingsBack) {
  RunScene("there are no terminals", [] {
    const PseudoTerminal terminal;
    if (!terminal.IsOpen()) return hwxtest::kSceneNotAllowed;
    terminal.Take();
    const termios before = terminal.Settings();
    EXPECT_NE(before.c_lflag, 0U);
    Typist typist(terminal, "k");
    EXPECT_EQ(TOSSpecific::GetKeyboardChar(), 'k');
    EXPECT_EQ(typist.Modes(), 0U);
    EXPECT_FALSE(terminal.ShowsSomething());
    EXPECT_TRUE(AreEqual(terminal.Settings(), before));
    return 0;
  });
}

TEST(GetKeyboardChar, TakesASignalKeyForACharacter) {
  RunScene("there are no terminals", [] {
    const PseudoTerminal terminal;
    if (!terminal.IsOpen() || ::setsid() == -1) return hwxtest::kSceneNotAllowed;
    terminal.Take();
    if (::ioctl(STDIN_FILENO, TIOCSCTTY, 0) != 0) return hwxtest::kSceneNotAllowed;
    std::signal(SIGHUP, SIG_IGN);  // comes when the terminal goes
    Typist typist(terminal, "\x03");
    EXPECT_EQ(TOSSpecific::GetKeyboardChar(), 3);
    EXPECT_EQ(typist.Modes(), 0U);
    return 0;
  });
}

TEST(GetKeyboardChar, ReadsTheStandardInputStreamToItsEnd) {
  const int result = RunInChild([] {
    int ends[2];
    if (::pipe(ends) != 0 || ::write(ends[1], "a\xff", 2) != 2) return 2;
    ::close(ends[1]);
    ::dup2(ends[0], STDIN_FILENO);
    EXPECT_EQ(TOSSpecific::GetKeyboardChar(), 'a');
    EXPECT_EQ(TOSSpecific::GetKeyboardChar(), 255);
    EXPECT_EQ(TOSSpecific::GetKeyboardChar(), EOF);
    return 0;
  });
  EXPECT_EQ(result, 0);
}

}  // namespace
