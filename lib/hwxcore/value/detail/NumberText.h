#ifndef HWXCORE_VALUE_DETAIL_NUMBERTEXT_H
#define HWXCORE_VALUE_DETAIL_NUMBERTEXT_H

#include <charconv>
#include <cstddef>
#include <string>
#include <type_traits>

namespace NQORHWX20::detail {

/// Numbers as text, to the letter what a string stream made at that moment prints and reads, in
/// whatever global locale, but without the stream where the locale is the classic one.

/// Whether streams made now have the classic locale, and so neither group digits nor rename them.
bool StreamsAreClassic();

/// What `IntegerText` gives in a locale other than the classic one.
std::string StreamedIntegerText(long value, unsigned width);
std::string StreamedIntegerText(unsigned long value, unsigned base, unsigned width);

/// Writes `value` in base 8, 10 or 16 (upper case); returns the end of the digits.
template <typename Integer>
char* PutDigits(char* begin, char* limit, Integer value, unsigned base) {
  if (base == 10) return std::to_chars(begin, limit, value).ptr;
  char* const end = std::to_chars(begin, limit, value, static_cast<int>(base)).ptr;
  for (char* digit = begin; digit != end; ++digit) {
    if (*digit >= 'a') *digit = static_cast<char>(*digit - 'a' + 'A');
  }
  return end;
}

/// `value` in base 8, 10 or 16 (upper case), padded on the left with zeros to `width`.
template <typename Integer>
std::string IntegerText(Integer value, unsigned base, std::size_t width) {
  static_assert(std::is_integral_v<Integer> && !std::is_same_v<Integer, bool>);
  if (!StreamsAreClassic()) {
    if constexpr (std::is_signed_v<Integer>) {
      return StreamedIntegerText(static_cast<long>(value), static_cast<unsigned>(width));
    } else {
      return StreamedIntegerText(static_cast<unsigned long>(value), base,
                                 static_cast<unsigned>(width));
    }
  }
  char digits[24];
  char* const end = PutDigits(digits, digits + sizeof digits, value, base);
  const auto length = static_cast<std::size_t>(end - digits);
  if (length >= width) return std::string(digits, length);
  return std::string(width - length, '0').append(digits, length);
}

/// A real in the general form with six significant digits.
std::string RealText(double value);

/// What extracting `Number` from a stream over `text` leaves, with no base set for integers: 0x and
/// 0 lead hexadecimal and octal numbers. For `bool`, with words for the values.
template <typename Number>
Number ReadNumber(const std::string& text);

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_VALUE_DETAIL_NUMBERTEXT_H
