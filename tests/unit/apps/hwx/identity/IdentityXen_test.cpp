// The domain of a Xen hypervisor in which the program runs, on made-up kernels.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "hwx/identity/Identity.h"
#include "support/ChildProcess.h"
#include "support/Machines.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"
#include "unit/apps/hwx/identity/MadeMachine.h"

namespace hwx {
namespace {

using hwxtest::kSceneNotAllowed;

constexpr const char* kCapabilities = "/proc/xen/capabilities";

TAnswer<std::string> Domain() {
  return AskIdentity(hwxtest::MadeMachine().Open()).fXenDomain;
}

// Runs `body` in a child with a /proc of its own that holds nothing but the directory xen.
void RunWithEmptyProc(const std::function<int()>& body) {
  hwxtest::RunScene("no right to mount", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs("/proc")) {
      return kSceneNotAllowed;
    }
    std::filesystem::create_directory("/proc/xen");
    return body();
  });
}

TEST(IdentityXenDomain, IsWhatTheCapabilitiesSay) {
  RunWithEmptyProc([] {
    EXPECT_EQ(Domain().fValue, "none");
    std::ofstream(kCapabilities) << "control_d\n";
    EXPECT_EQ(Domain().fValue, "control");
    EXPECT_EQ(Domain().fReason, "");
    std::ofstream(kCapabilities).flush();  // emptied
    EXPECT_EQ(Domain().fValue, "guest");
    return 0;
  });
}

TEST(IdentityXenDomain, IsThatOfTheTreeThatIsLookedAt) {
  const hwxtest::TemporaryDirectory tree;
  const hwxtest::ScopedEnvironment root("HWX_SYSROOT", tree.Path());
  EXPECT_EQ(Domain().fValue, "none");
  hwxtest::WriteMachineFile(tree.Path(), "proc/xen/capabilities", "");
  EXPECT_EQ(Domain().fValue, "guest");
  hwxtest::WriteMachineFile(tree.Path(), "proc/xen/capabilities", "control_d\n");
  EXPECT_EQ(Domain().fValue, "control");
}

TEST(IdentityXenDomain, IsMissingWhereTheCapabilitiesCannotBeRead) {
  RunWithEmptyProc([] {
    std::ofstream(kCapabilities) << "control_d\n";
    ::chmod(kCapabilities, 0);
    if (!hwxtest::BecomeUnprivileged() || ::geteuid() == 0) return kSceneNotAllowed;
    EXPECT_FALSE(Domain().fValue);
    EXPECT_EQ(Domain().fReason, "/proc/xen/capabilities can't be read");
    return 0;
  });
}

}  // namespace
}  // namespace hwx
