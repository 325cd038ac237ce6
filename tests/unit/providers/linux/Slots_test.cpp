#include "providers/linux/Slots.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Structures.h"

namespace hwxtest {

namespace {

using namespace linux_machine;
using ::testing::ElementsAre;
using ::testing::Optional;

std::optional<TSlot> ParsedSlot(const Bytes& fields) {
  return ParseSlot(MadeStructure(9, fields, {"PCIe 7"}).Get(), 2);
}

Bytes LinkSlot() {
  return {1, 0xA6, 0x0D, 4, 3, 7, 0, 0x06, 0x02, 0, 0, 0x3B, 0x1A};
}

std::optional<TPowerSupply> ParsedSupply(const Bytes& fields) {
  const std::vector<std::string> texts = {"Bay 1", "PS 1", "EXMPL", "S17", "P-750"};
  return ParsePowerSupply(MadeStructure(39, fields, texts).Get(), 0);
}

Bytes SupplyFields(std::uint64_t characteristics) {
  Bytes fields(0x10 - 4);
  PutField(fields, 0x05, 4, 0x04030201);
  PutField(fields, 0x0A, 1, 5);
  PutField(fields, 0x0C, 2, 750);
  PutField(fields, 0x0E, 2, characteristics);
  return fields;
}

TEST(Slot, TellsAllFields) {
  const TSlot slot = ParsedSlot(LinkSlot()).value();
  EXPECT_EQ(slot.fTag, "Slot 2");
  EXPECT_EQ(slot.fName, "PCIe 7");
  EXPECT_EQ(slot.fNumber, 7);
  EXPECT_EQ(slot.fLinkWidth, 7);
  EXPECT_FALSE(slot.fDataWidth);
  EXPECT_EQ(slot.fUsage, 4);
  EXPECT_EQ(slot.fHotPlug, true);
  EXPECT_THAT(slot.fVoltages, Optional(ElementsAre(3, 2)));
  EXPECT_EQ(slot.fBusAddress, "0000:3b:03.2");
}

TEST(Slot, HasBitsOrLanes) {
  Bytes bus = LinkSlot();
  bus[2] = 5;
  EXPECT_EQ(ParsedSlot(bus)->fDataWidth, 32);
  EXPECT_FALSE(ParsedSlot(bus)->fLinkWidth);
  bus[2] = 2;
  EXPECT_FALSE(ParsedSlot(bus)->fDataWidth);
}

TEST(Slot, CanBeCutOffAnywhere) {
  for (std::size_t size = 0; size < LinkSlot().size(); ++size) {
    Bytes fields = LinkSlot();
    fields.resize(size);
    EXPECT_FALSE(ParsedSlot(fields).value().fBusAddress) << size;
  }
}

TEST(PowerSupply, TellsAllFields) {
  const TPowerSupply supply = ParsedSupply(SupplyFields(4 << 10 | 5 << 3 | 2)).value();
  EXPECT_EQ(supply.fDeviceID, "Power Supply 0");
  EXPECT_EQ(supply.fLocation, "Bay 1");
  EXPECT_EQ(supply.fName, "PS 1");
  EXPECT_EQ(supply.fManufacturer, "EXMPL");
  EXPECT_EQ(supply.fSerialNumber, "S17");
  EXPECT_EQ(supply.fPartNumber, "P-750");
  EXPECT_EQ(supply.fMilliwatts, 750000u);
  EXPECT_EQ(supply.fIsSwitching, true);
  EXPECT_EQ(supply.fRangeSwitching, 5);
}

TEST(PowerSupply, IsNoneThatIsNotPluggedIn) {
  EXPECT_FALSE(ParsedSupply(SupplyFields(4 << 10)));
}

TEST(PowerSupply, HasNothingOfWhatIsUnknown) {
  Bytes fields = SupplyFields(2 << 10 | 2 << 3 | 2);
  PutField(fields, 0x0C, 2, 0x8000);
  const TPowerSupply supply = ParsedSupply(fields).value();
  EXPECT_FALSE(supply.fMilliwatts);
  EXPECT_FALSE(supply.fIsSwitching);
  EXPECT_FALSE(supply.fRangeSwitching);
}

}  // namespace

}  // namespace hwxtest
