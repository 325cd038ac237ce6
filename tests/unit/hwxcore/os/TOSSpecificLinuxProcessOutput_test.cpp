#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "support/FakePatience.h"
#include "support/Spawning.h"
#include "support/TemporaryDirectory.h"

using hwxtest::FakePatience;
using hwxtest::Gate;
using hwxtest::Spawn;
using hwxtest::Spawned;
using hwxtest::SpawnShell;
using hwxtest::TemporaryDirectory;

namespace {

constexpr std::size_t kChunk = 4095;

// Every byte but NUL, over and over.
std::string Binary(std::size_t size) {
  std::string text(size, '\0');
  for (std::size_t i = 0; i < size; ++i)
    text[i] = static_cast<char>(1 + i % 255);
  return text;
}

// What comes of a child that writes `text`: in one piece, if a pipe holds it.
Spawned Written(const std::string& text) {
  const TemporaryDirectory scratch;
  std::ofstream(scratch / "text", std::ios::binary) << text;
  return Spawn("cat", {scratch / "text"});
}

TEST(SpawnProcessOutput, HoldsNormalOutputAndErrorsInTheOrderOfWriting) {
  const Spawned spawned = SpawnShell("echo 1; echo 2 >&2; echo 3; echo 4 >&2; echo 5");
  EXPECT_EQ(spawned.fResult, 0);
  EXPECT_EQ(spawned.fOutput, "1\n2\n3\n4\n5\n");
}

TEST(SpawnProcessOutput, IsWholeAroundTheSizeOfAChunk) {
  for (std::size_t size = 4094; size <= 4097; ++size) {
    const Spawned spawned = Written(Binary(size));
    EXPECT_EQ(spawned.fResult, 0);
    EXPECT_TRUE(spawned.fOutput == Binary(size)) << size;
  }
}

TEST(SpawnProcessOutput, IsWholeAroundTheSizeOfAPipe) {
  for (const std::size_t size : {16 * kChunk - 1, 16 * kChunk, 16 * kChunk + 1, std::size_t{65535},
                                 std::size_t{65536}, std::size_t{65537}}) {
    EXPECT_TRUE(Written(Binary(size)).fOutput == Binary(size)) << size;
  }
}

TEST(SpawnProcessOutput, IsWholeHoweverLong) {
  const std::string text = Binary(5000000);
  EXPECT_TRUE(Written(text).fOutput == text);
}

TEST(SpawnProcessOutput, LosesTheRestOfAChunkBehindANulByte) {
  EXPECT_EQ(SpawnShell("printf 'seen\\000lost'").fOutput, "seen");
  EXPECT_EQ(SpawnShell("printf '\\000lost'").fOutput, "");
}

// Opens a gate when the first output has been read.
class Porter {
 public:
  explicit Porter(Gate& gate)
      : fPatience([&gate](std::size_t inputs) {
          if (inputs == 1) gate.Open();
          return false;
        }) {}

 private:
  FakePatience fPatience;
};

TEST(SpawnProcessOutput, GoesOnWithTheNextChunkBehindANulByte) {
  Gate gate;
  const Porter porter(gate);
  const std::string script = "printf 'seen\\000lost'; " + gate.Wait() + "; printf ' seen too'";
  EXPECT_EQ(SpawnShell(script).fOutput, "seen seen too");
}

TEST(SpawnProcessOutput, LosesNoMoreThanTheChunkOfTheNulByte) {
  for (const std::size_t position : {std::size_t{0}, std::size_t{4000}, kChunk - 1}) {
    std::string text = Binary(3 * kChunk);
    text[kChunk + position] = '\0';
    const std::string expected = text.substr(0, kChunk + position) + text.substr(2 * kChunk);
    EXPECT_TRUE(Written(text).fOutput == expected) << position;
  }
}

TEST(SpawnProcessOutput, CutsEachChunkAtItsFirstNulByte) {
  std::string text = Binary(2 * kChunk + 10);
  for (const std::size_t position :
       {std::size_t{10}, std::size_t{20}, kChunk + 30, kChunk + 40, 2 * kChunk + 5}) {
    text[position] = '\0';
  }
  const std::string expected =
      text.substr(0, 10) + text.substr(kChunk, 30) + text.substr(2 * kChunk, 5);
  EXPECT_TRUE(Written(text).fOutput == expected);
}

TEST(SpawnProcessOutput, EndsWithTheLastOfThoseWhoHoldThePipe) {
  Gate gate;
  const Porter porter(gate);
  const Spawned spawned = SpawnShell("(" + gate.Wait() + "; echo late) & echo early");
  EXPECT_EQ(spawned.fResult, 0);
  EXPECT_EQ(spawned.fOutput, "early\nlate\n");
}

TEST(SpawnProcessOutput, DoesNotWaitForABackgroundProcessThatLetThePipeGo) {
  const TemporaryDirectory scratch;
  Gate gate;
  const std::string ended = scratch / "ended";
  const Spawned spawned =
      SpawnShell("(" + gate.Wait() + "; mkdir " + ended + ") >/dev/null 2>&1 & exit 0");
  EXPECT_EQ(spawned.fResult, 0);
  gate.Open();
  while (!std::filesystem::exists(ended))
    std::this_thread::yield();
}

TEST(SpawnProcessOutput, IsFollowedByAWaitForTheChildWithoutALimit) {
  const FakePatience patience(FakePatience::Never());
  const TemporaryDirectory scratch;
  const std::string ended = scratch / "ended";
  const std::string script = "echo text; exec >&- 2>&-; sleep 1.2; echo >" + ended + "; exit 0";
  const Spawned spawned = SpawnShell(script, 1);
  EXPECT_EQ(spawned.fResult, 0);
  EXPECT_EQ(spawned.fOutput, "text\n");
  EXPECT_TRUE(std::filesystem::exists(ended));
}

}  // namespace
