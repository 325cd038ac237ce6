#include "hwx/transfer/Password.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "hwx/text/Failure.h"
#include "hwx/text/Printable.h"
#include "hwx/text/StatusWords.h"
#include "hwxsys/Descriptor.h"

namespace hwx {

namespace {

volatile std::sig_atomic_t gSignal = 0;

void NoteSignal(int signal) {
  gSignal = signal;
}

// While it lives, the terminal shows nothing that is typed. Signals that would end the program only
// interrupt the reading, so that the terminal gets its settings back.
class TSilentTerminal {
 public:
  explicit TSilentTerminal(int terminal) : fTerminal(terminal) {
    gSignal = 0;
    struct sigaction action = {};
    action.sa_handler = &NoteSignal;  // without SA_RESTART
    for (std::size_t i = 0; i < kSignals.size(); ++i)
      ::sigaction(kSignals[i], &action, &fBefore[i]);
    ::tcgetattr(fTerminal, &fSettings);
    termios silent = fSettings;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ECHONL);
    ::tcsetattr(fTerminal, TCSAFLUSH, &silent);
  }

  ~TSilentTerminal() {
    ::tcsetattr(fTerminal, TCSAFLUSH, &fSettings);
    for (std::size_t i = 0; i < kSignals.size(); ++i)
      ::sigaction(kSignals[i], &fBefore[i], nullptr);
    if (gSignal != 0) ::raise(gSignal);
  }

  TSilentTerminal(const TSilentTerminal&) = delete;
  TSilentTerminal& operator=(const TSilentTerminal&) = delete;

 private:
  static constexpr std::array<int, 5> kSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};

  int fTerminal;
  termios fSettings{};
  std::array<struct sigaction, kSignals.size()> fBefore{};
};

// One line without its end; missing if there is none.
std::optional<std::string> ReadLine(int file) {
  std::string line;
  char byte;
  ssize_t size;
  while ((size = ::read(file, &byte, 1)) == 1 && byte != '\n')
    line += byte;
  if (size < 0 || (size == 0 && line.empty())) return std::nullopt;
  return line;
}

void Show(int terminal, const std::string& text) {
  if (::write(terminal, text.data(), text.size()) < 0) throw TFailure("the terminal is gone");
}

}  // namespace

std::string PasswordFromFile(const std::string& path) {
  const hwxsys::TDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status;
  if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0) {
    throw TFailure("the password can't be read from " + path + ": " + LastError());
  }
  const bool isOurs = status.st_uid == ::geteuid() || status.st_uid == 0;
  if (!S_ISREG(status.st_mode) || !isOurs || (status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
    throw TFailure("the password isn't read from " + path +
                   ": it must be a file of yours that nobody else may read (chmod 600)");
  }
  const auto line = ReadLine(file.Get());
  if (!line) throw TFailure("the password can't be read from " + path + ": it is empty");
  return *line;
}

std::string AskForPassword(const std::string& whose) {
  const hwxsys::TDescriptor terminal(::open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY));
  if (!terminal.IsOpen()) {
    throw TFailure("there is no terminal to ask for the password on; use --password-file");
  }
  std::optional<std::string> line;
  {
    const TSilentTerminal silent(terminal.Get());
    Show(terminal.Get(), "Password of " + Printable(whose) + ": ");
    line = ReadLine(terminal.Get());
    Show(terminal.Get(), "\n");
  }
  if (!line) throw TFailure("no password was given");
  return *line;
}

std::string PasswordOf(const std::string& whose, const std::optional<std::string>& file) {
  return file ? PasswordFromFile(*file) : AskForPassword(whose);
}

}  // namespace hwx
