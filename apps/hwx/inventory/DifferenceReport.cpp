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

std::string ChangedText(const TChangedInstance& instance) {
  std::vector<std::vector<std::string>> rows;
  for (const TChangedProperty& property : instance.fProperties)
    rows.push_back({property.fName, Text(property.fOld) + " -> " + Text(property.fNew)});
  return "~ " + Printable(instance.fPath) + "\n" + AlignedTable(rows, "    ");
}

std::string Summary(const TDifference& difference) {
  return std::to_string(difference.fRemoved.size()) + " removed, " +
         std::to_string(difference.fAdded.size()) + " added, " +
         std::to_string(difference.fChanged.size()) + " changed, " +
         std::to_string(difference.fEqual) + " equal\n";
}

TJson Json(const std::vector<TLoneInstance>& instances) {
  TJson json = TJson::array();
  for (const TLoneInstance& instance : instances)
    json.push_back({{"path", instance.fPath}, {"values", instance.fValues}});
  return json;
}

TJson Json(const TChangedInstance& instance) {
  TJson properties = TJson::array();
  for (const TChangedProperty& property : instance.fProperties) {
    properties.push_back(
        {{"name", property.fName}, {"old", property.fOld}, {"new", property.fNew}});
  }
  return {{"path", instance.fPath}, {"properties", properties}};
}

}  // namespace

std::string DifferenceText(const TDifference& difference) {
  std::string text = LoneText("- ", difference.fRemoved) + LoneText("+ ", difference.fAdded);
  for (const TChangedInstance& instance : difference.fChanged)
    text += ChangedText(instance);
  return text + Summary(difference);
}

std::string DifferenceJson(const TDifference& difference) {
  TJson json;
  json["removed"] = Json(difference.fRemoved);
  json["added"] = Json(difference.fAdded);
  json["changed"] = TJson::array();
  for (const TChangedInstance& instance : difference.fChanged)
    json["changed"].push_back(Json(instance));
  json["equal"] = difference.fEqual;
  return JsonText(json);
}

}  // namespace hwx
