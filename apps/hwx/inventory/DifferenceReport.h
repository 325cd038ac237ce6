// What "hwx diff" prints. Thread-safety: functions without state.

#ifndef HWX_INVENTORY_DIFFERENCEREPORT_H
#define HWX_INVENTORY_DIFFERENCEREPORT_H

#include <string>

#include "hwx/inventory/Difference.h"
#include "hwx/inventory/Meaning.h"

namespace hwx {

/// A line for each instance that one side lacks, a table for each that changed, and a summary.
/// With `kMeant`, values show what they mean, unless that hides the change.
std::string DifferenceText(const TDifference& difference, EValues values);

/// With `kMeant`, a value that has words is {"value": ..., "text": "..."}.
std::string DifferenceJson(const TDifference& difference, EValues values);

}  // namespace hwx

#endif  // HWX_INVENTORY_DIFFERENCEREPORT_H
