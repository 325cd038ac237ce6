#include "hwx/inventory/Inventory.h"

#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/TAddToVectorCallback.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

void AddDescendants(ICIMClass& cimClass, TClasses& classes) {
  cimClass.EnumerateSubClasses(TAddToVectorCallback<ICIMClass>(&classes), true, TCIMContext());
}

void ReportIncomplete(ICIMClass& cimClass, const std::string& reason) {
  ReportError("the class " + cimClass.GetName(TCIMContext()) +
              " is incomplete: the provider failed: " + reason);
}

}  // namespace

TClasses AllClasses(ICIMNamespace& ns) {
  TClasses roots;
  ns.EnumerateClasses(TAddToVectorCallback<ICIMClass>(&roots), TCIMContext());
  TClasses classes;
  for (const auto& root : roots) {
    classes.push_back(root);
    AddDescendants(*root, classes);
  }
  return classes;
}

TClasses ClassesUnder(ICIMNamespace& ns, const std::optional<std::string>& name) {
  if (!name) return AllClasses(ns);
  TClasses classes;
  try {
    classes.push_back(ns.GetClass(*name, TCIMContext()));
  } catch (const THWXException& failure) {
    if (failure.GetStatus() == kHWXStatusNotFound) throw TFailure("there is no class " + *name);
    throw;
  }
  AddDescendants(*classes.front(), classes);
  return classes;
}

bool VisitInstances(ICIMClass& cimClass, const TInstanceVisitor& visit) {
  const auto present = [&visit](const InstancePtr& instance) {
    visit(instance);
    return true;
  };
  try {
    cimClass.EnumerateInstances(present, false, TCIMContext());
    return true;
  } catch (const THWXException& failure) {
    ReportIncomplete(cimClass, InWords(failure));
  } catch (const std::exception& failure) {
    ReportIncomplete(cimClass, failure.what());
  }
  return false;
}

std::string InstancePath(ICIMInstance& instance) {
  TCIMReference path({}, TCIMContext());
  path.SetClass(instance.GetClass(TCIMContext()));
  const auto addKey = [&path](const boost::shared_ptr<ICIMProperty>& key) {
    path.AddKeyValue(key->GetName(TCIMContext()), key->GetValue(TCIMContext()));
    return true;
  };
  instance.EnumerateKeyProperties(addKey, TCIMContext());
  return path.GetPath();
}

std::vector<TPropertyValue> PropertyValues(ICIMInstance& instance) {
  std::vector<TPropertyValue> values;
  const auto add = [&values](const boost::shared_ptr<ICIMProperty>& property) {
    values.push_back({property->GetName(TCIMContext()), property->GetValue(TCIMContext())});
    return true;
  };
  instance.EnumerateProperties(add, TCIMContext());
  return values;
}

}  // namespace hwx
