#include "hwx/inventory/Containers.h"

#include <boost/pointer_cast.hpp>

#include "hwx/plugins/ProviderLoading.h"
#include "hwx/text/Failure.h"
#include "hwxkit/IContainerSource.h"
#include "hwxkit/TContainerException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

boost::shared_ptr<IContainerSource> Containers() {
  auto containers = boost::dynamic_pointer_cast<IContainerSource>(LoadProvider("container"));
  if (!containers) throw TFailure("the provider \"container\" doesn't keep files");
  return containers;
}

// Calls the provider, and tells in its words what it throws.
template <typename Operation>
auto Asked(Operation operation) {
  const auto containers = Containers();
  try {
    return operation(*containers);
  } catch (const TContainerException& failure) {
    throw TFailure(failure.what());
  }
}

}  // namespace

NamespacePtr NewContainer(const std::string& name) {
  return Asked([&](IContainerSource& containers) { return containers.NewContainer(name); });
}

NamespacePtr LoadContainer(const std::string& path) {
  return Asked([&](IContainerSource& containers) { return containers.LoadContainer(path); });
}

void SaveContainer(const NamespacePtr& container, const std::string& path) {
  Asked([&](IContainerSource& containers) { containers.SaveContainer(container, path); });
}

std::string ContainerText(const NamespacePtr& container) {
  return Asked([&](IContainerSource& containers) { return containers.ContainerText(container); });
}

}  // namespace hwx
