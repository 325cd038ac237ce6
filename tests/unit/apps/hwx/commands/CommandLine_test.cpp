#include "hwx/commands/CommandLine.h"

#include <gmock/gmock.h>

#include <utility>
#include <vector>

#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"

namespace hwx {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

// Takes the place of a command, and tells which one was chosen.
class TRecordingCommand : public ICommand {
 public:
  TRecordingCommand(CommandPtr command, std::string& chosen)
      : fCommand(std::move(command)), fChosen(chosen) {}

  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = fCommand->AddTo(program);
    fName = app->get_name();
    return app;
  }

  std::optional<std::string> TakeArguments(const std::vector<std::string>& arguments) override {
    return fCommand->TakeArguments(arguments);
  }

  int Run(const TGlobalOptions&) override {
    fChosen = fName;
    return kExitOK;
  }

 private:
  CommandPtr fCommand;
  std::string fName;
  std::string& fChosen;
};

std::variant<TRequest, TNotice> Parse(std::vector<const char*> arguments,
                                      std::vector<CommandPtr> commands = AllCommands()) {
  arguments.insert(arguments.begin(), "hwx");
  return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data(),
                          std::move(commands));
}

TGlobalOptions Options(const std::vector<const char*>& arguments) {
  const auto result = Parse(arguments);
  if (const auto* notice = std::get_if<TNotice>(&result)) ADD_FAILURE() << notice->fText;
  const auto* request = std::get_if<TRequest>(&result);
  return request ? request->fOptions : TGlobalOptions();
}

// The command that would run.
std::string Chosen(const std::vector<const char*>& arguments) {
  std::string chosen;
  std::vector<CommandPtr> commands;
  for (CommandPtr& command : AllCommands())
    commands.push_back(std::make_unique<TRecordingCommand>(std::move(command), chosen));
  const auto result = Parse(arguments, std::move(commands));
  if (const auto* request = std::get_if<TRequest>(&result)) request->fCommand->Run({});
  return chosen;
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
  for (const char* command : {"identity", "providers", "config"})
    EXPECT_EQ(Chosen({command}), command);
  EXPECT_EQ(Chosen({"run", "--", "true"}), "run");
}

TEST(CommandLine, LeavesOutWhatIsNotGiven) {
  const TGlobalOptions options = Options({"identity"});
  EXPECT_FALSE(options.fVerbose);
  EXPECT_FALSE(options.fFirmware);
  EXPECT_FALSE(options.fLogDirectory);
}

TEST(CommandLine, TakesItsOwnOptionsBeforeTheCommand) {
  const TGlobalOptions options =
      Options({"--firmware", "a.bin", "--log-dir=/tmp/x", "--verbose", "identity"});
  EXPECT_EQ(options.fFirmware, "a.bin");
  EXPECT_EQ(options.fLogDirectory, "/tmp/x");
  EXPECT_TRUE(options.fVerbose);
}

TEST(CommandLine, TakesItsOwnOptionsBehindTheCommandToo) {
  const TGlobalOptions options =
      Options({"identity", "--json", "--firmware", "a.bin", "--verbose", "--log-dir", "x"});
  EXPECT_EQ(options.fFirmware, "a.bin");
  EXPECT_EQ(options.fLogDirectory, "x");
  EXPECT_TRUE(options.fVerbose);
}

TEST(CommandLine, TakesVerboseMoreThanOnce) {
  EXPECT_TRUE(Options({"--verbose", "identity", "--verbose"}).fVerbose);
}

TEST(CommandLine, TakesThePluginDirectoryWithProvidersAlone) {
  EXPECT_EQ(Chosen({"providers", "--plugin-dir", "d"}), "providers");
  EXPECT_EQ(UsageError({"identity", "--plugin-dir", "d"}), "hwx: unknown option \"--plugin-dir\"");
}

TEST(CommandLine, ReadsACommandOfACommand) {
  EXPECT_EQ(Chosen({"firmware", "show"}), "firmware");
  EXPECT_EQ(Chosen({"firmware", "dump", "a.bin", "--force"}), "firmware");
  EXPECT_EQ(Options({"firmware", "show", "--firmware", "a.bin"}).fFirmware, "a.bin");
}

TEST(CommandLine, RefusesACommandWithoutOneOfItsOwn) {
  EXPECT_EQ(UsageError({"firmware"}), "hwx: a command of its own is needed behind it");
  EXPECT_EQ(UsageError({"firmware", "print"}), "hwx: unknown command \"print\"");
  EXPECT_EQ(UsageError({"firmware", "show", "now"}), "hwx: unexpected argument \"now\"");
}

TEST(CommandLine, RefusesADumpWithoutAFile) {
  EXPECT_EQ(UsageError({"firmware", "dump"}), "hwx: file is required");
  EXPECT_EQ(UsageError({"firmware", "dump", ""}), "hwx: file: may not be empty");
}

TEST(CommandLine, TakesTheFileOfADumpBehindDashesToo) {
  EXPECT_EQ(Chosen({"firmware", "dump", "--force", "--", "--odd"}), "firmware");
  EXPECT_EQ(UsageError({"firmware", "dump", "a", "--", "b"}), "hwx: unexpected argument \"b\"");
  EXPECT_EQ(UsageError({"firmware", "show", "--", "b"}), "hwx: unexpected argument \"b\"");
}

TEST(CommandLine, PrintsTheVersion) {
  const TNotice notice = Notice({"--version"});
  EXPECT_EQ(notice.fStatus, kExitOK);
  EXPECT_THAT(notice.fText, ::testing::MatchesRegex("hwx [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(CommandLine, PrintsHelpWithCommandsOptionsAndStatuses) {
  const TNotice notice = Notice({"--help"});
  EXPECT_EQ(notice.fStatus, kExitOK);
  for (const char* text : {"identity", "providers", "config", "run", "--firmware FILE-OR-DIRECTORY",
                           "--log-dir DIR", "--verbose", "--version", "--help", "Exit status: 0"}) {
    EXPECT_THAT(notice.fText, HasSubstr(text));
  }
  EXPECT_EQ(notice.fText.back(), '\n');
}

TEST(CommandLine, PrintsNoRangesAsTheParserWritesThem) {
  for (const char* command : {"show", "run", "check-proxy"})
    EXPECT_THAT(Notice({command, "--help"}).fText, ::testing::Not(HasSubstr(" in ["))) << command;
  EXPECT_THAT(Notice({"--help"}).fText, ::testing::Not(HasSubstr(" in [")));
}

TEST(CommandLine, PrintsHelpOfACommand) {
  const TNotice notice = Notice({"providers", "--help"});
  EXPECT_EQ(notice.fStatus, kExitOK);
  EXPECT_THAT(notice.fText, HasSubstr("Usage: hwx providers"));
  EXPECT_THAT(notice.fText, HasSubstr("--plugin-dir DIR"));
  EXPECT_THAT(notice.fText, HasSubstr("--json"));
}

TEST(CommandLine, PrintsHelpWhenAskedByAWord) {
  EXPECT_EQ(Notice({"help"}).fText, Notice({"--help"}).fText);
  EXPECT_EQ(Notice({"help", "show"}).fText, Notice({"show", "--help"}).fText);
  EXPECT_EQ(Notice({"help", "media", "mount"}).fText, Notice({"media", "mount", "--help"}).fText);
  EXPECT_EQ(Notice({"help", "collect"}).fText, Notice({"collect", "--help"}).fText);
  EXPECT_EQ(Notice({"help", "show"}).fStatus, kExitOK);
  EXPECT_EQ(UsageError({"help", "shwo"}), "hwx: unknown command \"shwo\"; did you mean show?");
}

TEST(CommandLine, TellsWhichValuesThereAre) {
  EXPECT_EQ(UsageError({"show", "--format", "yaml"}),
            "hwx: --format: \"yaml\" is none of table,json,jsonl,csv,xml,mof");
}

TEST(CommandLine, TellsWhatExcludesAndNeedsAnother) {
  EXPECT_EQ(UsageError({"show", "--json", "--format", "csv"}),
            "hwx: --format and --json exclude each other");
  EXPECT_EQ(UsageError({"check-proxy", "p", "3128", "--password-file", "f"}),
            "hwx: --password-file needs --user");
  EXPECT_EQ(UsageError({"check-proxy", "p", "soon"}),
            "hwx: port: \"soon\" is no number from 1 to 65535");
}

TEST(CommandLine, AnswersNoCommandWithHelpAsAnError) {
  const TNotice notice = Notice({});
  EXPECT_EQ(notice.fStatus, kExitUsage);
  EXPECT_EQ(notice.fText, Notice({"--help"}).fText);
}

TEST(CommandLine, RefusesAnUnknownCommand) {
  EXPECT_EQ(UsageError({"furniture"}), "hwx: unknown command \"furniture\"");
  EXPECT_EQ(UsageError({"identify"}), "hwx: unknown command \"identify\"; did you mean identity?");
  EXPECT_EQ(UsageError({"firmware", "dmup"}), "hwx: unknown command \"dmup\"; did you mean dump?");
}

TEST(CommandLine, RefusesAnUnknownOption) {
  EXPECT_EQ(UsageError({"--furniture", "identity"}), "hwx: unknown option \"--furniture\"");
  EXPECT_EQ(UsageError({"identity", "--jsn"}),
            "hwx: unknown option \"--jsn\"; did you mean --json?");
  EXPECT_EQ(UsageError({"identity", "--frimware", "x"}),
            "hwx: unknown option \"--frimware\"; did you mean --firmware?");
  EXPECT_EQ(UsageError({"identity", "-x"}), "hwx: unknown option \"-x\"");
}

TEST(CommandLine, RefusesMoreThanACommand) {
  EXPECT_EQ(UsageError({"identity", "now"}), "hwx: unexpected argument \"now\"");
  EXPECT_EQ(UsageError({"identity", "providers"}), "hwx: unexpected argument \"providers\"");
}

TEST(CommandLine, RefusesArgumentsBehindDashesForMostCommands) {
  EXPECT_EQ(Chosen({"identity", "--"}), "identity");
  EXPECT_EQ(UsageError({"identity", "--", "--json"}), "hwx: unexpected argument \"--json\"");
  EXPECT_EQ(Notice({"--", "identity"}).fText, Notice({"--help"}).fText);
}

TEST(CommandLine, TakesOneKeyBehindDashes) {
  EXPECT_EQ(Chosen({"config", "--", "-key"}), "config");
  EXPECT_EQ(UsageError({"config", "--", "a", "b"}), "hwx: unexpected argument \"a\"");
  EXPECT_EQ(UsageError({"config", "a", "--", "b"}), "hwx: unexpected argument \"b\"");
}

TEST(CommandLine, TakesWhatItRunsBehindDashes) {
  EXPECT_EQ(Chosen({"run", "--", "identity", "--json", "--", "[a,b]", ""}), "run");
  EXPECT_EQ(UsageError({"run"}), "hwx: no command behind \"--\"");
  EXPECT_EQ(UsageError({"run", "--"}), "hwx: no command behind \"--\"");
  EXPECT_EQ(UsageError({"run", "true"}), "hwx: unexpected argument \"true\"");
}

TEST(CommandLine, TakesSecondsOrMinusOneForATimeOut) {
  for (const char* timeout : {"-1", "0", "1", "2147483647"})
    EXPECT_EQ(Chosen({"run", "--timeout", timeout, "--", "true"}), "run") << timeout;
  for (const char* timeout : {"-2", "2147483648", "1.5", "soon", ""})
    EXPECT_THAT(UsageError({"run", "--timeout", timeout, "--", "true"}),
                StartsWith("hwx: --timeout: "));
}

TEST(CommandLine, RefusesAnOptionWithoutItsArgument) {
  EXPECT_EQ(UsageError({"identity", "--firmware"}), "hwx: --firmware: needs a value");
}

TEST(CommandLine, RefusesAnEmptyArgument) {
  EXPECT_EQ(UsageError({"--firmware", "", "identity"}), "hwx: --firmware: may not be empty");
  EXPECT_EQ(UsageError({"--log-dir", "", "identity"}), "hwx: --log-dir: may not be empty");
  EXPECT_EQ(UsageError({"providers", "--plugin-dir", ""}), "hwx: --plugin-dir: may not be empty");
}

TEST(CommandLine, RefusesTheSameOptionTwice) {
  EXPECT_EQ(UsageError({"--firmware", "a", "--firmware", "b", "identity"}),
            "hwx: --firmware: may be given once only");
}

TEST(CommandLine, ShowsAWrongArgumentSafely) {
  EXPECT_EQ(UsageError({"\x1b[2J"}), "hwx: unknown command \"\\x1b[2J\"");
}

}  // namespace
}  // namespace hwx
