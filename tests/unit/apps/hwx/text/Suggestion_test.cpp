#include "hwx/text/Suggestion.h"

#include <gtest/gtest.h>

namespace hwx {
namespace {

const std::vector<std::string> kNames = {"CIM_DiskDrive", "CIM_DiskPartition", "CIM_Card"};

TEST(MostAlike, ForgivesAFewLetters) {
  EXPECT_EQ(MostAlike("CIM_DiskDrvie", kNames), "CIM_DiskDrive");
  EXPECT_EQ(MostAlike("cim_carp", kNames), "CIM_Card");
  EXPECT_EQ(MostAlike("identiy", {"identity", "show"}), "identity");
}

TEST(MostAlike, FindsANameByItsPart) {
  EXPECT_EQ(MostAlike("partition", kNames), "CIM_DiskPartition");
}

TEST(MostAlike, LeavesOutWhatDiffersTooMuch) {
  EXPECT_EQ(MostAlike("Furniture", kNames), "");
  EXPECT_EQ(MostAlike("x", kNames), "");
  EXPECT_EQ(MostAlike("", kNames), "");
  EXPECT_EQ(MostAlike("abc", {}), "");
  EXPECT_EQ(MostAlike(std::string(100000, 'x'), kNames), "");
}

TEST(DidYouMean, IsAQuestionOrNothing) {
  EXPECT_EQ(DidYouMean("CIM_Crad", kNames), "; did you mean CIM_Card?");
  EXPECT_EQ(DidYouMean("Furniture", kNames), "");
}

}  // namespace
}  // namespace hwx
