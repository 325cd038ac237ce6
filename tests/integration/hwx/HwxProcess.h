#ifndef HWXTESTS_INTEGRATION_HWX_HWXPROCESS_H
#define HWXTESTS_INTEGRATION_HWX_HWXPROCESS_H

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// What a run of hwx wrote, and its exit status; 128 and the signal if it was killed.
struct HwxResult {
  int fStatus;
  std::string fOut;
  std::string fErr;

  nlohmann::json Json() const { return nlohmann::json::parse(fOut); }
};

/// Runs the real program as a child process, with an environment that names no machine but what a
/// test gives it, and with a log directory of its own:
///
///     HwxProcess hwx;
///     hwx.On(MakeRackServer(directory.Path()));
///     EXPECT_EQ(hwx.Run({"identity", "--json"}).Json()["model"]["value"], "AC1");
class HwxProcess {
 public:
  /// Runs on the machine below `root`.
  HwxProcess& On(const std::string& root) { return Set("HWX_SYSROOT", root); }

  HwxProcess& Set(const std::string& name, const std::string& value) {
    fEnvironment[name] = value;
    return *this;
  }

  /// Runs another copy of the program.
  HwxProcess& From(const std::string& program) {
    fProgram = program;
    return *this;
  }

  HwxProcess& OutputTo(const std::string& path) {
    fOutputPath = path;
    return *this;
  }

  HwxProcess& CloseOutput() {
    fClosesOutput = true;
    return *this;
  }

  HwxProcess& CloseError() {
    fClosesError = true;
    return *this;
  }

  HwxProcess& InputFrom(const std::string& path) {
    fInputPath = path;
    return *this;
  }

  /// Gives up root's rights first.
  HwxProcess& Unprivileged() {
    fIsUnprivileged = true;
    return *this;
  }

  HwxResult Run(const std::vector<std::string>& arguments) const {
    const pid_t child = ::fork();
    if (child == 0) {
      RedirectStreams();
      Become(arguments);
      ::_exit(127);
    }
    int status = -1;
    if (child < 0 || ::waitpid(child, &status, 0) != child) throw std::runtime_error("no child");
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), Text("out"),
            Text("err")};
  }

  /// Becomes the program, with the streams as they are; for a child. Returns only if it can't.
  void Become(const std::vector<std::string>& arguments) const {
    for (const char* name : {"HWX_SYSROOT", "HWX_SMBIOS_TABLES", "QMODULE_LOG_LEVEL"})
      ::unsetenv(name);
    for (const auto& [name, value] : fEnvironment)
      ::setenv(name.c_str(), value.c_str(), 1);
    if (fIsUnprivileged && !BecomeUnprivileged()) return;
    std::vector<std::string> texts = arguments;
    texts.insert(texts.begin(), fProgram);
    std::vector<char*> pointers;
    for (std::string& text : texts)
      pointers.push_back(text.data());
    pointers.push_back(nullptr);
    ::execv(fProgram.c_str(), pointers.data());
  }

 private:
  void RedirectStreams() const {
    if (fInputPath) {
      ::close(STDIN_FILENO);
      ::open(fInputPath->c_str(), O_RDONLY);
    }
    Redirect(STDOUT_FILENO, fOutputPath.value_or(fScratch / "out"), fClosesOutput);
    Redirect(STDERR_FILENO, fScratch / "err", fClosesError);
  }

  static void Redirect(int descriptor, const std::string& path, bool closes) {
    ::close(descriptor);
    if (closes) return;
    const int opened = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (opened == descriptor) return;
    ::dup2(opened, descriptor);
    ::close(opened);
  }

  std::string Text(const std::string& name) const {
    std::ifstream file(fScratch / name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }

  TemporaryDirectory fScratch;
  std::string fProgram = HWX_TEST_PROGRAM;
  std::map<std::string, std::string> fEnvironment;
  std::optional<std::string> fInputPath;
  std::optional<std::string> fOutputPath;
  bool fClosesOutput = false;
  bool fClosesError = false;
  bool fIsUnprivileged = false;
};

/// The program with its libraries and providers in a directory of its own, where a test adds
/// plug-ins or takes some away.
class HwxTree {
 public:
  /// Links the built files, or copies them, for users who can't get at the build directory.
  enum EWay { kLinks, kCopies };

  explicit HwxTree(EWay way = kLinks) {
    namespace fs = std::filesystem;
    fs::permissions(fDirectory.Path(), fs::perms(0755));
    fs::create_directory(Library());
    const auto add = [way](const fs::path& from, const fs::path& to) {
      way == kLinks ? fs::create_symlink(from, to) : fs::copy(from, to);
    };
    add(HWX_TEST_PROGRAM, fDirectory / "hwx");
    for (const fs::directory_entry& file : fs::directory_iterator(HWX_TEST_LIBRARY_DIRECTORY)) {
      if (file.is_regular_file()) add(file.path(), *this / file.path().filename().string());
    }
  }

  /// Where the library lies, and what belongs beside it.
  std::string Library() const { return fDirectory / "lib"; }
  std::string operator/(const std::string& name) const { return Library() + "/" + name; }

  void Remove(const std::string& name) const { std::filesystem::remove(*this / name); }

  void AddText(const std::string& name, const std::string& text) const {
    std::filesystem::create_directories(std::filesystem::path(*this / name).parent_path());
    std::ofstream(*this / name) << text;
  }

  void AddLink(const std::string& name, const std::string& target) const {
    std::filesystem::create_directories(std::filesystem::path(*this / name).parent_path());
    std::filesystem::create_symlink(target, *this / name);
  }

  /// Makes `hwx` run from here.
  void Use(HwxProcess& hwx) const {
    hwx.From(fDirectory / "hwx").Set("LD_LIBRARY_PATH", Library());
  }

 private:
  TemporaryDirectory fDirectory;
};

}  // namespace hwxtest

#endif  // HWXTESTS_INTEGRATION_HWX_HWXPROCESS_H
