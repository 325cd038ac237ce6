#include "providers/linux/BlockDevices.h"

#include <algorithm>
#include <initializer_list>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr std::uint8_t kUnitSerialNumberPage = 0x80;
constexpr std::size_t kPageHeader = 4;

// Major numbers of drives that are no disk drives: floppy disks and CDs.
constexpr const char* kOtherDrives[] = {"2:", "11:"};

enum EDiskType : std::uint16_t { kHardDisk = 2, kSolidState = 3 };
enum EAccess : std::uint16_t { kReadable = 1, kReadWrite = 3 };

// A disk that is attached to something has an entry "device". Loop devices, memory and arrays have
// none.
bool IsDisk(const std::string& directory) {
  const std::string number = ReadTrimmed(directory + "/dev").value_or(std::string());
  return Exists(directory + "/device") &&
         std::none_of(std::begin(kOtherDrives), std::end(kOtherDrives),
                      [&](const char* major) { return number.rfind(major, 0) == 0; }) &&
         ReadNumber(directory + "/hidden").value_or(0) == 0;
}

// The text of the first file that exists: drivers keep the same thing in different files.
std::optional<std::string> ReadFirst(const std::string& directory,
                                     std::initializer_list<const char*> files) {
  for (const char* file : files) {
    if (auto text = ReadTrimmed(directory + file)) {
      return text;
    }
  }
  return std::nullopt;
}

std::optional<std::string> SerialNumber(const std::string& directory) {
  if (auto serial = ReadFirst(directory, {"/serial", "/device/serial"})) {
    return serial;
  }
  const auto page = ReadFile(directory + "/device/vpd_pg80");
  return page ? ParseUnitSerialNumber(*page) : std::nullopt;
}

std::optional<std::uint16_t> DiskType(const std::string& directory) {
  const auto rotational = ReadNumber(directory + "/queue/rotational");
  return rotational ? std::optional<std::uint16_t>(*rotational != 0 ? kHardDisk : kSolidState)
                    : std::nullopt;
}

TDisk ReadDisk(const std::string& directory, const std::string& name, std::uint64_t sectors) {
  TDisk disk;
  disk.fDeviceID = DevicePath(name);
  disk.fNumber = ReadTrimmed(directory + "/dev");
  disk.fModel = ReadFirst(directory, {"/device/model", "/device/name"});
  if (disk.fModel) {  // otherwise the vendor isn't a name but a number
    disk.fManufacturer = ReadTrimmed(directory + "/device/vendor");
  }
  disk.fSerialNumber = SerialNumber(directory);
  disk.fRevision = ReadFirst(directory, {"/device/rev", "/device/firmware_rev"});
  disk.fSize = Multiply(sectors, kSectorSize);
  disk.fBlockSize = ReadNumber(directory + "/queue/logical_block_size");
  disk.fDiskType = DiskType(directory);
  disk.fCapabilities = {kRandomAccess};
  if (ReadNumber(directory + "/ro") == 0) {
    disk.fCapabilities.push_back(kWriting);
  }
  if (ReadNumber(directory + "/removable") == 1) {
    disk.fCapabilities.push_back(kRemovableMedia);
  }
  return disk;
}

TPartition ReadPartition(const std::string& directory, const std::string& name,
                         std::uint64_t sectors) {
  TPartition partition;
  partition.fDeviceID = DevicePath(name);
  partition.fNumber = ReadTrimmed(directory + "/dev");
  partition.fLabel =
      EventVariable(ReadFile(directory + "/uevent").value_or(std::string()), "PARTNAME");
  partition.fBlocks = sectors;
  partition.fStart = Multiply(ReadNumber(directory + "/start"), kSectorSize);
  if (const auto isReadOnly = ReadNumber(directory + "/ro")) {
    partition.fAccess = *isReadOnly != 0 ? kReadable : kReadWrite;
  }
  return partition;
}

}  // namespace

std::string DevicePath(std::string_view name) {
  std::string path = "/dev/" + std::string(name);
  std::replace(path.begin(), path.end(), '!', '/');
  return path;
}

std::optional<std::string> ParseUnitSerialNumber(std::string_view page) {
  const auto byte = [&page](std::size_t i) { return static_cast<std::uint8_t>(page[i]); };
  if (page.size() < kPageHeader || byte(1) != kUnitSerialNumberPage) {
    return std::nullopt;
  }
  const std::size_t length = std::size_t{byte(2)} * 256 + byte(3);
  std::string text = WithoutTrailingBlanks(CutAtNul(page.substr(kPageHeader, length)));
  text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
  return text.empty() ? std::nullopt : std::optional(text);
}

std::optional<std::string> EventVariable(std::string_view text, std::string_view name) {
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (line.substr(0, line.find('=')) == name && line.size() > name.size() + 1) {
      return CutAtNul(line.substr(name.size() + 1));
    }
  }
  return std::nullopt;
}

std::vector<TDisk> ReadDisks(const std::string& root) {
  const std::string blocks = root + "/sys/block/";
  std::vector<TDisk> disks;
  for (const std::string& name : ListDirectory(blocks)) {
    const std::string directory = blocks + name;
    const auto sectors = ReadNumber(directory + "/size");  // none if the device has just gone
    if (sectors && IsDisk(directory)) {
      disks.push_back(ReadDisk(directory, name, *sectors));
    }
  }
  return disks;
}

bool HasCapability(const TDisk& disk, EDiskCapability capability) {
  const auto& all = disk.fCapabilities;
  return std::find(all.begin(), all.end(), capability) != all.end();
}

std::vector<TDisk> ReadMedia(const std::string& root) {
  std::vector<TDisk> media = ReadDisks(root);
  const auto isEmpty = [](const TDisk& disk) { return disk.fSize == std::uint64_t{0}; };
  media.erase(std::remove_if(media.begin(), media.end(), isEmpty), media.end());
  return media;
}

std::vector<TPartition> ReadPartitions(const std::string& root) {
  const std::string blocks = root + "/sys/block/";
  std::vector<TPartition> partitions;
  for (const std::string& disk : ListDirectory(blocks)) {
    for (const std::string& name : ListDirectory(blocks + disk)) {
      const std::string directory = blocks + disk + "/" + name;
      if (name.rfind(disk, 0) != 0 || !ReadNumber(directory + "/partition")) {
        continue;
      }
      if (const auto sectors = ReadNumber(directory + "/size")) {
        partitions.push_back(ReadPartition(directory, name, *sectors));
        partitions.back().fDisk = DevicePath(disk);
      }
    }
  }
  return partitions;
}

}  // namespace linux_machine
