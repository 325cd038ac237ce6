#include "hwx/inventory/Reading.h"

#include <algorithm>
#include <set>
#include <utility>

#include "hwx/inventory/OneMachine.h"
#include "hwx/inventory/ValueText.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Suggestion.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxkit/CIMName.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

template <typename Enumerate>
std::vector<std::string> DeclaredNames(Enumerate enumerate) {
  std::vector<std::string> names;
  enumerate([&names](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
    names.push_back(declaration->GetName(TCIMContext()));
    return true;
  });
  return names;
}

std::vector<std::string> NamesOfKeys(ICIMClass& cimClass) {
  return DeclaredNames(
      [&](const auto& add) { cimClass.EnumerateKeyPropertyDecls(add, TCIMContext()); });
}

std::vector<std::string> NamesOfProperties(ICIMClass& cimClass) {
  return DeclaredNames(
      [&](const auto& add) { cimClass.EnumeratePropertyDecls(add, TCIMContext()); });
}

TReadInstance ReadInstance(ICIMClass& cimClass, ICIMInstance& instance, TMeanings& meanings) {
  TReadInstance read = {InstancePath(instance), ShortPath(instance), {}};
  for (const TPropertyValue& property : PropertyValues(instance)) {
    read.fValues.push_back(
        {property.fName, ValueJson(property.fValue), &meanings.Of(cimClass, property.fName)});
  }
  return read;
}

// The chosen ones of the values, in the order of the names.
std::vector<TReadValue> Chosen(const TReadInstance& instance,
                               const std::vector<std::string>& names) {
  std::vector<TReadValue> values;
  for (const std::string& name : names) {
    if (const TReadValue* const value = instance.Find(name)) values.push_back(*value);
  }
  return values;
}

bool HasOneOf(const TReadClass& cimClass, const std::vector<std::string>& names) {
  for (const std::string& property : NamesOfProperties(*cimClass.fClass)) {
    for (const std::string& name : names) {
      if (IsSameCIMName(property, name)) return true;
    }
  }
  return false;
}

bool IsNull(const TReadValue* value) {
  return !value || value->fStored.is_null();
}

bool IsLess(const TReadValue& left, const TReadValue& right) {
  if (left.fStored.is_number() && right.fStored.is_number()) return left.fStored < right.fStored;
  return PlainText(left.fStored) < PlainText(right.fStored);
}

}  // namespace

std::string TReadValue::Text() const {
  return fMeaning->Words(fStored).value_or(PlainText(fStored));
}

const TReadValue* TReadInstance::Find(const std::string& name) const {
  const auto found = std::find_if(fValues.begin(), fValues.end(), [&name](const TReadValue& value) {
    return IsSameCIMName(value.fName, name);
  });
  return found == fValues.end() ? nullptr : &*found;
}

std::size_t TReading::InstanceCount() const {
  std::size_t count = 0;
  for (const TReadClass& cimClass : fClasses)
    count += cimClass.fInstances.size();
  return count;
}

TReading ReadInstances(const TClasses& classes) {
  TReading reading;
  reading.fMeanings = std::make_shared<TMeanings>();
  for (const ClassPtr& cimClass : classes) {
    TReadClass read = {cimClass, cimClass->GetName(TCIMContext()), NamesOfKeys(*cimClass), {}};
    const auto add = [&](const InstancePtr& instance) {
      read.fInstances.push_back(ReadInstance(*cimClass, *instance, *reading.fMeanings));
    };
    reading.fIsComplete = VisitInstances(*cimClass, add) && reading.fIsComplete;
    reading.fClasses.push_back(std::move(read));
  }
  return reading;
}

std::vector<std::string> PropertyNames(const TReading& reading) {
  std::vector<std::string> names;
  std::set<std::string> seen;
  for (const TReadClass& cimClass : reading.fClasses) {
    for (const std::string& name : NamesOfProperties(*cimClass.fClass)) {
      if (seen.insert(FoldedCIMName(name)).second) names.push_back(name);
    }
  }
  return names;
}

void RequireProperty(const TReading& reading, const std::string& name) {
  const std::vector<std::string> names = PropertyNames(reading);
  const auto isSame = [&name](const std::string& other) { return IsSameCIMName(name, other); };
  if (std::any_of(names.begin(), names.end(), isSame)) return;
  throw TFailure("no class here has a property " + name + DidYouMean(name, names));
}

void KeepProperties(TReading& reading, const std::vector<std::string>& names) {
  for (const std::string& name : names)
    RequireProperty(reading, name);
  auto& classes = reading.fClasses;
  const auto lacksAll = [&names](const TReadClass& read) { return !HasOneOf(read, names); };
  classes.erase(std::remove_if(classes.begin(), classes.end(), lacksAll), classes.end());
  for (TReadClass& cimClass : classes) {
    for (TReadInstance& instance : cimClass.fInstances)
      instance.fValues = Chosen(instance, names);
  }
}

void LeaveOutOwner(TReading& reading) {
  const auto isOwnerKey = [](const std::string& name) { return IsOwnerKey(name); };
  const auto isOwnerValue = [](const TReadValue& value) { return IsOwnerKey(value.fName); };
  for (TReadClass& cimClass : reading.fClasses) {
    auto& keys = cimClass.fKeys;
    if (std::all_of(keys.begin(), keys.end(), isOwnerKey)) continue;
    keys.erase(std::remove_if(keys.begin(), keys.end(), isOwnerKey), keys.end());
    for (TReadInstance& instance : cimClass.fInstances) {
      auto& values = instance.fValues;
      values.erase(std::remove_if(values.begin(), values.end(), isOwnerValue), values.end());
      instance.fPath = instance.fShortPath;
    }
  }
}

void SortInstances(TReading& reading, const std::string& property, bool descends) {
  RequireProperty(reading, property);
  const auto isBefore = [&](const TReadInstance& left, const TReadInstance& right) {
    const TReadValue* const one = left.Find(property);
    const TReadValue* const other = right.Find(property);
    if (IsNull(one) || IsNull(other)) return !IsNull(one) && IsNull(other);
    return descends ? IsLess(*other, *one) : IsLess(*one, *other);
  };
  for (TReadClass& cimClass : reading.fClasses)
    std::stable_sort(cimClass.fInstances.begin(), cimClass.fInstances.end(), isBefore);
}

}  // namespace hwx
