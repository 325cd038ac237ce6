#include "providers/linux/IdDatabase.h"

#include <gtest/gtest.h>

#include "support/Machines.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

namespace {

using linux_machine::ReadIdDatabase;
using linux_machine::TIdDatabase;

constexpr const char* kText =
    "# A list.\n"
    "\n"
    "0e11  Example Systems\n"
    "\t0001  PCI Bridge\n"
    "\t\t0e11 4000  A subsystem\n"
    "\t0002  ISA Bridge\n"
    "8086  Example Corp.\n"
    "\t0002  Other Device\n"
    "C 02  Network controller\n"
    "\t00  Ethernet controller\n"
    "\t\t01  An interface\n"
    "\t80  Network controller of another kind\n"
    "AT 0001  A list that nobody asks for\n"
    "\t0003  Not a device\n";

TEST(IdDatabase, TellsTheNamesOfNumbers) {
  const TIdDatabase names(kText);
  EXPECT_EQ(names.Vendor(0x0e11), "Example Systems");
  EXPECT_EQ(names.Vendor(0x8086), "Example Corp.");
  EXPECT_EQ(names.Device(0x0e11, 1), "PCI Bridge");
  EXPECT_EQ(names.Device(0x0e11, 2), "ISA Bridge");
  EXPECT_EQ(names.Device(0x8086, 2), "Other Device");
  EXPECT_EQ(names.Class(2, 0), "Ethernet controller");
  EXPECT_EQ(names.Class(2, 0x80), "Network controller of another kind");
}

TEST(IdDatabase, TellsTheClassWhereTheSubclassHasNoName) {
  EXPECT_EQ(TIdDatabase(kText).Class(2, 1), "Network controller");
}

TEST(IdDatabase, TellsNothingOfOtherNumbers) {
  const TIdDatabase names(kText);
  EXPECT_FALSE(names.Vendor(0x1234));
  EXPECT_FALSE(names.Vendor(2));
  EXPECT_FALSE(names.Vendor(1));
  EXPECT_FALSE(names.Device(0x8086, 1));
  EXPECT_FALSE(names.Device(1, 3));
  EXPECT_FALSE(names.Device(0x8086, 3));
  EXPECT_FALSE(names.Device(2, 0));
  EXPECT_FALSE(names.Class(3, 0));
}

TEST(IdDatabase, PassesOverWhatIsNoEntry) {
  const TIdDatabase names(
      "\t0001  Without a vendor\n12  Short\n12345  Long\n1234 One blank\n1235  \nxyzw  Letters\n"
      "C  \nC 0  x\n\t\n\xFF\xFF\xFF\xFF  Bytes\n1236  \xFF\xFE\r\n");
  EXPECT_FALSE(names.Device(0, 1));
  EXPECT_FALSE(names.Vendor(0x12));
  EXPECT_FALSE(names.Vendor(0x1234));
  EXPECT_FALSE(names.Vendor(0x1235));
  EXPECT_FALSE(names.Class(0, 0));
  EXPECT_EQ(names.Vendor(0x1236), "\xFF\xFE\r");
}

TEST(IdDatabase, TakesTheFirstOfTwoNames) {
  EXPECT_EQ(TIdDatabase("1234  First\n1234  Second\n").Vendor(0x1234), "First");
}

TEST(IdDatabase, MayBeEmptyAndMayEndAnywhere) {
  EXPECT_FALSE(TIdDatabase("").Vendor(0));
  const std::string text = kText;
  for (std::size_t size = 0; size < text.size(); ++size) {
    const TIdDatabase names(text.substr(0, size));
    EXPECT_FALSE(names.Vendor(0x1234)) << size;
  }
}

TEST(IdDatabase, IsReadFromTheFirstPlaceThatHasIt) {
  const TemporaryDirectory directory;
  EXPECT_FALSE(ReadIdDatabase(directory.Path(), "pci.ids").Vendor(0x1234));
  WriteMachineFile(directory.Path(), "usr/share/hwdata/pci.ids", "1234  Second place\n");
  EXPECT_EQ(ReadIdDatabase(directory.Path(), "pci.ids").Vendor(0x1234), "Second place");
  WriteMachineFile(directory.Path(), "usr/share/misc/pci.ids", "1234  First place\n");
  EXPECT_EQ(ReadIdDatabase(directory.Path(), "pci.ids").Vendor(0x1234), "First place");
  EXPECT_FALSE(ReadIdDatabase(directory.Path(), "usb.ids").Vendor(0x1234));
}

}  // namespace

}  // namespace hwxtest
