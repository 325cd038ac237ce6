// The distribution's own words about itself, as /etc/os-release has them.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_OSRELEASE_H
#define PROVIDERS_LINUX_OSRELEASE_H

#include <optional>
#include <string>
#include <string_view>

namespace linux_machine {

/// Empty values count as missing.
struct TOSRelease {
  std::optional<std::string> fName;        ///< NAME
  std::optional<std::string> fPrettyName;  ///< PRETTY_NAME
  std::optional<std::string> fVersionID;   ///< VERSION_ID
};

/// Reads the assignments in the file's text, which a shell could run: comments, quotes of both
/// kinds and backslashes are understood, substitutions are not carried out. The last assignment to
/// a name counts. Lines that are no assignment are passed over, whatever they hold.
TOSRelease ParseOSRelease(std::string_view text);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_OSRELEASE_H
