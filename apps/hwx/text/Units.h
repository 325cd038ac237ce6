// Units of a schema, and amounts as people read them. Thread-safety: functions without state.

#ifndef HWX_TEXT_UNITS_H
#define HWX_TEXT_UNITS_H

#include <optional>
#include <string>
#include <string_view>

namespace hwx {

/// What a number counts: so many times the unit of that symbol.
struct TUnit {
  std::string fSymbol;  ///< "B", "Hz", "bit/s", "min", ...
  long double fFactor;  ///< 1000000 for megahertz.
};

/// The unit that the text of a qualifier names, be it "PUnit" ("byte * 10^3") or "Units"
/// ("KiloBytes", which are 1024 bytes there). Missing for a text that isn't known.
std::optional<TUnit> ParseUnit(std::string_view text);

/// The unit that people write behind a number: "GiB", "GB", "MHz", "kbit/s", "min". Case counts for
/// nothing. Missing for a text that isn't known.
std::optional<TUnit> ParseSymbol(std::string_view text);

/// A number of a unit with the prefix that suits it: "16 GiB", "3.2 GHz", "1500 B", "2.5 Gbit/s".
/// Bytes have the prefixes of 1024, and where they are many one digit behind the point, rounded;
/// other amounts are exact.
std::string AmountText(long double number, const TUnit& unit);

/// A number without needless digits: "5", "0.25".
std::string NumberText(long double number);

}  // namespace hwx

#endif  // HWX_TEXT_UNITS_H
