// Conditions on instances, as the option "--where" takes them:
//
//     Capacity > 8GiB and (Manufacturer ~ "acme" or not SerialNumber)
//
//     condition  = term { "or" term }
//     term       = factor { "and" factor }
//     factor     = "not" factor | "(" condition ")" | NAME [ operator value ]
//     operator   = "=" | "!=" | "<" | "<=" | ">" | ">=" | "~" | "!~"
//     value      = "text in quotes" | 'text in quotes' | word
//
// A name alone asks whether the property has a value, and one that isn't false or empty. "~" asks
// whether the text is part of the value's. Texts are compared without regard to case, with the
// value as it is stored and with its word. A number may have a unit, which is reckoned with that of
// the property. "null" without quotes is no value. Of an array, one element suffices.

#ifndef HWX_FILTER_FILTER_H
#define HWX_FILTER_FILTER_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hwx/inventory/Reading.h"
#include "hwx/text/Units.h"

namespace hwx {

struct TCondition;

/// A condition. Thread-safety: constant once made; copies share what they stand for.
class TFilter {
 public:
  /// Throws `TFailure`, which tells the place, for a text of another form.
  explicit TFilter(const std::string& text);

  bool Matches(const TReadInstance& instance) const;

  /// The names of the properties that are asked for, in the order of the text.
  std::vector<std::string> PropertyNames() const;

 private:
  std::shared_ptr<const TCondition> fCondition;
};

/// Keeps the instances that match. Throws `TFailure` if no class has a property that is asked for.
void KeepMatching(TReading& reading, const TFilter& filter);

}  // namespace hwx

#endif  // HWX_FILTER_FILTER_H
