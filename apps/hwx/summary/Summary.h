// A machine on one screen: what people ask first, from an identity and from what was read of its
// classes. Thread-safety: functions without state.

#ifndef HWX_SUMMARY_SUMMARY_H
#define HWX_SUMMARY_SUMMARY_H

#include <string>
#include <vector>

#include "hwx/identity/Identity.h"
#include "hwx/inventory/Reading.h"

namespace hwx {

/// A line, with what belongs below it: a disk with its partitions.
struct TSummaryLine {
  std::string fText;  ///< Any bytes.
  std::vector<TSummaryLine> fParts;
};

struct TSummarySection {
  std::string fTitle;  ///< "Memory"
  std::vector<TSummaryLine> fLines;
};

/// The sections that a machine has something for: machine, firmware, system, processors, memory,
/// disks, network, PCI devices. What is missing of the first shows as its reason. A property or
/// class that isn't there leaves its part out.
std::vector<TSummarySection> Summarize(const TIdentity& identity, const TReading& reading);

/// How long a machine has been running: "3 days 4 h", from two date-times as they are stored. Empty
/// if they tell none.
std::string UpTime(const std::string& start, const std::string& now);

}  // namespace hwx

#endif  // HWX_SUMMARY_SUMMARY_H
