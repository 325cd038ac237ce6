#include "hwx/filter/Filter.h"

#include <gmock/gmock.h>

#include "hwx/text/Failure.h"
#include "support/TextOf.h"
#include "unit/apps/hwx/inventory/MadeModules.h"

namespace hwx {
namespace {

using ::testing::ElementsAre;

class Filter : public testing::Test {
 protected:
  TReading Read() const { return ReadInstances(AllClasses(*fNamespace)); }

  // The tags of the modules that match.
  std::string Matching(const std::string& condition) const {
    TReading reading = Read();
    KeepMatching(reading, TFilter(condition));
    std::string tags;
    for (const TReadInstance& module : reading.fClasses[0].fInstances)
      tags += module.Find("Tag")->fStored.get<std::string>();
    return tags;
  }

  const boost::shared_ptr<NQORHWX20::TMemoryNamespace> fNamespace = hwxtest::MakeModules();
};

TEST_F(Filter, ComparesNumbersAsTheyAreStored) {
  EXPECT_EQ(Matching("Capacity = 17179869184"), "A");
  EXPECT_EQ(Matching("Capacity > 8589934592"), "A");
  EXPECT_EQ(Matching("Capacity >= 8589934592"), "AB");
  EXPECT_EQ(Matching("Capacity < 8589934592"), "");
  EXPECT_EQ(Matching("Capacity <= 8589934592"), "B");
  EXPECT_EQ(Matching("Capacity != 8589934592"), "A");
}

TEST_F(Filter, ReckonsWithUnits) {
  EXPECT_EQ(Matching("Capacity>8GiB"), "A");
  EXPECT_EQ(Matching("Capacity=16gib"), "A");
  EXPECT_EQ(Matching("Capacity<10GB"), "B");
  EXPECT_EQ(Matching("Speed>=3.2GHz"), "A");
  EXPECT_EQ(Matching("Speed=3200"), "A");
  EXPECT_EQ(Matching("Capacity>1MHz"), "");
}

TEST_F(Filter, ComparesTextsWithoutRegardToCase) {
  EXPECT_EQ(Matching("Maker = bolt"), "B");
  EXPECT_EQ(Matching("Maker ~ \"acme\""), "A");
  EXPECT_EQ(Matching("Maker !~ acme"), "B");
  EXPECT_EQ(Matching("Maker != 'BOLT'"), "A");
  EXPECT_EQ(Matching("maker > b"), "B");
}

TEST_F(Filter, KnowsWords) {
  EXPECT_EQ(Matching("Form = DIMM"), "A");
  EXPECT_EQ(Matching("Form = 8"), "A");
  EXPECT_EQ(Matching("Form ~ dim"), "A");
  EXPECT_EQ(Matching("Made ~ 2022-03"), "A");
}

TEST_F(Filter, KnowsWhatHasNoValue) {
  EXPECT_EQ(Matching("Form"), "A");
  EXPECT_EQ(Matching("not Form"), "B");
  EXPECT_EQ(Matching("Form = null"), "B");
  EXPECT_EQ(Matching("Form != null"), "A");
  EXPECT_EQ(Matching("Maker = \"null\""), "");
  EXPECT_EQ(Matching("Form < 100"), "A");
}

TEST_F(Filter, JoinsConditions) {
  EXPECT_EQ(Matching("Capacity>8GiB and Maker~acme"), "A");
  EXPECT_EQ(Matching("Tag=A and Tag=B"), "");
  EXPECT_EQ(Matching("Tag=A or Tag=B"), "AB");
  EXPECT_EQ(Matching("Tag=B or Tag=A and Tag=B"), "B");
  EXPECT_EQ(Matching("(Tag=B or Tag=A) and Tag=A"), "A");
  EXPECT_EQ(Matching("NOT (Tag=A OR Form)"), "B");
}

TEST_F(Filter, NamesTheProperties) {
  EXPECT_THAT(TFilter("a=1 or not (b and c~x)").PropertyNames(), ElementsAre("a", "b", "c"));
}

TEST_F(Filter, RefusesAPropertyThatNoClassHas) {
  TReading reading = Read();
  EXPECT_EQ(hwxtest::TextOf<TFailure>([&] { KeepMatching(reading, TFilter("Makr=x")); }),
            "no class here has a property Makr; did you mean Maker?");
}

TEST_F(Filter, TellsThePlaceOfWhatIsWrong) {
  const auto wrong = [](const std::string& text) {
    return hwxtest::TextOf<TFailure>([&] { TFilter filter(text); });
  };
  const std::string front = "the condition is wrong at character ";
  EXPECT_EQ(wrong(""), front + "1: the name of a property is needed, not the end");
  EXPECT_EQ(wrong("a="), front + "3: a value is needed, not the end");
  EXPECT_EQ(wrong("a=)"), front + "3: a value is needed, not \")\"");
  EXPECT_EQ(wrong("a b"), front + "3: \"b\" doesn't belong here");
  EXPECT_EQ(wrong("(a"), front + "3: \")\" is missing before the end");
  EXPECT_EQ(wrong("a='x"), front + "3: the quotation mark isn't closed");
  EXPECT_EQ(wrong("a and"), front + "6: the name of a property is needed, not the end");
  EXPECT_EQ(wrong("a!b"), front + "2: \"!\" doesn't belong here");
}

TEST_F(Filter, GoesNotTooDeep) {
  EXPECT_EQ(Matching(std::string(90, '(') + "Tag=A" + std::string(90, ')')), "A");
  EXPECT_THROW(TFilter(std::string(100000, '(')), TFailure);
}

}  // namespace
}  // namespace hwx
