// What a namespace holds, class by class. Thread-safety: that of the namespace.

#ifndef HWX_INVENTORY_INVENTORY_H
#define HWX_INVENTORY_INVENTORY_H

#include <functional>
#include <string>
#include <vector>

#include "hwx/inventory/Namespace.h"
#include "hwxcore/value/TCIMValue.h"

namespace hwx {

using TClasses = std::vector<ClassPtr>;

/// All classes, each behind its superclass.
TClasses AllClasses(NQORHWX20::ICIMNamespace& ns);

/// The class of that name, in whatever case. Throws `TFailure` if there is none.
ClassPtr ClassNamed(NQORHWX20::ICIMNamespace& ns, const std::string& name);

/// The classes of these names with all that descend from them, in the order of `AllClasses`; all
/// classes without a name. Case counts for nothing, and in a name "*" stands for any characters,
/// "?" for one and "[...]" for one of those. Throws `TFailure` for a name that no class has.
TClasses ClassesLike(NQORHWX20::ICIMNamespace& ns, const std::vector<std::string>& names);

/// Those of the classes that aren't associations.
TClasses WithoutAssociations(const TClasses& classes);

using TInstanceVisitor = std::function<void(const InstancePtr&)>;

/// Presents the instances that the class itself has, none of its subclasses'. A provider that fails
/// costs the rest of this class: that is reported on the standard error stream, and the answer is
/// false.
bool VisitInstances(NQORHWX20::ICIMClass& cimClass, const TInstanceVisitor& visit);

/// The path of an instance in its namespace: the class with the keys. One without keys is named by
/// its class alone.
std::string InstancePath(NQORHWX20::ICIMInstance& instance);

/// A property of an instance.
struct TPropertyValue {
  std::string fName;
  NQORHWX20::TCIMValue fValue;
};

/// All properties, in the order of the class.
std::vector<TPropertyValue> PropertyValues(NQORHWX20::ICIMInstance& instance);

}  // namespace hwx

#endif  // HWX_INVENTORY_INVENTORY_H
