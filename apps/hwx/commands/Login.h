// The options by which the commands that transfer learn a password.
// Thread-safety: for the main thread.

#ifndef HWX_COMMANDS_LOGIN_H
#define HWX_COMMANDS_LOGIN_H

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "hwx/transfer/ServerAddress.h"

namespace hwx {

/// How to log in at a server.
struct TLogin {
  std::optional<std::string> fPasswordFile;
  bool fHasNoPassword = false;

  void AddTo(CLI::App& app);

  /// The password for the user of the address; none if that has no user. Throws `TFailure`.
  std::string PasswordFor(const TServerAddress& server) const;
};

/// Adds the positional argument of an address, which must be sound.
CLI::Option* AddAddress(CLI::App& app, const char* name, std::optional<std::string>& target,
                        const char* description, const char* argument);

}  // namespace hwx

#endif  // HWX_COMMANDS_LOGIN_H
