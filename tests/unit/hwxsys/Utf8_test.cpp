#include "hwxsys/Utf8.h"

#include <gtest/gtest.h>

#include <string>

#include "hwxsys/Words.h"

namespace hwxsys {
namespace {

void ExpectCharacter(std::string_view text, char32_t code, std::size_t length) {
  const TCharacter character = FirstCharacter(text);
  EXPECT_EQ(character.fCode, code);
  EXPECT_EQ(character.fLength, length);
}

TEST(FirstCharacter, IsTheOneAtTheFront) {
  ExpectCharacter("ab", 'a', 1);
  ExpectCharacter(std::string_view("\0x", 2), 0, 1);
  ExpectCharacter("\x7F", 0x7F, 1);
  ExpectCharacter("\xC2\x80", 0x80, 2);
  ExpectCharacter("\xC3\xA9x", 0xE9, 2);
  ExpectCharacter("\xE2\x82\xAC", 0x20AC, 3);
  ExpectCharacter("\xEF\xBF\xBF", 0xFFFF, 3);
  ExpectCharacter("\xF0\x90\x80\x80", 0x10000, 4);
  ExpectCharacter("\xF4\x8F\xBF\xBF", 0x10FFFF, 4);
}

TEST(FirstCharacter, IsNoneInBytesOfAnotherForm) {
  for (const std::string_view text :
       {"", "\x80", "\xC3", "\xC3x", "\xE2\x82", "\xE2\x82x", "\xF0\x90\x80", "\xFF", "\xF8\x88"})
    ExpectCharacter(text, 0, 0);
}

TEST(FirstCharacter, IsNoneWhereTheBytesAreTooMany) {
  for (const std::string_view text : {"\xC0\xAF", "\xC1\xBF", "\xE0\x80\xAF", "\xF0\x80\x80\xAF"})
    ExpectCharacter(text, 0, 0);
}

TEST(FirstCharacter, IsNoSurrogateAndNothingBeyondUnicode) {
  for (const std::string_view text : {"\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80"})
    ExpectCharacter(text, 0, 0);
}

TEST(Trimmed, LosesTheBlanksAtBothEnds) {
  EXPECT_EQ(Trimmed(" \t\v\f\r\na b\n"), "a b");
  EXPECT_EQ(Trimmed(""), "");
  EXPECT_EQ(Trimmed(" \n "), "");
  EXPECT_EQ(Trimmed("\ta ", " "), "\ta");
}

}  // namespace
}  // namespace hwxsys
