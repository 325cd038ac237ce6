// The provider "container": namespaces in memory that are kept as files. It enters itself in the
// registry when the module is loaded.

#include <boost/make_shared.hpp>
#include <string>

#include "hwxcore/diagnostics/ILogger.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/schema/TRootObject.h"
#include "hwxkit/IContainerSource.h"
#include "hwxkit/TContainerException.h"
#include "hwxkit/TMemoryNamespace.h"
#include "hwxkit/TProviderRegistration.h"
#include "providers/container/Store.h"

namespace container {

namespace {

using namespace NQORHWX20;
typedef boost::shared_ptr<ICIMNamespace> TNamespace;

// The text of a failure goes to the log too, where it stands for failures of all kinds.
template <typename Call>
auto Logged(Call call) {
  try {
    return call();
  } catch (const TContainerException& failure) {
    TRootObject::GetCoreLogger()->OutputLogEntry(ILogger::kHWXLogError, failure.what());
    throw;
  }
}

// `name` is the file's in messages.
TMemoryNamespace& Kept(const TNamespace& ns, const std::string& name) {
  const auto kept = boost::dynamic_pointer_cast<TMemoryNamespace>(ns);
  if (kept) return *kept;
  throw TContainerException(kHWXStatusNotSupported,
                            name + ": the namespace isn't one that can be kept in a file");
}

class TContainerProvider : public IContainerSource {
 public:
  const std::string& GetName(TCIMContext /*context*/) override { return fName; }

  TNamespace OpenNamespace(TCIMContext context) override {
    const auto provider = context.find(TCIMSchemaHelper::kContextName);
    if (provider != context.end() && provider->second != TCIMValue(fName))
      throw THWXException(kHWXStatusNotFound);
    const auto file = context.find(kFileContextName);
    if (file == context.end()) return NewContainer(kDefaultNamespaceName);
    return LoadContainer(file->second);
  }

  TNamespace NewContainer(const std::string& namespaceName) override {
    return TMemoryNamespace::Create(namespaceName);
  }

  TNamespace LoadContainer(const std::string& path) override {
    return Logged([&] { return LoadFile(path); });
  }

  void SaveContainer(const TNamespace& ns, const std::string& path) override {
    Logged([&] { SaveFile(Kept(ns, path), path); });
  }

  std::string ContainerText(const TNamespace& ns) override {
    return Logged([&] { return Text(Kept(ns, "container"), "container"); });
  }

 private:
  const std::string fName = "container";
};

const TProviderRegistration kRegistration(boost::make_shared<TContainerProvider>());

}  // namespace

}  // namespace container
