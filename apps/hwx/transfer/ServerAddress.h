// Where files go to and come from, as users write it.
// Thread-safety: plain values, and functions without state.

#ifndef HWX_TRANSFER_SERVERADDRESS_H
#define HWX_TRANSFER_SERVERADDRESS_H

#include <string>
#include <string_view>

namespace hwx {

/// A server, and a place on it: "host", "user@host:2121/directory/name", or a URL of FTP or SFTP.
struct TServerAddress {
  bool fIsSecure = false;  ///< SFTP, otherwise FTP.
  std::string fUser;       ///< As the user wrote it, escaped or not; empty if there is none.
  std::string fHost;       ///< Host, and port if there is one.
  std::string fPath;       ///< What stands behind the first "/"; as the user wrote it.

  /// The host without its port, nor the brackets of a number.
  std::string HostName() const;

  /// The host as the library takes it, with the credentials in front.
  std::string HostWith(const std::string& password) const;
};

/// Reads an address. Throws `TFailure`, which says what is wrong with it. An address with a
/// password is refused too, since other users see the command line; so the text of the failure
/// never repeats the address.
TServerAddress ParseServerAddress(const std::string& text);

/// `text` with "%" and two hexadecimal digits for each byte that isn't a letter, a digit, one of
/// "-._~" or one of `kept`.
std::string UrlEscaped(std::string_view text, std::string_view kept = "");

}  // namespace hwx

#endif  // HWX_TRANSFER_SERVERADDRESS_H
