#include "support/NamespaceText.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <utility>

#include "hwxcore/hwxcore.h"
#include "support/Ptr.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using Type = TCIMValue::TCIMType;
using Lines = std::vector<std::string>;

std::string Printable(const std::string& text) {
  std::string printable;
  for (const char c : text) {
    char escape[8] = {c, '\0'};
    if (c < ' ' || c > '~' || c == '\\')
      std::snprintf(escape, sizeof escape, "\\%02x", static_cast<unsigned char>(c));
    printable += escape;
  }
  return printable;
}

template <typename Real, typename Bits>
std::string RealBits(Real value) {
  Bits bits;
  std::memcpy(&bits, &value, sizeof bits);
  return std::to_string(bits);
}

std::string MomentText(const TCIMDateTime& moment) {
  if (moment.IsNull()) return "cleared";
  std::string text = moment.IsInterval() ? "interval" : "timestamp";
  if (moment.GetPrecision()) text += " precise";
  std::vector<long> fields = {moment.GetDay(), moment.GetHour(), moment.GetMinute(),
                              moment.GetSecond(), moment.GetMicroSeconds()};
  if (!moment.IsInterval())
    fields.insert(fields.end(), {moment.GetYear(), moment.GetMonth(), moment.GetUTCOffset()});
  for (const long field : fields)
    text += " " + std::to_string(field);
  return text;
}

std::string ClassName(const Ptr<ICIMClass>& named) {
  return named ? named->GetName({}) : "(no class)";
}

std::string ExactText(const TCIMValue& value);

std::string ExactReferenceText(const TCIMReference& reference) {
  std::string text = "(no class)";
  try {
    text = reference.GetClassName();
  } catch (const THWXException&) {
  }
  text += "@" + Printable(reference.GetNameSpaceName()) + "{";
  reference.EnumerateKeyBindings([&text](const std::pair<std::string, TCIMValue>& key) {
    text += key.first + "=" + ExactText(key.second) + ";";
    return true;
  });
  return text + "}";
}

std::string CharacterText(const TCIMValue& value) {
  try {
    return value.ToString(10);
  } catch (const THWXException&) {
    return "cleared";
  }
}

std::string BodyText(const TCIMValue& value) {
  if (value.IsArray()) {
    std::string text = "[";
    const std::vector<TCIMValue>& elements = value;
    for (const TCIMValue& element : elements)
      text += ExactText(element) + ",";
    return text + "]";
  }
  switch (value.GetType()) {
    case Type::kCIMTypeReal32:
      return RealBits<float, std::uint32_t>(value);
    case Type::kCIMTypeReal64:
      return RealBits<double, std::uint64_t>(value);
    case Type::kCIMTypeDateTime:
      return MomentText(value);
    case Type::kCIMTypeReference:
      return ExactReferenceText(value);
    case Type::kCIMTypeChar16:
      return CharacterText(value);
    case Type::kCIMTypeString:
      return "\"" + Printable(value) + "\"";
    default:
      return value.ToString(10);
  }
}

std::string ExactText(const TCIMValue& value) {
  std::string text = std::to_string(static_cast<int>(value.GetType()));
  if (value.IsArray()) text += "/" + std::to_string(value.GetMaxArraySize());
  if (value.IsReference()) text += ">" + ClassName(value.GetReferencedClass());
  return text + ":" + (value.IsNull() ? "null" : BodyText(value));
}

class NamespaceText {
 public:
  explicit NamespaceText(ELikeness likeness) : fIsExact(likeness == kExact) {}

  Lines Of(ICIMNamespace& ns) {
    if (fIsExact) fLines = {"namespace " + Printable(ns.GetName({}))};
    AddQualifierDecls(ns);
    for (const Ptr<ICIMClass>& found : Classes(ns))
      AddClass(*found);
    return fLines;
  }

 private:
  void AddQualifierDecls(ICIMNamespace& ns) {
    const auto first = static_cast<std::ptrdiff_t>(fLines.size());
    ns.EnumerateQualifierDecls(
        [&](const Ptr<ICIMQualifierDecl>& decl) {
          fLines.push_back(
              "qualifier " + decl->GetName({}) + " " + std::to_string(decl->GetScope({})) + " " +
              std::to_string(decl->GetFlavor({})) + " " + ExactText(decl->GetDefaultValue({})));
          return true;
        },
        {});
    std::sort(fLines.begin() + first, fLines.end());
  }

  void AddQualifiers(const std::string& place, ICIMQualifiedElement& element) {
    element.EnumerateQualifiers(
        [&](const Ptr<ICIMQualifier>& qualifier) {
          fLines.push_back(place + "[" + qualifier->GetName({}) + "] " +
                           (fIsExact && qualifier->IsInherited({}) ? "inherited " : "") +
                           ExactText(qualifier->GetValue({})));
          return true;
        },
        {});
  }

  // The class that declares something.
  template <typename Element>
  std::string Origin(Element& element) const {
    return fIsExact ? " of " + ClassName(element.GetClass({})) : std::string();
  }

  void AddMethod(const std::string& place, ICIMMethodDecl& method) {
    fLines.push_back(place + "()" + Origin(method) + " " +
                     std::to_string(method.GetReturnType({})));
    AddQualifiers(place + "()", method);
    method.EnumerateParameterDecls(
        [&](const Ptr<ICIMParameterDecl>& decl) {
          const std::string parameter = place + "(" + decl->GetName({}) + ")";
          fLines.push_back(parameter + " " + std::to_string(decl->GetType({})));
          AddQualifiers(parameter, *decl);
          return true;
        },
        {});
  }

  void AddInstance(const std::string& place, ICIMInstance& instance) {
    fLines.push_back(place);
    instance.EnumerateProperties(
        [&](const Ptr<ICIMProperty>& property) {
          AddValue(place + "." + property->GetName({}), *property);
          return true;
        },
        {});
  }

  void AddValue(const std::string& place, ICIMProperty& property) {
    fLines.push_back(place + " " + ExactText(property.GetValue({})));
  }

  void AddClass(ICIMClass& added) {
    const std::string name = added.GetName({});
    fLines.push_back(name + " : " +
                     (added.IsRootClass({}) ? "none" : ClassName(added.GetSuperClass({}))));
    AddQualifiers(name, added);
    added.EnumeratePropertyDecls(
        [&](const Ptr<ICIMPropertyDecl>& decl) {
          const std::string property = name + "." + decl->GetName({});
          fLines.push_back(property + Origin(*decl) + " " + ExactText(decl->GetDefaultValue({})));
          AddQualifiers(property, *decl);
          return true;
        },
        {});
    added.EnumerateMethodDecls(
        [&](const Ptr<ICIMMethodDecl>& method) {
          AddMethod(name + "." + method->GetName({}), *method);
          return true;
        },
        {});
    added.EnumerateStaticProperties(
        [&](const Ptr<ICIMProperty>& property) {
          AddValue(name + "::" + property->GetName({}), *property);
          return true;
        },
        {});
    int number = 0;
    added.EnumerateInstances(
        [&](const Ptr<ICIMInstance>& instance) {
          AddInstance(name + "#" + std::to_string(number++), *instance);
          return true;
        },
        false, {});
  }

  std::vector<Ptr<ICIMClass>> Classes(ICIMNamespace& ns) const {
    std::vector<Ptr<ICIMClass>> classes;
    const TAddToVectorCallback<ICIMClass> add(&classes);
    ns.EnumerateClasses(
        [&](const Ptr<ICIMClass>& root) {
          classes.push_back(root);
          root->EnumerateSubClasses(add, true, {});
          return true;
        },
        {});
    if (!fIsExact) {
      std::sort(classes.begin(), classes.end(), [](const auto& one, const auto& other) {
        return one->GetName({}) < other->GetName({});
      });
    }
    return classes;
  }

  const bool fIsExact;
  Lines fLines;
};

}  // namespace

Lines NamespaceLines(ICIMNamespace& ns, ELikeness likeness) {
  return NamespaceText(likeness).Of(ns);
}

std::string Difference(const Lines& one, const Lines& other) {
  const auto [at, there] = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
  if (at == one.end() && there == other.end()) return std::string();
  const auto line = [](const Lines& lines, Lines::const_iterator place) {
    return place == lines.end() ? "the end" : place->substr(0, 1000);
  };
  return "line " + std::to_string(at - one.begin() + 1) + ":\n" + line(one, at) + "\n" +
         line(other, there);
}

std::string Difference(ICIMNamespace& one, ICIMNamespace& other, ELikeness likeness) {
  return Difference(NamespaceLines(one, likeness), NamespaceLines(other, likeness));
}

}  // namespace hwxtest
