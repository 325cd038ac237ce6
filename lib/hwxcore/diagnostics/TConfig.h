#ifndef HWXCORE_DIAGNOSTICS_TCONFIG_H
#define HWXCORE_DIAGNOSTICS_TCONFIG_H

#include <map>
#include <string>
#include <vector>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

/// The configuration file "dct.cfg", which lies in a directory "dct" beside the library. The tools
/// and plug-ins that link against the library define what its keys mean; the library reads none.
///
/// A line is a key and a value with "=" between them:
///
///     timeout=300
///
/// The value begins behind the first "=", and further ones belong to it. Nothing is trimmed: blanks
/// around the "=" belong to key and value, and so does a carriage return at the end. A line whose
/// very first character is "#" is a comment; a line without "=" is a key whose value is the key
/// itself; a line with an empty key or an empty value counts for nothing. Of a key that occurs
/// twice, the first line holds. Case counts.
///
/// A file that is missing, empty or unreadable gives no keys. No exception tells of it, but the
/// log.
///
/// Thread-safety: none for the first `GetInstance`, which must return before other threads call it,
/// nor for `parseConfigFile`. Look-ups on several threads are safe.
class HWX_EXPORT TConfig {
 public:
  /// The configuration of this process, made and read at the first call. It stays for good; the
  /// caller doesn't own it. Throws what `TOSSpecific::GetHWXRootPath` throws; the next call then
  /// tries again.
  static TConfig* GetInstance();

  /// Never for the singleton: destroying it ends the process by `std::abort`.
  ~TConfig();

  TConfig(const TConfig&) = delete;
  TConfig& operator=(const TConfig&) = delete;

  /// The value of `key`; empty, after an error in the log, if the file has no such key.
  std::string getValue(const std::string& key) const;

  /// All keys, sorted by their bytes; none, after an error in the log, if there are none.
  std::vector<std::string> listKeys() const;

  /// Reads the file once more: keys that are new are added, and what is there stays. Returns false
  /// if it can't be read, is missing or empty. Throws `kHWXStatusFileNotFound` if it vanishes
  /// meanwhile.
  bool parseConfigFile();

 private:
  TConfig();

  std::map<std::string, std::string> cfgMap;
  std::string cfgFilePath;

  static TConfig* cfgInstance;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_DIAGNOSTICS_TCONFIG_H
