#ifndef HWXTESTS_SUPPORT_TRANSFERROOT_H
#define HWXTESTS_SUPPORT_TRANSFERROOT_H

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/FileText.h"
#include "support/Sanitizers.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// A directory in which the core library lies, with a front end that transfers files from there.
/// Tests put a libcurl beside the library, mostly one that records what is asked of it:
///
///     TransferRoot root;
///     root.AddCurl("stub_curl", "libcurl.so.4");
///     root.Set("STUB_CURL_BLOCKS", "one|two");
///     EXPECT_EQ(root.Run({"download:ftp://host/name|" + root.Scratch("file")}), "returned 0\n");
///     EXPECT_EQ(root.CurlCalls(), ...);
class TransferRoot {
 public:
  using Lines = std::vector<std::string>;

  TransferRoot() {
    std::filesystem::create_directory(fDirectory / "root");
    const std::filesystem::path core = HWX_TEST_CORE_LIBRARY;
    for (const char* library : {"libhwxcore.so", "liblogger.so", "libsmbios.so", "libhwxbase.so"})
      AddLink(core.parent_path() / library, library);
    fEnvironment["LD_LIBRARY_PATH"] = Path();
    fEnvironment["STUB_CURL_TRACE"] = fDirectory / "trace";
    // Where a front end that is killed leaves what it would have removed.
    fEnvironment["TMPDIR"] = fDirectory.Path();
    // A failed transfer leaves what it held (docs/contracts.md, curl-left-open), which leaks.
    fEnvironment["ASAN_OPTIONS"] = "detect_leaks=0";
  }

  /// Where the library lies.
  std::string Path() const { return fDirectory / "root"; }
  std::string operator/(const std::string& name) const { return Path() + "/" + name; }

  /// Path of a file that isn't beside the library.
  std::string Scratch(const std::string& name) const { return fDirectory / name; }

  void AddLink(const std::string& target, const std::string& name) const {
    std::filesystem::create_symlink(target, *this / name);
  }

  /// Puts one of the libcurls of `support/transfer` beside the library.
  void AddCurl(const std::string& built, const std::string& name) const {
    AddLink(BuiltCurl(built), name);
  }

  static std::string BuiltCurl(const std::string& built) {
    return std::string(HWX_TEST_CURL_DIRECTORY) + "/" + built + ".so";
  }

  void Set(const std::string& name, const std::string& value) { fEnvironment[name] = value; }

  /// Takes the front end through its steps, with `input` on its standard input, and returns what it
  /// wrote to its standard output. Once it has written more than `limit` bytes, it is killed.
  std::string Run(const Lines& steps, const std::string& input = "", std::size_t limit = 1 << 20) {
    MakeFile(fDirectory / "input", input);
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
      ::dup2(::open((fDirectory / "input").c_str(), O_RDONLY | O_CLOEXEC), STDIN_FILENO);
      ::dup2(ends[1], STDOUT_FILENO);
      Become(steps);
      ::_exit(127);
    }
    ::close(ends[1]);
    const std::string output = ReadUpTo(limit, ends[0]);
    ::close(ends[0]);
    if (output.size() > limit) ::kill(child, SIGKILL);
    int status = -1;
    if (child < 0 || ::waitpid(child, &status, 0) != child) throw std::runtime_error("no child");
    if (output.size() > limit) return output;
    return status == 0 ? output : output + "(ended with " + std::to_string(status) + ")\n";
  }

  /// What was asked of the recording libcurl so far, oldest first.
  Lines CurlCalls() const { return TraceLines(false); }

  /// What the library asked the loader.
  Lines LoaderCalls() const { return TraceLines(true); }

  /// The two together.
  std::string Trace() const {
    const std::string path = fDirectory / "trace";
    return std::filesystem::exists(path) ? FileText(path) : "";
  }

  /// The directory of what was not found, in the words of the loader.
  std::string NotFound(const std::string& name) const {
    return *this / name + ": cannot open shared object file: No such file or directory";
  }

  /// Whether calls of the loader are traced: under AddressSanitizer they can't be.
  static constexpr bool TracesLoader() {
#ifdef HWXTESTS_ADDRESS_SANITIZER
    return false;
#else
    return true;
#endif
  }

  /// Becomes the front end; for a child. Returns only if it can't.
  void Become(const Lines& steps) const {
    for (const auto& [name, value] : fEnvironment)
      ::setenv(name.c_str(), value.c_str(), 1);
    std::string program = HWX_TEST_TRANSFER_FRONT_END;
    Lines texts = steps;
    std::vector<char*> arguments = {program.data()};
    for (std::string& text : texts)
      arguments.push_back(text.data());
    arguments.push_back(nullptr);
    ::execv(program.c_str(), arguments.data());
  }

 private:
  static std::string ReadUpTo(std::size_t limit, int file) {
    std::string text;
    char buffer[4096];
    while (text.size() <= limit) {
      const ssize_t size = ::read(file, buffer, sizeof buffer);
      if (size == -1 && errno == EINTR) continue;
      if (size <= 0) break;
      text.append(buffer, static_cast<std::size_t>(size));
    }
    return text;
  }

  Lines TraceLines(bool ofLoader) const {
    Lines lines;
    std::istringstream trace(Trace());
    for (std::string line; std::getline(trace, line);) {
      if ((line.rfind("dl", 0) == 0) == ofLoader) lines.push_back(line);
    }
    return lines;
  }

  TemporaryDirectory fDirectory;
  std::map<std::string, std::string> fEnvironment;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_TRANSFERROOT_H
