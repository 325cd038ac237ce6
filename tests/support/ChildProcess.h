#ifndef HWXTESTS_SUPPORT_CHILDPROCESS_H
#define HWXTESTS_SUPPORT_CHILDPROCESS_H

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <functional>
#include <string>

namespace hwxtest {

/// What a child's body returns when this machine doesn't let it set its scene.
constexpr int kSceneNotAllowed = 77;

/// Runs `body` in a forked child, where it may give up rights, mount, or leave the process in any
/// state. Expectations in it are printed as ever. Returns what `body` returned; 1 if that was 0 or
/// `kSceneNotAllowed` but an expectation failed, or if it threw; 128 and the signal if the child
/// was killed.
inline int RunInChild(const std::function<int()>& body) {
  std::fflush(stdout);
  const pid_t child = ::fork();
  if (child == 0) {
    int code = 1;
    try {
      code = body();
    } catch (const std::exception& failure) {  // or the child would go on with the other tests
      ADD_FAILURE() << "the child threw: " << failure.what();
    }
    std::fflush(stdout);
    const bool hidesFailures = code == 0 || code == kSceneNotAllowed;
    ::_exit(hidesFailures && ::testing::Test::HasFailure() ? 1 : code);
  }
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// Runs `body` in a forked child and expects it to return 0. Where the machine doesn't let it set
/// its scene, the test counts as skipped, for the reason `obstacle`; a test tidies up behind it at
/// most.
inline void RunScene(const char* obstacle, const std::function<int()>& body) {
  const int result = RunInChild(body);
  if (result == kSceneNotAllowed) GTEST_SKIP() << "SKIPPED: " << obstacle;
  EXPECT_EQ(result, 0);
}

/// Gives the calling child mounts of its own, as root or, where users may, in a user namespace.
inline bool EnterPrivateMountNamespace() {
  const uid_t user = ::geteuid();
  const gid_t group = ::getegid();
  if (::unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) return false;
  if (user != 0) {
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
  }
  return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// Whether a child could do so. Not in a root that is no mount, as a plain `chroot` makes it.
inline bool MayHavePrivateMounts() {
  return RunInChild([] { return EnterPrivateMountNamespace() ? 0 : kSceneNotAllowed; }) == 0;
}

/// Mounts an empty file system in memory over a directory.
inline bool MountTmpfs(const std::string& directory) {
  return ::mount("none", directory.c_str(), "tmpfs", 0, "size=1m") == 0;
}

inline bool RemountReadOnly(const std::string& directory) {
  return ::mount("none", directory.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

/// Gives up root's rights for good. Who has none keeps what he is.
inline bool BecomeUnprivileged() {
  constexpr unsigned kNobody = 65534;
  if (::geteuid() != 0) return true;
  return ::setresgid(kNobody, kNobody, kNobody) == 0 && ::setresuid(kNobody, kNobody, kNobody) == 0;
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_CHILDPROCESS_H
