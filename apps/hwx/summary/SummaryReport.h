// What "hwx summary" prints. Thread-safety: functions without state.

#ifndef HWX_SUMMARY_SUMMARYREPORT_H
#define HWX_SUMMARY_SUMMARYREPORT_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "hwx/summary/Summary.h"

namespace hwx {

/// Each section behind its title, one line below the other, parts set in. Lines that are longer
/// than `width` are cut, with a "~" at the end. Titles are bold if `hasColour`.
std::string SummaryText(const std::vector<TSummarySection>& sections,
                        std::optional<std::size_t> width, bool hasColour);

/// {"machine": [{"text": "...", "parts": [...]}, ...], ...}, by the titles in small letters;
/// "parts" is there where a line has some.
std::string SummaryJson(const std::vector<TSummarySection>& sections);

}  // namespace hwx

#endif  // HWX_SUMMARY_SUMMARYREPORT_H
