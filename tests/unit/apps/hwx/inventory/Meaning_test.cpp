#include "hwx/inventory/Meaning.h"

#include <gtest/gtest.h>

#include "unit/apps/hwx/inventory/MadeModules.h"

namespace hwx {
namespace {

class Meaning : public testing::Test {
 protected:
  std::string Words(const std::string& property, const TJson& stored) {
    return fMeanings.Of(*fNamespace->FindClass("EX_Module"), property)
        .Words(stored)
        .value_or("none");
  }

  const boost::shared_ptr<NQORHWX20::TMemoryNamespace> fNamespace = hwxtest::MakeModules();
  TMeanings fMeanings;
};

TEST_F(Meaning, IsTheWordOfANumber) {
  EXPECT_EQ(Words("Form", 8), "DIMM");
  EXPECT_EQ(Words("form", 8), "DIMM");
  EXPECT_EQ(Words("Form", 7), "none");
}

TEST_F(Meaning, IsTheWordOfARange) {
  EXPECT_EQ(Words("Form", 9), "Other");
  EXPECT_EQ(Words("Form", 65535), "Other");
}

TEST_F(Meaning, IsAnAmountWithItsUnit) {
  EXPECT_EQ(Words("Capacity", 17179869184u), "16 GiB");
  EXPECT_EQ(Words("Speed", 3200), "3.2 GHz");
}

TEST_F(Meaning, IsADateThatPeopleRead) {
  EXPECT_EQ(Words("Made", "20220314120000.000000+060"), "2022-03-14 12:00:00 +01:00");
  EXPECT_EQ(Words("Made", "20220314120000.000000-330"), "2022-03-14 12:00:00 -05:30");
  EXPECT_EQ(Words("Made", "20220314000000.000000+000"), "2022-03-14 00:00:00 UTC");
  EXPECT_EQ(Words("Made", "2022********00.000000+000"), "none");
  EXPECT_EQ(Words("Made", "00000012120000.000000:000"), "none");
  EXPECT_EQ(Words("Maker", "20220314000000.000000+000"), "none");
}

TEST_F(Meaning, IsOfEachElement) {
  EXPECT_EQ(Words("Form", {8, 3, nullptr}), "DIMM, 3, (null)");
  EXPECT_EQ(Words("Form", {3}), "none");
  EXPECT_EQ(Words("Form", TJson::array()), "none");
}

TEST_F(Meaning, IsNoneOfWhatHasNoQualifiers) {
  EXPECT_EQ(Words("Errors", 5), "none");
  EXPECT_EQ(Words("Capacity", nullptr), "none");
  EXPECT_EQ(Words("Capacity", "text"), "none");
  EXPECT_EQ(Words("Absent", 5), "none");
}

TEST_F(Meaning, StandsBesideTheValueInJson) {
  const TMeaning& form = fMeanings.Of(*fNamespace->FindClass("EX_Module"), "Form");
  EXPECT_EQ(WithWords(8, form), TJson::parse(R"({"value": 8, "text": "DIMM"})"));
  EXPECT_EQ(WithWords(7, form), TJson(7));
  EXPECT_EQ(WithWords(nullptr, form), TJson());
}

}  // namespace
}  // namespace hwx
