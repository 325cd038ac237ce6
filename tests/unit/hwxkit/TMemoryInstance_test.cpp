// Instances: their properties, and how a class comes to hold and find them.

#include "hwxkit/TMemoryInstance.h"

#include <locale>

#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Instance : public KitTest {
 protected:
  void SetUp() override {
    fDevice = Build("EX_Device").Key("ID", "string").PropertyWithDefault("Count", 4).Commit();
    fDisk = Build("EX_Disk", "EX_Device").Property("Size", "uint64").Commit();
  }

  static Ptr<TMemoryInstance> Make(const Ptr<TMemoryClass>& of, const std::string& id) {
    const auto made = of->NewInstance();
    made->Set("ID", id);
    return made;
  }

  static Ptr<TMemoryInstance> Add(const Ptr<TMemoryClass>& to, const std::string& id) {
    const auto made = Make(to, id);
    to->AddInstance(made);
    return made;
  }

  Ptr<ICIMInstance> Find(const std::string& className, const std::string& id) {
    return fNamespace->FindInstance(className, {{"ID", id}});
  }

  Ptr<TMemoryClass> fDevice;
  Ptr<TMemoryClass> fDisk;
};

// Properties.

TEST_F(Instance, StartsWithEveryPropertyAtItsDefaultOrATypedNull) {
  const auto disk = fDisk->CreateInstance({});
  const auto names = NamesFrom<ICIMProperty>(
      [&](const auto& callback) { disk->EnumerateProperties(callback, {}); });
  EXPECT_THAT(names, ElementsAre("ID", "Count", "Size"));
  EXPECT_EQ(disk->GetPropertyCount({}), 3u);
  EXPECT_EQ(disk->GetProperty("Count", {})->GetValue({}), TCIMValue(4));
  EXPECT_TRUE(disk->GetProperty("Size", {})->IsNull({}));
  EXPECT_EQ(disk->GetProperty("Size", {})->GetValue({}).GetType(), Type::kCIMTypeUInt64);
  EXPECT_EQ(disk->GetProperty("ID", {})->GetType({}), Type::kCIMTypeString);
}

TEST_F(Instance, KnowsWhereItBelongs) {
  const auto disk = Make(fDisk, "sda");
  EXPECT_EQ(disk->GetClass({}), fDisk);
  EXPECT_EQ(disk->GetClassName({}), "EX_Disk");
  EXPECT_EQ(disk->GetNamespace({}), fNamespace);
  EXPECT_TRUE(disk->IsInstanceOf("ex_disk", {}));
  EXPECT_TRUE(disk->IsInstanceOf("EX_Device", {}));
  EXPECT_FALSE(disk->IsInstanceOf("EX_None", {}));
  EXPECT_FALSE(Make(fDevice, "x")->IsInstanceOf("EX_Disk", {}));
}

TEST_F(Instance, ShowsAValueThatWasSetUnderTheNameInAnyCase) {
  const auto disk = Make(fDisk, "sda");
  const auto size = disk->GetProperty("sIZE", {});
  disk->SetPropertyValue("size", 5UL, {});
  EXPECT_EQ(size->GetUInt64Value(), 5u);
  EXPECT_EQ(size->GetName({}), "Size");
  EXPECT_EQ(size->GetPropertyDecl({}), fDisk->GetPropertyDecl("Size", {}));
  EXPECT_EQ(size->GetInstance({}), disk);
  size->SetValue(6UL, {});
  EXPECT_EQ(disk->GetProperty("Size", {})->GetUInt64Value(), 6u);
  disk->SetNull("SIZE");
  EXPECT_TRUE(disk->GetProperty("Size", {})->IsNull({}));
}

TEST_F(Instance, ReportsAbsentPropertiesByAThrow) {
  const auto disk = Make(fDisk, "sda");
  EXPECT_EQ(StatusOf([&] { disk->GetProperty("None", {}); }), kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { disk->SetPropertyValue("None", 1, {}); }), kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { disk->SetNull("None"); }), kHWXStatusNotFound);
  EXPECT_FALSE(disk->HasProperty("None", {}));
  EXPECT_TRUE(disk->HasProperty("COUNT", {}));
}

TEST_F(Instance, RefusesValuesOfAnotherTypeNullOrNot) {
  const auto disk = Make(fDisk, "sda");
  disk->Set("Size", 5UL);
  for (const TCIMValue& value : {TCIMValue(5), TCIMValue(5U), TCIMValue("5"), TCIMValue(),
                                 Null(Type::kCIMTypeUInt32), TCIMValue(Type::kCIMTypeUInt64, 1)}) {
    EXPECT_EQ(StatusOf([&] { disk->SetPropertyValue("Size", value, {}); }), kHWXStatusTypeMismatch);
    EXPECT_EQ(StatusOf([&] { disk->GetProperty("Size", {})->SetValue(value, {}); }),
              kHWXStatusTypeMismatch);
  }
  EXPECT_EQ(disk->GetProperty("Size", {})->GetUInt64Value(), 5u);
}

TEST_F(Instance, StopsPresentingPropertiesWhenToldAndPassesExceptionsOn) {
  const auto disk = Make(fDisk, "sda");
  int calls = 0;
  disk->EnumerateProperties([&](Ptr<ICIMProperty>) { return ++calls < 2; }, {});
  EXPECT_EQ(calls, 2);
  const auto fail = [](Ptr<ICIMProperty>) -> bool { throw std::logic_error("mine"); };
  EXPECT_THROW(disk->EnumerateProperties(fail, {}), std::logic_error);
}

TEST_F(Instance, LetsACallbackChangeIt) {
  const auto disk = Make(fDisk, "sda");
  disk->EnumerateProperties(
      [&](Ptr<ICIMProperty> property) {
        if (property->GetName({}) == "Count") property->SetValue(9, {});
        return true;
      },
      {});
  EXPECT_EQ(disk->GetProperty("Count", {})->GetSInt32Value(), 9);
}

TEST_F(Instance, IsClonedWithItsValuesButNotItsPlace) {
  const auto disk = Add(fDisk, "sda");
  disk->Set("Size", 5UL);
  const auto clone = disk->Clone({});
  clone->SetPropertyValue("ID", "sdb", {});
  EXPECT_EQ(clone->GetProperty("Size", {})->GetUInt64Value(), 5u);
  EXPECT_EQ(disk->GetProperty("ID", {})->GetStringValue(), "sda");
  EXPECT_THAT(Instances(*fDisk), ElementsAre("sda"));
  fDisk->AddInstance(clone);
  EXPECT_THAT(Instances(*fDisk), ElementsAre("sda", "sdb"));
}

TEST_F(Instance, IsNeverOfAnAbstractClass) {
  const auto abstract = Build("EX_Abstract").Abstract().Commit();
  EXPECT_EQ(StatusOf([&] { abstract->CreateInstance({}); }), kHWXStatusInvalidClass);
  EXPECT_TRUE(Build("EX_Concrete", "EX_Abstract").Commit()->CreateInstance({}));
}

TEST_F(Instance, LivesOnWithoutEveryOtherHandle) {
  Ptr<ICIMProperty> size;
  {
    const auto disk = Make(fDisk, "sda");
    disk->Set("Size", 5UL);
    size = disk->GetProperty("Size", {});
  }
  EXPECT_FALSE(size->GetInstance({}));
  EXPECT_EQ(size->GetUInt64Value(), 5u);
  size->SetValue(6UL, {});
  EXPECT_EQ(size->GetUInt64Value(), 6u);
}

// Being held.

TEST_F(Instance, IsHeldByItsClassOnlyOnceAdded) {
  const auto disk = Make(fDisk, "sda");
  EXPECT_THAT(Instances(*fDisk), IsEmpty());
  fDisk->AddInstance(disk);
  EXPECT_THAT(Instances(*fDisk), ElementsAre("sda"));
  EXPECT_EQ(fDisk->GetInstanceCount(false, {}), 1u);
  EXPECT_EQ(StatusOf([&] { fDisk->AddInstance(disk); }), kHWXStatusInvalidOpSequence);
}

TEST_F(Instance, IsRefusedByEveryClassButItsOwn) {
  EXPECT_EQ(StatusOf([&] { fDisk->AddInstance({}); }), kHWXStatusInvalidInstance);
  EXPECT_EQ(StatusOf([&] { fDevice->AddInstance(Make(fDisk, "sda")); }), kHWXStatusInvalidInstance);
  EXPECT_EQ(StatusOf([&] { fDisk->AddInstance(Make(fDevice, "x")); }), kHWXStatusInvalidInstance);
}

TEST_F(Instance, IsRefusedWithoutItsKeys) {
  EXPECT_EQ(StatusOf([&] { fDisk->AddInstance(fDisk->NewInstance()); }), kHWXStatusInvalidInstance);
  EXPECT_THAT(Instances(*fDisk), IsEmpty());
}

TEST_F(Instance, IsRefusedWithTheKeysOfAnotherInTheTree) {
  Add(fDisk, "sda");
  const auto sibling = Build("EX_Tape", "EX_Device").Commit();
  for (const auto& to : {fDisk, fDevice, sibling}) {
    const auto twin = Make(to, "sda");
    EXPECT_EQ(StatusOf([&] { to->AddInstance(twin); }), kHWXStatusAlreadyExists);
    twin->Set("ID", "other" + to->GetName({}));  // it isn't held, so it may change
    EXPECT_NO_THROW(to->AddInstance(twin));
  }
}

TEST_F(Instance, MayHaveTheKeysOfOneInAnotherTree) {
  Add(fDisk, "sda");
  const auto other = Build("EX_Other").Key("ID", "string").Commit();
  EXPECT_NO_THROW(Add(other, "sda"));
}

TEST_F(Instance, MayLackKeysWhereTheClassHasNone) {
  const auto keyless = Build("EX_Keyless").Property("A", "string").Commit();
  keyless->AddInstance(keyless->NewInstance());
  keyless->AddInstance(keyless->NewInstance());
  EXPECT_EQ(keyless->GetInstanceCount(false, {}), 2u);
}

TEST_F(Instance, KeepsItsKeysWhileItIsHeld) {
  const auto disk = Add(fDisk, "sda");
  EXPECT_EQ(StatusOf([&] { disk->Set("ID", "sdb"); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { disk->GetProperty("ID", {})->SetValue("sdb", {}); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_NO_THROW(disk->Set("Size", 1UL));
  disk->Delete({});
  disk->Set("ID", "sdb");
  fDisk->AddInstance(disk);
  EXPECT_THAT(Instances(*fDisk), ElementsAre("sdb"));
  EXPECT_FALSE(Find("EX_Disk", "sda"));
  EXPECT_EQ(Find("EX_Disk", "sdb"), disk);
}

TEST_F(Instance, IsTakenOutByDelete) {
  const auto a = Add(fDisk, "a");
  const auto b = Add(fDisk, "b");
  a->Delete({});
  EXPECT_THAT(Instances(*fDisk), ElementsAre("b"));
  EXPECT_FALSE(Find("EX_Device", "a"));
  EXPECT_EQ(StatusOf([&] { a->Delete({}); }), kHWXStatusInvalidOpSequence);
  EXPECT_NO_THROW(Add(fDevice, "a"));
}

TEST_F(Instance, IsTakenOutWithAllOthersOfItsClassAlone) {
  const auto disk = Add(fDisk, "a");
  Add(fDevice, "b");
  fDisk->DeleteInstances({});
  EXPECT_THAT(Instances(*fDevice, true), ElementsAre("b"));
  EXPECT_NO_THROW(fDisk->AddInstance(disk));
}

// Enumerating.

TEST_F(Instance, IsPresentedByItsClassAndDeeplyBySuperclasses) {
  Add(fDisk, "d1");
  Add(fDevice, "x1");
  Add(fDisk, "d2");
  Add(fDevice, "x2");
  EXPECT_THAT(Instances(*fDevice), ElementsAre("x1", "x2"));
  EXPECT_THAT(Instances(*fDevice, true), ElementsAre("x1", "x2", "d1", "d2"));
  EXPECT_THAT(Instances(*fDisk, true), ElementsAre("d1", "d2"));
  EXPECT_EQ(fDevice->GetInstanceCount(true, {}), 4u);
}

TEST_F(Instance, IsNotPresentedAfterTheCallbackSaidStop) {
  Add(fDevice, "x1");
  Add(fDisk, "d1");
  Add(fDisk, "d2");
  int calls = 0;
  fDevice->EnumerateInstances([&](Ptr<ICIMInstance>) { return ++calls < 2; }, true, {});
  EXPECT_EQ(calls, 2);
  const auto fail = [](Ptr<ICIMInstance>) -> bool { throw std::logic_error("mine"); };
  EXPECT_THROW(fDevice->EnumerateInstances(fail, true, {}), std::logic_error);
}

TEST_F(Instance, IsPresentedFromASnapshot) {
  Add(fDevice, "x1");
  Add(fDisk, "d1");
  Strings seen;
  fDevice->EnumerateInstances(
      [&](Ptr<ICIMInstance> presented) {
        seen.push_back(NameOf(presented));
        Add(fDisk, "new" + seen.back());
        fDevice->DeleteInstances({});
        return true;
      },
      true, {});
  EXPECT_THAT(seen, ElementsAre("x1", "d1"));
  EXPECT_THAT(Instances(*fDevice, true), ElementsAre("d1", "newx1", "newd1"));
}

// Finding by keys.

TEST_F(Instance, IsFoundByItsKeysInItsClassAndSuperclasses) {
  const auto disk = Add(fDisk, "sda");
  EXPECT_EQ(Find("EX_Disk", "sda"), disk);
  EXPECT_EQ(Find("ex_device", "sda"), disk);
  EXPECT_EQ(fNamespace->FindInstance("EX_Disk", {{"id", "sda"}}), disk);
  const auto device = Add(fDevice, "x");
  EXPECT_FALSE(Find("EX_Disk", "x"));
  EXPECT_EQ(Find("EX_Device", "x"), device);
}

TEST_F(Instance, IsNotFoundByAnythingButExactlyItsKeys) {
  Add(fDisk, "sda");
  const auto find = [&](const std::map<std::string, TCIMValue>& keys) {
    return fNamespace->FindInstance("EX_Disk", keys);
  };
  EXPECT_FALSE(Find("EX_None", "sda"));
  EXPECT_FALSE(Find("EX_Disk", "SDA"));
  EXPECT_FALSE(find({}));
  EXPECT_FALSE(find({{"ID", 1}}));
  EXPECT_FALSE(find({{"ID", Null(Type::kCIMTypeString)}}));
  EXPECT_FALSE(find({{"Size", "sda"}}));
  EXPECT_FALSE(find({{"ID", "sda"}, {"Size", 1UL}}));
  EXPECT_FALSE(find({{"ID", "sda"}, {"id", "sda"}}));
}

TEST_F(Instance, IsToldFromOthersByAllItsKeys) {
  const auto pairs = Build("EX_Pair").Key("A", "string").Key("B", "string").Commit();
  const auto add = [&](const char* a, const char* b) {
    const auto made = pairs->NewInstance();
    made->Set("A", a).Set("B", b);
    pairs->AddInstance(made);
    return made;
  };
  const auto first = add("x", "yz");
  const auto second = add("xy", "z");
  EXPECT_EQ(fNamespace->FindInstance("EX_Pair", {{"B", "yz"}, {"A", "x"}}), first);
  EXPECT_EQ(fNamespace->FindInstance("EX_Pair", {{"B", "z"}, {"A", "xy"}}), second);
  EXPECT_EQ(StatusOf([&] { add("x", "yz"); }), kHWXStatusAlreadyExists);
}

TEST_F(Instance, IsFoundAmongManyWithoutLookingAtEach) {
  constexpr int kMany = 20000;  // a walk for each would take minutes
  for (int i = 0; i < kMany; ++i)
    Add(fDisk, std::to_string(i));
  int found = 0;
  for (int i = 0; i < kMany; ++i)
    found += Find("EX_Device", std::to_string(i)) ? 1 : 0;
  EXPECT_EQ(found, kMany);
}

// Keys of every type that has a printed form.
TEST_F(Instance, IsFoundByKeysOfEveryType) {
  const TCIMValue values[] = {
      true,
      static_cast<unsigned char>(200),
      static_cast<signed char>(-100),
      static_cast<unsigned short>(60000),
      static_cast<short>(-30000),
      4000000000U,
      -2000000000,
      18000000000000000000UL,
      -9000000000000000000L,
      0.1F,
      0.1,
      TCIMChar16(static_cast<unsigned short>('x')),
      "text",
      TCIMDateTime("20240229123456.000000+060"),
  };
  for (const TCIMValue& value : values) {
    const std::string name = "EX_Of" + value.GetType().ToString();
    const auto keyed = Build(name).Key("K", value.GetType()).Commit();
    const auto made = keyed->NewInstance();
    made->Set("K", value);
    keyed->AddInstance(made);
    EXPECT_EQ(fNamespace->FindInstance(name, {{"K", value}}), made) << name;
    const auto twin = keyed->NewInstance();
    twin->Set("K", value);
    EXPECT_EQ(StatusOf([&] { keyed->AddInstance(twin); }), kHWXStatusAlreadyExists) << name;
  }
}

TEST_F(Instance, IsRefusedWithAnArrayForAKey) {
  const auto keyed = Build("EX_Array").Key("K", "string[]").Commit();
  const auto made = keyed->NewInstance();
  made->Set("K", TCIMValue(Type::kCIMTypeString, 0, {"a"}));
  EXPECT_EQ(StatusOf([&] { keyed->AddInstance(made); }), kHWXStatusInvalidInstance);
}

// Values compare equal between any two characters, and refuse to compare unlike date-times.
TEST_F(Instance, IsToldFromOthersByKeysThatValuesCantCompare) {
  const auto characters = Build("EX_Char").Key("K", "char16").Commit();
  const auto times = Build("EX_Time").Key("K", "datetime").Commit();
  const auto add = [](const Ptr<TMemoryClass>& to, const TCIMValue& key) {
    const auto made = to->NewInstance();
    made->Set("K", key);
    to->AddInstance(made);
    return made;
  };
  const TCIMValue a(TCIMChar16(static_cast<unsigned short>('a')));
  const TCIMValue b(TCIMChar16(static_cast<unsigned short>('b')));
  const TCIMValue timestamp(TCIMDateTime("20240229123456.000000+060"));
  const TCIMValue interval(TCIMDateTime("00000001000000.000000:000"));
  add(characters, a);
  const auto second = add(characters, b);
  add(times, timestamp);
  const auto span = add(times, interval);
  EXPECT_EQ(fNamespace->FindInstance("EX_Char", {{"K", b}}), second);
  EXPECT_EQ(fNamespace->FindInstance("EX_Time", {{"K", interval}}), span);
}

// Groups digits by threes, as many countries do.
class Grouping : public std::numpunct<char> {
 protected:
  char do_thousands_sep() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

class ScopedLocale {
 public:
  explicit ScopedLocale(const std::locale& locale) : fOld(std::locale::global(locale)) {}
  ~ScopedLocale() { std::locale::global(fOld); }

 private:
  const std::locale fOld;
};

TEST_F(Instance, IsFoundAfterTheProcessChangedItsLocale) {
  const auto keyed = Build("EX_Keyed").Key("K", "uint32").Commit();
  const auto made = keyed->NewInstance();
  made->Set("K", 1234567U);
  keyed->AddInstance(made);
  const ScopedLocale grouping(std::locale(std::locale::classic(), new Grouping));
  EXPECT_EQ(fNamespace->FindInstance("EX_Keyed", {{"K", 1234567U}}), made);
  made->Delete({});
  EXPECT_NO_THROW(keyed->AddInstance(made));
}

}  // namespace
}  // namespace hwxtest
