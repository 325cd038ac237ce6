#include "hwx/inventory/OneMachine.h"

#include <algorithm>
#include <iterator>

#include "hwx/inventory/Inventory.h"
#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/CIMName.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

const char kSystems[] = "CIM_System";

const char* const kOwnerKeys[] = {"CreationClassName", "SystemCreationClassName", "SystemName",
                                  "CSCreationClassName", "CSName"};

}  // namespace

bool IsOfOneMachine(ICIMNamespace& ns) {
  unsigned int count = 0;
  const auto add = [&count](const InstancePtr&) { return ++count < 2; };
  try {
    ns.GetClass(kSystems, TCIMContext())->EnumerateInstances(add, true, TCIMContext());
  } catch (const std::exception&) {  // it shows where the instances are shown
    return false;
  }
  return count == 1;
}

bool IsOwnerKey(const std::string& property) {
  return std::any_of(std::begin(kOwnerKeys), std::end(kOwnerKeys),
                     [&](const char* key) { return IsSameCIMName(key, property); });
}

std::string ShortPath(ICIMInstance& instance) {
  TCIMReference path({}, TCIMContext());
  path.SetClass(instance.GetClass(TCIMContext()));
  bool hasKeys = false;
  const auto addKey = [&](const boost::shared_ptr<ICIMProperty>& key) {
    if (!IsOwnerKey(key->GetName(TCIMContext()))) {
      path.AddKeyValue(key->GetName(TCIMContext()), key->GetValue(TCIMContext()));
      hasKeys = true;
    }
    return true;
  };
  instance.EnumerateKeyProperties(addKey, TCIMContext());
  return hasKeys ? path.GetPath() : InstancePath(instance);
}

}  // namespace hwx
