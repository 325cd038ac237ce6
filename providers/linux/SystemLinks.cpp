#include <cctype>

#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "providers/linux/BiosInformation.h"
#include "providers/linux/BlockDevices.h"
#include "providers/linux/BusDevices.h"
#include "providers/linux/Caches.h"
#include "providers/linux/Classes.h"
#include "providers/linux/Enclosures.h"
#include "providers/linux/FileSystems.h"
#include "providers/linux/MemoryModules.h"
#include "providers/linux/NetworkPorts.h"
#include "providers/linux/ObjectPaths.h"
#include "providers/linux/OperatingSystem.h"
#include "providers/linux/Processors.h"
#include "providers/linux/Sensors.h"
#include "providers/linux/Slots.h"
#include "providers/linux/SystemInformation.h"

// What belongs to the machine as a whole.

namespace linux_machine {

namespace {

template <auto kRead, auto kDeviceID>
std::vector<std::string> DeviceIDs(const std::string& root) {
  std::vector<std::string> identifiers;
  for (const auto& row : kRead(root)) {
    identifiers.push_back(row.*kDeviceID);
  }
  return identifiers;
}

struct TDeviceClass {
  const char* fName;
  std::vector<std::string> (*fDeviceIDs)(const std::string& root);
};

// All classes below CIM_LogicalDevice that have instances.
constexpr TDeviceClass kDeviceClasses[] = {
    {"QORSG_Processor", &DeviceIDs<&ReadProcessors, &TProcessor::fDeviceID>},
    {"CIM_CacheMemory", &DeviceIDs<&ReadCaches, &TCache::fDeviceID>},
    {"CIM_Memory", &DeviceIDs<&ReadSystemMemory, &TSystemMemory::fDeviceID>},
    {"CIM_EthernetPort", &DeviceIDs<&ReadNetworkPorts, &TNetworkPort::fDeviceID>},
    {"QORSG_DiskDrive", &DeviceIDs<&ReadDisks, &TDisk::fDeviceID>},
    {"CIM_StorageExtent", &DeviceIDs<&ReadMedia, &TDisk::fDeviceID>},
    {"QORSG_DiskPartition", &DeviceIDs<&ReadPartitions, &TPartition::fDeviceID>},
    {"QORSG_PCIDevice", &ListPCIDevices},
    {"CIM_USBDevice", &DeviceIDs<&ReadUSBDevices, &TUSBDevice::fDeviceID>},
    {"QORSG_PowerSupply", &DeviceIDs<&ReadPowerSupplies, &TPowerSupply::fDeviceID>},
    {"QORSG_Battery", &DeviceIDs<&ReadBatteries, &TBattery::fDeviceID>},
    {"CIM_Fan", &DeviceIDs<&ReadFans, &TFan::fDeviceID>},
    {"CIM_NumericSensor", &DeviceIDs<&ReadSensors, &TSensor::fDeviceID>},
};

TLinks ReadSystemDevices(const std::string& root) {
  const TObject system = ComputerSystem(root);
  TLinks links;
  for (const TDeviceClass& devices : kDeviceClasses) {
    for (const std::string& identifier : devices.fDeviceIDs(root)) {
      links.push_back({system, Device(devices.fName, identifier), {}});
    }
  }
  return links;
}

TObject RunningSystem(const std::string& root) {
  return {NQORHWX20::TCIMSchemaHelper::kOperatingSystemCreationClassName,
          {{"Name", ReadOperatingSystem(root).fName}}};
}

TLinks ReadRunningOS(const std::string& root) {
  return {{RunningSystem(root), ComputerSystem(root), {}}};
}

TLinks ReadInstalledOS(const std::string& root) {
  return {{ComputerSystem(root), RunningSystem(root), {{"PrimaryOS", true}}}};
}

TLinks ReadSystemBIOS(const std::string& root) {
  TLinks links;
  for (const TBios& bios : ReadBios(root)) {
    const TObject element = {"CIM_BIOSElement",
                             {{"Name", bios.fName},
                              {"Version", bios.fVersion.value_or(std::string())},
                              {"SoftwareElementState", kRunning},
                              {"SoftwareElementID", bios.fName},
                              {"TargetOperatingSystem", kAnyOperatingSystem}}};
    links.push_back({ComputerSystem(root), element, {}});
  }
  return links;
}

TLinks ReadHostedFileSystems(const std::string& root) {
  const TObject system = ComputerSystem(root);
  TLinks links;
  for (const TFileSystem& mounted : ReadFileSystems(root)) {
    const char* const name = mounted.fIsLocal ? "CIM_LocalFileSystem" : "CIM_FileSystem";
    links.push_back({system, {name, {{"Name", mounted.fName}}}, {}});
  }
  return links;
}

// The 32 digits of an identifier in groups.
std::string WithoutDashes(const std::string& identifier) {
  std::string digits;
  for (const char c : identifier) {
    if (c != '-') {
      digits += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
  }
  return digits;
}

TLinks ReadSystemPackages(const std::string& root) {
  std::vector<TNamedValue> values;
  if (const auto identifier = ReadSystemInformation(root).fUUID) {
    values.emplace_back("PlatformGUID", WithoutDashes(*identifier));
  }
  TLinks links;
  for (const TChassis& chassis : ReadChassis(root)) {
    links.push_back({Part("CIM_Chassis", chassis.fTag), ComputerSystem(root), values});
  }
  return links;
}

}  // namespace

void DefineSystemLinks(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  DefineLinks(ns, "CIM_SystemDevice", &ReadSystemDevices);
  DefineLinks(ns, "CIM_RunningOS", &ReadRunningOS);
  DefineLinks(ns, "CIM_InstalledOS", &ReadInstalledOS);
  DefineLinks(ns, "CIM_SystemBIOS", &ReadSystemBIOS);
  DefineLinks(ns, "CIM_HostedFileSystem", &ReadHostedFileSystems);
  DefineLinks(ns, "CIM_ComputerSystemPackage", &ReadSystemPackages);
}

}  // namespace linux_machine
