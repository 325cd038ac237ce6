#include "hwx/inventory/Inventory.h"

#include <fnmatch.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <set>

#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwx/text/StatusWords.h"
#include "hwx/text/Suggestion.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/TAddToVectorCallback.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/CIMName.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

void AddDescendants(ICIMClass& cimClass, TClasses& classes) {
  cimClass.EnumerateSubClasses(TAddToVectorCallback<ICIMClass>(&classes), true, TCIMContext());
}

bool IsLike(const std::string& pattern, const std::string& name) {
  return ::fnmatch(FoldedCIMName(pattern).c_str(), FoldedCIMName(name).c_str(), FNM_NOESCAPE) == 0;
}

[[noreturn]] void RefuseClass(const std::string& name, const TClasses& all) {
  if (name.find_first_of("*?") != std::string::npos) throw TFailure("no class is like " + name);
  std::vector<std::string> names;
  names.reserve(all.size());
  for (const ClassPtr& cimClass : all)
    names.push_back(cimClass->GetName(TCIMContext()));
  throw TFailure("there is no class " + name + DidYouMean(name, names));
}

// A file may hold the subclasses of a class that it leaves to others. False if there are none.
bool ChooseDescendants(const std::string& name, const TClasses& all,
                       std::set<std::string>& chosen) {
  bool isKnown = false;
  for (const ClassPtr& cimClass : all) {
    if (!cimClass->IsSubClassOf(name, TCIMContext())) continue;
    isKnown = true;
    chosen.insert(cimClass->GetName(TCIMContext()));
  }
  return isKnown;
}

void ChooseLike(const std::string& name, const TClasses& all, std::set<std::string>& chosen) {
  bool isKnown = false;
  for (const ClassPtr& cimClass : all) {
    const std::string& className = cimClass->GetName(TCIMContext());
    if (!IsLike(name, className)) continue;
    isKnown = true;
    chosen.insert(className);
    TClasses descendants;
    AddDescendants(*cimClass, descendants);
    for (const ClassPtr& descendant : descendants)
      chosen.insert(descendant->GetName(TCIMContext()));
  }
  if (!isKnown && !ChooseDescendants(name, all, chosen)) RefuseClass(name, all);
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

ClassPtr ClassNamed(ICIMNamespace& ns, const std::string& name) {
  const TClasses all = AllClasses(ns);
  for (const ClassPtr& cimClass : all) {
    if (IsSameCIMName(cimClass->GetName(TCIMContext()), name)) return cimClass;
  }
  RefuseClass(name, all);
}

TClasses ClassesLike(ICIMNamespace& ns, const std::vector<std::string>& names) {
  const TClasses all = AllClasses(ns);
  if (names.empty()) return all;
  std::set<std::string> chosen;
  for (const std::string& name : names)
    ChooseLike(name, all, chosen);
  TClasses classes;
  std::copy_if(all.begin(), all.end(), std::back_inserter(classes), [&](const ClassPtr& cimClass) {
    return chosen.count(cimClass->GetName(TCIMContext())) != 0;
  });
  return classes;
}

TClasses WithoutAssociations(const TClasses& classes) {
  TClasses others;
  std::copy_if(classes.begin(), classes.end(), std::back_inserter(others),
               [](const ClassPtr& cimClass) { return !cimClass->IsAssociation(TCIMContext()); });
  return others;
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
  } catch (const std::bad_alloc&) {  // nobody's fault, and what follows needs memory too
    throw;
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
