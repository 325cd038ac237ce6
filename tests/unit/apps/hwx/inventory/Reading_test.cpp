#include "hwx/inventory/Reading.h"

#include <gmock/gmock.h>

#include "hwx/text/Failure.h"
#include "support/TextOf.h"
#include "unit/apps/hwx/inventory/MadeDisks.h"
#include "unit/apps/hwx/inventory/MadeModules.h"

namespace hwx {
namespace {

using ::testing::ElementsAre;

TReading ReadingOf(NQORHWX20::ICIMNamespace& ns) {
  return ReadInstances(AllClasses(ns));
}

std::vector<std::string> PathsIn(const TReading& reading) {
  std::vector<std::string> paths;
  for (const TReadClass& cimClass : reading.fClasses) {
    for (const TReadInstance& instance : cimClass.fInstances)
      paths.push_back(instance.fPath);
  }
  return paths;
}

TEST(Reading, HasTheInstancesOfEachClass) {
  const auto ns = hwxtest::MakeDisks();
  hwxtest::AddDisk(ns, "sda", 5);
  hwxtest::AddNote(ns, "x");
  const TReading reading = ReadingOf(*ns);
  EXPECT_TRUE(reading.fIsComplete);
  EXPECT_EQ(reading.fClasses.size(), 3u);
  EXPECT_EQ(reading.InstanceCount(), 2u);
  EXPECT_THAT(reading.fClasses[1].fKeys, ElementsAre("Name"));
  const TReadInstance& disk = reading.fClasses[1].fInstances.at(0);
  EXPECT_EQ(disk.Find("SIZE")->fStored, TJson(5));
  EXPECT_EQ(disk.Find("Absent"), nullptr);
}

TEST(Reading, TellsValuesInWords) {
  const TReading reading = ReadingOf(*hwxtest::MakeModules());
  const auto& modules = reading.fClasses[0].fInstances;
  EXPECT_EQ(modules[0].Find("Form")->Text(), "DIMM");
  EXPECT_EQ(modules[0].Find("Maker")->Text(), "Acme, \"Inc\"");
  EXPECT_EQ(modules[1].Find("Form")->Text(), "(null)");
}

TEST(KeepProperties, LeavesThoseInTheOrderAskedFor) {
  TReading reading = ReadingOf(*hwxtest::MakeModules());
  KeepProperties(reading, {"maker", "Tag"});
  const TReadInstance& first = reading.fClasses[0].fInstances[0];
  ASSERT_EQ(first.fValues.size(), 2u);
  EXPECT_EQ(first.fValues[0].fName, "Maker");
  EXPECT_EQ(first.fValues[1].fName, "Tag");
}

TEST(KeepProperties, LeavesOutClassesWithNoneOfThem) {
  const auto ns = hwxtest::MakeDisks();
  hwxtest::AddDisk(ns, "sda", 5);
  hwxtest::AddNote(ns, "x");
  TReading reading = ReadingOf(*ns);
  KeepProperties(reading, {"Text"});
  EXPECT_THAT(PathsIn(reading), ElementsAre("EX_Note"));
}

TEST(KeepProperties, RefusesANameThatNoClassHas) {
  TReading reading = ReadingOf(*hwxtest::MakeModules());
  EXPECT_EQ(hwxtest::TextOf<TFailure>([&] {
              KeepProperties(reading, {"Tag", "Capcity"});
            }),
            "no class here has a property Capcity; did you mean Capacity?");
}

TEST(SortInstances, PutsNumbersInTheirOrderAndNullsLast) {
  TReading reading = ReadingOf(*hwxtest::MakeModules());
  SortInstances(reading, "capacity", false);
  EXPECT_THAT(PathsIn(reading), ElementsAre("EX_Module.Tag=\"B\"", "EX_Module.Tag=\"A\""));
  SortInstances(reading, "Capacity", true);
  EXPECT_THAT(PathsIn(reading), ElementsAre("EX_Module.Tag=\"A\"", "EX_Module.Tag=\"B\""));
  SortInstances(reading, "Form", true);
  EXPECT_THAT(PathsIn(reading), ElementsAre("EX_Module.Tag=\"A\"", "EX_Module.Tag=\"B\""));
}

TEST(SortInstances, PutsTextsInTheirOrder) {
  TReading reading = ReadingOf(*hwxtest::MakeModules());
  SortInstances(reading, "Maker", true);
  EXPECT_THAT(PathsIn(reading), ElementsAre("EX_Module.Tag=\"B\"", "EX_Module.Tag=\"A\""));
}

}  // namespace
}  // namespace hwx
