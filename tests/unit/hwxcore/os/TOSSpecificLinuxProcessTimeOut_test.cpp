#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/Descriptors.h"
#include "support/ProgramDirectory.h"
#include "support/ScopedLogCapture.h"
#include "support/ScopedSignal.h"
#include "support/Spawning.h"

using hwxtest::LeftChild;
using hwxtest::OpenDescriptors;
using hwxtest::ProgramDirectory;
using hwxtest::ScopedLogCapture;
using hwxtest::ScopedSignal;
using hwxtest::Spawn;
using hwxtest::Spawned;
using hwxtest::SpawnShell;
using NQORHWX20::TOSSpecific;
using testing::ElementsAre;
using testing::Pair;

namespace {

// Prints its identity, then nothing for very long.
constexpr const char* kSilent = "echo $$; exec sleep 300";

TEST(SpawnProcessTimeOut, GivesMinusOneAndLeavesTheSilentChildRunning) {
  const ScopedLogCapture log;
  const Spawned spawned = SpawnShell(kSilent, 1);
  const LeftChild child(spawned.fOutput);
  EXPECT_EQ(spawned.fResult, -1);
  EXPECT_GE(spawned.fSeconds, 0.99);
  EXPECT_LT(spawned.fSeconds, 20);
  EXPECT_EQ(child.State(), 'S');
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "SpawnProcess: process sh"),
                                       Pair("Debug", "ERROR: SpawnProcess - sh TimeOut!")));
}

TEST(SpawnProcessTimeOut, LeavesTheChildAZombieWhenItEnds) {
  const Spawned spawned = SpawnShell(kSilent, 1);
  const LeftChild child(spawned.fOutput);
  child.Kill();
  child.KillingSignal();
  Spawn("true", {});  // collects its own child alone
  EXPECT_EQ(child.State(), 'Z');
}

TEST(SpawnProcessTimeOut, LeavesTheChildToDieOfItsNextOutput) {
  const ScopedSignal pipe(SIGPIPE, SIG_DFL);
  const Spawned spawned = SpawnShell("echo $$; sleep 1.5; while :; do echo more; done", 1);
  const LeftChild child(spawned.fOutput);
  EXPECT_EQ(spawned.fResult, -1);
  EXPECT_EQ(child.KillingSignal(), SIGPIPE);
}

TEST(SpawnProcessTimeOut, ClosesTheReadEnd) {
  const std::size_t before = OpenDescriptors();
  const Spawned spawned = SpawnShell(kSilent, 1);
  const LeftChild child(spawned.fOutput);
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST(SpawnProcessTimeOut, KeepsWhatWasCapturedInEveryForm) {
  const ProgramDirectory programs;
  programs.Add("silent", kSilent);
  const LeftChild first(TOSSpecific::SpawnProcess("silent", std::vector<std::string>(), 1));
  EXPECT_EQ(first.State(), 'S');
  const LeftChild second(TOSSpecific::SpawnProcess("silent", 1));
  EXPECT_EQ(second.State(), 'S');
}

TEST(SpawnProcessTimeOut, BeginsAnewWithEachChunk) {
  const Spawned spawned =
      SpawnShell("for i in 1 2 3 4; do sleep 0.6; echo $i; done; sleep 0.6; exit 0", 1);
  EXPECT_EQ(spawned.fResult, 0);
  EXPECT_EQ(spawned.fOutput, "1\n2\n3\n4\n");
  EXPECT_GE(spawned.fSeconds, 2.9);
}

TEST(SpawnProcessTimeOut, StrikesAChildThatFallsSilentAfterMuchOutput) {
  const Spawned spawned = SpawnShell("echo $$; seq 100000; exec sleep 300", 1);
  const LeftChild child(spawned.fOutput);
  EXPECT_EQ(spawned.fResult, -1);
  EXPECT_GT(spawned.fOutput.size(), 500000U);
}

TEST(SpawnProcessTimeOut, StrikesWhileABackgroundProcessHoldsThePipe) {
  const Spawned spawned = SpawnShell("sleep 300 & echo $!; exit 0", 1);
  ::kill(std::atoi(spawned.fOutput.c_str()), SIGKILL);
  EXPECT_EQ(spawned.fResult, -1);
}

TEST(SpawnProcessTimeOut, OfZeroPollsOnce) {
  const ScopedLogCapture log;
  const Spawned spawned = Spawn("sleep", {"2"}, 0);
  EXPECT_EQ(spawned.fResult, -1);
  EXPECT_EQ(spawned.fOutput, "");
  EXPECT_LT(spawned.fSeconds, 1);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "SpawnProcess: process sleep"),
                                       Pair("Debug", "ERROR: SpawnProcess - sleep TimeOut!")));
  ::wait(nullptr);
}

TEST(SpawnProcessTimeOut, OfMinusOneWaitsAsLongAsItTakes) {
  const Spawned spawned = SpawnShell("sleep 1.5; echo late", -1);
  EXPECT_EQ(spawned.fResult, 0);
  EXPECT_EQ(spawned.fOutput, "late\n");
}

TEST(SpawnProcessTimeOut, BelowMinusOneFailsAtOnce) {
  for (const int timeout : {-2, -300, std::numeric_limits<int>::min()}) {
    const ScopedLogCapture log;
    const Spawned spawned = Spawn("sleep", {"1"}, timeout);
    EXPECT_EQ(spawned.fResult, -1);
    EXPECT_LT(spawned.fSeconds, 0.9);
    EXPECT_THAT(log.Lines(),
                ElementsAre(Pair("Debug", "SpawnProcess: process sleep"),
                            Pair("Debug", "ERROR: SpawnProcess - select call failed!")));
    int status = -1;
    ::wait(&status);
    EXPECT_EQ(status, 0) << "the child was not left alone";
  }
}

TEST(SpawnProcessTimeOut, MayBeAsLongAsCanBe) {
  EXPECT_EQ(SpawnShell("sleep 0.1", std::numeric_limits<int>::max()).fResult, 0);
}

}  // namespace
