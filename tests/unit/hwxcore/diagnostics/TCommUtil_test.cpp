#include "hwxcore/diagnostics/TCommUtil.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "support/ChildProcess.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"

using hwxtest::TemporaryDirectory;
using NQORHWX20::TCommUtil;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> Split(const std::string& path, const std::string& separator,
                               bool keepSeparator) {
  std::vector<std::string> pieces;
  TCommUtil::SplitPath(path, pieces, separator, keepSeparator);
  return pieces;
}

int StatusOfMkDirHier(const std::string& path) {
  return hwxtest::StatusOf([&] { TCommUtil::MkDirHier(path); });
}

TEST(TCommUtilRemoveSpaces, GivesAnEmptyTextBack) {
  EXPECT_EQ(TCommUtil::RemoveSpaces(""), "");
}

TEST(TCommUtilRemoveSpaces, RemovesOuterBlanksAndKeepsInnerOnes) {
  EXPECT_EQ(TCommUtil::RemoveSpaces("  System x3650 M5   "), "System x3650 M5");
  EXPECT_EQ(TCommUtil::RemoveSpaces("plain"), "plain");
}

TEST(TCommUtilRemoveSpaces, MakesBlanksAloneEmpty) {
  EXPECT_EQ(TCommUtil::RemoveSpaces("   "), "");
  EXPECT_EQ(TCommUtil::RemoveSpaces("  \nbehind"), "");
}

TEST(TCommUtilRemoveSpaces, CutsAtTheFirstNewline) {
  EXPECT_EQ(TCommUtil::RemoveSpaces("one\ntwo\nthree"), "one");
  EXPECT_EQ(TCommUtil::RemoveSpaces("\nbehind"), "");
}

TEST(TCommUtilRemoveSpaces, RemovesCarriageReturnAndNewlineAtTheEnd) {
  EXPECT_EQ(TCommUtil::RemoveSpaces("line\r\n"), "line");
}

TEST(TCommUtilRemoveSpaces, TrimsBeforeItCutsAtTheCarriageReturn) {
  EXPECT_EQ(TCommUtil::RemoveSpaces(" one  \r two "), "one  ");
  EXPECT_EQ(TCommUtil::RemoveSpaces("  \r"), "");
}

TEST(TCommUtilRemoveSpaces, TrimsAfterItCutAtTheNewline) {
  EXPECT_EQ(TCommUtil::RemoveSpaces(" one  \n two"), "one");
}

TEST(TCommUtilRemoveSpaces, KeepsTabsAtBothEnds) {
  EXPECT_EQ(TCommUtil::RemoveSpaces("\tindented\t"), "\tindented\t");
  EXPECT_EQ(TCommUtil::RemoveSpaces(" \t one \t "), "\t one \t");
}

TEST(TCommUtilRemoveSpaces, RejectsALineWithAnUnprintableCharacterAsAWhole) {
  EXPECT_EQ(TCommUtil::RemoveSpaces("a\x01z"), "");
  EXPECT_EQ(TCommUtil::RemoveSpaces(std::string("a\0z", 3)), "");
  EXPECT_EQ(TCommUtil::RemoveSpaces("a\x7fz"), "");
}

TEST(TCommUtilRemoveSpaces, RejectsCharactersAbove127) {
  EXPECT_EQ(TCommUtil::RemoveSpaces("M\xc3\xbcller"), "");
  EXPECT_EQ(TCommUtil::RemoveSpaces("\xff"), "");
}

TEST(TCommUtilRemoveSpaces, LooksOnlyAtWhatTheCutsLeave) {
  EXPECT_EQ(TCommUtil::RemoveSpaces("good\n\x01"), "good");
  EXPECT_EQ(TCommUtil::RemoveSpaces("good\r\x01"), "good");
}

TEST(TCommUtilRemoveSpaces, AcceptsEveryPrintableAsciiCharacterAndSpace) {
  std::string text = "x\t\v\f";
  for (char character = ' '; character <= '~'; ++character)
    text += character;
  EXPECT_EQ(TCommUtil::RemoveSpaces(text), text);
}

TEST(TCommUtilSplitPath, AddsNothingForAnEmptyPath) {
  EXPECT_THAT(Split("", "/", true), IsEmpty());
  EXPECT_THAT(Split("", "/", false), IsEmpty());
}

TEST(TCommUtilSplitPath, AppendsThePathWholeWhereThereIsNoSeparator) {
  EXPECT_THAT(Split("name", "/", true), ElementsAre("name"));
  EXPECT_THAT(Split("name", "/", false), ElementsAre("name"));
}

TEST(TCommUtilSplitPath, KeepsTheSeparators) {
  EXPECT_THAT(Split("/var/log/", "/", true), ElementsAre("/", "var/", "log/"));
  EXPECT_THAT(Split("/var/log", "/", true), ElementsAre("/", "var/", "log"));
  EXPECT_THAT(Split("a//b", "/", true), ElementsAre("a/", "/", "b"));
}

TEST(TCommUtilSplitPath, DropsTheSeparators) {
  EXPECT_THAT(Split("/var/log/", "/", false), ElementsAre("", "var", "log"));
  EXPECT_THAT(Split("a//b", "/", false), ElementsAre("a", "", "b"));
}

TEST(TCommUtilSplitPath, GivesNoLastPieceBehindASeparatorAtTheEnd) {
  EXPECT_THAT(Split("/", "/", true), ElementsAre("/"));
  EXPECT_THAT(Split("/", "/", false), ElementsAre(""));
}

TEST(TCommUtilSplitPath, KeepsAndSkipsOneCharacterOfALongSeparator) {
  EXPECT_THAT(Split("a::b", "::", true), ElementsAre("a:", ":b"));
  EXPECT_THAT(Split("a::b", "::", false), ElementsAre("a", ":b"));
  EXPECT_THAT(Split("a::", "::", false), ElementsAre("a", ":"));
}

TEST(TCommUtilSplitPath, EndsWithAnEmptySeparator) {
  EXPECT_THAT(Split("abc", "", true), ElementsAre("a", "b", "c"));
  EXPECT_THAT(Split("abc", "", false), ElementsAre("", "", ""));
}

TEST(TCommUtilSplitPath, AppendsToThePiecesThatAreThere) {
  std::vector<std::string> pieces{"before"};
  TCommUtil::SplitPath("a/b", pieces, "/", false);
  EXPECT_THAT(pieces, ElementsAre("before", "a", "b"));
}

TEST(TCommUtilSplitPath, SplitsAnElementOfThePieces) {
  std::vector<std::string> pieces{"one/two/three/four"};
  pieces.shrink_to_fit();
  TCommUtil::SplitPath(pieces[0], pieces, "/", false);
  EXPECT_THAT(pieces, ElementsAre("one/two/three/four", "one", "two", "three", "four"));
}

TEST(TCommUtilMkDirHier, MakesADirectoryWithAllItsParents) {
  const TemporaryDirectory scratch;
  TCommUtil::MkDirHier(scratch / "a/b/c/");
  EXPECT_TRUE(std::filesystem::is_directory(scratch / "a/b/c"));
  TCommUtil::MkDirHier(scratch / "d//e");
  EXPECT_TRUE(std::filesystem::is_directory(scratch / "d/e"));
}

TEST(TCommUtilMkDirHier, DoesNothingWhereTheTreeExists) {
  const TemporaryDirectory scratch;
  std::filesystem::create_directories(scratch / "a/b");
  std::ofstream(scratch / "a/b/file") << "content";
  EXPECT_EQ(StatusOfMkDirHier(scratch / "a/b/"), NQORHWX20::kHWXStatusOK);
  EXPECT_EQ(StatusOfMkDirHier("/"), NQORHWX20::kHWXStatusOK);
  EXPECT_EQ(std::filesystem::file_size(scratch / "a/b/file"), 7U);
}

TEST(TCommUtilMkDirHier, DoesNothingForTheEmptyPath) {
  EXPECT_EQ(StatusOfMkDirHier(""), NQORHWX20::kHWXStatusOK);
}

TEST(TCommUtilMkDirHier, FollowsALinkToADirectory) {
  const TemporaryDirectory scratch;
  std::filesystem::create_directory(scratch / "real");
  std::filesystem::create_directory_symlink(scratch / "real", scratch / "link");
  TCommUtil::MkDirHier(scratch / "link/inner");
  EXPECT_TRUE(std::filesystem::is_directory(scratch / "real/inner"));
}

TEST(TCommUtilMkDirHier, KeepsARelativePathRelative) {
  const TemporaryDirectory scratch;
  const int result = hwxtest::RunInChild([&] {
    if (::chdir(scratch.Path().c_str()) != 0) return 2;
    TCommUtil::MkDirHier("x/y/");
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(std::filesystem::is_directory(scratch / "x/y"));
}

TEST(TCommUtilMkDirHier, PassesOnThatAFileIsInTheWay) {
  const TemporaryDirectory scratch;
  std::ofstream(scratch / "file");
  EXPECT_EQ(StatusOfMkDirHier(scratch / "file"), NQORHWX20::kHWXStatusDirectoryAlreadyExists);
  EXPECT_EQ(StatusOfMkDirHier(scratch / "file/inner"), NQORHWX20::kHWXStatusDirectoryAlreadyExists);
}

TEST(TCommUtilMkDirHier, LeavesTheLevelsMadeBeforeAFailure) {
  const TemporaryDirectory scratch;
  const std::string tooLong(300, 'x');
  EXPECT_EQ(StatusOfMkDirHier(scratch / "a/b/" + tooLong), NQORHWX20::kHWXStatusFileSystemError);
  EXPECT_TRUE(std::filesystem::is_directory(scratch / "a/b"));
}

TEST(TCommUtilMkDirHier, PassesOnThatAccessIsDenied) {
  const TemporaryDirectory scratch;
  ::chmod(scratch.Path().c_str(), 0555);
  hwxtest::RunScene("no right to change the user", [&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(StatusOfMkDirHier(scratch / "a/b"), NQORHWX20::kHWXStatusAccessDenied);
    return 0;
  });
  ::chmod(scratch.Path().c_str(), 0755);
}

}  // namespace
