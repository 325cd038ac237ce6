#include "hwx/media/MediaReport.h"

#include "hwx/text/Json.h"
#include "hwx/text/Printable.h"
#include "hwx/text/Table.h"

namespace hwx {

namespace {

std::string Mounted(const std::vector<std::string>& mountPoints) {
  std::string text;
  for (const std::string& mountPoint : mountPoints)
    text += (text.empty() ? "" : ", ") + mountPoint;
  return text.empty() ? "not mounted" : text;
}

}  // namespace

std::string MediaText(const TAnswer<std::vector<TMedium>>& media) {
  if (!media.fValue) return "none known: " + Printable(media.fReason) + "\n";
  if (media.fValue->empty()) return "none\n";
  std::vector<std::vector<std::string>> rows;
  rows.reserve(media.fValue->size());
  for (const TMedium& medium : *media.fValue)
    rows.push_back({medium.fDevice, medium.fDescription, Mounted(medium.fMountPoints)});
  return AlignedTable(rows);
}

std::string MediaJson(const TAnswer<std::vector<TMedium>>& media) {
  TJson list = TJson::array();
  for (const TMedium& medium : media.fValue.value_or(std::vector<TMedium>())) {
    list.push_back({{"device", medium.fDevice},
                    {"description", medium.fDescription},
                    {"mountPoints", medium.fMountPoints}});
  }
  TJson json;
  json["media"] = list;
  if (!media.fValue) json["reason"] = media.fReason;
  return JsonText(json);
}

}  // namespace hwx
