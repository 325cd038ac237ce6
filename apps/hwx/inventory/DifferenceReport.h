// What "hwx diff" prints. Thread-safety: functions without state.

#ifndef HWX_INVENTORY_DIFFERENCEREPORT_H
#define HWX_INVENTORY_DIFFERENCEREPORT_H

#include <string>

#include "hwx/inventory/Difference.h"

namespace hwx {

/// A line for each instance that one side lacks, a table for each that changed, and a summary.
std::string DifferenceText(const TDifference& difference);

std::string DifferenceJson(const TDifference& difference);

}  // namespace hwx

#endif  // HWX_INVENTORY_DIFFERENCEREPORT_H
