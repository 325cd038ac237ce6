#include "support/NamespaceText.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <utility>

#include "hwxcore/hwxcore.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using Type = TCIMValue::TCIMType;
template <typename T>
using Ptr = boost::shared_ptr<T>;
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

std::string ReferenceText(const TCIMReference& reference) {
  std::string text = "(no class)";
  try {
    text = reference.GetClassName();
  } catch (const THWXException&) {
  }
  text += "@" + Printable(reference.GetNameSpaceName()) + "{";
  reference.EnumerateKeyBindings([&text](const std::pair<std::string, TCIMValue>& key) {
    text += key.first + "=" + ValueText(key.second) + ";";
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
      text += ValueText(element) + ",";
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
      return ReferenceText(value);
    case Type::kCIMTypeChar16:
      return CharacterText(value);
    case Type::kCIMTypeString:
      return "\"" + Printable(value) + "\"";
    default:
      return value.ToString(10);
  }
}

// Qualifiers, those of the element itself told from inherited ones.
void AddQualifiers(Lines& lines, const std::string& indent, ICIMQualifiedElement& element) {
  element.EnumerateQualifiers(
      [&](const Ptr<ICIMQualifier>& qualifier) {
        lines.push_back(indent + (qualifier->IsInherited({}) ? "inherited " : "") + "qualifier " +
                        qualifier->GetName({}) + " " + ValueText(qualifier->GetValue({})));
        return true;
      },
      {});
}

void AddMethod(Lines& lines, ICIMMethodDecl& method) {
  lines.push_back("  method " + method.GetName({}) + " of " + ClassName(method.GetClass({})) + " " +
                  std::to_string(method.GetReturnType({})));
  AddQualifiers(lines, "    ", method);
  method.EnumerateParameterDecls(
      [&](const Ptr<ICIMParameterDecl>& parameter) {
        lines.push_back("    parameter " + parameter->GetName({}) + " " +
                        std::to_string(parameter->GetType({})));
        AddQualifiers(lines, "      ", *parameter);
        return true;
      },
      {});
}

void AddInstance(Lines& lines, ICIMInstance& instance) {
  lines.push_back("  instance");
  instance.EnumerateProperties(
      [&](const Ptr<ICIMProperty>& property) {
        lines.push_back("    " + property->GetName({}) + " = " + ValueText(property->GetValue({})));
        return true;
      },
      {});
}

void AddClass(Lines& lines, ICIMClass& added) {
  lines.push_back(
      "class " + added.GetName({}) + " of " +
      (added.IsRootClass({}) ? std::string("none") : ClassName(added.GetSuperClass({}))));
  AddQualifiers(lines, "  ", added);
  added.EnumeratePropertyDecls(
      [&](const Ptr<ICIMPropertyDecl>& decl) {
        lines.push_back("  property " + decl->GetName({}) + " of " + ClassName(decl->GetClass({})) +
                        " " + ValueText(decl->GetDefaultValue({})));
        AddQualifiers(lines, "    ", *decl);
        return true;
      },
      {});
  added.EnumerateMethodDecls(
      [&](const Ptr<ICIMMethodDecl>& method) {
        AddMethod(lines, *method);
        return true;
      },
      {});
  added.EnumerateStaticProperties(
      [&](const Ptr<ICIMProperty>& property) {
        lines.push_back("  static " + property->GetName({}) + " = " +
                        ValueText(property->GetValue({})));
        return true;
      },
      {});
  added.EnumerateInstances(
      [&](const Ptr<ICIMInstance>& instance) {
        AddInstance(lines, *instance);
        return true;
      },
      false, {});
}

std::vector<Ptr<ICIMClass>> Classes(ICIMNamespace& ns, bool inOrder) {
  std::vector<Ptr<ICIMClass>> classes;
  const TAddToVectorCallback<ICIMClass> add(&classes);
  ns.EnumerateClasses(
      [&](const Ptr<ICIMClass>& root) {
        classes.push_back(root);
        root->EnumerateSubClasses(add, true, {});
        return true;
      },
      {});
  if (!inOrder) {
    std::sort(classes.begin(), classes.end(), [](const auto& one, const auto& other) {
      return one->GetName({}) < other->GetName({});
    });
  }
  return classes;
}

}  // namespace

std::string ValueText(const TCIMValue& value) {
  std::string text = std::to_string(static_cast<int>(value.GetType()));
  if (value.IsArray()) text += "/" + std::to_string(value.GetMaxArraySize());
  if (value.IsReference()) text += ">" + ClassName(value.GetReferencedClass());
  return text + ":" + (value.IsNull() ? "null" : BodyText(value));
}

std::vector<std::string> NamespaceLines(ICIMNamespace& ns, bool inOrder) {
  Lines lines = {"namespace " + Printable(ns.GetName({}))};
  ns.EnumerateQualifierDecls(
      [&](const Ptr<ICIMQualifierDecl>& decl) {
        lines.push_back(
            "declaration " + decl->GetName({}) + " " + std::to_string(decl->GetScope({})) + " " +
            std::to_string(decl->GetFlavor({})) + " " + ValueText(decl->GetDefaultValue({})));
        return true;
      },
      {});
  std::sort(lines.begin() + 1, lines.end());
  for (const Ptr<ICIMClass>& found : Classes(ns, inOrder))
    AddClass(lines, *found);
  return lines;
}

std::string Difference(ICIMNamespace& one, ICIMNamespace& other, bool inOrder) {
  const Lines left = NamespaceLines(one, inOrder);
  const Lines right = NamespaceLines(other, inOrder);
  const auto [at, there] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  if (at == left.end() && there == right.end()) return std::string();
  const auto line = [](const Lines& lines, Lines::const_iterator place) {
    return place == lines.end() ? "the end" : place->substr(0, 1000);
  };
  return "line " + std::to_string(at - left.begin() + 1) + ":\n" + line(left, at) + "\n" +
         line(right, there);
}

}  // namespace hwxtest
