#include "hwx/inventory/Collection.h"

#include "hwx/inventory/Containers.h"
#include "hwx/inventory/Inventory.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/schema/TCIMCopy.h"
#include "hwxcore/value/THWXException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

void CopySchema(const NamespacePtr& machine, const NamespacePtr& container) {
  try {
    // Products are copied with all other instances.
    TCIMCopy::CopyClasses(machine, container, true);
  } catch (const THWXException& failure) {
    throw TFailure("the schema can't be copied: " + InWords(failure.GetStatus()));
  }
}

class TInstanceCopier {
 public:
  explicit TInstanceCopier(TCollection& collection) : fCollection(collection) {}

  void CopyAll(const TClasses& classes) {
    std::size_t done = 0;
    for (const auto& cimClass : classes) {
      ShowProgress("Collecting " + cimClass->GetName(TCIMContext()) + ", class " +
                   std::to_string(++done) + " of " + std::to_string(classes.size()));
      if (!cimClass->IsAbstract(TCIMContext())) CopyInstancesOf(*cimClass);
    }
  }

 private:
  void CopyInstancesOf(ICIMClass& cimClass) {
    const auto copy = [this](const InstancePtr& instance) { Copy(instance); };
    if (!VisitInstances(cimClass, copy)) fCollection.fIsComplete = false;
  }

  // One that can't be copied costs itself alone.
  void Copy(const InstancePtr& instance) {
    try {
      TCIMCopy::CopyInstance(instance, fCollection.fContainer);
      ++fCollection.fInstances;
    } catch (const THWXException& failure) {
      ReportError(InstancePath(*instance) + " can't be copied: " + InWords(failure.GetStatus()));
      fCollection.fIsComplete = false;
    }
  }

  TCollection& fCollection;
};

}  // namespace

TCollection Collect(const NamespacePtr& machine, const std::optional<std::string>& onlyClass) {
  const TClasses chosen = ClassesUnder(*machine, onlyClass);
  TCollection collection = {NewContainer(machine->GetName(TCIMContext())), 0, 0, true};
  CopySchema(machine, collection.fContainer);
  collection.fClasses = AllClasses(*collection.fContainer).size();
  TInstanceCopier(collection).CopyAll(chosen);
  return collection;
}

}  // namespace hwx
