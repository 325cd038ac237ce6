#include "hwxcore/os/TOSSpecific.h"

#include <cstdlib>

#include "hwxcore/os/detail/ScsiBlockDevice.h"
#include "hwxcore/os/detail/VirtualDevices.h"
#include "hwxcore/schema/detail/RemovableDrives.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

namespace {

const char kFloppyMountPoint[] = "/mnt/floppy";
const char kKeyMountPoint[] = "/mnt/key";

const char* const kFloppyDevices[] = {"/dev/floppy", "/dev/fd0", "/dev/fd1"};

std::string UsbDevices() {
  const char* const old = "/proc/bus/usb/devices";
  return TOSSpecific::CaptureFile(TOSSpecific::FileExists(old) ? old
                                                               : "/sys/kernel/debug/usb/devices");
}

std::string MountPointOf(const std::string& device) {
  for (const char* floppy : kFloppyDevices) {
    if (device == floppy) return kFloppyMountPoint;
  }
  return kKeyMountPoint;
}

bool Succeeds(const std::string& command) {
  return std::system(command.c_str()) == 0;
}

// Contract: mount-unquoted.
bool Mounts(const std::string& device, const std::string& mountPoint) {
  return Succeeds("mount " + device + " " + mountPoint + " 2>/dev/null");
}

bool IsMountPoint(const std::string& directory) {
  return Succeeds("mount | grep \"" + directory + " type\" >/dev/null");
}

bool CanMount(const std::string& device) {
  try {
    TOSSpecific::MountDevice(device);
    return true;
  } catch (const THWXException&) {
    return false;
  }
}

std::string BlockDeviceOf(const std::string& genericDevice) {
  detail::TScsiSystem system;
  return detail::BlockDeviceOf(genericDevice, system);
}

// Nothing makes the other mount point. Contract: floppy-mount-point-alone.
void MakeFloppyMountPoint() {
  try {
    TOSSpecific::CreateDir(kFloppyMountPoint);
  } catch (const THWXException&) {
    return;  // it is there, or the mounts will fail
  }
}

}  // namespace

std::vector<std::pair<std::string, std::string> > TOSSpecific::EnumerateRemovableMedia(
    boost::shared_ptr<ICIMNamespace> ns) {
  const std::string usbDevices = UsbDevices();
  auto media = detail::RemovableDrives(usbDevices, ns, &BlockDeviceOf);
  MakeFloppyMountPoint();
  for (const char* device : kFloppyDevices) {
    if (!CanMount(device)) continue;
    media.emplace_back(device, "Built-in Floppy Drive");  // Contract: floppy-stays-mounted.
    break;
  }
  return media;
}

std::string TOSSpecific::MountDevice(std::string device) {
  const std::string mountPoint = MountPointOf(device);
  // Contract: any-mount-serves.
  if (IsMountPoint(mountPoint) || Mounts(device, mountPoint) || Mounts(device + "1", mountPoint)) {
    return mountPoint;
  }
  throw THWXException(kHWXStatusFileSystemError);
}

// Contract: unmount-ignores-device.
void TOSSpecific::UnmountDevice(std::string, std::string mountPoint) {
  if (!Succeeds("umount " + mountPoint + " 2> /dev/null")) {
    throw THWXException(kHWXStatusFileSystemError);
  }
}

void TOSSpecific::getiQBCVirtualDevices(int deviceClass, std::vector<std::string>& devices,
                                        bool useAlternateName) {
  const std::string argument(detail::VirtualDeviceClass(deviceClass).fArgument);
  std::vector<std::string> arguments;
  if (!argument.empty()) arguments.push_back(argument);
  const std::string text = SpawnProcess("hwinfo", arguments, 300);
  // Contract: devices-appended.
  detail::ReadVirtualDevices(text, deviceClass, useAlternateName, devices);
}

}  // namespace NQORHWX20
