// The operations on raw strings of the firmware, at all their limits. Texts stand in memory that
// ends where they end.

#include <gmock/gmock.h>

#include <climits>
#include <string>
#include <vector>

#include "hwxcore/os/TOSSpecific.h"

namespace NQORHWX20 {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using namespace std::string_literals;

using TMemory = std::vector<char>;

TMemory Memory(const std::string& text) {
  return TMemory(text.begin(), text.end());
}

// What one call found and left in the destination, which held marks before.
struct TCopied {
  int fResult;
  std::string fDestination;
};

bool operator==(const TCopied& one, const TCopied& other) {
  return one.fResult == other.fResult && one.fDestination == other.fDestination;
}

std::ostream& operator<<(std::ostream& stream, const TCopied& copied) {
  return stream << copied.fResult << ": " << testing::PrintToString(copied.fDestination);
}

TCopied Copy(const std::string& source, int index, int size) {
  TMemory memory = Memory(source);
  TMemory destination(source.size() + 1, '#');
  const int result = TOSSpecific::getBIDString(memory.data(), destination.data(), size, index);
  std::string text(destination.begin(), destination.end());
  return {result, text.erase(text.find_last_not_of('#') + 1)};
}

TCopied Copy(const std::string& source, int index) {
  return Copy(source, index, static_cast<int>(source.size()));
}

const TCopied kNothing{0, ""};

TEST(getBIDString, CopiesTheFirstStringWithoutItsNul) {
  EXPECT_EQ(Copy("abc\0de\0f\0"s, 1), (TCopied{1, "abc"}));
}

TEST(getBIDString, CopiesALaterStringWithItsNul) {
  EXPECT_EQ(Copy("abc\0de\0f\0"s, 2), (TCopied{1, "de\0"s}));
  EXPECT_EQ(Copy("abc\0de\0f\0"s, 3), (TCopied{1, "f\0"s}));
}

TEST(getBIDString, CopiesNothingOfAnEmptyFirstString) {
  EXPECT_EQ(Copy("\0ab\0"s, 1), (TCopied{1, ""}));
}

TEST(getBIDString, CopiesTheNulOfALaterEmptyString) {
  EXPECT_EQ(Copy("ab\0\0c\0"s, 2), (TCopied{1, "\0"s}));
  EXPECT_EQ(Copy("ab\0\0c\0"s, 3), (TCopied{1, "c\0"s}));
}

TEST(getBIDString, FindsNoStringPastTheLast) {
  EXPECT_EQ(Copy("abc\0de\0"s, 3), kNothing);
}

TEST(getBIDString, FindsNoStringOfNumberZeroOrLess) {
  for (const int index : {0, -1, INT_MIN})
    EXPECT_EQ(Copy("abc\0de\0"s, index), kNothing) << index;
}

TEST(getBIDString, FindsAStringWhoseNulIsTheLastByte) {
  EXPECT_EQ(Copy("abc\0de\0"s, 1, 4), (TCopied{1, "abc"}));
  EXPECT_EQ(Copy("abc\0de\0"s, 2, 7), (TCopied{1, "de\0"s}));
}

TEST(getBIDString, FindsNoStringWhoseNulLiesAtTheSizeOrBehind) {
  EXPECT_EQ(Copy("abc\0de\0"s, 1, 3), kNothing);
  EXPECT_EQ(Copy("abc\0de\0"s, 2, 6), kNothing);
  EXPECT_EQ(Copy("abc"s, 1), kNothing);
}

TEST(getBIDString, FindsNothingInNoBytes) {
  for (const int size : {0, -1, INT_MIN})
    EXPECT_EQ(Copy("\0"s, 1, size), kNothing) << size;
}

TEST(getBIDString, FindsAnEmptyStringInOneByte) {
  EXPECT_EQ(Copy("\0"s, 1, 1), (TCopied{1, ""}));
  EXPECT_EQ(Copy("\0"s, 2, 1), kNothing);
  EXPECT_EQ(Copy("a"s, 1, 1), kNothing);
}

TEST(getBIDString, FindsTwoEmptyStringsInTwoBytes) {
  EXPECT_EQ(Copy("\0\0"s, 1, 2), (TCopied{1, ""}));
  EXPECT_EQ(Copy("\0\0"s, 2, 2), (TCopied{1, "\0"s}));
  EXPECT_EQ(Copy("a\0"s, 1, 2), (TCopied{1, "a"}));
}

TEST(getBIDString, CopiesBytesOfAnyKind) {
  EXPECT_EQ(Copy("\xff\x80 \0\x7f\xc3\0"s, 1), (TCopied{1, "\xff\x80 "}));
  EXPECT_EQ(Copy("\xff\x80 \0\x7f\xc3\0"s, 2), (TCopied{1, "\x7f\xc3\0"s}));
}

std::vector<std::string> Tokens(const std::string& text, unsigned long size, char separator) {
  TMemory memory = Memory(text);
  return TOSSpecific::multiStringTok(memory.data(), size, separator);
}

std::vector<std::string> Tokens(const std::string& text, char separator = '\0') {
  return Tokens(text, text.size(), separator);
}

TEST(multiStringTok, LeavesOutTheLastStringWhenTheSizeIsExact) {
  EXPECT_THAT(Tokens("ab\0c\0def\0\0"s), ElementsAre("ab", "c"));
}

TEST(multiStringTok, FindsTheLastStringWithAByteMore) {
  EXPECT_THAT(Tokens("ab\0c\0def\0\0\0"s), ElementsAre("ab", "c", "def"));
}

TEST(multiStringTok, LeavesOutAStringWhoseEndLiesAtTheLimit) {
  EXPECT_THAT(Tokens("abc\0\0"s), IsEmpty());
  EXPECT_THAT(Tokens("abc\0\0\0"s), ElementsAre("abc"));
}

TEST(multiStringTok, LeavesOutAStringWithoutAnEnd) {
  EXPECT_THAT(Tokens("ab\0cdefgh"s), ElementsAre("ab"));
  EXPECT_THAT(Tokens("abcdefgh"s), IsEmpty());
}

TEST(multiStringTok, KeepsEmptyStrings) {
  EXPECT_THAT(Tokens("\0\0ab\0\0\0"s), ElementsAre("", "", "ab"));
  EXPECT_THAT(Tokens("ab\0\0\0\0"s), ElementsAre("ab", ""));
}

TEST(multiStringTok, FindsNothingInUpToTwoBytes) {
  for (const unsigned long size : {0, 1, 2})
    EXPECT_THAT(Tokens("\0\0"s, size, '\0'), IsEmpty()) << size;
  EXPECT_THAT(TOSSpecific::multiStringTok(nullptr, 0, '\0'), IsEmpty());
}

TEST(multiStringTok, FindsAnEmptyStringInThreeBytes) {
  EXPECT_THAT(Tokens("\0ab"s), ElementsAre(""));
  EXPECT_THAT(Tokens("a\0b"s), IsEmpty());
}

TEST(multiStringTok, LooksForTheSeparatorOnceAndThenForNul) {
  EXPECT_THAT(Tokens("ab,c,d\0ef\0\0\0"s, ','), ElementsAre("ab", "c,d", "ef"));
}

TEST(multiStringTok, PassesOverANulBeforeTheFirstSeparator) {
  EXPECT_THAT(Tokens("a\0b,cd\0\0\0"s, ','), ElementsAre("a\0b"s, "cd"));
}

TEST(multiStringTok, FindsNothingWithoutTheSeparator) {
  EXPECT_THAT(Tokens("ab\0cd\0\0\0"s, ','), IsEmpty());
}

TEST(multiStringTok, TakesASeparatorThatIsNoAscii) {
  EXPECT_THAT(Tokens("ab\xff"
                     "cd\0\0\0"s,
                     '\xff'),
              ElementsAre("ab", "cd"));
}

TEST(multiStringTok, LooksOnlyAtTheBytesThatItIsGiven) {
  EXPECT_THAT(Tokens("ab\0cd\0ef\0\0\0"s, 8, '\0'), ElementsAre("ab", "cd"));
  EXPECT_THAT(Tokens("ab\0cd\0ef\0\0\0"s, 7, '\0'), ElementsAre("ab"));
}

// What is left of a text.
std::string WithoutBrackets(std::string text) {
  EXPECT_EQ(TOSSpecific::removeNonAlpaNumeric(text), 1);
  return text;
}

TEST(removeNonAlpaNumeric, RemovesBracketsAndWhatLiesOutside) {
  EXPECT_EQ(WithoutBrackets("-[AB12-1.05]-"), "AB12-1.05");
  EXPECT_EQ(WithoutBrackets("[AB]"), "AB");
}

TEST(removeNonAlpaNumeric, RemovesWhatOneBracketCutsOff) {
  EXPECT_EQ(WithoutBrackets("x[AB"), "AB");
  EXPECT_EQ(WithoutBrackets("AB]x"), "AB");
}

TEST(removeNonAlpaNumeric, LooksForTheClosingBracketBehindTheOpeningOne) {
  EXPECT_EQ(WithoutBrackets("a]b[c]d"), "c");
  EXPECT_EQ(WithoutBrackets("a]b[c"), "c");
}

TEST(removeNonAlpaNumeric, TakesTheFirstOfSeveralBrackets) {
  EXPECT_EQ(WithoutBrackets("[[a]]"), "[a");
  EXPECT_EQ(WithoutBrackets("[a][b]"), "a");
}

TEST(removeNonAlpaNumeric, LeavesNothingOfEmptyBrackets) {
  EXPECT_EQ(WithoutBrackets("[]"), "");
  EXPECT_EQ(WithoutBrackets("a["), "");
  EXPECT_EQ(WithoutBrackets("]a"), "");
}

TEST(removeNonAlpaNumeric, LeavesEverythingElseAlone) {
  const std::string other = " -(A1)_{\xff}\0."s;
  EXPECT_EQ(WithoutBrackets(other), other);
  EXPECT_EQ(WithoutBrackets(""), "");
}

// A version taken apart: the build, and what is left of the version.
std::pair<std::string, std::string> Apart(std::string text) {
  std::string build = text;
  EXPECT_EQ(TOSSpecific::breakApartVersion(text, build), 1);
  return {build, text};
}

std::pair<std::string, std::string> BuildAndText(const std::string& build,
                                                 const std::string& text) {
  return {build, text};
}

TEST(breakApartVersion, SplitsAtTheOnlyDash) {
  EXPECT_EQ(Apart("AB12-1.05"), BuildAndText("AB12", "1.05"));
}

TEST(breakApartVersion, SplitsAtTheSecondDash) {
  EXPECT_EQ(Apart("AB-12-1.05"), BuildAndText("AB-12", "1.05"));
  EXPECT_EQ(Apart("AB-12-1-05-"), BuildAndText("AB-12", "1-05-"));
}

TEST(breakApartVersion, LeavesATextWithoutADashTwice) {
  EXPECT_EQ(Apart("AB12"), BuildAndText("AB12", "AB12"));
  EXPECT_EQ(Apart(""), BuildAndText("", ""));
}

TEST(breakApartVersion, LeavesEmptyTextsBesideADashAtAnEnd) {
  EXPECT_EQ(Apart("-1.05"), BuildAndText("", "1.05"));
  EXPECT_EQ(Apart("AB-"), BuildAndText("AB", ""));
  EXPECT_EQ(Apart("-"), BuildAndText("", ""));
  EXPECT_EQ(Apart("--"), BuildAndText("-", ""));
  EXPECT_EQ(Apart("-AB-1"), BuildAndText("-AB", "1"));
}

TEST(breakApartVersion, CutsABuildThatIsNoCopyWithinItsLength) {
  std::string text = "AB12-1.05";
  std::string build = "A";
  EXPECT_EQ(TOSSpecific::breakApartVersion(text, build), 1);
  EXPECT_EQ(build, "A");
  EXPECT_EQ(text, "1.05");
}

}  // namespace
}  // namespace NQORHWX20
