#include <map>

#include "providers/linux/BlockDevices.h"
#include "providers/linux/Classes.h"
#include "providers/linux/FileSystems.h"
#include "providers/linux/ObjectPaths.h"

// The way from a drive to the files: medium, partition, file system.

namespace linux_machine {

namespace {

constexpr const char* kExtent = "CIM_StorageExtent";
constexpr const char* kPartition = "QORSG_DiskPartition";

TLinks ReadMediaInDrives(const std::string& root) {
  TLinks links;
  for (const TDisk& disk : ReadMedia(root)) {
    links.push_back({Device("QORSG_DiskDrive", disk.fDeviceID),
                     Device(kExtent, disk.fDeviceID),
                     {{"FixedMedia", !HasCapability(disk, kRemovableMedia)}}});
  }
  return links;
}

// Where a partition begins and ends on its disk.
std::vector<TNamedValue> PlaceOf(const TPartition& partition) {
  std::vector<TNamedValue> values;
  if (partition.fStart) {
    values.emplace_back("StartingAddress", *partition.fStart);
    if (partition.fBlocks > std::uint64_t{0}) {
      values.emplace_back("EndingAddress",
                          *partition.fStart + *partition.fBlocks * kSectorSize - 1);
    }
  }
  return values;
}

TLinks ReadPartitionsOfMedia(const std::string& root) {
  std::map<std::string, bool> media;
  for (const TDisk& disk : ReadMedia(root)) {
    media[disk.fDeviceID] = true;
  }
  TLinks links;
  for (const TPartition& partition : ReadPartitions(root)) {
    if (media.count(partition.fDisk) != 0) {
      links.push_back({Device(kExtent, partition.fDisk), Device(kPartition, partition.fDeviceID),
                       PlaceOf(partition)});
    }
  }
  return links;
}

// Disks and partitions by what mounts know of them: the kernel's numbers and the paths.
std::map<std::string, TObject> ReadExtents(const std::string& root) {
  std::map<std::string, TObject> extents;
  const auto add = [&extents](const char* name, const auto& device) {
    const TObject object = Device(name, device.fDeviceID);
    extents.emplace(device.fDeviceID, object);
    if (device.fNumber) {
      extents.emplace(*device.fNumber, object);
    }
  };
  for (const TDisk& disk : ReadMedia(root)) {
    add(kExtent, disk);
  }
  for (const TPartition& partition : ReadPartitions(root)) {
    add(kPartition, partition);
  }
  return extents;
}

TLinks ReadPlacesOfFileSystems(const std::string& root) {
  const std::map<std::string, TObject> extents = ReadExtents(root);
  TLinks links;
  for (const TFileSystem& mounted : ReadFileSystems(root)) {
    if (!mounted.fIsLocal) {
      continue;
    }
    auto extent = extents.find(mounted.fDevice);
    extent = extent == extents.end() ? extents.find(mounted.fSource) : extent;
    if (extent != extents.end()) {
      links.push_back({extent->second, {"CIM_LocalFileSystem", {{"Name", mounted.fName}}}, {}});
    }
  }
  return links;
}

}  // namespace

void DefineStorageLinks(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  DefineLinks(ns, "CIM_MediaPresent", &ReadMediaInDrives);
  DefineLinks(ns, "CIM_BasedOn", &ReadPartitionsOfMedia);
  DefineLinks(ns, "CIM_ResidesOnExtent", &ReadPlacesOfFileSystems);
}

}  // namespace linux_machine
