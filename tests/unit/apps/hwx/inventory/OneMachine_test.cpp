#include "hwx/inventory/OneMachine.h"

#include <gmock/gmock.h>

#include "hwx/inventory/Difference.h"
#include "hwx/inventory/EmptyClasses.h"
#include "hwx/inventory/Reading.h"
#include "hwx/inventory/ShowReport.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"

namespace hwx {
namespace {

using namespace NQORHWX20;
using MemoryNamespace = boost::shared_ptr<TMemoryNamespace>;

// A machine of that name with a disk, and an association between them.
MemoryNamespace MakeMachine(const std::string& name) {
  const auto ns = TMemoryNamespace::Create("root/test");
  TClassBuilder(ns, "CIM_System").Key("CreationClassName", "string").Key("Name", "string").Commit();
  TClassBuilder(ns, "EX_Disk")
      .Key("SystemName", "string")
      .Key("CreationClassName", "string")
      .Key("DeviceID", "string")
      .Commit();
  TClassBuilder(ns, "EX_Has").Association().Key("InstanceID", "string").Commit();
  TClassBuilder(ns, "QORSG_ClassStatus")
      .Key("ClassName", "string")
      .Property("Reason", "string")
      .Commit();
  const auto add = [&ns](const char* className) { return ns->FindClass(className)->NewInstance(); };
  const auto system = add("CIM_System");
  system->Set("CreationClassName", "CIM_System").Set("Name", name);
  ns->FindClass("CIM_System")->AddInstance(system);
  const auto disk = add("EX_Disk");
  disk->Set("SystemName", name).Set("CreationClassName", "EX_Disk").Set("DeviceID", "sda");
  ns->FindClass("EX_Disk")->AddInstance(disk);
  const auto link = add("EX_Has");
  link->Set("InstanceID", name);
  ns->FindClass("EX_Has")->AddInstance(link);
  const auto status = add("QORSG_ClassStatus");
  status->Set("ClassName", "EX_Fan").Set("Reason", "no fans");
  ns->FindClass("QORSG_ClassStatus")->AddInstance(status);
  return ns;
}

TEST(OneMachine, IsWhereThereIsOneSystem) {
  const auto ns = MakeMachine("rack7");
  EXPECT_TRUE(IsOfOneMachine(*ns));
  const auto other = ns->FindClass("CIM_System")->NewInstance();
  other->Set("CreationClassName", "CIM_System").Set("Name", "rack8");
  ns->FindClass("CIM_System")->AddInstance(other);
  EXPECT_FALSE(IsOfOneMachine(*ns));
  EXPECT_FALSE(IsOfOneMachine(*TMemoryNamespace::Create("root/test")));
}

TEST(OneMachine, IsNotNamedInEachTable) {
  const auto ns = MakeMachine("rack7");
  TReading disks = ReadInstances(ClassesLike(*ns, {"EX_Disk"}));
  EXPECT_THAT(ShowLong(disks, EValues::kStored), testing::HasSubstr("SystemName         rack7"));
  LeaveOutOwner(disks);
  EXPECT_EQ(ShowLong(disks, EValues::kStored), "EX_Disk.DeviceID=\"sda\"\n  DeviceID  sda\n");
}

TEST(OneMachine, KeepsPathsOfWhichNothingWouldBeLeft) {
  const auto ns = TMemoryNamespace::Create("root/test");
  TClassBuilder(ns, "EX_Only").Key("SystemName", "string").Commit();
  const auto instance = ns->FindClass("EX_Only")->NewInstance();
  instance->Set("SystemName", "rack7");
  EXPECT_EQ(ShortPath(*instance), "EX_Only.SystemName=\"rack7\"");
}

TEST(OneMachine, StaysTheSameUnderAnotherName) {
  const TDifference difference = Compare(*MakeMachine("rack7"), *MakeMachine("rack8"), {});
  ASSERT_EQ(difference.fRemoved.size(), 1U);
  EXPECT_EQ(difference.fRemoved[0].fPath, "CIM_System.Name=\"rack7\"");
  ASSERT_EQ(difference.fAdded.size(), 1U);
  EXPECT_TRUE(difference.fChanged.empty());
  EXPECT_EQ(difference.fEqual, 2U);
}

TEST(OneMachine, TellsWhyAClassIsEmpty) {
  const auto ns = MakeMachine("rack7");
  TClassBuilder(ns, "EX_Fan").Key("Name", "string").Commit();
  EXPECT_THAT(WhyEmpty(*ns, ClassesLike(*ns, {"ex_fan"})),
              testing::ElementsAre("EX_Fan has no instances: no fans"));
  EXPECT_THAT(WhyEmpty(*ns, ClassesLike(*ns, {"EX_Disk"})), testing::IsEmpty());
  EXPECT_THAT(WhyEmpty(*TMemoryNamespace::Create("root/test"), {}), testing::IsEmpty());
}

}  // namespace
}  // namespace hwx
