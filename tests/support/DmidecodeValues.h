#ifndef HWXTESTS_SUPPORT_DMIDECODEVALUES_H
#define HWXTESTS_SUPPORT_DMIDECODEVALUES_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace hwxtest {

/// What dmidecode shows of one structure.
struct DmidecodeValues {
  std::string fText;                                       ///< All of it, for messages.
  std::map<std::string, std::string> fValues;              ///< By label; the first of a label.
  std::map<std::string, std::vector<std::string>> fLists;  ///< What stands indented below a label.

  /// Whether `item` is in the list below `label`.
  bool Lists(const std::string& label, const std::string& item) const;
};

/// What dmidecode shows of the structures in a dump, by their handles.
std::map<int, DmidecodeValues> ReadDmidecodeValues(const std::string& dump);

/// Whether a value is more than dmidecode's words for one that isn't there or isn't known.
bool IsKnown(const std::string& value);

/// The value with that label; missing where there is none that is known.
std::optional<std::string> KnownValue(const DmidecodeValues& values, const std::string& label);

/// A text of the firmware as dmidecode shows it.
std::string AsDmidecodeShows(std::string text);

/// The 16 of "16 bits".
std::uint64_t Amount(const std::string& value);

/// The bytes of the "GB" in "16 GB": a power of 1024.
std::uint64_t UnitOf(const std::string& value);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_DMIDECODEVALUES_H
