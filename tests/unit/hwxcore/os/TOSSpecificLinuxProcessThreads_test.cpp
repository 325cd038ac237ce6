#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "support/Spawning.h"

using hwxtest::Spawn;
using NQORHWX20::TOSSpecific;

namespace {

TEST(SpawnProcessThreaded, CallsDoNotMix) {
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 8; ++thread) {
    threads.emplace_back([thread] {
      for (int call = 0; call < 10; ++call) {
        const std::string text = std::to_string(thread) + "." + std::to_string(call);
        const hwxtest::Spawned spawned = Spawn("echo", {text});
        EXPECT_EQ(spawned.fResult, 0);
        EXPECT_EQ(spawned.fOutput, text + "\n");
        std::string output;
        EXPECT_EQ(TOSSpecific::SpawnProcess("x", {text}, "/bin/echo", {"A=1"}, output, 60), 0);
        EXPECT_EQ(output, text + "\n");
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
}

// A child that took its parent's locks along would hang in the allocator.
TEST(SpawnProcessThreaded, AllocationDoesNotBlockTheChild) {
  std::atomic<bool> isOver{false};
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 16; ++thread) {
    threads.emplace_back([&isOver] {
      while (!isOver)
        EXPECT_EQ(std::string(1000, 'x').back(), 'x');
    });
  }
  for (int call = 0; call < 50; ++call)
    EXPECT_EQ(Spawn("true", {}).fResult, 0);
  isOver = true;
  for (std::thread& thread : threads)
    thread.join();
}

}  // namespace
