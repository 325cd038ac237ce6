#include "hwx/identity/ExplanationReport.h"

#include "hwx/text/Table.h"

namespace hwx {

namespace {

const char* Word(EVerdict verdict) {
  switch (verdict) {
    case kTaken:
      return "taken";
    case kAgrees:
      return "agrees";
    case kDiffers:
      return "differs";
    case kNotTaken:
      return "not taken";
    case kFiller:
      return "filler";
    case kMissing:
      break;
  }
  return "missing";
}

std::string Shown(const TAnswer<std::string>& answer) {
  if (!answer.fValue) return "(" + answer.fReason + ")";
  return answer.fIsGuess ? *answer.fValue + " (a guess: " + answer.fForm + ")" : *answer.fValue;
}

TJson SourceObject(const TSourceAnswer& source) {
  TJson json = {{"source", source.fSource}, {"verdict", Word(source.fVerdict)}};
  json.update(Json(source.fAnswer));
  if (!source.fAnswer.fForm.empty()) json["form"] = source.fAnswer.fForm;
  return json;
}

}  // namespace

std::string ExplanationText(const std::vector<TExplanation>& explanations) {
  std::string text;
  for (const TExplanation& fact : explanations) {
    std::vector<std::vector<std::string>> rows;
    for (const TSourceAnswer& source : fact.fSources)
      rows.push_back({source.fSource, Word(source.fVerdict), Shown(source.fAnswer)});
    text += "\n" + fact.fLabel + (fact.fDisagree ? ": the sources disagree\n" : "\n") +
            AlignedTable(rows, "  ");
  }
  return text;
}

TJson ExplanationObject(const std::vector<TExplanation>& explanations) {
  TJson json = TJson::object();
  for (const TExplanation& fact : explanations) {
    TJson sources = TJson::array();
    for (const TSourceAnswer& source : fact.fSources)
      sources.push_back(SourceObject(source));
    json[fact.fKey] = {{"disagree", fact.fDisagree}, {"sources", sources}};
  }
  return json;
}

}  // namespace hwx
