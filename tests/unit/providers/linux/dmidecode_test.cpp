// What the readers make of structures, beside what dmidecode makes of them: every type that is
// published, at every length from the oldest version of the format to beyond the newest, with the
// numbers at which fields change their meaning.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "providers/linux/BiosInformation.h"
#include "providers/linux/Enclosures.h"
#include "providers/linux/MemoryModules.h"
#include "providers/linux/Processors.h"
#include "providers/linux/SystemInformation.h"
#include "smbios/TTables.h"
#include "support/Dmidecode.h"
#include "support/DmidecodeValues.h"
#include "support/SmbiosTables.h"
#include "support/Structures.h"
#include "support/TemporaryDirectory.h"

namespace {

using namespace linux_machine;
using hwxtest::Amount;
using hwxtest::Bytes;
using hwxtest::DmidecodeValues;
using hwxtest::SmbiosTables;
using smbios::TStructure;

const std::vector<std::string> kTexts = {"one", " two ", "3/4/2021", "04/05/2019", "\xC3\xA9-five"};

// Numbers that stand for something else at a place: not known, see elsewhere, in another unit.
struct TSpecial {
  std::size_t fOffset;
  std::size_t fWidth;
  std::vector<std::uint64_t> fNumbers;
};

struct TShape {
  int fType;
  std::size_t fOldest;  // length of the structure
  std::size_t fNewest;
  std::vector<std::size_t> fTexts;  // where the numbers of strings stand
  std::vector<TSpecial> fSpecials;
};

const TShape kBios = {0, 0x12, 0x1A, {0x04, 0x05, 0x08}, {{0x06, 2, {0, 0xF000, 0xFFFF}}}};
const TShape kSystem = {1, 0x08, 0x1B, {0x04, 0x05, 0x06, 0x07, 0x19, 0x1A}, {}};
const TShape kBoard = {2, 0x08, 0x0F, {0x04, 0x05, 0x06, 0x07, 0x08, 0x0A}, {{0x0E, 1, {0}}}};
const TShape kChassis = {3,
                         0x09,
                         0x20,
                         {0x04, 0x06, 0x07, 0x08, 0x15, 0x18, 0x1B},
                         {{0x13, 1, {0, 1, 2}}, {0x14, 1, {0, 3}}}};
const TShape kProcessor = {4,
                           0x1A,
                           0x32,
                           {0x04, 0x07, 0x10, 0x20, 0x21, 0x22},
                           {{0x05, 1, {3}},
                            {0x06, 1, {0xFE, 0xB3, 2}},
                            {0x18, 1, {0x41, 0x42, 0x47, 0x40, 0x01}},
                            {0x23, 1, {0, 1, 64, 0xFF}},
                            {0x24, 1, {0, 1, 64, 0xFF}},
                            {0x25, 1, {0, 2, 128, 0xFF}},
                            {0x28, 2, {0x100, 0x201}},
                            {0x2C, 2, {1, 300}},
                            {0x2E, 2, {1, 600}}}};
const TShape kLanguages = {13, 0x16, 0x16, {0x15}, {{0x04, 1, {0, 1, 3, 5}}}};
const TShape kArray = {16,
                       0x0F,
                       0x17,
                       {},
                       {{0x06, 1, {3, 5, 6}},
                        {0x07, 4, {0, 0x80000000, 0x7FFFFFFF, 0x1000000}},
                        {0x0F, 8, {std::uint64_t{1} << 42}}}};
const TShape kModule = {17,
                        0x15,
                        0x5C,
                        {0x10, 0x11, 0x17, 0x18, 0x19, 0x1A},
                        {{0x08, 2, {0, 72, 0xFFFF}},
                         {0x0A, 2, {0, 64, 0xFFFF}},
                         {0x0C, 2, {0x7FFF, 0x7FFF, 0xFFFF, 0, 0x8200, 0x4000}},
                         {0x15, 2, {0, 0xFFFF, 3200}},
                         {0x1C, 4, {0x8000, 0x100000, 0x7FFFFFFF}},
                         {0x20, 2, {0, 0xFFFF, 2933}},
                         {0x54, 4, {0, 70000}},
                         {0x58, 4, {0, 66000}}}};

// Fields of a structure of that length: any bytes, often the first and last ones of a range.
Bytes MadeFields(const TShape& shape, std::size_t length, std::mt19937& random) {
  static constexpr std::uint8_t kEdges[] = {0, 1, 2, 3, 0x7F, 0x80, 0xFE, 0xFF};
  const auto upTo = [&random](std::size_t last) {
    return std::uniform_int_distribution<std::size_t>(0, last)(random);
  };
  Bytes fields(length - 4);
  for (std::uint8_t& byte : fields)
    byte = upTo(1) == 0 ? kEdges[upTo(7)] : static_cast<std::uint8_t>(upTo(255));
  for (const std::size_t place : shape.fTexts)
    if (place < length) fields[place - 4] = static_cast<std::uint8_t>(upTo(kTexts.size() + 1));
  for (const TSpecial& special : shape.fSpecials)
    if (special.fOffset + special.fWidth <= length && upTo(3) != 0)
      hwxtest::PutField(fields, special.fOffset, special.fWidth,
                        special.fNumbers[upTo(special.fNumbers.size() - 1)]);
  return fields;
}

SmbiosTables MadeTables(const TShape& shape, std::mt19937& random) {
  constexpr int kOfEachLength = 40;
  SmbiosTables tables;
  for (std::size_t length = shape.fOldest; length <= shape.fNewest + 3; ++length)
    for (int i = 0; i < kOfEachLength; ++i)
      tables.Add(shape.fType, MadeFields(shape, length, random), kTexts);
  return tables.AddEnd();
}

template <typename Value>
std::optional<Value> Sought(const std::map<std::string, Value>& words, const std::string& word) {
  const auto found = words.find(word);
  return found == words.end() ? std::nullopt : std::optional(found->second);
}

class DmidecodeValuesOf : public testing::Test {
 public:
  using TCompare = void (DmidecodeValuesOf::*)(const TStructure&);
  using TNumbers = std::map<std::string, std::uint16_t>;

  void SetUp() override {
    if (!hwxtest::HasDmidecode()) GTEST_SKIP() << "SKIPPED: dmidecode is not installed";
  }

  void TearDown() override { RecordProperty("values", fCompared); }

  void Compare(const TShape& shape, TCompare compare) {
    std::mt19937 random(static_cast<unsigned>(shape.fType) + 1);
    CompareDump(MadeTables(shape, random).Dump64(), shape.fType, compare);
  }

  void CompareDump(const Bytes& dump, int type, TCompare compare) {
    hwxtest::WriteBytes(fDump, dump);
    fTheirs = hwxtest::ReadDmidecodeValues(fDump);
    const smbios::TTables tables = smbios::TTables::FromDump(dump);
    ASSERT_TRUE(tables.IsSound()) << tables.Reason();
    fMajor = tables.EntryPoint().fMajor;
    fMinor = tables.EntryPoint().fMinor;
    const int before = fCompared;
    tables.ForEach([&](const TStructure& structure) {
      if (structure.Type() == type) {
        fValues = &fTheirs[structure.Handle()];
        (this->*compare)(structure);
      }
      return !HasFailure();
    });
    EXPECT_GT(fCompared - before, 300);
  }

  // What dmidecode shows; missing where it shows nothing, or that it doesn't know.
  std::optional<std::string> Theirs(const char* label) const {
    return hwxtest::KnownValue(*fValues, label);
  }

  template <typename Value>
  void Expect(const char* label, const std::optional<Value>& theirs,
              const std::optional<Value>& ours) {
    ++fCompared;
    EXPECT_EQ(theirs, ours) << label << " of\n" << fValues->fText;
  }

  void ExpectText(const char* label, const std::optional<std::string>& ours) {
    Expect(label, Theirs(label),
           ours ? std::optional(hwxtest::AsDmidecodeShows(*ours)) : std::nullopt);
  }

  template <typename Number>
  void ExpectNumber(const char* label, const std::optional<Number>& ours) {
    const auto theirs = Theirs(label);
    Expect(label, theirs ? std::optional(Amount(*theirs)) : std::nullopt,
           ours ? std::optional(static_cast<std::uint64_t>(*ours)) : std::nullopt);
  }

  // dmidecode cuts what doesn't fit its unit, and the readers what doesn't fit theirs, of so many
  // bytes.
  void ExpectSize(const char* label, const std::optional<std::uint64_t>& ours, std::uint64_t unit) {
    const auto theirs = Theirs(label);
    const std::uint64_t coarser = theirs ? std::max(unit, hwxtest::UnitOf(*theirs)) : unit;
    Expect(
        label,
        theirs ? std::optional(Amount(*theirs) * hwxtest::UnitOf(*theirs) / coarser) : std::nullopt,
        ours ? std::optional(*ours * unit / coarser) : std::nullopt);
  }

  // The highest bit of a wide speed has no meaning in the format; dmidecode counts it.
  void ExpectSpeed(const char* label, const std::optional<std::uint32_t>& ours) {
    if (Amount(Theirs(label).value_or("0")) <= 0x7FFFFFFF) ExpectNumber(label, ours);
  }

  // Compares where dmidecode's word is one of those.
  void ExpectMeaning(const char* label, const std::string& word, const TNumbers& numbers,
                     const std::optional<std::uint16_t>& ours) {
    if (const auto number = Sought(numbers, word)) Expect(label, number, ours);
  }

  void CompareBios(const TStructure& structure);
  void CompareSystem(const TStructure& structure);
  void CompareBoard(const TStructure& structure);
  void CompareChassis(const TStructure& structure);
  void CompareProcessor(const TStructure& structure);
  void CompareCores(const TProcessor& processor);
  void CompareLanguages(const TStructure& structure);
  void CompareArray(const TStructure& structure);
  void CompareModule(const TStructure& structure);

  const hwxtest::TemporaryDirectory fDirectory;
  const std::string fDump = fDirectory / "dump";
  std::map<int, DmidecodeValues> fTheirs;
  DmidecodeValues* fValues = nullptr;  // of the structure that is compared
  int fMajor = 0;
  int fMinor = 0;
  int fCompared = 0;
};

void DmidecodeValuesOf::CompareBios(const TStructure& structure) {
  const TBios bios = ParseBios(structure);
  ExpectText("Vendor", bios.fManufacturer);
  ExpectText("Version", bios.fVersion);
  static const std::map<std::string, int> kDays = {{"3/4/2021", 4}, {"04/05/2019", 5}};
  Expect("Release Date", Sought(kDays, Theirs("Release Date").value_or("")),
         bios.fReleaseDate ? std::optional<int>(bios.fReleaseDate->fDay) : std::nullopt);
  const auto address = Theirs("Address");
  Expect("Address",
         address ? std::optional<std::uint64_t>(std::stoull(*address, nullptr, 16)) : std::nullopt,
         bios.fStartingAddress);
}

void DmidecodeValuesOf::CompareSystem(const TStructure& structure) {
  const auto system = ParseSystemInformation(structure, fMajor, fMinor);
  ExpectText("Manufacturer", system.fManufacturer);
  ExpectText("Product Name", system.fProductName);
  ExpectText("Version", system.fVersion);
  ExpectText("Serial Number", system.fSerialNumber);
  ExpectText("UUID", system.fUUID);
  ExpectText("SKU Number", system.fSKUNumber);
  ExpectText("Family", system.fFamily);
}

void DmidecodeValuesOf::CompareBoard(const TStructure& structure) {
  const TBoard board = ParseBoard(structure, 0).value();
  ExpectText("Manufacturer", board.fManufacturer);
  ExpectText("Product Name", board.fModel);
  ExpectText("Version", board.fVersion);
  ExpectText("Serial Number", board.fSerialNumber);
  ExpectText("Asset Tag", board.fAssetTag);
  ExpectText("Location In Chassis", board.fLocation);
  const bool hasFeatures = fValues->fValues.count("Features") == 1;
  const auto feature = [&](const char* words) {
    return hasFeatures ? std::optional(fValues->Lists("Features", words)) : std::nullopt;
  };
  Expect("hosting", feature("Board is a hosting board"), board.fHosting);
  Expect("daughter", feature("Board requires at least one daughter board"),
         board.fRequiresDaughterBoard);
  Expect("removable", feature("Board is removable"), board.fRemovable);
  Expect("replaceable", feature("Board is replaceable"), board.fReplaceable);
  Expect("hot swappable", feature("Board is hot swappable"), board.fHotSwappable);
}

void DmidecodeValuesOf::CompareChassis(const TStructure& structure) {
  const TChassis chassis = ParseChassis(structure, 0).value();
  ExpectText("Manufacturer", chassis.fManufacturer);
  ExpectText("Version", chassis.fVersion);
  ExpectText("Serial Number", chassis.fSerialNumber);
  ExpectText("Asset Tag", chassis.fAssetTag);
  ExpectText("SKU Number", chassis.fSKU);
  Expect("Lock", std::optional(Theirs("Lock") == "Present"), chassis.fLockPresent);
  Expect("rack", std::optional(Theirs("Type") == "Rack Mount Chassis"),
         std::optional(chassis.fRackMountable == 1));
  const auto units = Theirs("Height");
  Expect("Height", units ? std::optional(static_cast<float>(Amount(*units)) * 1.75F) : std::nullopt,
         chassis.fHeight);
  ExpectNumber("Number Of Power Cords", chassis.fPowerCords);
  ExpectMeaning("Security Status", Theirs("Security Status").value_or(""),
                {{"Other", 1},
                 {"None", 3},
                 {"External Interface Locked Out", 4},
                 {"External Interface Enabled", 5}},
                chassis.fSecurityBreach);
  if (fValues->fValues.count("Security Status") == 0)
    Expect<std::uint16_t>("Security Status", std::nullopt, chassis.fSecurityBreach);
}

void DmidecodeValuesOf::CompareProcessor(const TStructure& structure) {
  const auto processor = ParseProcessor(structure, 0);
  const std::string status = Theirs("Status").value_or("");
  const std::string populated = "Populated, ";
  const bool isThere = Theirs("Type") == "Central Processor" && status.rfind(populated, 0) == 0;
  ASSERT_EQ(isThere, processor.has_value()) << fValues->fText;
  if (!isThere) return;
  ExpectText("Socket Designation", processor->fSocket);
  ExpectText("Manufacturer", processor->fManufacturer);
  ExpectText("Version", processor->fName);
  ExpectNumber("External Clock", processor->fExternalBusClockSpeed);
  ExpectNumber("Max Speed", processor->fMaxClockSpeed);
  ExpectNumber("Current Speed", processor->fCurrentClockSpeed);
  ExpectMeaning("Status", status.substr(populated.size()),
                {{"Unknown", 0},
                 {"Enabled", 1},
                 {"Disabled By User", 2},
                 {"Disabled By BIOS", 3},
                 {"Idle", 4},
                 {"Other", 7}},
                processor->fStatus);
  // Of the families, some whose numbers are known without a list of hundreds.
  ExpectMeaning("Family", Theirs("Family").value_or(""),
                {{"Xeon", 0xB3}, {"Other", 1}, {"ARMv7", 0x100}, {"RISC-V RV64", 0x201}},
                processor->fFamily);
  CompareCores(*processor);
}

void DmidecodeValuesOf::CompareCores(const TProcessor& processor) {
  static const std::pair<const char*, std::uint16_t> kFeatures[] = {
      {"64-bit capable", 2},
      {"Hardware Thread", 5},
      {"Execute Protection", 6},
      {"Enhanced Virtualization", 4},
      {"Power/Performance Control", 7}};
  ExpectNumber("Core Enabled", processor.fEnabledCores);
  ExpectNumber("Thread Count", processor.fThreads);
  std::optional<std::vector<std::uint16_t>> features;
  if (fValues->fValues.count("Characteristics") == 1) {
    features.emplace();
    for (const auto& [words, number] : kFeatures)
      if (fValues->Lists("Characteristics", words)) features->push_back(number);
  }
  Expect("Characteristics", features, processor.fCharacteristics);
}

void DmidecodeValuesOf::CompareLanguages(const TStructure& structure) {
  TBios bios;
  ParseBiosLanguages(structure, bios);
  ExpectText("Currently Installed Language", bios.fCurrentLanguage);
  std::vector<std::string> theirs;
  for (const std::string& text : fValues->fLists["Installable Languages"])
    if (hwxtest::IsKnown(text)) theirs.push_back(text);
  std::vector<std::string> ours;
  for (const std::string& text : bios.fLanguages.value_or(std::vector<std::string>()))
    ours.push_back(hwxtest::AsDmidecodeShows(text));
  Expect("Installable Languages", std::optional(theirs), std::optional(ours));
}

void DmidecodeValuesOf::CompareArray(const TStructure& structure) {
  const TMemoryArray array = ParseMemoryArray(structure, 0).value();
  ExpectNumber("Number Of Devices", array.fSlots);
  ExpectSize("Maximum Capacity", array.fMaxCapacity, 1024);
  ExpectMeaning("Error Correction Type", Theirs("Error Correction Type").value_or(""),
                {{"Other", 1},
                 {"None", 3},
                 {"Parity", 4},
                 {"Single-bit ECC", 5},
                 {"Multi-bit ECC", 6},
                 {"CRC", 7}},
                array.fErrorCorrection);
}

void DmidecodeValuesOf::CompareModule(const TStructure& structure) {
  // Numbers of the schema.
  static const TNumbers kTypes = {
      {"Other", 1},  {"DRAM", 2},   {"EDRAM", 6},   {"VRAM", 7},    {"SRAM", 8},
      {"RAM", 9},    {"ROM", 10},   {"Flash", 11},  {"EEPROM", 12}, {"FEPROM", 13},
      {"EPROM", 14}, {"CDRAM", 15}, {"3DRAM", 16},  {"SDRAM", 17},  {"SGRAM", 18},
      {"RDRAM", 19}, {"DDR", 20},   {"DDR2", 21},   {"DDR3", 24},   {"FBD2", 25},
      {"DDR4", 26},  {"LPDDR", 27}, {"LPDDR2", 28}, {"LPDDR3", 29}, {"LPDDR4", 30}};
  static const TNumbers kFormFactors = {{"Other", 1},   {"SIMM", 7},  {"SIP", 2},  {"DIP", 3},
                                        {"ZIP", 4},     {"DIMM", 8},  {"TSOP", 9}, {"RIMM", 11},
                                        {"SODIMM", 12}, {"SRIMM", 13}};
  const auto module = ParseMemoryModule(structure, 0);
  const bool isThere = fValues->fValues["Size"] != "No Module Installed";
  ASSERT_EQ(isThere, module.has_value()) << fValues->fText;
  if (!isThere) return;
  ExpectSize("Size", module->fCapacity, 1);
  ExpectNumber("Total Width", module->fTotalWidth);
  ExpectNumber("Data Width", module->fDataWidth);
  ExpectText("Locator", module->fLocator);
  ExpectText("Bank Locator", module->fBank);
  ExpectSpeed("Speed", module->fMaxSpeed);
  ExpectSpeed("Configured Memory Speed", module->fConfiguredSpeed);
  ExpectText("Manufacturer", module->fManufacturer);
  ExpectText("Serial Number", module->fSerialNumber);
  ExpectText("Asset Tag", module->fAssetTag);
  ExpectText("Part Number", module->fPartNumber);
  ExpectMeaning("Type", Theirs("Type").value_or(""), kTypes, module->fMemoryType);
  ExpectMeaning("Form Factor", Theirs("Form Factor").value_or(""), kFormFactors,
                module->fFormFactor);
}

TEST_F(DmidecodeValuesOf, Bios) {
  Compare(kBios, &DmidecodeValuesOf::CompareBios);
}

TEST_F(DmidecodeValuesOf, System) {
  Compare(kSystem, &DmidecodeValuesOf::CompareSystem);
}

// Whose UUID stands in another order of bytes in the older ones.
TEST_F(DmidecodeValuesOf, SystemInTablesOfEachVersion) {
  std::mt19937 random(9);
  const SmbiosTables tables = MadeTables(kSystem, random);
  CompareDump(tables.LegacyDump(), 1, &DmidecodeValuesOf::CompareSystem);
  for (const int minor : {0, 3, 5, 6, 8, 31, 33, 51}) {
    SCOPED_TRACE(minor);
    Bytes dump = tables.Dump32();
    dump[7] = static_cast<std::uint8_t>(minor);
    hwxtest::FixChecksums32(dump);
    CompareDump(dump, 1, &DmidecodeValuesOf::CompareSystem);
  }
}

TEST_F(DmidecodeValuesOf, Boards) {
  Compare(kBoard, &DmidecodeValuesOf::CompareBoard);
}

TEST_F(DmidecodeValuesOf, Chassis) {
  Compare(kChassis, &DmidecodeValuesOf::CompareChassis);
}

TEST_F(DmidecodeValuesOf, Processors) {
  Compare(kProcessor, &DmidecodeValuesOf::CompareProcessor);
}

TEST_F(DmidecodeValuesOf, Languages) {
  Compare(kLanguages, &DmidecodeValuesOf::CompareLanguages);
}

TEST_F(DmidecodeValuesOf, MemoryArrays) {
  Compare(kArray, &DmidecodeValuesOf::CompareArray);
}

TEST_F(DmidecodeValuesOf, MemoryModules) {
  Compare(kModule, &DmidecodeValuesOf::CompareModule);
}

}  // namespace
