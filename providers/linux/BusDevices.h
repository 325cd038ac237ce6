// The devices on the PCI and USB buses. Names come from the system's databases of numbers, where
// they are installed; what a USB device says of itself goes first.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_BUSDEVICES_H
#define PROVIDERS_LINUX_BUSDEVICES_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linux_machine {

/// Where a PCI device is, within its domain.
struct TPCIAddress {
  std::uint8_t fBus = 0;
  std::uint8_t fDevice = 0;
  std::uint8_t fFunction = 0;
};

struct TPCIDevice {
  std::string fDeviceID;  ///< "0000:00:1f.2"
  std::optional<TPCIAddress> fAddress;
  std::optional<std::string> fName;
  std::optional<std::string> fManufacturer;
  std::optional<std::string> fCaption;  ///< What kind of device it is, in words.
  std::uint16_t fVendorID = 0;
  std::uint16_t fPCIDeviceID = 0;
  std::optional<std::uint16_t> fSubsystemVendorID;
  std::optional<std::uint16_t> fSubsystemID;
  std::optional<std::uint8_t> fRevisionID;
  std::optional<std::uint8_t> fClassCode;
};

struct TUSBDevice {
  std::string fDeviceID;  ///< "1-1.4", the ports on the way to it, or "usb1" for a root hub.
  std::optional<std::string> fManufacturer;
  std::optional<std::string> fProduct;
  std::optional<std::string> fCaption;  ///< What kind of device it is, in words.
  std::optional<std::string> fSerialNumber;
  std::uint16_t fVendorID = 0;
  std::uint16_t fProductID = 0;
  std::optional<std::uint16_t> fRelease;     ///< Four decimal digits: 0x0105 is 1.05.
  std::optional<std::uint16_t> fUSBVersion;  ///< The same.
  std::optional<std::uint8_t> fClassCode;
  std::optional<std::uint8_t> fSubclassCode;
  std::optional<std::uint8_t> fProtocolCode;
  std::optional<std::uint8_t> fMaxPacketSize;  ///< Bytes.
  std::optional<std::uint8_t> fConfigurations;
  std::optional<std::uint8_t> fConfiguration;  ///< The current one's number.
};

/// Reads "0000:00:1f.2". None for anything else, or for a number that is too large.
std::optional<TPCIAddress> ParsePCIAddress(std::string_view text);

/// Reads " 2.10" as 0x0210.
std::optional<std::uint16_t> ParseUSBVersion(std::string_view text);

/// The devices of the machine whose /sys and /usr lie below `root`, by address.
std::vector<TPCIDevice> ReadPCIDevices(const std::string& root);
std::vector<TUSBDevice> ReadUSBDevices(const std::string& root);

/// The `fDeviceID`s alone of the PCI devices, without a look into them or into the database.
std::vector<std::string> ListPCIDevices(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_BUSDEVICES_H
