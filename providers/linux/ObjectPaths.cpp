#include "providers/linux/ObjectPaths.h"

#include <map>
#include <set>

#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxkit/TInstanceList.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxsys/SystemRoot.h"
#include "providers/linux/OperatingSystem.h"
#include "providers/linux/OwnerKeys.h"

namespace linux_machine {

namespace {

using NQORHWX20::TCIMContext;
using NQORHWX20::TCIMReference;
using NQORHWX20::TCIMValue;
using NQORHWX20::TInstanceList;
using NQORHWX20::TMemoryClass;
using NQORHWX20::TMemoryNamespace;

// References to instances of one namespace and one machine.
class TReferences {
 public:
  TReferences(boost::shared_ptr<TMemoryNamespace> ns, std::string root)
      : fNamespace(std::move(ns)), fRoot(std::move(root)) {}

  TCIMValue To(const TObject& object) {
    const TTarget& target = TargetOf(object.fClass);
    TCIMReference reference(fNamespace, TCIMContext());
    reference.SetClass(target.fClass);
    for (const auto& [name, value] : target.fOwnerKeys.Values()) {
      reference.AddKeyValue(name, value);
    }
    for (const auto& [name, value] : object.fKeys) {
      reference.AddKeyValue(name, value);
    }
    return TCIMValue(reference);
  }

 private:
  struct TTarget {
    boost::shared_ptr<TMemoryClass> fClass;
    TOwnerKeys fOwnerKeys;
  };

  const TTarget& TargetOf(const std::string& name) {
    const auto known = fTargets.find(name);
    if (known != fTargets.end()) {
      return known->second;
    }
    const boost::shared_ptr<TMemoryClass> found = DeclaredClass(*fNamespace, name);
    return fTargets.emplace(name, TTarget{found, TOwnerKeys(*found, fRoot)}).first->second;
  }

  const boost::shared_ptr<TMemoryNamespace> fNamespace;
  const std::string fRoot;
  std::map<std::string, TTarget> fTargets;
};

// The two references of an association, in the order of the schema.
std::vector<std::string> ReferenceNames(TMemoryClass& association) {
  std::vector<std::string> names;
  association.EnumerateKeyPropertyDecls(
      [&names](const boost::shared_ptr<NQORHWX20::ICIMPropertyDecl>& key) {
        names.push_back(key->GetName(TCIMContext()));
        return true;
      },
      TCIMContext());
  return names;
}

std::string TextOf(const TObject& object) {
  std::string text = object.fClass;
  for (const auto& [name, value] : object.fKeys) {
    text += '\0' + value.ToString(10);
  }
  return text;
}

void AddLinks(const TLinks& links, const std::string& root, TInstanceList& instances) {
  const auto ns = boost::dynamic_pointer_cast<TMemoryNamespace>(
      instances.GetClass()->GetNamespace(TCIMContext()));
  TReferences references(ns, root);
  const std::vector<std::string> names = ReferenceNames(*instances.GetClass());
  std::set<std::pair<std::string, std::string>> seen;
  for (const TLink& link : links) {
    if (!seen.emplace(TextOf(link.fFirst), TextOf(link.fSecond)).second) {
      continue;
    }
    NQORHWX20::TMemoryInstance& instance = instances.Add();
    instance.Set(names.at(0), references.To(link.fFirst));
    instance.Set(names.at(1), references.To(link.fSecond));
    for (const auto& [name, value] : link.fValues) {
      instance.Set(name, value);
    }
  }
}

}  // namespace

TObject ComputerSystem(const std::string& root) {
  return {NQORHWX20::TCIMSchemaHelper::kSystemCreationClassName, {{"Name", ReadHostName(root)}}};
}

TObject Device(const std::string& className, const std::string& deviceID) {
  return {className, {{"DeviceID", deviceID}}};
}

TObject Part(const std::string& className, const std::string& tag) {
  return {className, {{"Tag", tag}}};
}

void DefineLinks(const boost::shared_ptr<TMemoryNamespace>& ns, const std::string& association,
                 TLinks (*read)(const std::string& root)) {
  DeclaredClass(*ns, association)->SetInstanceSource([read](TInstanceList& instances) {
    const std::string root = hwxsys::SystemRoot();
    AddLinks(read(root), root, instances);
  });
}

}  // namespace linux_machine
