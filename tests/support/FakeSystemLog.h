#ifndef HWXTESTS_SUPPORT_FAKESYSTEMLOG_H
#define HWXTESTS_SUPPORT_FAKESYSTEMLOG_H

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <string>

#include "support/ChildProcess.h"

namespace hwxtest {

/// Takes the place of the system log's service in a forked child: a socket of its own at /dev/log,
/// in a /dev of its own, or in the machine's where there is no such service.
class FakeSystemLog {
 public:
  FakeSystemLog() : fSocket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    const bool isPrivate = EnterPrivateMountNamespace() && MountTmpfs("/dev");
    if (!isPrivate && ::access(kPath, F_OK) == 0) return;
    sockaddr_un address{AF_UNIX, "/dev/log"};
    fIsBound = ::bind(fSocket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    const timeval patience{5, 0};
    ::setsockopt(fSocket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
  }

  ~FakeSystemLog() {
    if (fIsBound) ::unlink(kPath);
    ::close(fSocket);
  }

  FakeSystemLog(const FakeSystemLog&) = delete;
  FakeSystemLog& operator=(const FakeSystemLog&) = delete;

  bool IsBound() const { return fIsBound; }

  /// The next datagram; empty if none comes.
  std::string Receive() const {
    std::string text(65536, '\0');
    const ssize_t size = ::recv(fSocket, text.data(), text.size(), 0);
    text.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return text;
  }

  /// Whether nothing waits to be received.
  bool IsEmpty() const {
    char byte;
    return ::recv(fSocket, &byte, 1, MSG_PEEK | MSG_DONTWAIT) < 0;
  }

 private:
  static constexpr const char* kPath = "/dev/log";

  int fSocket;
  bool fIsBound = false;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FAKESYSTEMLOG_H
