#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <thread>

#include "support/Descriptors.h"
#include "support/FakePatience.h"
#include "support/FileText.h"
#include "support/ProgramDirectory.h"
#include "support/ScopedLogCapture.h"
#include "support/ScopedSignal.h"
#include "support/Spawning.h"
#include "support/TemporaryDirectory.h"

using hwxtest::FakePatience;
using hwxtest::Gate;
using hwxtest::HasRunningChild;
using hwxtest::LeftChild;
using hwxtest::OpenDescriptors;
using hwxtest::ProgramDirectory;
using hwxtest::ScopedLogCapture;
using hwxtest::ScopedSignal;
using hwxtest::Spawn;
using hwxtest::Spawned;
using hwxtest::SpawnShell;
using hwxtest::SpawnSilent;
using hwxtest::TemporaryDirectory;
using NQORHWX20::TOSSpecific;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Pair;
using testing::SizeIs;

namespace {

// By the clock of the system, and so without the child's output, which may come late.
TEST(SpawnProcessTimeOut, StrikesByItself) {
  const TemporaryDirectory scratch;
  const std::string name = scratch / "name";
  const std::string script = "echo $$ >" + name + "-new; mv " + name + "-new " + name;
  EXPECT_EQ(SpawnShell(script + "; exec sleep 300", 1).fResult, -1);
  while (!std::filesystem::exists(name))
    std::this_thread::yield();
  const LeftChild child(hwxtest::FileText(name));
  EXPECT_TRUE(child.IsRunning());
}

TEST(SpawnProcessTimeOut, GivesMinusOneAndLeavesTheSilentChildRunning) {
  const ScopedLogCapture log;
  const Spawned spawned = SpawnSilent();
  const LeftChild child(spawned.fOutput);
  EXPECT_EQ(spawned.fResult, -1);
  EXPECT_TRUE(child.IsRunning());
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "SpawnProcess: process sh"),
                                       Pair("Debug", "ERROR: SpawnProcess - sh TimeOut!")));
}

TEST(SpawnProcessTimeOut, LeavesTheChildAZombieWhenItEnds) {
  const LeftChild child(SpawnSilent().fOutput);
  child.Kill();
  child.KillingSignal();
  Spawn("true", {});  // collects its own child alone
  EXPECT_EQ(child.State(), 'Z');
}

TEST(SpawnProcessTimeOut, LeavesTheChildToDieOfItsNextOutput) {
  const ScopedSignal pipe(SIGPIPE, SIG_DFL);
  const FakePatience patience(FakePatience::After(1));
  Gate gate;
  const Spawned spawned =
      SpawnShell("echo $$; " + gate.Wait() + "; while :; do echo more; done", 1);
  const LeftChild child(spawned.fOutput);
  EXPECT_EQ(spawned.fResult, -1);
  gate.Open();
  EXPECT_EQ(child.KillingSignal(), SIGPIPE);
}

TEST(SpawnProcessTimeOut, ClosesTheReadEnd) {
  const std::size_t before = OpenDescriptors();
  const LeftChild child(SpawnSilent().fOutput);
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST(SpawnProcessTimeOut, KeepsWhatWasCapturedInEveryForm) {
  const ProgramDirectory programs;
  programs.Add("silent", hwxtest::kSilent);
  const auto expectLeft = [](auto... arguments) {
    const FakePatience patience(FakePatience::After(1));
    const LeftChild child(TOSSpecific::SpawnProcess("silent", arguments..., 1));
    EXPECT_TRUE(child.IsRunning());
  };
  expectLeft(std::vector<std::string>());
  expectLeft();
}

TEST(SpawnProcessTimeOut, BeginsAnewWithEachChunk) {
  const FakePatience patience(FakePatience::Never());
  const Spawned spawned = SpawnShell("for i in 1 2 3 4; do echo $i; sleep 0.1; done; exit 0", 1);
  EXPECT_EQ(spawned.fResult, 0);
  EXPECT_EQ(spawned.fOutput, "1\n2\n3\n4\n");
  EXPECT_THAT(patience.Limits(), AllOf(SizeIs(testing::Ge(2U)), Each(1.0)));
}

TEST(SpawnProcessTimeOut, StrikesAChildThatFallsSilentAfterMuchOutput) {
  const TemporaryDirectory scratch;
  const std::string isSilent = scratch / "silent";
  const FakePatience patience([&](std::size_t) { return std::filesystem::exists(isSilent); });
  const Spawned spawned =
      SpawnShell("echo $$; seq 100000; mkdir " + isSilent + "; exec sleep 300", 1);
  const LeftChild child(spawned.fOutput);
  EXPECT_EQ(spawned.fResult, -1);
  EXPECT_GT(spawned.fOutput.size(), 500000U);
}

TEST(SpawnProcessTimeOut, StrikesWhileABackgroundProcessHoldsThePipe) {
  const Gate gate;
  EXPECT_EQ(SpawnShell(gate.Wait() + " & exit 0", 1).fResult, -1);
  while (HasRunningChild())
    std::this_thread::yield();
}

TEST(SpawnProcessTimeOut, OfZeroPollsOnce) {
  const ScopedLogCapture log;
  Gate gate;
  const Spawned spawned = SpawnShell(gate.Wait(), 0);
  EXPECT_EQ(spawned.fResult, -1);
  EXPECT_EQ(spawned.fOutput, "");
  EXPECT_TRUE(HasRunningChild());
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Debug", "SpawnProcess: process sh"),
                                       Pair("Debug", "ERROR: SpawnProcess - sh TimeOut!")));
  gate.Open();
  ::wait(nullptr);
}

TEST(SpawnProcessTimeOut, OfMinusOneWaitsAsLongAsItTakes) {
  const FakePatience patience(FakePatience::Never());
  const Spawned spawned = SpawnShell("sleep 0.1; echo late", -1);
  EXPECT_EQ(spawned.fResult, 0);
  EXPECT_EQ(spawned.fOutput, "late\n");
  EXPECT_THAT(patience.Limits(), Each(-1.0));
}

TEST(SpawnProcessTimeOut, BelowMinusOneFailsAtOnce) {
  for (const int timeout : {-2, -300, std::numeric_limits<int>::min()}) {
    const ScopedLogCapture log;
    Gate gate;
    EXPECT_EQ(SpawnShell(gate.Wait(), timeout).fResult, -1);
    EXPECT_TRUE(HasRunningChild());
    EXPECT_THAT(log.Lines(),
                ElementsAre(Pair("Debug", "SpawnProcess: process sh"),
                            Pair("Debug", "ERROR: SpawnProcess - select call failed!")));
    gate.Open();
    int status = -1;
    ::wait(&status);
    EXPECT_EQ(status, 0) << "the child was not left alone";
  }
}

TEST(SpawnProcessTimeOut, MayBeAsLongAsCanBe) {
  EXPECT_EQ(SpawnShell("sleep 0.1", std::numeric_limits<int>::max()).fResult, 0);
}

}  // namespace
