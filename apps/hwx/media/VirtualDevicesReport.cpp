#include "hwx/media/VirtualDevicesReport.h"

#include "hwx/text/Json.h"
#include "hwx/text/Table.h"

namespace hwx {

std::string VirtualDevicesText(const std::vector<TVirtualDevices>& classes) {
  std::vector<std::vector<std::string>> rows;
  for (const TVirtualDevices& devices : classes) {
    if (devices.fNames.empty()) rows.push_back({devices.fClass, "none"});
    for (const std::string& name : devices.fNames)
      rows.push_back({devices.fClass, name});
  }
  return AlignedTable(rows);
}

std::string VirtualDevicesJson(const std::vector<TVirtualDevices>& classes) {
  TJson json = TJson::object();
  for (const TVirtualDevices& devices : classes)
    json[devices.fClass] = devices.fNames;
  return JsonText(json);
}

}  // namespace hwx
