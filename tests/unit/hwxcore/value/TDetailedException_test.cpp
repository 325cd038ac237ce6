#include "hwxcore/value/TDetailedException.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <type_traits>

namespace NQORHWX20 {
namespace {

static_assert(std::is_convertible_v<TDetailedException*, THWXException*>);  // public base
static_assert(std::is_nothrow_copy_constructible_v<TDetailedException>);
static_assert(sizeof(THWXException) == sizeof(void*) + sizeof(void*));  // the base stays as it was

TEST(TDetailedException, CarriesAStatusAndADetail) {
  const TDetailedException failure(kHWXStatusAccessDenied, "530 Login incorrect");
  EXPECT_TRUE(failure.GetStatus() == kHWXStatusAccessDenied);
  EXPECT_EQ(failure.GetDetail(), "530 Login incorrect");
}

TEST(TDetailedException, SaysWhatTheBareExceptionSays) {
  const TDetailedException failure(kHWXStatusAccessDenied, "530 Login incorrect");
  EXPECT_EQ(failure.what(), THWXException(kHWXStatusAccessDenied).what());
}

TEST(TDetailedException, IsCaughtAsTheBareException) {
  try {
    throw TDetailedException(kHWXStatusNotFound, "detail");
  } catch (const THWXException& failure) {
    EXPECT_TRUE(failure.GetStatus() == kHWXStatusNotFound);
    EXPECT_NE(dynamic_cast<const TDetailedException*>(&failure), nullptr);
  }
}

TEST(TDetailedException, ACopySharesTheDetailAndOutlivesTheFirst) {
  std::optional<TDetailedException> first(std::in_place, kHWXStatusFail, std::string(1000, 'x'));
  const TDetailedException copy(*first);
  EXPECT_EQ(&copy.GetDetail(), &first->GetDetail());
  first.reset();
  EXPECT_EQ(copy.GetDetail(), std::string(1000, 'x'));
}

TEST(TDetailedException, MayHaveAnyBytesForADetail) {
  const std::string bytes("\0\xff", 2);
  EXPECT_EQ(TDetailedException(kHWXStatusFail, bytes).GetDetail(), bytes);
  EXPECT_EQ(TDetailedException(kHWXStatusFail, "").GetDetail(), "");
}

}  // namespace
}  // namespace NQORHWX20
