#include "hwx/commands/CommandOptions.h"

namespace hwx {

CLI::Option* AddText(CLI::App& app, const char* name, std::optional<std::string>& target,
                     const char* description, const char* argument) {
  const auto check = [](const std::string& text) {
    return std::string(text.empty() ? "may not be empty" : "");
  };
  return app.add_option(name, target, description)->check(check)->type_name(argument);
}

void AddFileReading(CLI::App& app, TFileReading& reading) {
  app.add_option("--namespace", reading.fNamespace,
                 "Read the namespace NAME of a file that has several")
      ->type_name("NAME");
  const auto set = [&reading](const std::uint64_t& mebibytes) {
    reading.fMaxMemory = mebibytes << 20;
  };
  app.add_option_function<std::uint64_t>(
         "--max-memory", set, "Take at most MIB MiB of memory for files; 1024 by default")
      ->check(CLI::Range(std::uint64_t{1}, std::uint64_t{1} << 30))
      ->type_name("MIB");
}

void AddJson(CLI::App& app, bool& target) {
  app.add_flag("--json", target, "Print JSON, for programs");
}

}  // namespace hwx
