#include "hwx/inventory/Machine.h"

#include <string>

#include "hwx/identity/Reasons.h"
#include "hwx/plugins/ProviderLoading.h"
#include "hwx/text/Failure.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/value/THWXException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

NamespacePtr OpenedNamespace(INamespaceSource& source) {
  TCIMContext context;
  context[TCIMSchemaHelper::kContextName].Set(TCIMSchemaHelper::kPluginNSPName);
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

NamespacePtr OpenMachine() {
  return OpenedNamespace(*LoadProvider(TCIMSchemaHelper::kPluginNSPName));
}

NamespacePtr OpenMachine(const TGlobalOptions& options) {
  const NamespacePtr machine = OpenMachine();
  if (!options.fFirmware) return machine;
  const auto status = FirmwareStatus(machine);
  if (status && !status->empty()) {
    throw TFailure("--firmware " + *options.fFirmware + ": " + *status);
  }
  return machine;
}

}  // namespace hwx
