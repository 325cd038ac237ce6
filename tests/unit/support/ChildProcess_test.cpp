#include "support/ChildProcess.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

using hwxtest::RunInChild;

TEST(RunInChild, ReturnsWhatTheBodyReturned) {
  EXPECT_EQ(RunInChild([] { return 0; }), 0);
  EXPECT_EQ(RunInChild([] { return 42; }), 42);
  EXPECT_EQ(RunInChild([] { return hwxtest::kSceneNotAllowed; }), hwxtest::kSceneNotAllowed);
}

// The child's output is closed, so that nobody takes its failures for those of this test.
TEST(RunInChild, CountsAFailedExpectationAlsoWhereTheSceneIsNotAllowed) {
  for (const int code : {0, hwxtest::kSceneNotAllowed}) {
    const int result = RunInChild([code] {
      ::close(STDOUT_FILENO);
      ADD_FAILURE();
      return code;
    });
    EXPECT_EQ(result, 1) << code;
  }
}

TEST(RunInChild, CountsAnExceptionAsAFailure) {
  const int result = RunInChild([]() -> int {
    ::close(STDOUT_FILENO);
    throw std::runtime_error("thrown");
  });
  EXPECT_EQ(result, 1);
}

TEST(RunInChild, TellsTheSignalThatKilledTheChild) {
  EXPECT_EQ(RunInChild([] { return ::raise(SIGKILL); }), 128 + SIGKILL);
}
