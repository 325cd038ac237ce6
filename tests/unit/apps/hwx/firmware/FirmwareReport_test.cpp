#include "hwx/firmware/FirmwareReport.h"

#include <gmock/gmock.h>

#include "hwx/firmware/StructureNames.h"
#include "hwx/text/Json.h"
#include "support/SmbiosTables.h"

namespace hwx {
namespace {

using hwxtest::Bytes;
using hwxtest::SmbiosTables;
using smbios::TTables;
using ::testing::HasSubstr;

SmbiosTables FirmwareTables() {
  return SmbiosTables()
      .AddBios("Maker", "[AB12-1.05]", "01/02/2020")
      .Add(200, {9, 9})
      .Add(17, {1}, {"DIMM 1"})
      .AddEnd();
}

TTables Tables(const Bytes& dump) {
  return TTables::FromDump(dump);
}

TEST(FirmwareText, HasAParagraphForEachStructure) {
  EXPECT_EQ(FirmwareText("/x/dump", Tables(FirmwareTables().Dump64())),
            "/x/dump: version 3.2, 64-bit entry point, 4 structures in 81 bytes\n"
            "\nType 0, BIOS Information, handle 0x0000, 54 bytes (24 formatted)\n"
            "  1  Maker\n"
            "  2  [AB12-1.05]\n"
            "  3  01/02/2020\n"
            "\nType 200, handle 0x0001, 8 bytes (6 formatted)\n"
            "\nType 17, Memory Device, handle 0x0002, 13 bytes (5 formatted)\n"
            "  1  DIMM 1\n"
            "\nType 127, End-of-Table, handle 0x0003, 6 bytes (4 formatted)\n");
}

TEST(FirmwareText, TellsThe32BitForm) {
  EXPECT_THAT(FirmwareText("x", Tables(SmbiosTables().AddEnd().Dump32())),
              HasSubstr("x: version 2.8, 32-bit entry point, 1 structure in 6 bytes\n"));
}

TEST(FirmwareText, TellsTheLegacyFormAndThatThereIsNone) {
  EXPECT_THAT(FirmwareText("x", Tables(SmbiosTables().AddEnd().LegacyDump())),
              HasSubstr("x: version 2.0, legacy entry point, 1 structure in 6 bytes\n"));
  const SmbiosTables bare = SmbiosTables().AddBios("Maker", "1", "").AddSystem({"Maker", "Box"});
  EXPECT_THAT(FirmwareText("x", Tables(bare.Table())),
              HasSubstr("x: version 2.4, no entry point, 2 structures in "));
}

TEST(FirmwareText, NeverSteersTheTerminal) {
  const std::string text =
      FirmwareText("a\nb", Tables(SmbiosTables().Add(11, {1}, {"\x1b[2J\xff"}).AddEnd().Dump64()));
  EXPECT_THAT(text, HasSubstr("a\\x0ab: version"));
  EXPECT_THAT(text, HasSubstr("  1  \\x1b[2J\\xff\n"));
}

TEST(FirmwareJson, HasAnObjectForEachStructure) {
  const TJson json = TJson::parse(FirmwareJson("/x/dump", Tables(FirmwareTables().Dump64())));
  EXPECT_EQ(json["location"], "/x/dump");
  EXPECT_EQ(json["version"], "3.2");
  EXPECT_EQ(json["entryPoint"], "64-bit");
  EXPECT_EQ(json["size"], 81);
  ASSERT_EQ(json["structures"].size(), 4u);
  const TJson bios = {
      {"handle", 0},         {"type", 0},  {"name", "BIOS Information"},
      {"formattedSize", 24}, {"size", 54}, {"strings", {"Maker", "[AB12-1.05]", "01/02/2020"}}};
  EXPECT_EQ(json["structures"][0], bios);
  EXPECT_EQ(json["structures"][1]["name"], nullptr);
  EXPECT_EQ(json["structures"][1]["strings"], TJson::array());
}

TEST(FirmwareJson, TellsTheDamageBehindTheStructures) {
  const TTables tables = Tables(SmbiosTables().Add(200, {9}).AddRaw(Bytes(6, 0)).Dump32());
  const TJson json = TJson::parse(FirmwareJson("x", tables));
  EXPECT_EQ(json["damage"], "structure 1 at byte 7 is shorter than its header");
  EXPECT_EQ(json["size"], 7);
  EXPECT_EQ(json["structures"].size(), 1u);
  EXPECT_EQ(TJson::parse(FirmwareJson("x", Tables(FirmwareTables().Dump32())))["damage"], nullptr);
}

TEST(FirmwareJson, HasNoEntryPointOfABareTable) {
  const SmbiosTables bare = SmbiosTables().AddBios("Maker", "1", "").AddSystem({"Maker", "Box"});
  const TJson json = TJson::parse(FirmwareJson("x", Tables(bare.Table())));
  EXPECT_EQ(json["entryPoint"], nullptr);
  EXPECT_EQ(json["version"], "2.4");
}

TEST(FirmwareJson, ReplacesBytesThatAreNoUtf8) {
  const TTables tables = Tables(SmbiosTables().Add(11, {1}, {"a\xFF"}).AddEnd().Dump64());
  EXPECT_EQ(TJson::parse(FirmwareJson("x", tables))["structures"][0]["strings"][0],
            "a\xEF\xBF\xBD");
}

TEST(StructureNames, NameTheTypesOfTheFormat) {
  EXPECT_STREQ(StructureName(0), "BIOS Information");
  EXPECT_STREQ(StructureName(1), "System Information");
  EXPECT_STREQ(StructureName(4), "Processor Information");
  EXPECT_STREQ(StructureName(17), "Memory Device");
  EXPECT_STREQ(StructureName(32), "System Boot Information");
  EXPECT_STREQ(StructureName(43), "TPM Device");
  EXPECT_STREQ(StructureName(46), "String Property");
  EXPECT_STREQ(StructureName(126), "Inactive");
  EXPECT_STREQ(StructureName(127), "End-of-Table");
  for (const int type : {47, 125, 128, 255})
    EXPECT_EQ(StructureName(static_cast<std::uint8_t>(type)), nullptr);
}

}  // namespace
}  // namespace hwx
