#include "hwx/inventory/EmptyClasses.h"

#include <algorithm>

#include "hwxcore/schema/ICIMProperty.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/CIMName.h"

namespace hwx {

using namespace NQORHWX20;

const char kClassStatus[] = "QORSG_ClassStatus";

namespace {

std::string TextOf(ICIMInstance& instance, const char* property) {
  return instance.GetProperty(property, TCIMContext())->GetStringValue();
}

bool HasClass(const TClasses& classes, const std::string& name) {
  return std::any_of(classes.begin(), classes.end(), [&name](const ClassPtr& cimClass) {
    return IsSameCIMName(cimClass->GetName(TCIMContext()), name);
  });
}

}  // namespace

std::vector<std::string> WhyEmpty(ICIMNamespace& ns, const TClasses& classes) {
  std::vector<std::string> lines;
  const auto add = [&](const InstancePtr& status) {
    const std::string name = TextOf(*status, "ClassName");
    if (HasClass(classes, name))
      lines.push_back(name + " has no instances: " + TextOf(*status, "Reason"));
    return true;
  };
  try {
    ns.GetClass(kClassStatus, TCIMContext())->EnumerateInstances(add, true, TCIMContext());
  } catch (const THWXException&) {  // a source that doesn't tell why
  }
  return lines;
}

}  // namespace hwx
