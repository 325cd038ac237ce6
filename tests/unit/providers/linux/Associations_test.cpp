#include <algorithm>

#include "support/Structures.h"
#include "unit/providers/linux/ProviderFixture.h"

// What belongs to what on a made machine, and that each reference leads to an instance.

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

class Associations : public ProviderTest {
 protected:
  void SetUp() override {
    ProviderTest::SetUp();
    MakeRackServer(fDirectory.Path());
    AddProcessors();
    AddDisk();
    AddTables();
    Write("sys/devices/system/memory/block_size_bytes", "8000000\n");
    Write("sys/devices/system/memory/memory0/online", "1\n");
    Write("sys/class/hwmon/hwmon0/name", "coretemp\n");
    Write("sys/class/hwmon/hwmon0/temp1_input", "45000\n");
    Write("sys/class/hwmon/hwmon0/fan1_input", "1200\n");
  }

  void Write(const std::string& file, const std::string& text) {
    WriteMachineFile(fDirectory.Path(), file, text);
  }

  // One package with two cores of two threads each, a cache for each core and one for all.
  void AddProcessors() {
    std::string text;
    for (int number = 0; number < 4; ++number) {
      text += "processor : " + std::to_string(number) + "\n\n";
      const std::string cpu = "sys/devices/system/cpu/cpu" + std::to_string(number);
      Write(cpu + "/topology/thread_siblings_list", number < 2 ? "0-1\n" : "2-3\n");
      AddCache(cpu + "/cache/index0/", "1", "Data", number < 2 ? "0-1\n" : "2-3\n");
      AddCache(cpu + "/cache/index3/", "3", "Unified", "0-3\n");
    }
    Write("proc/cpuinfo", text);
  }

  void AddCache(const std::string& index, const std::string& level, const std::string& type,
                const std::string& sharing) {
    Write(index + "level", level + "\n");
    Write(index + "type", type + "\n");
    Write(index + "size", "48K\n");
    Write(index + "ways_of_associativity", "12\n");
    Write(index + "coherency_line_size", "64\n");
    Write(index + "shared_cpu_list", sharing);
  }

  void AddDisk() {
    const std::string disk = "sys/block/sda/";
    Write(disk + "size", "2097152\n");
    Write(disk + "dev", "8:0\n");
    Write(disk + "device/model", "DISK\n");
    Write(disk + "sda1/partition", "1\n");
    Write(disk + "sda1/size", "2048\n");
    Write(disk + "sda1/start", "8\n");
    Write(disk + "sda1/dev", "8:1\n");
    Write("proc/self/mountinfo",
          "27 1 8:1 / / rw - ext4 /dev/root rw\n28 1 0:9 / /net rw - nfs host:/x rw\n");
  }

  // A chassis with a board, on which there are a module and a slot.
  void AddTables() {
    SmbiosTables tables;
    tables.Add(0, {1, 2, 0, 0xF0, 3, 0}, {"EXMPL", "1.05", "03/01/2021"});
    tables.Add(3, {1, 23, 0, 0, 0}, {"EXMPL"});
    tables.Add(2, {1, 0, 0, 0, 0, 0, 2}, {"EXMPL", "Tray 1"});
    tables.Add(16, {3, 3, 6, 0, 0, 0, 4, 0, 0, 8, 0});
    Bytes module(0x28 - 4);
    PutField(module, 0x0C, 2, 8192);
    PutField(module, 0x10, 1, 1);
    tables.Add(17, module, {"DIMM A1"});
    tables.Add(9, {1, 6, 0x0D, 4, 3, 7, 0, 4, 2, 0, 0, 3, 0xF8}, {"PCIe 7"});
    tables.AddEnd().WriteDirectory(fDirectory / "sys/firmware/dmi/tables");
  }

  // Both ends of each instance as "CLASS KEY -> CLASS KEY", by the key that isn't of all.
  std::vector<std::string> Links(const std::string& association) {
    std::vector<std::string> links;
    for (const auto& link : List(association)) {
      std::vector<std::string> ends;
      link->EnumerateKeyProperties(
          [&ends](const boost::shared_ptr<ICIMProperty>& end) {
            ends.push_back(End(end->GetValue({})));
            return true;
          },
          {});
      links.push_back(ends.at(0) + " -> " + ends.at(1));
    }
    return links;
  }

  static std::string End(TCIMReference reference) {
    std::string text = reference.GetClassName();
    reference.EnumerateKeyBindings([&text](const std::pair<std::string, TCIMValue>& key) {
      for (const char* own : {"DeviceID", "Tag", "InstanceID", "Name"}) {
        text += key.first == own ? " " + key.second.ToString(10) : "";
      }
      return true;
    });
    return text;
  }

  static std::vector<std::string> References(const boost::shared_ptr<ICIMInstance>& link) {
    std::vector<std::string> names;
    link->EnumerateKeyProperties(
        [&names](const boost::shared_ptr<ICIMProperty>& end) {
          names.push_back(end->GetName({}));
          return true;
        },
        {});
    return names;
  }
};

constexpr const char* kMachine = "QORSG_ComputerSystem rack7";

TEST_F(Associations, LeadToInstances) {
  for (const char* root : {"CIM_Dependency", "CIM_Component"}) {
    const auto links = List(root);
    EXPECT_GE(links.size(), 9u) << root;
    for (const auto& link : links) {
      for (const std::string& name : References(link)) {
        const TCIMReference reference = Value(link, name);
        EXPECT_NO_THROW(reference.GetCIMElement(false))
            << link->GetClassName({}) << ": " << reference.GetPath();
      }
    }
  }
}

TEST_F(Associations, TellWhatBelongsToTheMachine) {
  const std::string of = std::string(kMachine) + " -> ";
  EXPECT_THAT(Links("CIM_SystemDevice"),
              IsSupersetOf({of + "QORSG_Processor CPU0", of + "CIM_CacheMemory L3 Cache 0",
                            of + "CIM_Memory System Memory", of + "QORSG_DiskDrive /dev/sda",
                            of + "CIM_StorageExtent /dev/sda", of + "QORSG_DiskPartition /dev/sda1",
                            of + "CIM_Fan hwmon0/fan1", of + "CIM_NumericSensor hwmon0/temp1"}));
  EXPECT_EQ(Links("CIM_SystemDevice").size(), List("CIM_LogicalDevice").size());
  EXPECT_THAT(Links("CIM_RunningOS"),
              ElementsAre(std::string("QORSG_OperatingSystem Debian GNU/Linux -> ") + kMachine));
  EXPECT_THAT(Links("CIM_InstalledOS"), ElementsAre(of + "QORSG_OperatingSystem Debian GNU/Linux"));
  EXPECT_THAT(Links("CIM_SystemBIOS"), ElementsAre(of + "CIM_BIOSElement BIOS"));
  EXPECT_THAT(Links("CIM_HostedFileSystem"),
              ElementsAre(of + "CIM_LocalFileSystem /", of + "CIM_FileSystem /net"));
}

TEST_F(Associations, TellWhatIsBuiltIntoWhat) {
  EXPECT_THAT(Links("CIM_ComputerSystemPackage"),
              ElementsAre(std::string("CIM_Chassis Chassis 0 -> ") + kMachine));
  EXPECT_THAT(Links("CIM_Container"),
              UnorderedElementsAre("CIM_Chassis Chassis 0 -> CIM_Card Card 0",
                                   "CIM_Card Card 0 -> QORSG_PhysicalMemory Physical Memory 0",
                                   "CIM_Card Card 0 -> QORSG_Slot Slot 0"));
  EXPECT_EQ(ReadText("CIM_MemoryOnCard", "LocationWithinContainer"), "DIMM A1");
  EXPECT_EQ(ReadText("CIM_PackageInChassis", "LocationWithinContainer"), "Tray 1");
  EXPECT_THAT(Links("CIM_Realizes"), ElementsAre("QORSG_PhysicalMemory Physical Memory 0 -> "
                                                 "CIM_Memory System Memory"));
}

TEST_F(Associations, LeadFromTheDriveToTheFiles) {
  EXPECT_THAT(Links("CIM_MediaPresent"),
              ElementsAre("QORSG_DiskDrive /dev/sda -> CIM_StorageExtent /dev/sda"));
  EXPECT_EQ(ReadText("CIM_MediaPresent", "FixedMedia"), "true");
  EXPECT_THAT(Links("CIM_BasedOn"),
              ElementsAre("CIM_StorageExtent /dev/sda -> QORSG_DiskPartition /dev/sda1"));
  EXPECT_EQ(ReadText("CIM_BasedOn", "StartingAddress"), "4096");
  EXPECT_EQ(ReadText("CIM_BasedOn", "EndingAddress"), std::to_string(4096 + 2048 * 512 - 1));
  EXPECT_THAT(Links("CIM_ResidesOnExtent"),
              ElementsAre("QORSG_DiskPartition /dev/sda1 -> CIM_LocalFileSystem /"));
}

TEST_F(Associations, TellWhatProcessorsConsistOf) {
  const std::string core = "CIM_ProcessorCore QORSG:CPU0:Core";
  const std::string thread = "CIM_HardwareThread QORSG:CPU0:Core";
  EXPECT_THAT(Links("CIM_ConcreteComponent"),
              UnorderedElementsAre(
                  "QORSG_Processor CPU0 -> " + core + "0", "QORSG_Processor CPU0 -> " + core + "1",
                  core + "0 -> " + thread + "0:Thread0", core + "0 -> " + thread + "0:Thread1",
                  core + "1 -> " + thread + "1:Thread0", core + "1 -> " + thread + "1:Thread1"));
  EXPECT_THAT(Links("CIM_AssociatedCacheMemory"),
              UnorderedElementsAre("CIM_CacheMemory L1 Data Cache 0 -> " + core + "0",
                                   "CIM_CacheMemory L1 Data Cache 1 -> " + core + "1",
                                   "CIM_CacheMemory L3 Cache 0 -> QORSG_Processor CPU0"));
  EXPECT_EQ(ReadText("CIM_AssociatedCacheMemory", "Level"), "3");
  EXPECT_EQ(ReadText("CIM_AssociatedCacheMemory", "CacheType"), "3");
  EXPECT_EQ(ReadText("CIM_AssociatedCacheMemory", "Associativity"), "8");
  EXPECT_EQ(ReadText("CIM_AssociatedCacheMemory", "LineSize"), "64");
  EXPECT_EQ(ReadText("CIM_CacheMemory", "NumberOfBlocks"), "49152");
}

TEST_F(Associations, TakeTheWayOfTheTablesHandles) {
  SmbiosTables tables;
  tables.Add(3, {1, 17, 0, 0, 0}, {"A"});  // handle 0
  tables.Add(3, {1, 17, 0, 0, 0}, {"B"});  // handle 1
  tables.Add(2, {1, 0, 0, 0, 0, 0, 0, 1, 0, 0x0A, 0}, {"first"});
  tables.Add(2, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0x0B, 1, 4, 0}, {"second"});
  Bytes module(0x28 - 4);
  PutField(module, 0x0C, 2, 8192);
  tables.Add(17, module);  // handle 4, on the second board
  tables.Add(17, module);  // on the motherboard, as none lists it
  tables.AddEnd().WriteDirectory(fDirectory / "sys/firmware/dmi/tables");
  EXPECT_THAT(Links("CIM_Container"),
              UnorderedElementsAre("CIM_Chassis Chassis 1 -> CIM_Card Card 0",
                                   "CIM_Chassis Chassis 0 -> CIM_Card Card 1",
                                   "CIM_Card Card 1 -> QORSG_PhysicalMemory Physical Memory 0",
                                   "CIM_Card Card 0 -> QORSG_PhysicalMemory Physical Memory 1"));
}

TEST_F(Associations, NameTheMachineInTheirReferences) {
  const TCIMReference part = Read("CIM_InstalledOS", "PartComponent");
  EXPECT_THAT(part.GetPath(), HasSubstr("CSName=\"rack7\""));
  EXPECT_THAT(List("CIM_InstalledOS"), SizeIs(1));
}

}  // namespace

}  // namespace hwxtest
