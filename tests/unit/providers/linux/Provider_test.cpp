#include "support/StatusOf.h"
#include "unit/providers/linux/ProviderFixture.h"

// The whole road: the module loaded, its provider in the registry, its classes as they declare
// themselves, and each made machine through the queries of front ends.

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

// Classes that are below none.
constexpr const char* kRoots[] = {
    "CIM_ManagedElement", "CIM_Dependency",   "CIM_Component",
    "QORSG_HWXProduct",   "QORSG_SCSIDevice", "QORSG_ClassStatus",
};

struct Published {
  const char* name;
  const char* superclass;
};

// Those that have instances and a superclass.
constexpr Published kClasses[] = {
    {"QORSG_ComputerSystem", "CIM_ComputerSystem"},
    {"QORSG_OperatingSystem", "CIM_OperatingSystem"},
    {"CIM_BIOSElement", "CIM_SoftwareElement"},
    {"CIM_Chassis", "CIM_PhysicalFrame"},
    {"CIM_Card", "CIM_PhysicalPackage"},
    {"QORSG_Processor", "CIM_Processor"},
    {"CIM_Memory", "CIM_StorageExtent"},
    {"QORSG_PhysicalMemory", "CIM_PhysicalMemory"},
    {"QORSG_PhysicalMemoryArray", "CIM_PhysicalElement"},
    {"CIM_EthernetPort", "CIM_NetworkPort"},
    {"QORSG_DiskDrive", "CIM_DiskDrive"},
    {"QORSG_DiskPartition", "CIM_DiskPartition"},
    {"CIM_LocalFileSystem", "CIM_FileSystem"},
    {"QORSG_PCIDevice", "CIM_PCIDevice"},
    {"CIM_USBDevice", "CIM_LogicalDevice"},
};

class Provider : public ProviderTest {
 protected:
  using Maker = std::string (*)(const std::string& directory);

  // Machine type and model of a machine, through the query.
  std::string MTM(Maker make) {
    TemporaryDirectory directory;
    fRoot.Set(make(directory.Path()));
    return TCIMSchemaHelper::GetMTM(fNamespace);
  }

  int MTMFailure(Maker make) {
    return StatusOf([&] { ADD_FAILURE() << "got " << MTM(make); });
  }

  std::vector<std::string> Keys(const std::string& className) {
    std::vector<std::string> keys;
    ForEachProperty(className, [&](const boost::shared_ptr<ICIMPropertyDecl>& decl) {
      if (HasQualifier(decl, "Key") && decl->GetQualifier("Key", {})->GetValue({})) {
        keys.push_back(decl->GetName({}));
      }
    });
    return keys;
  }

  template <typename Visitor>
  void ForEachProperty(const std::string& className, const Visitor& visit) {
    fNamespace->GetClass(className, {})
        ->EnumeratePropertyDecls(
            [&](const boost::shared_ptr<ICIMPropertyDecl>& decl) {
              visit(decl);
              return true;
            },
            {});
  }

  // Absent qualifiers of a property are reported by a throw, those of a class by an empty pointer.
  static bool HasQualifier(const boost::shared_ptr<ICIMQualifiedElement>& element,
                           const std::string& name) {
    try {
      return element->GetQualifier(name, {}) != nullptr;
    } catch (const THWXException&) {
      return false;
    }
  }

  static std::string Description(const boost::shared_ptr<ICIMQualifiedElement>& element) {
    return HasQualifier(element, "Description")
               ? element->GetQualifier("Description", {})->GetValue({}).operator std::string()
               : std::string();
  }
};

TEST_F(Provider, EntersItselfUnderItsName) {
  const auto provider = TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider("plugin");
  EXPECT_EQ(provider->GetName({}), "plugin");
}

TEST_F(Provider, IsFoundBesideTheLibrary) {
  EXPECT_THAT(TOSSpecific::FindNSPs(), ::testing::Contains("plugin"));
}

TEST_F(Provider, AnswersForNoOtherProvider) {
  TCIMContext context;
  context.insert({TCIMSchemaHelper::kContextName, TCIMValue("cmpi")});
  EXPECT_EQ(StatusOf([&] { fNamespace->GetClass("QORSG_ComputerSystem", context); }),
            kHWXStatusNotFound);
}

TEST_F(Provider, PublishesTheStandardsTreeOfClasses) {
  std::vector<std::string> names;
  fNamespace->EnumerateClasses(
      [&names](const boost::shared_ptr<ICIMClass>& found) {
        names.push_back(found->GetName({}));
        return true;
      },
      {});
  EXPECT_THAT(names, ::testing::ElementsAreArray(kRoots));
  for (const auto& [name, superclass] : kClasses) {
    EXPECT_EQ(fNamespace->GetClass(name, {})->GetSuperClass({})->GetName({}), superclass);
  }
}

TEST_F(Provider, DeclaresTheStandardsKeys) {
  EXPECT_THAT(Keys("QORSG_ComputerSystem"), ElementsAre("Name", "CreationClassName"));
  EXPECT_THAT(Keys("QORSG_OperatingSystem"),
              ElementsAre("Name", "CSCreationClassName", "CSName", "CreationClassName"));
  EXPECT_THAT(Keys("QORSG_Processor"), ElementsAre("SystemCreationClassName", "SystemName",
                                                   "CreationClassName", "DeviceID"));
  EXPECT_THAT(Keys("CIM_Chassis"), ElementsAre("Tag", "CreationClassName"));
  EXPECT_THAT(Keys("QORSG_HWXProduct"), ElementsAre("Name"));
  EXPECT_THAT(Keys("QORSG_SCSIDevice"), ElementsAre("DeviceID"));
}

TEST_F(Provider, DescribesEachClass) {
  for (const auto& [name, superclass] : kClasses) {
    EXPECT_THAT(Description(fNamespace->GetClass(name, {})), Not(IsEmpty())) << name;
  }
}

TEST_F(Provider, FindsAllDevicesBelowTheirCommonClass) {
  MakeRackServer(fDirectory.Path());
  WriteMachineFile(fDirectory.Path(), "proc/cpuinfo", "processor : 0\n");
  WriteMachineFile(fDirectory.Path(), "sys/class/net/eth0/type", "1\n");
  std::vector<std::string> devices;
  for (const auto& instance : List("CIM_LogicalDevice")) {
    EXPECT_EQ(Value(instance, "SystemCreationClassName").ToString(10), "QORSG_ComputerSystem");
    EXPECT_EQ(Value(instance, "SystemName").ToString(10), "rack7");
    EXPECT_EQ(Value(instance, "CreationClassName").ToString(10), instance->GetClassName({}));
    devices.push_back(Value(instance, "DeviceID").ToString(10));
  }
  EXPECT_THAT(devices, ::testing::IsSupersetOf({"CPU0", "eth0"}));
}

TEST_F(Provider, ValuesOfUnknownMachinesAreNullsOfTheDeclaredTypes) {
  for (const auto& [name, superclass] : kClasses) {
    for (const auto& instance : List(name)) {
      ForEachProperty(name, [&, &name = name](const boost::shared_ptr<ICIMPropertyDecl>& decl) {
        EXPECT_EQ(Value(instance, decl->GetName({})).GetType(), decl->GetType({}))
            << name << "." << decl->GetName({});
      });
    }
  }
}

TEST_F(Provider, TellsTheMachineTypeOfEachForm) {
  EXPECT_EQ(MTM(&MakeRackServer), "7915AC1");
  EXPECT_EQ(MTM(&MakeK3455), "7940AB1");
  EXPECT_EQ(MTM(&MakeK225), "8647CD2");
  EXPECT_EQ(MTM(&MakeK3500), "8837EF3");
  EXPECT_EQ(MTM(&MakeK3500Short), "8837EF3");
}

TEST_F(Provider, TellsNoMachineTypeWhereNoneIsWritten) {
  EXPECT_EQ(MTMFailure(&MakeVirtualMachine), kHWXStatusInvalidFormat);
  EXPECT_EQ(MTMFailure(&MakeFillerMachine), kHWXStatusInvalidFormat);
  EXPECT_EQ(MTMFailure(&MakeContainer), kHWXStatusNotFound);
  EXPECT_EQ(MTMFailure(&MakeBrokenMachine), kHWXStatusNotFound);
}

TEST_F(Provider, AnswersTheIdentityQueries) {
  MakeRackServer(fDirectory.Path());
  EXPECT_EQ(TCIMSchemaHelper::GetSystemName(fNamespace), "rack7");
  EXPECT_EQ(TCIMSchemaHelper::GetSystemProductName(fNamespace),
            "Example Rack Server 3650 -[7915AC1]-");
  EXPECT_EQ(TCIMSchemaHelper::GetRawSerialNumberString(fNamespace, {}), "KQ12345");
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemName(fNamespace), "Debian GNU/Linux");
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemVersion(fNamespace), "12");
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemType(fNamespace), 36);
}

TEST_F(Provider, ReadsTheMachineAnewForEachEnumeration) {
  MakeRackServer(fDirectory.Path());
  EXPECT_EQ(TCIMSchemaHelper::GetMTM(fNamespace), "7915AC1");
  AddFirmware(fDirectory.Path(), {"Example Systems", "Other Server -[8840]-"});
  EXPECT_EQ(TCIMSchemaHelper::GetMTM(fNamespace), "8840xxx");
  WriteMachineFile(fDirectory.Path(), "proc/sys/kernel/hostname", "renamed\n");
  EXPECT_EQ(TCIMSchemaHelper::GetSystemName(fNamespace), "renamed");
  WriteMachineFile(fDirectory.Path(), "etc/os-release", "NAME=Upgraded\n");
  EXPECT_EQ(TCIMSchemaHelper::GetOperatingSystemName(fNamespace), "Upgraded");
}

TEST_F(Provider, TakesTheRootWithASeparatorBehindItToo) {
  fRoot.Set(MakeRackServer(fDirectory.Path()) + "//");
  EXPECT_EQ(ReadText("QORSG_ComputerSystem", "Name"), "rack7");
  EXPECT_EQ(ReadText("QORSG_ComputerSystem", "FirmwareStatus"), std::nullopt);
}

TEST_F(Provider, PublishesThisMachineWithoutARoot) {
  for (const std::optional<std::string>& none : {std::optional<std::string>(), {""}, {"/"}}) {
    fRoot.Set(none);
    EXPECT_THAT(TCIMSchemaHelper::GetSystemName(fNamespace), Not(IsEmpty()));
    EXPECT_THAT(TCIMSchemaHelper::GetOperatingSystemName(fNamespace), Not(IsEmpty()));
    EXPECT_FALSE(Read("QORSG_OperatingSystem", "KernelRelease").IsNull());
    EXPECT_EQ(List("QORSG_ComputerSystem").size(), 1u);
    EXPECT_NO_THROW(List("QORSG_SCSIDevice"));
  }
}

TEST_F(Provider, KeepsInstancesThatWereHandedOut) {
  MakeRackServer(fDirectory.Path());
  const auto before = List("QORSG_ComputerSystem").at(0);
  WriteMachineFile(fDirectory.Path(), "proc/sys/kernel/hostname", "renamed\n");
  List("QORSG_ComputerSystem");
  EXPECT_EQ(Value(before, "Name").ToString(10), "rack7");
}

}  // namespace

}  // namespace hwxtest
