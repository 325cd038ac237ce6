#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "hwxcore/diagnostics/TLogger.h"
#include "hwxcore/os/TOSSpecific.h"
#include "support/ChildProcess.h"
#include "support/Descriptors.h"
#include "support/FileText.h"
#include "support/MemoryLimit.h"
#include "support/Sanitizers.h"
#include "support/ScopedLogCapture.h"
#include "support/ScopedSignal.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::AllBytes;
using hwxtest::MakeFile;
using hwxtest::OpenDescriptors;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using hwxtest::ScopedLogCapture;
using hwxtest::StatusOf;
using hwxtest::TemporaryDirectory;
using NQORHWX20::ILogger;
using NQORHWX20::TLogger;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

const std::string kReturned = "Debug (linux toss): GetFileContents() Returned: ";
const std::string kReadFailed = "GetFileContents failed to read file ";
const std::string kOpenFailed = "ERROR: CaptureFile failed to open: ";
const std::string kLoaderOpenFailed = "CaptureFile failed to open: ";
const std::string kConfirm =
    "Please confirm that the related software/driver is properly installed.";

int StatusOfCaptureFile(const std::string& path) {
  return StatusOf([&] { TOSSpecific::CaptureFile(path); });
}

int StatusOfCaptureFileLoader(const std::string& path) {
  return StatusOf([&] { TOSSpecific::CaptureFileLoader(path, true); });
}

TEST(GetFileContents, ReadsFromThePlaceWhereTheDescriptorStandsAndLeavesItOpen) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "skipped rest");
  const int file = ::open((scratch / "file").c_str(), O_RDONLY);
  ::lseek(file, 8, SEEK_SET);
  EXPECT_EQ(TOSSpecific::GetFileContents(file, "name", false), "rest");
  EXPECT_EQ(TOSSpecific::GetFileContents(file, "name", false), "");
  EXPECT_EQ(::close(file), 0);
}

TEST(GetFileContents, ReadsAPipeToItsEnd) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ASSERT_EQ(::write(ends[1], "a\0b", 3), 3);
  ::close(ends[1]);
  EXPECT_EQ(TOSSpecific::GetFileContents(ends[0], "name", false), std::string("a\0b", 3));
  ::close(ends[0]);
}

TEST(GetFileContents, LogsTheContentsIfItIsTold) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "text");
  const int file = ::open((scratch / "file").c_str(), O_RDONLY);
  const ScopedLogCapture log;
  TOSSpecific::GetFileContents(file, "name", true);
  TOSSpecific::GetFileContents(file, "name", false);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", kReturned + "text")));
  ::close(file);
}

TEST(GetFileContents, ThrowsFileSystemErrorAfterAStatusLineWithTheName) {
  const ScopedLogCapture log;
  EXPECT_EQ(StatusOf([] { TOSSpecific::GetFileContents(-1, "the name", true); }),
            NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Status", kReadFailed + "the name")));
}

TEST(GetFileContents, FailsWhenASignalInterruptsTheRead) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ASSERT_EQ(::write(ends[1], "early", 5), 5);
  const hwxtest::ScopedAlarms alarms;
  const ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { TOSSpecific::GetFileContents(ends[0], "pipe", true); }),
            NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Status", kReadFailed + "pipe")));
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST(CaptureFile, KeepsEveryByte) {
  const TemporaryDirectory scratch;
  const std::size_t before = OpenDescriptors();
  for (const std::size_t size : {0, 1, 4095, 4096, 4097, 65536, 70000, 1100000, 3000000}) {
    MakeFile(scratch / "file", AllBytes(size));
    EXPECT_TRUE(TOSSpecific::CaptureFile(scratch / "file") == AllBytes(size)) << size;
    EXPECT_TRUE(TOSSpecific::CaptureFileLoader(scratch / "file", false) == AllBytes(size)) << size;
  }
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST(CaptureFile, ReadsAPseudoFileThatReportsNoSize) {
  ASSERT_EQ(TOSSpecific::GetFileSize("/proc/version"), 0);
  EXPECT_THAT(TOSSpecific::CaptureFile("/proc/version"), testing::HasSubstr("Linux"));
  EXPECT_THAT(TOSSpecific::CaptureFileLoader("/proc/version", false), testing::HasSubstr("Linux"));
}

TEST(CaptureFile, ReadsALargeFileWhereMemoryIsShort) {
#ifdef HWXTESTS_ADDRESS_SANITIZER
  GTEST_SKIP() << "SKIPPED: the sanitizer ends a process that has no memory left";
#endif
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", std::string(20000000, 'x'));
  const int result = RunInChild([&] {
    hwxtest::LimitMemoryTo(100 << 20);
    EXPECT_EQ(TOSSpecific::CaptureFile(scratch / "file").size(), 20000000U);
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(CaptureFile, ReadsBehindMoreThanAThousandDescriptors) {
  RunScene("too few descriptors allowed", [] {
    if (!hwxtest::LimitDescriptors(2000)) return hwxtest::kSceneNotAllowed;
    for (int descriptor = 0; descriptor < 1500;)
      descriptor = ::open("/dev/null", O_RDONLY);
    EXPECT_THAT(TOSSpecific::CaptureFile("/proc/version"), testing::HasSubstr("Linux"));
    return 0;
  });
}

TEST(CaptureFile, ThrowsFileNotFoundWhenNoDescriptorIsLeft) {
  const int result = RunInChild([] {
    StatusOfCaptureFile("/absent");  // for UBSan, see LimitDescriptors
    hwxtest::LimitDescriptors(0);
    EXPECT_EQ(StatusOfCaptureFile("/proc/version"), NQORHWX20::kHWXStatusFileNotFound);
    return 0;
  });
  EXPECT_EQ(result, 0);
}

TEST(CaptureFile, OffersTheContentsToTheLogAtDebugLevel) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "two\nlines");
  const ScopedLogCapture log;
  TOSSpecific::CaptureFile(scratch / "file");
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", kReturned + "two\nlines")));
}

TEST(CaptureFile, ThrowsFileNotFoundAfterAnErrorLine) {
  const TemporaryDirectory scratch;
  const ScopedLogCapture log;
  EXPECT_EQ(StatusOfCaptureFile(scratch / "absent"), NQORHWX20::kHWXStatusFileNotFound);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", kOpenFailed + (scratch / "absent"))));
}

TEST(CaptureFile, ThrowsFileNotFoundAlsoWhereTheUserMayNotRead) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "secret", "text");
  ::chmod(scratch.Path().c_str(), 0755);
  ::chmod((scratch / "secret").c_str(), 0);
  RunScene("no right to change the user", [&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(StatusOfCaptureFile(scratch / "secret"), NQORHWX20::kHWXStatusFileNotFound);
    EXPECT_EQ(StatusOfCaptureFileLoader(scratch / "secret"), NQORHWX20::kHWXStatusFileSystemError);
    return 0;
  });
}

TEST(CaptureFile, ThrowsFileSystemErrorForADirectoryAndLeavesItOpen) {
  const TemporaryDirectory scratch;
  const ScopedLogCapture log;
  const std::size_t before = OpenDescriptors();
  EXPECT_EQ(StatusOfCaptureFile(scratch.Path()), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(OpenDescriptors(), before + 1);
  EXPECT_EQ(StatusOfCaptureFileLoader(scratch.Path()), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_EQ(OpenDescriptors(), before + 2);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Status", kReadFailed + scratch.Path()),
                                       Pair("Status", kReadFailed + scratch.Path())));
}

TEST(CaptureFileLoader, LogsTheContentsIfItIsTold) {
  const TemporaryDirectory scratch;
  MakeFile(scratch / "file", "text");
  const ScopedLogCapture log;
  TOSSpecific::CaptureFileLoader(scratch / "file", false);
  EXPECT_THAT(log.Lines(), IsEmpty());
  TOSSpecific::CaptureFileLoader(scratch / "file", true);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", kReturned + "text")));
}

TEST(CaptureFileLoader, ThrowsFileSystemErrorForAMissingFileAfterThreeLines) {
  const TemporaryDirectory scratch;
  const std::string path = scratch / "absent";
  const ScopedLogCapture log;
  EXPECT_EQ(StatusOfCaptureFileLoader(path), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Debug", kLoaderOpenFailed + path), Pair("Debug", kConfirm),
                          Pair("Status", kReadFailed + path)));
}

class CapFileViaProcTest : public testing::Test {
 protected:
  // Runs a shell with `script`, where $0 is the file, and captures that.
  void Capture(const std::string& script) {
    TOSSpecific::CapFileViaProc("sh", {"-c", script, fPath}, fPath, fContents);
  }

  TemporaryDirectory fScratch;
  std::string fPath = fScratch / "file";
  std::string fContents = "before";
};

TEST_F(CapFileViaProcTest, DeliversTheFileThatTheProgramWritesAndNotItsOutput) {
  Capture("echo printed; echo complained >&2; printf 'a\\000b' >$0");
  EXPECT_EQ(fContents, std::string("a\0b", 3));
}

TEST_F(CapFileViaProcTest, DeliversTheFileOfAProgramThatFails) {
  Capture("echo text >$0; exit 1");
  EXPECT_EQ(fContents, "text\n");
  Capture("echo other >$0; kill -KILL $$");
  EXPECT_EQ(fContents, "other\n");
}

TEST_F(CapFileViaProcTest, DeliversAFileThatWasThereEvenWithoutAProgram) {
  MakeFile(fPath, "old");
  TOSSpecific::CapFileViaProc("no-such-program", {}, fPath, fContents);
  EXPECT_EQ(fContents, "old");
}

TEST_F(CapFileViaProcTest, GivesNothingAndLogsWhyIfThereIsNoFile) {
  const ScopedLogCapture log;
  Capture("true");
  EXPECT_EQ(fContents, "");
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "SpawnProcess: process sh"),
                                       Pair("Error", kOpenFailed + fPath),
                                       Pair("Error",
                                            "failed to capture file content due to exception: "
                                            "kHWXStatusFileNotFound")));
}

TEST_F(CapFileViaProcTest, GivesNothingAndLogsWhyIfTheFileCannotBeRead) {
  const ScopedLogCapture log;
  Capture("mkdir $0");
  EXPECT_EQ(fContents, "");
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "SpawnProcess: process sh"),
                                       Pair("Status", kReadFailed + fPath),
                                       Pair("Error",
                                            "failed to capture file content due to exception: "
                                            "kHWXStatusFileSystemError")));
}

TEST_F(CapFileViaProcTest, ThrowsIfNoChildCanBeMade) {
  MakeFile(fPath, "old");
  RunScene("children can't be forbidden", [&] {
    const rlimit none{0, 0};
    if (!hwxtest::BecomeUnprivileged() || ::setrlimit(RLIMIT_NPROC, &none) != 0) {
      return hwxtest::kSceneNotAllowed;
    }
    const int status = StatusOf([&] { Capture("true"); });
    if (status == NQORHWX20::kHWXStatusOK) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(status, NQORHWX20::kHWXStatusFail);
    EXPECT_EQ(fContents, "before");
    return 0;
  });
}

// Gives the calling child a /proc of its own, with nothing in it but the directory xen.
bool EnterEmptyProc() {
  return hwxtest::EnterPrivateMountNamespace() && hwxtest::MountTmpfs("/proc") &&
         std::filesystem::create_directory("/proc/xen");
}

TEST(GetRunningTypeOnXen, IsTwoWithoutXen) {
  if (TOSSpecific::DirExists("/proc/xen")) GTEST_SKIP() << "SKIPPED: this machine runs on Xen";
  const ScopedLogCapture log;
  EXPECT_EQ(TOSSpecific::GetRunningTypeOnXen(), 2);
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST(GetRunningTypeOnXen, TellsTheDomainsByTheCapabilities) {
  RunScene("no right to mount", [] {
    if (!EnterEmptyProc()) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(TOSSpecific::GetRunningTypeOnXen(), 2);
    for (const char* const text : {"control_d", "control_d\n", "a control_data b"}) {
      MakeFile("/proc/xen/capabilities", text);
      EXPECT_EQ(TOSSpecific::GetRunningTypeOnXen(), 0) << text;
    }
    for (const char* const text : {"", "\n", "control", "CONTROL_D"}) {
      MakeFile("/proc/xen/capabilities", text);
      EXPECT_EQ(TOSSpecific::GetRunningTypeOnXen(), 1) << text;
    }
    std::filesystem::remove("/proc/xen/capabilities");
    std::filesystem::create_directory("/proc/xen/capabilities");
    EXPECT_EQ(TOSSpecific::GetRunningTypeOnXen(), 2);
    return 0;
  });
}

TEST(GetRunningTypeOnXen, ThrowsIfTheCapabilitiesCannotBeRead) {
  RunScene("no right to mount", [] {
    if (!EnterEmptyProc()) return hwxtest::kSceneNotAllowed;
    MakeFile("/proc/xen/capabilities", "control_d");
    ::chmod("/proc/xen/capabilities", 0);
    if (!hwxtest::BecomeUnprivileged() || ::geteuid() == 0) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(StatusOf(&TOSSpecific::GetRunningTypeOnXen), NQORHWX20::kHWXStatusFileNotFound);
    return 0;
  });
}

}  // namespace
