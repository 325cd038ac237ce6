#include "hwx/identity/TypeForms.h"

#include <gtest/gtest.h>

namespace hwx {
namespace {

// "VALUE", "VALUE?" for a guess, or "(REASON)".
std::string Shown(const TAnswer<std::string>& answer) {
  if (!answer.fValue) return "(" + answer.fReason + ")";
  EXPECT_NE(answer.fForm, "");
  return *answer.fValue + (answer.fIsGuess ? "?" : "");
}

std::string FormOf(const TAnswer<std::string>& answer) {
  return answer.fForm;
}

TEST(AnswerInName, IsAFactInBracketsAndInANameOfAProductLine) {
  EXPECT_EQ(Shown(AnswerInName("7915", "Rack Server -[7915AC1]-")), "7915");
  EXPECT_EQ(Shown(AnswerInName("7915", "-[7915]-")), "7915");
  EXPECT_EQ(Shown(AnswerInName("8837", "QOR eCorvex k3500- 8837EF3 -")), "8837");
  EXPECT_EQ(FormOf(AnswerInName("AC1", "Rack Server -[7915AC1]-")),
            "in brackets in the product name");
}

TEST(AnswerInName, IsAGuessInANameOfFourOrSevenCharacters) {
  EXPECT_EQ(Shown(AnswerInName("AB30", "AB305CD")), "AB30?");
  EXPECT_EQ(Shown(AnswerInName("5CD", "AB305CD  ")), "5CD?");
  EXPECT_EQ(Shown(AnswerInName("7915", "7915")), "7915?");
  EXPECT_EQ(FormOf(AnswerInName("AB30", "AB305CD")), "a product name of seven characters");
  EXPECT_EQ(FormOf(AnswerInName("7915", "7915")), "a product name of four characters");
}

TEST(TypeBehindDash, IsAFactWhereTheNameMarksIt) {
  EXPECT_EQ(Shown(TypeBehindDash("7915", "Rack Server -[7915AC1]-")), "7915");
  EXPECT_EQ(Shown(TypeBehindDash("7915", "Rack Server -[7915]-")), "7915");
  EXPECT_EQ(Shown(TypeBehindDash("8837", "QOR eCorvex k3500- 8837EF3 -")), "8837");
}

TEST(TypeBehindDash, IsAGuessElsewhere) {
  EXPECT_EQ(Shown(TypeBehindDash("7816", "XX-A7816")), "7816?");
  EXPECT_EQ(FormOf(TypeBehindDash("7816", "XX-A7816")), "behind a dash in the product name");
  EXPECT_EQ(Shown(TypeBehindDash("AB30", "AB305CD")), "AB30?");
  EXPECT_EQ(FormOf(TypeBehindDash("AB30", "AB305CD")), "a product name of seven characters");
  EXPECT_EQ(FormOf(TypeBehindDash("B123", "A-XB123")), "behind a dash in the product name");
}

TEST(TypeBehindDash, IsNoneWithoutFourLettersOrDigits) {
  EXPECT_EQ(Shown(TypeBehindDash("816", "XX-7816")),
            "(\"816\" in \"XX-7816\" is no machine type: not four letters or digits)");
  EXPECT_EQ(Shown(TypeBehindDash("F/Q9", "Q9AB-3F/Q9AB-iF")),
            "(\"F/Q9\" in \"Q9AB-3F/Q9AB-iF\" is no machine type: not four letters or digits)");
  EXPECT_EQ(Shown(TypeBehindDash("", "Box-5")),
            "(\"\" in \"Box-5\" is no machine type: not four letters or digits)");
  EXPECT_EQ(Shown(TypeBehindDash("79 5", "Box - 79 5")).front(), '(');
  EXPECT_EQ(Shown(TypeBehindDash("7\xC3\xA9"
                                 "5",
                                 "Box -[7\xC3\xA9"
                                 "5"))
                .front(),
            '(');
}

TEST(TypeBehindDash, IsNoneWhereTheNameMarksAnother) {
  EXPECT_EQ(Shown(TypeBehindDash("erve", "Rack-Server -[7915AC1]-")),
            "(\"erve\" in \"Rack-Server -[7915AC1]-\" isn't the \"7915\" that it marks)");
}

TEST(ModelBehindDash, GoesByTheSameRules) {
  EXPECT_EQ(Shown(ModelBehindDash("AC1", "Rack Server -[7915AC1]-")), "AC1");
  EXPECT_EQ(Shown(ModelBehindDash("A 1", "Rack Server -[7915A 1]-")), "A 1");
  EXPECT_EQ(Shown(ModelBehindDash("123", "Box-A7816123")), "123?");
  EXPECT_EQ(Shown(ModelBehindDash("r -", "Rack-Server -[7915AC1]-")),
            "(\"r -\" in \"Rack-Server -[7915AC1]-\" is no model: not three letters, digits or "
            "blanks)");
  EXPECT_EQ(Shown(ModelBehindDash("]-", "Rack -[7915]-")).front(), '(');
}

TEST(TypeOfVersion, IsAFactForAVersionInBrackets) {
  EXPECT_EQ(Shown(TypeOfVersion("7141", "-[A3E105A-1.05]-")), "7141");
  EXPECT_EQ(Shown(TypeOfVersion("7141", "[A3-1.05]")), "7141");
  EXPECT_EQ(Shown(TypeOfVersion("7141", "A3E105A")), "7141?");
  EXPECT_EQ(Shown(TypeOfVersion("7141", "]A3[")), "7141?");
  EXPECT_EQ(FormOf(TypeOfVersion("7141", "A3 1.05")),
            "by the beginning of a BIOS version without brackets");
}

}  // namespace
}  // namespace hwx
