#include "providers/linux/BusDevices.h"

#include <algorithm>

#include "providers/linux/IdDatabase.h"
#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr std::uint64_t kDevicesOnBus = 32;
constexpr std::uint64_t kFunctionsOfDevice = 8;
constexpr std::uint16_t kUSB3 = 0x0300;

template <typename Number>
std::optional<Number> ReadHex(const std::string& path) {
  return Narrow<Number>(ParseHex(ReadTrimmed(path).value_or(std::string())));
}

// The three bytes of a PCI class: base class, subclass, interface.
void SetClass(const std::string& directory, const TIdDatabase& names, TPCIDevice& device) {
  if (const auto bytes = ReadHex<std::uint32_t>(directory + "/class")) {
    device.fClassCode = static_cast<std::uint8_t>(*bytes >> 16);
    device.fCaption = names.Class(*device.fClassCode, static_cast<std::uint8_t>(*bytes >> 8));
  }
}

std::optional<TPCIDevice> ReadPCIDevice(const std::string& directory, const std::string& name,
                                        const TIdDatabase& names) {
  const auto vendor = ReadHex<std::uint16_t>(directory + "/vendor");
  const auto number = ReadHex<std::uint16_t>(directory + "/device");
  if (!vendor || !number) {  // it vanished meanwhile
    return std::nullopt;
  }
  TPCIDevice device;
  device.fDeviceID = name;
  device.fAddress = ParsePCIAddress(name);
  device.fVendorID = *vendor;
  device.fPCIDeviceID = *number;
  device.fSubsystemVendorID = ReadHex<std::uint16_t>(directory + "/subsystem_vendor");
  device.fSubsystemID = ReadHex<std::uint16_t>(directory + "/subsystem_device");
  device.fRevisionID = ReadHex<std::uint8_t>(directory + "/revision");
  device.fManufacturer = names.Vendor(*vendor);
  device.fName = names.Device(*vendor, *number);
  SetClass(directory, names, device);
  return device;
}

std::optional<std::uint8_t> ReadByte(const std::string& path) {
  return Narrow<std::uint8_t>(ParseNumber(ReadTrimmed(path).value_or(std::string())));
}

std::optional<TUSBDevice> ReadUSBDevice(const std::string& directory, const std::string& name,
                                        const TIdDatabase& names) {
  const auto vendor = ReadHex<std::uint16_t>(directory + "/idVendor");
  const auto product = ReadHex<std::uint16_t>(directory + "/idProduct");
  if (!vendor || !product) {  // an interface of a device, or it vanished meanwhile
    return std::nullopt;
  }
  TUSBDevice device;
  device.fDeviceID = name;
  device.fVendorID = *vendor;
  device.fProductID = *product;
  device.fManufacturer = ReadTrimmed(directory + "/manufacturer");
  device.fProduct = ReadTrimmed(directory + "/product");
  if (!device.fManufacturer) {
    device.fManufacturer = names.Vendor(*vendor);
  }
  if (!device.fProduct) {
    device.fProduct = names.Device(*vendor, *product);
  }
  device.fSerialNumber = ReadTrimmed(directory + "/serial");
  device.fRelease = ReadHex<std::uint16_t>(directory + "/bcdDevice");
  device.fUSBVersion = ParseUSBVersion(ReadTrimmed(directory + "/version").value_or(std::string()));
  device.fClassCode = ReadHex<std::uint8_t>(directory + "/bDeviceClass");
  device.fSubclassCode = ReadHex<std::uint8_t>(directory + "/bDeviceSubClass");
  device.fProtocolCode = ReadHex<std::uint8_t>(directory + "/bDeviceProtocol");
  if (device.fUSBVersion < kUSB3) {  // which tells the binary logarithm there
    device.fMaxPacketSize = ReadByte(directory + "/bMaxPacketSize0");
  }
  device.fConfigurations = ReadByte(directory + "/bNumConfigurations");
  device.fConfiguration = ReadByte(directory + "/bConfigurationValue");
  if (device.fClassCode) {
    device.fCaption = names.Class(*device.fClassCode, device.fSubclassCode.value_or(0));
  }
  return device;
}

// The database is only read where there is something to look up.
template <typename Device>
std::vector<Device> ReadDevices(const std::string& root, const std::string& bus,
                                std::optional<Device> (*read)(const std::string&,
                                                              const std::string&,
                                                              const TIdDatabase&)) {
  const std::string directory = root + "/sys/bus/" + bus + "/devices/";
  const std::vector<std::string> found = ListDirectory(directory);
  if (found.empty()) {
    return {};
  }
  const TIdDatabase names = ReadIdDatabase(root, bus + ".ids");
  std::vector<Device> devices;
  for (const std::string& name : found) {
    if (auto device = read(directory + name, name, names)) {
      devices.push_back(std::move(*device));
    }
  }
  return devices;
}

}  // namespace

std::optional<TPCIAddress> ParsePCIAddress(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || !ParseHex(text.substr(0, colon))) {
    return std::nullopt;
  }
  text.remove_prefix(colon + 1);
  if (text.size() != 7 || text[2] != ':' || text[5] != '.') {
    return std::nullopt;
  }
  const auto bus = ParseHex(text.substr(0, 2));
  const auto device = ParseHex(text.substr(3, 2));
  const auto function = ParseHex(text.substr(6));
  if (!bus || !device || !function || *device >= kDevicesOnBus || *function >= kFunctionsOfDevice) {
    return std::nullopt;
  }
  return TPCIAddress{static_cast<std::uint8_t>(*bus), static_cast<std::uint8_t>(*device),
                     static_cast<std::uint8_t>(*function)};
}

std::optional<std::uint16_t> ParseUSBVersion(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos || point > 2 || text.size() != point + 3) {
    return std::nullopt;
  }
  const auto major = ParseHex(text.substr(0, point));
  const auto minor = ParseHex(text.substr(point + 1));
  return major && minor ? Narrow<std::uint16_t>(*major << 8 | *minor) : std::nullopt;
}

std::vector<TPCIDevice> ReadPCIDevices(const std::string& root) {
  return ReadDevices(root, "pci", &ReadPCIDevice);
}

std::vector<TUSBDevice> ReadUSBDevices(const std::string& root) {
  return ReadDevices(root, "usb", &ReadUSBDevice);
}

std::vector<std::string> ListPCIDevices(const std::string& root) {
  const std::string directory = root + "/sys/bus/pci/devices/";
  std::vector<std::string> devices = ListDirectory(directory);
  const auto isNone = [&directory](const std::string& name) {
    return !Exists(directory + name + "/vendor");
  };
  devices.erase(std::remove_if(devices.begin(), devices.end(), isNone), devices.end());
  return devices;
}

}  // namespace linux_machine
