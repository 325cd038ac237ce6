#include "hwx/summary/Summary.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "hwx/summary/SummaryReport.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"

namespace hwx {
namespace {

using NQORHWX20::TClassBuilder;
using NQORHWX20::TMemoryNamespace;
using ::testing::HasSubstr;

// A machine with modules of memory in two of four slots, and a disk with a partition.
boost::shared_ptr<TMemoryNamespace> MachineWithParts() {
  const auto ns = TMemoryNamespace::Create("root/test");
  TClassBuilder(ns, "CIM_PhysicalMemory")
      .Key("Tag", "string")
      .Property("ElementName", "string")
      .Property("Capacity", "uint64")
      .Qualifier("Units", "Bytes")
      .Commit();
  TClassBuilder(ns, "QORSG_PhysicalMemoryArray")
      .Key("Tag", "string")
      .Property("MemoryDevices", "uint16")
      .Commit();
  TClassBuilder(ns, "CIM_DiskDrive")
      .Key("DeviceID", "string")
      .Property("Size", "uint64")
      .Qualifier("Units", "Bytes")
      .Property("Model", "string")
      .Commit();
  TClassBuilder(ns, "CIM_DiskPartition")
      .Key("DeviceID", "string")
      .Property("NumberOfBlocks", "uint64")
      .Property("BlockSize", "uint64")
      .Commit();
  TClassBuilder(ns, "CIM_FileSystem")
      .Key("Name", "string")
      .Property("ElementName", "string")
      .Property("FileSystemType", "string")
      .Commit();
  return ns;
}

template <typename Fill>
void AddTo(const boost::shared_ptr<TMemoryNamespace>& ns, const char* className, Fill fill) {
  const auto cimClass = ns->FindClass(className);
  const auto instance = cimClass->NewInstance();
  fill(*instance);
  cimClass->AddInstance(instance);
}

void AddModule(const boost::shared_ptr<TMemoryNamespace>& ns, const char* slot) {
  AddTo(ns, "CIM_PhysicalMemory", [slot](auto& module) {
    module.Set("Tag", slot).Set("ElementName", slot).Set("Capacity", 8589934592ul);
  });
}

void AddPartition(const boost::shared_ptr<TMemoryNamespace>& ns, const char* device) {
  AddTo(ns, "CIM_DiskPartition", [device](auto& partition) {
    partition.Set("DeviceID", device).Set("NumberOfBlocks", 2048ul).Set("BlockSize", 512ul);
  });
}

TIdentity IdentityOfBox() {
  TIdentity identity;
  identity.fProductName.fValue = "Box";
  identity.fMachineType.fValue = "7915";
  identity.fSerialNumber.fReason = "needs root";
  return identity;
}

std::vector<TSummarySection> SummaryOf(const boost::shared_ptr<TMemoryNamespace>& ns) {
  return Summarize(IdentityOfBox(), ReadInstances(AllClasses(*ns)));
}

std::string TextOfMachine(const boost::shared_ptr<TMemoryNamespace>& ns) {
  return SummaryText(SummaryOf(ns), std::nullopt, false);
}

TEST(Summary, TellsTheMachineAndWhyAValueIsMissing) {
  EXPECT_EQ(TextOfMachine(TMemoryNamespace::Create("root/test")),
            "Machine      Box\n"
            "             type 7915\n"
            "             serial number (needs root)\n");
}

TEST(Summary, TellsAReasonOnce) {
  TIdentity identity;
  identity.fProductName.fReason = identity.fSerialNumber.fReason = "no tables";
  EXPECT_EQ(SummaryText(Summarize(identity, TReading()), std::nullopt, false),
            "Machine      (no tables)\n");
}

TEST(Summary, CountsModulesAndEmptySlots) {
  const auto ns = MachineWithParts();
  AddModule(ns, "A1");
  AddModule(ns, "B1");
  AddTo(ns, "QORSG_PhysicalMemoryArray", [](auto& array) {
    array.Set("Tag", "array").Set("MemoryDevices", static_cast<unsigned short>(4));
  });
  EXPECT_THAT(TextOfMachine(ns),
              HasSubstr("Memory       16 GiB in 2 modules, 2 of 4 slots are empty\n"
                        "               A1: 8 GiB\n"
                        "               B1: 8 GiB\n"));
}

TEST(Summary, PutsPartitionsAndFileSystemsUnderTheirDisk) {
  const auto ns = MachineWithParts();
  AddTo(ns, "CIM_DiskDrive", [](auto& disk) {
    disk.Set("DeviceID", "/dev/sda").Set("Size", 1073741824ul).Set("Model", "Fast");
  });
  AddPartition(ns, "/dev/sda1");
  AddPartition(ns, "/dev/sdb1");
  AddTo(ns, "CIM_FileSystem", [](auto& system) {
    system.Set("Name", "/boot").Set("ElementName", "/dev/sda1").Set("FileSystemType", "ext4");
  });
  EXPECT_THAT(TextOfMachine(ns), HasSubstr("Disks        /dev/sda  1 GiB  Fast\n"
                                           "               /dev/sda1  1 MiB\n"
                                           "                 /boot, ext4\n"));
  EXPECT_THAT(TextOfMachine(ns), testing::Not(HasSubstr("sdb1")));
}

TEST(SummaryText, FitsTheWidthAndHidesBytes) {
  const std::vector<TSummarySection> sections = {{"Memory", {{"0123456789\033", {{"part", {}}}}}}};
  EXPECT_EQ(SummaryText(sections, 20, false),
            "Memory       012345~\n"
            "               part\n");
  EXPECT_EQ(SummaryText(sections, std::nullopt, false),
            "Memory       0123456789\\x1b\n"
            "               part\n");
}

TEST(SummaryText, HasBoldTitlesWhereColoursAre) {
  EXPECT_EQ(SummaryText({{"Memory", {{"a", {}}, {"b", {}}}}}, std::nullopt, true),
            "\033[1mMemory\033[0m       a\n"
            "             b\n");
}

TEST(SummaryJson, IsTheTreeOfTheLines) {
  const std::vector<TSummarySection> sections = {{"PCI devices", {{"a", {{"b", {}}}}, {"c", {}}}}};
  EXPECT_EQ(nlohmann::json::parse(SummaryJson(sections)), nlohmann::json::parse(R"({"pci devices":
    [{"text": "a", "parts": [{"text": "b"}]}, {"text": "c"}]})"));
}

TEST(UpTime, IsThatBetweenTheTwo) {
  const std::string start = "20220314120000.000000+060";
  EXPECT_EQ(UpTime(start, "20220314120530.000000+060"), "5 min");
  EXPECT_EQ(UpTime(start, "20220314140500.000000+060"), "2 h 5 min");
  EXPECT_EQ(UpTime(start, "20220315120000.000000+060"), "1 day 0 h");
  EXPECT_EQ(UpTime(start, "20220318150000.000000+120"), "4 days 2 h");
}

TEST(UpTime, IsNoneWhereTheTimesTellNone) {
  const std::string start = "20220314120000.000000+060";
  EXPECT_EQ(UpTime(start, "20220314110000.000000+060"), "");
  EXPECT_EQ(UpTime("", start), "");
  EXPECT_EQ(UpTime(start, "2022************.******+060"), "");
  EXPECT_EQ(UpTime(start, "00000012120000.000000:000"), "");
}

}  // namespace
}  // namespace hwx
