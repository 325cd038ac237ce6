#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "support/PluginRoot.h"

using hwxtest::PluginRoot;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

std::vector<std::string> Lines(const PluginRoot::Result& result) {
  EXPECT_EQ(result.fStatus, 0) << result.fErr;
  std::vector<std::string> lines;
  std::istringstream text(result.fOut);
  for (std::string line; std::getline(text, line);)
    lines.push_back(line);
  return lines;
}

TEST(FindNSServices, LooksInTheDirectoryOfTheLibrary) {
  PluginRoot root;
  EXPECT_THAT(Lines(root.Run({"root"})), ElementsAre(root.Path()));
  EXPECT_THAT(Lines(root.Run({"find-nsps", "find-nscs"})), IsEmpty());
}

TEST(FindNSServices, TellsProvidersAndConsumersApart) {
  PluginRoot root;
  root.AddFile("libfoo.nsp.so");
  root.AddFile("libbar.nsp.so");
  root.AddFile("libbaz.nsc.so");
  root.AddFile("libfoo.pi.so");
  EXPECT_THAT(Lines(root.Run({"find-nsps"})), UnorderedElementsAre("found [foo]", "found [bar]"));
  EXPECT_THAT(Lines(root.Run({"find-nscs"})), ElementsAre("found [baz]"));
}

TEST(FindNSServices, KeepsTheOrderOfTheDirectory) {
  PluginRoot root;
  const std::vector<std::string> names = {"m", "b", "z", "a", "y", "c", "k", "d"};
  for (const std::string& name : names)
    root.AddFile("lib" + name + ".nsp.so");
  std::vector<std::string> expected;
  for (const auto& entry : std::filesystem::directory_iterator(root.Path())) {
    const std::string file = entry.path().filename();
    if (entry.path().stem().extension() == ".nsp") {
      expected.push_back("found [" + file.substr(3, 1) + "]");
    }
  }
  ASSERT_EQ(expected.size(), names.size());
  EXPECT_EQ(Lines(root.Run({"find-nsps"})), expected);
}

TEST(FindNSServices, CutsALongerEndingByPosition) {
  PluginRoot root;
  root.AddFile("libfoo.nsp.so.1");
  EXPECT_THAT(Lines(root.Run({"find-nsps"})), ElementsAre("found [foo.n]"));
}

TEST(FindNSServices, ReturnsAnEmptyName) {
  PluginRoot root;
  root.AddFile("lib.nsp.so");
  EXPECT_THAT(Lines(root.Run({"find-nsps"})), ElementsAre("found []"));
}

TEST(FindNSServices, TakesAllBehindTheFrontOfANameThatIsTooShort) {
  PluginRoot root;
  root.AddFile("a.nsp.so");
  EXPECT_THAT(Lines(root.Run({"find-nsps"})), ElementsAre("found [sp.so]"));
}

TEST(FindNSServices, MatchesTheWordWithoutTheEndingAndAnyFront) {
  PluginRoot root;
  root.AddFile("notes.nsp.txt!");
  EXPECT_THAT(Lines(root.Run({"find-nsps"})), ElementsAre("found [es.n]"));
}

// Seven characters are cut for any word, since that is the length of ".ns?.so".
TEST(FindNSServices, CutsAsMuchForAnotherWord) {
  PluginRoot root;
  root.AddFile("libfoo.pi.so");
  EXPECT_THAT(Lines(root.Run({"find:pi"})), ElementsAre("found [fo]"));
}

TEST(FindNSServices, PassesOverDirectoriesAndBrokenLinks) {
  PluginRoot root;
  root.AddDirectory("libfoo.nsp.so");
  std::filesystem::create_symlink("nowhere", root / "libbar.nsp.so");
  root.AddDirectory("real");
  std::filesystem::create_symlink("real", root / "libbaz.nsp.so");
  root.AddFile("file");
  std::filesystem::create_symlink("file", root / "libgood.nsp.so");
  EXPECT_THAT(Lines(root.Run({"find-nsps"})), ElementsAre("found [good]"));
}

TEST(FindNSServices, PassesTheStandardErrorOnForANameOfTwoCharacters) {
  PluginRoot root;
  root.AddFile(".a");
  const std::vector<std::string> lines = Lines(root.Run({"find:a"}));
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_THAT(lines[0], testing::StartsWith("exception basic_string::substr"));
}

TEST(FindNSServices, FailsWithoutALogEntryWhenTheDirectoryIsGone) {
  PluginRoot root;
  EXPECT_THAT(Lines(root.Run({"remove:" + root.Path(), "find-nsps", "find-nscs"})),
              ElementsAre("status 11", "status 11"));
}

}  // namespace
