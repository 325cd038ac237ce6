#ifndef HWXCORE_DIAGNOSTICS_TCOMMUTIL_H
#define HWXCORE_DIAGNOSTICS_TCOMMUTIL_H

#include <string>
#include <vector>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

/// Small services for text and paths.
///
/// Thread-safety: no state. Two threads or processes that make the same tree at once can race: the
/// loser gets `kHWXStatusDirectoryAlreadyExists`.
class HWX_EXPORT TCommUtil {
 public:
  TCommUtil() {}

  /// Cleans one line of text: what follows a newline is cut, blanks (not tabs) at both ends go,
  /// then what follows a carriage return is cut. A line with a character that the process's
  /// locale doesn't print becomes empty.
  static std::string RemoveSpaces(std::string text);

  /// Appends the pieces of `path` to `pieces`. With `keepSeparator` each piece keeps the one
  /// separator character behind it. An empty path, and the place behind a separator at the end,
  /// give no piece.
  static void SplitPath(const std::string& path, std::vector<std::string>& pieces,
                        const std::string& separator, bool keepSeparator);

  /// Makes a directory with all its parents. Throws what `TOSSpecific::CreateDir` throws; the
  /// levels made before a failure stay.
  static void MkDirHier(const std::string& path);
};

}  // namespace NQORHWX20

#endif  // HWXCORE_DIAGNOSTICS_TCOMMUTIL_H
