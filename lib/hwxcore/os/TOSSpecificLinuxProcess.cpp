#include "hwxcore/os/TOSSpecific.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

namespace {

// The texts as `exec` takes them, ended by a null. They have to outlive the result.
std::vector<char*> PointersTo(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (const std::string& text : texts)
    pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

// Each element followed by a blank.
std::string ListOf(const std::vector<char*>& pointers) {
  std::string list;
  for (const char* pointer : pointers) {
    if (pointer) list.append(pointer).append(" ");
  }
  return list;
}

// The files that `command` may stand for, in the order in which `execvp` tries them.
std::vector<std::string> FilesOf(const std::string& command) {
  if (command.empty() || command.find('/') != std::string::npos) return {command};
  const char* const variable = std::getenv("PATH");
  const std::string path = variable ? variable : "/bin:/usr/bin";
  std::vector<std::string> files;
  for (std::size_t begin = 0, end = 0; end != std::string::npos; begin = end + 1) {
    end = path.find(':', begin);
    const std::string directory = path.substr(begin, end - begin);
    files.push_back(directory.empty() ? command : directory + "/" + command);
  }
  return files;
}

// All that a child needs to become a program. It is made beforehand: between its birth and `exec` a
// child may neither allocate nor look at the environment, since another thread may be at it.
class TProgram {
 public:
  // As `execvp`: searched for, in the caller's environment, and a script for the shell if it has no
  // format of its own. The arguments have to outlive the program.
  TProgram(const std::string& command, const std::vector<char*>& arguments)
      : fFiles(FilesOf(command)), fArguments(arguments), fEnvironment(::environ) {
    fScriptArguments = {const_cast<char*>(kShell), nullptr};
    fScriptArguments.insert(fScriptArguments.end(), arguments.begin() + 1, arguments.end());
  }

  // As `execve`: one file, one environment.
  TProgram(const std::string& path, const std::vector<char*>& arguments,
           const std::vector<char*>& environment)
      : fFiles({path}), fArguments(arguments), fEnvironment(environment.data()) {}

  // For the child; async-signal-safe. Returns -1 if no file can be run.
  int Execute() {
    for (const std::string& file : fFiles) {
      ::execve(file.c_str(), fArguments.data(), fEnvironment);
      if (errno == ENOEXEC && !fScriptArguments.empty()) {
        fScriptArguments[1] = const_cast<char*>(file.c_str());
        ::execve(kShell, fScriptArguments.data(), fEnvironment);
      }
      if (!GoesOnAfter(errno)) break;
    }
    return -1;
  }

 private:
  static constexpr const char* kShell = "/bin/sh";

  static bool GoesOnAfter(int error) {
    return error == EACCES || error == ENOENT || error == ENOTDIR || error == ESTALE ||
           error == ENODEV || error == ETIMEDOUT || error == ENAMETOOLONG;
  }

  std::vector<std::string> fFiles;
  const std::vector<char*>& fArguments;
  std::vector<char*> fScriptArguments;  // of the shell: with a gap for the script's name
  char* const* fEnvironment;
};

struct TPipe {
  int fReadEnd;
  int fWriteEnd;
};

// In a child that shares its parent's memory no handler of the parent's may run.
void DropHandlers() {
  for (int signal = 1; signal < NSIG; ++signal) {
    struct sigaction action;
    if (::sigaction(signal, nullptr, &action) != 0) continue;
    if (action.sa_handler == SIG_DFL || action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = SIG_DFL;
    ::sigaction(signal, &action, nullptr);
  }
}

[[noreturn]] void BecomeProgram(TProgram& program, const TPipe& ends, const sigset_t& mask) {
  ::close(STDOUT_FILENO);
  [[maybe_unused]] const int output = ::dup(ends.fWriteEnd);  // takes 1, the lowest that is free
  ::dup2(STDOUT_FILENO, STDERR_FILENO);                       // Contract: errors-among-output.
  ::close(ends.fReadEnd);
  ::close(ends.fWriteEnd);
  DropHandlers();
  ::sigprocmask(SIG_SETMASK, &mask, nullptr);
  ::_exit(program.Execute());  // unlogged. Contract: missing-program-unlogged.
}

// Returns the child's identity, -1 if there is none. The child borrows this process's memory until
// it has become the program, so the cost doesn't grow with that memory, and no lock that another
// thread holds is copied. Signals wait meanwhile: a handler would run in both.
pid_t StartChild(TProgram& program, const TPipe& ends) {
  sigset_t all;
  sigset_t before;
  ::sigfillset(&all);
  ::pthread_sigmask(SIG_SETMASK, &all, &before);
  const pid_t child = ::vfork();
  if (child == 0) BecomeProgram(program, ends, before);
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return child;
}

// Above 0: there is something to read, or the end. 0: time-out. Below 0: failure, also by a signal
// or by a time-out below -1. As `select`, but for every descriptor. Contract: signal-ends-wait.
int WaitForInput(int descriptor, int timeout) {
  pollfd input{descriptor, POLLIN, 0};
  const timespec limit{timeout, 0};
  const int result = ::ppoll(&input, 1, timeout == -1 ? nullptr : &limit, nullptr);
  return result > 0 && (input.revents & POLLNVAL) != 0 ? -1 : result;
}

constexpr std::size_t kOutputChunkSize = 4095;
constexpr std::size_t kChunksAtOnce = 16;  // as many as a pipe holds

// Appends of each chunk what stands before its first NUL byte. Contract: nul-cuts-chunk.
void AppendChunks(std::string& output, const char* text, std::size_t size) {
  for (const char* const end = text + size; text != end;) {
    const std::size_t chunk = std::min(kOutputChunkSize, static_cast<std::size_t>(end - text));
    output.append(text, ::strnlen(text, chunk));
    text += chunk;
  }
}

// Appends what comes until the end of file. Returns the last result of the wait: above 0 at the end
// of file. The time-out begins anew with each wait. Contract: time-out-bounds-silence.
int Gather(int descriptor, int timeout, std::string& output) {
  constexpr std::size_t kSize = kOutputChunkSize * kChunksAtOnce;
  const std::unique_ptr<char[]> buffer(new char[kSize]);
  int ready;
  while ((ready = WaitForInput(descriptor, timeout)) > 0) {
    const ssize_t size = ::read(descriptor, buffer.get(), kSize);
    if (size == 0) break;
    // Contract: output-appended.
    if (size > 0) AppendChunks(output, buffer.get(), static_cast<std::size_t>(size));
  }
  return ready;
}

// Waits for the child's end, without a limit. Interrupted by a signal, it gives up.
// Contract: end-without-limit, signal-ends-wait, error-words-at-debug.
int ResultOf(pid_t child) {
  int status = 0;
  if (::waitpid(child, &status, 0) != child) {
    detail::LogDebug("ERROR: SpawnProcess - waitpid call failed!");
    return -1;
  }
  if (!WIFEXITED(status)) {
    detail::LogDebug("ERROR: SpawnProcess - Child process exited abnormally!");
    return -1;
  }
  return WEXITSTATUS(status) == 0 ? 0 : -1;  // Contract: no-exit-status.
}

// Says why there was no end of file. The child is left running and is never waited for.
// Contract: child-left-running, error-words-at-debug.
void LogGivingUp(int ready, const std::string& name) {
  if (ready == 0) {
    detail::LogDebug("ERROR: SpawnProcess - ", name, " TimeOut!");
  } else {
    detail::LogDebug("ERROR: SpawnProcess - select call failed!");
  }
}

[[noreturn]] void ThrowNoChild() {
  detail::LogError("ERROR: Fork failed");
  throw THWXException(kHWXStatusFail);
}

// `name` is what the time-out message calls the program.
int Run(TProgram program, const std::string& name, int timeout, std::string& output) {
  int ends[2];
  if (::pipe(ends) != 0) return -1;  // no O_CLOEXEC. Contract: pipe-inherited.
  const pid_t child = StartChild(program, {ends[0], ends[1]});
  if (child == -1) ThrowNoChild();  // Contract: failed-fork-leaves-pipe.
  ::close(ends[1]);
  const int ready = Gather(ends[0], timeout, output);
  int result = -1;
  if (ready > 0) {
    result = ResultOf(child);
  } else {
    LogGivingUp(ready, name);
  }
  ::close(ends[0]);
  return result;
}

}  // namespace

int TOSSpecific::SpawnProcess(std::string command, std::vector<std::string> arguments,
                              std::string& output, int timeout) {
  detail::LogDebug("SpawnProcess: process ", command);
  arguments.insert(arguments.begin(), command);
  const std::vector<char*> pointers = PointersTo(arguments);
  return Run(TProgram(pointers[0], pointers), command, timeout, output);
}

std::string TOSSpecific::SpawnProcess(std::string command, std::vector<std::string> arguments,
                                      int timeout) {
  std::string output;
  SpawnProcess(command, arguments, output, timeout);  // Contract: result-dropped.
  return output;
}

std::string TOSSpecific::SpawnProcess(std::string commandLine, int timeout) {
  // Contract: command-line-blanks.
  std::vector<std::string> arguments;
  std::size_t blank = commandLine.find(' ');
  const std::string command = commandLine.substr(0, blank);
  while (blank != std::string::npos) {
    const std::size_t begin = blank + 1;
    blank = commandLine.find(' ', begin);
    arguments.push_back(commandLine.substr(begin, blank - begin));
  }
  return SpawnProcess(command, arguments, timeout);
}

int TOSSpecific::SpawnProcess(const std::string& processName,
                              const std::vector<std::string>& arguments, const std::string& path,
                              const std::vector<std::string>& environment, std::string& output,
                              int timeout) {
  std::vector<std::string> allArguments = arguments;
  allArguments.insert(allArguments.begin(), processName);
  const std::vector<char*> pointers = PointersTo(allArguments);
  const std::vector<char*> variables = PointersTo(environment);
  // Contract: envoirment.
  detail::LogDebug("TOSSpecific::SpawnProcess calling ", path, "\nwith parameters ",
                   ListOf(pointers), "\nwith envoirment vars ", ListOf(variables));
  return Run(TProgram(path, pointers, variables), processName, timeout, output);
}

}  // namespace NQORHWX20
