#include "hwxkit/detail/ValueText.h"

#include <charconv>
#include <map>
#include <type_traits>
#include <utility>
#include <vector>

#include "hwxcore/value/NumericType.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/CIMName.h"

namespace NQORHWX20::detail {

namespace {

// A real is in hexadecimal, which loses no digit. The stream and printf families would ask the
// locale, and a key has to read the same after the process has changed that.
template <typename Number>
std::string NumberText(Number value) {
  if constexpr (std::is_same_v<Number, bool>) {
    return value ? "true" : "false";
  } else if constexpr (std::is_integral_v<Number>) {
    return std::to_string(value);
  } else {
    char text[64];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::hex).ptr;
    return std::string(text, end);
  }
}

std::string ArrayText(const std::vector<TCIMValue>& elements) {
  std::string text;
  for (const TCIMValue& element : elements)
    text += ContentText(element);
  return text;
}

// Its printed path won't do: that keeps the case of names and loses digits of reals.
std::string ReferenceText(const TCIMReference& reference) {
  std::map<std::string, std::string> keys;
  reference.EnumerateKeyBindings([&keys](std::pair<std::string, TCIMValue> key) {
    keys.emplace(FoldedCIMName(key.first), ContentText(key.second));
    return true;
  });
  std::string text = ContentText(FoldedCIMName(reference.GetClassName()));
  for (const auto& key : keys)
    text += ContentText(key.first) + key.second;
  return text;
}

std::string BodyText(const TCIMValue& value) {
  if (value.IsArray()) return ArrayText(value);
  if (value.IsReference()) return ReferenceText(value);
  const auto numberText = [&](auto numeric) {
    return NumberText(static_cast<typename decltype(numeric)::Type>(value));
  };
  return OfNumericType(value.GetType(), numberText, [&] { return value.ToString(10); });
}

}  // namespace

std::string ContentText(const TCIMValue& value) {
  const std::string type = std::to_string(static_cast<int>(value.GetType()));
  if (value.IsNull()) return type + "-";
  const std::string body = BodyText(value);
  // With the length in front, no text runs into the next.
  return type + "=" + std::to_string(body.size()) + ":" + body;
}

bool AppendKeyText(const TCIMValue& value, std::string& text) {
  if (value.IsNull() || value.IsArray()) return false;
  try {
    text += ContentText(value);
    return true;
  } catch (const THWXException&) {
    return false;
  }
}

}  // namespace NQORHWX20::detail
