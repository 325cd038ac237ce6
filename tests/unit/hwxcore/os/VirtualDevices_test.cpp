#include "hwxcore/os/detail/VirtualDevices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace NQORHWX20::detail {
namespace {

constexpr int kDisk = 0;
constexpr int kCdRom = 1;
constexpr int kKeyboard = 2;
constexpr int kMouse = 3;

std::vector<std::string> Read(const std::string& text, int deviceClass = kDisk,
                              bool useAlternateName = false) {
  std::vector<std::string> devices;
  ReadVirtualDevices(text, deviceClass, useAlternateName, devices);
  return devices;
}

// A block as hwinfo writes it, of a device of its own.
std::string Block(const std::string& deviceClass, const std::string& device,
                  const std::string& file) {
  return "34: USB 00.0: 10600 Disk\n"
         "  [Created at usb.122]\n"
         "  Unique ID: k4bc.8Mh5+QWmJe4\n"
         "  SysFS Device Link: /devices/pci0000:00/0000:00:1d.7/usb1/1-5/1-5:1.0\n"
         "  Hardware Class: " +
         deviceClass +
         "\n"
         "  Model: \"Controller Console\"\n"
         "  Hotplug: USB\n"
         "  Vendor: usb 0x04b3 \"Maker\"\n"
         "  Device: " +
         device +
         "\n"
         "  Revision: \"1.00\"\n"
         "  Driver: \"usb-storage\"\n"
         "  Device File: " +
         file +
         "\n"
         "  Device Number: block 8:16-8:31\n"
         "\n";
}

TEST(VirtualDeviceClass, HasTheTextsOfEachOfTheFour) {
  const auto parts = [](int deviceClass) {
    const TVirtualDeviceClass found = VirtualDeviceClass(deviceClass);
    return std::vector<std::string_view>{found.fClassLine, found.fMarker, found.fArgument};
  };
  EXPECT_THAT(parts(kDisk), ElementsAre("Hardware Class: disk", "Virtual", "--disk"));
  EXPECT_THAT(parts(kCdRom), ElementsAre("Hardware Class: cdrom", "0x4012", "--cdrom"));
  EXPECT_THAT(parts(kKeyboard), ElementsAre("Hardware Class: keyboard", "0x4012", "--keyboard"));
  EXPECT_THAT(parts(kMouse), ElementsAre("Hardware Class: mouse", "0x4012", "--mouse"));
  EXPECT_THAT(parts(4), ElementsAre("", "", ""));
  EXPECT_THAT(parts(-1), ElementsAre("", "", ""));
}

TEST(ReadVirtualDevices, ReadsTheDeviceFileOfEachClass) {
  EXPECT_THAT(Read(Block("disk", "usb 0x4010 \"Virtual Disk\"", "/dev/sdb"), kDisk),
              ElementsAre("/dev/sdb"));
  const std::string marked = "usb 0x4012 \"Controller Console\"";
  EXPECT_THAT(Read(Block("cdrom", marked, "/dev/sr1"), kCdRom), ElementsAre("/dev/sr1"));
  EXPECT_THAT(Read(Block("keyboard", marked, "/dev/input/event4"), kKeyboard),
              ElementsAre("/dev/input/event4"));
  EXPECT_THAT(Read(Block("mouse", marked, "/dev/input/mice"), kMouse),
              ElementsAre("/dev/input/mice"));
}

TEST(ReadVirtualDevices, LeavesOutDevicesWithoutTheMarkerOfTheirClass) {
  EXPECT_THAT(Read(Block("disk", "usb 0x4012 \"Disk\"", "/dev/sdb"), kDisk), IsEmpty());
  const std::string marked = "usb 0x4010 \"Virtual\"";
  EXPECT_THAT(Read(Block("cdrom", marked, "/dev/sr1"), kCdRom), IsEmpty());
  EXPECT_THAT(Read(Block("keyboard", marked, "/dev/k"), kKeyboard), IsEmpty());
  EXPECT_THAT(Read(Block("mouse", marked, "/dev/m"), kMouse), IsEmpty());
}

TEST(ReadVirtualDevices, LeavesOutOtherClasses) {
  EXPECT_THAT(Read(Block("cdrom", "Virtual 0x4012", "/dev/sr1"), kDisk), IsEmpty());
}

TEST(ReadVirtualDevices, ReadsOneBlockAfterTheOther) {
  const std::string real = Block("disk", "\"Disk\"", "/dev/sda");
  EXPECT_THAT(Read(Block("disk", "\"Virtual 1\"", "/dev/sdb") + real +
                   Block("disk", "\"Virtual 2\"", "/dev/sdc") + real),
              ElementsAre("/dev/sdb", "/dev/sdc"));
}

TEST(ReadVirtualDevices, AppendsBehindWhatIsThere) {
  std::vector<std::string> devices = {"before"};
  const std::string text = Block("disk", "Virtual", "/dev/sdb");
  ReadVirtualDevices(text, kDisk, false, devices);
  ReadVirtualDevices(text, kDisk, false, devices);
  EXPECT_THAT(devices, ElementsAre("before", "/dev/sdb", "/dev/sdb"));
}

// The transitions, one by one.

TEST(ReadVirtualDevices, SeeksTheClassFirst) {
  EXPECT_THAT(Read("Device: Virtual\nDevice File: a\n"), IsEmpty());
  EXPECT_THAT(Read("Device: Virtual\nHardware Class: disk\nDevice File: a\n"), IsEmpty());
}

TEST(ReadVirtualDevices, SeeksTheDeviceOverAnyLine) {
  EXPECT_THAT(
      Read("Hardware Class: disk\nx\nHardware Class: disk\n\nDevice: Virtual\nDevice File: a\n"),
      ElementsAre("a"));
}

TEST(ReadVirtualDevices, SeeksTheDeviceOnIntoTheNextBlock) {
  EXPECT_THAT(Read("Hardware Class: disk\nDevice File: a\n\nHardware Class: cdrom\n"
                   "Device: Virtual\nDevice File: b\n"),
              ElementsAre("b"));
}

TEST(ReadVirtualDevices, DoesNotTakeTheMarkerFromAnotherLine) {
  EXPECT_THAT(Read("Hardware Class: disk\nModel: Virtual\nDevice: x\nDevice File: a\n"), IsEmpty());
}

TEST(ReadVirtualDevices, SeeksTheClassAnewAfterADeviceWithoutTheMarker) {
  const std::string head = "Hardware Class: disk\nDevice: x\nDevice: Virtual\nDevice File: a\n";
  EXPECT_THAT(Read(head), IsEmpty());
  EXPECT_THAT(Read(head + "Hardware Class: disk\nDevice: Virtual\nDevice File: b\n"),
              ElementsAre("b"));
}

TEST(ReadVirtualDevices, TakesALineThatEndsInDeviceForTheDevice) {
  EXPECT_THAT(Read("Hardware Class: disk\n  SubDevice: Virtual\nDevice File: a\n"),
              ElementsAre("a"));
  EXPECT_THAT(Read("Hardware Class: disk\n  SubDevice: x\nDevice: Virtual\nDevice File: a\n"),
              IsEmpty());
}

TEST(ReadVirtualDevices, SeeksTheFileOverAnyLine) {
  EXPECT_THAT(Read("Hardware Class: disk\nDevice: Virtual\nDevice: x\nHardware Class: disk\n\n"
                   "Device Files: y\nDevice File: a\n"),
              ElementsAre("a"));
}

TEST(ReadVirtualDevices, SeeksTheClassAnewAfterTheFile) {
  EXPECT_THAT(Read("Hardware Class: disk\nDevice: Virtual\nDevice File: a\nDevice File: b\n"
                   "Device: Virtual\nDevice File: c\n"),
              ElementsAre("a"));
}

TEST(ReadVirtualDevices, LooksAtALineOnce) {
  EXPECT_THAT(Read("Hardware Class: disk Device: Virtual Device File: a\n"), IsEmpty());
  EXPECT_THAT(Read("Hardware Class: disk\nDevice: Virtual Device File: a\nDevice File: b\n"),
              ElementsAre("b"));
}

TEST(ReadVirtualDevices, HeedsCase) {
  EXPECT_THAT(Read("Hardware Class: disk\nDevice: virtual\nDevice File: a\n"), IsEmpty());
  EXPECT_THAT(Read("Hardware class: disk\nDevice: Virtual\nDevice File: a\n"), IsEmpty());
}

// The ends of a text.

TEST(ReadVirtualDevices, NeverLooksAtALastLineWithoutALineFeed) {
  EXPECT_THAT(Read("Hardware Class: disk\nDevice: Virtual\nDevice File: a"), IsEmpty());
}

TEST(ReadVirtualDevices, LeavesNoTraceOfHalfABlock) {
  const std::string block = Block("disk", "Virtual", "/dev/sdb");
  const std::size_t end = block.find('\n', block.find("Device File:"));
  for (std::size_t size = 0; size < block.size(); ++size) {
    EXPECT_EQ(Read(block.substr(0, size)).size(), size > end ? 1U : 0U) << size;
    EXPECT_THAT(Read(block.substr(0, end) + "\n" + block.substr(0, size)),
                testing::SizeIs(size > end ? 2 : 1));
  }
}

TEST(ReadVirtualDevices, ReadsNothingFromNothing) {
  EXPECT_THAT(Read(""), IsEmpty());
  EXPECT_THAT(Read("\n\n\n"), IsEmpty());
}

// The device's text.

std::vector<std::string> ReadFileLine(const std::string& line, int deviceClass,
                                      bool useAlternateName) {
  const TVirtualDeviceClass texts = VirtualDeviceClass(deviceClass);
  return Read(std::string(texts.fClassLine) + "\nDevice: " + std::string(texts.fMarker) + "\n" +
                  line + "\n",
              deviceClass, useAlternateName);
}

TEST(ReadVirtualDevices, TakesTheWholeRestOfTheLine) {
  const std::string line = "  Device File: /dev/sdb (/dev/sg2)";
  for (const int deviceClass : {kDisk, kCdRom, kKeyboard, kMouse, 4, -1}) {
    EXPECT_THAT(ReadFileLine(line, deviceClass, false), ElementsAre("/dev/sdb (/dev/sg2)"));
  }
}

TEST(ReadVirtualDevices, TakesTheAlternateNameWithItsParentheses) {
  const std::string line = "  Device File: /dev/sdb (/dev/sg2)";
  for (const int deviceClass : {kDisk, kKeyboard, kMouse, 4, -1}) {
    EXPECT_THAT(ReadFileLine(line, deviceClass, true), ElementsAre("(/dev/sg2)"));
  }
}

TEST(ReadVirtualDevices, IgnoresTheAlternateNameOfACdRom) {
  EXPECT_THAT(ReadFileLine("Device File: /dev/sr0 (/dev/sg1)", kCdRom, true),
              ElementsAre("/dev/sr0 (/dev/sg1)"));
}

TEST(ReadVirtualDevices, TakesTheNameWhereThereIsNoAlternateOne) {
  EXPECT_THAT(ReadFileLine("Device File: /dev/sdb", kDisk, true), ElementsAre("/dev/sdb"));
}

TEST(ReadVirtualDevices, TakesTheFirstParenthesisOfTheLine) {
  EXPECT_THAT(ReadFileLine("Device File: a (b) (c", kDisk, true), ElementsAre("(b) (c"));
  EXPECT_THAT(ReadFileLine("(x) Device File: a (b)", kDisk, true),
              ElementsAre("(x) Device File: a (b)"));
}

TEST(ReadVirtualDevices, TrimsNothing) {
  EXPECT_THAT(ReadFileLine("Device File:  a \r", kDisk, false), ElementsAre(" a \r"));
  EXPECT_THAT(ReadFileLine("Device File:xyz", kDisk, false), ElementsAre("yz"));
  EXPECT_THAT(ReadFileLine("Device File: a (b) \t", kDisk, true), ElementsAre("(b) \t"));
}

TEST(ReadVirtualDevices, GivesAnEmptyTextWhereTheLineEnds) {
  EXPECT_THAT(ReadFileLine("Device File:", kDisk, false), ElementsAre(""));
  EXPECT_THAT(ReadFileLine("Device File:", kDisk, true), ElementsAre(""));
  EXPECT_THAT(ReadFileLine("Device File: ", kDisk, false), ElementsAre(""));
}

TEST(ReadVirtualDevices, CountsTheFirstDeviceFileOfTheLine) {
  EXPECT_THAT(ReadFileLine("Device File: a Device File: b", kDisk, false),
              ElementsAre("a Device File: b"));
}

TEST(ReadVirtualDevices, KeepsNulBytes) {
  EXPECT_THAT(ReadFileLine(std::string("Device File: a\0b", 16), kDisk, false),
              ElementsAre(std::string("a\0b", 3)));
}

TEST(ReadVirtualDevices, RecordsEveryBlockForAnUnknownClass) {
  for (const int deviceClass : {4, -1}) {
    EXPECT_THAT(Read(Block("cdrom", "a", "/dev/sr0") + Block("network", "b", "eth0 (x)") +
                         "Hardware Class: disk\nDevice File: /dev/sda\n\n",
                     deviceClass),
                ElementsAre("/dev/sr0", "eth0 (x)"));
  }
}

// Any line is the class line then, also one that holds the device.
TEST(ReadVirtualDevices, SpendsALineOnAnEmptyClass) {
  EXPECT_THAT(Read("Device: x\nDevice File: a\n", 4), IsEmpty());
  EXPECT_THAT(Read("\nDevice: x\nDevice File: a\n", 4), ElementsAre("a"));
}

}  // namespace
}  // namespace NQORHWX20::detail
