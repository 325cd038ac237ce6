// The network ports that speak Ethernet, wireless ones included.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_NETWORKPORTS_H
#define PROVIDERS_LINUX_NETWORKPORTS_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace linux_machine {

/// Numbers that stand for a state are those of CIM's value maps.
struct TNetworkPort {
  std::string fDeviceID;                               ///< "eth0"
  std::optional<std::string> fPermanentAddress;        ///< As `ParseMACAddress` gives it.
  std::optional<std::vector<std::string>> fAddresses;  ///< The one that is in use.
  std::uint16_t fLinkTechnology = 0;
  std::optional<std::uint64_t> fSpeed;  ///< Bits per second.
  std::optional<bool> fFullDuplex;
  std::optional<std::uint64_t> fMTU;  ///< Bytes.
  std::uint16_t fEnabledState = 0;
  std::vector<std::uint16_t> fOperationalStatus;  ///< One.
};

/// The twelve digits, in capital letters, of "02:fc:00:00:00:0a". None for anything else, such as
/// the longer addresses of other networks.
std::optional<std::string> ParseMACAddress(std::string_view text);

/// Bits per second from what /sys says: megabits per second; -1, or that as a number without a
/// sign, where there is no link.
std::optional<std::uint64_t> ParseLinkSpeed(std::string_view text);

/// The number for an operational state of the kernel, such as 2, "OK", for "up"; 0 for a word that
/// is none of its.
std::uint16_t OperationalStatus(std::string_view state);

/// The ports of the machine whose /sys lies below `root`, virtual ones included, by name.
std::vector<TNetworkPort> ReadNetworkPorts(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_NETWORKPORTS_H
