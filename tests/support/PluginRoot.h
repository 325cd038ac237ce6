#ifndef HWXTESTS_SUPPORT_PLUGINROOT_H
#define HWXTESTS_SUPPORT_PLUGINROOT_H

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// A directory in which the core library lies, and beside it what a test puts there: to a front end
/// that runs from it, the root in which services are found.
///
///     PluginRoot root;
///     root.AddPlugin("counting_consumer.so", "libcounting.nsc.so");
///     EXPECT_EQ(root.Run({"load-nsc:counting"}).fOut, "consumer 1001\n");
///
/// The plug-ins and the front end are those of `support/plugins`.
class PluginRoot {
 public:
  /// What a run of the front end wrote, and its exit status.
  struct Result {
    int fStatus;
    std::string fOut;
    std::string fErr;
  };

  PluginRoot() {
    std::filesystem::create_directory(Path());
    const std::filesystem::path core = HWX_TEST_CORE_LIBRARY;
    AddLibrary(core);
    // What the core looks for beside itself.
    for (const char* companion : {"liblogger.so", "libsmbios.so", "libhwxbase.so"})
      AddLibrary(core.parent_path() / companion);
  }

  std::string Path() const { return fDirectory / "root"; }
  std::string operator/(const std::string& name) const { return Path() + "/" + name; }

  /// Puts a plug-in that was built beside the library, under another name.
  void AddPlugin(const std::string& built, const std::string& name) {
    std::filesystem::create_symlink(BuiltPlugin(built), *this / name);
  }

  void AddFile(const std::string& name, const std::string& text = "") {
    std::ofstream(*this / name) << text;
  }

  void AddDirectory(const std::string& name) { std::filesystem::create_directory(*this / name); }

  /// Path of a plug-in that was built.
  static std::string BuiltPlugin(const std::string& name) {
    return std::string(HWX_TEST_PLUGIN_DIRECTORY) + "/" + name;
  }

  /// Takes the front end through its steps, with `QMODULE_LOG_LEVEL` set if `traceLevel` says so.
  Result Run(const std::vector<std::string>& steps, const std::string& traceLevel = "") {
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) {
      RunFrontEnd(steps, traceLevel);
      ::_exit(127);
    }
    int status = -1;
    if (child < 0 || ::waitpid(child, &status, 0) != child) throw std::runtime_error("no child");
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Text("out"), Text("err")};
  }

 private:
  void AddLibrary(const std::filesystem::path& library) {
    std::filesystem::create_symlink(library, *this / library.filename().string());
  }

  void RunFrontEnd(const std::vector<std::string>& steps, const std::string& traceLevel) {
    ::setenv("LD_LIBRARY_PATH", Path().c_str(), 1);
    // Where a front end that is killed leaves what it would have removed.
    ::setenv("TMPDIR", fDirectory.Path().c_str(), 1);
    ::unsetenv("QMODULE_LOG_LEVEL");
    if (!traceLevel.empty()) ::setenv("QMODULE_LOG_LEVEL", traceLevel.c_str(), 1);
    if (!std::freopen((fDirectory / "out").c_str(), "w", stdout)) return;
    if (!std::freopen((fDirectory / "err").c_str(), "w", stderr)) return;
    std::string program = HWX_TEST_FRONT_END;
    std::vector<std::string> texts = steps;
    std::vector<char*> arguments = {program.data()};
    for (std::string& text : texts)
      arguments.push_back(text.data());
    arguments.push_back(nullptr);
    ::execv(program.c_str(), arguments.data());
  }

  std::string Text(const std::string& name) const {
    std::ostringstream text;
    text << std::ifstream(fDirectory / name).rdbuf();
    return text.str();
  }

  TemporaryDirectory fDirectory;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_PLUGINROOT_H
