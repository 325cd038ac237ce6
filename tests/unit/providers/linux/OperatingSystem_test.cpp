#include "providers/linux/OperatingSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/utsname.h>
#include <unistd.h>

#include "support/Machines.h"
#include "support/TemporaryDirectory.h"

namespace linux_machine {

namespace {

using ::testing::Gt;
using ::testing::Optional;

using namespace std::string_literals;

class OperatingSystem : public ::testing::Test {
 protected:
  TOperatingSystem Read() { return ReadOperatingSystem(fDirectory.Path()); }
  void Write(const std::string& path, const std::string& text) {
    hwxtest::WriteMachineFile(fDirectory.Path(), path, text);
  }

  hwxtest::TemporaryDirectory fDirectory;
};

TEST_F(OperatingSystem, OfAWholeMachineIsKnownInAllParts) {
  hwxtest::AddDebian(fDirectory.Path(), "host");
  const TOperatingSystem system = Read();
  EXPECT_EQ(system.fName, "Debian GNU/Linux");
  EXPECT_THAT(system.fVersion, Optional("12"s));
  EXPECT_THAT(system.fDescription, Optional("Debian GNU/Linux 12 (bookworm)"s));
  EXPECT_THAT(system.fKernelRelease, Optional("6.1.0-13-amd64"s));
  EXPECT_THAT(system.fBootTime, Optional(1700000000u));
  EXPECT_THAT(system.fMemory.fTotal, Optional(16777216u));
  EXPECT_THAT(system.fUsers, Optional(2u));
  EXPECT_THAT(system.fProcesses, Optional(3u));
  EXPECT_THAT(system.fMaxProcesses, Optional(4194304u));
}

TEST_F(OperatingSystem, OfAnEmptyDirectoryIsLinuxAndNothingElse) {
  const TOperatingSystem system = Read();
  EXPECT_EQ(system.fName, "Linux");
  EXPECT_EQ(system.fVersion, std::nullopt);
  EXPECT_EQ(system.fDescription, std::nullopt);
  EXPECT_EQ(system.fKernelRelease, std::nullopt);
  EXPECT_EQ(system.fBootTime, std::nullopt);
  EXPECT_EQ(system.fMemory.fTotal, std::nullopt);
  EXPECT_EQ(system.fUsers, std::nullopt);
  EXPECT_EQ(system.fProcesses, std::nullopt);
  EXPECT_EQ(system.fMaxProcesses, std::nullopt);
  EXPECT_EQ(ReadHostName(fDirectory.Path()), "(none)");
}

TEST_F(OperatingSystem, NameFallsBackToThePrettyName) {
  Write("etc/os-release", "PRETTY_NAME='Pretty 5'\nNAME=\n");
  EXPECT_EQ(Read().fName, "Pretty 5");
}

TEST_F(OperatingSystem, VersionOfARollingDistributionIsTheKernels) {
  Write("etc/os-release", "NAME=Rolling\n");
  Write("proc/sys/kernel/osrelease", "6.9.1\n");
  EXPECT_THAT(Read().fVersion, Optional("6.9.1"s));
}

TEST_F(OperatingSystem, ReleaseFileMayLieBelowUsr) {
  Write("usr/lib/os-release", "NAME=Vendor\n");
  EXPECT_EQ(Read().fName, "Vendor");
  Write("etc/os-release", "NAME=Own\n");
  EXPECT_EQ(Read().fName, "Own");
}

TEST_F(OperatingSystem, LimitOfProcessesThatFitsNoFieldIsMissing) {
  Write("proc/sys/kernel/pid_max", "4294967295\n");
  EXPECT_THAT(Read().fMaxProcesses, Optional(4294967295u));
  Write("proc/sys/kernel/pid_max", "4294967296\n");
  EXPECT_EQ(Read().fMaxProcesses, std::nullopt);
}

TEST_F(OperatingSystem, ProcessesAreTheEntriesThatAreNumbers) {
  for (const char* name : {"1", "23", "4x", "self", "sys"}) {
    Write("proc/"s + name + "/comm", "");
  }
  EXPECT_THAT(Read().fProcesses, Optional(2u));
}

TEST_F(OperatingSystem, NoSessionsIsANumberToo) {
  Write("run/utmp", "");
  EXPECT_THAT(Read().fUsers, Optional(0u));
}

TEST_F(OperatingSystem, HostNameIsTheKernelsBeforeTheConfiguredOne) {
  Write("etc/hostname", "configured\n");
  EXPECT_EQ(ReadHostName(fDirectory.Path()), "configured");
  Write("proc/sys/kernel/hostname", "running\n");
  EXPECT_EQ(ReadHostName(fDirectory.Path()), "running");
  Write("proc/sys/kernel/hostname", "\n");
  EXPECT_EQ(ReadHostName(fDirectory.Path()), "configured");
}

TEST_F(OperatingSystem, OfABrokenMachineIsReadAsFarAsItGoes) {
  hwxtest::MakeBrokenMachine(fDirectory.Path());
  const TOperatingSystem system = Read();
  EXPECT_EQ(system.fName, "Linux");
  EXPECT_EQ(system.fMaxProcesses, std::nullopt);
  EXPECT_THAT(system.fUsers, Optional(1u));
  EXPECT_EQ(ReadHostName(fDirectory.Path()), "(none)");
}

TEST(RunningSystem, IsReadWithoutARoot) {
  struct utsname expected {};
  ASSERT_EQ(::uname(&expected), 0);
  const TOperatingSystem system = ReadOperatingSystem("");
  EXPECT_EQ(ReadHostName(""), expected.nodename);
  EXPECT_THAT(system.fKernelRelease, Optional(std::string(expected.release)));
  EXPECT_THAT(system.fProcesses, Optional(Gt(0u)));
  EXPECT_THAT(system.fMemory.fTotal, Optional(Gt(0u)));
  EXPECT_THAT(system.fBootTime, Optional(Gt(0u)));
}

}  // namespace

}  // namespace linux_machine
