#include "hwxkit/detail/ValueText.h"

#include <charconv>
#include <map>
#include <utility>
#include <vector>

#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/CIMName.h"

namespace NQORHWX20::detail {

namespace {

typedef TCIMValue::TCIMType TCIMType;

// In hexadecimal, which loses no digit. The stream and printf families would ask the locale, and a
// key has to read the same after the process has changed that.
template <typename Real>
std::string RealText(Real value) {
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::hex).ptr;
  return std::string(text, end);
}

template <typename Integer>
std::string IntegerText(const TCIMValue& value) {
  return std::to_string(value.operator Integer());
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
  switch (value.GetType()) {
    case TCIMType::kCIMTypeUInt8:
      return IntegerText<unsigned char>(value);
    case TCIMType::kCIMTypeSInt8:
      return IntegerText<signed char>(value);
    case TCIMType::kCIMTypeUInt16:
      return IntegerText<unsigned short>(value);
    case TCIMType::kCIMTypeSInt16:
      return IntegerText<short>(value);
    case TCIMType::kCIMTypeUInt32:
      return IntegerText<unsigned int>(value);
    case TCIMType::kCIMTypeSInt32:
      return IntegerText<int>(value);
    case TCIMType::kCIMTypeUInt64:
      return IntegerText<unsigned long>(value);
    case TCIMType::kCIMTypeSInt64:
      return IntegerText<long>(value);
    case TCIMType::kCIMTypeReal32:
      return RealText(value.operator float());
    case TCIMType::kCIMTypeReal64:
      return RealText(value.operator double());
    case TCIMType::kCIMTypeReference:
      return ReferenceText(value);
    default:
      return value.ToString(10);
  }
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
