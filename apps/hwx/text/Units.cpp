#include "hwx/text/Units.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <vector>

#include "hwx/text/Words.h"

namespace hwx {

namespace {

struct TNamedUnit {
  const char* fName;
  const char* fSymbol;
  long double fFactor;
};

constexpr long double kKibi = 1024;

// The texts of "Units", and the base units of "PUnit".
constexpr TNamedUnit kUnits[] = {
    {"bytes", "B", 1},
    {"kilobytes", "B", kKibi},
    {"megabytes", "B", kKibi* kKibi},
    {"gigabytes", "B", kKibi* kKibi* kKibi},
    {"terabytes", "B", kKibi* kKibi* kKibi* kKibi},
    {"bits", "bit", 1},
    {"kilobits", "bit", 1e3L},
    {"megabits", "bit", 1e6L},
    {"bits per second", "bit/s", 1},
    {"kilobits per second", "bit/s", 1e3L},
    {"megabits per second", "bit/s", 1e6L},
    {"bytes per second", "B/s", 1},
    {"hertz", "Hz", 1},
    {"kilohertz", "Hz", 1e3L},
    {"megahertz", "Hz", 1e6L},
    {"nanoseconds", "s", 1e-9L},
    {"microseconds", "s", 1e-6L},
    {"milliseconds", "s", 1e-3L},
    {"seconds", "s", 1},
    {"minutes", "min", 1},
    {"hours", "h", 1},
    {"days", "days", 1},
    {"volts", "V", 1},
    {"millivolts", "V", 1e-3L},
    {"amps", "A", 1},
    {"milliamps", "A", 1e-3L},
    {"watts", "W", 1},
    {"milliwatts", "W", 1e-3L},
    {"milliwatthours", "Wh", 1e-3L},
    {"degrees c", "degrees C", 1},
    {"degrees f", "degrees F", 1},
    {"inches", "in", 1},
    {"percent", "%", 1},
    {"revolutions per minute", "rpm", 1},
    {"rpm", "rpm", 1},
    {"byte", "B", 1},
    {"byte / second", "B/s", 1},
    {"bit", "bit", 1},
    {"bit / second", "bit/s", 1},
    {"second", "s", 1},
    {"minute", "min", 1},
    {"hour", "h", 1},
    {"day", "days", 1},
    {"volt", "V", 1},
    {"ampere", "A", 1},
    {"watt", "W", 1},
    {"watt * hour", "Wh", 1},
    {"degree celsius", "degrees C", 1},
    {"degree fahrenheit", "degrees F", 1},
    {"inch", "in", 1},
    {"meter", "m", 1},
    {"gram", "g", 1},
    {"revolution / minute", "rpm", 1},
};

constexpr const char* kDecimal[] = {"", "k", "M", "G", "T", "P", "E"};
constexpr const char* kBinary[] = {"", "Ki", "Mi", "Gi", "Ti", "Pi", "Ei"};
constexpr int kPrefixes = 7;

// Symbols that prefixes stand in front of.
constexpr const char* kPrefixed[] = {"B", "Hz", "bit", "bit/s", "B/s", "V", "A", "W", "Wh"};

bool TakesPrefixes(const std::string& symbol) {
  return std::find(std::begin(kPrefixed), std::end(kPrefixed), symbol) != std::end(kPrefixed);
}

bool IsOfBytes(const std::string& symbol) {
  return symbol == "B" || symbol == "B/s";
}

std::optional<TUnit> NamedUnit(const std::string& name) {
  for (const TNamedUnit& unit : kUnits) {
    if (name == unit.fName) return TUnit{unit.fSymbol, unit.fFactor};
  }
  return std::nullopt;
}

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

// "10^6" or "1024".
std::optional<long double> Factor(std::string_view text) {
  const std::size_t caret = text.find('^');
  const auto base = WholeNumber(Trimmed(text.substr(0, caret)));
  const auto power = caret == std::string_view::npos ? std::optional(1)
                                                     : WholeNumber(Trimmed(text.substr(caret + 1)));
  if (!base || !power || *base <= 0 || std::abs(*power) > 100) return std::nullopt;
  return std::pow(static_cast<long double>(*base), *power);
}

// A base unit, then factors: "byte * 10^3".
std::optional<TUnit> ProgrammaticUnit(std::string text) {
  long double factor = 1;
  for (std::size_t star = text.rfind('*'); star != std::string::npos; star = text.rfind('*')) {
    const auto last = Factor(std::string_view(text).substr(star + 1));
    if (!last) break;
    factor *= *last;
    text = Trimmed(text.substr(0, star));
  }
  auto unit = NamedUnit(text);
  if (unit) unit->fFactor *= factor;
  return unit;
}

// "5" or "2.5"; missing where one digit behind the point isn't enough.
std::optional<std::string> ShortText(long double number) {
  const long double tenths = std::round(number * 10);
  if (std::fabs(number * 10 - tenths) > 1e-9L * std::fabs(tenths)) return std::nullopt;
  return NumberText(tenths / 10);
}

std::string RoundedText(long double number) {
  return NumberText(std::round(number * 10) / 10);
}

int LargestPrefix(long double amount, long double step) {
  int prefix = 0;
  for (; prefix + 1 < kPrefixes && std::fabs(amount) >= step; ++prefix)
    amount /= step;
  return prefix;
}

std::string BytesText(long double bytes, const std::string& symbol) {
  constexpr long double kFew = kKibi * kKibi;  // told exactly
  for (int prefix = LargestPrefix(bytes, kKibi); prefix > 0; --prefix) {
    const long double scaled = bytes / std::pow(kKibi, prefix);
    const auto text = ShortText(scaled);
    if (text || std::fabs(bytes) >= kFew)
      return text.value_or(RoundedText(scaled)) + " " + kBinary[prefix] + symbol;
  }
  return NumberText(bytes) + " " + symbol;
}

std::string DecimalText(long double amount, const std::string& symbol) {
  for (int prefix = LargestPrefix(amount, 1000); prefix > 0; --prefix) {
    if (const auto text = ShortText(amount / std::pow(1000.0L, prefix)))
      return *text + " " + kDecimal[prefix] + symbol;
  }
  return NumberText(amount) + " " + symbol;
}

}  // namespace

std::optional<TUnit> ParseUnit(std::string_view text) {
  const std::string name = Lower(std::string(Trimmed(text)));
  if (auto unit = NamedUnit(name)) return unit;
  return ProgrammaticUnit(name);
}

std::optional<TUnit> ParseSymbol(std::string_view text) {
  const std::string given = Lower(std::string(text));
  for (const TNamedUnit& unit : kUnits) {
    const std::string symbol = Lower(unit.fSymbol);
    if (unit.fFactor == 1 && given == symbol) return TUnit{unit.fSymbol, 1};
    if (!TakesPrefixes(unit.fSymbol)) continue;
    for (int prefix = 1; prefix < kPrefixes; ++prefix) {
      if (given == Lower(kDecimal[prefix]) + symbol)
        return TUnit{unit.fSymbol, std::pow(1000.0L, prefix)};
      if (given == Lower(kBinary[prefix]) + symbol)
        return TUnit{unit.fSymbol, std::pow(kKibi, prefix)};
    }
  }
  return std::nullopt;
}

std::string AmountText(long double number, const TUnit& unit) {
  const long double amount = number * unit.fFactor;
  if (IsOfBytes(unit.fSymbol)) return BytesText(amount, unit.fSymbol);
  if (TakesPrefixes(unit.fSymbol)) return DecimalText(amount, unit.fSymbol);
  return NumberText(amount) + " " + unit.fSymbol;
}

std::string NumberText(long double number) {
  char text[64];
  const bool isWhole = std::fabs(number) < 1e19L && std::floor(number) == number;
  std::snprintf(text, sizeof text, isWhole ? "%.0Lf" : "%.6Lg", number);
  return text;
}

}  // namespace hwx
