#include "hwx/Machine.h"

#include <algorithm>
#include <boost/pointer_cast.hpp>
#include <string>
#include <vector>

#include "hwx/Failure.h"
#include "hwx/LogErrors.h"
#include "hwx/Reasons.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/schema/INamespaceProviderManager.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/schema/TRootObject.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/INamespaceSource.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

const std::string& Name() {
  return TCIMSchemaHelper::kPluginNSPName;
}

void RequireProviderFile() {
  const std::vector<std::string> names = TOSSpecific::FindNSPs();
  if (std::find(names.begin(), names.end(), Name()) != names.end()) return;
  throw TFailure("there is no provider: " + TOSSpecific::GetHWXRootPath() + "/lib" + Name() +
                 ".nsp.so is absent");
}

void LoadProvider() {
  const TLogErrors errors;
  try {
    TOSSpecific::LoadNSPLibrary(Name());
  } catch (const THWXException&) {
    throw TFailure("the provider can't be loaded: " + errors.Last());
  }
}

boost::shared_ptr<INamespaceSource> RegisteredSource() {
  boost::shared_ptr<INamespaceProvider> provider;
  try {
    provider = TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider(Name());
  } catch (const THWXException&) {
    throw TFailure("the provider was loaded, but didn't register itself as \"" + Name() + "\"");
  }
  auto source = boost::dynamic_pointer_cast<INamespaceSource>(provider);
  if (!source) throw TFailure("the provider \"" + Name() + "\" opens no namespace");
  return source;
}

boost::shared_ptr<ICIMNamespace> OpenedNamespace(INamespaceSource& source) {
  TCIMContext context;
  context[TCIMSchemaHelper::kContextName].Set(Name());
  try {
    if (auto machine = source.OpenNamespace(context)) return machine;
  } catch (const THWXException& failure) {
    throw TFailure("the provider can't open its namespace: " + InWords(failure.GetStatus()));
  } catch (const std::exception& failure) {
    throw TFailure(std::string("the provider can't open its namespace: ") + failure.what());
  }
  throw TFailure("the provider has no namespace to open");
}

}  // namespace

boost::shared_ptr<ICIMNamespace> OpenMachine() {
  try {
    RequireProviderFile();
  } catch (const THWXException& failure) {
    throw TFailure("the library's directory can't be searched for providers: " +
                   InWords(failure.GetStatus()));
  }
  LoadProvider();
  return OpenedNamespace(*RegisteredSource());
}

boost::shared_ptr<ICIMNamespace> OpenMachine(const TGlobalOptions& options) {
  const TMachine machine = OpenMachine();
  if (!options.fFirmware) return machine;
  const auto status = FirmwareStatus(machine);
  if (status && !status->empty()) {
    throw TFailure("--firmware " + *options.fFirmware + ": " + *status);
  }
  return machine;
}

}  // namespace hwx
