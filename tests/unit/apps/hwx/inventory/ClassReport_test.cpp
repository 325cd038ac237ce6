#include "hwx/inventory/ClassReport.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "unit/apps/hwx/inventory/MadeDisks.h"
#include "unit/apps/hwx/inventory/MadeModules.h"

namespace hwx {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

std::string Classes(NQORHWX20::ICIMNamespace& ns, std::optional<std::size_t> width) {
  return ClassesText(ReadInstances(AllClasses(ns)), width);
}

TEST(ClassesText, CountsInstances) {
  const auto ns = hwxtest::MakeDisks();
  hwxtest::AddDisk(ns, "sda", 5);
  EXPECT_EQ(Classes(*ns, std::nullopt), "EX_Device  -\nEX_Disk    1\nEX_Note    0\n");
}

TEST(ClassesText, TellsWhatAClassIsFor) {
  const auto ns = hwxtest::MakeModules();
  EXPECT_EQ(Classes(*ns, std::nullopt), "EX_Module  2  A module of memory.\n");
  EXPECT_EQ(Classes(*ns, 80), "EX_Module  2  A module of memory.\n");
  EXPECT_EQ(Classes(*ns, 20), "EX_Module  2\n    A module of\n    memory.\n");
}

TEST(ClassesJson, TellsTheSame) {
  const json shown = json::parse(ClassesJson(ReadInstances(AllClasses(*hwxtest::MakeModules()))));
  EXPECT_EQ(shown, json::parse(R"({"classes": [{"name": "EX_Module", "superclass": null,
    "abstract": false, "description": "A module of memory.", "instances": 2}]})"));
}

TEST(DescribedText, TellsOfEachProperty) {
  const auto ns = hwxtest::MakeModules();
  const std::string text = DescribedText(*ns->FindClass("EX_Module"), std::nullopt);
  EXPECT_THAT(text, testing::StartsWith("EX_Module\n"
                                        "  A module of memory.\n"
                                        "\n"
                                        "  Tag  string, key\n"
                                        "      What it is called.\n"
                                        "\n"
                                        "  Capacity  uint64, in Bytes\n"
                                        "      How much it holds.\n"
                                        "\n"
                                        "  Form  uint16\n"
                                        "      Its shape.\n"
                                        "      8 DIMM, 9.. Other\n"));
  EXPECT_THAT(text, HasSubstr("\n  Maker  string\n\n"));
}

TEST(DescribedText, NamesTheSuperclass) {
  const auto ns = hwxtest::MakeDisks();
  EXPECT_THAT(DescribedText(*ns->FindClass("EX_Disk"), 40),
              HasSubstr("EX_Disk, a subclass of EX_Device\n"));
  EXPECT_THAT(DescribedText(*ns->FindClass("EX_Device"), 40), HasSubstr("EX_Device, abstract\n"));
}

TEST(DescribedJson, TellsTheSame) {
  const auto ns = hwxtest::MakeModules();
  const json shown = json::parse(DescribedJson(*ns->FindClass("EX_Module")));
  EXPECT_EQ(shown["description"], "A module of memory.");
  EXPECT_EQ(shown["properties"][2], json::parse(R"({"name": "Form", "type": "uint16", "key": false,
    "units": null, "description": "Its shape.",
    "values": [{"value": "8", "text": "DIMM"}, {"value": "9..", "text": "Other"}]})"));
  EXPECT_EQ(shown["properties"][0]["key"], true);
}

}  // namespace
}  // namespace hwx
