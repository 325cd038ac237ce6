#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "logger/Log.h"

using QModule::Log;

namespace {

TEST(LogThreaded, LinesDontMix) {
  constexpr int kThreads = 4;
  constexpr int kLines = 200;
  testing::internal::CaptureStderr();
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([t] {
      for (int i = 0; i < kLines; ++i)
        Log(t, "a.cpp", i).Stream() << "thread " << t << " end";
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  std::istringstream output(testing::internal::GetCapturedStderr());
  std::set<std::string> lines;
  for (std::string line; std::getline(output, line);)
    lines.insert(line);
  std::set<std::string> expected;
  for (int t = 0; t < kThreads; ++t) {
    for (int i = 0; i < kLines; ++i) {
      expected.insert("a.cpp:" + std::to_string(i) + ": [" + std::to_string(t) + "] thread " +
                      std::to_string(t) + " end");
    }
  }
  EXPECT_EQ(lines, expected);
}

}  // namespace
