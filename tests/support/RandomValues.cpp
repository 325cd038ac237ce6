#include "support/RandomValues.h"

#include <cstring>
#include <limits>

#include "hwxcore/value/TCIMChar16.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/THWXException.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;

}  // namespace

RandomValues::Type RandomValues::AnyType() {
  const auto scalar = 1 + Below(15);
  return static_cast<Type>(Below(3) == 0 ? scalar | TCIMValue::TCIMType::kCIMTypeArrayFlag
                                         : scalar);
}

std::string RandomValues::Text() {
  static const char* const kTelling[] = {"",
                                         " ",
                                         "\\",
                                         "\\x41",
                                         "]]>",
                                         "&amp;",
                                         "<VALUE>",
                                         "\r\n",
                                         "\t tab\t",
                                         "\xC3\xA9",
                                         "\xED\xA0\x80",
                                         "\xEF\xBF\xBF",
                                         "\xF0\x9F\x98\x80",
                                         "--",
                                         "'\"",
                                         "plain text",
                                         "\xC3"};
  std::string text;
  for (auto parts = Below(5); parts > 0; --parts) {
    if (Below(3) != 0) {
      text += kTelling[Below(sizeof kTelling / sizeof *kTelling)];
      continue;
    }
    for (auto bytes = Below(8); bytes > 0; --bytes)
      text += static_cast<char>(Below(256));
  }
  return text;
}

template <typename Number>
TCIMValue RandomValues::NumberOf() {
  switch (Below(6)) {
    case 0:
      return std::numeric_limits<Number>::min();
    case 1:
      return std::numeric_limits<Number>::max();
    case 2:
      return static_cast<Number>(Below(10));
    default:
      return static_cast<Number>(fEngine());
  }
}

template <typename Real, typename Bits>
TCIMValue RandomValues::RealOf() {
  if (Below(4) == 0) return static_cast<Real>(Below(1000)) / 8;
  if (Below(8) == 0) return std::numeric_limits<Real>::infinity();
  const auto bits = static_cast<Bits>(fEngine());
  Real value;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

TCIMValue RandomValues::Moment() {
  const auto number = [this](std::uint64_t limit) {
    return static_cast<unsigned short>(Below(limit));
  };
  TCIMDateTime moment;
  if (Below(2) == 0) {
    const auto days = static_cast<unsigned int>(Below(2) == 0 ? Below(1000) : fEngine());
    moment.Set(days, number(24), number(60), number(60), number(50000));
  } else {
    const auto offset = static_cast<short>(static_cast<int>(Below(2000)) - 1000);
    moment.Set(static_cast<unsigned short>(1975 + Below(60)), number(13), number(32), number(24),
               number(60), number(60), static_cast<unsigned int>(Below(2000000)), offset);
  }
  if (Below(8) == 0) moment.SetPrecision(true);
  return moment;
}

TCIMValue RandomValues::Null(Type type) {
  TCIMValue null(TCIMValue::TCIMType(type), 0);
  if (null.IsArray()) return TCIMValue(TCIMValue::TCIMType(type), static_cast<unsigned>(Below(3)));
  if (null.IsReference() && !fTargets.empty() && Below(2) == 0)
    null.SetReferencedClass(fTargets[Below(fTargets.size())].GetClass());
  return null;
}

TCIMValue RandomValues::Scalar(Type type, bool isKey) {
  if (!isKey && Below(6) == 0) return Null(type);
  const bool isCleared = !isKey && Below(8) == 0;
  switch (type) {
    case TCIMValue::TCIMType::kCIMTypeBoolean:
      return Below(2) == 0;
    case TCIMValue::TCIMType::kCIMTypeUInt8:
      return NumberOf<unsigned char>();
    case TCIMValue::TCIMType::kCIMTypeSInt8:
      return NumberOf<signed char>();
    case TCIMValue::TCIMType::kCIMTypeUInt16:
      return NumberOf<unsigned short>();
    case TCIMValue::TCIMType::kCIMTypeSInt16:
      return NumberOf<short>();
    case TCIMValue::TCIMType::kCIMTypeUInt32:
      return NumberOf<unsigned int>();
    case TCIMValue::TCIMType::kCIMTypeSInt32:
      return NumberOf<int>();
    case TCIMValue::TCIMType::kCIMTypeUInt64:
      return NumberOf<unsigned long>();
    case TCIMValue::TCIMType::kCIMTypeSInt64:
      return NumberOf<long>();
    case TCIMValue::TCIMType::kCIMTypeReal32:
      return RealOf<float, std::uint32_t>();
    case TCIMValue::TCIMType::kCIMTypeReal64:
      return RealOf<double, std::uint64_t>();
    case TCIMValue::TCIMType::kCIMTypeChar16:
      if (isCleared) return TCIMChar16(std::string());
      return TCIMChar16(static_cast<unsigned short>(Below(2) == 0 ? Below(128) : fEngine()));
    case TCIMValue::TCIMType::kCIMTypeDateTime:
      return isCleared ? TCIMValue(TCIMDateTime()) : Moment();
    case TCIMValue::TCIMType::kCIMTypeReference: {
      if (fTargets.empty()) return Null(type);
      TCIMReference target = fTargets[Below(fTargets.size())];
      return TCIMValue(target);
    }
    default:
      return Text();
  }
}

TCIMValue RandomValues::Any(Type type) {
  const auto flag = static_cast<int>(TCIMValue::TCIMType::kCIMTypeArrayFlag);
  if ((type & flag) == 0) return Scalar(type, false);
  if (Below(4) == 0) return Null(type);
  std::vector<TCIMValue> elements;
  for (auto count = Below(5); count > 0; --count)
    elements.push_back(Scalar(static_cast<Type>(type & ~flag), false));
  return TCIMValue(TCIMValue::TCIMType(type), static_cast<unsigned>(Below(3) * 4), elements);
}

TCIMValue RandomValues::Key(Type type) {
  return Scalar(type, true);
}

}  // namespace hwxtest
