#include "providers/linux/EmptyClasses.h"

#include <dirent.h>

#include <cerrno>
#include <cstring>
#include <exception>
#include <memory>
#include <optional>

#include "hwxsys/SystemRoot.h"
#include "providers/linux/BiosInformation.h"
#include "providers/linux/BlockDevices.h"
#include "providers/linux/BusDevices.h"
#include "providers/linux/Caches.h"
#include "providers/linux/Enclosures.h"
#include "providers/linux/FileSystems.h"
#include "providers/linux/FirmwareTables.h"
#include "providers/linux/MemoryModules.h"
#include "providers/linux/NetworkPorts.h"
#include "providers/linux/ProcessorParts.h"
#include "providers/linux/Processors.h"
#include "providers/linux/ScsiDevices.h"
#include "providers/linux/Sensors.h"
#include "providers/linux/Slots.h"
#include "providers/linux/TextFile.h"
#include "smbios/TableReader.h"

namespace linux_machine {

namespace {

// What a class is made of.
struct TOrigin {
  const char* fClass;
  bool (*fIsEmpty)(const std::string& root);
  const char* fWhat;   // the things that there are none of
  const char* fPlace;  // the file or directory that would list them; null for the firmware's tables
};

template <auto kRead>
bool IsEmpty(const std::string& root) {
  return kRead(root).empty();
}

// The two kinds of file systems; one list tells of both.
template <bool kIsLocal>
bool HasNoFileSystems(const std::string& root) {
  for (const TFileSystem& system : ReadFileSystems(root)) {
    if (system.fIsLocal == kIsLocal) {
      return false;
    }
  }
  return true;
}

constexpr const char* kBlocks = "/sys/block";
constexpr const char* kMounts = "/proc/self/mountinfo";

constexpr TOrigin kOrigins[] = {
    {"CIM_BIOSElement", &IsEmpty<&ReadBios>, "firmware that starts the machine", nullptr},
    {"CIM_Chassis", &IsEmpty<&ReadChassis>, "chassis", nullptr},
    {"CIM_Card", &IsEmpty<&ReadBoards>, "boards", nullptr},
    {"QORSG_PhysicalMemory", &IsEmpty<&ReadMemoryModules>, "memory modules", nullptr},
    {"QORSG_PhysicalMemoryArray", &IsEmpty<&ReadMemoryArrays>, "slots for memory modules", nullptr},
    {"QORSG_Processor", &IsEmpty<&ReadProcessors>, "processors", "/proc/cpuinfo"},
    {"CIM_ProcessorCore", &IsEmpty<&ReadProcessorCores>, "processors", "/proc/cpuinfo"},
    {"CIM_HardwareThread", &IsEmpty<&ReadHardwareThreads>, "processors", "/proc/cpuinfo"},
    {"CIM_CacheMemory", &IsEmpty<&ReadCaches>, "caches", "/sys/devices/system/cpu"},
    {"CIM_Memory", &IsEmpty<&ReadSystemMemory>, "blocks of memory", "/sys/devices/system/memory"},
    {"CIM_EthernetPort", &IsEmpty<&ReadNetworkPorts>, "ports that speak Ethernet",
     "/sys/class/net"},
    {"QORSG_DiskDrive", &IsEmpty<&ReadDisks>, "disks", kBlocks},
    {"CIM_StorageExtent", &IsEmpty<&ReadMedia>, "disks with a medium", kBlocks},
    {"QORSG_DiskPartition", &IsEmpty<&ReadPartitions>, "partitions", kBlocks},
    {"CIM_LocalFileSystem", &HasNoFileSystems<true>, "file systems of this machine", kMounts},
    {"CIM_FileSystem", &HasNoFileSystems<false>, "file systems of servers or programs", kMounts},
    {"QORSG_PCIDevice", &IsEmpty<&ListPCIDevices>, "PCI devices", "/sys/bus/pci/devices"},
    {"CIM_USBDevice", &IsEmpty<&ReadUSBDevices>, "USB devices", "/sys/bus/usb/devices"},
    {"QORSG_Slot", &IsEmpty<&ReadSlots>, "slots", nullptr},
    {"QORSG_PowerSupply", &IsEmpty<&ReadPowerSupplies>, "power supplies", nullptr},
    {"QORSG_Battery", &IsEmpty<&ReadBatteries>, "batteries", "/sys/class/power_supply"},
    {"CIM_Fan", &IsEmpty<&ReadFans>, "fans", "/sys/class/hwmon"},
    {"CIM_NumericSensor", &IsEmpty<&ReadSensors>, "sensors", "/sys/class/hwmon"},
    {"QORSG_SCSIDevice", &IsEmpty<&ReadScsiDevices>, "SCSI devices", "/sys/bus/scsi/devices"},
};

// Why a file or directory can't be read; none when it can.
std::optional<std::string> WhyUnreadable(const std::string& path) {
  const std::unique_ptr<DIR, int (*)(DIR*)> directory(
      ::opendir(hwxsys::FollowedInRoot(path).c_str()), &::closedir);
  if (directory || errno == ENOTDIR) {
    return std::nullopt;
  }
  return path + ": " + std::strerror(errno);
}

std::string WhyNoStructures(const std::string& root, const char* what) {
  const std::string location = smbios::TablesLocation(root);
  const smbios::TTables tables = ReadFirmwareTables(root);
  return tables.IsSound() ? std::string("the firmware's tables list no ") + what
                          : smbios::WhyUnsound(tables, location);
}

std::string Reason(const TOrigin& origin, const std::string& root) {
  if (origin.fPlace == nullptr) {
    return WhyNoStructures(root, origin.fWhat);
  }
  const std::string path = root + origin.fPlace;
  return WhyUnreadable(path).value_or(path + " lists no " + origin.fWhat);
}

bool IsEmptyClass(const TOrigin& origin, const std::string& root) {
  try {
    return origin.fIsEmpty(root);
  } catch (const std::exception&) {  // told where its instances are asked for
    return false;
  }
}

}  // namespace

std::vector<TEmptyClass> FindEmptyClasses(const std::string& root) {
  std::vector<TEmptyClass> found;
  for (const TOrigin& origin : kOrigins) {
    if (IsEmptyClass(origin, root)) {
      found.push_back({origin.fClass, Reason(origin, root)});
    }
  }
  return found;
}

}  // namespace linux_machine
