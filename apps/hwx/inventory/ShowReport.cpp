#include "hwx/inventory/ShowReport.h"

#include <set>
#include <utility>

#include "hwx/inventory/ValueText.h"
#include "hwx/text/Json.h"
#include "hwx/text/Printable.h"
#include "hwx/text/Table.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxkit/CIMName.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

std::string InstanceTable(ICIMInstance& instance) {
  std::vector<std::vector<std::string>> rows;
  for (const TPropertyValue& property : PropertyValues(instance)) {
    if (!property.fValue.IsNull()) rows.push_back({property.fName, ValueText(property.fValue)});
  }
  return Printable(InstancePath(instance)) + "\n" + AlignedTable(rows, "  ");
}

std::set<std::string> KeyNames(ICIMClass& cimClass) {
  std::set<std::string> names;
  const auto add = [&names](const boost::shared_ptr<ICIMPropertyDecl>& key) {
    names.insert(FoldedCIMName(key->GetName(TCIMContext())));
    return true;
  };
  cimClass.EnumerateKeyPropertyDecls(add, TCIMContext());
  return names;
}

TJson DeclarationsJson(ICIMClass& cimClass) {
  const std::set<std::string> keys = KeyNames(cimClass);
  TJson declarations = TJson::array();
  const auto add = [&](const boost::shared_ptr<ICIMPropertyDecl>& property) {
    const std::string& name = property->GetName(TCIMContext());
    declarations.push_back({{"name", name},
                            {"type", TypeName(property->GetType(TCIMContext()))},
                            {"key", keys.count(FoldedCIMName(name)) != 0}});
    return true;
  };
  cimClass.EnumeratePropertyDecls(add, TCIMContext());
  return declarations;
}

TJson SuperclassJson(ICIMClass& cimClass) {
  if (cimClass.IsRootClass(TCIMContext())) return nullptr;
  return cimClass.GetSuperClass(TCIMContext())->GetName(TCIMContext());
}

TJson InstanceJson(ICIMInstance& instance) {
  TJson json;
  json["path"] = InstancePath(instance);
  json["values"] = TJson::object();
  for (const TPropertyValue& property : PropertyValues(instance))
    json["values"][property.fName] = ValueJson(property.fValue);
  return json;
}

TJson ClassJson(ICIMClass& cimClass, bool& isComplete) {
  TJson instances = TJson::array();
  const auto add = [&instances](const InstancePtr& instance) {
    instances.push_back(InstanceJson(*instance));
  };
  isComplete = VisitInstances(cimClass, add) && isComplete;
  TJson json;
  json["name"] = cimClass.GetName(TCIMContext());
  json["superclass"] = SuperclassJson(cimClass);
  json["abstract"] = cimClass.IsAbstract(TCIMContext());
  json["association"] = cimClass.IsAssociation(TCIMContext());
  json["properties"] = DeclarationsJson(cimClass);
  json["instances"] = std::move(instances);
  return json;
}

}  // namespace

TShownClasses ShowTable(const TClasses& classes) {
  TShownClasses shown = {"", true};
  const auto add = [&shown](const InstancePtr& instance) {
    shown.fText += (shown.fText.empty() ? "" : "\n") + InstanceTable(*instance);
  };
  for (const auto& cimClass : classes)
    shown.fIsComplete = VisitInstances(*cimClass, add) && shown.fIsComplete;
  return shown;
}

TShownClasses ShowJson(const TClasses& classes) {
  bool isComplete = true;
  TJson json;
  json["classes"] = TJson::array();
  for (const auto& cimClass : classes)
    json["classes"].push_back(ClassJson(*cimClass, isComplete));
  return {JsonText(json), isComplete};
}

}  // namespace hwx
