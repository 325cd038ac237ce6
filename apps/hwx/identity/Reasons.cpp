#include "hwx/identity/Reasons.h"

#include <vector>

#include "hwx/firmware/FirmwareTables.h"
#include "hwx/inventory/ValueText.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/TAddToVectorCallback.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/value/THWXException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

const TQueriedProperty kFirmwareStatus = {"QORSG_ComputerSystem",
                                          "FirmwareStatus",
                                          "firmware status",
                                          TCIMValue::TCIMType::kCIMTypeString,
                                          false,
                                          true};

TCIMContext PluginContext() {
  TCIMContext context;
  context[TCIMSchemaHelper::kContextName].Set(TCIMSchemaHelper::kPluginNSPName);
  return context;
}

// What a step ended in: an object, or why there is none.
template <typename T>
struct TFound {
  boost::shared_ptr<T> fObject;
  std::string fReason;
};

// Runs a step that reports absence by a status or an empty pointer.
template <typename Step>
auto Find(Step step, const std::string& whenAbsent)
    -> TFound<typename decltype(step())::element_type> {
  try {
    const auto object = step();
    return {object, object ? std::string() : whenAbsent};
  } catch (const THWXException& failure) {
    if (failure.GetStatus() == kHWXStatusNotFound) return {{}, whenAbsent};
    return {{}, "the provider failed: " + InWords(failure.GetStatus())};
  }
}

TFound<ICIMInstance> FindInstance(ICIMClass& cimClass, const TQueriedProperty& queried) {
  std::vector<InstancePtr> instances;
  cimClass.EnumerateInstances(TAddToVectorCallback<ICIMInstance>(&instances), true, TCIMContext());
  const std::string className = queried.fClass;
  if (instances.empty()) return {{}, "the provider has no instance of the class " + className};
  if (instances.size() > 1 && queried.fNeedsOneInstance) {
    return {{},
            "the provider has " + std::to_string(instances.size()) + " instances of the class " +
                className + ", not one"};
  }
  return {instances.back(), std::string()};
}

TFound<ICIMProperty> FindProperty(const NamespacePtr& machine, const TQueriedProperty& queried) {
  const std::string className = queried.fClass;
  const auto cimClass = Find([&] { return machine->GetClass(className, PluginContext()); },
                             "the provider lacks the class " + className);
  if (!cimClass.fObject) return {{}, cimClass.fReason};
  const auto instance = FindInstance(*cimClass.fObject, queried);
  if (!instance.fObject) return {{}, instance.fReason};
  return Find([&] { return instance.fObject->GetProperty(queried.fProperty, PluginContext()); },
              "the class " + className + " has no property " + queried.fProperty);
}

// Whether damaged tables tell of the system all the same, in front of the damage.
bool IsDamagedBehindSystem() {
  const smbios::TTables tables = ReadFirmware();
  return !tables.IsSound() && tables.FindFirst(smbios::kTypeSystemInformation);
}

std::string WhyNull(const NamespacePtr& machine, const TQueriedProperty& queried) {
  const auto status = queried.fIsOfFirmware ? FirmwareStatus(machine) : std::nullopt;
  if (!status) return std::string("the provider gives no ") + queried.fNoun;
  if (!status->empty() && !IsDamagedBehindSystem()) return *status;
  return std::string("the firmware tables hold no ") + queried.fNoun;
}

std::optional<std::string> WhyUnreadableOrThrow(const NamespacePtr& machine,
                                                const TQueriedProperty& queried) {
  const auto property = FindProperty(machine, queried);
  if (!property.fObject) return property.fReason;
  const TCIMValue value = property.fObject->GetValue(TCIMContext());
  if (value.IsNull()) return WhyNull(machine, queried);
  if (value.GetType() == queried.fType) return std::nullopt;
  return std::string("the provider gives the ") + queried.fNoun + " as " +
         TypeName(value.GetType()) + ", not as " + TypeName(queried.fType);
}

}  // namespace

std::optional<std::string> WhyUnreadable(const NamespacePtr& machine,
                                         const TQueriedProperty& queried) {
  try {
    return WhyUnreadableOrThrow(machine, queried);
  } catch (const THWXException& failure) {
    return "the provider failed: " + InWords(failure.GetStatus());
  } catch (const std::exception& failure) {
    return std::string("the provider failed: ") + failure.what();
  }
}

std::optional<std::string> FirmwareStatus(const NamespacePtr& machine) {
  try {
    const auto property = FindProperty(machine, kFirmwareStatus);
    if (!property.fObject) return std::nullopt;
    const TCIMValue value = property.fObject->GetValue(TCIMContext());
    return value.IsNull() ? std::string() : static_cast<std::string>(value);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace hwx
