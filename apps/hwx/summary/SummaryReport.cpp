#include "hwx/summary/SummaryReport.h"

#include <algorithm>

#include "hwx/text/Json.h"
#include "hwx/text/Printable.h"
#include "hwx/text/Words.h"

namespace hwx {

namespace {

constexpr std::size_t kTitleWidth = 13;

std::string CutToWidth(const std::string& line, std::optional<std::size_t> width) {
  if (!width || CharacterCount(line) <= *width) return line;
  return std::string(FirstCharacters(line, std::max<std::size_t>(*width, 1) - 1)) + "~";
}

void AddLines(const std::vector<TSummaryLine>& lines, std::size_t depth,
              std::vector<std::string>& texts) {
  for (const TSummaryLine& line : lines) {
    texts.push_back(std::string(2 * depth, ' ') + Printable(line.fText));
    AddLines(line.fParts, depth + 1, texts);
  }
}

std::string Bold(const std::string& text) {
  return "\033[1m" + text + "\033[0m";
}

std::string SectionText(const TSummarySection& section, std::optional<std::size_t> width,
                        bool hasColour) {
  std::vector<std::string> texts;
  AddLines(section.fLines, 0, texts);
  std::string title = section.fTitle;
  title.resize(kTitleWidth, ' ');
  std::string text;
  for (const std::string& line : texts) {
    const std::string whole = CutToWidth(title + line, width);
    const std::size_t bold = std::min(section.fTitle.size(), whole.size());
    const bool isTitled = hasColour && text.empty();
    text += (isTitled ? Bold(whole.substr(0, bold)) + whole.substr(bold) : whole) + "\n";
    title.assign(kTitleWidth, ' ');
  }
  return text;
}

TJson LinesJson(const std::vector<TSummaryLine>& lines) {
  TJson json = TJson::array();
  for (const TSummaryLine& line : lines) {
    TJson object = {{"text", line.fText}};
    if (!line.fParts.empty()) object["parts"] = LinesJson(line.fParts);
    json.push_back(object);
  }
  return json;
}

}  // namespace

std::string SummaryText(const std::vector<TSummarySection>& sections,
                        std::optional<std::size_t> width, bool hasColour) {
  std::string text;
  for (const TSummarySection& section : sections)
    text += SectionText(section, width, hasColour);
  return text;
}

std::string SummaryJson(const std::vector<TSummarySection>& sections) {
  TJson json = TJson::object();
  for (const TSummarySection& section : sections)
    json[Lower(section.fTitle)] = LinesJson(section.fLines);
  return JsonText(json);
}

}  // namespace hwx
