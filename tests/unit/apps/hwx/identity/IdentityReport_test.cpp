#include "hwx/identity/IdentityReport.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

namespace hwx {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

TIdentity WholeIdentity() {
  TIdentity identity;
  identity.fMachineType = {"7915", ""};
  identity.fModel = {"AC1", ""};
  identity.fProductName = {"Rack Server -[7915AC1]-", ""};
  identity.fSerialNumber = {"KQ12345", ""};
  identity.fBiosID = {"VV", ""};
  identity.fMachineTypeByBios = {"7915", ""};
  identity.fSystemName = {"rack7", ""};
  identity.fOperatingSystemName = {"Debian GNU/Linux", ""};
  identity.fOperatingSystemVersion = {"12", ""};
  identity.fOperatingSystemType = {static_cast<unsigned short>(36), ""};
  identity.fOperatingSystemTypeName = {"LINUX", ""};
  identity.fXenDomain = {"guest", ""};
  identity.fDataSourceVersion = {"0.1.0.7", ""};
  identity.fDataSourceBuild = {"7", ""};
  return identity;
}

TEST(IdentityText, AlignsLabelsAndValues) {
  EXPECT_EQ(IdentityText(WholeIdentity()),
            "Machine type              7915\n"
            "Model                     AC1\n"
            "Product name              Rack Server -[7915AC1]-\n"
            "Serial number             KQ12345\n"
            "BIOS identifier           VV\n"
            "Machine type by BIOS      7915\n"
            "System name               rack7\n"
            "Operating system          Debian GNU/Linux\n"
            "Operating system version  12\n"
            "Operating system type     36 (LINUX)\n"
            "Xen domain                guest\n"
            "Data source version       0.1.0.7\n"
            "Data source build         7\n");
}

TEST(IdentityText, PutsAReasonInThePlaceOfAValue) {
  TIdentity identity = WholeIdentity();
  identity.fSerialNumber = Missing<std::string>("needs root");
  EXPECT_THAT(IdentityText(identity), HasSubstr("Serial number             (needs root)\n"));
  identity.fOperatingSystemType = Missing<unsigned short>("no such class");
  EXPECT_THAT(IdentityText(identity), HasSubstr("Operating system type     (no such class)\n"));
}

TEST(IdentityText, SaysThatAGuessIsOne) {
  TIdentity identity = WholeIdentity();
  identity.fMachineType = {"AB30", "", true, "a name"};
  EXPECT_THAT(IdentityText(identity), HasSubstr("Machine type              AB30 (a guess)\n"));
}

TEST(IdentityText, ShowsATypeWithoutAName) {
  TIdentity identity = WholeIdentity();
  identity.fOperatingSystemType = {static_cast<unsigned short>(999), ""};
  identity.fOperatingSystemTypeName = Missing<std::string>("no name for the number 999");
  EXPECT_THAT(IdentityText(identity),
              HasSubstr("Operating system type     999 (no name for the number 999)\n"));
}

TEST(IdentityText, NeverSteersTheTerminal) {
  TIdentity identity = WholeIdentity();
  identity.fProductName = {"\x1b]0;owned\x07", ""};
  identity.fSerialNumber = Missing<std::string>("\"a\nb\" is a filler");
  const std::string text = IdentityText(identity);
  EXPECT_THAT(text, HasSubstr("Product name              \\x1b]0;owned\\x07\n"));
  EXPECT_THAT(text, HasSubstr("Serial number             (\"a\\x0ab\" is a filler)\n"));
}

TEST(IdentityJson, HasAnObjectForEachKey) {
  const json expected = {{"machineType", {{"value", "7915"}}},
                         {"model", {{"value", "AC1"}}},
                         {"productName", {{"value", "Rack Server -[7915AC1]-"}}},
                         {"serialNumber", {{"value", "KQ12345"}}},
                         {"biosIdentifier", {{"value", "VV"}}},
                         {"machineTypeByBios", {{"value", "7915"}}},
                         {"systemName", {{"value", "rack7"}}},
                         {"operatingSystemName", {{"value", "Debian GNU/Linux"}}},
                         {"operatingSystemVersion", {{"value", "12"}}},
                         {"operatingSystemType", {{"value", 36}}},
                         {"operatingSystemTypeName", {{"value", "LINUX"}}},
                         {"xenDomain", {{"value", "guest"}}},
                         {"dataSourceVersion", {{"value", "0.1.0.7"}}},
                         {"dataSourceBuild", {{"value", "7"}}}};
  EXPECT_EQ(json::parse(IdentityJson(WholeIdentity())), expected);
}

TEST(IdentityJson, HasNullWithAReason) {
  TIdentity identity = WholeIdentity();
  identity.fModel = Missing<std::string>("no \"model\"");
  const json expected = {{"value", nullptr}, {"reason", "no \"model\""}};
  EXPECT_EQ(json::parse(IdentityJson(identity))["model"], expected);
}

TEST(IdentityJson, MarksAGuess) {
  TIdentity identity = WholeIdentity();
  identity.fMachineType = {"AB30", "", true, "a name"};
  const json expected = {{"value", "AB30"}, {"guess", true}};
  EXPECT_EQ(json::parse(IdentityJson(identity))["machineType"], expected);
}

TEST(IdentityJson, ReplacesBytesThatAreNoUtf8) {
  TIdentity identity = WholeIdentity();
  identity.fProductName = {"Box\xFF", ""};
  EXPECT_EQ(json::parse(IdentityJson(identity))["productName"]["value"], "Box\xEF\xBF\xBD");
}

TEST(IdentityJson, IsPlainAscii) {
  TIdentity identity = WholeIdentity();
  identity.fProductName = {"B\xC3\xBC\x1b\x7f\xC2\x9B", ""};
  const std::string text = IdentityJson(identity);
  for (const char c : text)
    EXPECT_TRUE(c == '\n' || (c >= ' ' && c < 0x7F)) << static_cast<int>(c);
  EXPECT_EQ(json::parse(text)["productName"]["value"], "B\xC3\xBC\x1b\x7f\xC2\x9B");
}

}  // namespace
}  // namespace hwx
