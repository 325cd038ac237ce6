#ifndef HWXTESTS_SUPPORT_FAKESHELL_H
#define HWXTESTS_SUPPORT_FAKESHELL_H

#include <map>
#include <string>
#include <vector>

namespace hwxtest {

/// Stands before the shell of the calling thread: its executable's own `system` does. It runs
/// nothing, and keeps each command to the letter. A command ends with the status 1, unless a test
/// gives it another.
class FakeShell {
 public:
  FakeShell();
  ~FakeShell();

  FakeShell(const FakeShell&) = delete;
  FakeShell& operator=(const FakeShell&) = delete;

  /// `result` is what `system` returns: an exit status times 256, the number of a signal, or -1.
  FakeShell& Answer(const std::string& command, int result) {
    fResults[command] = result;
    return *this;
  }
  FakeShell& Succeed(const std::string& command) { return Answer(command, 0); }

  const std::vector<std::string>& Commands() const { return fCommands; }

  /// For `system`.
  int Run(const std::string& command);

 private:
  std::map<std::string, int> fResults;
  std::vector<std::string> fCommands;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_FAKESHELL_H
