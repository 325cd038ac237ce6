#include "hwx/identity/Explanation.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "hwx/firmware/FirmwareQueries.h"
#include "hwx/firmware/KernelCopy.h"
#include "hwx/identity/TypeForms.h"
#include "hwx/text/Words.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/value/THWXException.h"
#include "hwxidentity/MachineTypeModel.h"
#include "hwxidentity/SerialNumberCheck.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

const char kSchemaQuery[] = "schema query";
const char kType0[] = "type 0";
const char kType0Table[] = "type 0 table";
const char kType1[] = "type 1";
const char kSysfs[] = "sysfs";

TSourceAnswer Source(const char* source, const TAnswer<std::string>& answer) {
  return {source, answer, answer.fValue ? kNotTaken : kMissing};
}

// The answer of a source whose text may be a maker's filler.
TSourceAnswer FilledIn(const char* source, const TAnswer<std::string>& answer) {
  const bool isFiller = answer.fValue && !hwxidentity::CheckedSerialNumber(*answer.fValue);
  return {source, answer, isFiller ? kFiller : answer.fValue ? kNotTaken : kMissing};
}

bool Says(const TSourceAnswer& source) {
  return source.fVerdict != kFiller && source.fVerdict != kMissing;
}

bool SaySame(const TSourceAnswer& one, const TSourceAnswer& other) {
  return Trimmed(*one.fAnswer.fValue) == Trimmed(*other.fAnswer.fValue);
}

// Whether two sources with an answer differ. Each is compared with the first that has one.
bool Disagree(const std::vector<TSourceAnswer>& sources) {
  const auto first = std::find_if(sources.begin(), sources.end(), &Says);
  return std::any_of(first, sources.end(), [&](const TSourceAnswer& source) {
    return Says(source) && !SaySame(*first, source);
  });
}

// Gives each source its verdict. The identity takes its value from the first `takeable` sources,
// and of those from the first with an answer.
TExplanation Judged(const char* key, const char* label, std::vector<TSourceAnswer> sources,
                    std::ptrdiff_t takeable = 1) {
  const auto taken = std::find_if(sources.begin(), sources.begin() + takeable, &Says);
  if (taken != sources.begin() + takeable) {
    for (TSourceAnswer& source : sources)
      if (Says(source)) source.fVerdict = SaySame(*taken, source) ? kAgrees : kDiffers;
    taken->fVerdict = kTaken;
  }
  const bool disagree = Disagree(sources);
  return {key, label, std::move(sources), disagree};
}

// The text in the namespace, also if the identity refuses it as filler. `answer` is the identity's.
TAnswer<std::string> Raw(const TAnswer<std::string>& answer,
                         const std::function<std::string()>& query) {
  if (answer.fValue) return answer;
  try {
    const std::string text = query();
    if (!IsBlank(text)) return {text, {}};
  } catch (const std::exception&) {  // `answer` holds the reason
  }
  return answer;
}

TAnswer<std::string> PartOfName(const TAnswer<std::string>& productName, std::size_t start,
                                std::size_t size, const char* noun) {
  if (!productName.fValue) return productName;
  const auto typeAndModel = hwxidentity::ParseMachineTypeModel(*productName.fValue);
  const std::string part = typeAndModel ? typeAndModel->substr(start, size) : std::string();
  if (!IsBlank(part) && part != "xxx") return AnswerInName(part, *productName.fValue);
  return Missing<std::string>(std::string("no ") + noun + " in \"" + *productName.fValue + "\"");
}

// The BIOS identifier in a version, found as the library does it.
TAnswer<std::string> BiosIDOf(const TAnswer<std::string>& version) {
  if (!version.fValue) return version;
  std::string text = *version.fValue;
  TOSSpecific::removeNonAlpaNumeric(text);
  std::string build = text;
  TOSSpecific::breakApartVersion(text, build);
  if (build.size() >= 2) return {build.substr(0, 2), {}};
  return Missing<std::string>("no BIOS identifier in \"" + *version.fValue + "\"");
}

}  // namespace

std::vector<TExplanation> Explain(const NamespacePtr& machine, const TIdentity& identity) {
  const TSystemIdentity system = AskSystem();
  const TBiosIdentity bios = AskBios();
  const auto product = KernelCopy("product_name");
  const auto rawProduct =
      Raw(identity.fProductName, [&] { return TCIMSchemaHelper::GetSystemProductName(machine); });
  const auto rawSerial = Raw(identity.fSerialNumber, [&] {
    return TCIMSchemaHelper::GetRawSerialNumberString(machine, TCIMContext());
  });
  // If the library's query has no answer, the identity takes none from these sources.
  const std::ptrdiff_t takeableByBios = identity.fMachineTypeByBios.fValue ? 2 : 0;
  return {
      Judged("machineType", "Machine type",
             {Source(kSchemaQuery, identity.fMachineType), Source(kType1, system.fMachineType),
              Source(kType0Table, bios.fTypeByTable),
              Source(kSysfs, PartOfName(product, 0, 4, "machine type"))}),
      Judged("model", "Model",
             {Source(kSchemaQuery, identity.fModel), Source(kType1, system.fModel),
              Source(kSysfs, PartOfName(product, 4, 3, "model"))}),
      Judged("productName", "Product name",
             {FilledIn(kSchemaQuery, rawProduct), FilledIn(kType1, system.fProductName),
              FilledIn(kSysfs, product)}),
      Judged("serialNumber", "Serial number",
             {FilledIn(kSchemaQuery, rawSerial), FilledIn(kType1, system.fSerialNumber),
              FilledIn(kSysfs, KernelCopy("product_serial"))}),
      Judged("biosIdentifier", "BIOS identifier",
             {Source(kType0, bios.fBiosID), Source(kSysfs, BiosIDOf(KernelCopy("bios_version")))}),
      Judged("machineTypeByBios", "Machine type by BIOS",
             {Source(kType0Table, bios.fTypeByTable), Source(kType1, system.fMachineType)},
             takeableByBios),
  };
}

}  // namespace hwx
