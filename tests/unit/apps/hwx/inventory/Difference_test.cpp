#include "hwx/inventory/Difference.h"

#include <gmock/gmock.h>

#include "unit/apps/hwx/inventory/MadeDisks.h"
#include "unit/apps/hwx/inventory/MadeModules.h"

namespace hwx {
namespace {

using namespace NQORHWX20;
using hwxtest::AddDisk;
using hwxtest::AddNote;
using hwxtest::MakeDisks;

class CompareTest : public testing::Test {
 protected:
  TDifference Difference(const std::vector<TIgnoredProperty>& ignored = {}) const {
    return Compare(*fOld, *fNew, ignored);
  }

  boost::shared_ptr<TMemoryNamespace> fOld = MakeDisks();
  boost::shared_ptr<TMemoryNamespace> fNew = MakeDisks();
};

TEST_F(CompareTest, FindsNothingBetweenEqualSides) {
  for (const auto& side : {fOld, fNew}) {
    AddDisk(side, "sda", 5);
    AddNote(side, "x");
  }
  const TDifference difference = Difference();
  EXPECT_TRUE(difference.IsEmpty());
  EXPECT_EQ(difference.fEqual, 2U);
  EXPECT_TRUE(difference.fIsComplete);
}

TEST_F(CompareTest, DoesNotMindTheOrderOfKeyedInstances) {
  AddDisk(fOld, "sda", 1);
  AddDisk(fOld, "sdb", 2);
  AddDisk(fNew, "sdb", 2);
  AddDisk(fNew, "sda", 1);
  EXPECT_TRUE(Difference().IsEmpty());
}

TEST_F(CompareTest, TellsWhatOneSideLacks) {
  AddDisk(fOld, "sda", 1);
  AddDisk(fNew, "sdb", 2);
  const TDifference difference = Difference();
  ASSERT_EQ(difference.fRemoved.size(), 1U);
  EXPECT_EQ(difference.fRemoved[0].fPath, "EX_Disk.Name=\"sda\"");
  EXPECT_EQ(difference.fRemoved[0].fValues, TJson::parse(R"({"Name": "sda", "Size": 1})"));
  ASSERT_EQ(difference.fAdded.size(), 1U);
  EXPECT_EQ(difference.fAdded[0].fPath, "EX_Disk.Name=\"sdb\"");
}

TEST_F(CompareTest, TellsEachChangedProperty) {
  AddDisk(fOld, "sda", 1);
  AddDisk(fNew, "sda", 2);
  const TDifference difference = Difference();
  ASSERT_EQ(difference.fChanged.size(), 1U);
  EXPECT_EQ(difference.fChanged[0].fPath, "EX_Disk.Name=\"sda\"");
  ASSERT_EQ(difference.fChanged[0].fProperties.size(), 1U);
  const TChangedProperty& size = difference.fChanged[0].fProperties[0];
  EXPECT_EQ(size.fName, "Size");
  EXPECT_EQ(size.fOld, 1);
  EXPECT_EQ(size.fNew, 2);
}

TEST_F(CompareTest, TakesNullAndALackingPropertyForTheSame) {
  AddDisk(fOld, "sda", 1);
  const auto ns = TMemoryNamespace::Create("root/test");
  const auto disks =
      TClassBuilder(ns, "EX_Disk").Key("Name", "string").Property("Size", "uint64").Commit();
  AddDisk(ns, "sda", 1);
  EXPECT_TRUE(Compare(*fOld, *ns, {}).IsEmpty());
}

TEST_F(CompareTest, TellsAValueThatCameAndOneThatWent) {
  AddDisk(fOld, "sda", 1);
  AddDisk(fNew, "sda", 1);
  const auto setModel = [](TMemoryNamespace& ns) {
    ns.FindClass("EX_Disk")->EnumerateInstances(
        [](const boost::shared_ptr<ICIMInstance>& disk) {
          disk->SetPropertyValue("Model", "M", TCIMContext());
          return true;
        },
        false, TCIMContext());
  };
  setModel(*fNew);
  const auto came = Difference().fChanged.at(0).fProperties.at(0);
  EXPECT_EQ(came.fOld, nullptr);
  EXPECT_EQ(came.fNew, "M");
  const auto went = Compare(*fNew, *fOld, {}).fChanged.at(0).fProperties.at(0);
  EXPECT_EQ(went.fOld, "M");
  EXPECT_EQ(went.fNew, nullptr);
}

TEST_F(CompareTest, PairsKeylessInstancesInTheirOrder) {
  AddNote(fOld, "a");
  AddNote(fOld, "b");
  AddNote(fNew, "a");
  AddNote(fNew, "c");
  AddNote(fNew, "d");
  const TDifference difference = Difference();
  EXPECT_EQ(difference.fEqual, 1U);
  EXPECT_EQ(difference.fChanged.size(), 1U);
  EXPECT_EQ(difference.fAdded.size(), 1U);
}

TEST_F(CompareTest, LeavesIgnoredPropertiesOutAlsoInSubclassesAndInAnyCase) {
  AddDisk(fOld, "sda", 1);
  AddDisk(fNew, "sda", 2);
  EXPECT_TRUE(Difference({{"EX_Disk", "Size"}}).IsEmpty());
  EXPECT_TRUE(Difference({{"ex_device", "SIZE"}}).IsEmpty());
  EXPECT_FALSE(Difference({{"EX_Note", "Size"}}).IsEmpty());
  EXPECT_FALSE(Difference({{"EX_Disk", "Model"}}).IsEmpty());
}

TEST_F(CompareTest, LeavesIgnoredPropertiesOutOfLoneInstances) {
  AddDisk(fOld, "sda", 1);
  EXPECT_EQ(Difference({{"EX_Disk", "Size"}}).fRemoved.at(0).fValues,
            TJson::parse(R"({"Name": "sda"})"));
}

TEST_F(CompareTest, TellsBytesApartThatAreNoText) {
  AddNote(fOld, "\xFF");
  AddNote(fNew, "\xFE");
  EXPECT_FALSE(Difference().IsEmpty());
}

TEST_F(CompareTest, TellsWhatValuesMean) {
  fOld = hwxtest::MakeModules();
  fNew = hwxtest::MakeModules();
  fNew->FindClass("EX_Module")->DeleteInstances(TCIMContext());
  const TDifference difference = Difference();
  ASSERT_EQ(difference.fRemoved.size(), 2U);
  EXPECT_EQ(difference.fRemoved[0].fWords.at("Form"), "DIMM");
  EXPECT_EQ(difference.fRemoved[0].fWords.count("Maker"), 0U);
}

}  // namespace
}  // namespace hwx
