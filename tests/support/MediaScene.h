#ifndef HWXTESTS_SUPPORT_MEDIASCENE_H
#define HWXTESTS_SUPPORT_MEDIASCENE_H

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>

#include "support/ChildProcess.h"
#include "support/FileText.h"

namespace hwxtest {

/// For a forked child: mounts of its own, an empty /mnt, and neither of the kernel's lists of USB
/// devices. Returns false where that isn't allowed.
inline bool EnterMediaScene() {
  if (!EnterPrivateMountNamespace() || !MountTmpfs("/mnt") || !MountTmpfs("/proc/bus") ||
      !MountTmpfs("/sys/kernel")) {
    return false;
  }
  std::filesystem::create_directories("/proc/bus/usb");
  std::filesystem::create_directories("/sys/kernel/debug/usb");
  return true;
}

/// Makes the kernel's list of USB devices, at its old place or at the one of today.
inline void MakeOldUsbList(const std::string& text) {
  MakeFile("/proc/bus/usb/devices", text);
}
inline void MakeUsbList(const std::string& text) {
  MakeFile("/sys/kernel/debug/usb/devices", text);
}

/// Has the calling child see a /dev of its own, in which a test may make drives: with the simplest
/// devices and the loop devices alone. They are made anew; nothing leads to the real directory, so
/// that nothing of it can be removed. Returns false where that isn't allowed.
inline bool ReplaceDev() {
  std::map<std::string, struct stat> devices;
  for (const auto& entry : std::filesystem::directory_iterator("/dev")) {
    const std::string name = entry.path().filename();
    const bool isWanted = name == "null" || name == "zero" || name.rfind("loop", 0) == 0;
    if (isWanted && ::stat(entry.path().c_str(), &devices[name]) != 0) return false;
  }
  if (!MountTmpfs("/dev")) return false;
  return std::all_of(devices.begin(), devices.end(), [](const auto& device) {
    const auto& [name, status] = device;
    return ::mknod(("/dev/" + name).c_str(), status.st_mode, status.st_rdev) == 0;
  });
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_MEDIASCENE_H
