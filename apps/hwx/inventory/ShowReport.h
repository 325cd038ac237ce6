// What "hwx show" prints of what was read. Thread-safety: functions without state.

#ifndef HWX_INVENTORY_SHOWREPORT_H
#define HWX_INVENTORY_SHOWREPORT_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "hwx/inventory/Reading.h"

namespace hwx {

/// How a table of columns looks.
struct TColumnsStyle {
  EValues fValues = EValues::kMeant;
  std::vector<std::string> fColumns;  ///< Empty for all that have a value.
  std::optional<std::size_t> fWidth;  ///< Missing where lines may be of any length.
  bool fHasHeader = true;
};

/// A table for each class that has instances: a line for each. Several classes have their names
/// above. Where columns have no room, a line tells how many.
std::string ShowColumns(const TReading& reading, const TColumnsStyle& style);

/// Each instance as a table of its properties under its path; null properties are left out.
std::string ShowLong(const TReading& reading, EValues values);

/// All classes with their properties, and all instances with all values. With `kMeant`, a value
/// that has words is {"value": ..., "text": "..."}.
std::string ShowJson(const TReading& reading, EValues values);

/// A line for each instance: {"class": "...", "path": "...", "values": {...}}.
std::string ShowJsonLines(const TReading& reading, EValues values);

/// A line for each instance with commas between the fields: the class, the path, then each property
/// that one of the classes has. Fields are printable, and stand in quotation marks where they hold
/// some or a comma. Null values are empty.
std::string ShowCsv(const TReading& reading, EValues values, bool hasHeader);

}  // namespace hwx

#endif  // HWX_INVENTORY_SHOWREPORT_H
