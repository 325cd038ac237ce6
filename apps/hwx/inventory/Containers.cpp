#include "hwx/inventory/Containers.h"

#include <boost/pointer_cast.hpp>
#include <new>

#include "hwx/plugins/ProviderLoading.h"
#include "hwx/system/MemoryLimit.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
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

NamespacePtr LoadContainer(const std::string& path, const TFileReading& reading) {
  TContainerLoading loading;
  loading.fNamespace = reading.fNamespace;
  loading.fMaxMemory = reading.fMaxMemory;
  loading.fWarn = [](const std::string& line) { ReportError("warning: " + line); };
  LimitMemory(reading.fMaxMemory);
  const std::string file = path == "-" ? "/dev/stdin" : path;
  try {
    return Asked(
        [&](IContainerSource& containers) { return containers.LoadContainer(file, loading); });
  } catch (const std::bad_alloc&) {
    throw TFailure(path + ": takes more than " + std::to_string(reading.fMaxMemory >> 20) +
                   " MiB of memory, which is the limit; --max-memory sets another");
  }
}

void SaveContainer(const NamespacePtr& container, const std::string& path) {
  Asked([&](IContainerSource& containers) { containers.SaveContainer(container, path); });
}

void PrintContainer(const NamespacePtr& container, EContainerText language) {
  Asked([&](IContainerSource& containers) {
    containers.WriteContainer(
        container, language == EContainerText::kMOF ? kContainerMOF : kContainerXML, &WriteOutput);
  });
}

}  // namespace hwx
