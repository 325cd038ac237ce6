#include "hwx/text/StatusWords.h"

#include <gtest/gtest.h>

#include "hwxcore/value/TDetailedException.h"

namespace hwx {
namespace {

using namespace NQORHWX20;

TEST(InWords, SaysAStatusInPlainWordsOrByItsName) {
  EXPECT_EQ(InWords(THWXStatusCode(kHWXStatusAccessDenied)), "access denied");
  EXPECT_EQ(InWords(THWXStatusCode(kHWXStatusInvalidFormat)), "kHWXStatusInvalidFormat");
}

TEST(InWords, SaysOfABareFailureItsStatus) {
  EXPECT_EQ(InWords(THWXException(kHWXStatusAccessDenied)), "access denied");
}

TEST(InWords, SaysWhatAFailureTellsOfItself) {
  EXPECT_EQ(InWords(TDetailedException(kHWXStatusAccessDenied, "530 Login incorrect")),
            "530 Login incorrect");
}

TEST(InWords, SaysTheStatusWhereThereIsNothingToTell) {
  EXPECT_EQ(InWords(TDetailedException(kHWXStatusAccessDenied, "")), "access denied");
}

}  // namespace
}  // namespace hwx
