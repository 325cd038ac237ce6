#include "providers/linux/Processors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Machines.h"
#include "support/ScopedEnvironment.h"
#include "support/Structures.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

namespace {

using namespace linux_machine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::SizeIs;

std::string CpuInfo(int number, int package, int core) {
  return "processor\t: " + std::to_string(number) +
         "\nvendor_id\t: GenuineExample\nmodel name\t: Example(R) CPU @ 2.50GHz\nstepping\t: 7\n"
         "cpu MHz\t\t: 2499.998\nphysical id\t: " +
         std::to_string(package) + "\ncore id\t\t: " + std::to_string(core) +
         "\nflags\t\t: fpu lm nx\naddress sizes\t: 46 bits physical, 48 bits virtual\n\n";
}

// Two packages with two cores each, of two threads each; threads of a core stand apart.
std::string TwoPackages() {
  std::string text;
  for (int number = 0; number < 8; ++number) {
    text += CpuInfo(number, number / 2 % 2, number % 2);
  }
  return text;
}

// A populated socket with a central processor.
Bytes Socket() {
  Bytes fields(0x30 - 4);
  PutField(fields, 0x04, 1, 1);
  PutField(fields, 0x05, 1, 3);
  PutField(fields, 0x06, 1, 0xB3);
  PutField(fields, 0x07, 1, 2);
  PutField(fields, 0x10, 1, 3);
  PutField(fields, 0x12, 2, 100);
  PutField(fields, 0x14, 2, 4000);
  PutField(fields, 0x16, 2, 2500);
  PutField(fields, 0x18, 1, 0x41);
  PutField(fields, 0x19, 1, 0x2B);
  PutField(fields, 0x24, 1, 12);
  PutField(fields, 0x25, 1, 24);
  PutField(fields, 0x26, 2, 0b11111100);
  return fields;
}

std::vector<TProcessor> Packages(const std::string& cpuInfo) {
  return GroupProcessors(ParseCpuInfo(cpuInfo).fProcessors);
}

std::optional<TProcessor> ParsedSocket(const Bytes& fields) {
  return ParseProcessor(MadeStructure(4, fields, {"CPU 1", "EXMPL", "Example CPU"}).Get(), 0);
}

TEST(Processors, GroupThreadsToCoresAndPackages) {
  const auto packages = Packages(TwoPackages());
  ASSERT_EQ(packages.size(), 2u);
  for (const TProcessor& package : packages) {
    EXPECT_EQ(package.fEnabledCores, 2);
    EXPECT_EQ(package.fThreads, 4u);
    EXPECT_EQ(package.fName, "Example(R) CPU @ 2.50GHz");
    EXPECT_EQ(package.fManufacturer, "GenuineExample");
    EXPECT_EQ(package.fStepping, "7");
    EXPECT_EQ(package.fCurrentClockSpeed, 2499u);
    EXPECT_EQ(package.fAddressWidth, 46);
    EXPECT_EQ(package.fDataWidth, 64);
    EXPECT_EQ(package.fStatus, 1);
  }
  EXPECT_EQ(packages[0].fDeviceID, "CPU0");
  EXPECT_EQ(packages[1].fDeviceID, "CPU1");
}

TEST(Processors, CountEachAsACoreOfOnePackageWhereNothingIsSaid) {
  const auto packages = Packages("processor : 0\n\nprocessor : 1\n");
  ASSERT_EQ(packages.size(), 1u);
  EXPECT_EQ(packages[0].fEnabledCores, 2);
  EXPECT_EQ(packages[0].fThreads, 2u);
  EXPECT_FALSE(packages[0].fName);
  EXPECT_FALSE(packages[0].fCurrentClockSpeed);
  EXPECT_FALSE(packages[0].fDataWidth);
}

TEST(ProcessorSocket, TellsAllFields) {
  const TProcessor processor = ParsedSocket(Socket()).value();
  EXPECT_EQ(processor.fSocket, "CPU 1");
  EXPECT_EQ(processor.fManufacturer, "EXMPL");
  EXPECT_EQ(processor.fName, "Example CPU");
  EXPECT_EQ(processor.fFamily, 0xB3);
  EXPECT_EQ(processor.fUpgradeMethod, 0x2B);
  EXPECT_EQ(processor.fExternalBusClockSpeed, 100u);
  EXPECT_EQ(processor.fMaxClockSpeed, 4000u);
  EXPECT_EQ(processor.fCurrentClockSpeed, 2500u);
  EXPECT_EQ(processor.fStatus, 1);
  EXPECT_EQ(processor.fEnabledCores, 12);
  EXPECT_EQ(processor.fThreads, 24u);
  EXPECT_THAT(processor.fCharacteristics, Optional(ElementsAre(2, 5, 6, 4, 7)));
}

TEST(ProcessorSocket, IsNoneWhenEmptyOrOfAnotherKindOrCutOff) {
  Bytes empty = Socket();
  PutField(empty, 0x18, 1, 0x01);
  EXPECT_FALSE(ParsedSocket(empty));
  Bytes video = Socket();
  PutField(video, 0x05, 1, 6);
  EXPECT_FALSE(ParsedSocket(video));
  for (std::size_t size = 0; size < 0x19 - 4; ++size) {
    Bytes cut = Socket();
    cut.resize(size);
    EXPECT_FALSE(ParsedSocket(cut)) << size;
  }
}

TEST(ProcessorSocket, HasTheWideNumbersWhereTheOthersDoNotFit) {
  Bytes fields = Socket();
  PutField(fields, 0x06, 1, 0xFE);
  PutField(fields, 0x24, 1, 0xFF);
  PutField(fields, 0x25, 1, 0xFF);
  PutField(fields, 0x28, 2, 0x101);
  PutField(fields, 0x2C, 2, 300);
  PutField(fields, 0x2E, 2, 600);
  const TProcessor processor = ParsedSocket(fields).value();
  EXPECT_EQ(processor.fFamily, 0x101);
  EXPECT_EQ(processor.fEnabledCores, 300);
  EXPECT_EQ(processor.fThreads, 600u);
}

TEST(Processors, TakeWhatTheyMissFromTheirSockets) {
  auto packages = Packages(TwoPackages());
  const TProcessor socket = ParsedSocket(Socket()).value();
  packages = MergeProcessors(packages, {socket, socket});
  EXPECT_EQ(packages[1].fSocket, "CPU 1");
  EXPECT_EQ(packages[1].fMaxClockSpeed, 4000u);
  EXPECT_EQ(packages[1].fName, "Example(R) CPU @ 2.50GHz");
  EXPECT_EQ(packages[1].fEnabledCores, 2);
  EXPECT_EQ(packages[1].fDeviceID, "CPU1");
}

TEST(Processors, TakeNothingWhereTheSocketsAreOthers) {
  const auto packages = Packages(TwoPackages());
  const TProcessor socket = ParsedSocket(Socket()).value();
  EXPECT_FALSE(MergeProcessors(packages, {socket})[0].fSocket);
}

class ReadingProcessors : public ::testing::Test {
 protected:
  void Write(const std::string& path, const std::string& text) {
    WriteMachineFile(fDirectory.Path(), path, text);
  }
  std::vector<TProcessor> Read() { return ReadProcessors(fDirectory.Path()); }

  const TemporaryDirectory fDirectory;
  ScopedEnvironment fTables{"HWX_SMBIOS_TABLES", std::nullopt};
};

TEST_F(ReadingProcessors, PrefersTheTopologyAndTheSpeedsOfSys) {
  Write("proc/cpuinfo", "processor : 0\ncpu MHz : 1000.0\n\nprocessor : 1\n\nprocessor : 2\n");
  for (const char* number : {"0", "1", "2"}) {
    const std::string directory = std::string("sys/devices/system/cpu/cpu") + number;
    Write(directory + "/topology/physical_package_id", number[0] == '2' ? "-1\n" : "0\n");
    Write(directory + "/topology/thread_siblings_list", number[0] == '2' ? "2\n" : "0-1\n");
  }
  Write("sys/devices/system/cpu/cpu0/cpufreq/cpuinfo_max_freq", "3500000\n");
  Write("sys/devices/system/cpu/cpu0/cpufreq/scaling_cur_freq", "1200000\n");
  Write("sys/devices/system/cpu/cpu2/cpufreq/scaling_cur_freq", "18446744073709551615\n");
  const auto processors = Read();
  ASSERT_EQ(processors.size(), 2u);
  EXPECT_EQ(processors[0].fEnabledCores, 1);
  EXPECT_EQ(processors[0].fThreads, 2u);
  EXPECT_EQ(processors[0].fMaxClockSpeed, 3500u);
  EXPECT_EQ(processors[0].fCurrentClockSpeed, 1200u);
  EXPECT_EQ(processors[1].fEnabledCores, 1);
  EXPECT_FALSE(processors[1].fCurrentClockSpeed);
}

TEST_F(ReadingProcessors, FindsThoseOfSysWhereCpuinfoNumbersNone) {
  Write("proc/cpuinfo", "vendor_id : IBM/S390\nprocessor 0: version = 00,  machine = 2964\n");
  for (int number = 0; number < 12; ++number) {
    const std::string directory = "sys/devices/system/cpu/cpu" + std::to_string(number);
    Write(directory + "/online", number == 11 ? "0\n" : "1\n");
    Write(directory + "/topology/physical_package_id", "-1\n");
    Write(directory + "/topology/core_siblings_list", number < 8 ? "0-7\n" : "8-10\n");
    Write(directory + "/topology/thread_siblings_list", std::to_string(number / 2) + "\n");
  }
  Write("sys/devices/system/cpu/cpufreq/x", "");
  const auto processors = Read();
  ASSERT_EQ(processors.size(), 2u);
  EXPECT_EQ(processors[0].fName, "Machine type 2964");
  EXPECT_EQ(processors[0].fManufacturer, "IBM/S390");
  EXPECT_EQ(processors[0].fEnabledCores, 4);
  EXPECT_EQ(processors[0].fThreads, 8u);
  EXPECT_EQ(processors[1].fThreads, 3u);
}

TEST_F(ReadingProcessors, TellsTheHighestSpeedOfThePackage) {
  Write("proc/cpuinfo", "processor : 0\n\nprocessor : 1\n\nprocessor : 2\n");
  const std::string file = "/cpufreq/cpuinfo_max_freq";
  Write("sys/devices/system/cpu/cpu0" + file, "5000000\n");
  Write("sys/devices/system/cpu/cpu1" + file, "5200000\n");
  ASSERT_THAT(Read(), SizeIs(1));
  EXPECT_EQ(Read()[0].fMaxClockSpeed, 5200u);
}

TEST_F(ReadingProcessors, FindsAllOfAMachineWithThousands) {
  std::string text;
  for (int number = 0; number < 8192; ++number) {
    text += "processor : " + std::to_string(number) +
            "\nphysical id : " + std::to_string(number / 256) +
            "\nflags : " + std::string(2000, 'x') + "\n\n";
  }
  Write("proc/cpuinfo", text);
  const auto processors = Read();
  ASSERT_THAT(processors, SizeIs(32));
  EXPECT_EQ(processors.back().fThreads, 256u);
}

TEST_F(ReadingProcessors, FindsNoneWithoutFiles) {
  EXPECT_THAT(Read(), IsEmpty());
}

TEST_F(ReadingProcessors, ListsThoseOfOtherTablesAlone) {
  Write("proc/cpuinfo", TwoPackages());
  SmbiosTables tables;
  tables.Add(4, Socket(), {"CPU 1", "EXMPL", "Example CPU"}).AddEnd();
  tables.WriteDump(fDirectory / "dump");
  fTables.Set(fDirectory / "dump");
  ASSERT_THAT(Read(), SizeIs(1));
  EXPECT_EQ(Read()[0].fName, "Example CPU");
}

TEST_F(ReadingProcessors, ListsThisMachinesWhereOtherTablesHaveNone) {
  Write("proc/cpuinfo", TwoPackages());
  SmbiosTables().AddEnd().WriteDump(fDirectory / "dump");
  fTables.Set(fDirectory / "dump");
  EXPECT_THAT(Read(), SizeIs(2));
}

}  // namespace

}  // namespace hwxtest
