#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "hwxcore/os/TOSSpecific.h"
#include "support/ChildProcess.h"
#include "support/Descriptors.h"
#include "support/FileMode.h"
#include "support/FileText.h"
#include "support/ScopedSignal.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::AllBytes;
using hwxtest::FileText;
using hwxtest::MakeFile;
using hwxtest::ModeOf;
using hwxtest::OpenDescriptors;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using hwxtest::ScopedSignal;
using hwxtest::TemporaryDirectory;
using NQORHWX20::TOSSpecific;

namespace {

int StatusOfFileCopy(const std::string& source, const std::string& destination) {
  return hwxtest::StatusOf([&] { TOSSpecific::FileCopy(source, destination); });
}

TEST(FileCopy, CopiesEveryByte) {
  const TemporaryDirectory scratch;
  for (const std::size_t size : {0, 1, 32767, 32768, 32769, 131071, 131072, 131073, 1000000}) {
    MakeFile(scratch / "from", AllBytes(size));
    ::unlink((scratch / "to").c_str());
    TOSSpecific::FileCopy(scratch / "from", scratch / "to");
    EXPECT_TRUE(FileText(scratch / "to") == AllBytes(size)) << size;
  }
}

TEST(FileCopy, CopiesAPseudoFileThatReportsNoSize) {
  const TemporaryDirectory scratch;
  ASSERT_EQ(TOSSpecific::GetFileSize("/proc/version"), 0);
  TOSSpecific::FileCopy("/proc/version", scratch / "to");
  EXPECT_EQ(FileText(scratch / "to"), FileText("/proc/version"));
  EXPECT_NE(FileText(scratch / "to"), "");
}

TEST(FileCopy, KeepsTheTailOfALongerFile) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "from", "new");
  MakeFile(scratch / "to", "old and longer");
  TOSSpecific::FileCopy(scratch / "from", scratch / "to");
  EXPECT_EQ(FileText(scratch / "to"), "new and longer");
}

TEST(FileCopy, LeavesAFileThatIsCopiedOntoItselfAsItIs) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", AllBytes(300000));
  TOSSpecific::FileCopy(scratch / "file", scratch / "file");
  EXPECT_TRUE(FileText(scratch / "file") == AllBytes(300000));
}

TEST(FileCopy, GivesANewFileTheModeOfTheSourceLessTheUmask) {
  const TemporaryDirectory scratch;
  const int result = RunInChild([&] {
    MakeFile(scratch / "from", "");
    ::chmod((scratch / "from").c_str(), 0757);
    ::umask(0);
    TOSSpecific::FileCopy(scratch / "from", scratch / "open");
    ::umask(027);
    TOSSpecific::FileCopy(scratch / "from", scratch / "masked");
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(ModeOf(scratch / "open"), 0757U);
  EXPECT_EQ(ModeOf(scratch / "masked"), 0750U);
}

TEST(FileCopy, LeavesTheModeOfAnOldFileAlone) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "from", "new");
  MakeFile(scratch / "to", "old");
  ::chmod((scratch / "from").c_str(), 0755);
  ::chmod((scratch / "to").c_str(), 0600);
  TOSSpecific::FileCopy(scratch / "from", scratch / "to");
  EXPECT_EQ(ModeOf(scratch / "to"), 0600U);
}

TEST(FileCopy, ThrowsFileSystemErrorWithoutASource) {
  const TemporaryDirectory scratch;
  EXPECT_EQ(StatusOfFileCopy(scratch / "absent", scratch / "to"),
            NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_FALSE(TOSSpecific::FileExists(scratch / "to"));
}

TEST(FileCopy, ThrowsFileSystemErrorWithoutAPlaceAndLeaksNothing) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "from", "text");
  const std::size_t before = OpenDescriptors();
  EXPECT_EQ(StatusOfFileCopy(scratch / "from", scratch / "absent/to"),
            NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(StatusOfFileCopy(scratch / "from", scratch.Path()),
            NQORHWX20::kHWXStatusFileSystemError);
  TOSSpecific::FileCopy(scratch / "from", scratch / "to");
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST(FileCopy, ThrowsForADirectoryAfterMakingTheDestination) {
  const TemporaryDirectory scratch;
  const std::size_t before = OpenDescriptors();
  EXPECT_EQ(StatusOfFileCopy(scratch.Path(), scratch / "to"), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(FileText(scratch / "to"), "");
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST(FileCopy, ThrowsFileSystemErrorWhereTheUserMayNotReadOrWrite) {
  const TemporaryDirectory scratch;
  ::chmod(scratch.Path().c_str(), 0777);
  MakeFile(scratch / "secret", "text");
  MakeFile(scratch / "fixed", "text");
  ::chmod((scratch / "secret").c_str(), 0);
  ::chmod((scratch / "fixed").c_str(), 0444);
  RunScene("no right to change the user", [&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(StatusOfFileCopy(scratch / "secret", scratch / "to"),
              NQORHWX20::kHWXStatusFileSystemError);
    EXPECT_FALSE(TOSSpecific::FileExists(scratch / "to"));
    EXPECT_EQ(StatusOfFileCopy("/proc/version", scratch / "fixed"),
              NQORHWX20::kHWXStatusFileSystemError);
    return 0;
  });
}

TEST(FileCopy, LeavesThePartialCopyOnAFullDisk) {
  const TemporaryDirectory scratch;
  RunScene("no right to mount", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(scratch.Path())) {
      return hwxtest::kSceneNotAllowed;
    }
    const TemporaryDirectory elsewhere;
    MakeFile(elsewhere / "from", AllBytes(3000000));
    const std::size_t before = OpenDescriptors();
    EXPECT_EQ(StatusOfFileCopy(elsewhere / "from", scratch / "to"),
              NQORHWX20::kHWXStatusFileSystemError);
    EXPECT_EQ(OpenDescriptors(), before);
    const std::string copy = FileText(scratch / "to");
    EXPECT_GT(copy.size(), 500000U);
    EXPECT_TRUE(copy == AllBytes(copy.size()));
    return 0;
  });
}

TEST(FileCopy, LeavesThePartialCopyWhereTheSourcesOwnDiskIsFull) {
  const TemporaryDirectory scratch;
  RunScene("no right to mount", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(scratch.Path())) {
      return hwxtest::kSceneNotAllowed;
    }
    MakeFile(scratch / "from", AllBytes(700000));
    EXPECT_EQ(StatusOfFileCopy(scratch / "from", scratch / "to"),
              NQORHWX20::kHWXStatusFileSystemError);
    const std::string copy = FileText(scratch / "to");
    EXPECT_GT(copy.size(), 200000U);
    EXPECT_LT(copy.size(), 400000U);
    EXPECT_TRUE(copy == AllBytes(copy.size()));
    return 0;
  });
}

TEST(FileCopy, LeavesThePartialCopyAtTheLimitOfAFilesSize) {
  const TemporaryDirectory scratch;
  const int result = RunInChild([&] {
    MakeFile(scratch / "from", AllBytes(100000));
    const ScopedSignal ignored(SIGXFSZ, SIG_IGN);
    const rlimit limit{50000, 50000};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(StatusOfFileCopy(scratch / "from", scratch / "to"),
              NQORHWX20::kHWXStatusFileSystemError);
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(FileText(scratch / "to") == AllBytes(50000));
}

// What becomes of a copy of `size` bytes where a file may have 40,000. Nothing is done about the
// signal, which ends a process that writes at the limit.
int CopyInLimit(const TemporaryDirectory& scratch, std::size_t size) {
  MakeFile(scratch / "from", AllBytes(size));
  const rlimit limit{40000, 40000};
  ::setrlimit(RLIMIT_FSIZE, &limit);
  return StatusOfFileCopy(scratch / "from", scratch / "to");
}

TEST(FileCopy, SucceedsWhereTheLimitOfAFilesSizeCutsTheLastBlockShort) {
  const TemporaryDirectory scratch;
  const int result = RunInChild([&] {
    EXPECT_EQ(CopyInLimit(scratch, 65536), NQORHWX20::kHWXStatusOK);
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(FileText(scratch / "to") == AllBytes(40000));
}

TEST(FileCopy, ThrowsWhereTheLimitOfAFilesSizeLeavesABlockOut) {
  const TemporaryDirectory scratch;
  const int result = RunInChild([&] {
    const ScopedSignal ignored(SIGXFSZ, SIG_IGN);
    EXPECT_EQ(CopyInLimit(scratch, 65537), NQORHWX20::kHWXStatusFileSystemError);
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(FileText(scratch / "to") == AllBytes(40000));
}

// With place for `pages` pages.
bool MountSmallTmpfs(const std::string& directory, std::size_t pages) {
  const std::string size = "size=" + std::to_string(pages * 4096);
  return ::mount("tmpfs", directory.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

// Runs `scene` on a tmpfs that has place for ten pages besides the source: for a block and a piece
// of the next.
template <typename Scene>
void RunOnFullDisk(std::size_t sourcePages, Scene scene) {
  const TemporaryDirectory scratch;
  RunScene("no right to mount", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() ||
        !MountSmallTmpfs(scratch.Path(), sourcePages + 10)) {
      return hwxtest::kSceneNotAllowed;
    }
    MakeFile(scratch / "from", AllBytes(sourcePages * 4096));
    scene(scratch);
    EXPECT_TRUE(FileText(scratch / "to") == AllBytes(std::size_t{10} * 4096));
    return 0;
  });
}

TEST(FileCopy, SucceedsWhereAFullDiskCutsTheLastBlockShort) {
  RunOnFullDisk(16, [](const TemporaryDirectory& scratch) {
    EXPECT_EQ(StatusOfFileCopy(scratch / "from", scratch / "to"), NQORHWX20::kHWXStatusOK);
  });
}

TEST(FileCopy, ThrowsWhereAFullDiskLeavesABlockOut) {
  RunOnFullDisk(17, [](const TemporaryDirectory& scratch) {
    EXPECT_EQ(StatusOfFileCopy(scratch / "from", scratch / "to"),
              NQORHWX20::kHWXStatusFileSystemError);
  });
}

TEST(FileCopy, ThrowsFileSystemErrorOnAReadOnlyFileSystem) {
  const TemporaryDirectory scratch;
  RunScene("no right to mount", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(scratch.Path()) ||
        !hwxtest::RemountReadOnly(scratch.Path())) {
      return hwxtest::kSceneNotAllowed;
    }
    EXPECT_EQ(StatusOfFileCopy("/proc/version", scratch / "to"),
              NQORHWX20::kHWXStatusFileSystemError);
    return 0;
  });
}

int BytesIn(int pipe) {
  int count = 0;
  ::ioctl(pipe, FIONREAD, &count);
  return count;
}

std::string TextFrom(int pipe) {
  ::fcntl(pipe, F_SETFL, 0);
  std::string text;
  char buffer[4096];
  for (ssize_t size; (size = ::read(pipe, buffer, sizeof buffer)) > 0;)
    text.append(buffer, static_cast<std::size_t>(size));
  return text;
}

int gInterruptions[2];

void TellOfAnInterruption(int) {
  [[maybe_unused]] const ssize_t written = ::write(gInterruptions[1], "", 1);
}

// A signal cuts the first write short: the pipe holds no more than a page, and its reader begins
// when the signal has been handled.
TEST(FileCopy, LosesWhatAShortWriteLeavesOfItsBlockAndGoesOn) {
  constexpr int kPage = 4096;
  constexpr std::size_t kBlock = 32768;
  const TemporaryDirectory scratch;
  const std::string text = AllBytes(5 * kBlock + 100);
  MakeFile(scratch / "from", text);
  ASSERT_EQ(::mkfifo((scratch / "to").c_str(), 0600), 0);
  const int reader = ::open((scratch / "to").c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_EQ(::fcntl(reader, F_SETPIPE_SZ, kPage), kPage);
  ASSERT_EQ(::pipe(gInterruptions), 0);
  std::string received;
  std::thread lateReader([&] {
    pid_t writer = 0;
    EXPECT_EQ(::read(gInterruptions[0], &writer, sizeof writer), static_cast<int>(sizeof writer));
    while (BytesIn(reader) < kPage)
      std::this_thread::yield();
    ::kill(writer, SIGALRM);
    char interruption;
    EXPECT_EQ(::read(gInterruptions[0], &interruption, 1), 1);
    received = TextFrom(reader);
  });
  const int result = RunInChild([&] {
    const ScopedSignal alarm(SIGALRM, &TellOfAnInterruption);
    const pid_t self = ::getpid();
    EXPECT_EQ(::write(gInterruptions[1], &self, sizeof self), static_cast<int>(sizeof self));
    EXPECT_EQ(StatusOfFileCopy(scratch / "from", scratch / "to"), NQORHWX20::kHWXStatusOK);
    return 0;
  });
  lateReader.join();
  for (const int descriptor : {reader, gInterruptions[0], gInterruptions[1]})
    ::close(descriptor);
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(received == text.substr(0, kPage) + text.substr(kBlock)) << received.size();
}

}  // namespace
