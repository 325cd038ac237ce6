#include "providers/linux/FileSystems.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <functional>

#include "support/ChildProcess.h"
#include "support/Machines.h"
#include "support/TemporaryDirectory.h"

using namespace std::string_literals;

namespace hwxtest {

namespace {

using namespace linux_machine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TMount Mount(const std::string& mountPoint, const std::string& type) {
  return {1, "0:1", "/", mountPoint, "rw", type, "none"};
}

std::vector<std::string> MountPoints(const std::vector<TMount>& mounts) {
  std::vector<std::string> points;
  for (const TMount& mount : mounts) {
    points.push_back(mount.fMountPoint);
  }
  return points;
}

bool IsSafe(const std::vector<TMount>& mounts) {
  return IsSafeToAsk(mounts.back(), mounts);
}

const TFileSystem* Find(const std::vector<TFileSystem>& systems, const std::string& name) {
  const auto found = std::find_if(systems.begin(), systems.end(),
                                  [&name](const auto& system) { return system.fName == name; });
  return found == systems.end() ? nullptr : &*found;
}

// A file system whose program never answers. The descriptor is left open: closing it would fail
// all that wait.
bool MountUnansweringFileSystem(const std::string& directory) {
  const int device = ::open("/dev/fuse", O_RDWR);
  const std::string options =
      "fd=" + std::to_string(device) + ",rootmode=40000,user_id=0,group_id=0";
  return device >= 0 && ::mount("dead", directory.c_str(), "fuse", 0, options.c_str()) == 0;
}

TEST(FileSystems, AreWhatHoldsFilesAndIsNotHidden) {
  const std::vector<TMount> mounts = {
      Mount("/", "rootfs"),   Mount("/", "ext4"),     Mount("/proc", "proc"),
      Mount("/mnt", "nfs4"),  Mount("/mnt", "xfs"),   Mount("/net", "autofs"),
      Mount("/run", "tmpfs"), Mount("/data", "fuse"), Mount("/sys/fs/cgroup", "cgroup2"),
  };
  EXPECT_THAT(MountPoints(SelectFileSystems(mounts)), ElementsAre("/", "/mnt", "/run", "/data"));
  EXPECT_EQ(SelectFileSystems(mounts)[1].fType, "xfs");
}

TEST(FileSystems, AreSafeToAskOnThisMachineAlone) {
  EXPECT_TRUE(IsSafe({Mount("/", "ext4"), Mount("/proc", "proc"), Mount("/data", "xfs")}));
  for (const char* type : {"nfs", "nfs4", "cifs", "fuse.sshfs", "fuse", "fuseblk", "9p", "ceph",
                           "autofs", "virtiofs", "", "of the future"}) {
    EXPECT_FALSE(IsSafe({Mount("/", "ext4"), Mount("/data", type)})) << type;
  }
}

TEST(FileSystems, AreNotAskedWhereTheWayLeadsThroughAnother) {
  EXPECT_FALSE(IsSafe({Mount("/net", "nfs"), Mount("/net/a/b", "ext4")}));
  EXPECT_FALSE(IsSafe({Mount("/", "nfs"), Mount("/data", "ext4")}));
  EXPECT_FALSE(IsSafe({Mount("/net", "nfs"), Mount("/net", "ext4")}));
  EXPECT_TRUE(IsSafe({Mount("/net", "nfs"), Mount("/network", "ext4")}));
  EXPECT_TRUE(IsSafe({Mount("/net/a", "nfs"), Mount("/net", "ext4")}));
}

TEST(FileSystems, OfAnotherRootHaveNoSizes) {
  const TemporaryDirectory directory;
  WriteMachineFile(directory.Path(), "proc/self/mountinfo",
                   "27 1 254:0 / / ro,relatime - ext4 /dev/vda rw\n"
                   "28 1 0:1 /@home /home rw,errors=ro - btrfs /dev/vdb rw\n"
                   "29 1 0:2 / /tmp rw - tmpfs tmpfs rw\n"
                   "30 1 0:3 / /net rw - nfs host:/x rw\n");
  const auto systems = ReadFileSystems(directory.Path());
  ASSERT_EQ(systems.size(), 4u);
  EXPECT_EQ(systems[0].fName, "/");
  EXPECT_EQ(systems[0].fType, "ext4");
  EXPECT_EQ(systems[0].fSource, "/dev/vda");
  EXPECT_TRUE(systems[0].fReadOnly);
  EXPECT_EQ(systems[0].fPersistence, 2);
  EXPECT_FALSE(systems[0].fSize);
  EXPECT_EQ(systems[1].fRoot, "/@home");
  EXPECT_FALSE(systems[1].fReadOnly);
  EXPECT_EQ(systems[2].fPersistence, 3);
  EXPECT_FALSE(systems[3].fPersistence);
}

TEST(FileSystems, AreNoneWithoutAList) {
  EXPECT_THAT(ReadFileSystems(TemporaryDirectory().Path()), IsEmpty());
}

TEST(FileSystems, OfThisMachineHaveTheSizesThatTheKernelTells) {
  const TemporaryDirectory directory;
  RunScene("this user may not mount here", [&directory] {
    if (!EnterPrivateMountNamespace() || !MountTmpfs(directory.Path())) {
      return kSceneNotAllowed;
    }
    const auto systems = ReadFileSystems("");
    const TFileSystem* system = Find(systems, directory.Path());
    EXPECT_NE(system, nullptr);
    if (system != nullptr) {
      EXPECT_EQ(system->fSize, 1u << 20);
      EXPECT_EQ(system->fAvailable, 1u << 20);
      EXPECT_EQ(system->fMaxNameLength, 255u);
      EXPECT_EQ(system->fFiles, 1u);
      EXPECT_FALSE(system->fReadOnly);
    }
    return 0;
  });
}

TEST(FileSystems, HiddenByALaterMountHaveNoSizes) {
  const TemporaryDirectory directory;
  const std::string inner = directory / "inner";
  std::filesystem::create_directory(inner);
  RunScene("this user may not mount here", [&] {
    if (!EnterPrivateMountNamespace() || !MountTmpfs(inner) || !MountTmpfs(directory.Path())) {
      return kSceneNotAllowed;
    }
    std::filesystem::create_directory(inner);  // of the same name, in the mount that hides
    const auto systems = ReadFileSystems("");
    const TFileSystem* hidden = Find(systems, inner);
    const TFileSystem* hiding = Find(systems, directory.Path());
    EXPECT_TRUE(hidden != nullptr && !hidden->fSize);
    EXPECT_TRUE(hiding != nullptr && hiding->fSize);
    return 0;
  });
}

TEST(FileSystems, AreListedBesideOneThatNeverAnswers) {
  const TemporaryDirectory directory;
  const std::string dead = directory / "dead";
  const std::string alive = directory / "alive";
  std::filesystem::create_directory(dead);
  std::filesystem::create_directory(alive);
  const auto run = [&](const std::function<int()>& body, unsigned int seconds) {
    return RunInChild([&] {
      if (!EnterPrivateMountNamespace() || !MountUnansweringFileSystem(dead) ||
          !MountTmpfs(alive)) {
        return kSceneNotAllowed;
      }
      ::alarm(seconds);
      return body();
    });
  };
  const auto ask = [&dead] {
    struct statvfs status {};
    return ::statvfs(dead.c_str(), &status);
  };
  const int asking = run(ask, 1);
  if (asking == kSceneNotAllowed) GTEST_SKIP() << "this user may not mount /dev/fuse";
  ASSERT_EQ(asking, 128 + SIGALRM) << "it answered";
  const auto list = [&] {
    const auto systems = ReadFileSystems("");
    const TFileSystem* unanswering = Find(systems, dead);
    const TFileSystem* answering = Find(systems, alive);
    EXPECT_TRUE(unanswering != nullptr && !unanswering->fSize);
    EXPECT_TRUE(answering != nullptr && answering->fSize);
    return 0;
  };
  EXPECT_EQ(run(list, 60), 0);
}

}  // namespace

}  // namespace hwxtest
