#include "support/ValueText.h"

#include <utility>
#include <vector>

#include "hwxcore/value/TCIMReference.h"

using NQORHWX20::ICIMClass;
using NQORHWX20::TCIMReference;
using NQORHWX20::TCIMValue;

namespace hwxtest {

namespace {

std::string ClassText(const boost::shared_ptr<ICIMClass>& ofClass, const ClassNaming& naming) {
  return ofClass ? naming(*ofClass) : "no class";
}

std::string ContentText(const TCIMValue& value, const ClassNaming& naming) {
  if (value.IsNull()) return "null";
  if (!value.IsArray()) return value.ToString(10);
  const std::vector<TCIMValue>& elements = value;
  std::string text;
  for (const TCIMValue& element : elements) {
    text += (text.empty() ? "" : ", ") +
            (element.IsReference() ? ValueText(element, naming) : ContentText(element, naming));
  }
  return "{" + text + "}";
}

std::string ReferenceText(const TCIMReference& reference, const ClassNaming& naming) {
  std::string keys;
  reference.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> key) {
    keys += (keys.empty() ? " " : ", ") + key.first + "=" + ValueText(key.second, naming);
    return true;
  });
  return "reference(" + ClassText(reference.GetClass(), naming) + keys + ")";
}

}  // namespace

std::string TypeText(TCIMValue::TCIMType type) {
  if (type == TCIMValue::TCIMType::kCIMTypeNone) return "none";
  return type.ToString() + ((type & TCIMValue::TCIMType::kCIMTypeArrayFlag) != 0 ? "[]" : "");
}

std::string ValueText(const TCIMValue& value, const ClassNaming& naming) {
  if (value.IsReference()) {
    if (!value.IsNull()) return ReferenceText(value, naming);
    return "reference(" + ClassText(value.GetReferencedClass(), naming) + ") null";
  }
  std::string type = TypeText(value.GetType());
  if (value.GetMaxArraySize() != 0)
    type.insert(type.size() - 1, std::to_string(value.GetMaxArraySize()));
  return type + " " + ContentText(value, naming);
}

std::string ValueText(const TCIMValue& value) {
  return ValueText(value, [](ICIMClass& named) { return named.GetName({}); });
}

}  // namespace hwxtest
