#include "providers/linux/OSRelease.h"

#include <algorithm>
#include <utility>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

// The value behind the "=", with the shell's quotes taken off: it ends at the first blank that is
// neither quoted nor behind a backslash, or at the line's end.
std::string Unquote(std::string_view text) {
  std::string value;
  char quote = '\0';
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quote == '\0' && (c == ' ' || c == '\t' || c == '\r')) {
      break;
    }
    if (quote == '\0' && (c == '"' || c == '\'')) {
      quote = c;
    } else if (c == quote && quote != '\0') {
      quote = '\0';
    } else if (c == '\\' && quote != '\'' && i + 1 < text.size()) {
      const char next = text[i + 1];
      const bool isEscape =
          quote == '\0' || std::string_view("\"\\$`").find(next) != std::string_view::npos;
      value += isEscape ? text[++i] : c;
    } else {
      value += c;
    }
  }
  return CutAtNul(value);
}

std::string_view WithoutIndent(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  return line;
}

}  // namespace

TOSRelease ParseOSRelease(std::string_view text) {
  TOSRelease release;
  while (!text.empty()) {
    const std::string_view line = WithoutIndent(TakeLine(text));
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
      continue;
    }
    const std::string_view name = line.substr(0, equals);
    std::optional<std::string>* field = name == "NAME"          ? &release.fName
                                        : name == "PRETTY_NAME" ? &release.fPrettyName
                                        : name == "VERSION_ID"  ? &release.fVersionID
                                                                : nullptr;
    if (field == nullptr) {
      continue;
    }
    field->reset();
    std::string value = Unquote(line.substr(equals + 1));
    if (!value.empty()) {
      *field = std::move(value);
    }
  }
  return release;
}

}  // namespace linux_machine
