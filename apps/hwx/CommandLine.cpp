#include "hwx/CommandLine.h"

#include <CLI/CLI.hpp>

#include "hwx/Printable.h"

namespace hwx {

namespace {

const char kNotEmpty[] = "may not be empty";

// An option whose argument stays missing unless it is given.
CLI::Option* AddText(CLI::App& app, const char* name, std::optional<std::string>& target,
                     const char* description, const char* argument) {
  const auto check = [](const std::string& text) {
    return std::string(text.empty() ? kNotEmpty : "");
  };
  return app.add_option(name, target, description)->check(check)->type_name(argument);
}

void AddGlobalOptions(CLI::App& app, TOptions& options) {
  AddText(app, "--firmware", options.fFirmware,
          "Read the firmware tables from there, not from this\n"
          "machine: a file as \"dmidecode --dump-bin\" writes it,\n"
          "or a directory with \"smbios_entry_point\" and \"DMI\"",
          "FILE-OR-DIRECTORY");
  AddText(app, "--log-dir", options.fLogDirectory, "Write the log to DIR/hwx.log", "DIR");
  app.add_flag("--verbose", options.fVerbose, "Write a log, with debug messages too");
}

void AddCommands(CLI::App& app, TOptions& options) {
  const char* const footer = "The options of hwx itself may stand here too; see hwx --help.";
  const char* const json = "Print JSON, for programs";
  CLI::App* const identity = app.add_subcommand("identity", "Show who this machine is");
  identity->footer(footer);
  identity->add_flag("--json", options.fJson, json);
  identity->callback([&options] { options.fCommand = ECommand::kIdentity; });

  CLI::App* const providers =
      app.add_subcommand("providers", "Show which plug-ins there are, and which of them load");
  providers->footer(footer);
  providers->add_flag("--json", options.fJson, json);
  AddText(*providers, "--plugin-dir", options.fPluginDirectory,
          "Look for plain plug-ins in the subdirectories of DIR", "DIR");
  providers->callback([&options] { options.fCommand = ECommand::kProviders; });
}

TNotice UsageError(const std::string& message) {
  return {kExitUsage, "hwx: " + Printable(message) + "\nRun \"hwx --help\" for how it is used.\n"};
}

TNotice Unexpected(const CLI::App& app) {
  const std::string first = app.remaining(true).front();
  const bool isOption = first.size() > 1 && first.front() == '-';
  const bool isCommand = app.get_subcommands().empty();
  const char* const kind =
      isOption ? "unknown option" : (isCommand ? "unknown command" : "unexpected argument");
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

std::variant<TOptions, TNotice> ParseCommandLine(int argc, const char* const* argv) {
  TOptions options;
  CLI::App app("Shows who this machine is, from what its firmware and operating system tell",
               "hwx");
  app.set_version_flag("--version", "hwx " HWX_VERSION, "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.fallthrough();  // the options of hwx itself may also follow the command
  app.require_subcommand(0, 1);
  AddGlobalOptions(app, options);
  AddCommands(app, options);
  app.footer(
      "Exit status: 0 when the command did its work, 1 when it couldn't, 2 for wrong usage.");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& end) {
    return NoticeOf(app, end);
  }
  if (app.get_subcommands().empty()) return TNotice{kExitUsage, WholeLines(app.help())};
  return options;
}

}  // namespace hwx
