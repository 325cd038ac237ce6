#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "support/ChildProcess.h"
#include "support/Descriptors.h"
#include "support/FileText.h"
#include "support/ScopedEnvironment.h"
#include "support/ScopedLogCapture.h"
#include "support/ScopedSignal.h"
#include "support/Spawning.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::FileText;
using hwxtest::LeftChild;
using hwxtest::OpenDescriptors;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using hwxtest::ScopedEnvironment;
using hwxtest::ScopedLogCapture;
using hwxtest::ScopedSignal;
using hwxtest::Spawn;
using hwxtest::Spawned;
using hwxtest::SpawnShell;
using hwxtest::TemporaryDirectory;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::Pair;

namespace {

TEST(SpawnProcessChild, HasTheCallersEnvironmentAndDirectory) {
  const ScopedEnvironment variable("HWX_TEST_VARIABLE", "two words");
  EXPECT_EQ(SpawnShell("echo $HWX_TEST_VARIABLE").fOutput, "two words\n");
  EXPECT_EQ(Spawn("pwd", {"-P"}).fOutput, std::filesystem::current_path().string() + "\n");
}

TEST(SpawnProcessChild, HasTheCallersStandardInput) {
  const int result = RunInChild([] {
    int ends[2];
    if (::pipe(ends) != 0 || ::write(ends[1], "typed", 5) != 5) return 2;
    ::close(ends[1]);
    ::dup2(ends[0], STDIN_FILENO);
    EXPECT_EQ(Spawn("cat", {}).fOutput, "typed");
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(SpawnProcessChild, HasTheCallersOtherDescriptors) {
  const int result = RunInChild([] {
    int ends[2];
    if (::pipe(ends) != 0 || ::write(ends[1], "inherited", 9) != 9) return 2;
    ::dup2(ends[0], 9);
    EXPECT_EQ(SpawnShell("head -c 9 <&9").fOutput, "inherited");
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(SpawnProcessChild, HoldsThePipeAsItsOutputAndErrorsAlone) {
  const Spawned spawned = SpawnShell(
      "own=$(readlink /proc/$$/fd/1); for fd in /proc/$$/fd/*; do"
      " if test \"$(readlink $fd)\" = \"$own\"; then echo ${fd##*/}; fi; done");
  EXPECT_EQ(spawned.fOutput, "1\n2\n");
}

TEST(SpawnProcessChild, PrintsToACallerWithoutStandardInput) {
  const int result = RunInChild([] {
    ::close(STDIN_FILENO);
    EXPECT_EQ(SpawnShell("echo out; echo err >&2").fOutput, "out\nerr\n");
    return 0;
  });
  EXPECT_EQ(result, 0);
}

// The caller's third standard descriptor goes to the pipe, and is closed with it.
TEST(SpawnProcessChild, HasNoErrorStreamWhereTheCallerHasNone) {
  const int result = RunInChild([] {
    ::close(STDERR_FILENO);
    const std::string output = SpawnShell("echo out; test -e /proc/$$/fd/2 || echo none").fOutput;
    return output == "out\nnone\n" ? 0 : 3;
  });
  EXPECT_EQ(result, 0);
}

// Likewise its second: only what the child complains of comes.
TEST(SpawnProcessChild, HasNoOutputWhereTheCallerHasNone) {
  const int result = RunInChild([] {
    ::close(STDOUT_FILENO);
    const std::string output = SpawnShell("test -e /proc/$$/fd/1 || echo none >&2").fOutput;
    return output == "none\n" ? 0 : 3;
  });
  EXPECT_EQ(result, 0);
}

// How many descriptors of a new child are pipes.
std::size_t PipesOfAChild() {
  const std::string list = Spawn("ls", {"-l", "/proc/self/fd"}).fOutput;
  std::size_t count = 0;
  for (std::size_t at = 0; (at = list.find("pipe:[", at)) != std::string::npos; ++at)
    ++count;
  return count;
}

TEST(SpawnProcessChild, HoldsThePipeOfACallOnAnotherThread) {
  const TemporaryDirectory scratch;
  const std::size_t alone = PipesOfAChild();
  const std::size_t before = OpenDescriptors();
  std::thread other(
      [&] { SpawnShell("until test -e " + (scratch / "end") + "; do sleep 0.05; done"); });
  while (OpenDescriptors() == before)
    std::this_thread::yield();
  EXPECT_GT(PipesOfAChild(), alone);
  std::ofstream(scratch / "end").close();
  other.join();
  EXPECT_EQ(PipesOfAChild(), alone);
}

std::string SignalLines(const std::string& status) {
  std::string found;
  std::istringstream lines(status);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("SigBlk", 0) == 0 || line.rfind("SigIgn", 0) == 0) found += line + "\n";
  }
  return found;
}

const char kOwnStatus[] = "/proc/thread-self/status";

TEST(SpawnProcessChild, HasTheCallersBlockedAndIgnoredSignals) {
  const int result = RunInChild([] {
    const ScopedSignal ignored(SIGUSR2, SIG_IGN);
    const ScopedSignal handled(SIGUSR1, &ScopedSignal::Ignore);
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGHUP);
    ::sigprocmask(SIG_BLOCK, &blocked, nullptr);
    const std::string before = SignalLines(FileText(kOwnStatus));
    const std::string output = Spawn("cat", {"/proc/self/status"}).fOutput;
    EXPECT_EQ(SignalLines(output), before);
    EXPECT_NE(output.find("SigCgt:\t0000000000000000"), std::string::npos);
    EXPECT_EQ(SignalLines(FileText(kOwnStatus)), before);
    return 0;
  });
  EXPECT_EQ(result, 0);
}

int gHandled = 0;

void CountSignal(int) {
  ++gHandled;
}

TEST(SpawnProcessChild, LeavesTheCallersHandlersInPlace) {
  const int result = RunInChild([] {
    const ScopedSignal handled(SIGUSR1, &CountSignal);
    EXPECT_EQ(Spawn("true", {}).fResult, 0);
    ::raise(SIGUSR1);
    EXPECT_EQ(gHandled, 1);
    return 0;
  });
  EXPECT_EQ(result, 0);
}

// That a shell was spawned, and which call failed then.
void ExpectLogged(const ScopedLogCapture& log, const std::string& failedCall) {
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", "SpawnProcess: process sh"),
                          Pair("Debug", "ERROR: SpawnProcess - " + failedCall + " call failed!")));
}

// Spawns a shell that prints its identity, does what it is told, and then sends its parent alarms.
void ExpectLeftRunning(const std::string& script, const std::string& failedCall) {
  const ScopedLogCapture log;
  const std::size_t before = OpenDescriptors();
  const Spawned spawned =
      SpawnShell("echo $$; " + script + "; while :; do kill -ALRM $PPID; sleep 0.01; done");
  const LeftChild child(spawned.fOutput);
  EXPECT_EQ(spawned.fResult, -1);
  EXPECT_TRUE(child.IsRunning());
  EXPECT_EQ(OpenDescriptors(), before);
  ExpectLogged(log, failedCall);
}

TEST(SpawnProcessChild, IsLeftRunningWhenASignalInterruptsTheWait) {
  for (const int flags : {0, SA_RESTART}) {
    const ScopedSignal alarm(SIGALRM, &ScopedSignal::Ignore, flags);
    ExpectLeftRunning(":", "select");
  }
}

TEST(SpawnProcessChild, IsGivenUpWhenASignalInterruptsTheWaitForItsEnd) {
  const ScopedSignal alarm(SIGALRM, &ScopedSignal::Ignore);
  ExpectLeftRunning("exec >&- 2>&-", "waitpid");
}

TEST(SpawnProcessChild, IsNotFoundWhereTheProcessCollectsItsChildrenItself) {
  const int result = RunInChild([] {
    const ScopedSignal collecting(SIGCHLD, SIG_IGN);
    const ScopedLogCapture log;
    const Spawned spawned = SpawnShell("echo text");
    EXPECT_EQ(spawned.fResult, -1);
    EXPECT_EQ(spawned.fOutput, "text\n");
    ExpectLogged(log, "waitpid");
    return 0;
  });
  EXPECT_EQ(result, 0);
}

void CollectChildren(int) {
  while (::waitpid(-1, nullptr, WNOHANG) > 0)
    continue;
}

// The handler runs on a thread of its own, so the calling thread's waits aren't interrupted. What
// the shell leaves behind holds the pipe until the shell has been collected.
TEST(SpawnProcessChild, IsNotFoundWhereAHandlerWasFaster) {
  const int result = RunInChild([] {
    const ScopedSignal collecting(SIGCHLD, &CollectChildren);
    std::thread([] { ::pause(); }).detach();
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGCHLD);
    ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
    const ScopedLogCapture log;
    const Spawned spawned =
        SpawnShell("(while kill -0 $$ 2>/dev/null; do sleep 0.01; done; echo late) & exit 0");
    EXPECT_EQ(spawned.fResult, -1);
    EXPECT_EQ(spawned.fOutput, "late\n");
    ExpectLogged(log, "waitpid");
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(SpawnProcessChild, CostsNoDescriptor) {
  const std::size_t before = OpenDescriptors();
  Spawn("true", {});
  Spawn("no-such-program", {});
  SpawnShell("kill -KILL $$");
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST(SpawnProcessChild, IsMadeBehindMoreThanAThousandDescriptors) {
  RunScene("too few descriptors allowed", [] {
    if (!hwxtest::LimitDescriptors(2000)) return hwxtest::kSceneNotAllowed;
    for (int descriptor = 0; descriptor < 1500;)
      descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    const Spawned spawned = SpawnShell("echo text; exit 0", 30);
    EXPECT_EQ(spawned.fResult, 0);
    EXPECT_EQ(spawned.fOutput, "text\n");
    EXPECT_EQ(Spawn("sleep", {"1"}, 0).fResult, -1);
    ::wait(nullptr);
    return 0;
  });
}

TEST(SpawnProcessChild, IsNotMadeWithoutAPipe) {
  const int result = RunInChild([] {
    Spawn("true", {});  // for UBSan, see LimitDescriptors
    const ScopedLogCapture log;
    const rlim_t next = static_cast<rlim_t>(::dup(STDIN_FILENO));
    hwxtest::LimitDescriptors(next + 2);  // one is free, a pipe needs two
    std::string output = "kept";
    EXPECT_EQ(TOSSpecific::SpawnProcess("echo", {"text"}, output, 60), -1);
    EXPECT_EQ(TOSSpecific::SpawnProcess("echo", {}, "/bin/echo", {}, output, 60), -1);
    EXPECT_EQ(output, "kept");
    EXPECT_EQ(::waitpid(-1, nullptr, 0), -1) << "there is a child";
    hwxtest::LimitDescriptors(next + 10);
    EXPECT_EQ(log.Lines().size(), 2U) << "more than the two lines on entry";
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(SpawnProcessChild, ThatCannotBeMadeIsAnErrorAndLeavesBothEndsOpen) {
  RunScene("children can't be forbidden", [] {
    const rlimit none{0, 0};
    if (!hwxtest::BecomeUnprivileged() || ::setrlimit(RLIMIT_NPROC, &none) != 0) {
      return hwxtest::kSceneNotAllowed;
    }
    const ScopedLogCapture log;
    const std::size_t before = OpenDescriptors();
    const int status = hwxtest::StatusOf([] { Spawn("true", {}); });
    if (status == NQORHWX20::kHWXStatusOK) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(status, NQORHWX20::kHWXStatusFail);
    EXPECT_EQ(OpenDescriptors(), before + 2);
    EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "SpawnProcess: process true"),
                                         Pair("Error", "ERROR: Fork failed")));
    EXPECT_EQ(hwxtest::StatusOf([] { TOSSpecific::SpawnProcess("true", 60); }),
              NQORHWX20::kHWXStatusFail);
    return 0;
  });
}

}  // namespace
