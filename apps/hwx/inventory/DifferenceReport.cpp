#include "hwx/inventory/DifferenceReport.h"

#include "hwx/text/Printable.h"
#include "hwx/text/Table.h"

namespace hwx {

namespace {

// Strings in quotation marks, so that "null" isn't null.
std::string Text(const TJson& value) {
  return value.dump(-1, ' ', false, TJson::error_handler_t::replace);
}

std::string LoneText(const char* mark, const std::vector<TLoneInstance>& instances) {
  std::string text;
  for (const TLoneInstance& instance : instances)
    text += mark + Printable(instance.fPath) + "\n";
  return text;
}

std::string ChangeText(const TChangedProperty& property, EValues values) {
  const std::string oldWords = property.fOldWords.value_or(Text(property.fOld));
  const std::string newWords = property.fNewWords.value_or(Text(property.fNew));
  if (values == EValues::kMeant && oldWords != newWords) return oldWords + " -> " + newWords;
  return Text(property.fOld) + " -> " + Text(property.fNew);
}

std::string ChangedText(const TChangedInstance& instance, EValues values) {
  std::vector<std::vector<std::string>> rows;
  for (const TChangedProperty& property : instance.fProperties)
    rows.push_back({property.fName, ChangeText(property, values)});
  return "~ " + Printable(instance.fPath) + "\n" + AlignedTable(rows, "    ");
}

std::string Summary(const TDifference& difference) {
  return std::to_string(difference.fRemoved.size()) + " removed, " +
         std::to_string(difference.fAdded.size()) + " added, " +
         std::to_string(difference.fChanged.size()) + " changed, " +
         std::to_string(difference.fEqual) + " equal\n";
}

TJson Value(const TJson& stored, const std::optional<std::string>& words, EValues values) {
  const bool has = words && values == EValues::kMeant;
  return has ? TJson{{"value", stored}, {"text", *words}} : stored;
}

TJson Values(const TLoneInstance& instance, EValues values) {
  TJson json = instance.fValues;
  for (const auto& [name, words] : instance.fWords)
    json[name] = Value(instance.fValues[name], words, values);
  return json;
}

TJson Json(const std::vector<TLoneInstance>& instances, EValues values) {
  TJson json = TJson::array();
  for (const TLoneInstance& instance : instances)
    json.push_back({{"path", instance.fPath}, {"values", Values(instance, values)}});
  return json;
}

TJson Json(const TChangedInstance& instance, EValues values) {
  TJson properties = TJson::array();
  for (const TChangedProperty& property : instance.fProperties) {
    properties.push_back({{"name", property.fName},
                          {"old", Value(property.fOld, property.fOldWords, values)},
                          {"new", Value(property.fNew, property.fNewWords, values)}});
  }
  return {{"path", instance.fPath}, {"properties", properties}};
}

}  // namespace

std::string DifferenceText(const TDifference& difference, EValues values) {
  std::string text = LoneText("- ", difference.fRemoved) + LoneText("+ ", difference.fAdded);
  for (const TChangedInstance& instance : difference.fChanged)
    text += ChangedText(instance, values);
  return text + Summary(difference);
}

std::string DifferenceJson(const TDifference& difference, EValues values) {
  TJson json;
  json["removed"] = Json(difference.fRemoved, values);
  json["added"] = Json(difference.fAdded, values);
  json["changed"] = TJson::array();
  for (const TChangedInstance& instance : difference.fChanged)
    json["changed"].push_back(Json(instance, values));
  json["equal"] = difference.fEqual;
  return JsonText(json);
}

}  // namespace hwx
