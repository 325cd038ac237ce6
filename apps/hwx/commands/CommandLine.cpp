#include "hwx/commands/CommandLine.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <sstream>
#include <utility>

#include "hwx/commands/CommandOptions.h"
#include "hwx/text/Printable.h"

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
      ->check(CLI::Range(0.001, kMostSeconds))
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

TNotice Unexpected(const CLI::App& app) {
  const std::string first = app.remaining(true).front();
  const bool isOption = first.size() > 1 && first.front() == '-';
  const char* const kind = isOption            ? "unknown option"
                           : NamesCommand(app) ? "unexpected argument"
                                               : "unknown command";
  return UsageError(kind + (" \"" + first + "\""));
}

std::string WholeLines(const std::string& text) {
  return text.empty() || text.back() == '\n' ? text : text + "\n";
}

// CLI11 throws to end early: for help and version too, then with the code 0.
TNotice NoticeOf(const CLI::App& app, const CLI::ParseError& end) {
  if (end.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError)) return Unexpected(app);
  if (end.get_exit_code() != 0) return UsageError(end.what());
  std::ostringstream text, ignored;
  app.exit(end, text, ignored);
  return {kExitOK, WholeLines(text.str())};
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
      "Exit status: 0 when the command did its work, 1 when it couldn't, 2 for wrong usage.");
  const int count = CountBeforeDashes(argc, argv);
  try {
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
