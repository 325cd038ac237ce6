#ifndef HWXTESTS_UNIT_HWXCORE_VALUE_VALUETESTING_H
#define HWXTESTS_UNIT_HWXCORE_VALUE_VALUETESTING_H

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "hwxcore/value/TCIMChar16.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/TCIMValue.h"
#include "hwxcore/value/THWXException.h"

namespace hwxtest {

using TCIMType = NQORHWX20::TCIMValue::TCIMType;
using TElements = std::vector<NQORHWX20::TCIMValue>;

/// The name of the status with which `operation` fails, "no failure" if it doesn't.
template <typename Operation>
std::string FailureOf(Operation operation) {
  try {
    operation();
  } catch (const NQORHWX20::THWXException& failure) {
    return failure.what();
  }
  return "no failure";
}

/// A class by address alone: values carry the pointer and never call it.
inline boost::shared_ptr<NQORHWX20::ICIMClass> MakeClassToken() {
  const auto token = boost::make_shared<std::max_align_t>();
  return {token, reinterpret_cast<NQORHWX20::ICIMClass*>(token.get())};
}

/// An element of type uint8 for each number.
inline TElements ByteElements(const std::vector<unsigned char>& numbers) {
  return TElements(numbers.begin(), numbers.end());
}

/// The tag with the array flag.
inline TCIMType ArrayOf(TCIMType type) {
  return static_cast<TCIMType::ECIMType>(type | TCIMType::kCIMTypeArrayFlag);
}

/// Reads a value from text as the text constructor does, which wants a string that can change.
inline NQORHWX20::TCIMValue FromText(TCIMType type, std::string text) {
  return NQORHWX20::TCIMValue(type, text, boost::shared_ptr<NQORHWX20::ICIMNamespace>());
}

/// One value of each scalar type that a value can be given, in the order of the tags.
inline std::vector<NQORHWX20::TCIMValue> OneOfEachScalar() {
  using NQORHWX20::TCIMValue;
  return {TCIMValue(true),
          TCIMValue(static_cast<unsigned char>(65)),
          TCIMValue(static_cast<signed char>(-65)),
          TCIMValue(static_cast<unsigned short>(65000)),
          TCIMValue(static_cast<short>(-32000)),
          TCIMValue(4000000000u),
          TCIMValue(-2000000000),
          TCIMValue(18000000000000000000ul),
          TCIMValue(-9000000000000000000l),
          TCIMValue(0.5f),
          TCIMValue(-0.25),
          TCIMValue(NQORHWX20::TCIMChar16(static_cast<unsigned short>(65))),
          TCIMValue("text"),
          TCIMValue(NQORHWX20::TCIMDateTime(1, 2, 3, 4, 5))};
}

/// The same, with an array behind them.
inline std::vector<NQORHWX20::TCIMValue> OneOfEachType() {
  std::vector<NQORHWX20::TCIMValue> values = OneOfEachScalar();
  const std::vector<NQORHWX20::TCIMValue> elements = {values[1], values[1]};
  values.push_back(NQORHWX20::TCIMValue(TCIMType::kCIMTypeUInt8, 2, elements));
  return values;
}

}  // namespace hwxtest

#endif  // HWXTESTS_UNIT_HWXCORE_VALUE_VALUETESTING_H
