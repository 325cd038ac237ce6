#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>

#include "hwxcore/diagnostics/TLogger.h"
#include "hwxcore/os/TOSSpecific.h"
#include "support/ChildProcess.h"
#include "support/FakeClock.h"
#include "support/FileText.h"
#include "support/ScopedEnvironment.h"
#include "support/SmbiosTables.h"
#include "support/TemporaryDirectory.h"

using hwxtest::FakeClock;
using hwxtest::FileText;
using hwxtest::MakeFile;
using hwxtest::RunInChild;
using hwxtest::RunScene;
using hwxtest::ScopedEnvironment;
using hwxtest::TemporaryDirectory;
using NQORHWX20::ILogger;
using NQORHWX20::TLogger;
using NQORHWX20::TOSSpecific;
using testing::UnorderedElementsAre;

namespace {

// On a machine of type 7141, at a fixed time, with the default threshold.
class SetDebugLevelTest : public testing::Test {
 protected:
  SetDebugLevelTest() {
    hwxtest::SmbiosTables tables;
    tables.AddSystem({"Maker", "Box 5 -[7141AC1]-"}).AddEnd().WriteDump(fMachine / "dump");
    TLogger::SetLogThreshold(ILogger::kHWXLogStatus);
  }
  ~SetDebugLevelTest() override { TLogger::SetLogThreshold(ILogger::kHWXLogStatus); }

  // With a prefix in the scratch directory.
  bool Set(int level, const std::string& prefix = "log_") {
    std::string path = fScratch / prefix;
    return TOSSpecific::SetDebugLevel(level, path.data());
  }

  std::vector<std::string> Files() const { return NamesIn(fScratch.Path()); }

  static std::vector<std::string> NamesIn(const std::string& directory) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory))
      names.push_back(entry.path().filename());
    return names;
  }

  TemporaryDirectory fScratch;
  TemporaryDirectory fMachine;
  ScopedEnvironment fTables{"HWX_SMBIOS_TABLES", fMachine / "dump"};
  ScopedEnvironment fZone{"TZ", "XXX-2"};
  FakeClock fClock{{FakeClock::At(2015, 7, 3, 7, 5, 2)}};
};

TEST_F(SetDebugLevelTest, SetsTheThresholdForEachOfTheFiveLevels) {
  for (int level = 0; level <= 4; ++level) {
    EXPECT_TRUE(Set(level));
    EXPECT_EQ(TLogger::GetInstance()->GetLogThreshold(), level);
  }
}

TEST_F(SetDebugLevelTest, RefusesOtherLevelsAndMakesTheFileAllTheSame) {
  for (const int level : {5, -1, 100, 101}) {
    const std::string prefix = std::to_string(level) + "_";
    EXPECT_FALSE(Set(level, prefix));
    EXPECT_EQ(TLogger::GetInstance()->GetLogThreshold(), ILogger::kHWXLogStatus);
    EXPECT_TRUE(TOSSpecific::FileExists(fScratch / (prefix + "714120150703-090502.log")));
  }
}

TEST_F(SetDebugLevelTest, LeavesAnEmptyFileNamedForTheMachineAndTheLocalTime) {
  Set(2);
  EXPECT_THAT(Files(), UnorderedElementsAre("log_714120150703-090502.log"));
  EXPECT_EQ(FileText(fScratch / "log_714120150703-090502.log"), "");
}

TEST_F(SetDebugLevelTest, EmptiesAFileThatIsThereAndLogsNothingToIt) {
  MakeFile(fScratch / "log_714120150703-090502.log", "old");
  Set(4);
  TLogger::GetInstance()->OutputLogEntry(ILogger::kHWXLogDebug, "text");
  EXPECT_EQ(FileText(fScratch / "log_714120150703-090502.log"), "");
}

TEST_F(SetDebugLevelTest, PadsEveryNumber) {
  const FakeClock clock({FakeClock::At(987, 1, 2, 1, 4, 5)});
  Set(2);
  EXPECT_THAT(Files(), UnorderedElementsAre("log_714109870102-030405.log"));
}

TEST_F(SetDebugLevelTest, TakesAPrefixAndAddsNoSeparator) {
  std::filesystem::create_directory(fScratch / "directory");
  Set(2, "directory");
  EXPECT_THAT(Files(), UnorderedElementsAre("directory", "directory714120150703-090502.log"));
  Set(2, "directory/");
  EXPECT_THAT(NamesIn(fScratch / "directory"), UnorderedElementsAre("714120150703-090502.log"));
}

TEST_F(SetDebugLevelTest, HasNoLimitOfLength) {
  const std::string directory(200, 'd');
  std::filesystem::create_directory(fScratch / directory);
  Set(2, directory + "/" + std::string(200, 'f'));
  EXPECT_THAT(NamesIn(fScratch / directory),
              UnorderedElementsAre(std::string(200, 'f') + "714120150703-090502.log"));
}

TEST_F(SetDebugLevelTest, UsesTheDefaultMachineTypeWithoutTables) {
  fTables.Set("/absent");
  Set(2);
  EXPECT_THAT(Files(), UnorderedElementsAre("log_000020150703-090502.log"));
}

TEST_F(SetDebugLevelTest, TakesThePrefixOfTheFlavourForANullPath) {
  RunScene("no right to mount", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs("/var/log")) {
      return hwxtest::kSceneNotAllowed;
    }
    std::filesystem::create_directory("/var/log/Varnok_Support");
    std::filesystem::create_directory("/var/log/OEM_Support");
    std::filesystem::current_path(fScratch.Path());
    EXPECT_TRUE(TOSSpecific::SetDebugLevel(1, nullptr));
    const std::string name = "hwx_714120150703-090502.log";
    EXPECT_THAT(NamesIn("/var/log/Varnok_Support"), UnorderedElementsAre(name));
    EXPECT_THAT(NamesIn("/var/log/OEM_Support"), testing::IsEmpty());
    std::filesystem::remove("/var/log/Varnok_Support/" + name);
    std::filesystem::create_directory("docs");
    MakeFile("docs/oem_hwx_preboot_readme.txt", "");
    EXPECT_TRUE(TOSSpecific::SetDebugLevel(1, nullptr));
    EXPECT_THAT(NamesIn("/var/log/Varnok_Support"), testing::IsEmpty());
    EXPECT_THAT(NamesIn("/var/log/OEM_Support"), UnorderedElementsAre(name));
    return 0;
  });
}

TEST_F(SetDebugLevelTest, AbortsTheProcessWithoutADirectoryAndMakesNone) {
  const int result = RunInChild([&] { return Set(2, "absent/log_") ? 0 : 1; });
  EXPECT_EQ(result, 128 + SIGABRT);
  EXPECT_FALSE(TOSSpecific::DirExists(fScratch / "absent"));
}

TEST_F(SetDebugLevelTest, AbortsTheProcessAlsoForALevelThatItRefuses) {
  const int result = RunInChild([&] { return Set(99, "absent/log_") ? 0 : 1; });
  EXPECT_EQ(result, 128 + SIGABRT);
}

TEST_F(SetDebugLevelTest, AbortsTheProcessOnAReadOnlyFileSystem) {
  const int result = RunInChild([&] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(fScratch.Path()) ||
        !hwxtest::RemountReadOnly(fScratch.Path())) {
      return hwxtest::kSceneNotAllowed;
    }
    return Set(2) ? 0 : 1;
  });
  if (result == hwxtest::kSceneNotAllowed) GTEST_SKIP() << "SKIPPED: no right to mount";
  EXPECT_EQ(result, 128 + SIGABRT);
}

TEST_F(SetDebugLevelTest, AbortsTheProcessWhereTheUserMayNotWrite) {
  std::filesystem::permissions(fScratch.Path(), std::filesystem::perms(0555));
  const int result = RunInChild([&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    return Set(2) ? 0 : 1;
  });
  std::filesystem::permissions(fScratch.Path(), std::filesystem::perms(0755));
  if (result == hwxtest::kSceneNotAllowed) GTEST_SKIP() << "SKIPPED: no right to change the user";
  EXPECT_EQ(result, 128 + SIGABRT);
}

// The full disk still takes a name.
TEST_F(SetDebugLevelTest, LeavesItsEmptyFileAlsoOnAFullDisk) {
  RunScene("no right to mount", [&] {
    if (!hwxtest::EnterPrivateMountNamespace() || !hwxtest::MountTmpfs(fScratch.Path())) {
      return hwxtest::kSceneNotAllowed;
    }
    MakeFile(fScratch / "filler", std::string(2000000, 'x'));
    EXPECT_TRUE(Set(2));
    EXPECT_THAT(Files(), UnorderedElementsAre("filler", "log_714120150703-090502.log"));
    return 0;
  });
}

// In a child, which takes along the tables that the failing call leaves open.
TEST_F(SetDebugLevelTest, PassesOnWhatTheMachineTypeThrowsAndMakesNoFile) {
  hwxtest::SmbiosTables tables;
  tables.AddSystem({"Maker", "Box-"}).AddEnd().WriteDump(fMachine / "dump");
  const int result = RunInChild([&] {
    EXPECT_THROW(Set(4), std::out_of_range);
    EXPECT_EQ(TLogger::GetInstance()->GetLogThreshold(), ILogger::kHWXLogStatus);
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_THAT(Files(), testing::IsEmpty());
}

}  // namespace
