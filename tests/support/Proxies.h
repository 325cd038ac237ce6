#ifndef HWXTESTS_SUPPORT_PROXIES_H
#define HWXTESTS_SUPPORT_PROXIES_H

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include "support/FileText.h"
#include "support/ServerProcess.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// A web server of one page, in a child process, which gives the page whatever it is asked for, and
/// keeps the requests.
class WebServer {
 public:
  explicit WebServer(const std::string& page) : fPage(page) {
    fSocket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = LoopbackAddress(fPort);
    if (::bind(fSocket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(fSocket, 16) != 0) {
      throw std::runtime_error("no web server");
    }
    fServer = ::fork();
    if (fServer == 0) {
      ::prctl(PR_SET_PDEATHSIG, SIGKILL);
      Serve();
    }
  }

  ~WebServer() {
    ::kill(fServer, SIGKILL);
    ::waitpid(fServer, nullptr, 0);
    ::close(fSocket);
  }

  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;

  int Port() const { return fPort; }

  /// The requests so far, headers and all.
  std::string Requests() const { return FileText(fDirectory / "requests"); }

 private:
  [[noreturn]] void Serve() const {
    for (;;) {
      const int client = ::accept(fSocket, nullptr, nullptr);
      std::string request;
      char buffer[4096];
      ssize_t size = 1;
      while (request.find("\r\n\r\n") == std::string::npos && size > 0) {
        size = ::recv(client, buffer, sizeof buffer, 0);
        if (size > 0) request.append(buffer, static_cast<std::size_t>(size));
      }
      std::ofstream(fDirectory / "requests", std::ios::app) << request;
      const std::string answer = "HTTP/1.0 200 OK\r\nContent-Type: text/html\r\nContent-Length: " +
                                 std::to_string(fPage.size()) + "\r\nConnection: close\r\n\r\n" +
                                 fPage;
      ::send(client, answer.data(), answer.size(), MSG_NOSIGNAL);
      ::close(client);
    }
  }

  TemporaryDirectory fDirectory;
  std::string fPage;
  int fPort = FreePort();
  int fSocket = -1;
  pid_t fServer = -1;
};

/// tinyproxy, which hands everything on to a web server of the test's own, so that no test needs
/// the internet.
class HttpProxy {
 public:
  static std::optional<std::string> WhyNot() {
    if (ServerProgram("tinyproxy").empty()) return "tinyproxy isn't installed";
    return std::nullopt;
  }

  /// With a user, it wants the password.
  explicit HttpProxy(int upstreamPort, const std::string& user = "",
                     const std::string& password = "") {
    std::ofstream configuration(fDirectory / "config");
    configuration << "Port " << fPort << "\nListen 127.0.0.1\nTimeout 60\n"
                  << "Upstream http 127.0.0.1:" << upstreamPort << "\n";
    if (!user.empty()) configuration << "BasicAuth " << user << " " << password << "\n";
    configuration.close();
    fProcess = std::make_unique<ServerProcess>(
        ServerProgram("tinyproxy"), std::vector<std::string>{"-d", "-c", fDirectory / "config"},
        fPort, fDirectory / "log");
  }

  int Port() const { return fPort; }

 private:
  TemporaryDirectory fDirectory;
  int fPort = FreePort();
  std::unique_ptr<ServerProcess> fProcess;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_PROXIES_H
