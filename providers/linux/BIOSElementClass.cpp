#include "providers/linux/BiosInformation.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

void DefineBIOSElement(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TBios;
  TLiveClass<Row>(ns, "CIM_BIOSElement", &ReadBios)
      .Key("Name", &Row::fName)
      .Set("Version", [](const Row& row) { return row.fVersion.value_or(std::string()); })
      .SetAll("SoftwareElementState", kRunning)
      .Set("SoftwareElementID", &Row::fName)
      .SetAll("TargetOperatingSystem", kAnyOperatingSystem)
      .Set("Manufacturer", &Row::fManufacturer)
      .Set("ReleaseDate", &Row::fReleaseDate)
      .SetAll("PrimaryBIOS", true)
      .Set("LoadedStartingAddress", &Row::fStartingAddress)
      .Set("LoadedEndingAddress", &Row::fEndingAddress)
      .Set("ListOfLanguages", &Row::fLanguages)
      .Set("CurrentLanguage", &Row::fCurrentLanguage)
      .Commit();
}

}  // namespace linux_machine
