// What differs between the instances of two namespaces. Thread-safety: that of the namespaces.

#ifndef HWX_INVENTORY_DIFFERENCE_H
#define HWX_INVENTORY_DIFFERENCE_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "hwx/text/Json.h"
#include "hwxcore/schema/ICIMNamespace.h"

namespace hwx {

/// A property that isn't looked at, in the instances of a class and of what descends from it.
struct TIgnoredProperty {
  std::string fClass;
  std::string fProperty;
};

/// A property with other values on both sides.
struct TChangedProperty {
  std::string fName;
  TJson fOld;
  TJson fNew;
  std::optional<std::string> fOldWords =
      {};  ///< What the value means, where that is something else.
  std::optional<std::string> fNewWords = {};
};

/// An instance that both sides have.
struct TChangedInstance {
  std::string fPath;
  std::vector<TChangedProperty> fProperties;
};

/// An instance that one side has.
struct TLoneInstance {
  std::string fPath;
  TJson fValues;  ///< An object of the values that aren't null and aren't ignored.
  std::map<std::string, std::string> fWords = {};  ///< Of those values that have some.
};

struct TDifference {
  std::vector<TLoneInstance> fRemoved;     ///< In the order of the old side.
  std::vector<TLoneInstance> fAdded;       ///< In the order of the new side.
  std::vector<TChangedInstance> fChanged;  ///< In the order of the old side.
  std::size_t fEqual = 0;
  bool fIsComplete = true;  ///< Whether both sides could be read to their ends.

  bool IsEmpty() const { return fRemoved.empty() && fAdded.empty() && fChanged.empty(); }
};

/// Compares instances of the same path; of those without keys, the first of a class with the first,
/// and so on. Values are compared, not types, and a property that a class lacks is null.
///
/// Where each side tells of one machine, what names it is no part of the paths and isn't compared,
/// so that a machine of another name isn't another one in every line. Associations are passed over
/// then: they say what belongs to what, and paths of both sides stand in them.
TDifference Compare(NQORHWX20::ICIMNamespace& oldNamespace, NQORHWX20::ICIMNamespace& newNamespace,
                    const std::vector<TIgnoredProperty>& ignored);

}  // namespace hwx

#endif  // HWX_INVENTORY_DIFFERENCE_H
