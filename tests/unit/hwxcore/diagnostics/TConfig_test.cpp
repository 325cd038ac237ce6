// In processes of their own, which find the library, and so the file, in a scratch directory.

#include "hwxcore/diagnostics/TConfig.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <type_traits>

#include "hwxcore/value/THWXStatusCode.h"
#include "support/PluginRoot.h"

using hwxtest::PluginRoot;
using NQORHWX20::TConfig;

namespace {

static_assert(!std::is_polymorphic_v<TConfig>);
static_assert(!std::is_copy_constructible_v<TConfig>);
static_assert(std::is_same_v<decltype(TConfig::GetInstance()), TConfig*>);

const std::string kParseStarts = "Debug: TConfig::parseConfigFile(): start to parse config file\n";
const std::string kMissing = "Error: TConfig::parseConfigFile(): config file doesn't exist\n";
const std::string kMapIsEmpty = "Error: TConfig::getValue(): map is empty\n";
const std::string kKeyNotFound = "Error: TConfig::getValue(): key not found\n";

std::string Found(const std::string& key, const std::string& value) {
  return "Debug: TConfig::getValue(): key " + key + " found, value is " + value + "\n";
}

class TConfigTest : public testing::Test {
 protected:
  void WriteFile(const std::string& text, const std::string& name = "dct.cfg") {
    if (!std::filesystem::exists(fRoot / "dct")) fRoot.AddDirectory("dct");
    fRoot.AddFile("dct/" + name, text);
  }

  // What the steps of the front end print.
  std::string OutputOf(const std::vector<std::string>& steps) {
    const PluginRoot::Result result = fRoot.Run(steps);
    EXPECT_EQ(result.fStatus, 0);
    EXPECT_EQ(result.fErr, "");
    return result.fOut;
  }

  // The same, once the configuration has been made.
  std::string OutputBehindGet(std::vector<std::string> steps) {
    const std::string front = OutputOf({"get"});
    steps.insert(steps.begin(), "get");
    const std::string output = OutputOf(steps);
    EXPECT_EQ(output.substr(0, front.size()), front);
    return output.substr(front.size());
  }

  std::string FilePath() const { return fRoot / "dct/dct.cfg"; }
  std::string PathLine() const { return "Status: Config file path:" + FilePath() + "\n"; }

  PluginRoot fRoot;
};

TEST_F(TConfigTest, ReadsTheFileBesideTheLibrary) {
  WriteFile("timeout=300\n");
  EXPECT_EQ(OutputOf({"get"}), PathLine() + kParseStarts);
  EXPECT_EQ(OutputBehindGet({"keys"}), "key [timeout]\n");
  EXPECT_EQ(OutputBehindGet({"value:timeout"}), "[300]\n" + Found("timeout", "300"));
}

TEST_F(TConfigTest, LooksNowhereElse) {
  fRoot.AddFile("dct.cfg", "beside=library\n");
  WriteFile("other=name\n", "dct.conf");
  EXPECT_EQ(OutputOf({"get"}), PathLine() + kParseStarts + kMissing);
}

TEST_F(TConfigTest, IsMadeAndReadOnce) {
  WriteFile("a=1\n");
  WriteFile("a=2\nb=2\n", "next");
  EXPECT_EQ(OutputBehindGet({"put-in-place:" + (fRoot / "dct/next"), "one", "keys", "value:a"}),
            "one\nkey [a]\n[1]\n" + Found("a", "1"));
}

TEST_F(TConfigTest, SplitsALineAtItsFirstSign) {
  WriteFile("a=b=c\nd==\n");
  EXPECT_EQ(OutputBehindGet({"keys"}), "key [a]\nkey [d]\n");
  EXPECT_EQ(OutputBehindGet({"value:a"}), "[b=c]\n" + Found("a", "b=c"));
  EXPECT_EQ(OutputBehindGet({"value:d"}), "[=]\n" + Found("d", "="));
}

TEST_F(TConfigTest, TrimsNothing) {
  WriteFile(" a = b \n");
  EXPECT_EQ(OutputBehindGet({"keys"}), "key [ a ]\n");
  EXPECT_EQ(OutputBehindGet({"value: a "}), "[ b ]\n" + Found(" a ", " b "));
  EXPECT_EQ(OutputBehindGet({"value:a"}), "[]\n" + kKeyNotFound);
}

TEST_F(TConfigTest, SortsItsKeysByTheirBytes) {
  WriteFile("b=1\na=1\n\xC3\xBC=1\nB=1\na.b=1\n10=1\n9=1\n");
  EXPECT_EQ(OutputBehindGet({"keys"}),
            "key [10]\nkey [9]\nkey [B]\nkey [a]\nkey [a.b]\nkey [b]\nkey [\xC3\xBC]\n");
}

TEST_F(TConfigTest, TellsTheCaseOfKeysApart) {
  WriteFile("Key=1\n");
  EXPECT_EQ(OutputBehindGet({"value:key"}), "[]\n" + kKeyNotFound);
}

TEST_F(TConfigTest, GivesTheEmptyTextForAKeyThatIsNotThere) {
  WriteFile("a=1\n");
  EXPECT_EQ(OutputBehindGet({"value:b"}), "[]\n" + kKeyNotFound);
  EXPECT_EQ(OutputBehindGet({"value:"}), "[]\n" + kKeyNotFound);
}

TEST_F(TConfigTest, ReadsAFileOfOneByte) {
  WriteFile("k");
  EXPECT_EQ(OutputOf({"get"}), PathLine() + kParseStarts);
  EXPECT_EQ(OutputBehindGet({"value:k"}), "[k]\n" + Found("k", "k"));
}

TEST_F(TConfigTest, FollowsALinkToTheFile) {
  WriteFile("a=1\n", "real");
  std::filesystem::create_symlink("real", FilePath());
  EXPECT_EQ(OutputBehindGet({"value:a"}), "[1]\n" + Found("a", "1"));
}

TEST_F(TConfigTest, IsEmptyWithoutAFile) {
  EXPECT_EQ(OutputOf({"get"}), PathLine() + kParseStarts + kMissing);
  EXPECT_EQ(OutputBehindGet({"value:a"}), "[]\n" + kMapIsEmpty);
  EXPECT_EQ(OutputBehindGet({"keys"}), kMapIsEmpty);  // under the name of the other operation
  EXPECT_EQ(OutputBehindGet({"parse"}), "false\n" + kParseStarts + kMissing);
}

TEST_F(TConfigTest, CallsAnEmptyFileMissing) {
  WriteFile("");
  EXPECT_EQ(OutputOf({"get"}), PathLine() + kParseStarts + kMissing);
}

TEST_F(TConfigTest, TakesADirectoryForAMissingFile) {
  std::filesystem::create_directories(FilePath());
  EXPECT_EQ(OutputOf({"get"}), PathLine() + kParseStarts + kMissing);
}

TEST_F(TConfigTest, NeverWaitsForAPipe) {
  fRoot.AddDirectory("dct");
  ASSERT_EQ(::mkfifo(FilePath().c_str(), 0600), 0);
  EXPECT_EQ(OutputOf({"get"}), PathLine() + kParseStarts + kMissing);
}

TEST_F(TConfigTest, IsEmptyWithAFileWithoutKeysButDoesNotCallItMissing) {
  WriteFile("# nothing\n\n=\n");
  EXPECT_EQ(OutputOf({"get"}), PathLine() + kParseStarts);
  EXPECT_EQ(OutputBehindGet({"keys"}), kMapIsEmpty);
  EXPECT_EQ(OutputBehindGet({"value:a"}), "[]\n" + kMapIsEmpty);
  EXPECT_EQ(OutputBehindGet({"parse"}), "true\n" + kParseStarts);
}

TEST_F(TConfigTest, SaysNothingOfAFileThatCannotBeOpened) {
  WriteFile("a=1\n");
  EXPECT_EQ(OutputOf({"no-descriptor", "get"}), PathLine() + kParseStarts);
  EXPECT_EQ(OutputOf({"no-descriptor", "get", "value:a"}),
            PathLine() + kParseStarts + "[]\n" + kMapIsEmpty);
  EXPECT_EQ(OutputBehindGet({"no-descriptor", "parse"}), "false\n" + kParseStarts);
}

TEST_F(TConfigTest, LogsAnExceptionOfTheOpening) {
  WriteFile("a=1\n");
  const std::string failed =
      "Error: TConfig::parseConfigFile(): Open config file " + FilePath() + " failed\n";
  EXPECT_EQ(OutputOf({"no-file-buffer", "get"}), PathLine() + kParseStarts + failed);
  EXPECT_EQ(OutputBehindGet({"no-file-buffer", "parse"}), "false\n" + kParseStarts + failed);
}

TEST_F(TConfigTest, AddsNewKeysAndKeepsOldValuesWhenItIsReadOnceMore) {
  WriteFile("a=1\nb=1\n");
  WriteFile("b=2\nc=2\n", "next");
  EXPECT_EQ(OutputBehindGet({"put-in-place:" + (fRoot / "dct/next"), "parse", "keys", "value:b"}),
            "true\n" + kParseStarts + "key [a]\nkey [b]\nkey [c]\n[1]\n" + Found("b", "1"));
}

TEST_F(TConfigTest, TriesAgainAfterTheLibrarysPathCouldNotBeTold) {
  WriteFile("a=1\n");
  const std::string failed =
      "status " + std::to_string(NQORHWX20::kHWXStatusFileSystemError) + "\n";
  EXPECT_EQ(OutputOf({"no-module-path", "get", "get"}), failed + PathLine() + kParseStarts);
}

TEST_F(TConfigTest, EndsTheProcessRatherThanDestroyItself) {
  WriteFile("a=1\n");
  EXPECT_EQ(fRoot.Run({"get", "destroy", "keys"}).fStatus, -1);  // by a signal
}

}  // namespace
