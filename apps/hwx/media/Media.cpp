#include "hwx/media/Media.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string_view>

#include "hwx/media/MountTable.h"
#include "hwx/text/Failure.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/value/THWXException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

const char kKeyMountPoint[] = "/mnt/key";
const char kFloppyMountPoint[] = "/mnt/floppy";
const char kUsbDevices[] = "/sys/kernel/debug/usb/devices";

bool IsFloppy(const std::string& device) {
  return device == "/dev/floppy" || device == "/dev/fd0" || device == "/dev/fd1";
}

// The path of the device without links, as the table of mounts has it.
std::string RealDevice(const std::string& device) {
  std::error_code error;
  const auto path = std::filesystem::canonical(device, error);
  return error ? device : path.string();
}

// The library lists a floppy drive if anything is mounted at its mount point.
std::vector<std::string> MountPoints(const std::string& device, const std::vector<TMount>& mounts) {
  if (IsFloppy(device)) return {kFloppyMountPoint};
  return MountPointsOf(RealDevice(device), mounts);
}

std::string WhyNoUsbDevices() {
  if (!TOSSpecific::IsAdmin()) return std::string("needs root: ") + kUsbDevices + " can't be read";
  return std::string(
             "this machine has no list of USB devices: neither /proc/bus/usb/devices nor ") +
         kUsbDevices + " can be read";
}

// Refuses what a shell would take apart: the library hands the path to one unquoted.
void RequirePlainPath(const std::string& path) {
  constexpr std::string_view kPlain = "/._-+:@";
  const bool isPlain = std::all_of(path.begin(), path.end(), [&](char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 ||
           kPlain.find(character) != std::string_view::npos;
  });
  if (isPlain && !path.empty() && path.front() == '/') return;
  throw TFailure(path + " is no path of letters, digits and \"" + std::string(kPlain) +
                 "\" that begins with \"/\"");
}

void RequireAdmin() {
  if (!TOSSpecific::IsAdmin()) throw TFailure("needs root: only root may mount and unmount");
}

void MakeMountPoint(const std::string& mountPoint) {
  if (TOSSpecific::DirExists(mountPoint)) return;
  try {
    TOSSpecific::CreateDir(mountPoint);
  } catch (const THWXException& failure) {
    throw TFailure("the mount point " + mountPoint +
                   " can't be made: " + InWords(failure.GetStatus()));
  }
}

// Throws if another device is mounted there, which the library would take for this one.
void RequireFreeFor(const std::string& device, const std::string& mountPoint) {
  const std::string source = SourceAt(mountPoint, hwxsys::ReadMountInfo());
  if (source.empty()) return;
  if (IsOfDevice(source, RealDevice(device)) || source == RealDevice(device + "1")) return;
  throw TFailure(mountPoint + " is in use: " + source + " is mounted there");
}

}  // namespace

TAnswer<std::vector<TMedium>> ListMedia(const NamespacePtr& machine) {
  try {
    const auto found = TOSSpecific::EnumerateRemovableMedia(machine);
    const std::vector<TMount> mounts = hwxsys::ReadMountInfo();
    std::vector<TMedium> media;
    media.reserve(found.size());
    for (const auto& [device, description] : found)
      media.push_back({device, description, MountPoints(device, mounts)});
    return {media, ""};
  } catch (const THWXException& failure) {
    if (failure.GetStatus() == kHWXStatusFileNotFound) {
      return Missing<std::vector<TMedium>>(WhyNoUsbDevices());
    }
    throw TFailure("the removable drives can't be told: " + InWords(failure.GetStatus()));
  }
}

std::string MountMedium(const std::string& device) {
  RequirePlainPath(device);
  RequireAdmin();
  const std::string mountPoint = IsFloppy(device) ? kFloppyMountPoint : kKeyMountPoint;
  MakeMountPoint(mountPoint);
  RequireFreeFor(device, mountPoint);
  try {
    return TOSSpecific::MountDevice(device);
  } catch (const THWXException&) {
    throw TFailure("neither " + device + " nor " + device + "1 can be mounted at " + mountPoint);
  }
}

void UnmountMedium(const std::string& mountPoint) {
  RequirePlainPath(mountPoint);
  RequireAdmin();
  if (SourceAt(mountPoint, hwxsys::ReadMountInfo()).empty()) {
    throw TFailure("nothing is mounted at " + mountPoint);
  }
  try {
    TOSSpecific::UnmountDevice("", mountPoint);
  } catch (const THWXException&) {
    throw TFailure(mountPoint + " can't be unmounted: it may be in use");
  }
}

}  // namespace hwx
