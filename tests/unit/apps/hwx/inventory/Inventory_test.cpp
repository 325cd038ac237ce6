#include "hwx/inventory/Inventory.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "hwx/text/Failure.h"
#include "hwxcore/value/THWXException.h"
#include "support/TextOf.h"
#include "unit/apps/hwx/inventory/MadeDisks.h"

namespace hwx {
namespace {

using namespace NQORHWX20;
using hwxtest::AddDisk;
using hwxtest::AddNote;
using hwxtest::MakeDisks;
using ::testing::ElementsAre;

std::vector<std::string> Names(const TClasses& classes) {
  std::vector<std::string> names;
  for (const auto& cimClass : classes)
    names.push_back(cimClass->GetName(TCIMContext()));
  return names;
}

std::vector<std::string> PathsOf(ICIMClass& cimClass) {
  std::vector<std::string> paths;
  VisitInstances(cimClass, [&paths](const boost::shared_ptr<ICIMInstance>& instance) {
    paths.push_back(InstancePath(*instance));
  });
  return paths;
}

TEST(AllClasses, PutsEachBehindItsSuperclass) {
  EXPECT_THAT(Names(AllClasses(*MakeDisks())), ElementsAre("EX_Device", "EX_Disk", "EX_Note"));
}

TEST(ClassesLike, AreAllWithoutNames) {
  EXPECT_EQ(ClassesLike(*MakeDisks(), {}).size(), 3u);
}

TEST(ClassesLike, AreTheClassAndItsDescendantsInAnyCase) {
  const auto ns = MakeDisks();
  EXPECT_THAT(Names(ClassesLike(*ns, {"ex_device"})), ElementsAre("EX_Device", "EX_Disk"));
  EXPECT_THAT(Names(ClassesLike(*ns, {"EX_Disk"})), ElementsAre("EX_Disk"));
}

TEST(ClassesLike, AreThoseOfAPattern) {
  const auto ns = MakeDisks();
  EXPECT_THAT(Names(ClassesLike(*ns, {"EX_D*"})), ElementsAre("EX_Device", "EX_Disk"));
  EXPECT_THAT(Names(ClassesLike(*ns, {"*note"})), ElementsAre("EX_Note"));
  EXPECT_THAT(Names(ClassesLike(*ns, {"ex_?isk"})), ElementsAre("EX_Disk"));
}

TEST(ClassesLike, AreEachThereOnceInTheOrderOfTheNamespace) {
  const auto ns = MakeDisks();
  EXPECT_THAT(Names(ClassesLike(*ns, {"EX_Note", "EX_Disk", "EX_D*"})),
              ElementsAre("EX_Device", "EX_Disk", "EX_Note"));
}

TEST(ClassesLike, RefuseANameThatNoClassHas) {
  const auto failure = [](const std::string& name) {
    return hwxtest::TextOf<TFailure>([&] { ClassesLike(*MakeDisks(), {"EX_Disk", name}); });
  };
  EXPECT_EQ(failure("Furniture"), "there is no class Furniture");
  EXPECT_EQ(failure("EX_Dsik"), "there is no class EX_Dsik; did you mean EX_Disk?");
  EXPECT_EQ(failure("CIM_*"), "no class is like CIM_*");
}

TEST(VisitInstances, LeavesOutThoseOfSubclasses) {
  const auto ns = MakeDisks();
  AddDisk(ns, "sda", 1);
  EXPECT_THAT(PathsOf(*ns->FindClass("EX_Device")), ElementsAre());
  EXPECT_THAT(PathsOf(*ns->FindClass("EX_Disk")), ElementsAre("EX_Disk.Name=\"sda\""));
}

TEST(VisitInstances, TellsOfAProviderThatFails) {
  const auto ns = MakeDisks();
  const auto notes = ns->FindClass("EX_Note");
  const auto count = [&](const TInstanceSource& source) {
    notes->SetInstanceSource(source);
    return VisitInstances(*notes, [](const boost::shared_ptr<ICIMInstance>&) {});
  };
  testing::internal::CaptureStderr();
  EXPECT_FALSE(count([](TInstanceList&) { throw THWXException(kHWXStatusAccessDenied); }));
  EXPECT_FALSE(count([](TInstanceList&) { throw std::runtime_error("no ink"); }));
  EXPECT_TRUE(count([](TInstanceList& list) { list.Add(); }));
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "hwx: the class EX_Note is incomplete: the provider failed: access denied\n"
            "hwx: the class EX_Note is incomplete: the provider failed: no ink\n");
}

TEST(InstancePath, NamesOneWithoutKeysByItsClass) {
  const auto ns = MakeDisks();
  AddNote(ns, "x");
  EXPECT_THAT(PathsOf(*ns->FindClass("EX_Note")), ElementsAre("EX_Note"));
}

TEST(PropertyValues, AreInTheOrderOfTheClassWithNulls) {
  const auto ns = MakeDisks();
  AddDisk(ns, "sda", 5);
  VisitInstances(*ns->FindClass("EX_Disk"), [](const boost::shared_ptr<ICIMInstance>& disk) {
    const std::vector<TPropertyValue> values = PropertyValues(*disk);
    ASSERT_EQ(values.size(), 3U);
    EXPECT_EQ(values[0].fName, "Name");
    EXPECT_EQ(values[1].fValue, TCIMValue(5UL));
    EXPECT_TRUE(values[2].fValue.IsNull());
  });
}

}  // namespace
}  // namespace hwx
