#include "providers/linux/BusDevices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/Machines.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

namespace {

using namespace linux_machine;
using ::testing::IsEmpty;

class BusDevices : public ::testing::Test {
 protected:
  void Write(const std::string& file, const std::string& text) {
    WriteMachineFile(fDirectory.Path(), file, text);
  }
  void AddPCIDevice(const std::string& address) {
    const std::string directory = "sys/bus/pci/devices/" + address;
    Write(directory + "/vendor", "0x8086\n");
    Write(directory + "/device", "0x10fb\n");
    Write(directory + "/subsystem_vendor", "0x0e11\n");
    Write(directory + "/subsystem_device", "0x0003\n");
    Write(directory + "/revision", "0x01\n");
    Write(directory + "/class", "0x020000\n");
  }
  void AddUSBDevice(const std::string& address) {
    const std::string directory = "sys/bus/usb/devices/" + address;
    Write(directory + "/idVendor", "1d6b\n");
    Write(directory + "/idProduct", "0002\n");
    Write(directory + "/bcdDevice", "0105\n");
    Write(directory + "/version", " 2.10\n");
    Write(directory + "/bDeviceClass", "09\n");
    Write(directory + "/bDeviceSubClass", "00\n");
    Write(directory + "/bDeviceProtocol", "01\n");
    Write(directory + "/bMaxPacketSize0", "64\n");
    Write(directory + "/bNumConfigurations", "1\n");
    Write(directory + "/bConfigurationValue", "1\n");
  }
  void AddDatabases() {
    Write("usr/share/misc/pci.ids",
          "8086  Example Corp.\n\t10fb  10-Gigabit Port\nC 02  Network controller\n"
          "\t00  Ethernet controller\n");
    Write("usr/share/misc/usb.ids", "1d6b  Example Foundation\n\t0002  2.0 root hub\nC 09  Hub\n");
  }
  std::vector<TPCIDevice> PCIDevices() { return ReadPCIDevices(fDirectory.Path()); }
  std::vector<TUSBDevice> USBDevices() { return ReadUSBDevices(fDirectory.Path()); }

  const TemporaryDirectory fDirectory;
};

TEST_F(BusDevices, TellAllOfAPCIDevice) {
  AddPCIDevice("0000:03:1f.6");
  AddDatabases();
  ASSERT_EQ(PCIDevices().size(), 1u);
  const TPCIDevice device = PCIDevices()[0];
  EXPECT_EQ(device.fDeviceID, "0000:03:1f.6");
  EXPECT_EQ(device.fAddress.value().fBus, 3);
  EXPECT_EQ(device.fAddress.value().fDevice, 31);
  EXPECT_EQ(device.fAddress.value().fFunction, 6);
  EXPECT_EQ(device.fManufacturer, "Example Corp.");
  EXPECT_EQ(device.fName, "10-Gigabit Port");
  EXPECT_EQ(device.fCaption, "Ethernet controller");
  EXPECT_EQ(device.fVendorID, 0x8086);
  EXPECT_EQ(device.fPCIDeviceID, 0x10fb);
  EXPECT_EQ(device.fSubsystemVendorID, 0x0e11);
  EXPECT_EQ(device.fSubsystemID, 3);
  EXPECT_EQ(device.fRevisionID, 1);
  EXPECT_EQ(device.fClassCode, 2);
}

TEST_F(BusDevices, HaveNoNamesWithoutDatabases) {
  AddPCIDevice("0000:03:00.0");
  AddUSBDevice("usb1");
  ASSERT_EQ(PCIDevices().size(), 1u);
  EXPECT_FALSE(PCIDevices()[0].fName);
  EXPECT_FALSE(PCIDevices()[0].fCaption);
  ASSERT_EQ(USBDevices().size(), 1u);
  EXPECT_FALSE(USBDevices()[0].fProduct);
}

TEST_F(BusDevices, OnPCIThatVanishOrLieCostNothingElse) {
  AddDatabases();
  std::filesystem::create_directories(fDirectory / "sys/bus/pci/devices/0000:00:01.0");
  std::filesystem::create_directory_symlink("/nowhere",
                                            fDirectory / "sys/bus/pci/devices/0000:00:02.0");
  AddPCIDevice("0000:00:03.0");
  Write("sys/bus/pci/devices/0000:00:03.0/class", "\xFF\n");
  Write("sys/bus/pci/devices/0000:00:03.0/revision", "0x100\n");
  AddPCIDevice("odd name");
  ASSERT_EQ(PCIDevices().size(), 2u);
  EXPECT_FALSE(PCIDevices()[0].fClassCode);
  EXPECT_FALSE(PCIDevices()[0].fRevisionID);
  EXPECT_FALSE(PCIDevices()[1].fAddress);
  EXPECT_EQ(PCIDevices()[1].fName, "10-Gigabit Port");
}

TEST_F(BusDevices, HavePCIAddressesOfWholeForm) {
  EXPECT_TRUE(ParsePCIAddress("10000:ff:1f.7"));
  for (const char* text :
       {"", "0000:00:00", "0000:00:00.8", "0000:00:20.0", "0000:000:00.0", ":00:00.0", "00:00.0",
        "0000:00:00.00", "x000:00:00.0", "0000-00:00.0", "0000:00:00:0"}) {
    EXPECT_FALSE(ParsePCIAddress(text)) << text;
  }
}

TEST_F(BusDevices, TellAllOfAUSBDevice) {
  AddUSBDevice("1-1.4");
  AddDatabases();
  Write("sys/bus/usb/devices/1-1.4/serial", "5A17\n");
  ASSERT_EQ(USBDevices().size(), 1u);
  const TUSBDevice device = USBDevices()[0];
  EXPECT_EQ(device.fDeviceID, "1-1.4");
  EXPECT_EQ(device.fManufacturer, "Example Foundation");
  EXPECT_EQ(device.fProduct, "2.0 root hub");
  EXPECT_EQ(device.fCaption, "Hub");
  EXPECT_EQ(device.fSerialNumber, "5A17");
  EXPECT_EQ(device.fVendorID, 0x1d6b);
  EXPECT_EQ(device.fProductID, 2);
  EXPECT_EQ(device.fRelease, 0x0105);
  EXPECT_EQ(device.fUSBVersion, 0x0210);
  EXPECT_EQ(device.fClassCode, 9);
  EXPECT_EQ(device.fSubclassCode, 0);
  EXPECT_EQ(device.fProtocolCode, 1);
  EXPECT_EQ(device.fMaxPacketSize, 64);
  EXPECT_EQ(device.fConfigurations, 1);
  EXPECT_EQ(device.fConfiguration, 1);
}

TEST_F(BusDevices, OnUSBAreCalledWhatTheySayThemselves) {
  AddUSBDevice("1-1");
  AddDatabases();
  Write("sys/bus/usb/devices/1-1/manufacturer", "M\xFFker\n");
  Write("sys/bus/usb/devices/1-1/product", "Own Name\n");
  EXPECT_EQ(USBDevices().at(0).fManufacturer, "M\xFFker");
  EXPECT_EQ(USBDevices().at(0).fProduct, "Own Name");
}

TEST_F(BusDevices, OnUSBAreNoInterfaces) {
  Write("sys/bus/usb/devices/1-0:1.0/bInterfaceClass", "09\n");
  EXPECT_THAT(USBDevices(), IsEmpty());
}

TEST_F(BusDevices, OfUSB3HaveNoPacketSizeInBytes) {
  AddUSBDevice("usb2");
  Write("sys/bus/usb/devices/usb2/version", " 3.00\n");
  Write("sys/bus/usb/devices/usb2/bMaxPacketSize0", "9\n");
  EXPECT_EQ(USBDevices().at(0).fUSBVersion, 0x0300);
  EXPECT_FALSE(USBDevices().at(0).fMaxPacketSize);
}

TEST_F(BusDevices, HaveUSBVersionsOfTwoParts) {
  EXPECT_EQ(ParseUSBVersion(" 1.10"), 0x0110);
  EXPECT_EQ(ParseUSBVersion("10.00"), 0x1000);
  for (const char* text : {"", " ", "2", "2.0", ".00", "2.000", "100.00", "2.0x", "-2.00"}) {
    EXPECT_FALSE(ParseUSBVersion(text)) << text;
  }
}

TEST_F(BusDevices, AreNoneWithoutBuses) {
  EXPECT_THAT(PCIDevices(), IsEmpty());
  EXPECT_THAT(USBDevices(), IsEmpty());
}

}  // namespace

}  // namespace hwxtest
