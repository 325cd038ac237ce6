#include "hwx/text/Printable.h"

#include <gtest/gtest.h>

namespace hwx {
namespace {

TEST(Printable, LeavesPlainTextAndUtf8Alone) {
  EXPECT_EQ(Printable("Box 5 \\ \"x\" ~"), "Box 5 \\ \"x\" ~");
  EXPECT_EQ(Printable("B\xC3\xBC"
                      "chse \xE2\x82\xAC \xF0\x9F\x98\x80"),
            "B\xC3\xBC"
            "chse \xE2\x82\xAC \xF0\x9F\x98\x80");
  EXPECT_EQ(Printable(""), "");
}

TEST(Printable, EscapesControlCharacters) {
  EXPECT_EQ(Printable(std::string("\0a\x1b[2J\n\t\x7f", 9)), "\\x00a\\x1b[2J\\x0a\\x09\\x7f");
}

TEST(Printable, EscapesTheHigherControlCharacters) {
  EXPECT_EQ(Printable("\xC2\x9B"
                      "2J"),
            "\\xc2\\x9b2J");
  EXPECT_EQ(Printable("\xC2\xA0"), "\xC2\xA0");  // the first behind them
}

TEST(Printable, EscapesMarksThatTurnTheTextAround) {
  EXPECT_EQ(Printable("a\xE2\x80\xAEz"), "a\\xe2\\x80\\xaez");
  EXPECT_EQ(Printable("\xE2\x80\x8F"), "\\xe2\\x80\\x8f");
  EXPECT_EQ(Printable("\xE2\x81\xA9"), "\\xe2\\x81\\xa9");
}

TEST(Printable, EscapesBytesThatAreNoUtf8) {
  EXPECT_EQ(Printable("a\xFFz"), "a\\xffz");
  EXPECT_EQ(Printable("\x80"), "\\x80");                    // no first byte
  EXPECT_EQ(Printable("\xC3"), "\\xc3");                    // cut off
  EXPECT_EQ(Printable("\xE2\x82z"), "\\xe2\\x82z");         // broken off
  EXPECT_EQ(Printable("\xC0\xAF"), "\\xc0\\xaf");           // longer than needed
  EXPECT_EQ(Printable("\xE0\x80\x9B"), "\\xe0\\x80\\x9b");  // the same, a control character
  EXPECT_EQ(Printable("\xED\xA0\x80"), "\\xed\\xa0\\x80");  // half of a pair
  EXPECT_EQ(Printable("\xF4\x90\x80\x80"), "\\xf4\\x90\\x80\\x80");  // behind the last
  EXPECT_EQ(Printable("\xF8\x88\x80\x80\x80"), "\\xf8\\x88\\x80\\x80\\x80");
}

TEST(CharacterCount, CountsCharactersNotBytes) {
  EXPECT_EQ(CharacterCount(""), 0u);
  EXPECT_EQ(CharacterCount("abc"), 3u);
  EXPECT_EQ(CharacterCount("\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80"), 3u);
}

}  // namespace
}  // namespace hwx
