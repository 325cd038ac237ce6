#include <filesystem>

#include "support/ChildProcess.h"
#include "unit/providers/linux/ProviderFixture.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using ::testing::Optional;
using ::testing::StartsWith;
using Type = TCIMValue::TCIMType;

constexpr const char* kComputerSystem = "QORSG_ComputerSystem";
constexpr const char* kFirmwareTexts[] = {"ProductName", "SerialNumber", "Manufacturer", "Version",
                                          "UUID",        "SKUNumber",    "Family"};

class ComputerSystem : public ProviderTest {
 protected:
  std::optional<std::string> Text(const std::string& property) {
    return ReadText(kComputerSystem, property);
  }
  std::string Tables() { return fDirectory / "sys/firmware/dmi/tables"; }
};

TEST_F(ComputerSystem, OfARackServerIsKnownInAllParts) {
  MakeRackServer(fDirectory.Path());
  ASSERT_EQ(List(kComputerSystem).size(), 1u);
  EXPECT_EQ(Text("Name"), "rack7");
  EXPECT_EQ(Text("ProductName"), "Example Rack Server 3650 -[7915AC1]-");
  EXPECT_EQ(Text("SerialNumber"), "KQ12345");
  EXPECT_EQ(Text("Manufacturer"), "Example Systems");
  EXPECT_EQ(Text("Version"), "07");
  EXPECT_EQ(Text("UUID"), "04030201-0605-0807-090a-0b0c0d0e0f10");
  EXPECT_EQ(Text("SKUNumber"), "7915AC1-EX");
  EXPECT_EQ(Text("Family"), "Example Rack");
  EXPECT_TRUE(IsNullOf(Type::kCIMTypeString, kComputerSystem, "FirmwareStatus"));
}

TEST_F(ComputerSystem, OfAVirtualMachineHasWhatTheKernelKnows) {
  MakeVirtualMachine(fDirectory.Path());
  EXPECT_EQ(Text("Manufacturer"), "Example Hypervisors");
  EXPECT_EQ(Text("ProductName"), "Virtual Machine 9");
  EXPECT_TRUE(IsNullOf(Type::kCIMTypeString, kComputerSystem, "SerialNumber"));
  EXPECT_EQ(Text("FirmwareStatus"), "no firmware tables: " + Tables() + " is absent");
}

TEST_F(ComputerSystem, OfAContainerHasANameAndTypedNulls) {
  MakeContainer(fDirectory.Path());
  ASSERT_EQ(List(kComputerSystem).size(), 1u);
  EXPECT_EQ(Text("Name"), "c0ffee");
  for (const char* property : kFirmwareTexts) {
    EXPECT_TRUE(IsNullOf(Type::kCIMTypeString, kComputerSystem, property)) << property;
  }
  EXPECT_EQ(Text("FirmwareStatus"), "no firmware tables: " + Tables() + " is absent");
}

TEST_F(ComputerSystem, ShowsFillerAsTheFirmwareHasIt) {
  MakeFillerMachine(fDirectory.Path());
  EXPECT_EQ(Text("ProductName"), "To Be Filled By O.E.M.");
  EXPECT_EQ(Text("SerialNumber"), "Default string");
  EXPECT_EQ(Text("Manufacturer"), "   ");
  EXPECT_EQ(Text("FirmwareStatus"), std::nullopt);
}

TEST_F(ComputerSystem, KeepsTheBlanksBehindAProductName) {
  AddFirmware(fDirectory.Path(), {"Maker", "7915AC1   "});
  EXPECT_EQ(Text("ProductName"), "7915AC1   ");
  EXPECT_EQ(TCIMSchemaHelper::GetMTM(fNamespace), "7915AC1");
}

TEST_F(ComputerSystem, OfABrokenMachineIsThereAndSaysWhy) {
  MakeBrokenMachine(fDirectory.Path());
  ASSERT_EQ(List(kComputerSystem).size(), 1u);
  EXPECT_EQ(Text("Name"), "(none)");
  for (const char* property : kFirmwareTexts) {
    EXPECT_TRUE(IsNullOf(Type::kCIMTypeString, kComputerSystem, property)) << property;
  }
  EXPECT_THAT(Text("FirmwareStatus"), Optional(StartsWith("malformed: " + Tables() + ": ")));
}

TEST_F(ComputerSystem, OfALockedMachineTellsUsersThatRootIsNeeded) {
  MakeLockedMachine(fDirectory.Path());
  const int code = RunInChild([this] {
    if (!BecomeUnprivileged()) return 2;
    EXPECT_EQ(Text("FirmwareStatus"), "needs root: " + Tables() + " can't be read");
    EXPECT_EQ(Text("ProductName"), "Example Rack Server 3650 -[7915AC1]-");
    EXPECT_TRUE(IsNullOf(Type::kCIMTypeString, kComputerSystem, "SerialNumber"));
    EXPECT_EQ(Text("Name"), "rack7");
    return 0;
  });
  EXPECT_EQ(code, 0);
}

TEST_F(ComputerSystem, OfADumpComesFromItAlone) {
  MakeVirtualMachine(fDirectory.Path());
  SmbiosTables().AddSystem({"", "Dumped -[7915AC1]-"}).AddEnd().WriteDump(fDirectory / "dump.bin");
  fTables.Set(fDirectory / "dump.bin");
  EXPECT_EQ(Text("ProductName"), "Dumped -[7915AC1]-");
  EXPECT_EQ(Text("Manufacturer"), std::nullopt);
  EXPECT_EQ(Text("Name"), "guest");
}

TEST_F(ComputerSystem, SaysWhyADumpGivesNothing) {
  MakeVirtualMachine(fDirectory.Path());
  fTables.Set(fDirectory / "absent");
  EXPECT_EQ(Text("ProductName"), std::nullopt);
  EXPECT_EQ(Text("FirmwareStatus"), "no firmware tables: " + fDirectory / "absent" + " is absent");
}

TEST_F(ComputerSystem, OfTheSampleDumpIsTheSampleServer) {
  fTables.Set(HWX_SOURCE_DIR "/examples/firmware/rack-server.bin");
  EXPECT_EQ(TCIMSchemaHelper::GetMTM(fNamespace), "7915AC1");
  EXPECT_EQ(Text("Manufacturer"), "Example Systems");
  EXPECT_EQ(Text("SerialNumber"), "KQ12345");
  EXPECT_EQ(Text("UUID"), "7b0c1e5a-9d42-4e3f-8c61-005300a79e14");
  EXPECT_EQ(Text("FirmwareStatus"), std::nullopt);
}

TEST_F(ComputerSystem, PassesBytesOfAnyEncoding) {
  AddFirmware(fDirectory.Path(), {"caf\xe9", "\x01\xff"});
  EXPECT_EQ(Text("Manufacturer"), "caf\xe9");
  EXPECT_EQ(Text("ProductName"), "\x01\xff");
}

}  // namespace

}  // namespace hwxtest
