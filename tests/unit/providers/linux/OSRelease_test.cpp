#include "providers/linux/OSRelease.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace linux_machine {

namespace {

using ::testing::Optional;

using namespace std::string_literals;

std::optional<std::string> Name(const std::string& value) {
  return ParseOSRelease("NAME=" + value + "\n").fName;
}

TEST(OSRelease, ReadsWhatADistributionWrites) {
  const TOSRelease release = ParseOSRelease(
      "PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\n"
      "NAME=\"Debian GNU/Linux\"\n"
      "VERSION_ID=\"12\"\n"
      "VERSION=\"12 (bookworm)\"\n"
      "ID=debian\n");
  EXPECT_THAT(release.fPrettyName, Optional("Debian GNU/Linux 12 (bookworm)"s));
  EXPECT_THAT(release.fName, Optional("Debian GNU/Linux"s));
  EXPECT_THAT(release.fVersionID, Optional("12"s));
}

TEST(OSRelease, NamesAreTakenWhole) {
  const TOSRelease release = ParseOSRelease("CPE_NAME=cpe\nVERSION=5\nNAME2=x\nname=y\n");
  EXPECT_EQ(release.fName, std::nullopt);
  EXPECT_EQ(release.fVersionID, std::nullopt);
}

TEST(OSRelease, QuotesOfBothKindsComeOff) {
  EXPECT_THAT(Name("plain"), Optional("plain"s));
  EXPECT_THAT(Name("'single \"inner\" quotes'"), Optional("single \"inner\" quotes"s));
  EXPECT_THAT(Name("\"double 'inner' quotes\""), Optional("double 'inner' quotes"s));
  EXPECT_THAT(Name("\"two\"' parts'"), Optional("two parts"s));
}

TEST(OSRelease, BackslashesCountAsTheyDoInAShell) {
  EXPECT_THAT(Name(R"("a \"b\" \$c \` \\ \d")"), Optional(R"(a "b" $c ` \ \d)"s));
  EXPECT_THAT(Name(R"('a\b')"), Optional(R"(a\b)"s));
  EXPECT_THAT(Name(R"(a\ b\'c)"), Optional("a b'c"s));
  EXPECT_THAT(Name(R"(end\)"), Optional(R"(end\)"s));
}

TEST(OSRelease, AnUnquotedValueEndsAtABlank) {
  EXPECT_THAT(Name("one two"), Optional("one"s));
  EXPECT_THAT(Name("dos\r"), Optional("dos"s));
}

TEST(OSRelease, AQuoteThatNothingClosesEndsWithItsLine) {
  const TOSRelease release = ParseOSRelease("NAME=\"open\nVERSION_ID=7\n");
  EXPECT_THAT(release.fName, Optional("open"s));
  EXPECT_THAT(release.fVersionID, Optional("7"s));
}

TEST(OSRelease, CommentsAndOtherLinesArePassedOver) {
  const TOSRelease release =
      ParseOSRelease("#NAME=a\n\nNAME\n=b\n  # NAME=c\nexport NAME=d\n  VERSION_ID=8");
  EXPECT_EQ(release.fName, std::nullopt);
  EXPECT_THAT(release.fVersionID, Optional("8"s));
}

TEST(OSRelease, TheLastAssignmentCounts) {
  EXPECT_THAT(ParseOSRelease("NAME=a\nNAME=b\n").fName, Optional("b"s));
  EXPECT_EQ(ParseOSRelease("NAME=a\nNAME=\n").fName, std::nullopt);
}

TEST(OSRelease, EmptyValuesCountAsMissing) {
  EXPECT_EQ(Name(""), std::nullopt);
  EXPECT_EQ(Name("\"\""), std::nullopt);
}

TEST(OSRelease, BytesOfAnyEncodingPassAndNulCutsTheValue) {
  EXPECT_THAT(Name("caf\xe9"), Optional("caf\xe9"s));
  EXPECT_THAT(Name("\"ab\0cd\""s), Optional("ab"s));
  EXPECT_EQ(Name("\0"s), std::nullopt);
}

TEST(OSRelease, GarbageGivesNothing) {
  for (const std::string& text : {""s, "\n"s, "="s, "\0"s, "\"'\\"s, std::string(100000, '=')}) {
    const TOSRelease release = ParseOSRelease(text);
    EXPECT_EQ(release.fName, std::nullopt);
    EXPECT_EQ(release.fPrettyName, std::nullopt);
    EXPECT_EQ(release.fVersionID, std::nullopt);
  }
}

}  // namespace

}  // namespace linux_machine
