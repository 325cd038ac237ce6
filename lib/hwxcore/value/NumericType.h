// Which C++ type holds the values of a numeric CIM type. Thread-safety: functions without state.

#ifndef HWXCORE_VALUE_NUMERICTYPE_H
#define HWXCORE_VALUE_NUMERICTYPE_H

#include "hwxcore/value/TCIMValue.h"

namespace NQORHWX20 {

/// Whether it is a boolean, an integer or a real, and no array.
constexpr bool IsNumericType(TCIMValue::TCIMType::ECIMType type) {
  return type >= TCIMValue::TCIMType::kCIMTypeBoolean &&
         type <= TCIMValue::TCIMType::kCIMTypeReal64;
}

/// A type, handed over as a value.
template <typename T>
struct TNumericType {
  using Type = T;
};

/// For a numeric type: what `visit` returns for a `TNumericType` of the C++ type that holds it. For
/// any other: what `otherwise` returns, which gives the result its type.
///
///     const auto print = [&](auto numeric) -> std::string {
///       return Print<typename decltype(numeric)::Type>(value);
///     };
///     return OfNumericType(value.GetType(), print, [&] { return value.ToString(10); });
template <typename Visit, typename Otherwise>
auto OfNumericType(TCIMValue::TCIMType::ECIMType type, Visit visit, Otherwise otherwise)
    -> decltype(otherwise()) {
  switch (type) {
    case TCIMValue::TCIMType::kCIMTypeBoolean:
      return visit(TNumericType<bool>());
    case TCIMValue::TCIMType::kCIMTypeUInt8:
      return visit(TNumericType<unsigned char>());
    case TCIMValue::TCIMType::kCIMTypeSInt8:
      return visit(TNumericType<signed char>());
    case TCIMValue::TCIMType::kCIMTypeUInt16:
      return visit(TNumericType<unsigned short>());
    case TCIMValue::TCIMType::kCIMTypeSInt16:
      return visit(TNumericType<short>());
    case TCIMValue::TCIMType::kCIMTypeUInt32:
      return visit(TNumericType<unsigned int>());
    case TCIMValue::TCIMType::kCIMTypeSInt32:
      return visit(TNumericType<int>());
    case TCIMValue::TCIMType::kCIMTypeUInt64:
      return visit(TNumericType<unsigned long>());
    case TCIMValue::TCIMType::kCIMTypeSInt64:
      return visit(TNumericType<long>());
    case TCIMValue::TCIMType::kCIMTypeReal32:
      return visit(TNumericType<float>());
    case TCIMValue::TCIMType::kCIMTypeReal64:
      return visit(TNumericType<double>());
    default:
      return otherwise();
  }
}

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_NUMERICTYPE_H
