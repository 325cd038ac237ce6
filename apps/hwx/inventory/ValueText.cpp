#include "hwx/inventory/ValueText.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

using TType = TCIMValue::TCIMType;

// The double that prints with the digits that tell the value apart from its neighbours.
template <typename Real>
double ShortestDouble(Real value) {
  char text[64];
  const char* const end = std::to_chars(text, text + sizeof text, value).ptr;
  double shortest = 0;
  std::from_chars(text, end, shortest);
  return shortest;
}

template <typename Real>
TJson RealJson(Real value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
  return ShortestDouble(value);
}

const std::vector<TCIMValue>& Elements(const TCIMValue& array) {
  return static_cast<std::vector<TCIMValue>&>(array);
}

TJson ArrayJson(const TCIMValue& array) {
  TJson json = TJson::array();
  for (const TCIMValue& element : Elements(array))
    json.push_back(ValueJson(element));
  return json;
}

// Some values hold nothing although they aren't null: a cleared date-time, a reference with a null
// key.
TJson PrintedJson(const TCIMValue& value) {
  try {
    return value.ToString(10);
  } catch (const THWXException&) {
    return nullptr;
  }
}

std::string ScalarText(const TJson& json) {
  if (json.is_null()) return "(null)";
  return json.is_string() ? json.get<std::string>() : json.dump();
}

}  // namespace

TJson ValueJson(const TCIMValue& value) {
  if (value.IsNull()) return nullptr;
  if (value.IsArray()) return ArrayJson(value);
  switch (value.GetType()) {
    case TType::kCIMTypeBoolean:
      return static_cast<bool>(value);
    case TType::kCIMTypeUInt8:
      return static_cast<unsigned char>(value);
    case TType::kCIMTypeSInt8:
      return static_cast<signed char>(value);
    case TType::kCIMTypeUInt16:
      return static_cast<unsigned short>(value);
    case TType::kCIMTypeSInt16:
      return static_cast<short>(value);
    case TType::kCIMTypeUInt32:
      return static_cast<unsigned int>(value);
    case TType::kCIMTypeSInt32:
      return static_cast<int>(value);
    case TType::kCIMTypeUInt64:
      return static_cast<unsigned long>(value);
    case TType::kCIMTypeSInt64:
      return static_cast<long>(value);
    case TType::kCIMTypeReal32:
      return RealJson(static_cast<float>(value));
    case TType::kCIMTypeReal64:
      return RealJson(static_cast<double>(value));
    case TType::kCIMTypeString:
      return static_cast<std::string>(value);
    default:
      return PrintedJson(value);
  }
}

std::string PlainText(const TJson& json) {
  if (!json.is_array()) return ScalarText(json);
  std::string text;
  for (const TJson& element : json)
    text += ScalarText(element) + ", ";
  return text.substr(0, text.empty() ? 0 : text.size() - 2);
}

std::string ValueText(const TCIMValue& value) {
  return PlainText(ValueJson(value));
}

std::string TypeName(const TType& type) {
  const bool isArray = (type & TType::kCIMTypeArrayFlag) != 0;
  return type.ToString() + (isArray ? "[]" : "");
}

}  // namespace hwx
