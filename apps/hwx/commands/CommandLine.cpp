#include "hwx/commands/CommandLine.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <sstream>
#include <utility>

#include "hwx/commands/CommandOptions.h"
#include "hwx/text/Printable.h"
#include "hwx/text/Suggestion.h"
#include "hwx/text/Words.h"

namespace hwx {

namespace {

// A time in seconds, as people write it.
void AddSeconds(CLI::App& app, const char* name, const char* description,
                std::function<void(std::chrono::milliseconds)> take) {
  constexpr double kMostSeconds = 1e6;
  const auto taken = [take](const double& seconds) {
    take(std::chrono::milliseconds(std::llround(seconds * 1000)));
  };
  app.add_option_function<double>(name, taken, description)
      ->check(CLI::Range(0.001, kMostSeconds).description(""))
      ->type_name("SECONDS");
}

void AddLimits(CLI::App& app, NQORHWX20::TChildLimits& limits) {
  limits.fDeadline = std::chrono::steady_clock::now() + std::chrono::minutes(10);
  limits.fMemory = std::uint64_t{4} << 30;
  AddSeconds(app, "--class-timeout", "Give a provider so long for each class; 30 by default",
             [&limits](auto time) { limits.fClassTime = time; });
  AddSeconds(app, "--deadline", "Give the provider so long for everything; 600 by default",
             [&limits](auto time) { limits.fDeadline = std::chrono::steady_clock::now() + time; });
}

void AddGlobalOptions(CLI::App& app, TGlobalOptions& options) {
  AddText(app, "--firmware", options.fFirmware,
          "Read the firmware tables from there, not from this\n"
          "machine: a file as \"dmidecode --dump-bin\" writes it,\n"
          "or a directory with \"smbios_entry_point\" and \"DMI\"",
          "FILE-OR-DIRECTORY");
  AddText(app, "--log-dir", options.fLogDirectory, "Write the log to DIR/hwx.log", "DIR");
  app.add_flag("--verbose", options.fVerbose, "Write a log, with debug messages too");
  app.add_flag("--quiet", options.fQuiet, "Tell nothing but the output and what goes wrong");
  AddLimits(app, options.fLimits);
}

std::vector<CLI::App*> AddCommands(CLI::App& app, const std::vector<CommandPtr>& commands) {
  std::vector<CLI::App*> added;
  added.reserve(commands.size());
  for (const CommandPtr& command : commands)
    added.push_back(command->AddTo(app));
  return added;
}

// CLI11 sees only what stands in front of "--": it would take an argument like "[a,b]" apart, also
// behind it.
int CountBeforeDashes(int argc, const char* const* argv) {
  return static_cast<int>(std::find(argv, argv + argc, std::string("--")) - argv);
}

TNotice UsageError(const std::string& message) {
  return {kExitUsage, "hwx: " + Printable(message) + "\nRun \"hwx --help\" for how it is used.\n"};
}

// Whether the command line names a command. One that has commands of its own needs one of those
// too.
bool NamesCommand(const CLI::App& app) {
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  if (!chosen.empty()) return NamesCommand(*chosen.front());
  return app.get_subcommands(nullptr).empty();
}

// The command that was named last, which is the program itself if none was.
const CLI::App& NamedCommand(const CLI::App& app) {
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  return chosen.empty() ? app : NamedCommand(*chosen.front());
}

std::vector<std::string> CommandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* const command : app.get_subcommands(nullptr))
    names.push_back(command->get_name());
  return names;
}

void AddOptionNames(const CLI::App& app, std::vector<std::string>& names) {
  for (const CLI::Option* const option : app.get_options()) {
    for (const std::string& name : option->get_lnames())
      names.push_back("--" + name);
  }
}

TNotice UnknownOption(const CLI::App& app, const std::string& option) {
  std::vector<std::string> names;
  AddOptionNames(app, names);
  const CLI::App& command = NamedCommand(app);
  if (&command != &app) AddOptionNames(command, names);
  return UsageError("unknown option " + Quoted(option) + DidYouMean(option, names));
}

TNotice Unexpected(const CLI::App& app) {
  const std::string first = app.remaining(true).front();
  if (first.size() > 1 && first.front() == '-') return UnknownOption(app, first);
  if (NamesCommand(app)) return UsageError("unexpected argument " + Quoted(first));
  return UsageError("unknown command " + Quoted(first) +
                    DidYouMean(first, CommandNames(NamedCommand(app))));
}

bool Holds(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

// What stands in front of the first of `marks`: the name of an option, in the words of CLI11.
std::string NameIn(const std::string& text, const char* marks) {
  return text.substr(0, text.find_first_of(marks));
}

// "port: Value soon not in range 1 to 65535" and "--format: yaml not in {table,json}".
std::string WrongValue(const std::string& text) {
  const std::string front = NameIn(text, ":") + ": ";
  const std::string range = " not in range ";
  const std::size_t value = text.find(": Value ");
  const std::size_t inRange = text.find(range);
  if (value != std::string::npos && inRange != std::string::npos) {
    return front + Quoted(text.substr(value + 8, inRange - value - 8)) + " is no number from " +
           text.substr(inRange + range.size());
  }
  const std::size_t list = text.find(" not in {");
  if (list == std::string::npos) return text;
  const std::string given = text.substr(front.size(), list - front.size());
  return front + Quoted(given) + " is none of " + text.substr(list + 9, text.rfind('}') - list - 9);
}

// What is wrong, in words of our own where those of CLI11 are for its authors.
std::string InOurWords(const CLI::ParseError& error) {
  const std::string text = error.what();
  const std::string kind = error.get_name();
  if (kind == "ArgumentMismatch") {
    if (Holds(text, "At Most")) return NameIn(text, ":") + ": may be given once only";
    if (Holds(text, "flag override")) return NameIn(text, " ") + ": takes no value";
    return NameIn(text, ":") + ": needs a value";
  }
  if (kind == "ConversionError" && text.rfind("Could not convert: ", 0) == 0) {
    const std::string pair = text.substr(text.find(": ") + 2);
    return NameIn(pair, " ") + ": " + Quoted(pair.substr(pair.find(" = ") + 3)) + " is no number";
  }
  if (kind == "ExcludesError") {
    const std::size_t word = text.find(" excludes ");
    return text.substr(0, word) + " and " + text.substr(word + 10) + " exclude each other";
  }
  if (kind == "RequiresError") {
    const std::size_t word = text.find(" requires ");
    return text.substr(0, word) + " needs " + text.substr(word + 10);
  }
  if (kind == "ValidationError") return WrongValue(text);
  if (text == "A subcommand is required") return "a command of its own is needed behind it";
  return text;
}

std::string WholeLines(const std::string& text) {
  return text.empty() || text.back() == '\n' ? text : text + "\n";
}

// CLI11 throws to end early: for help and version too, then with the code 0.
TNotice NoticeOf(const CLI::App& app, const CLI::ParseError& end) {
  if (end.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError)) return Unexpected(app);
  if (end.get_exit_code() != 0) return UsageError(InOurWords(end));
  std::ostringstream text, ignored;
  app.exit(end, text, ignored);
  return {kExitOK, WholeLines(text.str())};
}

// "hwx help COMMAND..." is what "hwx COMMAND... --help" is, for a command that there is.
TNotice HelpFor(const CLI::App& app, const std::vector<std::string>& words) {
  const CLI::App* command = &app;
  std::string front;
  for (const std::string& word : words) {
    const std::vector<std::string> names = CommandNames(*command);
    if (std::find(names.begin(), names.end(), word) == names.end())
      return UsageError("unknown command " + Quoted(word) + DidYouMean(word, names));
    front += (front.empty() ? "" : " ") + command->get_name();
    command = command->get_subcommand(word);
  }
  return {kExitOK, WholeLines(command->help(front))};
}

}  // namespace

std::variant<TRequest, TNotice> ParseCommandLine(int argc, const char* const* argv,
                                                 std::vector<CommandPtr> commands) {
  TRequest request;
  CLI::App app("Shows who this machine is, from what its firmware and operating system tell",
               "hwx");
  app.set_version_flag("--version", "hwx " HWX_VERSION, "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.fallthrough();  // the options of hwx itself may also follow the command
  app.require_subcommand(0, 1);
  AddGlobalOptions(app, request.fOptions);
  // Set before the commands are added, which take the footer over.
  app.footer("The options of hwx itself may stand here too; see hwx --help.");
  const std::vector<CLI::App*> added = AddCommands(app, commands);
  app.footer(
      "hwx help COMMAND tells of a command.\n\n"
      "Exit status: 0 when the command did its work, 1 when it couldn't, 2 for wrong usage.");
  const int count = CountBeforeDashes(argc, argv);
  try {
    if (count > 1 && std::string(argv[1]) == "help") return HelpFor(app, {argv + 2, argv + count});
    app.parse(count, argv);
  } catch (const CLI::ParseError& end) {
    return NoticeOf(app, end);
  }
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  if (chosen.empty()) return TNotice{kExitUsage, WholeLines(app.help())};
  const auto place = std::find(added.begin(), added.end(), chosen.front());
  request.fCommand = std::move(commands[static_cast<std::size_t>(place - added.begin())]);
  const std::vector<std::string> arguments(argv + std::min(count + 1, argc), argv + argc);
  if (const auto error = request.fCommand->TakeArguments(arguments)) return UsageError(*error);
  return request;
}

}  // namespace hwx
