#include "providers/linux/MemoryModules.h"

#include <gtest/gtest.h>

#include "support/Machines.h"
#include "support/Structures.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

namespace {

using namespace linux_machine;

// The fields of a module of 16 GiB, DDR4, as version 2.8 of the format has them.
Bytes Module() {
  Bytes fields(0x28 - 4);
  PutField(fields, 0x08, 2, 72);
  PutField(fields, 0x0A, 2, 64);
  PutField(fields, 0x0C, 2, 16384);
  PutField(fields, 0x0E, 1, 0x09);
  PutField(fields, 0x10, 1, 1);
  PutField(fields, 0x11, 1, 2);
  PutField(fields, 0x12, 1, 0x1A);
  PutField(fields, 0x15, 2, 3200);
  PutField(fields, 0x17, 1, 3);
  PutField(fields, 0x18, 1, 4);
  PutField(fields, 0x19, 1, 5);
  PutField(fields, 0x1A, 1, 6);
  PutField(fields, 0x20, 2, 2933);
  return fields;
}

const std::vector<std::string> kModuleTexts = {"DIMM A1", "BANK 0", "EXMPL",
                                               "5A17",    "A-77",   "PN-16G"};

std::optional<TMemoryModule> ParseModule(const Bytes& fields,
                                         const std::vector<std::string>& texts = kModuleTexts) {
  return ParseMemoryModule(MadeStructure(17, fields, texts).Get(), 3);
}

std::optional<std::uint64_t> CapacityOf(std::uint64_t size, std::uint64_t wide = 0) {
  Bytes fields = Module();
  PutField(fields, 0x0C, 2, size);
  PutField(fields, 0x1C, 4, wide);
  return ParseModule(fields).value().fCapacity;
}

TEST(MemoryModule, TellsAllFields) {
  const TMemoryModule module = ParseModule(Module()).value();
  EXPECT_EQ(module.fTag, "Physical Memory 3");
  EXPECT_EQ(module.fLocator, "DIMM A1");
  EXPECT_EQ(module.fBank, "BANK 0");
  EXPECT_EQ(module.fCapacity, std::uint64_t{16} << 30);
  EXPECT_EQ(module.fFormFactor, 8);
  EXPECT_EQ(module.fMemoryType, 26);
  EXPECT_EQ(module.fTotalWidth, 72);
  EXPECT_EQ(module.fDataWidth, 64);
  EXPECT_EQ(module.fMaxSpeed, 3200u);
  EXPECT_EQ(module.fConfiguredSpeed, 2933u);
  EXPECT_EQ(module.fManufacturer, "EXMPL");
  EXPECT_EQ(module.fSerialNumber, "5A17");
  EXPECT_EQ(module.fAssetTag, "A-77");
  EXPECT_EQ(module.fPartNumber, "PN-16G");
}

TEST(MemoryModule, IsNoneInAnEmptySlot) {
  Bytes fields = Module();
  PutField(fields, 0x0C, 2, 0);
  EXPECT_FALSE(ParseModule(fields));
}

TEST(MemoryModule, IsNoneWhereTheStructureEndsBeforeItsSize) {
  for (std::size_t size = 0; size < 0x0E - 4; ++size) {
    Bytes fields = Module();
    fields.resize(size);
    EXPECT_FALSE(ParseModule(fields)) << size;
  }
}

TEST(MemoryModule, HasNothingOfFieldsThatOldTablesLack) {
  Bytes fields = Module();
  fields.resize(0x15 - 4);
  const TMemoryModule module = ParseModule(fields).value();
  EXPECT_EQ(module.fMemoryType, 26);
  EXPECT_FALSE(module.fMaxSpeed);
  EXPECT_FALSE(module.fConfiguredSpeed);
  EXPECT_FALSE(module.fManufacturer);
  EXPECT_FALSE(module.fPartNumber);
}

TEST(MemoryModule, HasTheCapacityOfEachForm) {
  EXPECT_EQ(CapacityOf(1), std::uint64_t{1} << 20);
  EXPECT_EQ(CapacityOf(0x8000 | 512), 512u * 1024);
  EXPECT_EQ(CapacityOf(0x7FFE), std::uint64_t{0x7FFE} << 20);
  EXPECT_EQ(CapacityOf(0x7FFF, 65536), std::uint64_t{64} << 30);
  EXPECT_EQ(CapacityOf(0x7FFF, 0xFFFFFFFF), std::uint64_t{0x7FFFFFFF} << 20);
  EXPECT_EQ(CapacityOf(0xFFFF), std::nullopt);
}

TEST(MemoryModule, HasNothingForWhatTheFirmwareDoesNotKnow) {
  Bytes fields = Module();
  PutField(fields, 0x08, 2, 0xFFFF);
  PutField(fields, 0x0A, 2, 0);
  PutField(fields, 0x0E, 1, 0x02);
  PutField(fields, 0x12, 1, 0x02);
  PutField(fields, 0x15, 2, 0);
  PutField(fields, 0x20, 2, 0xFFFF);
  PutField(fields, 0x10, 1, 99);
  const TMemoryModule module = ParseModule(fields).value();
  EXPECT_FALSE(module.fTotalWidth);
  EXPECT_FALSE(module.fDataWidth);
  EXPECT_FALSE(module.fFormFactor);
  EXPECT_FALSE(module.fMemoryType);
  EXPECT_FALSE(module.fMaxSpeed);
  EXPECT_FALSE(module.fConfiguredSpeed);
  EXPECT_FALSE(module.fLocator);
}

TEST(MemoryModule, HasTheWideSpeedsWhereTheOthersDoNotFit) {
  Bytes fields = Module();
  fields.resize(0x5C - 4);
  PutField(fields, 0x15, 2, 0xFFFF);
  PutField(fields, 0x20, 2, 0xFFFF);
  PutField(fields, 0x54, 4, 70000);
  PutField(fields, 0x58, 4, 66000);
  const TMemoryModule module = ParseModule(fields).value();
  EXPECT_EQ(module.fMaxSpeed, 70000u);
  EXPECT_EQ(module.fConfiguredSpeed, 66000u);
}

TEST(MemoryModule, IsOfAnotherKindForNumbersOfTheFuture) {
  Bytes fields = Module();
  PutField(fields, 0x0E, 1, 0xFE);
  PutField(fields, 0x12, 1, 0xFE);
  EXPECT_EQ(ParseModule(fields).value().fFormFactor, 1);
  EXPECT_EQ(ParseModule(fields).value().fMemoryType, 1);
}

TEST(MemoryModule, NamesWhatTheSchemaHasNoNumberFor) {
  Bytes fields = Module();
  PutField(fields, 0x0E, 1, 0x0F);
  PutField(fields, 0x12, 1, 0x22);
  const TMemoryModule module = ParseModule(fields).value();
  EXPECT_EQ(module.fFormFactor, 1);
  EXPECT_EQ(module.fFormFactorName, "FB-DIMM");
  EXPECT_EQ(module.fMemoryType, 1);
  EXPECT_EQ(module.fMemoryTypeName, "DDR5");
}

TEST(MemoryModule, KeepsTextsByteForByte) {
  const TMemoryModule module = ParseModule(Module(), {" \xFF\xFE ", "BANK 0", "EXMPL  "}).value();
  EXPECT_EQ(module.fLocator, " \xFF\xFE ");
  EXPECT_EQ(module.fManufacturer, "EXMPL  ");
}

TEST(MemoryArray, TellsAllFields) {
  Bytes fields(0x17 - 4);
  PutField(fields, 0x04, 1, 3);
  PutField(fields, 0x05, 1, 3);
  PutField(fields, 0x06, 1, 6);
  PutField(fields, 0x07, 4, 64u << 20);
  PutField(fields, 0x0D, 2, 8);
  const TMemoryArray array = ParseMemoryArray(MadeStructure(16, fields).Get(), 0).value();
  EXPECT_EQ(array.fTag, "Physical Memory Array 0");
  EXPECT_EQ(array.fLocation, 3);
  EXPECT_EQ(array.fUse, 3);
  EXPECT_EQ(array.fErrorCorrection, 6);
  EXPECT_EQ(array.fMaxCapacity, 64u << 20);
  EXPECT_EQ(array.fSlots, 8);
}

TEST(MemoryArray, HasTheWideCapacityInKibibytes) {
  Bytes fields(0x17 - 4);
  PutField(fields, 0x07, 4, 0x80000000);
  PutField(fields, 0x0F, 8, std::uint64_t{4} << 40);
  EXPECT_EQ(ParseMemoryArray(MadeStructure(16, fields).Get(), 0).value().fMaxCapacity,
            std::uint64_t{4} << 30);
}

TEST(MemoryArray, HasNothingOfAStructureWithoutFields) {
  const TMemoryArray array = ParseMemoryArray(MadeStructure(16, {}).Get(), 7).value();
  EXPECT_EQ(array.fTag, "Physical Memory Array 7");
  EXPECT_FALSE(array.fLocation);
  EXPECT_FALSE(array.fMaxCapacity);
  EXPECT_FALSE(array.fSlots);
}

TEST(SystemMemory, IsTheBlocksThatAreOnline) {
  const TemporaryDirectory directory;
  const std::string memory = "sys/devices/system/memory/";
  WriteMachineFile(directory.Path(), memory + "block_size_bytes", "8000000\n");
  WriteMachineFile(directory.Path(), memory + "memory0/online", "1\n");
  WriteMachineFile(directory.Path(), memory + "memory1/online", "0\n");
  WriteMachineFile(directory.Path(), memory + "memory32/online", "1\n");
  WriteMachineFile(directory.Path(), memory + "memory33/phys_index", "33\n");
  WriteMachineFile(directory.Path(), memory + "power/online", "1\n");
  const auto found = ReadSystemMemory(directory.Path());
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].fBlockSize, 0x8000000u);
  EXPECT_EQ(found[0].fBlocks, 2u);
}

TEST(SystemMemory, IsNoneWithoutBlocks) {
  EXPECT_TRUE(ReadSystemMemory(TemporaryDirectory().Path()).empty());
}

TEST(SystemMemory, HasNoBlockSizeWhereGarbageStands) {
  const TemporaryDirectory directory;
  WriteMachineFile(directory.Path(), "sys/devices/system/memory/block_size_bytes", "\xFF zz\n");
  ASSERT_EQ(ReadSystemMemory(directory.Path()).size(), 1u);
  EXPECT_FALSE(ReadSystemMemory(directory.Path())[0].fBlockSize);
}

}  // namespace

}  // namespace hwxtest
