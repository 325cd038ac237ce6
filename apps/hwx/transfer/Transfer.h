// Files sent and fetched by the library, with failures in words.
// Thread-safety: for the main thread, one transfer at a time.

#ifndef HWX_TRANSFER_TRANSFER_H
#define HWX_TRANSFER_TRANSFER_H

#include <cstdint>
#include <string>

#include "hwx/transfer/ServerAddress.h"

namespace hwx {

/// One place on a server, and how to log in there.
struct TRemoteFile {
  TServerAddress fServer;
  std::string fPassword;  ///< Empty for none.
  std::string fPath;      ///< Escaped, as it stands in a URL.

  /// The URL, without credentials.
  std::string URL() const;
};

/// The path of the file `name` in the address's directory, escaped for a URL.
std::string RemotePath(const TServerAddress& server, const std::string& name);

/// Sends a file and returns its size. Shows how far it is if the standard error stream is a
/// terminal. Throws `TFailure`.
std::uintmax_t SendFile(const std::string& localFile, const TRemoteFile& remote);

/// Fetches a file and returns its size. `localFile` is made, or replaced, only once all of it is
/// here. Throws `TFailure`, and has then changed nothing.
std::uintmax_t FetchFile(const TRemoteFile& remote, const std::string& localFile);

/// Why the library couldn't open libcurl, in words that tell what to do.
std::string WhyNoLibcurl();

}  // namespace hwx

#endif  // HWX_TRANSFER_TRANSFER_H
