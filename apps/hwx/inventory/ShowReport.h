// What "hwx show" prints. Thread-safety: that of the classes.

#ifndef HWX_INVENTORY_SHOWREPORT_H
#define HWX_INVENTORY_SHOWREPORT_H

#include <string>

#include "hwx/inventory/Inventory.h"

namespace hwx {

/// A report on the instances of some classes.
struct TShownClasses {
  std::string fText;
  bool fIsComplete;  ///< Whether every class could be read to its end.
};

/// Each instance as a table of its properties under its path; null properties are left out.
TShownClasses ShowTable(const TClasses& classes);

/// All classes with their properties, and all instances with all values.
TShownClasses ShowJson(const TClasses& classes);

}  // namespace hwx

#endif  // HWX_INVENTORY_SHOWREPORT_H
