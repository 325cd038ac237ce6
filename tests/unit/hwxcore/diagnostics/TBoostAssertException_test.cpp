#include "hwxcore/diagnostics/TBoostAssertException.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <type_traits>

// As the tools are compiled that use the policy.
#define BOOST_ENABLE_ASSERT_HANDLER
#include <boost/assert.hpp>

#include "support/ScopedEnvironment.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"
#include "support/VirtualSlots.h"

using hwxtest::ScopedEnvironment;
using hwxtest::ScopedLogCapture;
using NQORHWX20::kHWXStatusFail;
using NQORHWX20::TBoostAssertException;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::KilledBySignal;

namespace {

const char kVariable[] = "HWX_BOOST_ASSERT";

// What the standard error stream gets from `call`.
template <typename Call>
std::string ErrorsOf(Call call) {
  testing::internal::CaptureStderr();
  call();
  return testing::internal::GetCapturedStderr();
}

void Fail() {
  boost::assertion_failed("a < b", "int f(int)", "file.cpp", 12);
}

int StatusOfFail() {
  return hwxtest::StatusOf(&Fail);
}

std::string TextOfThrown(const char* expression, const char* function, const char* file,
                         long line) {
  try {
    boost::assertion_failed(expression, function, file, line);
  } catch (const TBoostAssertException& failure) {
    return failure.what();
  }
  return "(nothing was thrown)";
}

std::string Complaint(const std::string& value) {
  return "Invalid setting for HWX_BOOST_ASSERT '" + value +
         "'. Valid values are {throwhwx, throwboost, trap, exit}.\n";
}

static_assert(std::is_convertible_v<TBoostAssertException*, std::exception*>);
static_assert(std::is_constructible_v<TBoostAssertException, std::string>);
static_assert(noexcept(std::declval<const TBoostAssertException&>().what()));

TEST(TBoostAssertException, KeepsItsMessage) {
  const TBoostAssertException failure("text");
  EXPECT_STREQ(failure.what(), "text");
  EXPECT_STREQ(TBoostAssertException(failure).what(), "text");
  EXPECT_STREQ(TBoostAssertException("").what(), "");
}

TEST(TBoostAssertException, HasItsTextInTheSlotOfTheStandardException) {
  hwxtest::SlotTable slots;
  slots.Has(&TBoostAssertException::what);
  EXPECT_EQ(slots.Size(), 3U);
}

TEST(AssertionFailed, ThrowsTheLibrarysFailureWhereTheVariableIsNotSet) {
  const ScopedEnvironment unset(kVariable, std::nullopt);
  const std::string errors = ErrorsOf([] { EXPECT_EQ(StatusOfFail(), kHWXStatusFail); });
  EXPECT_EQ(errors, "");
}

TEST(AssertionFailed, ThrowsTheLibrarysFailureWhereItIsChosen) {
  const ScopedEnvironment mode(kVariable, "throwhwx");
  const std::string errors = ErrorsOf([] { EXPECT_EQ(StatusOfFail(), kHWXStatusFail); });
  EXPECT_EQ(errors, "");
}

TEST(AssertionFailed, ThrowsTheTextWhereItIsChosen) {
  const ScopedEnvironment mode(kVariable, "throwboost");
  std::string text;
  const std::string errors =
      ErrorsOf([&] { text = TextOfThrown("a < b", "int f(int)", "file.cpp", 12); });
  EXPECT_EQ(text, "Boost assertion failure! file.cpp:12 [a < b] func = int f(int)");
  EXPECT_EQ(errors, "");
}

TEST(AssertionFailed, WritesTheLineInDecimal) {
  const ScopedEnvironment mode(kVariable, "throwboost");
  EXPECT_EQ(TextOfThrown("e", "f", "x", 0), "Boost assertion failure! x:0 [e] func = f");
  EXPECT_EQ(TextOfThrown("e", "f", "x", -1), "Boost assertion failure! x:-1 [e] func = f");
  EXPECT_EQ(TextOfThrown("e", "f", "x", 9223372036854775807),
            "Boost assertion failure! x:9223372036854775807 [e] func = f");
}

TEST(AssertionFailed, LeavesOutWhatFollowsAMissingText) {
  const ScopedEnvironment mode(kVariable, "throwboost");
  EXPECT_EQ(TextOfThrown("a < b", nullptr, "file.cpp", 12),
            "Boost assertion failure! file.cpp:12 [a < b] func = ");
  EXPECT_EQ(TextOfThrown(nullptr, "f", "file.cpp", 12), "Boost assertion failure! file.cpp:12 [");
  EXPECT_EQ(TextOfThrown("a < b", "f", nullptr, 12), "Boost assertion failure! ");
  EXPECT_EQ(TextOfThrown(nullptr, nullptr, nullptr, 12), "Boost assertion failure! ");
}

TEST(AssertionFailed, KeepsEmptyTexts) {
  const ScopedEnvironment mode(kVariable, "throwboost");
  EXPECT_EQ(TextOfThrown("", "", "", 1), "Boost assertion failure! :1 [] func = ");
}

TEST(AssertionFailed, ReturnsToTheFailedCodeAfterATrap) {
  const ScopedEnvironment mode(kVariable, "trap");
  bool wentOn = false;
  const std::string errors = ErrorsOf([&] {
    Fail();
    wentOn = true;
  });
  EXPECT_TRUE(wentOn);
  EXPECT_EQ(errors,
            "\nBoost assertion failure! file.cpp:12 [a < b] func = int f(int)\n\n"
            "Forcing segmentation fault.\n\n");
}

TEST(AssertionFailed, EndsTheProcessWithExit) {
  const ScopedEnvironment mode(kVariable, "exit");
  EXPECT_EXIT(Fail(), ExitedWithCode(1),
              "^\nBoost assertion failure! file\\.cpp:12 \\[a < b\\] func = int f\\(int\\)\n$");
}

TEST(AssertionFailed, RunsExitHandlersWhenItEndsTheProcess) {
  const ScopedEnvironment mode(kVariable, "exit");
  const auto failWithHandler = [] {
    std::atexit([] { std::fputs("handler ran", stderr); });
    Fail();
  };
  EXPECT_EXIT(failWithHandler(), ExitedWithCode(1), "int f\\(int\\)\nhandler ran$");
}

TEST(AssertionFailed, ComplainsOfAnyOtherValueAndThrows) {
  for (const std::string value : {"THROWBOOST", "Throwhwx", "throwhwx ", " trap", "exit\n", "1"}) {
    const ScopedEnvironment mode(kVariable, value);
    const std::string errors = ErrorsOf([] { EXPECT_EQ(StatusOfFail(), kHWXStatusFail); });
    EXPECT_EQ(errors, Complaint(value));
  }
}

TEST(AssertionFailed, ComplainsOfAnEmptyValue) {
  const ScopedEnvironment mode(kVariable, "");
  const std::string errors = ErrorsOf([] { EXPECT_EQ(StatusOfFail(), kHWXStatusFail); });
  EXPECT_EQ(errors, Complaint(""));
}

TEST(AssertionFailed, ReadsTheVariableAtEachFailure) {
  ScopedEnvironment mode(kVariable, "throwboost");
  EXPECT_THROW(Fail(), TBoostAssertException);
  mode.Set("throwhwx");
  EXPECT_EQ(StatusOfFail(), kHWXStatusFail);
  mode.Set("trap");
  ErrorsOf([] { EXPECT_NO_THROW(Fail()); });
  mode.Set("throwboost");
  EXPECT_THROW(Fail(), TBoostAssertException);
}

TEST(AssertionFailed, NeverReachesTheLog) {
  for (const char* value : {"throwhwx", "throwboost", "trap", "nonsense"}) {
    const ScopedEnvironment mode(kVariable, value);
    const ScopedLogCapture log;
    ErrorsOf([] {
      try {
        Fail();
      } catch (const std::exception&) {  // its kind is told by other tests
      }
    });
    EXPECT_THAT(log.Lines(), IsEmpty()) << value;
  }
}

TEST(AssertionFailed, IsCalledByTheAssertionMacro) {
  const ScopedEnvironment mode(kVariable, "throwboost");
  const int one = 1;
  try {
    BOOST_ASSERT(one == 2);
    FAIL() << "the assertion held";
  } catch (const TBoostAssertException& failure) {
    EXPECT_THAT(failure.what(), HasSubstr("TBoostAssertException_test.cpp:"));
    EXPECT_THAT(failure.what(), HasSubstr(" [one == 2] func = "));
    EXPECT_THAT(failure.what(), HasSubstr("TestBody()"));
  }
}

TEST(AssertionFailed, IsNotCalledWhereTheAssertionHolds) {
  const ScopedEnvironment mode(kVariable, "throwboost");
  EXPECT_NO_THROW(BOOST_ASSERT(true));
}

TEST(AssertionFailed, EndsTheProcessOutOfAFunctionThatMayNotThrow) {
  const ScopedEnvironment mode(kVariable, "throwhwx");
  const auto check = [](int number) noexcept { BOOST_ASSERT(number > 0); };
  EXPECT_EXIT(check(0), KilledBySignal(SIGABRT), "");
}

}  // namespace
