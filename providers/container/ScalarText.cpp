#include "providers/container/ScalarText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <type_traits>
#include <vector>

#include "hwxcore/value/NumericType.h"
#include "hwxcore/value/TCIMChar16.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/THWXException.h"
#include "hwxsys/Words.h"
#include "providers/container/XMLText.h"

namespace container {

namespace {

using NQORHWX20::TCIMChar16;
using NQORHWX20::TCIMDateTime;
using NQORHWX20::TCIMValue;
using NQORHWX20::THWXException;
using TCIMType = TCIMValue::TCIMType;

template <typename Real>
using Bits = std::conditional_t<sizeof(Real) == 4, std::uint32_t, std::uint64_t>;

[[noreturn]] void Refuse(std::string_view text, const std::string& why) {
  throw TMalformedText(Quoted(text) + " " + why);
}

std::string_view WithoutBlanks(std::string_view text) {
  return hwxsys::Trimmed(text, " \t\r\n");  // what is white space in XML
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The whole of `text` as a number. A plus sign is taken off, which `from_chars` doesn't read.
template <typename Number, typename... Format>
Number ReadNumber(std::string_view text, const TCIMType& type, Format... format) {
  std::string_view digits = text;
  if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-') digits.remove_prefix(1);
  Number number = 0;
  const auto end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, number, format...);
  if (result.ptr != end || result.ec == std::errc::invalid_argument || digits.empty())
    Refuse(text, "is no " + type.ToString());
  if (result.ec == std::errc::result_out_of_range)
    Refuse(text, "is out of range for " + type.ToString());
  return number;
}

template <typename Integer>
TCIMValue ReadInteger(const std::string& text, const TCIMType& type) {
  const std::string_view digits = WithoutBlanks(text);
  const bool isHexadecimal = digits.substr(0, 2) == "0x" || digits.substr(0, 2) == "0X";
  if (isHexadecimal && digits.size() > 2 && digits[2] != '-' && digits[2] != '+')
    return ReadNumber<Integer>(digits.substr(2), type, 16);
  return ReadNumber<Integer>(digits, type, 10);
}

// Reals.

template <typename Real>
Bits<Real> BitsOf(Real value) {
  Bits<Real> bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

template <typename Real>
bool IsUsualNaN(Real value) {
  return BitsOf(value) == BitsOf(std::numeric_limits<Real>::quiet_NaN());
}

// The fewest digits that read back as the same number, in the form that CIM gives reals: a point
// with digits on both sides.
template <typename Real>
std::string FiniteText(Real value) {
  char digits[64];
  std::string text(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
  if (text.find('.') == std::string::npos) text.insert(std::min(text.find('e'), text.size()), ".0");
  return text;
}

template <typename Real>
TScalarText RealText(Real value) {
  if (std::isfinite(value)) return {EForm::kPlain, FiniteText(value)};
  if (std::isinf(value)) return {EForm::kPlain, value < 0 ? "-INF" : "INF"};
  if (IsUsualNaN(value)) return {EForm::kPlain, "NaN"};
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, BitsOf(value), 16).ptr;
  return {EForm::kBits, std::string(digits, end)};
}

template <typename Real>
TCIMValue ReadReal(EForm form, const std::string& text, const TCIMType& type) {
  const std::string_view word = WithoutBlanks(text);
  if (form == EForm::kBits) {
    const auto bits = ReadNumber<Bits<Real>>(word, type, 16);
    Real value;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isnan(value)) Refuse(text, "are not the bits of a NaN");
    return value;
  }
  if (word == "INF" || word == "+INF") return std::numeric_limits<Real>::infinity();
  if (word == "-INF") return -std::numeric_limits<Real>::infinity();
  if (word == "NaN") return std::numeric_limits<Real>::quiet_NaN();
  const std::size_t start = word.find_first_not_of("+-");
  if (start == std::string_view::npos || (!IsDigit(word[start]) && word[start] != '.'))
    Refuse(text, "is no " + type.ToString());
  return ReadNumber<Real>(word, type, std::chars_format::general);
}

// Characters.

TScalarText CharacterText(const TCIMValue& value) {
  unsigned short code = 0;
  try {
    const std::string digits = value.ToString(10);  // the only way to the number
    std::from_chars(digits.data(), digits.data() + digits.size(), code);
  } catch (const THWXException&) {
    return {EForm::kCleared, std::string()};
  }
  if (IsXMLCharacter(code)) return {EForm::kPlain, FromCodePoint(code)};
  char escape[8];
  std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned int>(code));
  return {EForm::kEscaped, escape};
}

TCIMValue ReadCharacter(EForm form, const std::string& text, const TCIMType& type) {
  if (form == EForm::kCleared) return TCIMChar16(std::string());
  if (form == EForm::kEscaped) {
    if (text.size() != 6 || text.compare(0, 2, "\\u") != 0 || text[2] == '+' || text[2] == '-')
      Refuse(text, "is no escaped character");
    return TCIMChar16(ReadNumber<unsigned short>(std::string_view(text).substr(2), type, 16));
  }
  const std::size_t length = XMLCharacterLength(text);
  if (length == 0 || length != text.size() || CodePoint(text) > 0xFFFF)
    Refuse(text, "is no single character of 16 bits");
  return TCIMChar16(static_cast<unsigned short>(CodePoint(text)));
}

// Date-times. They are printed here, for `TCIMDateTime` prints as the locale has it.

std::string Padded(unsigned int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

// Whether the 25 characters tell the date-time whole.
bool FitsText(const TCIMDateTime& moment) {
  if (moment.GetPrecision() || moment.GetMicroSeconds() > 999999) return false;
  if (moment.IsInterval()) return moment.GetDay() <= 0xFFFF;
  return moment.GetYear() <= 9999 && moment.GetMonth() <= 99 && moment.GetDay() <= 99 &&
         moment.GetHour() <= 99 && moment.GetMinute() <= 99 && moment.GetSecond() <= 99 &&
         moment.GetUTCOffset() >= -999 && moment.GetUTCOffset() <= 999;
}

std::string PlainDateTime(const TCIMDateTime& moment) {
  std::string text =
      moment.IsInterval()
          ? Padded(moment.GetDay(), 8)
          : Padded(moment.GetYear(), 4) + Padded(moment.GetMonth(), 2) + Padded(moment.GetDay(), 2);
  text += Padded(moment.GetHour(), 2) + Padded(moment.GetMinute(), 2) +
          Padded(moment.GetSecond(), 2) + "." + Padded(moment.GetMicroSeconds(), 6);
  if (moment.IsInterval()) return text + ":000";
  const int offset = moment.GetUTCOffset();
  return text + (offset < 0 ? "-" : "+") + Padded(static_cast<unsigned int>(std::abs(offset)), 3);
}

// The nearest that the 25 characters can tell.
TCIMDateTime Clamped(const TCIMDateTime& moment) {
  const auto atMost = [](auto field, unsigned int most) {
    return static_cast<unsigned short>(std::min<unsigned int>(field, most));
  };
  const unsigned int microSeconds = std::min(moment.GetMicroSeconds(), 999999U);
  TCIMDateTime clamped;
  try {
    if (moment.IsInterval()) {
      clamped.Set(std::min(moment.GetDay(), 0xFFFFU), atMost(moment.GetHour(), 23),
                  atMost(moment.GetMinute(), 59), atMost(moment.GetSecond(), 59), microSeconds);
    } else {
      const short offset =
          std::max<short>(-999, std::min<short>(moment.GetUTCOffset(), short{999}));
      clamped.Set(atMost(moment.GetYear(), 9999), atMost(moment.GetMonth(), 12),
                  atMost(moment.GetDay(), 31), atMost(moment.GetHour(), 23),
                  atMost(moment.GetMinute(), 59), atMost(moment.GetSecond(), 59), microSeconds,
                  offset);
    }
  } catch (const THWXException&) {  // the zone has no such moment
    clamped.Set(0U, 0, 0, 0, 0);
  }
  return clamped;
}

std::string DateTimeFields(const TCIMDateTime& moment) {
  std::string text;
  const auto add = [&text](long number) { text.append(" ").append(std::to_string(number)); };
  if (!moment.IsInterval()) {
    add(moment.GetYear());
    add(moment.GetMonth());
  }
  add(moment.GetDay());
  add(moment.GetHour());
  add(moment.GetMinute());
  add(moment.GetSecond());
  add(moment.GetMicroSeconds());
  if (!moment.IsInterval()) add(moment.GetUTCOffset());
  return (moment.IsInterval() ? "interval" : "timestamp") + text +
         (moment.GetPrecision() ? " precise" : "");
}

TScalarText DateTimeText(const TCIMDateTime& moment) {
  if (moment.IsNull()) return {EForm::kCleared, std::string()};
  if (FitsText(moment)) return {EForm::kPlain, PlainDateTime(moment)};
  return {EForm::kFields, DateTimeFields(moment)};
}

std::vector<std::string_view> Words(std::string_view text) {
  std::vector<std::string_view> words;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    words.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return words;
}

// The numbers of the fields one after the other, each of the type that it is read into.
class TFields {
 public:
  TFields(const std::vector<std::string_view>& words, const TCIMType& type)
      : fWord(words.begin() + 1), fType(type) {}

  template <typename Integer>
  TFields& Read(Integer& field) {
    field = ReadNumber<Integer>(*fWord++, fType, 10);
    return *this;
  }

 private:
  std::vector<std::string_view>::const_iterator fWord;
  const TCIMType fType;
};

TCIMDateTime ReadFields(const std::string& text, const TCIMType& type) {
  std::vector<std::string_view> words = Words(WithoutBlanks(text));
  const bool isPrecise = words.back() == "precise";
  if (isPrecise) words.pop_back();
  const bool isInterval = !words.empty() && words[0] == "interval" && words.size() == 6;
  if (!isInterval && (words.size() != 9 || words[0] != "timestamp"))
    Refuse(text, "doesn't have the fields of a date-time");
  unsigned short year = 0, month = 0, hour = 0, minute = 0, second = 0;
  unsigned int day = 0, microSeconds = 0;
  short offset = 0;
  TFields fields(words, type);
  if (!isInterval) fields.Read(year).Read(month);
  fields.Read(day).Read(hour).Read(minute).Read(second).Read(microSeconds);
  if (!isInterval) fields.Read(offset);
  TCIMDateTime moment;
  if (isInterval)
    moment.Set(day, hour, minute, second, microSeconds);
  else
    moment.Set(year, month, day, hour, minute, second, microSeconds, offset);
  if (isPrecise) moment.SetPrecision(true);
  return moment;
}

TCIMValue ReadDateTime(EForm form, const std::string& text, const TCIMType& type) {
  if (form == EForm::kCleared) return TCIMDateTime();
  try {
    if (form == EForm::kFields) return ReadFields(text, type);
    return TCIMDateTime(std::string(WithoutBlanks(text)));
  } catch (const THWXException&) {
    Refuse(text, "is no datetime");
  }
}

// Booleans and strings.

bool IsWord(std::string_view text, std::string_view lowerCase) {
  if (text.size() != lowerCase.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isUpperCase = text[i] >= 'A' && text[i] <= 'Z';
    if ((isUpperCase ? text[i] - 'A' + 'a' : text[i]) != lowerCase[i]) return false;
  }
  return true;
}

TCIMValue ReadBoolean(const std::string& text) {
  const std::string_view word = WithoutBlanks(text);
  if (!IsWord(word, "true") && !IsWord(word, "false")) Refuse(text, "is no boolean");
  return IsWord(word, "true");
}

TScalarText StringText(const std::string& text) {
  if (IsXMLText(text)) return {EForm::kPlain, text};
  return {EForm::kEscaped, Escaped(text)};
}

TCIMValue ReadString(EForm form, const std::string& text) {
  if (form == EForm::kPlain) return text;
  const std::optional<std::string> plain = Unescaped(text);
  if (!plain) Refuse(text, "has a malformed escape");
  return *plain;
}

template <typename Number>
TScalarText NumberText(Number value) {
  if constexpr (std::is_same_v<Number, bool>) {
    return {EForm::kPlain, value ? "true" : "false"};
  } else if constexpr (std::is_integral_v<Number>) {
    return {EForm::kPlain, std::to_string(value)};
  } else {
    return RealText(value);
  }
}

template <typename Number>
TCIMValue NumberValue(EForm form, const std::string& text, const TCIMType& type) {
  if constexpr (std::is_same_v<Number, bool>) {
    return ReadBoolean(text);
  } else if constexpr (std::is_integral_v<Number>) {
    return ReadInteger<Number>(text, type);
  } else {
    return ReadReal<Number>(form, text, type);
  }
}

// Which forms a type has.
bool HasForm(const TCIMType& type, EForm form) {
  switch (form) {
    case EForm::kPlain:
      return true;
    case EForm::kEscaped:
      return type == TCIMType::kCIMTypeString || type == TCIMType::kCIMTypeChar16;
    case EForm::kFields:
      return type == TCIMType::kCIMTypeDateTime;
    case EForm::kBits:
      return type == TCIMType::kCIMTypeReal32 || type == TCIMType::kCIMTypeReal64;
    case EForm::kCleared:
      return type == TCIMType::kCIMTypeDateTime || type == TCIMType::kCIMTypeChar16;
  }
  return false;
}

}  // namespace

const char* FormName(EForm form) {
  switch (form) {
    case EForm::kPlain:
      break;
    case EForm::kEscaped:
      return "escaped";
    case EForm::kFields:
      return "fields";
    case EForm::kBits:
      return "bits";
    case EForm::kCleared:
      return "cleared";
  }
  return nullptr;
}

TScalarText ScalarText(const TCIMValue& value) {
  const auto numberText = [&](auto numeric) {
    return NumberText(static_cast<typename decltype(numeric)::Type>(value));
  };
  const auto otherText = [&] {
    switch (value.GetType()) {
      case TCIMType::kCIMTypeChar16:
        return CharacterText(value);
      case TCIMType::kCIMTypeDateTime:
        return DateTimeText(value.operator TCIMDateTime());
      default:
        return StringText(value.operator std::string());
    }
  };
  return NQORHWX20::OfNumericType(value.GetType(), numberText, otherText);
}

std::string StandInText(const TCIMValue& value, const TScalarText& text) {
  switch (text.fForm) {
    case EForm::kEscaped:
      return value.GetType() == TCIMType::kCIMTypeChar16 ? FromCodePoint(0xFFFD) : text.fText;
    case EForm::kFields:
      return PlainDateTime(Clamped(value.operator TCIMDateTime()));
    case EForm::kBits:
      return "NaN";
    case EForm::kCleared:
      return std::string();
    default:
      return text.fText;
  }
}

TCIMValue ScalarValue(TCIMType type, EForm form, const std::string& text) {
  if (!HasForm(type, form))
    throw TMalformedText("a " + type.ToString() + " has no form \"" + FormName(form) + "\"");
  const auto numberValue = [&](auto numeric) {
    return NumberValue<typename decltype(numeric)::Type>(form, text, type);
  };
  const auto otherValue = [&] {
    switch (type) {
      case TCIMType::kCIMTypeChar16:
        return ReadCharacter(form, text, type);
      case TCIMType::kCIMTypeDateTime:
        return ReadDateTime(form, text, type);
      default:
        return ReadString(form, text);
    }
  };
  return NQORHWX20::OfNumericType(type, numberValue, otherValue);
}

std::string Quoted(std::string_view text) {
  constexpr std::size_t kShown = 40;
  std::string shown = Escaped(text.substr(0, kShown));
  for (char& c : shown) {
    if (c == '\n' || c == '\r' || c == '\t') c = ' ';
  }
  return "\"" + shown + (text.size() > kShown ? "...\"" : "\"");
}

}  // namespace container
