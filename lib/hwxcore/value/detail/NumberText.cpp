#include "hwxcore/value/detail/NumberText.h"

#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>
#include <system_error>

namespace NQORHWX20::detail {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

template <typename Number>
Number StreamedNumber(const std::string& text) {
  std::istringstream stream(text);
  Number value = 0;
  if constexpr (std::is_same_v<Number, bool>) {
    stream >> std::boolalpha;
  } else if constexpr (std::is_integral_v<Number>) {
    stream.unsetf(std::ios_base::dec);  // no base at all: the text tells it
  }
  // The state isn't looked at: a failed extraction has left the value that counts.
  stream >> value;
  return value;
}

// Reads the plain form, in which a stream in the classic locale and `from_chars` agree: a decimal
// integer that doesn't begin with "0". False where only a stream knows.
template <typename Integer>
bool ReadPlainInteger(const std::string& text, Integer& value) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  const char* const digits =
      std::is_signed_v<Integer> && begin != end && *begin == '-' ? begin + 1 : begin;
  if (digits == end || !IsDigit(*digits)) return false;
  if (*digits == '0' && digits + 1 != end) return false;
  return std::from_chars(begin, end, value).ec == std::errc();
}

// The same for a real that takes the whole text.
template <typename Real>
bool ReadPlainReal(const std::string& text, Real& value) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  const char* const digits = begin != end && *begin == '-' ? begin + 1 : begin;
  if (digits == end || !IsDigit(*digits)) return false;
  const auto [last, error] = std::from_chars(begin, end, value);
  return error == std::errc() && last == end;
}

template <typename Number>
bool ReadPlain(const std::string& text, Number& value) {
  if constexpr (std::is_same_v<Number, bool>) {
    value = text == "true";
    return value || text == "false";
  } else if constexpr (std::is_integral_v<Number>) {
    return ReadPlainInteger(text, value);
  } else {
    return ReadPlainReal(text, value);
  }
}

}  // namespace

bool StreamsAreClassic() {
  static const std::locale& classic = std::locale::classic();
  return std::locale() == classic;
}

std::string StreamedIntegerText(long value, unsigned width) {
  std::ostringstream stream;
  stream << std::setfill('0') << std::setw(static_cast<int>(width)) << value;
  return stream.str();
}

std::string StreamedIntegerText(unsigned long value, unsigned base, unsigned width) {
  std::ostringstream stream;
  stream << std::setbase(static_cast<int>(base)) << std::uppercase << std::setfill('0')
         << std::setw(static_cast<int>(width)) << value;
  return stream.str();
}

std::string RealText(double value) {
  if (StreamsAreClassic() && std::isfinite(value)) {
    char digits[32];
    const auto result =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 6);
    return std::string(digits, result.ptr);
  }
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

template <typename Number>
Number ReadNumber(const std::string& text) {
  Number value = 0;
  if (StreamsAreClassic() && ReadPlain(text, value)) return value;
  return StreamedNumber<Number>(text);
}

template bool ReadNumber<bool>(const std::string&);
template unsigned short ReadNumber<unsigned short>(const std::string&);
template short ReadNumber<short>(const std::string&);
template unsigned int ReadNumber<unsigned int>(const std::string&);
template int ReadNumber<int>(const std::string&);
template unsigned long ReadNumber<unsigned long>(const std::string&);
template long ReadNumber<long>(const std::string&);
template float ReadNumber<float>(const std::string&);
template double ReadNumber<double>(const std::string&);

}  // namespace NQORHWX20::detail
