// The configuration file beside the library, as `hwx config` shows it.

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "integration/hwx/HwxTest.h"

namespace hwxtest {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

class ConfigTest : public HwxTest {
 protected:
  ConfigTest() { fTree.Use(fHwx); }

  void WriteConfig(const std::string& text) const { fTree.AddText("dct/dct.cfg", text); }

  std::string Output(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "config");
    return Succeed(arguments).fOut;
  }

  std::string FilePath() const { return fTree / "dct/dct.cfg"; }

  HwxTree fTree;
};

TEST_F(ConfigTest, ListsTheKeysSorted) {
  WriteConfig("# collectors\ntimeout=300\ndevices = all\nempty=\n");
  EXPECT_EQ(Output({}), "devices \ntimeout\n");
}

TEST_F(ConfigTest, ListsTheKeysForPrograms) {
  WriteConfig("b=1\na=1\n");
  const json expected = {{"file", FilePath()}, {"keys", {"a", "b"}}};
  EXPECT_EQ(json::parse(Output({"--json"})), expected);
}

TEST_F(ConfigTest, ShowsTheValueOfAKey) {
  WriteConfig("timeout=300\nurl=http://a?b=c\n");
  EXPECT_EQ(Output({"timeout"}), "300\n");
  EXPECT_EQ(Output({"url"}), "http://a?b=c\n");
}

TEST_F(ConfigTest, ShowsTheValueOfAKeyForPrograms) {
  WriteConfig("timeout=300\r\n");
  const json expected = {{"file", FilePath()}, {"key", "timeout"}, {"value", "300\r"}};
  EXPECT_EQ(json::parse(Output({"timeout", "--json"})), expected);
}

TEST_F(ConfigTest, ShowsWhatCannotBeSeen) {
  WriteConfig("timeout=300\r\n");
  EXPECT_EQ(Output({"timeout"}), "300\\x0d\n");
}

TEST_F(ConfigTest, TakesAKeyThatLooksLikeAnOptionBehindDashes) {
  WriteConfig("--json=yes\n");
  EXPECT_EQ(Output({"--", "--json"}), "yes\n");
}

TEST_F(ConfigTest, FailsForAKeyThatIsNotThere) {
  WriteConfig("timeout=300\nempty=\n");
  ExpectFails({"config", "Timeout"}, FilePath() + " has no key \"Timeout\"");
  ExpectFails({"config", "empty", "--json"}, FilePath() + " has no key \"empty\"");
}

TEST_F(ConfigTest, FailsWithoutAFile) {
  ExpectFails({"config"}, "no configuration: " + FilePath() + " is absent");
  ExpectFails({"config", "--json"}, "no configuration: " + FilePath() + " is absent");
  ExpectFails({"config", "key"}, "no configuration: " + FilePath() + " is absent");
}

TEST_F(ConfigTest, FailsWithAnEmptyFile) {
  WriteConfig("");
  ExpectFails({"config"}, "no configuration: " + FilePath() + " is empty");
}

TEST_F(ConfigTest, FailsWithAFileWithoutKeys) {
  WriteConfig("# nothing\n");
  ExpectFails({"config"}, "no configuration: " + FilePath() + " holds no keys");
}

TEST_F(ConfigTest, FailsWithAFileThatCannotBeRead) {
  const HwxTree tree(HwxTree::kCopies);
  tree.Use(fHwx);
  tree.AddText("dct/dct.cfg", "a=1\n");
  const std::string path = tree / "dct/dct.cfg";
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  fHwx.Unprivileged();
  ExpectFails({"config"}, "no configuration: " + path + " can't be read");
}

TEST_F(ConfigTest, NeedsNoProvider) {
  WriteConfig("a=1\n");
  fTree.Remove("libplugin.nsp.so");
  EXPECT_EQ(Output({"a"}), "1\n");
}

TEST_F(ConfigTest, RefusesMoreThanAKey) {
  const HwxResult result = fHwx.Run({"config", "a", "b"});
  EXPECT_EQ(result.fStatus, 2);
  EXPECT_THAT(result.fErr, HasSubstr("unexpected argument \"b\""));
}

}  // namespace
}  // namespace hwxtest
