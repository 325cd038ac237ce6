#include "hwx/inventory/Difference.h"

#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "hwx/inventory/Inventory.h"
#include "hwx/inventory/Meaning.h"
#include "hwx/inventory/OneMachine.h"
#include "hwx/inventory/ValueText.h"
#include "hwxkit/CIMName.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

using TNames = std::unordered_set<std::string, TCIMNameHash, TCIMNameEqual>;

TNames ClassAndAncestors(ClassPtr cimClass) {
  TNames names = {cimClass->GetName(TCIMContext())};
  while (!cimClass->IsRootClass(TCIMContext())) {
    cimClass = cimClass->GetSuperClass(TCIMContext());
    names.insert(cimClass->GetName(TCIMContext()));
  }
  return names;
}

TNames IgnoredIn(const ClassPtr& cimClass, const std::vector<TIgnoredProperty>& ignored) {
  if (ignored.empty()) return TNames();  // a class may have a thousand ancestors
  const TNames classes = ClassAndAncestors(cimClass);
  TNames properties;
  for (const TIgnoredProperty& property : ignored) {
    if (classes.count(property.fClass) != 0) properties.insert(property.fProperty);
  }
  return properties;
}

TLoneInstance ComparedInstance(ICIMClass& cimClass, ICIMInstance& instance, const TNames& ignored,
                               bool ofOneMachine, TMeanings& meanings) {
  TLoneInstance compared = {
      ofOneMachine ? ShortPath(instance) : InstancePath(instance), TJson::object(), {}};
  for (const TPropertyValue& property : PropertyValues(instance)) {
    TJson value = ValueJson(property.fValue);
    if (value.is_null() || ignored.count(property.fName) != 0) continue;
    if (ofOneMachine && IsOwnerKey(property.fName)) continue;
    if (auto words = meanings.Of(cimClass, property.fName).Words(value))
      compared.fWords[property.fName] = std::move(*words);
    compared.fValues[property.fName] = std::move(value);
  }
  return compared;
}

// The instances of one side, by path and number. Only instances without keys share a path, and are
// numbered.
class TSide {
 public:
  struct TEntry {
    std::string fName;  ///< The path and the number.
    TLoneInstance fInstance;
  };

  TSide(ICIMNamespace& ns, const std::vector<TIgnoredProperty>& ignored, bool ofOneMachine) {
    TMeanings meanings;
    const TClasses all = AllClasses(ns);
    for (const auto& cimClass : ofOneMachine ? WithoutAssociations(all) : all) {
      const TNames ignoredHere = IgnoredIn(cimClass, ignored);
      const auto add = [&](const InstancePtr& instance) {
        Add(ComparedInstance(*cimClass, *instance, ignoredHere, ofOneMachine, meanings));
      };
      fIsComplete = VisitInstances(*cimClass, add) && fIsComplete;
    }
  }

  const std::vector<TEntry>& Entries() const { return fEntries; }
  bool IsComplete() const { return fIsComplete; }

  /// The entry of that name, or null.
  const TEntry* Find(const std::string& name) const {
    const auto place = fPlaces.find(name);
    return place == fPlaces.end() ? nullptr : &fEntries[place->second];
  }

 private:
  void Add(TLoneInstance instance) {
    const std::size_t number = ++fCounts[instance.fPath];
    const std::string name = instance.fPath + " " + std::to_string(number);
    fPlaces[name] = fEntries.size();
    fEntries.push_back({name, std::move(instance)});
  }

  std::vector<TEntry> fEntries;
  std::unordered_map<std::string, std::size_t> fPlaces;
  std::unordered_map<std::string, std::size_t> fCounts;
  bool fIsComplete = true;
};

std::optional<std::string> WordsOf(const TLoneInstance& instance, const std::string& property) {
  const auto found = instance.fWords.find(property);
  return found == instance.fWords.end() ? std::nullopt : std::optional(found->second);
}

std::vector<TChangedProperty> ChangedProperties(const TLoneInstance& oldOne,
                                                const TLoneInstance& newOne) {
  std::vector<TChangedProperty> changed;
  for (const auto& [name, value] : oldOne.fValues.items()) {
    TJson newValue = newOne.fValues.value(name, TJson());
    if (value == newValue) continue;
    changed.push_back(
        {name, value, std::move(newValue), WordsOf(oldOne, name), WordsOf(newOne, name)});
  }
  for (const auto& [name, value] : newOne.fValues.items()) {
    if (!oldOne.fValues.contains(name))
      changed.push_back({name, nullptr, value, std::nullopt, WordsOf(newOne, name)});
  }
  return changed;
}

void AddLone(const TSide& side, const TSide& other, std::vector<TLoneInstance>& lone) {
  for (const TSide::TEntry& entry : side.Entries()) {
    if (!other.Find(entry.fName)) lone.push_back(entry.fInstance);
  }
}

void AddCommon(const TSide& oldSide, const TSide& newSide, TDifference& difference) {
  for (const TSide::TEntry& entry : oldSide.Entries()) {
    const TSide::TEntry* const other = newSide.Find(entry.fName);
    if (!other) continue;
    auto changed = ChangedProperties(entry.fInstance, other->fInstance);
    if (changed.empty()) {
      ++difference.fEqual;
    } else {
      difference.fChanged.push_back({entry.fInstance.fPath, std::move(changed)});
    }
  }
}

}  // namespace

TDifference Compare(ICIMNamespace& oldNamespace, ICIMNamespace& newNamespace,
                    const std::vector<TIgnoredProperty>& ignored) {
  const bool ofOneMachine = IsOfOneMachine(oldNamespace) && IsOfOneMachine(newNamespace);
  const TSide oldSide(oldNamespace, ignored, ofOneMachine);
  const TSide newSide(newNamespace, ignored, ofOneMachine);
  TDifference difference;
  AddLone(oldSide, newSide, difference.fRemoved);
  AddLone(newSide, oldSide, difference.fAdded);
  AddCommon(oldSide, newSide, difference);
  difference.fIsComplete = oldSide.IsComplete() && newSide.IsComplete();
  return difference;
}

}  // namespace hwx
