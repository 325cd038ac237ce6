#ifndef HWXTESTS_SUPPORT_RANDOMVALUES_H
#define HWXTESTS_SUPPORT_RANDOMVALUES_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/TCIMValue.h"

namespace hwxtest {

/// Values of every type from a seeded generator, with a liking for limits and oddities: nulls, null
/// elements, cleared date-times and characters, texts of any bytes, reals of any bits.
///
/// Thread-safety: none.
class RandomValues {
 public:
  using Value = NQORHWX20::TCIMValue;
  using Type = Value::TCIMType::ECIMType;

  explicit RandomValues(std::uint64_t seed) : fEngine(seed) {}

  /// References are made by `targets` if there are any, and else stay null.
  void SetTargets(const std::vector<NQORHWX20::TCIMReference>& targets) { fTargets = targets; }

  /// A type: each scalar and an array of each.
  Type AnyType();
  /// A value of a type, which may be null.
  Value Any(Type type);
  /// A value that isn't null, nor holds anything cleared: it can be a key.
  Value Key(Type type);

  std::string Text();
  std::uint64_t Below(std::uint64_t limit) { return fEngine() % limit; }

 private:
  Value Scalar(Type type, bool isKey);
  Value Null(Type type);
  template <typename Number>
  Value NumberOf();
  template <typename Real, typename Bits>
  Value RealOf();
  Value Moment();

  std::mt19937_64 fEngine;
  std::vector<NQORHWX20::TCIMReference> fTargets;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_RANDOMVALUES_H
