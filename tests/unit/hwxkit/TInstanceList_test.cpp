// Live classes: instances made afresh for every enumeration.

#include "hwxkit/TInstanceList.h"

#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A live class EX_Disk under EX_Device; the test says which names the source finds.
class LiveClass : public KitTest {
 protected:
  void SetUp() override {
    fDevice = Build("EX_Device").Key("ID", "string").Commit();
    fDisk = Build("EX_Disk", "EX_Device")
                .PropertyWithDefault("Reading", 0)
                .Source([this](TInstanceList& list) { Fill(list); })
                .Commit();
  }

  void Fill(TInstanceList& list) {
    ++fReadings;
    for (const std::string& id : fFound)
      list.Add().Set("ID", id).Set("Reading", fReadings);
  }

  static void Add(const Ptr<TMemoryClass>& to, const std::string& id) {
    const auto made = to->NewInstance();
    made->Set("ID", id);
    to->AddInstance(made);
  }

  Ptr<ICIMInstance> Find(const std::string& className, const std::string& id) {
    return fNamespace->FindInstance(className, {{"ID", id}});
  }

  Strings fFound;
  int fReadings = 0;
  Ptr<TMemoryClass> fDevice;
  Ptr<TMemoryClass> fDisk;
};

TEST_F(LiveClass, ReadsAnewForEveryEnumeration) {
  EXPECT_THAT(Instances(*fDisk), IsEmpty());
  fFound = {"sda", "sdb"};
  EXPECT_THAT(Instances(*fDisk), ElementsAre("sda", "sdb"));
  fFound = {"sdc"};
  EXPECT_THAT(Instances(*fDisk), ElementsAre("sdc"));
  EXPECT_EQ(fReadings, 3);
}

TEST_F(LiveClass, LeavesInstancesThatWereHandedOutAsTheyWere) {
  fFound = {"sda"};
  std::vector<Ptr<ICIMInstance>> first;
  std::vector<Ptr<ICIMInstance>> second;
  fDisk->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(&first), false, {});
  fDisk->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(&second), false, {});
  EXPECT_NE(first.at(0), second.at(0));
  EXPECT_EQ(first.at(0)->GetProperty("Reading", {})->GetSInt32Value(), 1);
  EXPECT_EQ(second.at(0)->GetProperty("Reading", {})->GetSInt32Value(), 2);
}

TEST_F(LiveClass, IsPresentedDeeplyAndBehindWhatWasAdded) {
  fFound = {"sda"};
  Add(fDisk, "added");
  Add(fDevice, "device");
  EXPECT_THAT(Instances(*fDevice, true), ElementsAre("device", "added", "sda"));
  EXPECT_THAT(Instances(*fDevice, false), ElementsAre("device"));
  EXPECT_EQ(fReadings, 1);
}

TEST_F(LiveClass, IsNotReadOnceTheCallbackSaidStop) {
  fFound = {"sda"};
  Add(fDevice, "device");
  fDevice->EnumerateInstances([](Ptr<ICIMInstance>) { return false; }, true, {});
  EXPECT_EQ(fReadings, 0);
}

TEST_F(LiveClass, LetsItsCallbackEnumerateAndChangeIt) {
  fFound = {"sda", "sdb"};
  Strings seen;
  fDisk->EnumerateInstances(
      [&](Ptr<ICIMInstance> presented) {
        seen.push_back(NameOf(presented));
        fFound.clear();
        EXPECT_THAT(Instances(*fDisk), IsEmpty());
        fDisk->SetInstanceSource(TInstanceSource());
        return true;
      },
      false, {});
  EXPECT_THAT(seen, ElementsAre("sda", "sdb"));
}

TEST_F(LiveClass, PassesOnWhatItsSourceThrowsBehindItsInstances) {
  fDisk->SetInstanceSource([](TInstanceList& list) {
    list.Add().Set("ID", "sda");
    throw std::runtime_error("unplugged");
  });
  int calls = 0;
  EXPECT_THROW(fDisk->EnumerateInstances([&](Ptr<ICIMInstance>) { return ++calls > 0; }, false, {}),
               std::runtime_error);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(NameOf(Find("EX_Disk", "sda")), "sda");
  EXPECT_THROW(Find("EX_Disk", "sdb"), std::runtime_error);
}

TEST_F(LiveClass, RefusesInstancesWithoutOrWithTheSameKeys) {
  fFound = {"sda", "sda"};
  EXPECT_EQ(StatusOf([&] { Instances(*fDisk); }), kHWXStatusAlreadyExists);
  fFound = {"added"};
  Add(fDevice, "added");
  EXPECT_EQ(StatusOf([&] { Instances(*fDisk); }), kHWXStatusAlreadyExists);
  fDisk->SetInstanceSource([](TInstanceList& list) { list.Add(); });
  EXPECT_EQ(StatusOf([&] { Instances(*fDisk); }), kHWXStatusInvalidInstance);
}

TEST_F(LiveClass, PresentsTheOthersBesideAnInstanceThatItRefuses) {
  fFound = {"sda", "sda", "sdb"};
  Strings seen;
  const auto see = [&](Ptr<ICIMInstance> instance) {
    seen.push_back(NameOf(instance));
    return true;
  };
  EXPECT_EQ(StatusOf([&] { fDisk->EnumerateInstances(see, false, {}); }), kHWXStatusAlreadyExists);
  EXPECT_THAT(seen, ElementsAre("sda", "sdb"));
}

TEST_F(LiveClass, IsAnOrdinaryOneAgainWithoutASource) {
  fFound = {"sda"};
  fDisk->SetInstanceSource(TInstanceSource());
  EXPECT_THAT(Instances(*fDisk), IsEmpty());
  EXPECT_EQ(fReadings, 0);
}

TEST_F(LiveClass, IsNotReadBeforeItIsFinal) {
  const auto open = boost::static_pointer_cast<TMemoryClass>(Create("EX_Open"));
  int readings = 0;
  open->SetInstanceSource([&](TInstanceList&) { ++readings; });
  EXPECT_THAT(Instances(*open), IsEmpty());
  EXPECT_EQ(readings, 0);
}

TEST_F(LiveClass, FindsInstancesByKeysFromSuperclassesToo) {
  fFound = {"sda", "sdb"};
  EXPECT_EQ(NameOf(Find("EX_Disk", "sdb")), "sdb");
  EXPECT_EQ(NameOf(Find("EX_Device", "sda")), "sda");
  EXPECT_FALSE(Find("EX_Disk", "sdc"));
}

TEST_F(LiveClass, IsNotReadForWhatWasAdded) {
  Add(fDisk, "added");
  EXPECT_TRUE(Find("EX_Device", "added"));
  EXPECT_EQ(fReadings, 0);
}

TEST_F(LiveClass, KnowsTheClassThatIsRead) {
  Ptr<TMemoryClass> seen;
  const auto tape = Build("EX_Tape", "EX_Device")
                        .Source([&](TInstanceList& list) { seen = list.GetClass(); })
                        .Commit();
  Instances(*fDevice, true);
  EXPECT_EQ(seen, tape);
}

TEST_F(LiveClass, HasItsDefaultsInEachInstance) {
  fDisk->SetInstanceSource([](TInstanceList& list) {
    EXPECT_EQ(list.Add().Set("ID", "sda").GetProperty("Reading", {})->GetSInt32Value(), 0);
    EXPECT_EQ(list.GetInstances().size(), 1u);
  });
  EXPECT_THAT(Instances(*fDisk), ElementsAre("sda"));
}

}  // namespace
}  // namespace hwxtest
