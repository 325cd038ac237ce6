#ifndef HWXKIT_DETAIL_INSTANCEVALUES_H
#define HWXKIT_DETAIL_INSTANCEVALUES_H

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

#include "hwxcore/value/TCIMValue.h"
#include "hwxkit/TElementNotes.h"

namespace NQORHWX20::detail {

/// The values of an instance, in the order of its class's properties. It is shared with the
/// properties that were handed out: they go on showing a value when the instance is gone.
struct TInstanceValues {
  explicit TInstanceValues(std::size_t count) : fValues(count) {}

  /// One that was never set is null, and stands for the default value of its declaration: nearly
  /// all instances leave most properties alone. Each is replaced by a new copy and never assigned
  /// to: assignment of values compares first, and takes any two characters for equal.
  std::vector<std::unique_ptr<const TCIMValue> > fValues;
  /// What files say of single properties, by their places; of the instance itself under
  /// `fValues.size()`. Most instances have none.
  std::unique_ptr<std::map<std::size_t, TElementNotes> > fNotes;
};

}  // namespace NQORHWX20::detail

#endif  // HWXKIT_DETAIL_INSTANCEVALUES_H
