#ifndef HWXTESTS_SUPPORT_FILESERVERS_H
#define HWXTESTS_SUPPORT_FILESERVERS_H

#include <pwd.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include "support/ChildProcess.h"
#include "support/ServerProcess.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// A real server of files on 127.0.0.1, for one user. What is sent lies below `Home`.
class FileServer {
 public:
  /// How a server is to be, other than well.
  struct Ways {
    bool fHasSmallDisk = false;   ///< Of one megabyte. `Home` can't be looked into then.
    int fKilobytesPerSecond = 0;  ///< As slow as that, if not 0 and the server can.
  };

  virtual ~FileServer() = default;

  /// As it stands in front of "://".
  virtual std::string Scheme() const = 0;

  /// What the library takes for a host, with credentials that are right, or wrong.
  virtual std::string Host() const = 0;
  virtual std::string HostRefused() const = 0;

  /// The name of a file below `Home` as it stands in a URL behind the host.
  virtual std::string Remote(const std::string& name) const = 0;

  const std::string& Home() const { return fHome; }
  int Port() const { return fPort; }
  std::string Place() const { return "127.0.0.1:" + std::to_string(fPort); }

  /// Kills it, with all its connections, at once.
  void Stop() { fProcess->Stop(); }

 protected:
  explicit FileServer(const Ways& ways) : fWays(ways) {
    std::filesystem::permissions(fDirectory.Path(), std::filesystem::perms(0755));
    std::filesystem::create_directory(fHome);
    std::filesystem::permissions(fHome, std::filesystem::perms::all);
  }

  void Start(const std::string& program, const std::vector<std::string>& arguments,
             const std::function<bool()>& prepare) {
    fProcess = std::make_unique<ServerProcess>(
        program, arguments, fPort, fDirectory / "log",
        [this, prepare] { return (!fWays.fHasSmallDisk || MountSmallDisk()) && prepare(); });
  }

  // For the server's own process only.
  bool MountSmallDisk() const {
    return EnterPrivateMountNamespace() &&
           ::mount("none", fHome.c_str(), "tmpfs", 0, "size=1m,mode=777") == 0;
  }

  TemporaryDirectory fDirectory;
  Ways fWays;

 private:
  std::string fHome = fDirectory / "home";
  int fPort = FreePort();
  std::unique_ptr<ServerProcess> fProcess;
};

/// pure-ftpd, with a table of users of its own.
class FtpServer : public FileServer {
 public:
  /// Why there can be none on this machine; missing if there can.
  static std::optional<std::string> WhyNot() {
    if (ServerProgram("pure-ftpd").empty()) return "pure-ftpd isn't installed";
    if (ServerProgram("pure-pw").empty()) return "pure-pw isn't installed";
    if (::geteuid() != 0) return "pure-ftpd runs as root only";
    return std::nullopt;
  }

  FtpServer() : FtpServer(Ways()) {}
  explicit FtpServer(const Ways& ways) : FileServer(ways) {
    MakeUser();
    std::vector<std::string> arguments = {"-4",
                                          "-S",
                                          "127.0.0.1," + std::to_string(Port()),
                                          "-l",
                                          "puredb:" + Table(),
                                          "-A",
                                          "-E",
                                          "-H",
                                          "-u",
                                          "1",
                                          "-f",
                                          "none",
                                          "-g",
                                          fDirectory / "pid"};
    if (ways.fKilobytesPerSecond != 0) {
      arguments.push_back("-T");
      arguments.push_back(std::to_string(ways.fKilobytesPerSecond));
    }
    Start(ServerProgram("pure-ftpd"), arguments, [] { return true; });
  }

  std::string Scheme() const override { return "ftp"; }
  std::string Host() const override { return "me:" + Password() + "@" + Place(); }
  std::string HostRefused() const override { return "me:wrong@" + Place(); }
  std::string Remote(const std::string& name) const override { return name; }

  static std::string Password() { return "word-of-me"; }

 private:
  std::string Table() const { return fDirectory / "users.pdb"; }

  // Hashed beforehand, and in a way that is quick to check: what pure-pw would choose takes a
  // second for each login.
  void MakeUser() const {
    const std::string hash =
        "$6$hwxtests$62QjEXuwrRHR0duYI0dR270ZZcsey/kmEcGnJl2k0/6BU6Jd"
        "e1B1rNF1BauPFbEsjvZLE41InLyOWKmdRuOIt1";
    std::ofstream(fDirectory / "users")
        << "me:" << hash << ":65534:65534::" << Home() << "/./::::::::::::\n";
    const std::string command = ServerProgram("pure-pw") + " mkdb " + Table() + " -f " +
                                (fDirectory / "users") + " >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("no user can be made");
  }
};

/// OpenSSH's sshd, for the user who runs the tests, with keys that are thrown away.
class SftpServer : public FileServer {
 public:
  static std::optional<std::string> WhyNot() {
    if (ServerProgram("sshd").empty()) return "sshd isn't installed";
    if (ServerProgram("ssh-keygen").empty()) return "ssh-keygen isn't installed";
    if (::geteuid() == 0 && !MayHavePrivateMounts()) {
      return "root's sshd needs a /run of its own, and private mounts aren't allowed here";
    }
    return std::nullopt;
  }

  SftpServer() : SftpServer(Ways()) {}
  explicit SftpServer(const Ways& ways) : FileServer(ways) {
    std::filesystem::create_directories(UserHome() + "/.ssh");
    MakeKey("ed25519", fDirectory / "hostkey");
    MakeKey("rsa", UserHome() + "/.ssh/id_rsa");
    WriteConfiguration();
    Start(ServerProgram("sshd"), {"-D", "-e", "-f", fDirectory / "config"},
          [] { return ::geteuid() != 0 || HavePlaceForPrivileges(); });
  }

  std::string Scheme() const override { return "sftp"; }
  std::string Host() const override { return User() + "@" + Place(); }
  std::string HostRefused() const override { return "nobody-of-that-name:wrong@" + Place(); }
  std::string Remote(const std::string& name) const override {
    return Home().substr(1) + "/" + name;
  }

  /// The home directory of a user whose key is welcome.
  std::string UserHome() const { return fDirectory / "user"; }

 private:
  static std::string User() {
    const passwd* const entry = ::getpwuid(::geteuid());
    return entry ? entry->pw_name : "nobody";
  }

  static void MakeKey(const std::string& type, const std::string& file) {
    const std::string command = ServerProgram("ssh-keygen") + " -q -m PEM -N '' -t " + type +
                                " -f " + file + " </dev/null >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("no key can be made");
  }

  void WriteConfiguration() const {
    std::ofstream(fDirectory / "config")
        << "Port " << Port() << "\nListenAddress 127.0.0.1\nPidFile none\nStrictModes no\n"
        << "HostKey " << (fDirectory / "hostkey") << "\nAuthorizedKeysFile " << UserHome()
        << "/.ssh/id_rsa.pub\nPasswordAuthentication no\nKbdInteractiveAuthentication no\n"
        << "UsePAM no\nPermitRootLogin yes\nSubsystem sftp internal-sftp\n"
        // How libssh2 signs with an RSA key.
        << "PubkeyAcceptedAlgorithms +ssh-rsa\n";
  }

  // Root's sshd wants an empty directory below /run, which here only it gets to see.
  static bool HavePlaceForPrivileges() {
    return EnterPrivateMountNamespace() && ::mount("none", "/run", "tmpfs", 0, "size=64k") == 0 &&
           ::mkdir("/run/sshd", 0755) == 0;
  }
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FILESERVERS_H
