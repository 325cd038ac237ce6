#include "hwxidentity/MachineTypeModel.h"

#include <gtest/gtest.h>

#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "support/RecordingNamespace.h"
#include "support/StatusOf.h"

using hwxidentity::ParseMachineTypeModel;
using NQORHWX20::TCIMSchemaHelper;

namespace {

const std::string kForm1 = "QOR eCorvex k3455-[";
const std::string kForm2 = "QOR eCorvex k225-[";
const std::string kForm3 = "QOR eCorvex k3500- ";

// What the query makes of a product name, "none" where it throws `kHWXStatusInvalidFormat`.
std::string MTMOf(const std::string& productName) {
  hwxtest::RecordingNamespace ns;
  ns.AddInstance("QORSG_ComputerSystem", {{"ProductName", productName}});
  std::string mtm = "none";
  const int status = hwxtest::StatusOf([&] { mtm = TCIMSchemaHelper::GetMTM(ns.Get()); });
  EXPECT_EQ(status, mtm == "none" ? NQORHWX20::kHWXStatusInvalidFormat : NQORHWX20::kHWXStatusOK);
  EXPECT_EQ(ParseMachineTypeModel(productName).value_or("none"), mtm);
  return mtm;
}

TEST(IsValidMachineType, LooksAtTheFirstFourCharactersAlone) {
  for (const char* const text : {"7870", "aZ09", "7870!", "7870 more"})
    EXPECT_TRUE(TCIMSchemaHelper::IsValidMachineType(text)) << text;
  for (const char* const text : {"", "7", "787", "787 ", "7-70", " 787", "78_0", "787\xE4"})
    EXPECT_FALSE(TCIMSchemaHelper::IsValidMachineType(text)) << text;
  EXPECT_FALSE(TCIMSchemaHelper::IsValidMachineType(std::string("787\0", 4)));
}

TEST(IsValidMTM, AllowsSpacesInTheModelAndNotInTheType) {
  for (const char* const text :
       {"7870A1B", "7870   ", "7870A  ", "7870  B", "7870A1B!", "7870A1B and more"})
    EXPECT_TRUE(TCIMSchemaHelper::IsValidMTM(text)) << text;
  for (const char* const text : {"", "7870", "7870A", "7870A1", "787 A1B", "7870A1-", "7870\tA1",
                                 "7870-1B", "-870A1B", "7870A1\xE4"})
    EXPECT_FALSE(TCIMSchemaHelper::IsValidMTM(text)) << text;
  EXPECT_FALSE(TCIMSchemaHelper::IsValidMTM(std::string("7870A1\0", 7)));
}

TEST(FixedForm, YieldsItsSevenCharacters) {
  EXPECT_EQ(MTMOf(kForm1 + "7870A1B]"), "7870A1B");
  EXPECT_EQ(MTMOf(kForm2 + "7870A1B]"), "7870A1B");
}

TEST(FixedForm, IsTriedWithoutTrailingSpaces) {
  EXPECT_EQ(MTMOf(kForm1 + "7870A1B]     "), "7870A1B");
  EXPECT_EQ(MTMOf(kForm2 + "7870A1B] "), "7870A1B");
  EXPECT_EQ(MTMOf(kForm3 + "7870A1B-  "), "7870A1B");
}

TEST(FixedForm, KeepsABlankModelUnlikeTheBracketedForm) {
  EXPECT_EQ(MTMOf(kForm1 + "7870   ]"), "7870   ");
  EXPECT_EQ(MTMOf(kForm2 + "7870   ]"), "7870   ");
  EXPECT_EQ(MTMOf(kForm3 + "7870   -"), "7870   ");
  EXPECT_EQ(MTMOf("QOR eCorvex k226-[7870   ]"), "7870xxx");
  EXPECT_EQ(MTMOf("Rack -[7870   ]"), "7870xxx");
}

// The third form ends with the dash, or with one more character and the dash.
TEST(FixedForm, HasTwoLengthsWithoutBrackets) {
  EXPECT_EQ(MTMOf(kForm3 + "7870A1B-"), "7870A1B");
  EXPECT_EQ(MTMOf(kForm3 + "7870A1Bx-"), "7870A1B");
  EXPECT_EQ(MTMOf(kForm3 + "7870A1B--"), "7870A1B");
  EXPECT_EQ(MTMOf(kForm3 + "7870A1B -"), "7870A1B");
  EXPECT_EQ(MTMOf(kForm3 + "7870   !-"), "7870   ");
  EXPECT_EQ(MTMOf(kForm3 + "7870A1B"), "none");
  EXPECT_EQ(MTMOf(kForm3 + "7870A1Bxx-"), "none");
  EXPECT_EQ(MTMOf(kForm3 + "7870A1B-x"), "none");
  EXPECT_EQ(MTMOf(kForm3 + "7870A-B-"), "none");
  EXPECT_EQ(MTMOf(kForm3 + "-870A1B-"), "none");
}

TEST(FixedForm, NeedsItsHeadToTheLetter) {
  EXPECT_EQ(MTMOf("QOR eCorvex k3501- 7870A1B-"), "none");
  EXPECT_EQ(MTMOf("qor eCorvex k3500- 7870A1B-"), "none");
  EXPECT_EQ(MTMOf(" QOR eCorvex k3500- 7870A1B-"), "none");
}

// A head of one of the first two, with a text that isn't of its form, is bracketed all the same.
TEST(FixedForm, GivesWayToTheBracketedForm) {
  EXPECT_EQ(MTMOf(kForm1 + "7870   ]-"), "7870xxx");
  EXPECT_EQ(MTMOf(kForm2 + "7870   ]-"), "7870xxx");
  EXPECT_EQ(MTMOf(kForm1 + "7870]"), "7870xxx");
  EXPECT_EQ(MTMOf(kForm1 + "7870]xx]"), "7870xxx");
  EXPECT_EQ(MTMOf(kForm1 + "78-0A1B]"), "none");
}

TEST(BracketedForm, YieldsASevenWithOrWithoutTextAround) {
  EXPECT_EQ(MTMOf("-[7870A1B]"), "7870A1B");
  EXPECT_EQ(MTMOf("Rack server -[7870A1B]-"), "7870A1B");
  EXPECT_EQ(MTMOf("Rack -[7870A1B] any ]- text -[9999C3D]"), "7870A1B");
  EXPECT_EQ(MTMOf("Rack -[7870A1B]   "), "7870A1B");
}

TEST(BracketedForm, YieldsAFourWithAnUnknownModel) {
  EXPECT_EQ(MTMOf("-[7870]"), "7870xxx");
  EXPECT_EQ(MTMOf("Rack -[7870]-"), "7870xxx");
  EXPECT_EQ(MTMOf("Rack -[7870] and so on"), "7870xxx");
  EXPECT_EQ(MTMOf("Rack -[7870]A1]"), "7870xxx");
}

TEST(BracketedForm, KeepsAModelThatIsPartlyBlank) {
  EXPECT_EQ(MTMOf("-[7870A  ]"), "7870A  ");
  EXPECT_EQ(MTMOf("-[7870  B]"), "7870  B");
}

TEST(BracketedForm, RefusesPunctuationAndAMissingEnd) {
  for (const char* const text :
       {"Rack -[78.0A1B]-", "Rack -[78.0]-", "Rack -[ 870A1B]-", "Rack -[7870A1.]-",
        "Rack -[7870A1B", "Rack -[7870A1BC]", "Rack -[7870A]", "Rack -[787]", "Rack -[7870",
        "Rack -[]-", "Rack -[", "-["}) {
    EXPECT_EQ(MTMOf(text), "none") << text;
  }
}

TEST(BracketedForm, CountsAtItsFirstMarkAlone) {
  EXPECT_EQ(MTMOf("Rack -[x]- -[7870A1B]-"), "none");
  EXPECT_EQ(MTMOf("Rack -[-[7870A1B]-"), "none");
}

TEST(BareForm, IsAFourOrASeven) {
  EXPECT_EQ(MTMOf("7870"), "7870xxx");
  EXPECT_EQ(MTMOf("7870   "), "7870xxx");
  EXPECT_EQ(MTMOf("7870A1B"), "7870A1B");
  EXPECT_EQ(MTMOf("7870A1B   "), "7870A1B");
  EXPECT_EQ(MTMOf("7870  B"), "7870  B");
}

TEST(BareForm, RefusesEveryOtherText) {
  for (const char* const text :
       {"", " ", "       ", "787", "7870A", "7870A  ", "7870A1", "7870A1BC", " 7870", "78-0",
        "787-A1B", "7870A-B", "7870\t", "7870A1B\n", "Standard PC", "[7870A1B]", "7870A1B]"}) {
    EXPECT_EQ(MTMOf(text), "none") << text;
  }
  EXPECT_EQ(MTMOf(std::string("787\0", 4)), "none");
  EXPECT_EQ(MTMOf(std::string("7870A1\0", 7)), "none");
}

}  // namespace
