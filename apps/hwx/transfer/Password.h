// Passwords: from a file that nobody else can read, or from the user at the terminal.
// Thread-safety: for the main thread.

#ifndef HWX_TRANSFER_PASSWORD_H
#define HWX_TRANSFER_PASSWORD_H

#include <optional>
#include <string>

namespace hwx {

/// The first line of a file, without its end. Throws `TFailure` if the file can't be read, or isn't
/// for its owner alone: it must be a file of this user, or of root, with no rights for others.
std::string PasswordFromFile(const std::string& path);

/// Asks on the terminal of this process, wherever its streams lead, and shows nothing of what is
/// typed. Throws `TFailure` if there is no terminal, or no answer.
std::string AskForPassword(const std::string& whose);

/// From `file` if there is one; else asked for.
std::string PasswordOf(const std::string& whose, const std::optional<std::string>& file);

}  // namespace hwx

#endif  // HWX_TRANSFER_PASSWORD_H
