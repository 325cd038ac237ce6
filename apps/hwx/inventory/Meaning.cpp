#include "hwx/inventory/Meaning.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "hwx/inventory/ValueText.h"
#include "hwxcore/schema/ICIMQualifier.h"
#include "hwxcore/schema/ICIMQualifierDecl.h"
#include "hwxkit/CIMName.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

// The qualifiers of an element by their folded names.
std::map<std::string, TJson> QualifiersOf(ICIMQualifiedElement& declaration) {
  std::map<std::string, TJson> qualifiers;
  const auto add = [&qualifiers](const boost::shared_ptr<ICIMQualifier>& qualifier) {
    const std::string name = qualifier->GetQualifierDecl(TCIMContext())->GetName(TCIMContext());
    qualifiers[FoldedCIMName(name)] = ValueJson(qualifier->GetValue(TCIMContext()));
    return true;
  };
  declaration.EnumerateQualifiers(add, TCIMContext());
  return qualifiers;
}

std::string TextOrNone(const TJson& json) {
  return json.is_string() ? json.get<std::string>() : std::string();
}

std::string TextAt(const TJson& list, std::size_t index) {
  return list.is_array() && index < list.size() ? TextOrNone(list[index]) : std::string();
}

// Without a map, values are the numbers from 0.
std::vector<std::pair<std::string, std::string>> ValueMapOf(const TJson& map, const TJson& words) {
  std::vector<std::pair<std::string, std::string>> pairs;
  for (std::size_t i = 0; words.is_array() && i < words.size(); ++i)
    pairs.emplace_back(map.is_array() ? TextAt(map, i) : std::to_string(i), TextAt(words, i));
  return pairs;
}

std::optional<std::int64_t> WholeNumberIn(std::string_view text) {
  std::int64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

// "5..9", "5.." or "..9".
bool IsInRange(std::int64_t number, std::string_view range) {
  const std::size_t dots = range.find("..");
  if (dots == std::string_view::npos) return false;
  const std::string_view first = range.substr(0, dots);
  const std::string_view last = range.substr(dots + 2);
  const auto least = WholeNumberIn(first);
  const auto most = WholeNumberIn(last);
  if ((!first.empty() && !least) || (!last.empty() && !most)) return false;
  return (!least || *least <= number) && (!most || number <= *most);
}

bool AreDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return '0' <= c && c <= '9'; });
}

std::string OffsetText(std::string_view minutes) {
  const int offset = std::stoi(std::string(minutes.substr(1)));
  if (offset == 0) return "UTC";
  char text[16];
  std::snprintf(text, sizeof text, "%c%02d:%02d", minutes[0], offset / 60 % 100, offset % 60);
  return text;
}

// "20220314120000.000000+060" as "2022-03-14 12:00:00 +01:00". Other forms stay as they are.
std::optional<std::string> DateTimeWords(const std::string& text) {
  const std::string_view all = text;
  const bool isPoint = all.size() == 25 && AreDigits(all.substr(0, 14)) && all[14] == '.' &&
                       (all[21] == '+' || all[21] == '-') && AreDigits(all.substr(22));
  if (!isPoint) return std::nullopt;
  const auto part = [&text](std::size_t start, std::size_t size) {
    return text.substr(start, size);
  };
  return part(0, 4) + "-" + part(4, 2) + "-" + part(6, 2) + " " + part(8, 2) + ":" + part(10, 2) +
         ":" + part(12, 2) + " " + OffsetText(all.substr(21));
}

}  // namespace

TMeaning::TMeaning(ICIMPropertyDecl& declaration) {
  auto qualifiers = QualifiersOf(declaration);
  using TType = TCIMValue::TCIMType;
  const int type = declaration.GetType(TCIMContext()) & ~TType::kCIMTypeArrayFlag;
  fIsDateTime = type == TType::kCIMTypeDateTime;
  fValueMap = ValueMapOf(qualifiers["valuemap"], qualifiers["values"]);
  for (const char* name : {"punit", "units"}) {
    if (!fUnit && qualifiers[name].is_string())
      fUnit = ParseUnit(qualifiers[name].get<std::string>());
  }
}

std::optional<std::string> TMeaning::WordFor(const TJson& stored) const {
  const std::string text = stored.is_string() ? stored.get<std::string>() : stored.dump();
  for (const auto& [value, word] : fValueMap) {
    if (value == text && !word.empty()) return word;
  }
  if (!stored.is_number_integer()) return std::nullopt;
  const auto number = WholeNumberIn(text);
  for (const auto& [range, word] : fValueMap) {
    if (number && !word.empty() && IsInRange(*number, range)) return word;
  }
  return std::nullopt;
}

std::optional<std::string> TMeaning::ElementWords(const TJson& stored) const {
  if (stored.is_null()) return std::nullopt;
  if (auto word = WordFor(stored)) return word;
  if (stored.is_string())
    return fIsDateTime ? DateTimeWords(stored.get<std::string>()) : std::nullopt;
  if (!stored.is_number() || !fUnit) return std::nullopt;
  if (stored.is_number_unsigned())
    return AmountText(static_cast<long double>(stored.get<std::uint64_t>()), *fUnit);
  if (stored.is_number_integer())
    return AmountText(static_cast<long double>(stored.get<std::int64_t>()), *fUnit);
  return AmountText(stored.get<double>(), *fUnit);
}

std::optional<std::string> TMeaning::Words(const TJson& stored) const {
  if (!stored.is_array()) return ElementWords(stored);
  std::string text;
  bool hasWords = false;
  for (const TJson& element : stored) {
    const auto words = ElementWords(element);
    hasWords = hasWords || words;
    text += (text.empty() ? "" : ", ") + words.value_or(PlainText(element));
  }
  return hasWords ? std::optional(text) : std::nullopt;
}

const TMeaning& TMeanings::Of(ICIMClass& cimClass, const std::string& name) {
  static const TMeaning kNone;
  const auto [place, isNew] =
      fOfClasses.try_emplace(FoldedCIMName(cimClass.GetName(TCIMContext())));
  TOfClass& meanings = place->second;
  if (isNew) {
    const auto add = [&meanings](const boost::shared_ptr<ICIMPropertyDecl>& property) {
      meanings.emplace(FoldedCIMName(property->GetName(TCIMContext())), TMeaning(*property));
      return true;
    };
    cimClass.EnumeratePropertyDecls(add, TCIMContext());
  }
  const auto found = meanings.find(FoldedCIMName(name));
  return found == meanings.end() ? kNone : found->second;
}

std::string DescriptionOf(ICIMQualifiedElement& element) {
  return TextOrNone(QualifiersOf(element)["description"]);
}

std::string UnitsOf(ICIMQualifiedElement& element) {
  auto qualifiers = QualifiersOf(element);
  const std::string units = TextOrNone(qualifiers["units"]);
  return units.empty() ? TextOrNone(qualifiers["punit"]) : units;
}

TJson WithWords(const TJson& stored, const TMeaning& meaning) {
  const auto words = meaning.Words(stored);
  return words ? TJson{{"value", stored}, {"text", *words}} : stored;
}

}  // namespace hwx
