#include "hwxcore/schema/detail/RemovableDrives.h"

#include "hwxcore/schema/ClassNames.h"
#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMNamespace.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/TAddToVectorCallback.h"
#include "hwxcore/schema/detail/Existing.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20::detail {

namespace {

using InstancePtr = boost::shared_ptr<ICIMInstance>;

std::vector<InstancePtr> ScsiDevices(const boost::shared_ptr<ICIMNamespace>& ns) {
  std::vector<InstancePtr> devices;
  const auto deviceClass = Existing(ns)->GetClass(kSCSIDeviceClassName, TCIMContext());
  Existing(deviceClass)
      ->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(&devices), false, TCIMContext());
  return devices;
}

std::string Text(const InstancePtr& device, const std::string& property) {
  const auto found = Existing(device)->GetProperty(property, TCIMContext());
  return Existing(found)->GetValue(TCIMContext());
}

std::string FirstWord(const std::string& text) {
  return text.substr(0, text.find_first_of(" \n\r\t"));
}

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// An empty product is in every list. Contract: removable-by-name.
bool IsRemovable(const std::string& product, const std::string& usbDevices) {
  return Holds(usbDevices, product) || Holds(product, "USB");
}

bool IsGenericDevice(const std::string& path) {
  constexpr std::size_t kDirectorySize = 5;  // of "/dev/", which is taken for granted
  return path.size() >= kDirectorySize && path.compare(kDirectorySize, 2, "sg") == 0;
}

}  // namespace

std::vector<std::pair<std::string, std::string> > RemovableDrives(
    const std::string& usbDevices, const boost::shared_ptr<ICIMNamespace>& ns,
    const std::function<std::string(const std::string&)>& blockDeviceOf) {
  std::vector<std::pair<std::string, std::string> > drives;
  for (const InstancePtr& device : ScsiDevices(ns)) {
    if (Text(device, "DeviceType") != "Direct Access Device") continue;
    // Contract: missing-property-ends-listing.
    const std::string product = FirstWord(Text(device, "ProductID"));
    if (!IsRemovable(product, usbDevices)) continue;
    std::string path = Text(device, "DeviceID");
    const std::string vendor = FirstWord(Text(device, "VendorID"));
    try {
      if (IsGenericDevice(path)) path = blockDeviceOf(path);
    } catch (const THWXException&) {
      continue;  // logged. Contract: failed-probe-leaves-out.
    }
    drives.emplace_back(path, vendor + " - " + product);
  }
  return drives;
}

}  // namespace NQORHWX20::detail
