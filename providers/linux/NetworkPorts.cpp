#include "providers/linux/NetworkPorts.h"

#include <algorithm>
#include <cctype>
#include <limits>

#include "providers/linux/TextFile.h"

namespace linux_machine {

namespace {

constexpr std::uint64_t kEthernetType = 1;  // ARPHRD_ETHER
constexpr std::uint64_t kFlagUp = 1;        // IFF_UP
constexpr std::uint64_t kMegabit = 1000000;

enum ELinkTechnology : std::uint16_t { kEthernet = 2, kWirelessLAN = 11 };
enum EEnabledState : std::uint16_t { kUnknownState = 0, kEnabled = 2, kDisabled = 3, kOffline = 6 };

// The states of RFC 2863, and the words of CIM that are closest.
constexpr std::pair<std::string_view, std::uint16_t> kOperationalStates[] = {
    {"up", 2},              // OK
    {"down", 10},           // Stopped
    {"testing", 11},        // In Service
    {"notpresent", 12},     // No Contact
    {"dormant", 15},        // Dormant
    {"lowerlayerdown", 16}  // Supporting Entity in Error
};

bool IsHexByte(std::string_view text) {
  return text.size() == 2 && std::isxdigit(static_cast<unsigned char>(text[0])) != 0 &&
         std::isxdigit(static_cast<unsigned char>(text[1])) != 0;
}

std::optional<std::string> ReadMACAddress(const std::string& path) {
  return ParseMACAddress(ReadTrimmed(path).value_or(std::string()));
}

// A bond gives its own address to all its ports, and keeps theirs here. Otherwise only the kernel
// knows whether the address came with the port.
std::optional<std::string> PermanentAddress(const std::string& directory) {
  if (const auto kept = ReadMACAddress(directory + "/bonding_slave/perm_hwaddr")) {
    return kept;
  }
  const bool isPermanent = ReadNumber(directory + "/addr_assign_type") == 0;
  return isPermanent ? ReadMACAddress(directory + "/address") : std::nullopt;
}

std::uint16_t EnabledState(const std::string& directory) {
  const auto flags = ParseHex(ReadTrimmed(directory + "/flags").value_or(std::string()));
  if (!flags) {
    return kUnknownState;
  }
  if ((*flags & kFlagUp) == 0) {
    return kDisabled;
  }
  const auto carrier = ReadNumber(directory + "/carrier");
  return !carrier ? kUnknownState : *carrier != 0 ? kEnabled : kOffline;
}

std::optional<bool> FullDuplex(const std::string& directory) {
  const auto duplex = ReadTrimmed(directory + "/duplex");
  const bool isKnown = duplex == "full" || duplex == "half";
  return isKnown ? std::optional(duplex == "full") : std::nullopt;
}

TNetworkPort ReadPort(const std::string& directory, const std::string& name) {
  TNetworkPort port;
  port.fDeviceID = name;
  port.fPermanentAddress = PermanentAddress(directory);
  if (const auto address = ReadMACAddress(directory + "/address")) {
    port.fAddresses = {*address};
  }
  const bool isWireless = !ListDirectory(directory + "/phy80211").empty();
  port.fLinkTechnology = isWireless ? kWirelessLAN : kEthernet;
  port.fSpeed = ParseLinkSpeed(ReadTrimmed(directory + "/speed").value_or(std::string()));
  port.fFullDuplex = FullDuplex(directory);
  port.fMTU = ReadNumber(directory + "/mtu");
  port.fEnabledState = EnabledState(directory);
  port.fOperationalStatus = {
      OperationalStatus(ReadTrimmed(directory + "/operstate").value_or(std::string()))};
  return port;
}

}  // namespace

std::optional<std::string> ParseMACAddress(std::string_view text) {
  std::string digits;
  for (std::size_t i = 0; i < text.size(); i += 3) {
    const std::string_view byte = text.substr(i, 2);
    const bool isLast = i + 2 == text.size();
    if (!IsHexByte(byte) || (!isLast && text[i + 2] != ':')) {
      return std::nullopt;
    }
    digits.append(byte);
  }
  std::transform(digits.begin(), digits.end(), digits.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  const bool isWhole = digits.size() == 12 && text.size() == 17;
  return isWhole ? std::optional(digits) : std::nullopt;
}

std::optional<std::uint64_t> ParseLinkSpeed(std::string_view text) {
  const auto speed = ParseNumber(text);
  const bool isKnown = speed && *speed != 0 && *speed < std::numeric_limits<std::uint32_t>::max();
  return isKnown ? std::optional(*speed * kMegabit) : std::nullopt;
}

std::uint16_t OperationalStatus(std::string_view state) {
  for (const auto& [word, number] : kOperationalStates) {
    if (word == state) {
      return number;
    }
  }
  return 0;
}

std::vector<TNetworkPort> ReadNetworkPorts(const std::string& root) {
  const std::string directory = root + "/sys/class/net";
  std::vector<TNetworkPort> ports;
  for (const std::string& name : ListDirectory(directory)) {
    // One that vanishes meanwhile has no type any more.
    if (ReadNumber(directory + "/" + name + "/type") == kEthernetType) {
      ports.push_back(ReadPort(directory + "/" + name, name));
    }
  }
  return ports;
}

}  // namespace linux_machine
