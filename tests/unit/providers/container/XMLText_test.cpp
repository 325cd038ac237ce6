#include "providers/container/XMLText.h"

#include <gtest/gtest.h>

#include <string>

namespace hwxtest {

namespace {

using namespace container;
using std::string_literals::operator""s;

TEST(XMLText, CarriesCharactersOfEveryLength) {
  for (const char* text :
       {"", "plain", "tab\tline\nreturn\r", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80",
        "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBD", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(IsXMLText(text)) << text;
    EXPECT_EQ(Escaped(text), text);
  }
}

TEST(XMLText, CarriesNoControlCharactersSurrogatesAndNonCharacters) {
  for (const std::string& text : {"\0"s, "\x01"s, "\x1F"s, "\xED\xA0\x80"s, "\xED\xBF\xBF"s,
                                  "\xEF\xBF\xBE"s, "\xEF\xBF\xBF"s, "\xF4\x90\x80\x80"s})
    EXPECT_FALSE(IsXMLText(text)) << Escaped(text);
}

TEST(XMLText, CarriesNoMalformedBytes) {
  for (const char* text : {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3\x28",
                           "\xE0\x80\x80", "\xE0\x9F\xBF", "\xE2\x82", "\xF0\x80\x80\x80",
                           "\xF0\x8F\xBF\xBF", "\xF0\x90\x80", "\xF5\x80\x80\x80", "\xFE", "\xFF"})
    EXPECT_FALSE(IsXMLText(text)) << Escaped(text);
}

TEST(XMLText, EscapesBytesAndBackslashes) {
  EXPECT_EQ(Escaped("a\\b\0c\xFF\x1F"s), R"(a\\b\x00c\xFF\x1F)");
  EXPECT_EQ(Escaped("\xC3\xA9\xC3"), "\xC3\xA9\\xC3");
  EXPECT_EQ(Unescaped(R"(a\\b\x00c\xFF\x1f)"), "a\\b\0c\xFF\x1F"s);
}

TEST(XMLText, EscapesEveryByteSoThatItComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte)
    all += static_cast<char>(byte);
  EXPECT_TRUE(IsXMLText(Escaped(all)));
  EXPECT_EQ(Unescaped(Escaped(all)), all);
}

TEST(XMLText, KnowsNoOtherEscapes) {
  for (const char* text : {"\\", "a\\", "\\n", "\\x", "\\x1", "\\xG0", "\\x0G", "\\X00", "\\u0041"})
    EXPECT_FALSE(Unescaped(text)) << text;
}

TEST(XMLText, WritesContentWithReferencesForMarkupAndReturns) {
  std::string xml = "[";
  AppendContent(xml, "a<b>&\"'\r\n\tc");
  EXPECT_EQ(xml, "[a&lt;b&gt;&amp;\"'&#13;\n\tc");
}

TEST(XMLText, WritesAttributesWithReferencesForAllWhiteSpaceButBlanks) {
  std::string xml;
  AppendAttributeValue(xml, "a <b>&\"'\r\n\tc");
  EXPECT_EQ(xml, "a &lt;b&gt;&amp;&quot;'&#13;&#10;&#9;c");
}

TEST(XMLText, TellsCodePoints) {
  EXPECT_EQ(CodePoint("A"), 0x41u);
  EXPECT_EQ(CodePoint("\xC3\xA9"), 0xE9u);
  EXPECT_EQ(CodePoint("\xE2\x82\xAC"), 0x20ACu);
  EXPECT_EQ(CodePoint("\xF0\x9F\x98\x80"), 0x1F600u);
  for (const int code : {0x41, 0x7F, 0x80, 0x7FF, 0x800, 0x20AC, 0xFFFD}) {
    const auto unit = static_cast<unsigned short>(code);
    EXPECT_EQ(CodePoint(FromCodePoint(unit)), unit);
  }
}

}  // namespace

}  // namespace hwxtest
