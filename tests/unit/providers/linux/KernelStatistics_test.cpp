#include "providers/linux/KernelStatistics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <utmp.h>

#include <vector>

#include "support/Machines.h"

namespace linux_machine {

namespace {

using hwxtest::UtmpRecord;
using ::testing::Optional;

TEST(Memory, ReadsTheFourFiguresInKiB) {
  const TMemory memory = ParseMemory(
      "MemTotal:       16315624 kB\n"
      "MemFree:         1234567 kB\n"
      "MemAvailable:    9999999 kB\n"
      "SwapCached:            5 kB\n"
      "SwapTotal:       2097148 kB\n"
      "SwapFree:              0 kB\n"
      "HugePages_Total:       7\n");
  EXPECT_THAT(memory.fTotal, Optional(16315624u));
  EXPECT_THAT(memory.fFree, Optional(1234567u));
  EXPECT_THAT(memory.fSwapTotal, Optional(2097148u));
  EXPECT_THAT(memory.fSwapFree, Optional(0u));
}

TEST(Memory, WhatIsNotThereIsMissing) {
  const TMemory memory = ParseMemory("MemTotal: 1 kB");
  EXPECT_THAT(memory.fTotal, Optional(1u));
  EXPECT_EQ(memory.fFree, std::nullopt);
  EXPECT_EQ(memory.fSwapTotal, std::nullopt);
  EXPECT_EQ(memory.fSwapFree, std::nullopt);
}

TEST(Memory, OnlyANumberOfKiBCounts) {
  for (const char* line :
       {"MemTotal:", "MemTotal: kB", "MemTotal: 5", "MemTotal: 5 MB", "MemTotal: -5 kB",
        "MemTotal: 5x kB", "MemTotal:  kB kB", " MemTotal: 5 kB", "XMemTotal: 5 kB",
        "MemTotal: 99999999999999999999 kB"}) {
    EXPECT_EQ(ParseMemory(line).fTotal, std::nullopt) << line;
  }
}

TEST(BootTime, StandsInALineOfItsOwn) {
  EXPECT_THAT(ParseBootTime("cpu  1 2\nintr 5 0\nbtime 1700000000\nprocesses 9\n"),
              Optional(1700000000u));
  EXPECT_THAT(ParseBootTime("btime 18446744073709551615"), Optional(18446744073709551615u));
}

TEST(BootTime, IsMissingWithoutANumber) {
  for (const char* text :
       {"", "btime", "btime \n", "btime -1\n", "btime 17x\n", "xbtime 5\n", "cpu btime 5\n"}) {
    EXPECT_EQ(ParseBootTime(text), std::nullopt) << text;
  }
}

TEST(Sessions, OnlyRecordsOfUsersCount) {
  const std::string records = UtmpRecord("reboot", BOOT_TIME) + UtmpRecord("LOGIN", LOGIN_PROCESS) +
                              UtmpRecord("alice") + UtmpRecord("bob", DEAD_PROCESS) +
                              UtmpRecord("alice") + UtmpRecord("");
  EXPECT_EQ(CountSessions(records), 2u);
}

TEST(Sessions, ACutRecordIsNotLookedAt) {
  EXPECT_EQ(CountSessions(""), 0u);
  const std::string record = UtmpRecord("alice");
  for (std::size_t size = 0; size < record.size(); ++size) {
    const std::string text = record + record.substr(0, size);
    const std::vector<char> bytes(text.begin(), text.end());  // of just this many bytes
    EXPECT_EQ(CountSessions({bytes.data(), bytes.size()}), 1u) << size;
  }
}

TEST(Sessions, AreCountedInBytesAtAnyAddress) {
  const std::string shifted = "x" + UtmpRecord("alice");
  EXPECT_EQ(CountSessions(std::string_view(shifted).substr(1)), 1u);
}

}  // namespace

}  // namespace linux_machine
