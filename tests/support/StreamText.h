#ifndef HWXTESTS_SUPPORT_STREAMTEXT_H
#define HWXTESTS_SUPPORT_STREAMTEXT_H

#include <cmath>
#include <ios>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <type_traits>

namespace hwxtest {

/// What extracting `Number` from a plain stream over `text` leaves: the measure for all reading.
template <typename Number>
Number StreamedNumber(const std::string& text) {
  std::istringstream stream(text);
  if (std::is_same_v<Number, bool>) {
    stream.setf(std::ios_base::boolalpha);
  } else if (std::is_integral_v<Number>) {
    stream.unsetf(std::ios_base::dec);
  }
  Number number = 0;
  stream >> number;
  return number;
}

/// Whether two numbers are one, with 0 told from -0.
template <typename Number>
bool IsSame(Number left, Number right) {
  return left == right && std::signbit(left) == std::signbit(right);
}

/// What a plain stream prints: the measure for all printing. Characters are not for it.
template <typename Number>
std::string StreamedText(Number number, int base, int width) {
  static_assert(sizeof number > 1);
  std::ostringstream stream;
  if (base == 16) stream << std::hex << std::uppercase;
  if (base == 8) stream << std::oct;
  stream.fill('0');
  stream.width(width);
  stream << number;
  return stream.str();
}

/// How a locale writes numbers, free of what is installed on the machine.
class TPunctuation : public std::numpunct<char> {
 public:
  TPunctuation(char point, char separator, const char* grouping)
      : fPoint(point), fSeparator(separator), fGrouping(grouping) {}

 protected:
  char do_decimal_point() const override { return fPoint; }
  char do_thousands_sep() const override { return fSeparator; }
  std::string do_grouping() const override { return fGrouping; }
  std::string do_truename() const override { return "wahr"; }
  std::string do_falsename() const override { return "falsch"; }

 private:
  char fPoint;
  char fSeparator;
  std::string fGrouping;
};

/// Makes a locale the process's own for as long as the object lives.
class ScopedGlobalLocale {
 public:
  ScopedGlobalLocale(char point, char separator, const char* grouping)
      : fFormer(std::locale::global(
            std::locale(std::locale::classic(), new TPunctuation(point, separator, grouping)))) {}
  ~ScopedGlobalLocale() { std::locale::global(fFormer); }
  ScopedGlobalLocale(const ScopedGlobalLocale&) = delete;
  ScopedGlobalLocale& operator=(const ScopedGlobalLocale&) = delete;

 private:
  std::locale fFormer;
};

/// A text of the characters that numbers are made of, mostly near to one, and of some that they
/// aren't.
template <typename Generator>
std::string RandomNumberText(Generator& generator) {
  static const char* const kPieces[] = {
      "0",  "1", "9",   "42",  "7",    "000",   "12345", "99999",  "0x",   "0X",   "ab",
      "F",  "+", "-",   ".",   ",",    "e",     "E",     "e-3",    "e+12", "E308", " ",
      "\t", "x", "inf", "nan", "true", "false", "wahr",  "falsch", "p1",   "l"};
  std::string text;
  for (auto count = generator() % 6; count > 0; --count)
    text += kPieces[generator() % (sizeof kPieces / sizeof *kPieces)];
  if (generator() % 16 == 0) text += static_cast<char>(generator() % 256);
  return text;
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_STREAMTEXT_H
