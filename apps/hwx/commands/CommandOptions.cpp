#include "hwx/commands/CommandOptions.h"

#include <algorithm>

namespace hwx {

CLI::Option* AddText(CLI::App& app, const char* name, std::optional<std::string>& target,
                     const char* description, const char* argument) {
  const auto check = [](const std::string& text) {
    return std::string(text.empty() ? "may not be empty" : "");
  };
  return app.add_option(name, target, description)->check(check)->type_name(argument);
}

CLI::Option* AddList(CLI::App& app, const char* name, std::vector<std::string>& target,
                     const char* description, const char* argument) {
  const auto check = [](const std::string& text) {
    return std::string(text.empty() ? "may not be empty" : "");
  };
  return app.add_option(name, target, description)
      ->check(check)
      ->delimiter(',')
      ->type_name(argument)
      ->expected(1)
      ->take_all();
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
      ->check(CLI::Range(std::uint64_t{1}, std::uint64_t{1} << 30).description(""))
      ->type_name("MIB");
}

void AddJson(CLI::App& app, bool& target) {
  app.add_flag("--json", target, "Print JSON, for programs");
}

void AddFormat(CLI::App& app, std::string& target, const std::vector<std::string>& formats) {
  target = formats.front();
  std::string list;
  for (const std::string& format : formats)
    list += (list.empty() ? "" : &format == &formats.back() ? " or " : ", ") + format;
  CLI::Option* const option =
      app.add_option("--format", target, list + "; a " + target + " by default")
          ->check(CLI::IsMember(formats).description(""))
          ->type_name("FORMAT");
  if (std::find(formats.begin(), formats.end(), "json") == formats.end()) return;
  app.add_flag_callback(
         "--json", [&target] { target = "json"; }, "Short for --format json")
      ->excludes(option);
}

}  // namespace hwx
