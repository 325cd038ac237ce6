#include "hwxcore/value/THWXException.h"

#include <gtest/gtest.h>

#include <exception>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace NQORHWX20 {
namespace {

static_assert(std::is_convertible_v<THWXException*, std::exception*>);  // public base
static_assert(std::is_constructible_v<THWXException, THWXStatusCode>);
static_assert(std::is_constructible_v<THWXException, EHWXStatusCode>);
static_assert(!std::is_default_constructible_v<THWXException>);
static_assert(!std::is_constructible_v<THWXException, std::string>);
static_assert(!std::is_constructible_v<THWXException, const char*>);
static_assert(std::is_nothrow_copy_constructible_v<THWXException>);
static_assert(noexcept(std::declval<const THWXException&>().what()));
static_assert(std::is_same_v<decltype(std::declval<const THWXException&>().GetStatus()),
                             const THWXStatusCode&>);

TEST(THWXException, WhatIsTheNameOfTheStatusAndNothingMore) {
  const THWXException failure(kHWXStatusTypeMismatch);
  EXPECT_STREQ(failure.what(), "kHWXStatusTypeMismatch");
  EXPECT_STREQ(THWXException(kHWXStatusValueIsNULL).what(), "kHWXStatusValueIsNULL");
  EXPECT_STREQ(THWXException(fdrStatusEnd).what(), "fdrStatusEnd");
}

TEST(THWXException, WhatPointsIntoTheTableOfNames) {
  for (int number = 0; number <= fdrStatusEnd; ++number) {
    const THWXStatusCode status(static_cast<EHWXStatusCode>(number));
    EXPECT_EQ(THWXException(status).what(), status.TranslateStatusCode().c_str());
  }
}

TEST(THWXException, TheStatusIsReadFromAConstantException) {
  try {
    throw THWXException(kHWXStatusNotFound);
  } catch (const THWXException& failure) {
    EXPECT_TRUE(failure.GetStatus() == kHWXStatusNotFound);
    EXPECT_FALSE(failure.GetStatus() == kHWXStatusFail);
  }
}

TEST(THWXException, ACopyKeepsTheStatusAndTheCharacters) {
  const THWXException first(kHWXStatusAccessDenied);
  const THWXException copy(first);
  EXPECT_TRUE(copy.GetStatus() == kHWXStatusAccessDenied);
  EXPECT_EQ(copy.what(), first.what());
}

TEST(THWXException, TheTextOutlivesTheException) {
  auto failure = std::make_unique<THWXException>(kHWXStatusFileNotFound);
  const char* const text = failure->what();
  failure.reset();
  EXPECT_STREQ(text, "kHWXStatusFileNotFound");
}

TEST(THWXException, AHandlerForStandardExceptionsCatchesIt) {
  bool caught = false;
  try {
    throw THWXException(kHWXStatusFail);
  } catch (const std::exception& failure) {
    caught = true;
    EXPECT_STREQ(failure.what(), "kHWXStatusFail");
  }
  EXPECT_TRUE(caught);
}

TEST(THWXException, IsDestroyedThroughItsBase) {
  const std::unique_ptr<std::exception> failure = std::make_unique<THWXException>(kHWXStatusFail);
  EXPECT_STREQ(failure->what(), "kHWXStatusFail");
}

}  // namespace
}  // namespace NQORHWX20
