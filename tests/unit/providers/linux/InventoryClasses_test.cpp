#include <sys/stat.h>

#include <filesystem>
#include <sstream>

#include "support/Structures.h"
#include "unit/providers/linux/ProviderFixture.h"

// The classes of the hardware, through the real module: each property of a made machine, and what
// the classes declare.

using namespace std::string_literals;

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using Type = TCIMValue::TCIMType;

constexpr const char* kInventory[] = {
    "CIM_BIOSElement",
    "CIM_Chassis",
    "CIM_Card",
    "CIM_Processor",
    "CIM_Memory",
    "CIM_PhysicalMemory",
    "QORSG_PhysicalMemoryArray",
    "CIM_EthernetPort",
    "CIM_DiskDrive",
    "CIM_DiskPartition",
    "CIM_FileSystem",
    "CIM_PCIDevice",
    "CIM_USBDevice",
};

// The keys that say of which class and machine an instance is.
bool IsOwnerKey(const std::string& name) {
  return name == "CreationClassName" || name == "SystemCreationClassName" || name == "SystemName" ||
         name == "CSCreationClassName" || name == "CSName";
}

class InventoryClasses : public ProviderTest {
 protected:
  void Write(const std::string& file, const std::string& text) {
    WriteMachineFile(fDirectory.Path(), file, text);
  }

  void AddTables(const std::function<void(SmbiosTables&)>& fill) {
    SmbiosTables tables;
    fill(tables);
    tables.AddEnd().WriteDirectory(fDirectory / "sys/firmware/dmi/tables");
  }

  // A module as type 17 describes it, with its texts 1 to 6.
  static Bytes Module() {
    Bytes fields = {0, 0, 0,    0,    72, 0, 64, 0, 0, 32, 9, 0, 1, 2,    0x1A,
                    0, 0, 0x80, 0x0C, 3,  4, 5,  6, 1, 0,  0, 0, 0, 0x75, 0x0B};
    fields.resize(0x28 - 4);
    return fields;
  }

  // Each instance as lines of the property's name and value, but for nulls and the keys above.
  std::string Show(const std::string& className) {
    std::ostringstream text;
    for (const auto& instance : List(className)) {
      instance->EnumerateProperties(
          [&text](const boost::shared_ptr<ICIMProperty>& property) {
            const TCIMValue& value = property->GetValue({});
            if (!value.IsNull() && !IsOwnerKey(property->GetName({}))) {
              text << property->GetName({}) << " " << Shown(value) << "\n";
            }
            return true;
          },
          {});
    }
    return text.str();
  }

  static std::string Shown(const TCIMValue& value) {
    if ((value.GetType() & Type::kCIMTypeArrayFlag) == 0) {
      return value.ToString(10);
    }
    const std::vector<TCIMValue>& elements = value;
    std::string text = "{";
    for (const TCIMValue& element : elements) {
      text += " " + element.ToString(10);
    }
    return text + " }";
  }
};

TEST_F(InventoryClasses, ShowTheFirmware) {
  AddTables([](SmbiosTables& tables) {
    tables.Add(0, {1, 2, 0, 0xF0, 3, 0}, {"EXMPL", "1.05", "03/01/2021"});
    Bytes languages(0x16 - 4);
    PutField(languages, 0x04, 1, 2);
    PutField(languages, 0x15, 1, 1);
    tables.Add(13, languages, {"en|US", "fr|FR"});
  });
  EXPECT_EQ(Show("CIM_BIOSElement"),
            "Name BIOS\nVersion 1.05\nSoftwareElementState 3\nSoftwareElementID BIOS\n"
            "TargetOperatingSystem 66\nManufacturer EXMPL\nPrimaryBIOS true\n"
            "ListOfLanguages { en|US fr|FR }\nCurrentLanguage en|US\n"
            "LoadedStartingAddress 983040\nLoadedEndingAddress 1048575\n"
            "ReleaseDate 20210301000000.000000+000\n");
}

TEST_F(InventoryClasses, ShowChassisAndBoards) {
  AddTables([](SmbiosTables& tables) {
    Bytes chassis(0x16 - 4);
    PutField(chassis, 0x04, 4, 0x02000000 | 23 << 8 | 1);
    PutField(chassis, 0x06, 4, 0x05040302);
    PutField(chassis, 0x08, 1, 4);
    PutField(chassis, 0x0C, 1, 3);
    PutField(chassis, 0x11, 2, 0x0202);
    PutField(chassis, 0x15, 1, 5);
    tables.Add(3, chassis, {"EXMPL", "v2", "5A17", "A-77", "SKU-1"});
    tables.Add(2, {1, 2, 3, 4, 5, 9, 6, 0, 0, 10},
               {"EXMPL", "Board 9", "v1", "B17", "B-77", "Slot 1"});
  });
  EXPECT_EQ(Show("CIM_Chassis"),
            "Tag Chassis 0\nManufacturer EXMPL\nSKU SKU-1\nSerialNumber 5A17\nVersion v2\n"
            "OtherIdentifyingInfo A-77\nHeight 3.5\nLockPresent false\nSecurityBreach 3\n"
            "NumberOfPowerCords 2\nChassisPackageType 17\n"
            "ChassisTypeDescription Rack Mount Chassis\nRackMountable 1\n");
  EXPECT_EQ(Show("CIM_Card"),
            "ElementName Slot 1\nTag Card 0\nManufacturer EXMPL\nModel Board 9\n"
            "SerialNumber B17\nVersion v1\nOtherIdentifyingInfo B-77\nCanBeFRUed true\n"
            "RemovalConditions 3\nHostingBoard true\nRequiresDaughterBoard false\n");
}

TEST_F(InventoryClasses, ShowProcessors) {
  Write("proc/cpuinfo",
        "processor : 0\nvendor_id : EXMPL\nmodel name : Example CPU\nstepping : 7\n"
        "cpu MHz : 2500.1\nflags : lm\naddress sizes : 46 bits physical\n");
  AddTables([](SmbiosTables& tables) {
    Bytes socket(0x28 - 4);
    PutField(socket, 0x04, 2, 0x0301);
    PutField(socket, 0x06, 1, 0xB3);
    PutField(socket, 0x12, 2, 100);
    PutField(socket, 0x14, 2, 4000);
    PutField(socket, 0x18, 2, 0x2B41);
    PutField(socket, 0x26, 2, 0b100100);
    tables.Add(4, socket, {"CPU 1"});
  });
  EXPECT_EQ(Show("CIM_Processor"),
            "ElementName CPU 1\nName Example CPU\nDeviceID CPU0\nFamily 179\n"
            "UpgradeMethod 43\nMaxClockSpeed 4000\nCurrentClockSpeed 2500\nDataWidth 64\n"
            "AddressWidth 46\nStepping 7\nCPUStatus 1\nExternalBusClockSpeed 100\n"
            "Characteristics { 2 6 }\nNumberOfEnabledCores 1\nManufacturer EXMPL\n"
            "NumberOfHardwareThreads 1\n");
}

TEST_F(InventoryClasses, ShowMemory) {
  AddTables([](SmbiosTables& tables) {
    tables.Add(17, Module(), {"DIMM A1", "BANK 0", "EXMPL", "5A17", "A-77", "PN-8G"});
    tables.Add(16, {3, 3, 6, 0, 0, 0, 4, 0, 0, 8, 0});
  });
  Write("sys/devices/system/memory/block_size_bytes", "8000000\n");
  Write("sys/devices/system/memory/memory0/online", "1\n");
  EXPECT_EQ(Show("CIM_PhysicalMemory"),
            "ElementName DIMM A1\nTag Physical Memory 0\nManufacturer EXMPL\n"
            "SerialNumber 5A17\nPartNumber PN-8G\nOtherIdentifyingInfo A-77\nFormFactor 8\n"
            "MemoryType 26\nTotalWidth 72\nDataWidth 64\nCapacity 8589934592\n"
            "BankLabel BANK 0\nConfiguredMemoryClockSpeed 2933\nIsSpeedInMhz true\n"
            "MaxMemorySpeed 3200\nFormFactorDescription DIMM\nMemoryTypeDescription DDR4\n");
  EXPECT_EQ(Show("QORSG_PhysicalMemoryArray"),
            "Tag Physical Memory Array 0\nLocation 3\nUse 3\nMemoryErrorCorrection 6\n"
            "MaxCapacity 67108864\nMemoryDevices 8\n");
  EXPECT_EQ(Show("CIM_Memory"),
            "DeviceID System Memory\nBlockSize 134217728\nNumberOfBlocks 1\nVolatile true\n");
}

TEST_F(InventoryClasses, ShowEthernetPorts) {
  const std::string port = "sys/class/net/eth0/";
  Write(port + "type", "1\n");
  Write(port + "address", "02:fc:00:00:00:0a\n");
  Write(port + "addr_assign_type", "0\n");
  Write(port + "flags", "0x1003\n");
  Write(port + "carrier", "1\n");
  Write(port + "operstate", "up\n");
  Write(port + "speed", "1000\n");
  Write(port + "duplex", "half\n");
  Write(port + "mtu", "1500\n");
  EXPECT_EQ(Show("CIM_EthernetPort"),
            "OperationalStatus { 2 }\nEnabledState 2\nDeviceID eth0\nSpeed 1000000000\n"
            "LinkTechnology 2\nPermanentAddress 02FC0000000A\n"
            "NetworkAddresses { 02FC0000000A }\nFullDuplex false\n"
            "ActiveMaximumTransmissionUnit 1500\n");
}

TEST_F(InventoryClasses, ShowDisksAndPartitions) {
  const std::string disk = "sys/block/sda/";
  Write(disk + "size", "2097152\n");
  Write(disk + "ro", "0\n");
  Write(disk + "queue/rotational", "0\n");
  Write(disk + "queue/logical_block_size", "4096\n");
  Write(disk + "device/vendor", "EXMPL\n");
  Write(disk + "device/model", "DISK\n");
  Write(disk + "device/rev", "A1\n");
  Write(disk + "device/serial", "5A17\n");
  Write(disk + "sda1/partition", "1\n");
  Write(disk + "sda1/size", "2048\n");
  Write(disk + "sda1/start", "8\n");
  Write(disk + "sda1/ro", "1\n");
  Write(disk + "sda1/uevent", "PARTNAME=boot\n");
  EXPECT_EQ(Show("CIM_DiskDrive"),
            "DeviceID /dev/sda\nCapabilities { 3 4 }\nMaxMediaSize 1073741\n"
            "DefaultBlockSize 4096\nDiskType 3\nManufacturer EXMPL\nModel DISK\n"
            "SerialNumber 5A17\nVersion A1\nSize 1073741824\n");
  EXPECT_EQ(Show("CIM_DiskPartition"),
            "ElementName boot\nDeviceID /dev/sda1\nAccess 1\nBlockSize 512\n"
            "NumberOfBlocks 2048\nPrimordial false\nStartingAddress 4096\n");
}

TEST_F(InventoryClasses, ShowFileSystems) {
  Write("proc/self/mountinfo",
        "27 1 254:0 /a /b\\040c ro - ext4 /dev/vda rw\n28 1 0:9 / /net rw - nfs host:/x rw\n");
  EXPECT_EQ(Show("CIM_LocalFileSystem"),
            "ElementName /dev/vda\nName /b c\nRoot /a\nReadOnly true\nFileSystemType ext4\n"
            "PersistenceType 2\n");
  EXPECT_THAT(Show("CIM_FileSystem"),
              ::testing::StartsWith("ElementName host:/x\nName /net\nRoot /\nReadOnly false\n"));
}

TEST_F(InventoryClasses, ShowTheBuses) {
  const std::string pci = "sys/bus/pci/devices/0000:03:1f.6/";
  Write(pci + "vendor", "0x8086\n");
  Write(pci + "device", "0x10fb\n");
  Write(pci + "subsystem_vendor", "0x0e11\n");
  Write(pci + "subsystem_device", "0x0003\n");
  Write(pci + "revision", "0x01\n");
  Write(pci + "class", "0x020000\n");
  Write("usr/share/hwdata/pci.ids",
        "8086  Example Corp.\n\t10fb  10-Gigabit Port\nC 02  Network controller\n");
  EXPECT_EQ(Show("CIM_PCIDevice"),
            "Caption Network controller\nName 10-Gigabit Port\nDeviceID 0000:03:1f.6\n"
            "ClassCode 2\nSubsystemID 3\nSubsystemVendorID 3601\nBusNumber 3\n"
            "DeviceNumber 31\nFunctionNumber 6\nPCIDeviceID 4347\nVendorID 32902\n"
            "RevisionID 1\nManufacturer Example Corp.\n");
  const std::string usb = "sys/bus/usb/devices/1-1/";
  Write(usb + "idVendor", "1d6b\n");
  Write(usb + "idProduct", "0002\n");
  Write(usb + "serial", "5A17\n");
  Write(usb + "bcdDevice", "0105\n");
  Write(usb + "version", " 2.00\n");
  Write(usb + "bDeviceClass", "09\n");
  Write(usb + "bDeviceSubClass", "02\n");
  Write(usb + "bDeviceProtocol", "01\n");
  Write(usb + "bMaxPacketSize0", "64\n");
  Write(usb + "bNumConfigurations", "2\n");
  Write(usb + "bConfigurationValue", "1\n");
  Write("usr/share/hwdata/usb.ids", "1d6b  Foundation\n\t0002  Root Hub\nC 09  Hub\n");
  EXPECT_EQ(Show("CIM_USBDevice"),
            "Caption Hub\nDeviceID 1-1\nClassCode 9\nSubclassCode 2\nProtocolCode 1\n"
            "USBVersionInBCD 512\nMaxPacketSize 64\nVendorID 7531\nProductID 2\n"
            "DeviceReleaseNumber 261\nManufacturer Foundation\nProduct Root Hub\n"
            "SerialNumber 5A17\nNumberOfConfigs 2\nCurrentConfigValue 1\n");
}

TEST_F(InventoryClasses, KeepTheFirstOfTwoInstancesOfOneKey) {
  Write("sys/block/sda/sda1/partition", "1\n");
  Write("sys/block/sda/sda1/size", "8\n");
  std::filesystem::create_directory_symlink("sda", fDirectory / "sys/block/s");
  EXPECT_EQ(List("CIM_DiskPartition").size(), 1u);
}

TEST_F(InventoryClasses, AreWithoutInstancesOnAMachineOfWhichNothingIsKnown) {
  for (const char* name : kInventory) {
    EXPECT_EQ(List(name).size(), 0u) << name;
  }
}

TEST_F(InventoryClasses, ComeToAnEndOnBrokenMachines) {
  MakeBrokenMachine(fDirectory.Path());
  Write("proc/cpuinfo", std::string(1 << 20, '\xFF'));
  Write("proc/self/mountinfo", std::string(1 << 20, ' '));
  std::filesystem::create_directories(fDirectory / "sys/class/net/eth0/type");
  std::filesystem::create_directories(fDirectory / "sys/block/sda/size");
  std::filesystem::create_directory_symlink("sda", fDirectory / "sys/block/loop");
  for (const char* name : kInventory) {
    EXPECT_NO_THROW(List(name)) << name;
  }
}

TEST_F(InventoryClasses, TellOfThisMachineWhatEveryLinuxHas) {
  fRoot.Set(std::nullopt);
  EXPECT_GE(List("CIM_Processor").size(), 1u);
  EXPECT_GE(List("CIM_FileSystem").size(), 1u);
  for (const char* name : kInventory) {
    EXPECT_NO_THROW(List(name)) << name;
  }
}

}  // namespace

}  // namespace hwxtest
