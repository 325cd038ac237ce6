#include "logger/Log.h"

#include <gtest/gtest.h>

#include <climits>
#include <iostream>
#include <iterator>
#include <optional>
#include <set>
#include <sstream>
#include <type_traits>
#include <vector>

#include "support/ScopedEnvironment.h"

namespace {

using QModule::Log;

static_assert(!std::is_copy_constructible_v<Log> && !std::is_copy_assignable_v<Log>);
static_assert(std::is_nothrow_destructible_v<Log>);

int MinLogLevel(const std::optional<std::string>& variable) {
  const hwxtest::ScopedEnvironment environment("QMODULE_LOG_LEVEL", variable);
  return Log::GetMinLogLevel();
}

TEST(Log, MinimumLevelIsSilentUnlessTheVariableIsSet) {
  EXPECT_EQ(MinLogLevel(std::nullopt), 0);
}

TEST(Log, MinimumLevelIsTheVariablesNumber) {
  EXPECT_EQ(MinLogLevel("4"), 4);
  EXPECT_EQ(MinLogLevel("0"), 0);
  EXPECT_EQ(MinLogLevel("-1"), -1);
  EXPECT_EQ(MinLogLevel("007"), 7);
}

TEST(Log, VariableThatHoldsNoNumberIsSilent) {
  for (const char* text : {"", " ", "debug", "4x", "0x4", "4.5", "4 ", "-"}) {
    EXPECT_EQ(MinLogLevel(text), 0) << text;
  }
}

TEST(Log, MinimumLevelTooLargeGivesTheNearest) {
  EXPECT_EQ(MinLogLevel("2147483647"), INT_MAX);
  EXPECT_EQ(MinLogLevel("2147483648"), INT_MAX);
  EXPECT_EQ(MinLogLevel("99999999999999999999999"), INT_MAX);
  EXPECT_EQ(MinLogLevel("-99999999999999999999999"), INT_MIN);
}

TEST(Log, MinimumLevelIsReadAnewAtEachCall) {
  hwxtest::ScopedEnvironment environment("QMODULE_LOG_LEVEL", "4");
  EXPECT_EQ(Log::GetMinLogLevel(), 4);
  environment.Set("2");
  EXPECT_EQ(Log::GetMinLogLevel(), 2);
}

TEST(Log, DestructorEmitsOneLine) {
  testing::internal::CaptureStderr();
  Log(4, "Plugins.cpp", 12).Stream() << "path: " << '/' << 5;
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Plugins.cpp:12: [4] path: /5\n");
}

TEST(Log, NothingIsEmittedBeforeTheDestructor) {
  testing::internal::CaptureStderr();
  {
    Log log(1, "a.cpp", 1);
    log.Stream() << "one " << std::flush;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    testing::internal::CaptureStderr();
    log.Stream() << "two";
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "a.cpp:1: [1] one two\n");
}

TEST(Log, EmitsWhateverTheMinimumLevelIs) {
  const hwxtest::ScopedEnvironment environment("QMODULE_LOG_LEVEL", "0");
  testing::internal::CaptureStderr();
  { Log(9, "a.cpp", 1); }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "a.cpp:1: [9] \n");
}

TEST(Log, NewlinesInTheTextBecomeBlanks) {
  testing::internal::CaptureStderr();
  Log(4, "a.cpp", 1).Stream() << "one\ntwo" << std::endl;
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "a.cpp:1: [4] one two \n");
}

TEST(Log, NullFileIsShownAsAQuestionMark) {
  testing::internal::CaptureStderr();
  Log(4, nullptr, -1).Stream() << "text";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "?:-1: [4] text\n");
}

TEST(Log, StandardErrorStreamThatThrowsIsIgnored) {
  struct FullDevice : std::streambuf {
  } full;  // takes nothing
  std::streambuf* const buffer = std::cerr.rdbuf(&full);
  std::cerr.exceptions(std::ios::badbit);
  EXPECT_NO_THROW({ Log(4, "a.cpp", 1).Stream() << "text"; });
  EXPECT_TRUE(std::cerr.bad());
  std::cerr.exceptions(std::ios::goodbit);
  std::cerr.rdbuf(buffer);  // clears the stream's state as well
}

}  // namespace
