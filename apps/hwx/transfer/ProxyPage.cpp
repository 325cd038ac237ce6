#include "hwx/transfer/ProxyPage.h"

#include <regex.h>

namespace hwx {

namespace {

// What stands in the first element of this name. Not found by a regular expression, which for a
// large page could exhaust the stack.
std::string Element(const std::string& page, const std::string& name) {
  std::string lower = page;
  for (char& letter : lower)
    letter = static_cast<char>(letter >= 'A' && letter <= 'Z' ? letter - 'A' + 'a' : letter);
  const std::size_t tag = lower.find("<" + name);
  const std::size_t begin = tag == std::string::npos ? tag : lower.find('>', tag);
  const std::size_t end = begin == std::string::npos ? begin : lower.find("</" + name, begin);
  return end == std::string::npos ? "" : page.substr(begin + 1, end - begin - 1);
}

std::string OneLine(const std::string& text) {
  std::string line;
  for (const char letter : text) {
    const bool isBlank = letter == ' ' || letter == '\0' || (letter >= '\t' && letter <= '\r');
    if (!isBlank) line += letter;
    if (isBlank && !line.empty() && line.back() != ' ') line += ' ';
  }
  if (!line.empty() && line.back() == ' ') line.pop_back();
  return line;
}

// Title and first heading of a page, each cut to a length that is enough for any.
std::string Headings(const std::string& page) {
  constexpr std::size_t kLongest = 200;
  return PageTitle(page).substr(0, kLongest) + "\n" +
         OneLine(Element(page, "h1")).substr(0, kLongest);
}

// By POSIX, as std::regex doesn't build without warnings under the sanitizers.
bool Holds(const std::string& text, const char* pattern) {
  regex_t expression;
  if (::regcomp(&expression, pattern, REG_EXTENDED | REG_ICASE | REG_NOSUB) != 0) return false;
  const bool holds = ::regexec(&expression, text.c_str(), 0, nullptr, 0) == 0;
  ::regfree(&expression);
  return holds;
}

}  // namespace

std::string PageTitle(const std::string& page) {
  return OneLine(Element(page, "title"));
}

std::optional<std::string> WhyNotThePage(const std::string& page) {
  if (page.empty()) return "what came back is empty";
  const std::string headings = Headings(page);
  if (Holds(headings, "\\b40[17]\\b|proxy authentication|cache access denied")) {
    return "it refused the user or the password";
  }
  if (Holds(headings, "\\b[45][0-9][0-9]\\b|^error\\b|access denied|could not be retrieved")) {
    return "it sent a page about an error, \"" + headings.substr(0, headings.find('\n')) + "\"";
  }
  return std::nullopt;
}

}  // namespace hwx
