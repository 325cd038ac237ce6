#ifndef HWXCORE_OS_DETAIL_VIRTUALDEVICES_H
#define HWXCORE_OS_DETAIL_VIRTUALDEVICES_H

#include <string>
#include <string_view>
#include <vector>

namespace NQORHWX20::detail {

/// What makes a virtual device of one class in the output of hwinfo.
struct TVirtualDeviceClass {
  std::string_view fClassLine;  ///< Begins its block.
  std::string_view fMarker;     ///< Tells it from a real device.
  std::string_view fArgument;   ///< Has hwinfo list the class; without one, it lists everything.
};

/// Of the disk (0), cd-rom (1), keyboard (2) and mouse (3). For any other number all three are
/// empty.
TVirtualDeviceClass VirtualDeviceClass(int deviceClass);

/// Appends the device file of each virtual device of that class in `text`, hwinfo's output. With
/// `useAlternateName` it is the file in parentheses, where there is one; a cd-rom has none. A line
/// counts if a line feed ends it.
void ReadVirtualDevices(std::string_view text, int deviceClass, bool useAlternateName,
                        std::vector<std::string>& devices);

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_OS_DETAIL_VIRTUALDEVICES_H
