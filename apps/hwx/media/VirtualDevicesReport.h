// What the command "virtual-devices" prints; see IdentityReport.h.
// Thread-safety: functions without state.

#ifndef HWX_MEDIA_VIRTUALDEVICESREPORT_H
#define HWX_MEDIA_VIRTUALDEVICESREPORT_H

#include <string>
#include <vector>

namespace hwx {

/// A class of virtual devices, and the names of those that there are.
struct TVirtualDevices {
  std::string fClass;
  std::vector<std::string> fNames;
};

/// A line for each device, behind its class.
std::string VirtualDevicesText(const std::vector<TVirtualDevices>& classes);

/// {"disk": ["...", ...], ...}
std::string VirtualDevicesJson(const std::vector<TVirtualDevices>& classes);

}  // namespace hwx

#endif  // HWX_MEDIA_VIRTUALDEVICESREPORT_H
