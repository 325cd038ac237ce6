#ifndef HWX_FILTER_CONDITION_H
#define HWX_FILTER_CONDITION_H

#include <optional>
#include <string>
#include <vector>

#include "hwx/text/Units.h"

namespace hwx {

enum class EOperator {
  kHasValue,
  kEqual,
  kUnequal,
  kLess,
  kAtMost,
  kMore,
  kAtLeast,
  kHolds,
  kHoldsNot
};

/// What a property is compared with.
struct TOperand {
  std::string fText;
  bool fIsNull = false;
  std::optional<long double> fNumber;  ///< If the text is one, and not in quotes.
  std::optional<TUnit> fUnit;          ///< Behind the number.
};

/// A condition on an instance. Thread-safety: a plain value.
struct TCondition {
  enum EKind { kComparison, kNot, kAnd, kOr };

  EKind fKind = kComparison;
  std::vector<TCondition> fParts;  ///< One of a `kNot`, two or more of `kAnd` and `kOr`.

  std::string fName;  ///< Of the property that is compared.
  EOperator fOperator = EOperator::kHasValue;
  TOperand fOperand;
};

/// Parses the form that Filter.h tells. Throws `TFailure`, which tells the place.
/// Thread-safety: a function without state.
TCondition ParseCondition(const std::string& text);

}  // namespace hwx

#endif  // HWX_FILTER_CONDITION_H
