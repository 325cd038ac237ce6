// Why classes have no instances, where the provider tells. Thread-safety: that of the namespace.

#ifndef HWX_INVENTORY_EMPTYCLASSES_H
#define HWX_INVENTORY_EMPTYCLASSES_H

#include <string>
#include <vector>

#include "hwx/inventory/Inventory.h"

namespace hwx {

/// The class in which the provider tells it: an instance for each class that has none.
extern const char kClassStatus[];

/// A line for each of the classes of which `ns` says why it has no instances: "NAME has no
/// instances: REASON". Of a class of which nothing is said there is no line.
std::vector<std::string> WhyEmpty(NQORHWX20::ICIMNamespace& ns, const TClasses& classes);

}  // namespace hwx

#endif  // HWX_INVENTORY_EMPTYCLASSES_H
