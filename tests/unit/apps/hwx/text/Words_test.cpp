#include "hwx/text/Words.h"

#include <gtest/gtest.h>

namespace {

using hwx::IsBlank;
using hwx::Lower;
using hwx::Quoted;
using hwx::Trimmed;

TEST(Words, BlankIsWhiteSpaceAloneOrNothing) {
  EXPECT_TRUE(IsBlank(""));
  EXPECT_TRUE(IsBlank(" \t\n\v\f\r"));
  EXPECT_FALSE(IsBlank(" . "));
  EXPECT_FALSE(IsBlank(std::string_view("\0", 1)));
}

TEST(Words, TrimmingTakesWhiteSpaceAtTheEndsAlone) {
  EXPECT_EQ(Trimmed("\t a b \r\n"), "a b");
  EXPECT_EQ(Trimmed(" \n "), "");
  EXPECT_EQ(Trimmed("a"), "a");
}

TEST(Words, QuotesStandAroundTheText) {
  EXPECT_EQ(Quoted("a \"b\""), "\"a \"b\"\"");
}

TEST(Words, SmallLettersAreThoseOfASCIIAlone) {
  EXPECT_EQ(Lower("AZ@[ IPX-9\xC3\x84"), "az@[ ipx-9\xC3\x84");
}

}  // namespace
