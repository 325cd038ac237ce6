// Values as people and programs read them. Thread-safety: functions without state.

#ifndef HWX_INVENTORY_VALUETEXT_H
#define HWX_INVENTORY_VALUETEXT_H

#include <string>

#include "hwx/text/Json.h"
#include "hwxcore/value/TCIMValue.h"

namespace hwx {

/// Numbers and booleans as such, arrays as arrays, a null value and a null element as null, all
/// other types as the text that they print. Reals that JSON has no number for are texts: "NaN",
/// "Infinity", "-Infinity".
TJson ValueJson(const NQORHWX20::TCIMValue& value);

/// For a table: strings as they are, without quotation marks; elements of arrays with commas
/// between them; "(null)" for null.
std::string ValueText(const NQORHWX20::TCIMValue& value);

/// The same for what `ValueJson` made of a value.
std::string PlainText(const TJson& json);

/// The type as a schema names it, as in "uint32[]".
std::string TypeName(const NQORHWX20::TCIMValue::TCIMType& type);

}  // namespace hwx

#endif  // HWX_INVENTORY_VALUETEXT_H
