// What dmidecode makes of made dumps, beside what the walk makes of them.

#include <gtest/gtest.h>

#include <cstdio>

#include "smbios/TableReader.h"
#include "support/Dmidecode.h"
#include "support/SmbiosTables.h"
#include "support/TemporaryDirectory.h"

namespace {

using hwxtest::Bytes;
using hwxtest::Dmidecode;
using hwxtest::SmbiosTables;
using smbios::TStructure;

template <class... Args>
std::string Format(const char* format, Args... args) {
  char text[64];
  std::snprintf(text, sizeof text, format, args...);
  return text;
}

std::string HexRows(const std::uint8_t* bytes, std::size_t size) {
  std::string rows;
  for (std::size_t i = 0; i < size; ++i) {
    rows += Format(i % 16 == 0 ? "\t\t%02X" : " %02X", unsigned{bytes[i]});
    if (i % 16 == 15 || i + 1 == size) rows += "\n";
  }
  return rows;
}

// dmidecode's own form of a structure, in its mode that shows the bytes undecoded.
std::string Undecoded(const TStructure& structure) {
  const int told = structure.Bytes()[1];  // what it says itself, though dmidecode may know better
  std::string text = Format("Handle 0x%04X, DMI type %d, %d bytes\n", unsigned{structure.Handle()},
                            int{structure.Type()}, told);
  text += "\tHeader and Data:\n" + HexRows(structure.Bytes(), structure.FormattedSize());
  if (structure.HasStrings()) text += "\tStrings:\n";
  for (const std::string_view string : structure.Strings()) {
    // The string's own NUL byte stands behind it, and is shown too.
    text += HexRows(reinterpret_cast<const std::uint8_t*>(string.data()), string.size() + 1);
    text += "\t\t";
    for (const char c : string)
      text += c < 32 || c == 127 ? '.' : c;
    text += "\n";
  }
  return text + "\n";
}

class DmidecodeComparison : public testing::Test {
 protected:
  void SetUp() override {
    if (!hwxtest::HasDmidecode()) GTEST_SKIP() << "SKIPPED: dmidecode is not installed";
  }

  void ExpectSameStructures(const Bytes& dump) {
    hwxtest::WriteBytes(fDump, dump);
    const std::string theirs = Dmidecode("--dump --from-dump " + fDump);
    std::string ours;
    smbios::ReadTables(fDump).ForEach([&](const TStructure& structure) {
      ours += Undecoded(structure);
      return true;
    });
    ASSERT_NE(theirs.find("Handle 0x"), std::string::npos) << theirs;
    EXPECT_EQ(theirs.substr(theirs.find("Handle 0x")), ours);
  }

  hwxtest::TemporaryDirectory fDirectory;
  const std::string fDump = fDirectory / "dump";
};

SmbiosTables SomeMachine() {
  SmbiosTables tables;
  tables.AddBios("Maker", "[AB12-1.05]", "01/02/2020");
  tables.AddSystem({"M\xC3\xA4ker", "Box 5 -[1234ABC]-", "v1", "SN99", "sku", " family "});
  for (int i = 0; i < 40; ++i) {
    tables.Add(17, Bytes(static_cast<std::size_t>(i), 3), {"DIMM " + std::to_string(i), "\x01"});
  }
  tables.Add(200, Bytes(251, 0x5A)).Add(221, {}, std::vector<std::string>(200, "x"));
  tables.AddEnd();
  return tables;
}

TEST_F(DmidecodeComparison, SameStructuresFrom32BitDump) {
  ExpectSameStructures(SomeMachine().Dump32());
}

TEST_F(DmidecodeComparison, SameStructuresFrom64BitDump) {
  ExpectSameStructures(SomeMachine().Dump64());
}

TEST_F(DmidecodeComparison, SameStructuresUpToTheEndMarkerOf64BitDump) {
  ExpectSameStructures(SomeMachine().Add(200, {1, 2, 3}).Dump64());
}

TEST_F(DmidecodeComparison, SameStructuresUpToTheCountOf32BitDump) {
  Bytes dump = SomeMachine().Dump32();
  hwxtest::PutNumber(dump, 0x1C, 2, 7);
  hwxtest::FixChecksums32(dump);
  ExpectSameStructures(dump);
}

TEST_F(DmidecodeComparison, SameStructuresFromLegacyDump) {
  ExpectSameStructures(SomeMachine().LegacyDump());
}

TEST_F(DmidecodeComparison, SameStructuresBehindTheEndMarkerOf32BitDump) {
  ExpectSameStructures(SomeMachine().Add(200, {1, 2, 3}).Add(17, Bytes(40, 1)).Dump32());
}

TEST_F(DmidecodeComparison, SameStructuresInFrontOfDamage) {
  ExpectSameStructures(SomeMachine().Add(200, {1}).AddRaw(Bytes(8, 0)).Add(201, {1}).Dump32());
}

TEST_F(DmidecodeComparison, SameStructuresWhereFewerBytesAreThereThanTold) {
  const Bytes dump = SomeMachine().Dump64();
  ExpectSameStructures(Bytes(dump.begin(), dump.end() - 6));
}

TEST_F(DmidecodeComparison, SameManagementDeviceThatTellsTooLongALength) {
  SmbiosTables tables = SomeMachine();
  Bytes device = SmbiosTables().Add(34, {1, 3, 0, 0, 0, 0, 3}, {"LM78-1", "next"}).Table();
  device[1] = 16;
  ExpectSameStructures(tables.AddRaw(device).Dump32());
}

TEST_F(DmidecodeComparison, SameSystemInformation) {
  SomeMachine().WriteDump(fDump);
  const smbios::TTables tables = smbios::ReadTables(fDump);
  const TStructure system = tables.FindFirst(smbios::kTypeSystemInformation).value();
  const auto theirs = [&](const std::string& keyword) {
    return Dmidecode("--string " + keyword + " --from-dump " + fDump);
  };
  EXPECT_EQ(theirs("system-product-name"), std::string(system.StringAt(5)) + "\n");
  EXPECT_EQ(theirs("system-version"), std::string(system.StringAt(6)) + "\n");
  EXPECT_EQ(theirs("system-serial-number"), std::string(system.StringAt(7)) + "\n");
}

TEST_F(DmidecodeComparison, BothRefuseAWrongChecksum) {
  Bytes dump = SomeMachine().Dump64();
  ++dump[5];
  hwxtest::WriteBytes(fDump, dump);
  EXPECT_EQ(Dmidecode("--dump --from-dump " + fDump).find("Handle 0x"), std::string::npos);
  EXPECT_FALSE(smbios::ReadTables(fDump).IsSound());
}

}  // namespace
