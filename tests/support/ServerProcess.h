#ifndef HWXTESTS_SUPPORT_SERVERPROCESS_H
#define HWXTESTS_SUPPORT_SERVERPROCESS_H

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace hwxtest {

inline sockaddr_in LoopbackAddress(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

/// A port of 127.0.0.1 at which nobody listens at the moment.
inline int FreePort() {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = LoopbackAddress(0);
  socklen_t size = sizeof address;
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  const bool isBound =
      ::bind(socket, generic, size) == 0 && ::getsockname(socket, generic, &size) == 0;
  ::close(socket);
  if (!isBound) throw std::runtime_error("no free port");
  return ntohs(address.sin_port);
}

inline bool Listens(int port) {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_in address = LoopbackAddress(port);
  const bool connects =
      ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  ::close(socket);
  return connects;
}

/// Path of a server's program; empty if it isn't installed.
inline std::string ServerProgram(const std::string& name) {
  for (const char* directory : {"/usr/sbin/", "/usr/bin/", "/usr/local/sbin/", "/usr/local/bin/"}) {
    if (std::filesystem::exists(directory + name)) return directory + name;
  }
  return std::string();
}

/// A server that a test starts for itself, as a child of its own. It ends with the object, or with
/// the test, and all that it has started ends with it.
class ServerProcess {
 public:
  /// Starts `program`, whose output goes to `log`, and waits until it listens at `port`. `prepare`
  /// runs in the child beforehand; if it returns false, or the server ends, this throws.
  ServerProcess(const std::string& program, const std::vector<std::string>& arguments, int port,
                const std::string& log, const std::function<bool()>& prepare = nullptr) {
    fServer = ::fork();
    if (fServer == 0) {
      Become(program, arguments, log, prepare);
      ::_exit(127);
    }
    WaitUntilListening(port);
  }

  ~ServerProcess() { Stop(); }

  ServerProcess(const ServerProcess&) = delete;
  ServerProcess& operator=(const ServerProcess&) = delete;

  /// Kills it, with all its connections, at once.
  void Stop() {
    if (fServer <= 0) return;
    ::kill(fServer, SIGSTOP);  // it starts nothing more
    KillDescendantsOf(fServer);
    ::kill(fServer, SIGKILL);
    ::waitpid(fServer, nullptr, 0);
    fServer = -1;
  }

 private:
  static void Become(const std::string& program, const std::vector<std::string>& arguments,
                     const std::string& log, const std::function<bool()>& prepare) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int output = ::open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
    ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    if (prepare && !prepare()) return;
    std::vector<std::string> texts = arguments;
    texts.insert(texts.begin(), program);
    std::vector<char*> pointers;
    for (std::string& text : texts)
      pointers.push_back(text.data());
    pointers.push_back(nullptr);
    ::execv(program.c_str(), pointers.data());
  }

  void WaitUntilListening(int port) {
    for (int i = 0; i < 1000; ++i) {
      if (Listens(port)) return;
      if (::waitpid(fServer, nullptr, WNOHANG) == fServer) {
        fServer = -1;
        throw std::runtime_error("the server ended");
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    Stop();
    throw std::runtime_error("the server doesn't listen");
  }

  static pid_t ParentOf(const std::string& process) {
    std::ifstream stat("/proc/" + process + "/stat");
    std::string text((std::istreambuf_iterator<char>(stat)), {});
    const std::size_t name = text.rfind(')');  // which may hold anything
    if (name == std::string::npos) return -1;
    return static_cast<pid_t>(std::stol(text.substr(name + 4)));
  }

  static void KillDescendantsOf(pid_t parent) {
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
      const std::string name = entry.path().filename().string();
      if (name.find_first_not_of("0123456789") != std::string::npos) continue;
      if (ParentOf(name) != parent) continue;
      const auto child = static_cast<pid_t>(std::stol(name));
      KillDescendantsOf(child);
      ::kill(child, SIGKILL);
    }
  }

  pid_t fServer = -1;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_SERVERPROCESS_H
