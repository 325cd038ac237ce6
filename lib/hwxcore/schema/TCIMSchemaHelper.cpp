#include "hwxcore/schema/TCIMSchemaHelper.h"

#include <vector>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/schema/ClassNames.h"
#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMNamespace.h"
#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/schema/TAddToVectorCallback.h"
#include "hwxcore/schema/detail/Existing.h"
#include "hwxcore/value/THWXException.h"
#include "hwxidentity/MachineTypeModel.h"
#include "hwxidentity/SerialNumberCheck.h"

namespace NQORHWX20 {

const std::string TCIMSchemaHelper::kPluginNSPName = "plugin";
const std::string TCIMSchemaHelper::kCMPINSPName = "cmpi";
const std::string TCIMSchemaHelper::kContextName = "nspID";
const std::string TCIMSchemaHelper::kSystemCreationClassName = "QORSG_ComputerSystem";
const std::string TCIMSchemaHelper::kOperatingSystemCreationClassName = "QORSG_OperatingSystem";

namespace {

using detail::Existing;

const char kUnknown[] = "Unknown";

using NamespacePtr = boost::shared_ptr<ICIMNamespace>;
using ClassPtr = boost::shared_ptr<ICIMClass>;
using InstancePtr = boost::shared_ptr<ICIMInstance>;
using PropertyPtr = boost::shared_ptr<ICIMProperty>;

// The caller's context with the provider chosen. Some calls of a query get it, and others an empty
// one. Contract: context-of-each-call, no-other-provider.
TCIMContext PluginContext(TCIMContext context = TCIMContext()) {
  context[TCIMSchemaHelper::kContextName].Set(TCIMSchemaHelper::kPluginNSPName);
  return context;
}

ClassPtr GetClass(const NamespacePtr& ns, const std::string& name, const TCIMContext& context) {
  return Existing(ns->GetClass(name, context));
}

std::vector<InstancePtr> CollectInstances(const ClassPtr& cimClass, const TCIMContext& context) {
  std::vector<InstancePtr> instances;
  cimClass->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(&instances), true, context);
  return instances;
}

PropertyPtr GetProperty(const InstancePtr& instance, const std::string& name,
                        const TCIMContext& context) {
  return Existing(Existing(instance)->GetProperty(name, context));
}

// The strict queries: failures pass through, and nothing is logged.
// Contract: strict-queries-unlogged.
template <typename Result>
Result ReadFromOnlyInstance(const NamespacePtr& ns, const std::string& className,
                            const std::string& property) {
  const TCIMContext context = PluginContext();
  const std::vector<InstancePtr> instances =
      CollectInstances(GetClass(ns, className, context), TCIMContext());
  if (instances.size() != 1) throw THWXException(kHWXStatusNotFound);
  return GetProperty(instances.front(), property, context)->GetValue(TCIMContext());
}

template <typename... Reason>
[[noreturn]] void LogAndThrowNotFound(const Reason&... reason) {
  detail::LogDebug("TCIMSchemaHelper: ", reason...);
  throw THWXException(kHWXStatusNotFound);
}

// Runs one call of the schema, and logs the reason if nothing is found. All failures go on as new
// exceptions with the same status.
template <typename Call, typename... Reason>
auto LoggingAbsence(Call call, const Reason&... reason) {
  try {
    return call();
  } catch (const THWXException& failure) {
    if (failure.GetStatus() == kHWXStatusNotFound) LogAndThrowNotFound(reason...);
    throw THWXException(failure.GetStatus());
  }
}

// The raw reads of the computer system. `context` finds the class, `instanceContext` reads from it.
// Contract: raw-reads-at-debug, null-is-not-found.
std::string ReadRawString(const NamespacePtr& ns, const TCIMContext& context,
                          const TCIMContext& instanceContext, const char* property) {
  const auto computerSystem = LoggingAbsence(
      [&] { return GetClass(ns, TCIMSchemaHelper::kSystemCreationClassName, context); },
      "no computer system");
  const std::vector<InstancePtr> instances = CollectInstances(computerSystem, instanceContext);
  if (instances.size() != 1) LogAndThrowNotFound("computer system instances != 1");
  const auto found =
      LoggingAbsence([&] { return GetProperty(instances.front(), property, instanceContext); },
                     "didn't find ", property, " property");
  const TCIMValue value = found->GetValue(TCIMContext());
  if (value.IsNull()) LogAndThrowNotFound(property, " is NULL");
  if (value.GetType() != TCIMValue::TCIMType::kCIMTypeString) {
    LogAndThrowNotFound(property, " wasn't a string");
  }
  return value;
}

}  // namespace

// Contract: class-names-unasked.
std::string TCIMSchemaHelper::GetSystemCreationClassName(NamespacePtr /*ns*/) {
  return kSystemCreationClassName;
}

std::string TCIMSchemaHelper::GetOperatingSystemCreationClassName(NamespacePtr /*ns*/) {
  return kOperatingSystemCreationClassName;
}

std::string TCIMSchemaHelper::GetSystemProductName(NamespacePtr ns) {
  return ReadFromOnlyInstance<std::string>(ns, kSystemCreationClassName, "ProductName");
}

std::string TCIMSchemaHelper::GetSystemName(NamespacePtr ns) {
  return ReadFromOnlyInstance<std::string>(ns, kSystemCreationClassName, "Name");
}

std::string TCIMSchemaHelper::GetOperatingSystemName(NamespacePtr ns) {
  return ReadFromOnlyInstance<std::string>(ns, kOperatingSystemCreationClassName, "Name");
}

std::string TCIMSchemaHelper::GetOperatingSystemVersion(NamespacePtr ns) {
  return ReadFromOnlyInstance<std::string>(ns, kOperatingSystemCreationClassName, "Version");
}

unsigned short TCIMSchemaHelper::GetOperatingSystemType(NamespacePtr ns) {
  return ReadFromOnlyInstance<unsigned short>(ns, kOperatingSystemCreationClassName, "OSType");
}

std::string TCIMSchemaHelper::GetSystemProductName_vmwesxi(NamespacePtr ns) {
  std::string result = kUnknown;
  try {
    const auto elements = GetClass(ns, "CIM_PhysicalElement", PluginContext());
    for (const InstancePtr& instance : CollectInstances(elements, TCIMContext())) {
      try {
        const std::string model = GetProperty(instance, "Model", TCIMContext())->GetStringValue();
        // Contract: marks-in-any-order.
        if (model.find("-[") == std::string::npos || model.find("]-") == std::string::npos)
          continue;
        result = model;
        break;
      } catch (const THWXException&) {  // an element without a model: on to the next one
      }
    }
  } catch (const THWXException&) {  // Contract: hypervisor-unknown.
  }
  return result;
}

// Contract: build-for-name.
std::string TCIMSchemaHelper::GetOperatingSystemName_vmwesxi(NamespacePtr ns) {
  std::string result = kUnknown;
  try {
    // The query above chooses a provider. Contract: context-of-each-call.
    const auto software = GetClass(ns, "VMware_HypervisorSoftwareIdentity", TCIMContext());
    for (const InstancePtr& instance : CollectInstances(software, TCIMContext())) {
      try {
        result = GetProperty(instance, "LargeBuildNumber", TCIMContext())->GetStringValue();
        break;
      } catch (const THWXException&) {  // unreadable: on to the next one
      }
    }
  } catch (const THWXException&) {  // Contract: hypervisor-unknown.
  }
  return result;
}

std::string TCIMSchemaHelper::GetDataSourceVersion(NamespacePtr ns, TCIMContext ctx) {
  const TCIMContext context = PluginContext(ctx);
  const std::vector<InstancePtr> instances =
      CollectInstances(GetClass(ns, kProductClassName, context), TCIMContext());
  if (instances.empty()) throw THWXException(kHWXStatusNotFound);
  // Contract: last-version-first-build.
  return GetProperty(instances.back(), "Version", context)->GetValue(TCIMContext());
}

std::string TCIMSchemaHelper::GetDataSourceBuild(NamespacePtr ns, TCIMContext ctx) {
  ClassPtr product;
  try {
    product = GetClass(ns, kProductClassName, ctx);  // Contract: build-in-callers-context.
  } catch (const THWXException&) {
    return std::string();  // Contract: build-may-be-empty.
  }
  for (const InstancePtr& instance : CollectInstances(product, TCIMContext())) {
    try {
      return GetProperty(instance, "Build", TCIMContext())->GetValue(TCIMContext()).ToString(10);
    } catch (const THWXException&) {  // unreadable: on to the next one
    }
  }
  return std::string();
}

std::string TCIMSchemaHelper::GetDataSourceMajorVersion(NamespacePtr ns, TCIMContext ctx) {
  const std::string version = GetDataSourceVersion(ns, ctx);
  const std::size_t dot = version.find('.');
  if (dot == std::string::npos) {
    // Its two siblings don't log. Contract: major-version-logged.
    detail::LogDebug("TCIMSchemaHelper::GetDataSourceMajorVersion - Throwing");
    throw THWXException(kHWXStatusNotFound);
  }
  return version.substr(0, dot);
}

std::string TCIMSchemaHelper::GetDataSourceMinorVersion(NamespacePtr ns, TCIMContext ctx) {
  const std::string version = GetDataSourceVersion(ns, ctx);
  const std::size_t first = version.find('.');
  if (first == std::string::npos) throw THWXException(kHWXStatusNotFound);
  const std::size_t second = version.find('.', first + 1);
  if (second == std::string::npos) throw THWXException(kHWXStatusNotFound);
  return version.substr(first + 1, second - first - 1);
}

std::string TCIMSchemaHelper::GetDataSourceBuildVersion(NamespacePtr ns) {
  const std::string version = GetDataSourceVersion(ns, TCIMContext());
  const std::size_t dot = version.rfind('.');  // Contract: build-version-last-part.
  if (dot == std::string::npos) throw THWXException(kHWXStatusNotFound);
  return version.substr(dot + 1);
}

std::string TCIMSchemaHelper::GetRawSerialNumberString(NamespacePtr ns, TCIMContext ctx) {
  const TCIMContext context = PluginContext(ctx);
  return ReadRawString(ns, context, context, "SerialNumber");
}

std::string TCIMSchemaHelper::GetSerialNumber(NamespacePtr ns, TCIMContext ctx) {
  const auto serialNumber = hwxidentity::CheckedSerialNumber(GetRawSerialNumberString(ns, ctx));
  if (!serialNumber) throw THWXException(kHWXStatusNotFound);
  return *serialNumber;
}

std::string TCIMSchemaHelper::GetSerialNumber_vmwesxi(NamespacePtr ns, TCIMContext ctx) {
  const TCIMContext context = PluginContext(ctx);
  const std::vector<InstancePtr> chassis =
      CollectInstances(GetClass(ns, "OMC_Chassis", context), context);
  if (chassis.empty()) throw THWXException(kHWXStatusNotFound);
  const TCIMValue value =
      GetProperty(chassis.front(), "SerialNumber", context)->GetValue(TCIMContext());
  if (!value.IsNull()) {
    if (const auto serialNumber = hwxidentity::CheckedSerialNumber(value)) return *serialNumber;
  }
  const auto systems = GetClass(ns, "OMC_UnitaryComputerSystem", context);
  for (const InstancePtr& system : CollectInstances(systems, context)) {
    const auto property = GetProperty(system, "OtherIdentifyingInfo", context);
    for (const std::string& text : property->GetStringArrayValue()) {
      if (const auto serialNumber = hwxidentity::CheckedSerialNumber(text)) return *serialNumber;
    }
  }
  throw THWXException(kHWXStatusNotFound);
}

// Contract: length-unchecked.
bool TCIMSchemaHelper::IsValidMachineType(const std::string& text) {
  return hwxidentity::IsMachineType(text);
}

bool TCIMSchemaHelper::IsValidMTM(const std::string& text) {
  return hwxidentity::IsMachineTypeModel(text);
}

std::string TCIMSchemaHelper::GetRawMTMString(NamespacePtr ns) {
  return ReadRawString(ns, PluginContext(), TCIMContext(), "ProductName");
}

std::string TCIMSchemaHelper::GetMTM(NamespacePtr ns) {
  detail::LogDebug("TCIMSchemaHelper- Detected MTM Entered");
  const auto mtm = hwxidentity::ParseMachineTypeModel(GetRawMTMString(ns));
  if (!mtm) throw THWXException(kHWXStatusInvalidFormat);  // Contract: no-form-unlogged.
  detail::LogDebug("TCIMSchemaHelper- Detected MTM ", *mtm);
  return *mtm;
}

std::string TCIMSchemaHelper::GetMachineType(NamespacePtr ns) {
  return GetMTM(ns).substr(0, 4);  // Contract: asked-anew.
}

std::string TCIMSchemaHelper::GetModelNumber(NamespacePtr ns) {
  return GetMTM(ns).substr(4, 3);  // Contract: asked-anew.
}

std::string TCIMSchemaHelper::GetMTM_vmwesxi(NamespacePtr ns) {
  const std::string product = GetSystemProductName_vmwesxi(ns);
  // The product name holds both marks, or is "Unknown" and holds none.
  const std::size_t start = product.find("-[") + 2;
  const std::size_t end = product.find("]-");
  if (end == std::string::npos || start >= end) return kUnknown;
  return product.substr(start, end - start);  // Contract: hypervisor-unchecked.
}

}  // namespace NQORHWX20
