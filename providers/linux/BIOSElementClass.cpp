#include "providers/linux/BiosInformation.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

void DefineBIOSElement(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TBios;
  TLiveClass<Row>(ns, "CIM_BIOSElement", "The firmware that starts the machine.", &ReadBios)
      .Key("Name", &Row::fName, "\"BIOS\".")
      .Property("Manufacturer", &Row::fManufacturer, "The maker of the firmware.")
      .Property("Version", &Row::fVersion, "The maker's version, in the maker's form.")
      .Property("ReleaseDate", &Row::fReleaseDate, "The day of the version.")
      .Property(
          "PrimaryBIOS", [](const Row&) { return true; },
          "Whether it is the machine's main firmware, as it always is.")
      .Property("LoadedStartingAddress", &Row::fStartingAddress,
                "The first byte of memory that it takes; null for UEFI.")
      .Property("LoadedEndingAddress", &Row::fEndingAddress, "The last such byte.")
      .Property("ListOfLanguages", &Row::fLanguages, "The languages that it can speak.")
      .Property("CurrentLanguage", &Row::fCurrentLanguage, "The language that it is set to.")
      .Commit();
}

}  // namespace linux_machine
