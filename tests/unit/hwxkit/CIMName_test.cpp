#include "hwxkit/CIMName.h"

#include "support/TurkishLocale.h"
#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;

TEST(CIMName, IsALetterOrUnderscoreAndThenAlsoDigits) {
  for (const char* name : {"a", "Z", "_", "EX_Disk", "_9", "x0", "\xC3\xA4"}) {
    EXPECT_TRUE(IsCIMName(name)) << name;
    EXPECT_NO_THROW(CheckCIMName(name)) << name;
  }
}

TEST(CIMName, IsNotEmptyNorHoldsAnythingElse) {
  for (const std::string& name :
       {std::string(), std::string("9a"), std::string("a b"), std::string("a.b"), std::string("a-"),
        std::string("@"), std::string("["), std::string("`"), std::string("{"),
        std::string("a\0", 2)}) {
    EXPECT_FALSE(IsCIMName(name)) << name;
    EXPECT_EQ(StatusOf([&] { CheckCIMName(name); }), kHWXStatusInvalidCIMName) << name;
  }
}

TEST(CIMName, IgnoresTheCaseOfAsciiLettersAlone) {
  EXPECT_TRUE(IsSameCIMName("EX_Disk", "ex_DISK"));
  EXPECT_FALSE(IsSameCIMName("EX_Disk", "EX_Disks"));
  EXPECT_FALSE(IsSameCIMName("EX_Disks", "EX_Disk"));
  EXPECT_FALSE(IsSameCIMName("\xC4", "\xE4"));
  EXPECT_FALSE(IsSameCIMName("@", "`"));
}

TEST(CIMName, IgnoresCaseAlikeWhateverTheLocale) {
  const hwxtest::TurkishLocale turkish;
  if (!turkish.IsThere()) GTEST_SKIP() << "no Turkish locale can be made";
  EXPECT_TRUE(IsSameCIMName("DEVICEID", "DeviceID"));
  EXPECT_TRUE(IsSameCIMName("DEVICEID", "deviceid"));
  EXPECT_EQ(FoldedCIMName("DEVICEID"), "deviceid");
}

TEST(CIMName, HashesSameNamesAlike) {
  const TCIMNameHash hash;
  EXPECT_EQ(hash("EX_Disk"), hash("ex_dISK"));
  EXPECT_NE(hash("EX_Disk"), hash("EX_Disc"));
}

struct Named {
  std::string fName;
};

class NameTable : public ::testing::Test {
 protected:
  void Put(const std::string& name) { fTable.Put(name, Ptr<Named>(new Named{name})); }

  Strings Names() const {
    Strings names;
    for (const auto& item : fTable.Items())
      names.push_back(item->fName);
    return names;
  }

  TNameTable<Named> fTable;
};

TEST_F(NameTable, KeepsTheOrderOfArrival) {
  Put("c");
  Put("a");
  Put("b");
  EXPECT_THAT(Names(), testing::ElementsAre("c", "a", "b"));
}

TEST_F(NameTable, ReplacesInPlaceWhateverTheCase) {
  Put("c");
  Put("a");
  Put("C");
  EXPECT_THAT(Names(), testing::ElementsAre("C", "a"));
  EXPECT_EQ(fTable.Find("c")->fName, "C");
}

TEST_F(NameTable, FindsTheRestAfterARemoval) {
  Put("a");
  Put("b");
  Put("c");
  fTable.Remove("A");
  EXPECT_THAT(Names(), testing::ElementsAre("b", "c"));
  EXPECT_FALSE(fTable.Find("a"));
  EXPECT_EQ(fTable.Find("b")->fName, "b");
  EXPECT_EQ(fTable.IndexOf("c"), 1u);
  EXPECT_EQ(fTable.IndexOf("a"), TNameTable<Named>::kAbsent);
}

TEST_F(NameTable, IgnoresTheRemovalOfAnAbsentName) {
  Put("a");
  fTable.Remove("b");
  EXPECT_THAT(Names(), testing::ElementsAre("a"));
}

}  // namespace
}  // namespace hwxtest
