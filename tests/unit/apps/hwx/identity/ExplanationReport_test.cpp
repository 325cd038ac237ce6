#include "hwx/identity/ExplanationReport.h"

#include <gtest/gtest.h>

namespace hwx {
namespace {

std::vector<TExplanation> SomeExplanations() {
  return {{"serialNumber",
           "Serial number",
           {{"schema query", {"KQ1", ""}, kTaken},
            {"type 1", {"KQ2", ""}, kDiffers},
            {"sysfs", {"None", ""}, kFiller}},
           true},
          {"model",
           "Model",
           {{"schema query", Missing<std::string>("needs root"), kMissing},
            {"type 1", {"AC1", ""}, kNotTaken},
            {"sysfs", {"AC1", ""}, kAgrees}},
           false}};
}

TEST(ExplanationText, HasAParagraphForEachFact) {
  EXPECT_EQ(ExplanationText(SomeExplanations()),
            "\nSerial number: the sources disagree\n"
            "  schema query  taken    KQ1\n"
            "  type 1        differs  KQ2\n"
            "  sysfs         filler   None\n"
            "\nModel\n"
            "  schema query  missing    (needs root)\n"
            "  type 1        not taken  AC1\n"
            "  sysfs         agrees     AC1\n");
}

TEST(ExplanationText, TellsTheFormOfAGuess) {
  const std::vector<TExplanation> guess = {
      {"model", "Model", {{"type 1", {"AB3", "", true, "a short name"}, kTaken}}, false}};
  EXPECT_EQ(ExplanationText(guess), "\nModel\n  type 1  taken  AB3 (a guess: a short name)\n");
  const TJson expected = {{"source", "type 1"},
                          {"verdict", "taken"},
                          {"value", "AB3"},
                          {"guess", true},
                          {"form", "a short name"}};
  EXPECT_EQ(ExplanationObject(guess)["model"]["sources"][0], expected);
}

TEST(ExplanationText, TellsNoFormOfAFact) {
  const std::vector<TExplanation> fact = {
      {"model", "Model", {{"type 1", {"AC1", "", false, "in brackets"}, kTaken}}, false}};
  EXPECT_EQ(ExplanationText(fact), "\nModel\n  type 1  taken  AC1\n");
  EXPECT_EQ(ExplanationObject(fact)["model"]["sources"][0]["form"], "in brackets");
  EXPECT_FALSE(ExplanationObject(fact)["model"]["sources"][0].contains("guess"));
}

TEST(ExplanationText, NeverSteersTheTerminal) {
  EXPECT_EQ(ExplanationText({{"k", "Fact", {{"type 1", {"\x1b[2J", ""}, kTaken}}, false}}),
            "\nFact\n  type 1  taken  \\x1b[2J\n");
}

TEST(ExplanationObject, HasAnObjectForEachFact) {
  const TJson expected = {{"serialNumber",
                           {{"disagree", true},
                            {"sources",
                             {{{"source", "schema query"}, {"verdict", "taken"}, {"value", "KQ1"}},
                              {{"source", "type 1"}, {"verdict", "differs"}, {"value", "KQ2"}},
                              {{"source", "sysfs"}, {"verdict", "filler"}, {"value", "None"}}}}}},
                          {"model",
                           {{"disagree", false},
                            {"sources",
                             {{{"source", "schema query"},
                               {"verdict", "missing"},
                               {"value", nullptr},
                               {"reason", "needs root"}},
                              {{"source", "type 1"}, {"verdict", "not taken"}, {"value", "AC1"}},
                              {{"source", "sysfs"}, {"verdict", "agrees"}, {"value", "AC1"}}}}}}};
  EXPECT_EQ(ExplanationObject(SomeExplanations()), expected);
}

TEST(ExplanationObject, IsAnObjectWithoutFactsToo) {
  EXPECT_EQ(ExplanationObject({}), TJson::object());
}

}  // namespace
}  // namespace hwx
