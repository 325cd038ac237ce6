#include "hwx/inventory/Containers.h"

#include <boost/pointer_cast.hpp>

#include "hwx/plugins/ProviderLoading.h"
#include "hwx/text/Failure.h"
#include "hwxkit/IContainerSource.h"
#include "hwxkit/TContainerException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

boost::shared_ptr<IContainerSource> Source() {
  auto source = boost::dynamic_pointer_cast<IContainerSource>(LoadProvider("container"));
  if (!source) throw TFailure("the provider \"container\" doesn't keep files");
  return source;
}

template <typename Operation>
auto InWordsOfTheSource(Operation operation) {
  const auto source = Source();
  try {
    return operation(*source);
  } catch (const TContainerException& failure) {
    throw TFailure(failure.what());
  }
}

}  // namespace

NamespacePtr NewContainer(const std::string& name) {
  return InWordsOfTheSource([&](IContainerSource& source) { return source.NewContainer(name); });
}

NamespacePtr LoadContainer(const std::string& path) {
  return InWordsOfTheSource([&](IContainerSource& source) { return source.LoadContainer(path); });
}

void SaveContainer(const NamespacePtr& container, const std::string& path) {
  InWordsOfTheSource([&](IContainerSource& source) { source.SaveContainer(container, path); });
}

std::string ContainerText(const NamespacePtr& container) {
  return InWordsOfTheSource(
      [&](IContainerSource& source) { return source.ContainerText(container); });
}

}  // namespace hwx
