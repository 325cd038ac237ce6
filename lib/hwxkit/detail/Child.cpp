#include "hwxkit/detail/Child.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <system_error>
#include <thread>
#include <utility>

#include "hwxsys/Sanitizers.h"

namespace NQORHWX20::detail {

namespace {

using std::chrono::milliseconds;
using TClock = std::chrono::steady_clock;

constexpr std::size_t kHeadSize = sizeof(std::uint32_t) + 1;
constexpr std::uint32_t kLargestMessage = 256 * 1024 * 1024;
constexpr std::size_t kOutputKept = 4096;
constexpr std::size_t kMostTaken =
    std::size_t{1024} * 1024;  // bytes that may be left in front of the buffer

// How often to ask whether the child has ended. The connection doesn't always tell: a child of the
// child may hold it open.
constexpr milliseconds kLookInterval(50);

// How long to wait for a process that was killed. One that waits within the kernel may never end.
constexpr milliseconds kDyingTime(1000);

std::string Head(std::uint8_t kind, std::size_t size) {
  const auto number = static_cast<std::uint32_t>(size);
  std::string head(kHeadSize, '\0');
  std::memcpy(head.data(), &number, sizeof number);
  head[sizeof number] = static_cast<char>(kind);
  return head;
}

bool SendAll(int socket, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno != EINTR) return false;
    if (sent > 0) bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

bool ReceiveAll(int socket, char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t received = ::recv(socket, bytes, size, 0);
    if (received == 0 || (received < 0 && errno != EINTR)) return false;
    if (received < 0) continue;
    bytes += received;
    size -= static_cast<std::size_t>(received);
  }
  return true;
}

[[noreturn]] void Fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

std::string SignalName(int signal) {
  const char* const name = ::sigabbrev_np(signal);
  return name ? std::string("SIG") + name : "signal " + std::to_string(signal);
}

std::string HowEnded(int status) {
  if (WIFSIGNALED(status)) return "it was killed by " + SignalName(WTERMSIG(status));
  return "it exited with status " + std::to_string(WEXITSTATUS(status));
}

// Under the sanitizers there is no limit of memory: they map terabytes that they never touch.
void LimitMemory(std::uint64_t bytes) {
  if (bytes == 0 || hwxsys::kIsSanitized) return;
  const rlimit limit = {bytes, bytes};
  ::setrlimit(RLIMIT_DATA, &limit);
}

// Runs in the child, between `fork` and its work.
void BecomeChild(pid_t parent, int output, std::uint64_t memory) {
  ::setpgid(0, 0);
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() != parent) ::_exit(0);  // the parent ended before the signal was asked for
  const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (nothing >= 0) ::dup2(nothing, STDIN_FILENO);
  ::dup2(output, STDOUT_FILENO);
  LimitMemory(memory);
}

void FlushOutput() {
  std::cout.flush();
  std::fflush(stdout);
}

}  // namespace

// The child's side.

std::optional<TMessage> TParentLine::Receive() {
  char head[kHeadSize];
  if (!ReceiveAll(fSocket, head, sizeof head)) return std::nullopt;
  std::uint32_t size = 0;
  std::memcpy(&size, head, sizeof size);
  TMessage message;
  message.fKind = static_cast<std::uint8_t>(head[sizeof size]);
  message.fText.resize(size);
  if (!ReceiveAll(fSocket, message.fText.data(), size)) return std::nullopt;
  return message;
}

void TParentLine::Send(std::uint8_t kind, std::string_view text) {
  FlushOutput();
  std::string message = Head(kind, text.size());
  message.append(text);
  if (!SendAll(fSocket, message)) ::_exit(1);
}

// The parent's side.

TChild::TChild(const std::function<void(TParentLine&)>& serve, std::uint64_t memory) {
  int sockets[2];
  int output[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0) Fail("socketpair");
  if (::pipe2(output, O_CLOEXEC) != 0) {
    ::close(sockets[0]);
    ::close(sockets[1]);
    Fail("pipe2");
  }
  FlushOutput();  // or the child has it too
  const pid_t parent = ::getpid();
  fProcess = ::fork();
  if (fProcess == 0) {
    ::close(sockets[0]);
    BecomeChild(parent, output[1], memory);
    TParentLine line(sockets[1]);
    serve(line);
    FlushOutput();
    ::_exit(0);
  }
  ::close(sockets[1]);
  ::close(output[1]);
  fSocket = sockets[0];
  fOutput = output[0];
  ::fcntl(fOutput, F_SETFL, O_NONBLOCK);
  if (fProcess > 0) return;
  ::close(fSocket);
  ::close(fOutput);
  Fail("fork");
}

TChild::~TChild() {
  Kill();
  ::close(fSocket);
  if (fOutput >= 0) ::close(fOutput);
}

void TChild::Send(std::uint8_t kind, std::string_view text) {
  std::string message = Head(kind, text.size());
  message.append(text);
  SendAll(fSocket, message);
}

std::optional<TMessage> TChild::Receive(TDeadline deadline) {
  while (true) {
    if (auto message = Buffered()) return message;
    const bool hasEnded = HasEnded();  // asked before reading, so that nothing it sent is missed
    const EArrival arrival = ReadMessages();
    ReadOutput();
    if (arrival == kSome) continue;
    if (hasEnded) return std::nullopt;
    if (TClock::now() >= deadline) {
      Kill();
      return std::nullopt;
    }
    if (arrival == kNoneYet)
      Wait(deadline);
    else  // the connection is closed, so the child is about to end
      std::this_thread::sleep_for(milliseconds(1));
  }
}

TChild::EArrival TChild::ReadMessages() {
  char bytes[65536];
  const ssize_t count = ::recv(fSocket, bytes, sizeof bytes, MSG_DONTWAIT);
  if (count > 0) {
    fBuffer.append(bytes, static_cast<std::size_t>(count));
    return kSome;
  }
  return count < 0 && (errno == EAGAIN || errno == EINTR) ? kNoneYet : kNoMore;
}

// Reads all that there is, so that the child doesn't wait for room in the pipe. Keeps the
// beginning.
void TChild::ReadOutput() {
  char bytes[4096];
  ssize_t count = 0;
  while (fOutput >= 0 && (count = ::read(fOutput, bytes, sizeof bytes)) > 0) {
    const std::size_t room = kOutputKept - std::min(kOutputKept, fPrinted.size());
    fPrinted.append(bytes, std::min(room, static_cast<std::size_t>(count)));
  }
  if (fOutput >= 0 && count == 0) {  // at its end the pipe would end each wait at once
    ::close(fOutput);
    fOutput = -1;
  }
}

void TChild::Wait(TDeadline deadline) const {
  const auto left = std::chrono::duration_cast<milliseconds>(deadline - TClock::now());
  const auto time = std::max(milliseconds(1), std::min(left, kLookInterval));
  pollfd files[] = {{fSocket, POLLIN, 0}, {fOutput, POLLIN, 0}};
  ::poll(files, 2, static_cast<int>(time.count()));
}

std::optional<TMessage> TChild::Buffered() {
  const std::string_view waiting = std::string_view(fBuffer).substr(fTaken);
  if (waiting.size() < kHeadSize) return std::nullopt;
  std::uint32_t size = 0;
  std::memcpy(&size, waiting.data(), sizeof size);
  if (size > kLargestMessage) {
    Kill();
    fBuffer.resize(fTaken);
    fWhyLost = "it sent what is no message";
    return std::nullopt;
  }
  if (waiting.size() - kHeadSize < size) return std::nullopt;
  TMessage message = {static_cast<std::uint8_t>(waiting[sizeof size]),
                      std::string(waiting.substr(kHeadSize, size))};
  fTaken += kHeadSize + size;
  if (fTaken == fBuffer.size() || fTaken > kMostTaken) {
    fBuffer.erase(0, fTaken);
    fTaken = 0;
  }
  return message;
}

bool TChild::HasEnded() {
  if (fProcess < 0) return true;
  siginfo_t ended = {};
  const int flags = WEXITED | WNOHANG | WNOWAIT;
  if (::waitid(P_PID, static_cast<id_t>(fProcess), &ended, flags) == 0 && ended.si_pid == 0)
    return false;
  ::kill(-fProcess, SIGKILL);  // the rest of its group, whose number is safe until it is reaped
  int status = 0;
  ::waitpid(fProcess, &status, 0);
  fProcess = -1;
  fWhyLost = HowEnded(status);
  return true;
}

void TChild::Kill() {
  if (fProcess < 0) return;
  ::kill(-fProcess, SIGKILL);
  ::kill(fProcess, SIGKILL);  // it may not have made its group yet
  const auto end = TClock::now() + kDyingTime;
  while (TClock::now() < end) {
    const pid_t reaped = ::waitpid(fProcess, nullptr, WNOHANG);
    if (reaped == fProcess || (reaped < 0 && errno != EINTR)) {
      fProcess = -1;
      return;
    }
    std::this_thread::sleep_for(milliseconds(1));
  }
  fWhyLost = "process " + std::to_string(fProcess) + " can't be killed and is left behind";
  fProcess = -1;
}

std::string TChild::TakeOutput() {
  ReadOutput();
  return std::exchange(fPrinted, std::string());
}

}  // namespace NQORHWX20::detail
