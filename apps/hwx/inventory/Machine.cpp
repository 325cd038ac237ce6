#include "hwx/inventory/Machine.h"

#include <string>

#include "hwx/firmware/FirmwareTables.h"
#include "hwx/plugins/ProviderLoading.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/value/TDetailedException.h"
#include "hwxkit/ChildReading.h"
#include "hwxkit/TChildLostException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

NamespacePtr OpenedNamespace(INamespaceSource& source) {
  TCIMContext context;
  context[TCIMSchemaHelper::kContextName].Set(TCIMSchemaHelper::kPluginNSPName);
  try {
    if (auto machine = source.OpenNamespace(context)) return machine;
  } catch (const THWXException& failure) {
    throw TFailure("the provider can't open its namespace: " + InWords(failure));
  } catch (const std::exception& failure) {
    throw TFailure(std::string("the provider can't open its namespace: ") + failure.what());
  }
  throw TFailure("the provider has no namespace to open");
}

}  // namespace

NamespacePtr OpenMachine(const TChildLimits& limits) {
  const auto open = [] { return OpenedNamespace(*LoadProvider(TCIMSchemaHelper::kPluginNSPName)); };
  try {
    return OpenInChild(open, limits, &ReportError);
  } catch (const TChildLostException& lost) {
    throw TFailure("the provider can't be loaded: " + lost.GetDetail());
  } catch (const TDetailedException& failure) {  // its detail is the text of a `TFailure` above
    throw TFailure(InWords(failure));
  }
}

NamespacePtr OpenMachine(const TGlobalOptions& options) {
  ReadFirmware();  // kept by the snapshot, which the child inherits
  const NamespacePtr machine = OpenMachine(options.fLimits);
  WarnOfFirmware(options.fFirmware ? RequireFirmware(options) : ReadFirmware(), options);
  return machine;
}

}  // namespace hwx
