// Instances as they were read: read once, then asked, chosen from, sorted and shown.
// Thread-safety: that of the classes while they are read; then plain values.

#ifndef HWX_INVENTORY_READING_H
#define HWX_INVENTORY_READING_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hwx/inventory/Inventory.h"
#include "hwx/inventory/Meaning.h"
#include "hwx/text/Json.h"

namespace hwx {

/// A property's value.
struct TReadValue {
  std::string fName;
  TJson fStored;             ///< As `ValueJson` has it.
  const TMeaning* fMeaning;  ///< Belongs to the reading.

  /// For people: the words, else the value; "(null)" for null.
  std::string Text() const;
};

struct TReadInstance {
  std::string fPath;
  std::string fShortPath;           ///< See `ShortPath`.
  std::vector<TReadValue> fValues;  ///< In the order of the class, nulls too.

  /// The value of that name without regard to case, or null.
  const TReadValue* Find(const std::string& name) const;
};

struct TReadClass {
  ClassPtr fClass;
  std::string fName;
  std::vector<std::string> fKeys;
  std::vector<TReadInstance> fInstances;
};

struct TReading {
  std::vector<TReadClass> fClasses;
  std::shared_ptr<TMeanings> fMeanings;
  bool fIsComplete = true;  ///< Whether every class could be read to its end.

  std::size_t InstanceCount() const;
};

/// Reads the instances of each class itself. What can't be read is reported on the standard error
/// stream.
TReading ReadInstances(const TClasses& classes);

/// Takes out what names the machine or repeats the class, and shortens the paths by it: for people,
/// where all is of one machine.
void LeaveOutOwner(TReading& reading);

/// The names of all properties that the classes declare, each once.
std::vector<std::string> PropertyNames(const TReading& reading);

/// Throws `TFailure` if no class has a property of that name.
void RequireProperty(const TReading& reading, const std::string& name);

/// Leaves only properties of those names, in their order, and classes that have one of them. Throws
/// `TFailure` for a name that no class has.
void KeepProperties(TReading& reading, const std::vector<std::string>& names);

/// Sorts the instances of each class by a property: numbers as such, other values by their texts,
/// nulls last. Throws `TFailure` if no class has the property.
void SortInstances(TReading& reading, const std::string& property, bool descends);

}  // namespace hwx

#endif  // HWX_INVENTORY_READING_H
