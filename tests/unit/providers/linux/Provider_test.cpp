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

struct Published {
  const char* name;
  const char* key;
};

constexpr Published kClasses[] = {
    {"QORSG_ComputerSystem", "Name"},
    {"QORSG_OperatingSystem", "Name"},
    {"QORSG_HWXProduct", "Name"},
    {"QORSG_SCSIDevice", "DeviceID"},
    {"CIM_BIOSElement", "Name"},
    {"CIM_Chassis", "Tag"},
    {"CIM_Card", "Tag"},
    {"CIM_Processor", "DeviceID"},
    {"CIM_Memory", "DeviceID"},
    {"CIM_PhysicalMemory", "Tag"},
    {"CIM_PhysicalMemoryArray", "Tag"},
    {"CIM_EthernetPort", "DeviceID"},
    {"CIM_DiskDrive", "DeviceID"},
    {"CIM_DiskPartition", "DeviceID"},
    {"CIM_FileSystem", "Name"},
    {"CIM_PCIDevice", "DeviceID"},
    {"CIM_USBDevice", "DeviceID"},
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

TEST_F(Provider, PublishesItsClassesAsRootClasses) {
  std::vector<std::string> names;
  fNamespace->EnumerateClasses(
      [&names](const boost::shared_ptr<ICIMClass>& found) {
        names.push_back(found->GetName({}));
        return true;
      },
      {});
  std::vector<std::string> expected;
  for (const Published& published : kClasses) {
    expected.emplace_back(published.name);
  }
  EXPECT_EQ(names, expected);
}

TEST_F(Provider, DeclaresOneKeyForEachClass) {
  for (const auto& [name, key] : kClasses) {
    EXPECT_THAT(Keys(name), ElementsAre(key)) << name;
  }
}

TEST_F(Provider, DescribesEachClassAndProperty) {
  for (const auto& [name, key] : kClasses) {
    EXPECT_THAT(Description(fNamespace->GetClass(name, {})), Not(IsEmpty())) << name;
    ForEachProperty(name, [&name = name](const boost::shared_ptr<ICIMPropertyDecl>& decl) {
      EXPECT_THAT(Description(decl), Not(IsEmpty())) << name << "." << decl->GetName({});
    });
  }
}

TEST_F(Provider, ValuesOfUnknownMachinesAreNullsOfTheDeclaredTypes) {
  for (const auto& [name, key] : kClasses) {
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
