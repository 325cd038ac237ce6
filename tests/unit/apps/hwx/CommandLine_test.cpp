#include "hwx/CommandLine.h"

#include <gmock/gmock.h>

#include <vector>

namespace hwx {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

std::variant<TOptions, TNotice> Parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "hwx");
  return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TOptions Options(const std::vector<const char*>& arguments) {
  const auto result = Parse(arguments);
  if (const auto* notice = std::get_if<TNotice>(&result)) ADD_FAILURE() << notice->fText;
  const auto* options = std::get_if<TOptions>(&result);
  return options ? *options : TOptions();
}

TNotice Notice(const std::vector<const char*>& arguments) {
  const auto result = Parse(arguments);
  const auto* notice = std::get_if<TNotice>(&result);
  EXPECT_TRUE(notice) << "the command line was taken";
  return notice ? *notice : TNotice{kExitOK, ""};
}

std::string UsageError(const std::vector<const char*>& arguments) {
  const TNotice notice = Notice(arguments);
  EXPECT_EQ(notice.fStatus, kExitUsage);
  EXPECT_THAT(notice.fText, HasSubstr("Run \"hwx --help\" for how it is used.\n"));
  return notice.fText.substr(0, notice.fText.find('\n'));
}

TEST(CommandLine, ReadsTheCommand) {
  EXPECT_EQ(Options({"identity"}).fCommand, ECommand::kIdentity);
  EXPECT_EQ(Options({"providers"}).fCommand, ECommand::kProviders);
}

TEST(CommandLine, LeavesOutWhatIsNotGiven) {
  const TOptions options = Options({"identity"});
  EXPECT_FALSE(options.fJson);
  EXPECT_FALSE(options.fVerbose);
  EXPECT_FALSE(options.fFirmware);
  EXPECT_FALSE(options.fLogDirectory);
  EXPECT_FALSE(options.fPluginDirectory);
}

TEST(CommandLine, TakesItsOwnOptionsBeforeTheCommand) {
  const TOptions options =
      Options({"--firmware", "a.bin", "--log-dir=/tmp/x", "--verbose", "identity"});
  EXPECT_EQ(options.fFirmware, "a.bin");
  EXPECT_EQ(options.fLogDirectory, "/tmp/x");
  EXPECT_TRUE(options.fVerbose);
}

TEST(CommandLine, TakesItsOwnOptionsBehindTheCommandToo) {
  const TOptions options =
      Options({"identity", "--json", "--firmware", "a.bin", "--verbose", "--log-dir", "x"});
  EXPECT_TRUE(options.fJson);
  EXPECT_EQ(options.fFirmware, "a.bin");
  EXPECT_EQ(options.fLogDirectory, "x");
  EXPECT_TRUE(options.fVerbose);
}

TEST(CommandLine, TakesVerboseMoreThanOnce) {
  EXPECT_TRUE(Options({"--verbose", "identity", "--verbose"}).fVerbose);
}

TEST(CommandLine, TakesThePluginDirectoryWithProvidersAlone) {
  EXPECT_EQ(Options({"providers", "--plugin-dir", "d"}).fPluginDirectory, "d");
  EXPECT_EQ(UsageError({"identity", "--plugin-dir", "d"}), "hwx: unknown option \"--plugin-dir\"");
}

TEST(CommandLine, PrintsTheVersion) {
  const TNotice notice = Notice({"--version"});
  EXPECT_EQ(notice.fStatus, kExitOK);
  EXPECT_THAT(notice.fText, ::testing::MatchesRegex("hwx [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(CommandLine, PrintsHelpWithCommandsOptionsAndStatuses) {
  const TNotice notice = Notice({"--help"});
  EXPECT_EQ(notice.fStatus, kExitOK);
  for (const char* text : {"identity", "providers", "--firmware FILE-OR-DIRECTORY", "--log-dir DIR",
                           "--verbose", "--version", "--help", "Exit status: 0"}) {
    EXPECT_THAT(notice.fText, HasSubstr(text));
  }
  EXPECT_EQ(notice.fText.back(), '\n');
}

TEST(CommandLine, PrintsHelpOfACommand) {
  const TNotice notice = Notice({"providers", "--help"});
  EXPECT_EQ(notice.fStatus, kExitOK);
  EXPECT_THAT(notice.fText, HasSubstr("Usage: hwx providers"));
  EXPECT_THAT(notice.fText, HasSubstr("--plugin-dir DIR"));
  EXPECT_THAT(notice.fText, HasSubstr("--json"));
}

TEST(CommandLine, AnswersNoCommandWithHelpAsAnError) {
  const TNotice notice = Notice({});
  EXPECT_EQ(notice.fStatus, kExitUsage);
  EXPECT_EQ(notice.fText, Notice({"--help"}).fText);
}

TEST(CommandLine, RefusesAnUnknownCommand) {
  EXPECT_EQ(UsageError({"identify"}), "hwx: unknown command \"identify\"");
}

TEST(CommandLine, RefusesAnUnknownOption) {
  EXPECT_EQ(UsageError({"--jsn", "identity"}), "hwx: unknown option \"--jsn\"");
  EXPECT_EQ(UsageError({"identity", "-x"}), "hwx: unknown option \"-x\"");
}

TEST(CommandLine, RefusesMoreThanACommand) {
  EXPECT_EQ(UsageError({"identity", "now"}), "hwx: unexpected argument \"now\"");
  EXPECT_EQ(UsageError({"identity", "providers"}), "hwx: unexpected argument \"providers\"");
}

TEST(CommandLine, RefusesAnOptionWithoutItsArgument) {
  EXPECT_THAT(UsageError({"identity", "--firmware"}), StartsWith("hwx: --firmware: "));
}

TEST(CommandLine, RefusesAnEmptyArgument) {
  EXPECT_EQ(UsageError({"--firmware", "", "identity"}), "hwx: --firmware: may not be empty");
  EXPECT_EQ(UsageError({"--log-dir", "", "identity"}), "hwx: --log-dir: may not be empty");
  EXPECT_EQ(UsageError({"providers", "--plugin-dir", ""}), "hwx: --plugin-dir: may not be empty");
}

TEST(CommandLine, RefusesTheSameOptionTwice) {
  EXPECT_THAT(UsageError({"--firmware", "a", "--firmware", "b", "identity"}),
              StartsWith("hwx: --firmware: "));
}

TEST(CommandLine, ShowsAWrongArgumentSafely) {
  EXPECT_EQ(UsageError({"\x1b[2J"}), "hwx: unknown command \"\\x1b[2J\"");
}

}  // namespace
}  // namespace hwx
