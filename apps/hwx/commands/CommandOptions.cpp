#include "hwx/commands/CommandOptions.h"

namespace hwx {

CLI::Option* AddText(CLI::App& app, const char* name, std::optional<std::string>& target,
                     const char* description, const char* argument) {
  const auto check = [](const std::string& text) {
    return std::string(text.empty() ? "may not be empty" : "");
  };
  return app.add_option(name, target, description)->check(check)->type_name(argument);
}

void AddJson(CLI::App& app, bool& target) {
  app.add_flag("--json", target, "Print JSON, for programs");
}

}  // namespace hwx
