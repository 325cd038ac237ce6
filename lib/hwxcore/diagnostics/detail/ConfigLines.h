#ifndef HWXCORE_DIAGNOSTICS_DETAIL_CONFIGLINES_H
#define HWXCORE_DIAGNOSTICS_DETAIL_CONFIGLINES_H

#include <istream>
#include <map>
#include <string>

namespace NQORHWX20::detail {

/// Reads lines to the end of `stream` and adds their keys and values to `entries`. A key that is
/// there already keeps its value. No line is an error.
void ReadConfigLines(std::istream& stream, std::map<std::string, std::string>& entries);

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_DIAGNOSTICS_DETAIL_CONFIGLINES_H
