// Tests of all fates, for runner_test.sh.

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

namespace {

TEST(Subjects, Passes) {}

TEST(Subjects, Fails) {
  ADD_FAILURE() << "on purpose";
}

TEST(Subjects, Skips) {
  GTEST_SKIP() << "SKIPPED: on\npurpose";
}

TEST(Subjects, IsKilled) {
  std::raise(SIGKILL);
}

TEST(Subjects, LeavesAsIfAllWereWell) {
  std::_Exit(EXIT_SUCCESS);
}

TEST(Subjects, LeaksUnderAddressSanitizer) {
  void* volatile block = std::malloc(77);
  if (block == nullptr) ADD_FAILURE() << "no memory";
  block = nullptr;
}

class Numbered : public testing::TestWithParam<int> {};

TEST_P(Numbered, PassesBehindThem) {}

INSTANTIATE_TEST_SUITE_P(All, Numbered, testing::Values(1, 2));

}  // namespace
