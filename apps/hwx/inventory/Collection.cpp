#include "hwx/inventory/Collection.h"

#include "hwx/inventory/Containers.h"
#include "hwx/inventory/Inventory.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/NamespaceCopy.h"
#include "hwxkit/TMemoryNamespace.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

boost::shared_ptr<TMemoryNamespace> Target(const TCollection& collection) {
  return boost::static_pointer_cast<TMemoryNamespace>(collection.fContainer);
}

void CopyDeclarations(ICIMNamespace& machine, TCollection& collection) {
  const auto failed = [&collection](const std::string& what, const std::string& why) {
    ReportError(what + " can't be copied: " + why);
    collection.fIsComplete = false;
  };
  try {
    CopySchema(machine, Target(collection), failed);
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
      CopyInstance(*instance, Target(fCollection));
      ++fCollection.fInstances;
    } catch (const THWXException& failure) {
      ReportError(InstancePath(*instance) + " can't be copied: " + InWords(failure.GetStatus()));
      fCollection.fIsComplete = false;
    }
  }

  TCollection& fCollection;
};

}  // namespace

TCollection Collect(const NamespacePtr& machine, const TClasses& classes) {
  TCollection collection = {NewContainer(machine->GetName(TCIMContext())), 0, 0, true};
  CopyDeclarations(*machine, collection);
  collection.fClasses = AllClasses(*collection.fContainer).size();
  TInstanceCopier(collection).CopyAll(classes);
  return collection;
}

}  // namespace hwx
