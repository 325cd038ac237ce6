#include "support/SchemaText.h"

#include <algorithm>
#include <map>

#include "hwxcore/hwxcore.h"
#include "support/ValueText.h"

using namespace NQORHWX20;

namespace hwxtest {

namespace {

using Lines = std::vector<std::string>;
template <typename T>
using Ptr = boost::shared_ptr<T>;

void AddQualifiers(Lines& lines, ICIMQualifiedElement& element, const std::string& text) {
  element.EnumerateQualifiers(
      [&](Ptr<ICIMQualifier> qualifier) {
        lines.push_back(text + "[" + qualifier->GetQualifierDecl({})->GetName({}) + "] " +
                        ValueText(qualifier->GetValue({})));
        return true;
      },
      {});
}

void AddProperties(Lines& lines, ICIMClass& of, const std::string& text) {
  of.EnumeratePropertyDecls(
      [&](Ptr<ICIMPropertyDecl> decl) {
        const std::string property = text + "." + decl->GetName({});
        lines.push_back(property + " " + ValueText(decl->GetDefaultValue({})));
        AddQualifiers(lines, *decl, property);
        return true;
      },
      {});
  of.EnumerateStaticProperties(
      [&](Ptr<ICIMProperty> property) {
        lines.push_back(text + "::" + property->GetPropertyDecl({})->GetName({}) + " " +
                        ValueText(property->GetValue({})));
        return true;
      },
      {});
}

void AddMethod(Lines& lines, ICIMMethodDecl& method, const std::string& text) {
  lines.push_back(text + "() " + TypeText(method.GetReturnType({})));
  AddQualifiers(lines, method, text + "()");
  method.EnumerateParameterDecls(
      [&](Ptr<ICIMParameterDecl> decl) {
        const std::string parameter = text + "(" + decl->GetName({}) + ")";
        lines.push_back(parameter + " " + TypeText(decl->GetType({})));
        AddQualifiers(lines, *decl, parameter);
        return true;
      },
      {});
}

Lines ClassText(ICIMClass& of) {
  const std::string name = of.GetName({});
  Lines lines = {name};
  if (!of.IsRootClass({})) lines[0] += " : " + of.GetSuperClass({})->GetName({});
  AddQualifiers(lines, of, name);
  AddProperties(lines, of, name);
  of.EnumerateMethodDecls(
      [&](Ptr<ICIMMethodDecl> method) {
        AddMethod(lines, *method, name + "." + method->GetName({}));
        return true;
      },
      {});
  return lines;
}

}  // namespace

Lines SchemaText(ICIMNamespace& ns) {
  Lines lines;
  ns.EnumerateQualifierDecls(
      [&](Ptr<ICIMQualifierDecl> decl) {
        lines.push_back(
            "qualifier " + decl->GetName({}) + " " + ValueText(decl->GetDefaultValue({})) + " " +
            std::to_string(decl->GetScope({})) + " " + std::to_string(decl->GetFlavor({})));
        return true;
      },
      {});
  std::map<std::string, Lines> classes;
  const auto add = [&](Ptr<ICIMClass> found) {
    classes[found->GetName({})] = ClassText(*found);
    return true;
  };
  ns.EnumerateClasses(
      [&](Ptr<ICIMClass> root) {
        add(root);
        root->EnumerateSubClasses(add, true, {});
        return true;
      },
      {});
  for (const auto& [name, text] : classes)
    lines.insert(lines.end(), text.begin(), text.end());
  return lines;
}

std::string FirstDifference(const Lines& one, const Lines& other) {
  const auto [mine, its] = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
  if (mine == one.end() && its == other.end()) return "";
  return (mine == one.end() ? "end" : *mine) + " | " + (its == other.end() ? "end" : *its);
}

}  // namespace hwxtest
